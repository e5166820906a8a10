#include "host/shell/window_placement.h"
#include "win/work_area.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>

#include "host/shell/registry_settings.h"
#include "test_settings.h"
#include "win/scaling.h"

namespace telvar::tests {

using host::loadPlacement;
using win::fitted;

namespace {

std::tuple<LONG, LONG, LONG, LONG> sides(const RECT& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

// A main screen with a task bar below, and a second one at its left.
constexpr std::array<RECT, 2> screens{{{0, 0, 1280, 984}, {-1024, 100, 0, 868}}};

}  // namespace

TEST(Placement, APlaceOnTheScreenIsKept) {
    EXPECT_EQ(sides(win::fitted({100, 50, 900, 700}, screens)), sides({100, 50, 900, 700}));
    EXPECT_EQ(sides(win::fitted({-1000, 120, -300, 700}, screens)), sides({-1000, 120, -300, 700}));
}

TEST(Placement, APlacePartlyOutsideIsMovedOntoTheScreenThatShowsMostOfIt) {
    EXPECT_EQ(sides(win::fitted({1000, 900, 1500, 1200}, screens)), sides({780, 684, 1280, 984}));
    EXPECT_EQ(sides(win::fitted({-1200, 50, -400, 500}, screens)), sides({-1024, 100, -224, 550}));
}

TEST(Placement, APlaceOnAScreenThatIsGoneGoesToTheMainOne) {
    EXPECT_EQ(sides(win::fitted({5000, 3000, 5800, 3600}, screens)), sides({480, 384, 1280, 984}));
}

TEST(Placement, AWindowLargerThanTheScreenIsShrunk) {
    EXPECT_EQ(sides(win::fitted({-50, -50, 3000, 3000}, screens)), sides({0, 0, 1280, 984}));
}

TEST(Placement, NothingOrNonsenseInTheSettingsIsNoPlace) {
    const TestSettings own;
    host::RegistrySettings settings(TestSettings::key);
    EXPECT_FALSE(loadPlacement(settings));
    settings.setNumber("Left", 10);
    settings.setNumber("Top", 10);
    settings.setNumber("Width", 0);
    settings.setNumber("Height", 500);
    EXPECT_FALSE(loadPlacement(settings));
    settings.setNumber("Width", 0x7FFFFFFF);
    EXPECT_FALSE(loadPlacement(settings));
    settings.setNumber("Width", 400);
    settings.setNumber("Height", 300);
    settings.setNumber("Maximised", 1);
    const auto place = loadPlacement(settings);
    ASSERT_TRUE(place);
    EXPECT_TRUE(place->maximised);
    EXPECT_EQ(place->rectangle.right - place->rectangle.left, 400);
}

TEST(Scaling, HimetricAndPixelsAtSeveralResolutions) {
    EXPECT_EQ(win::toHimetric({472, 263}, 96).cx, 12488);
    EXPECT_EQ(win::toHimetric({472, 263}, 96).cy, 6959);
    EXPECT_EQ(win::toHimetric({144, 288}, 144).cx, 2540);
    EXPECT_EQ(win::toPixels({2540, 5080}, 120).cx, 120);
    EXPECT_EQ(win::toPixels({2540, 5080}, 120).cy, 240);
    EXPECT_EQ(win::scaled(100, 144), 150);
}

}  // namespace telvar::tests
