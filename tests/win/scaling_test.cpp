// Lengths at several resolutions.
#include "win/scaling.h"

#include <gtest/gtest.h>

namespace telvar::win {
namespace {

TEST(Scaling, HimetricAndPixelsAtSeveralResolutions) {
    EXPECT_EQ(toHimetric({472, 263}, 96).cx, 12488);
    EXPECT_EQ(toHimetric({472, 263}, 96).cy, 6959);
    EXPECT_EQ(toHimetric({144, 288}, 144).cx, 2540);
    EXPECT_EQ(toPixels({2540, 5080}, 120).cx, 120);
    EXPECT_EQ(toPixels({2540, 5080}, 120).cy, 240);
    EXPECT_EQ(scaled(100, 144), 150);
}

TEST(Scaling, AWindowThatThereIsNotHasTheScreensResolution) {
    EXPECT_GE(screenDpi(), standardDpi);
    EXPECT_EQ(dpiOf(nullptr), screenDpi());
    EXPECT_EQ(dpiOf(GetDesktopWindow()), screenDpi());
}

}  // namespace
}  // namespace telvar::win
