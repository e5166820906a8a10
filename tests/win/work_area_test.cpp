// Where a window may stand, on monitors of which there are any number.
#include "win/work_area.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>

namespace telvar::win {
namespace {

std::tuple<LONG, LONG, LONG, LONG> sides(const RECT& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

// A main screen with a task bar below, and a second one at its left.
constexpr std::array<RECT, 2> screens{{{0, 0, 1280, 984}, {-1024, 100, 0, 868}}};

TEST(Fitted, APlaceOnTheScreenIsKept) {
    EXPECT_EQ(sides(fitted({100, 50, 900, 700}, screens)), sides({100, 50, 900, 700}));
    EXPECT_EQ(sides(fitted({-1000, 120, -300, 700}, screens)), sides({-1000, 120, -300, 700}));
}

TEST(Fitted, APlacePartlyOutsideIsMovedOntoTheScreenThatShowsMostOfIt) {
    EXPECT_EQ(sides(fitted({1000, 900, 1500, 1200}, screens)), sides({780, 684, 1280, 984}));
    EXPECT_EQ(sides(fitted({-1200, 50, -400, 500}, screens)), sides({-1024, 100, -224, 550}));
}

TEST(Fitted, APlaceOnAScreenThatIsGoneGoesToTheMainOne) {
    EXPECT_EQ(sides(fitted({5000, 3000, 5800, 3600}, screens)), sides({480, 384, 1280, 984}));
}

TEST(Fitted, AWindowLargerThanTheScreenIsShrunk) {
    EXPECT_EQ(sides(fitted({-50, -50, 3000, 3000}, screens)), sides({0, 0, 1280, 984}));
}

TEST(WorkAreas, TheMainOneComesFirstAndIsItsMonitors) {
    const std::vector<RECT> areas = workAreas();
    ASSERT_FALSE(areas.empty());
    EXPECT_EQ(sides(areas.front()), sides(workAreaOf(MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY))));
    EXPECT_GT(areas.front().right, areas.front().left);
}

TEST(WorkAreas, OfAMonitorThatIsGoneItIsTheWholeScreen) {
    EXPECT_EQ(sides(workAreaOf(nullptr)),
              std::tuple(0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
}

}  // namespace
}  // namespace telvar::win
