// Lengths as the user writes them in the page set-up.
#include <gtest/gtest.h>

#include "desk/page_setup.h"

namespace telvar::tests {

TEST(PageSetupLengths, AreMillimetresWithTwoDecimals) {
    EXPECT_EQ(desk::readMillimetres("15"), 1'500);
    EXPECT_EQ(desk::readMillimetres(" 12.7 "), 1'270);
    EXPECT_EQ(desk::readMillimetres("12,75"), 1'275);
    EXPECT_EQ(desk::readMillimetres("0"), 0);
    for (const char* wrong : {"", " ", "-1", ".5", "1.234", "1.2.3", "15mm", "99999999999"}) {
        EXPECT_EQ(desk::readMillimetres(wrong), std::nullopt) << testing::PrintToString(wrong);
    }
    EXPECT_EQ(desk::millimetresText(1'500), "15");
    EXPECT_EQ(desk::millimetresText(1'270), "12.7");
    EXPECT_EQ(desk::millimetresText(1'275), "12.75");
    EXPECT_EQ(desk::millimetresText(1'205), "12.05");
}

}  // namespace telvar::tests
