#include "base/checked.h"

#include <cstdint>

#include <gtest/gtest.h>

namespace telvar::tests {
namespace {

template <class Integer>
class CheckedArithmetic : public testing::Test {
protected:
    static constexpr Integer least = std::numeric_limits<Integer>::min();
    static constexpr Integer most = std::numeric_limits<Integer>::max();
    static constexpr Integer one = 1;
    static constexpr Integer two = 2;
    static constexpr Integer minusOne = -1;
    static constexpr Integer zero = 0;
};

using Widths = testing::Types<std::int16_t, std::int32_t>;
TYPED_TEST_SUITE(CheckedArithmetic, Widths);

TYPED_TEST(CheckedArithmetic, AddingIsExactUpToBothEndsAndAFaultBeyond) {
    using T = TestFixture;
    EXPECT_EQ(base::checkedAdd<TypeParam>(T::most, T::least), -1);
    EXPECT_EQ(base::checkedAdd<TypeParam>(T::most, T::zero), T::most);
    EXPECT_THROW((void)base::checkedAdd<TypeParam>(T::most, T::one), base::ArithmeticFault);
    EXPECT_THROW((void)base::checkedAdd<TypeParam>(T::least, T::minusOne), base::ArithmeticFault);
}

TYPED_TEST(CheckedArithmetic, SubtractingIsExactUpToBothEndsAndAFaultBeyond) {
    using T = TestFixture;
    EXPECT_EQ(base::checkedSubtract<TypeParam>(T::minusOne, T::most), T::least);
    EXPECT_EQ(base::checkedSubtract<TypeParam>(T::minusOne, T::least), T::most);
    EXPECT_THROW((void)base::checkedSubtract<TypeParam>(T::least, T::one), base::ArithmeticFault);
    EXPECT_THROW((void)base::checkedSubtract<TypeParam>(T::zero, T::least), base::ArithmeticFault);
}

TYPED_TEST(CheckedArithmetic, MultiplyingIsExactUpToBothEndsAndAFaultBeyond) {
    using T = TestFixture;
    EXPECT_EQ(base::checkedMultiply<TypeParam>(T::most, T::minusOne), static_cast<TypeParam>(T::least + 1));
    EXPECT_EQ(base::checkedMultiply<TypeParam>(T::least, T::one), T::least);
    EXPECT_EQ(base::checkedMultiply<TypeParam>(T::most, T::zero), T::zero);
    EXPECT_THROW((void)base::checkedMultiply<TypeParam>(T::least, T::minusOne), base::ArithmeticFault);
    EXPECT_THROW((void)base::checkedMultiply<TypeParam>(T::most, T::two), base::ArithmeticFault);
}

TYPED_TEST(CheckedArithmetic, TheRemainderHasTheSignOfTheDividend) {
    EXPECT_EQ(base::checkedRemainder<TypeParam>(7, 3), 1);
    EXPECT_EQ(base::checkedRemainder<TypeParam>(-7, 3), -1);
    EXPECT_EQ(base::checkedRemainder<TypeParam>(7, -3), 1);
    EXPECT_EQ(base::checkedRemainder<TypeParam>(6, 3), 0);
}

TYPED_TEST(CheckedArithmetic, TheRemainderOfTheSmallestNumberByMinusOneIsAFault) {
    using T = TestFixture;
    EXPECT_THROW((void)base::checkedRemainder<TypeParam>(T::least, T::minusOne), base::ArithmeticFault);
    EXPECT_EQ(base::checkedRemainder<TypeParam>(static_cast<TypeParam>(T::least + 1), T::minusOne), 0);
}

TEST(ArithmeticFault, SaysWhatHappened) {
    const auto descriptionOf = [](auto operation) {
        try {
            operation();
        } catch (const base::Failure& failure) {
            return failure.description();
        }
        return std::string("no fault");
    };
    EXPECT_EQ(descriptionOf([] { (void)base::checkedAdd<std::int16_t>(32767, 1); }), "Overflow");
    EXPECT_EQ(descriptionOf([] { (void)base::checkedRemainder<std::int32_t>(1, 0); }), "Division by zero");
    EXPECT_EQ(descriptionOf([] { throw base::SubscriptFailure(); }), "Subscript out of range");
}

TEST(CheckedArithmeticInConstants, WorksAtCompileTime) {
    static_assert(base::checkedSubtract<std::int16_t>(255, 1) == 254);
    static_assert(base::checkedMultiply<std::int32_t>(32767, 2) == 65534);
    static_assert(base::checkedRemainder<std::int32_t>(4500, 64) == 20);
}

}  // namespace
}  // namespace telvar::tests
