// How a division ratio is spread over the counters of the fractional-N synthesizer. The calculator and the table checks
// use the same split with bounds of their own.
#pragma once

#include <cstdint>
#include <limits>

#include "base/checked.h"
#include "base/failure.h"

namespace telvar::synth {

// The prescaler divides by 64, by 64 + 8 and by 64 + 1. The ratio less 8 is 64 (main + eights + ones + 3) + 8 eights +
// ones.
struct DividerSplit {
    std::int32_t main = 0;    // plain cycles of 64, less 3
    std::int32_t eights = 0;  // cycles of 64 + 8
    std::int32_t ones = 0;    // cycles of 64 + 1
    bool operator==(const DividerSplit&) const = default;
};

// Fields of the synthesizer's registers: 12 bits for the main counter and for the reference divider, 4 for the others.
inline constexpr std::int32_t largestMain = 4095;
inline constexpr std::int32_t largestReferenceDivider = 4095;
inline constexpr std::int32_t largestCycleCount = 15;

inline constexpr std::int32_t ratioOffset = 8;
inline constexpr std::int32_t mainCycle = 64;
inline constexpr std::int32_t mainOffset = 3;
inline constexpr std::int32_t eightsCycle = 8;

// Towards minus infinity. Throws base::ArithmeticFault for a divisor of 0 and for the smallest integer by -1.
[[nodiscard]] constexpr std::int32_t floorQuotient(std::int32_t dividend, std::int32_t divisor) {
    const std::int32_t rest = base::checkedRemainder(dividend, divisor);
    const std::int32_t quotient = dividend / divisor;
    return rest != 0 && (rest < 0) != (divisor < 0) ? quotient - 1 : quotient;
}

// Throws base::ArithmeticFault for a ratio too near the smallest integer to subtract the offset. A ratio below 8 gives
// negative counts; the caller judges the bounds.
[[nodiscard]] constexpr DividerSplit splitDivider(std::int32_t ratio) {
    const std::int32_t rest = base::checkedSubtract(ratio, ratioOffset);
    const std::int32_t cycles = floorQuotient(rest, mainCycle) - mainOffset;
    const std::int32_t within = rest % mainCycle;
    const std::int32_t eights = floorQuotient(within, eightsCycle);
    const std::int32_t ones = within % eightsCycle;
    return {.main = cycles - ones - eights, .eights = eights, .ones = ones};
}

[[nodiscard]] constexpr bool fitsCounters(const DividerSplit& split, std::int32_t smallestMain) noexcept {
    return split.main >= smallestMain && split.main <= largestMain && split.eights >= 0 &&
           split.eights <= largestCycleCount && split.ones >= 0 && split.ones <= largestCycleCount;
}

// 450 MHz with modulo 8 and a step of 12.5 kHz.
static_assert(splitDivider(4500) == DividerSplit{.main = 62, .eights = 1, .ones = 4});

}  // namespace telvar::synth
