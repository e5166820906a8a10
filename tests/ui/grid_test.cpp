#include <gtest/gtest.h>

#include "base/failure.h"
#include "recording_peers.h"
#include "ui/grid.h"

namespace telvar::tests {
namespace {

using ui::Cell;
using ui::CellRange;
using Ranges = std::vector<CellRange>;

struct GridContents : testing::Test {
    GridContents() {
        grid.attach(peer);
        peer.forget();
        grid.SelectionChanged.connect([this] { ++selections; });
    }
    ~GridContents() override { grid.detach(); }
    ui::Grid grid{"grid", 256, 27};
    RecordingGridPeer peer;
    int selections = 0;
};

TEST_F(GridContents, StartsEmptyWithTheFirstCellCurrent) {
    EXPECT_EQ(grid.text(255, 26), "");
    EXPECT_EQ(grid.cellBackColor(1, 1), 0U);
    EXPECT_EQ(grid.columnWidth(5), ui::defaultColumnWidth);
    EXPECT_EQ(grid.selection(), (CellRange{1, 1, 1, 1}));
    EXPECT_EQ(grid.topRow(), 1);
    EXPECT_TRUE(grid.redraw());
}

TEST_F(GridContents, ATextIsReportedOnceAndAnEqualOneNever) {
    grid.setText(3, 4, "X");
    grid.setText(3, 4, "X");
    EXPECT_EQ(grid.text(3, 4), "X");
    EXPECT_EQ(peer.cells, (Ranges{{3, 4, 3, 4}}));
}

TEST_F(GridContents, ColoursAndAlignmentsAreComparedToo) {
    grid.setCellBackColor(1, 1, ui::green);
    grid.setCellBackColor(1, 1, ui::green);
    grid.setCellAlignment(2, 2, ui::Alignment::Centre);
    grid.setCellAlignment(2, 2, ui::Alignment::Centre);
    EXPECT_EQ(peer.cells, (Ranges{{1, 1, 1, 1}, {2, 2, 2, 2}}));
}

TEST_F(GridContents, AColumnsAlignmentLeavesItsHeaderAlone) {
    grid.setColumnAlignment(9, ui::Alignment::Centre);
    EXPECT_EQ(grid.cellAlignment(1, 9), ui::Alignment::Centre);
    EXPECT_EQ(grid.cellAlignment(255, 9), ui::Alignment::Centre);
    EXPECT_EQ(grid.cellAlignment(0, 9), ui::Alignment::LeftCentre);
}

TEST_F(GridContents, MakingARowOrColumnCurrentCollapsesTheSelection) {
    grid.select({5, 1}, {10, 26});
    EXPECT_EQ(grid.selection(), (CellRange{5, 1, 10, 26}));
    grid.setRow(7);
    EXPECT_EQ(grid.selection(), (CellRange{7, 1, 7, 1}));
    grid.select({5, 2}, {10, 4});
    grid.setColumn(3);
    EXPECT_EQ(grid.selection(), (CellRange{5, 3, 5, 3}));
}

TEST_F(GridContents, TheSelectionsEndCanLieBeforeTheCurrentCell) {
    grid.setCurrent({10, 5});
    grid.setRowSel(3);
    grid.setColumnSel(2);
    EXPECT_EQ(grid.row(), 10);
    EXPECT_EQ(grid.rowSel(), 3);
    EXPECT_EQ(grid.selection(), (CellRange{3, 2, 10, 5}));
}

TEST_F(GridContents, TheFixedRowAndColumnCanBeMadeCurrent) {
    grid.setCurrent({0, 0});
    EXPECT_EQ(grid.selection(), (CellRange{0, 0, 0, 0}));
}

TEST_F(GridContents, ASelectionThatMovesIsReportedWhereItWasAndWhereItIs) {
    grid.select({2, 1}, {3, 5});
    peer.forget();
    selections = 0;
    grid.setCurrent({100, 1});
    grid.setCurrent({100, 1});
    EXPECT_EQ(peer.cells, (Ranges{{2, 1, 3, 5}, {100, 1, 100, 1}}));
    EXPECT_EQ(selections, 1);
}

TEST_F(GridContents, PlacesOutsideAreSubscriptFailures) {
    EXPECT_THROW(grid.setText(256, 1, ""), base::SubscriptFailure);
    EXPECT_THROW(grid.setText(-1, 1, ""), base::SubscriptFailure);
    EXPECT_THROW(grid.setText(1, 27, ""), base::SubscriptFailure);
    EXPECT_THROW(static_cast<void>(grid.text(1, -1)), base::SubscriptFailure);
    EXPECT_THROW(grid.setColumnWidth(27, 1), base::SubscriptFailure);
    EXPECT_THROW(grid.setRow(256), base::SubscriptFailure);
    EXPECT_THROW(grid.setColumnSel(-1), base::SubscriptFailure);
    EXPECT_THROW(grid.select({1, 1}, {1, 27}), base::SubscriptFailure);
    EXPECT_EQ(grid.selection(), (CellRange{1, 1, 1, 1}));
    EXPECT_TRUE(peer.idle());
}

TEST_F(GridContents, NothingIsReportedWhileRedrawIsOff) {
    grid.setRedraw(false);
    grid.setText(1, 1, "a");
    grid.setColumnWidth(9, 0);
    grid.setTopRow(5);
    grid.setRow(4);
    grid.setHighlightShown(true);
    grid.refresh();
    EXPECT_TRUE(peer.idle());
    EXPECT_EQ(selections, 0);
}

TEST_F(GridContents, ARefreshIsReportedAsOneBlock) {
    grid.setRedraw(false);
    for (int row = 1; row <= 255; ++row) {
        grid.setRow(row);
        for (int column = 1; column <= 26; ++column) {
            grid.setText(row, column, "X");
        }
    }
    grid.setCurrent({1, 1});
    grid.setRedraw(true);
    EXPECT_EQ(peer.cells, (Ranges{{1, 1, 255, 26}}));
    EXPECT_EQ(selections, 0);
}

TEST_F(GridContents, ARefreshThatChangesNothingRepaintsNothing) {
    grid.setText(7, 7, "X");
    peer.forget();
    grid.setRedraw(false);
    grid.setRow(200);
    grid.setText(7, 7, "X");
    grid.setCurrent({1, 1});
    grid.setRedraw(true);
    EXPECT_TRUE(peer.idle());
}

TEST_F(GridContents, TheBlockHoldsOldAndNewSelectionAndSelectionChangedComesOnce) {
    grid.setRedraw(false);
    grid.setRow(3);
    grid.setRow(9);
    grid.setRedraw(true);
    EXPECT_EQ(peer.cells, (Ranges{{1, 1, 9, 1}}));
    EXPECT_EQ(selections, 1);
}

TEST_F(GridContents, WidthsAndScrollingAreReportedAsLayoutOnceWhileOff) {
    grid.setRedraw(false);
    grid.setColumnWidth(9, 0);
    grid.setColumnWidth(10, 0);
    grid.setTopRow(20);
    grid.setRedraw(true);
    EXPECT_EQ(peer.layouts, 1);
    EXPECT_TRUE(peer.cells.empty());
}

TEST_F(GridContents, SwitchingRedrawOnTwiceReportsNothingMore) {
    grid.setRedraw(false);
    grid.setText(1, 1, "a");
    grid.setRedraw(true);
    peer.forget();
    grid.setRedraw(true);
    EXPECT_TRUE(peer.idle());
}

TEST_F(GridContents, TheFirstRowAndColumnAreHeldToTheGrid) {
    grid.setTopRow(999);
    grid.setLeftColumn(999);
    EXPECT_EQ(grid.topRow(), 255);
    EXPECT_EQ(grid.leftColumn(), 26);
    grid.setTopRow(-4);
    grid.setLeftColumn(0);
    EXPECT_EQ(grid.topRow(), 1);
    EXPECT_EQ(grid.leftColumn(), 1);
}

TEST_F(GridContents, ANegativeWidthHidesTheColumn) {
    grid.setColumnWidth(3, -10);
    EXPECT_EQ(grid.columnWidth(3), 0);
}

TEST_F(GridContents, TheHighlightIsReportedWhenItsPhaseChanges) {
    grid.setHighlightShown(true);
    grid.setHighlightShown(true);
    grid.setHighlightShown(false);
    EXPECT_EQ(peer.highlights, 2);
}

TEST_F(GridContents, NewDisplaySettingsRepaintEverything) {
    grid.setDisplay({.backColor = ui::white, .gridLines = false});
    grid.setDisplay({.backColor = ui::white, .gridLines = false});
    EXPECT_EQ(peer.shown, std::vector{ui::Aspect::Everything});
}

TEST_F(GridContents, APeerCanComeAndGoWhileRedrawIsOff) {
    grid.setRedraw(false);
    grid.setText(1, 1, "a");
    grid.detach();
    grid.setRedraw(true);
    grid.attach(peer);
    EXPECT_EQ(peer.shown, std::vector{ui::Aspect::Everything});
    EXPECT_TRUE(peer.cells.empty());
}

}  // namespace
}  // namespace telvar::tests
