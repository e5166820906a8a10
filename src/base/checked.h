// 16- and 32-bit signed arithmetic that never wraps: every operation gives the exact result or throws ArithmeticFault.
#pragma once

#include <concepts>
#include <limits>

#include "base/failure.h"

namespace telvar::base {

template <std::signed_integral Integer>
[[nodiscard]] constexpr Integer checkedAdd(Integer left, Integer right) {
    Integer result{};
    if (__builtin_add_overflow(left, right, &result)) {
        throw ArithmeticFault::overflow();
    }
    return result;
}

template <std::signed_integral Integer>
[[nodiscard]] constexpr Integer checkedSubtract(Integer left, Integer right) {
    Integer result{};
    if (__builtin_sub_overflow(left, right, &result)) {
        throw ArithmeticFault::overflow();
    }
    return result;
}

template <std::signed_integral Integer>
[[nodiscard]] constexpr Integer checkedMultiply(Integer left, Integer right) {
    Integer result{};
    if (__builtin_mul_overflow(left, right, &result)) {
        throw ArithmeticFault::overflow();
    }
    return result;
}

// Remainder with the sign of the dividend. The smallest integer by -1 is an overflow, as on the processor.
template <std::signed_integral Integer>
[[nodiscard]] constexpr Integer checkedRemainder(Integer dividend, Integer divisor) {
    if (divisor == 0) {
        throw ArithmeticFault::divisionByZero();
    }
    if (divisor == -1 && dividend == std::numeric_limits<Integer>::min()) {
        throw ArithmeticFault::overflow();
    }
    return static_cast<Integer>(dividend % divisor);
}

}  // namespace telvar::base
