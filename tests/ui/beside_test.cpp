// Where a window comes up beside a row.
#include "ui/beside.h"

#include <gtest/gtest.h>

#include <ostream>

namespace telvar::ui {

inline void PrintTo(const Point& point, std::ostream* stream) { *stream << point.x << ',' << point.y; }

}  // namespace telvar::ui

namespace telvar::tests {
namespace {

using ui::Point;
using ui::Rect;
using Place = std::optional<Point>;

constexpr Rect screen{0, 0, 1000, 800};

TEST(BesideARow, OnItsRightWhereThereIsRoom) {
    EXPECT_EQ(ui::besideRow({100, 50, 600, 67}, {400, 300}, screen), Place({600, 50}));
}

TEST(BesideARow, ElseOnItsLeft) { EXPECT_EQ(ui::besideRow({450, 50, 950, 67}, {400, 300}, screen), Place({50, 50})); }

TEST(BesideARow, ElseBelowIt) { EXPECT_EQ(ui::besideRow({100, 50, 900, 67}, {400, 300}, screen), Place({100, 67})); }

TEST(BesideARow, ElseAboveIt) { EXPECT_EQ(ui::besideRow({100, 600, 900, 617}, {400, 300}, screen), Place({100, 300})); }

TEST(BesideARow, NowhereWhereNoSideHasRoom) {
    EXPECT_EQ(ui::besideRow({100, 400, 900, 417}, {400, 500}, screen), std::nullopt);
    EXPECT_EQ(ui::besideRow({100, 50, 600, 67}, {1100, 300}, screen), std::nullopt);
    EXPECT_EQ(ui::besideRow({100, 50, 600, 67}, {400, 900}, screen), std::nullopt);
}

TEST(BesideARow, WhollyOnTheScreen) {
    EXPECT_EQ(ui::besideRow({100, 700, 600, 717}, {400, 300}, screen), Place({600, 500}));
    EXPECT_EQ(ui::besideRow({300, 50, 900, 67}, {800, 300}, screen), Place({200, 67}));
    EXPECT_EQ(ui::besideRow({-200, 50, 900, 67}, {800, 300}, screen), Place({0, 67}));
    EXPECT_EQ(ui::besideRow({100, -40, 600, -23}, {400, 300}, screen), Place({600, 0}));
}

TEST(BesideARow, OnTheScreenThatItIsOn) {
    EXPECT_EQ(ui::besideRow({-900, 50, -400, 67}, {300, 300}, {-1000, 0, 0, 800}), Place({-400, 50}));
    EXPECT_EQ(ui::besideRow({-900, 50, -200, 67}, {300, 300}, {-1000, 0, 0, 800}), Place({-900, 67}));
}

}  // namespace
}  // namespace telvar::tests
