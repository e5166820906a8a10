#include "synth/clsPLLSetting.h"

#include "base/checked.h"
#include "synth/divider.h"

namespace telvar::synth {

namespace {

// Throws base::ArithmeticFault where 32 bits do not hold a step of the calculation.
[[nodiscard]] bool programmable(std::int32_t vco, std::int16_t modulo, std::int32_t step, std::int32_t reference) {
    const std::int32_t comparison = base::checkedMultiply<std::int32_t>(modulo, step);
    const bool divides = base::checkedRemainder(reference, comparison) == 0 && base::checkedRemainder(vco, step) == 0;
    return divides && fitsCounters(splitDivider(floorQuotient(vco, comparison)), 0);
}

}  // namespace

void clsPLLSetting::InitialiseSettings(std::int32_t VCOFreq, std::int16_t Modulo, std::int32_t FStepSize,
                                       std::int32_t RefFreq) noexcept {
    vcoFrequency_ = VCOFreq;
    modulo_ = Modulo;
    stepSize_ = FStepSize;
    try {
        invalid_ = !programmable(VCOFreq, Modulo, FStepSize, RefFreq);
    } catch (const base::ArithmeticFault&) {
        invalid_ = true;
    }
}

}  // namespace telvar::synth
