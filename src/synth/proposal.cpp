#include "synth/proposal.h"

#include <array>

#include "synth/clsPLLSetting.h"

namespace telvar::synth {

namespace {

constexpr std::int32_t finestStep = 1000;
constexpr std::int32_t quarterStep = 2500;  // kept where the channel has it
constexpr std::string_view quarterStepText = "2.5";
constexpr std::array<std::int16_t, 2> moduli{8, 5};

// Hertz, in the order in which they are tried. 3250 is meant, not 3125.
[[nodiscard]] std::array<std::int32_t, 7> candidateSteps(std::string_view currentStep) {
    return {12500, 25000, 6250, 5000, 3250, currentStep == quarterStepText ? quarterStep : finestStep, finestStep};
}

}  // namespace

std::optional<Proposal> proposeSetting(std::int32_t vco, std::int32_t reference, std::string_view currentStep) {
    clsPLLSetting setting;
    for (const auto step : candidateSteps(currentStep)) {
        for (const auto modulo : moduli) {
            setting.InitialiseSettings(vco, modulo, step, reference);
            if (setting.IsValid()) {
                return Proposal{.step = step, .modulo = modulo};
            }
        }
    }
    return std::nullopt;
}

std::string noProposalText(std::string_view direction) {
    return "Reference frequency divide error or main frequency divide error.\r\n"
           "Unable to calculate the Synthesizer Step Size and Modulo required for the specified " +
           std::string(direction) +
           " VCO frequency automatically\r\n"
           "Hint: Correct frequency or alter modulus or step size.";
}

}  // namespace telvar::synth
