// Finds the step size and the fractional modulo for a frequency: the first of a fixed list of candidates that the
// synthesizer can be programmed with. Uses the calculator's bounds, not the narrower ones of the table checks.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace telvar::synth {

struct Proposal {
    std::int32_t step = 0;    // Hz
    std::int16_t modulo = 0;  // 8 or 5
    bool operator==(const Proposal&) const = default;
};

// Frequencies in hertz. `currentStep` is the text of the step size (kHz) that the channel has now: exactly "2.5" lets
// 2.5 kHz be tried where 1 kHz is tried otherwise. Empty where no candidate fits. Never fails.
[[nodiscard]] std::optional<Proposal> proposeSetting(std::int32_t vco, std::int32_t reference,
                                                     std::string_view currentStep);

// What the user reads when nothing fits; `direction` is "TX" or "RX".
[[nodiscard]] std::string noProposalText(std::string_view direction);

}  // namespace telvar::synth
