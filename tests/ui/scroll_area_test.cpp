#include "ui/scroll_area.h"

#include <gtest/gtest.h>

#include <ostream>

namespace telvar::ui {

inline void PrintTo(const Point& point, std::ostream* stream) { *stream << point.x << ',' << point.y; }
inline void PrintTo(const ScrollView& view, std::ostream* stream) {
    *stream << view.size.width << " by " << view.size.height << (view.vertical ? " vertical" : "")
            << (view.horizontal ? " horizontal" : "");
}

}  // namespace telvar::ui

namespace telvar::tests {
namespace {

using ui::Point;
using ui::ScrollView;
using ui::viewOf;

constexpr ui::Size bars{16, 17};

TEST(ScrollViews, WhatFitsHasNoBars) {
    EXPECT_EQ(viewOf({300, 200}, {300, 200}, bars), (ScrollView{.size = {300, 200}}));
}

TEST(ScrollViews, WhatIsTooHighGetsAVerticalBarBesideIt) {
    EXPECT_EQ(viewOf({300, 500}, {400, 200}, bars), (ScrollView{.size = {316, 200}, .vertical = true}));
}

TEST(ScrollViews, WhatIsTooWideGetsAHorizontalBarBelowIt) {
    EXPECT_EQ(viewOf({500, 100}, {400, 200}, bars), (ScrollView{.size = {400, 117}, .horizontal = true}));
}

TEST(ScrollViews, ABarMayMakeTheOtherOneNecessary) {
    const ScrollView both{.size = {400, 200}, .vertical = true, .horizontal = true};
    EXPECT_EQ(viewOf({390, 500}, {400, 200}, bars), both);
    EXPECT_EQ(viewOf({500, 190}, {400, 200}, bars), both);
    EXPECT_EQ(viewOf({500, 500}, {400, 200}, bars), both);
    EXPECT_EQ(viewOf({384, 500}, {400, 200}, bars), (ScrollView{.size = {400, 200}, .vertical = true}));
}

class ScrollAreas : public testing::Test {
protected:
    ScrollAreas() { area.setSizes({1000, 800}, {300, 200}); }
    ui::ScrollArea area;
};

TEST_F(ScrollAreas, ThePositionIsHeldToTheContent) {
    area.moveTo({100, 50});
    EXPECT_EQ(area.position(), (Point{100, 50}));
    area.moveTo({5000, 5000});
    EXPECT_EQ(area.position(), (Point{700, 600}));
    area.moveTo({-1, -1});
    EXPECT_EQ(area.position(), (Point{0, 0}));
}

TEST_F(ScrollAreas, LessContentMovesThePositionBack) {
    area.moveTo({700, 600});
    area.setSizes({400, 800}, {300, 200});
    EXPECT_EQ(area.position(), (Point{100, 600}));
    area.setSizes({200, 100}, {300, 200});
    EXPECT_EQ(area.position(), (Point{0, 0}));
}

TEST_F(ScrollAreas, WhatIsSeenAlreadyDoesNotMove) {
    area.moveTo({100, 100});
    area.reveal({150, 150, 200, 180}, 20);
    EXPECT_EQ(area.position(), (Point{100, 100}));
}

TEST_F(ScrollAreas, APartIsRevealedByTheSmallestMove) {
    area.reveal({350, 300, 400, 320}, 10);
    EXPECT_EQ(area.position(), (Point{110, 130}));
    area.reveal({50, 40, 100, 60}, 10);
    EXPECT_EQ(area.position(), (Point{40, 30}));
}

TEST_F(ScrollAreas, APartAtTheEdgeHasNothingAroundIt) {
    area.reveal({950, 780, 1000, 800}, 10);
    EXPECT_EQ(area.position(), (Point{700, 600}));
    area.reveal({0, 0, 50, 20}, 10);
    EXPECT_EQ(area.position(), (Point{0, 0}));
}

TEST_F(ScrollAreas, WhatIsAroundAPartNeverHidesThePart) {
    area.reveal({400, 300, 690, 490}, 50);
    EXPECT_EQ(area.position(), (Point{395, 295}));
}

TEST_F(ScrollAreas, OfALargePartTheBeginningIsSeen) {
    area.reveal({200, 100, 900, 700}, 10);
    EXPECT_EQ(area.position(), (Point{200, 100}));
    area.moveTo({700, 600});
    area.reveal({200, 100, 900, 700}, 10);
    EXPECT_EQ(area.position(), (Point{200, 100}));
}

}  // namespace
}  // namespace telvar::tests
