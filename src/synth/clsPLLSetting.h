// Decides whether one combination of VCO frequency, fractional modulo and step size can be programmed into the
// synthesizer, given its reference frequency. Keeps the combination that it was given last and the verdict.
#pragma once

#include <cstdint>

namespace telvar::synth {

class clsPLLSetting {
public:
    // Frequencies and the step in hertz; the callers use the moduli 8 and 5. Never fails: a combination that cannot be
    // computed (a step of 0, a comparison frequency beyond 32 bits) is not valid.
    void InitialiseSettings(std::int32_t VCOFreq, std::int16_t Modulo, std::int32_t FStepSize,
                            std::int32_t RefFreq) noexcept;

    // As given, also when the combination is not valid; 0 before the first call.
    [[nodiscard]] std::int16_t Modulo() const noexcept { return modulo_; }
    [[nodiscard]] std::int32_t VCOFreq() const noexcept { return vcoFrequency_; }
    [[nodiscard]] std::int32_t FreqStepSize() const noexcept { return stepSize_; }
    // True before the first call.
    [[nodiscard]] bool IsValid() const noexcept { return !invalid_; }

private:
    std::int32_t vcoFrequency_ = 0;
    std::int32_t stepSize_ = 0;
    std::int16_t modulo_ = 0;
    bool invalid_ = false;
};

}  // namespace telvar::synth
