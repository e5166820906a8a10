#include <gtest/gtest.h>

#include "recording_peers.h"
#include "ui/grid_layout.h"

namespace telvar::tests {
namespace {

using ui::Cell;
using ui::GridLayout;
using ui::Rect;

// 100 rows and 10 columns of 600 twips (40 pixels at 96 dpi), of which 4 and 9 are hidden.
struct LayoutWorld : testing::Test {
    LayoutWorld() {
        grid.setColumnWidth(0, 300);
        for (int column = 1; column < grid.columns(); ++column) {
            grid.setColumnWidth(column, column == 4 || column == 9 ? 0 : 600);
        }
    }
    [[nodiscard]] GridLayout layout(int width = 400, int height = 232, int dpi = 96) const {
        return {grid, {width, height}, {.dpi = dpi, .rowHeight = 20 * dpi / 96, .headerHeight = 32 * dpi / 96}};
    }
    ui::Grid grid{"grid", 100, 10};
};

TEST_F(LayoutWorld, CellsFollowHeaderAndLabelColumn) {
    EXPECT_EQ(layout().cellRect({0, 0}), (Rect{0, 0, 20, 32}));
    EXPECT_EQ(layout().cellRect({0, 1}), (Rect{20, 0, 60, 32}));
    EXPECT_EQ(layout().cellRect({1, 0}), (Rect{0, 32, 20, 52}));
    EXPECT_EQ(layout().cellRect({3, 5}), (Rect{140, 72, 180, 92}));
}

TEST_F(LayoutWorld, HiddenAndScrolledOutCellsHaveNoRectangle) {
    EXPECT_TRUE(layout().cellRect({1, 4}).empty());
    grid.setTopRow(5);
    grid.setLeftColumn(2);
    EXPECT_TRUE(layout(200).cellRect({4, 2}).empty());
    EXPECT_TRUE(layout(200).cellRect({5, 1}).empty());
    EXPECT_EQ(layout(200).cellRect({5, 2}), (Rect{20, 32, 60, 52}));
    EXPECT_EQ(layout(200).cellRect({0, 2}), (Rect{20, 0, 60, 32}));
}

struct Scale {
    int dpi;
    Rect cell;
};
class Dpi : public LayoutWorld, public testing::WithParamInterface<Scale> {};

TEST_P(Dpi, TwipsBecomePixels) {
    const auto [dpi, cell] = GetParam();
    EXPECT_EQ(layout(1000, 800, dpi).cellRect({2, 3}), cell);
}

INSTANTIATE_TEST_SUITE_P(All, Dpi,
                         testing::Values(Scale{96, {100, 52, 140, 72}}, Scale{144, {150, 78, 210, 108}},
                                         Scale{192, {200, 104, 280, 144}}),
                         [](const auto& scale) { return std::to_string(scale.param.dpi); });

TEST_F(LayoutWorld, HitFindsWhatCellRectShows) {
    grid.setTopRow(7);
    grid.setLeftColumn(3);
    for (const int dpi : {96, 144, 192}) {
        const auto shown = layout(220, 232, dpi);
        for (int row = 0; row < grid.rows(); ++row) {
            for (int column = 0; column < grid.columns(); ++column) {
                const Rect visible = shown.cellRect({row, column}).intersected({0, 0, 220, 232});
                if (visible.empty()) {
                    continue;
                }
                EXPECT_EQ(shown.hit({visible.left, visible.top}), (Cell{row, column}));
                EXPECT_EQ(shown.hit({visible.right - 1, visible.bottom - 1}), (Cell{row, column}));
            }
        }
    }
}

TEST_F(LayoutWorld, NothingIsHitOutsideTheCells) {
    EXPECT_EQ(layout().hit({-1, 40}), std::nullopt);
    EXPECT_EQ(layout().hit({400, 40}), std::nullopt);
    EXPECT_EQ(layout().hit({390, 40}), std::nullopt);  // beyond the last column
    EXPECT_EQ(layout().hit({30, 232}), std::nullopt);
    EXPECT_EQ(layout(400, 4000).hit({30, 32 + 99 * 20}), std::nullopt);
}

TEST_F(LayoutWorld, NearestStaysInsideWhileThePointDoes) {
    grid.setTopRow(7);
    EXPECT_EQ(layout().nearest({30, 32}), (Cell{7, 1}));
    EXPECT_EQ(layout().nearest({390, 231}), (Cell{16, 8}));
}

TEST_F(LayoutWorld, NearestAnswersTheNextScrolledOutCellBeyondTheView) {
    grid.setTopRow(7);
    grid.setLeftColumn(5);
    const auto shown = layout(120);  // columns 5 and 6 and a half
    EXPECT_EQ(shown.nearest({30, -100}).row, 6);
    EXPECT_EQ(shown.nearest({30, 10}).row, 6);
    EXPECT_EQ(shown.nearest({30, 900}).row, 17);
    EXPECT_EQ(shown.nearest({-5, 40}).column, 3);
    EXPECT_EQ(shown.nearest({900, 40}).column, 7);
    grid.setTopRow(1);
    EXPECT_EQ(layout().nearest({30, -100}), (Cell{1, 1}));
    grid.setTopRow(90);
    EXPECT_EQ(layout().nearest({30, 900}).row, 99);
}

TEST_F(LayoutWorld, ScrollingEndsAtTheLastPage) {
    EXPECT_EQ(layout().fullRows(), 10);
    EXPECT_EQ(layout().lastTopRow(), 90);
    grid.setTopRow(99);
    EXPECT_EQ(layout().topRow(), 90);
    EXPECT_EQ(layout().lastVisibleRow(), 99);
    grid.setLeftColumn(9);
    EXPECT_EQ(layout(120).lastLeftColumn(), 7);
    EXPECT_EQ(layout(120).leftColumn(), 7);
    EXPECT_EQ(layout(1000).leftColumn(), 1);
}

TEST_F(LayoutWorld, AViewWithoutRoomStillShowsOneRowAndColumn) {
    const auto tiny = layout(10, 10);
    EXPECT_EQ(tiny.fullRows(), 1);
    EXPECT_EQ(tiny.lastTopRow(), 99);
    EXPECT_EQ(tiny.lastLeftColumn(), 8);
    EXPECT_EQ(tiny.lastVisibleRow(), 1);
    EXPECT_EQ(layout(0, 0).hit({0, 0}), std::nullopt);
}

TEST_F(LayoutWorld, PartlyVisibleRowsAndColumnsAreVisibleButNotFull) {
    const auto shown = layout(150, 240);
    EXPECT_EQ(shown.fullRows(), 10);
    EXPECT_EQ(shown.lastVisibleRow(), 11);
    EXPECT_EQ(shown.lastFullColumn(), 3);
    EXPECT_EQ(shown.lastVisibleColumn(), 5);
}

TEST_F(LayoutWorld, TheLeastScrollingShowsARow) {
    grid.setTopRow(20);
    EXPECT_EQ(layout().topRowToShow(20), 20);
    EXPECT_EQ(layout().topRowToShow(29), 20);
    EXPECT_EQ(layout().topRowToShow(30), 21);
    EXPECT_EQ(layout().topRowToShow(19), 19);
    EXPECT_EQ(layout().topRowToShow(0), 20);
    EXPECT_EQ(layout().topRowToShow(99), 90);
}

TEST_F(LayoutWorld, TheLeastScrollingShowsAColumn) {
    grid.setLeftColumn(3);
    const auto shown = layout(140);  // three columns
    EXPECT_EQ(shown.leftColumnToShow(3), 3);
    EXPECT_EQ(shown.leftColumnToShow(6), 3);
    EXPECT_EQ(shown.leftColumnToShow(7), 5);
    EXPECT_EQ(shown.leftColumnToShow(8), 6);
    EXPECT_EQ(shown.leftColumnToShow(1), 1);
    EXPECT_EQ(shown.leftColumnToShow(4), 3);
    EXPECT_EQ(layout(30).leftColumnToShow(6), 6);
}

TEST_F(LayoutWorld, HiddenColumnsAreSteppedOver) {
    const auto shown = layout();
    EXPECT_EQ(shown.columnAfter(3), 5);
    EXPECT_EQ(shown.columnBefore(5), 3);
    EXPECT_EQ(shown.columnAfter(8), 8);
    EXPECT_EQ(shown.columnBefore(1), 1);
    EXPECT_EQ(shown.firstShownColumn(), 1);
    EXPECT_EQ(shown.lastShownColumn(), 8);
    grid.setLeftColumn(4);
    EXPECT_EQ(layout(120).leftColumn(), 5);
}

TEST_F(LayoutWorld, ABlocksRectangleIsItsVisiblePart) {
    EXPECT_EQ(layout().rangeRect({2, 1, 3, 2}), (Rect{20, 52, 100, 92}));
    EXPECT_EQ(layout().rangeRect({0, 0, 99, 9}), (Rect{0, 0, 300, 232}));
    grid.setTopRow(50);
    EXPECT_TRUE(layout().rangeRect({2, 1, 3, 2}).empty());
    EXPECT_EQ(layout().rangeRect({2, 1, 51, 2}), (Rect{20, 32, 100, 72}));
    EXPECT_EQ(layout().rangeRect({0, 1, 3, 2}), (Rect{20, 0, 100, 32}));
    EXPECT_TRUE(layout().rangeRect({80, 1, 81, 2}).empty());
}

TEST_F(LayoutWorld, TheHighlightFramesTheWholeVisibleRow) {
    grid.setCurrent({3, 2});
    EXPECT_EQ(layout().highlightRect(), (Rect{0, 72, 300, 92}));
    EXPECT_EQ(layout(100).highlightRect(), (Rect{0, 72, 100, 92}));
    grid.setTopRow(4);
    EXPECT_TRUE(layout().highlightRect().empty());
    grid.setCurrent({0, 0});
    EXPECT_TRUE(layout().highlightRect().empty());
}

}  // namespace
}  // namespace telvar::tests
