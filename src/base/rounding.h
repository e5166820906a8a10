// Rounding to the nearest whole number, halves to even: the one rule by which reals become integers.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

#include "base/failure.h"

namespace telvar::base {

// Independent of the floating-point rounding mode.
[[nodiscard]] inline double roundHalfEven(double value) noexcept {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5) {
        return below;
    }
    if (rest > 0.5) {
        return below + 1.0;
    }
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

// Throws ConversionFailure "Overflow" where the rounded value does not fit, NaN included.
template <class Integer>
[[nodiscard]] Integer roundTo(double value) {
    const double rounded = roundHalfEven(value);
    // The upper limit plus one is a power of two, so it is exact in a double for every width.
    const double beyond = -static_cast<double>(std::numeric_limits<Integer>::min());
    if (!(rounded >= -beyond && rounded < beyond)) {
        throw ConversionFailure::overflow();
    }
    return static_cast<Integer>(rounded);
}

}  // namespace telvar::base
