#include <gtest/gtest.h>

#include "recording_peers.h"
#include "ui/grid_input.h"

namespace telvar::tests {
namespace {

namespace key = ui::key;
namespace shift = ui::shift;
using ui::Cell;
using ui::CellRange;
using ui::MouseButton;

struct Selection {
    Cell current;
    Cell end;
    bool operator==(const Selection&) const = default;
};

void PrintTo(const Selection& selection, std::ostream* stream) {
    PrintTo(selection.current, stream);
    *stream << " to ";
    PrintTo(selection.end, stream);
}

// 99 channels and 12 columns of 40 pixels, of which 4 and 9 to 12 are hidden; ten rows of 20 pixels fit.
struct InputWorld : testing::Test {
    InputWorld() {
        grid.setColumnWidth(0, 300);
        for (int column = 1; column < grid.columns(); ++column) {
            grid.setColumnWidth(column, column == 4 || column >= 9 ? 0 : 600);
        }
        grid.KeyDown.connect([this](ui::KeyEvent& event) {
            log.push_back("down " + std::to_string(event.code));
            if (event.code == swallowed) {
                event.code = 0;
            }
        });
        grid.KeyPress.connect(
            [this](ui::KeyPressEvent& event) { log.push_back("press " + std::to_string(event.code)); });
        grid.MouseDown.connect([this](const ui::MouseEvent& event) {
            log.push_back("mouse " + std::to_string(static_cast<int>(event.button)));
        });
        grid.Click.connect([this] { log.push_back("click"); });
        grid.DblClick.connect([this](const ui::DoubleClick& click) {
            log.push_back("double " + std::to_string(click.at.row));
            twiceClicked = click;
        });
    }
    [[nodiscard]] Selection selection() const {
        return {{grid.row(), grid.column()}, {grid.rowSel(), grid.columnSel()}};
    }
    bool press(int code, unsigned shiftState = shift::none) { return input.keyDown({code, shiftState}, layout); }
    // A point inside a cell; 1,1 when the first row and column are shown.
    [[nodiscard]] static ui::Point in(int shownRow, int shownColumn) {
        return {shownColumn == 0 ? 5 : 20 + 40 * (shownColumn - 1) + 5,
                shownRow == 0 ? 5 : 32 + 20 * (shownRow - 1) + 5};
    }
    void mouseDown(ui::Point at, unsigned shiftState = shift::none, MouseButton button = MouseButton::Left) {
        input.mouseDown({button, shiftState, at}, layout);
    }
    void mouseUp(ui::Point at) { input.mouseUp({MouseButton::Left, shift::none, at}, layout); }
    void click(ui::Point at, unsigned shiftState = shift::none) {
        mouseDown(at, shiftState);
        mouseUp(at);
    }
    void doubleClick(ui::Point at) {
        click(at);
        input.doubleClick({MouseButton::Left, shift::none, at}, layout);
        mouseUp(at);
    }

    ui::Grid grid{"grid", 100, 13};
    ui::GridLayout layout{grid, {400, 232}, {.dpi = 96, .rowHeight = 20, .headerHeight = 32}};
    ui::GridInput input{grid};
    std::vector<std::string> log;
    ui::DoubleClick twiceClicked;
    int swallowed = -1;
};

using Log = std::vector<std::string>;

// -- keys ------------------------------------------------------------------------------------------------------------

struct Step {
    const char* name;
    Selection from;
    int code;
    unsigned shiftState;
    Selection to;
    int top = 1;  // the first row shown afterwards
};
class Keys : public InputWorld, public testing::WithParamInterface<Step> {};

TEST_P(Keys, Move) {
    const auto& step = GetParam();
    grid.select(step.from.current, step.from.end);
    EXPECT_TRUE(press(step.code, step.shiftState));
    EXPECT_EQ(selection(), step.to);
    EXPECT_EQ(grid.topRow(), step.top);
}

constexpr Selection at(int row, int column) { return {{row, column}, {row, column}}; }

INSTANTIATE_TEST_SUITE_P(
    All, Keys,
    testing::Values(Step{"Right", at(2, 2), key::right, shift::none, at(2, 3)},
                    Step{"RightSkipsHidden", at(2, 3), key::right, shift::none, at(2, 5)},
                    Step{"RightStopsAtTheLastShown", at(2, 8), key::right, shift::none, at(2, 8)},
                    Step{"LeftSkipsHidden", at(2, 5), key::left, shift::none, at(2, 3)},
                    Step{"LeftStopsAtTheFirst", at(2, 1), key::left, shift::none, at(2, 1)},
                    Step{"LeftFromTheLabel", at(2, 0), key::left, shift::none, at(2, 1)},
                    Step{"Up", at(5, 2), key::up, shift::none, at(4, 2)},
                    Step{"UpStopsAtTheFirst", at(1, 2), key::up, shift::none, at(1, 2)},
                    Step{"UpFromTheHeader", at(0, 2), key::up, shift::none, at(1, 2)},
                    Step{"Down", at(5, 2), key::down, shift::none, at(6, 2)},
                    Step{"DownScrolls", at(10, 2), key::down, shift::none, at(11, 2), 2},
                    Step{"DownStopsAtTheLast", at(99, 2), key::down, shift::none, at(99, 2), 90},
                    Step{"PageDown", at(5, 2), key::pageDown, shift::none, at(15, 2), 6},
                    Step{"PageDownStops", at(95, 2), key::pageDown, shift::none, at(99, 2), 90},
                    Step{"PageUp", at(15, 2), key::pageUp, shift::none, at(5, 2)},
                    Step{"PageUpStops", at(5, 2), key::pageUp, shift::none, at(1, 2)},
                    Step{"Home", at(5, 6), key::home, shift::none, at(5, 1)},
                    Step{"End", at(5, 2), key::end, shift::none, at(5, 8)},
                    Step{"ControlHome", at(5, 6), key::home, shift::control, at(1, 1)},
                    Step{"ControlEnd", at(5, 2), key::end, shift::control, at(99, 8), 90},
                    Step{"ControlUp", at(50, 2), key::up, shift::control, at(1, 2)},
                    Step{"ControlDown", at(5, 2), key::down, shift::control, at(99, 2), 90},
                    Step{"ControlLeft", at(5, 6), key::left, shift::control, at(5, 1)},
                    Step{"ControlRight", at(5, 2), key::right, shift::control, at(5, 8)},
                    Step{"ShiftDown", at(5, 2), key::down, shift::shift, {{5, 2}, {6, 2}}},
                    Step{"ShiftDownAgain", {{5, 2}, {6, 2}}, key::down, shift::shift, {{5, 2}, {7, 2}}},
                    Step{"ShiftUpBeyondTheStart", at(5, 2), key::up, shift::shift, {{5, 2}, {4, 2}}},
                    Step{"ShiftRightSkipsHidden", at(5, 3), key::right, shift::shift, {{5, 3}, {5, 5}}},
                    Step{"ShiftEnd", at(5, 3), key::end, shift::shift, {{5, 3}, {5, 8}}},
                    Step{"ShiftControlEnd", at(5, 3), key::end, shift::shift | shift::control, {{5, 3}, {99, 8}}, 90},
                    Step{"ShiftControlHome", at(5, 3), key::home, shift::shift | shift::control, {{5, 3}, {1, 1}}},
                    Step{"ShiftPageDown", at(5, 3), key::pageDown, shift::shift, {{5, 3}, {15, 3}}, 6},
                    Step{"ShiftDownKeepsAWholeRow", {{5, 1}, {5, 12}}, key::down, shift::shift, {{5, 1}, {6, 12}}},
                    Step{"ShiftLeftFromAHiddenEnd", {{5, 1}, {5, 12}}, key::left, shift::shift, {{5, 1}, {5, 7}}},
                    Step{"WithoutShiftTheSelectionCollapses", {{5, 2}, {9, 3}}, key::down, shift::none, at(6, 2)}),
    [](const auto& step) { return std::string(step.param.name); });

TEST_F(InputWorld, HorizontalKeysScrollColumnsIntoView) {
    const ui::GridLayout narrow(grid, {140, 232}, layout.metrics());  // three columns
    grid.setCurrent({1, 3});
    input.keyDown({key::right, shift::none}, narrow);
    input.keyDown({key::right, shift::none}, narrow);
    EXPECT_EQ(selection(), at(1, 6));
    EXPECT_EQ(grid.leftColumn(), 3);
    input.keyDown({key::home, shift::none}, narrow);
    EXPECT_EQ(grid.leftColumn(), 1);
}

struct Taken {
    const char* name;
    int code;
    unsigned shiftState;
    bool taken;
};
class TakesKey : public InputWorld, public testing::WithParamInterface<Taken> {};

TEST_P(TakesKey, AsTheTableSays) {
    const auto& [name, code, shiftState, taken] = GetParam();
    grid.setCurrent({20, 3});
    EXPECT_EQ(ui::GridInput::takesKey({code, shiftState}), taken);
    EXPECT_EQ(press(code, shiftState), taken);
    // Its own key-down rule runs first, for every key.
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.front(), "down " + std::to_string(code));
}

INSTANTIATE_TEST_SUITE_P(
    All, TakesKey,
    testing::Values(
        Taken{"Tab", key::tab, shift::none, false}, Taken{"ShiftTab", key::tab, shift::shift, false},
        Taken{"Escape", key::escape, shift::none, false}, Taken{"Enter", key::enter, shift::none, false},
        Taken{"F1", 112, shift::none, false}, Taken{"F12", 123, shift::none, false},
        Taken{"Shift", key::shift, shift::shift, false}, Taken{"Control", key::control, shift::control, false},
        Taken{"Alt", key::alt, shift::alt, false}, Taken{"CapsLock", key::capsLock, shift::none, false},
        Taken{"AltLeft", key::left, shift::alt, false}, Taken{"AltC", key::c, shift::alt, false},
        Taken{"AltGrQ", 81, shift::control | shift::alt, false}, Taken{"ControlC", key::c, shift::control, true},
        Taken{"ControlV", key::v, shift::control, true}, Taken{"ControlZ", 90, shift::control, false},
        Taken{"ControlA", 65, shift::control, false}, Taken{"ControlDelete", key::deleteKey, shift::control, false},
        Taken{"Backspace", key::backspace, shift::none, true}, Taken{"Delete", key::deleteKey, shift::none, true},
        Taken{"Insert", 45, shift::none, false}, Taken{"Space", key::space, shift::none, true},
        Taken{"LetterA", 65, shift::none, true}, Taken{"ShiftA", 65, shift::shift, true},
        Taken{"Digit", 53, shift::none, true}, Taken{"Pad", 101, shift::none, true},
        Taken{"Point", 190, shift::none, true}, Taken{"WindowsKey", 91, shift::none, false},
        Taken{"ContextMenu", 93, shift::none, false}, Taken{"InputMethod", 229, shift::none, false},
        Taken{"Left", key::left, shift::none, true}, Taken{"PageDown", key::pageDown, shift::none, true}),
    [](const auto& taken) { return std::string(taken.param.name); });

TEST_F(InputWorld, DeleteRaisesKeyDownAndThenKeyPressWithTheSameCode) {
    press(key::deleteKey);
    EXPECT_EQ(log, (Log{"down 46", "press 46"}));
}

TEST_F(InputWorld, BackspaceRaisesItsKeyPressAsACharacter) {
    press(key::backspace);
    EXPECT_EQ(log, (Log{"down 8"}));
    input.keyPress(8);
    EXPECT_EQ(log, (Log{"down 8", "press 8"}));
}

TEST_F(InputWorld, ASwallowedKeyDoesNothingMore) {
    grid.setCurrent({5, 2});
    swallowed = key::down;
    EXPECT_TRUE(press(key::down));
    EXPECT_EQ(selection(), at(5, 2));
    swallowed = key::deleteKey;
    press(key::deleteKey);
    EXPECT_EQ(log, (Log{"down 40", "down 46"}));
}

// -- mouse -----------------------------------------------------------------------------------------------------------

TEST_F(InputWorld, AClickMakesTheCellCurrent) {
    click(in(3, 2));
    EXPECT_EQ(selection(), at(3, 2));
    EXPECT_EQ(log, (Log{"mouse 1", "click"}));
}

TEST_F(InputWorld, AClickBehindTheHiddenColumnFindsTheShownOne) {
    click(in(3, 4));
    EXPECT_EQ(selection(), at(3, 5));
}

TEST_F(InputWorld, AClickOnTheRowLabelSelectsTheRowWithItsHiddenColumns) {
    click(in(3, 0));
    EXPECT_EQ(selection(), (Selection{{3, 1}, {3, 12}}));
}

TEST_F(InputWorld, AClickOnAHeaderSelectsTheColumn) {
    click(in(0, 2));
    EXPECT_EQ(selection(), (Selection{{1, 2}, {99, 2}}));
    EXPECT_EQ(grid.topRow(), 1);
}

TEST_F(InputWorld, AClickInTheCornerSelectsEverything) {
    click(in(0, 0));
    EXPECT_EQ(selection(), (Selection{{1, 1}, {99, 12}}));
}

TEST_F(InputWorld, AClickBesideTheCellsChangesNothing) {
    grid.setCurrent({5, 5});
    click({395, 100});
    EXPECT_EQ(selection(), at(5, 5));
    EXPECT_EQ(log, (Log{"mouse 1"}));
}

TEST_F(InputWorld, ShiftExtendsFromTheCurrentCell) {
    click(in(3, 2));
    click(in(6, 3), shift::shift);
    EXPECT_EQ(selection(), (Selection{{3, 2}, {6, 3}}));
    click(in(2, 1), shift::shift);
    EXPECT_EQ(selection(), (Selection{{3, 2}, {2, 1}}));
}

TEST_F(InputWorld, ShiftOnALabelExtendsByRowsAndOnAHeaderByColumns) {
    click(in(3, 2));
    click(in(6, 0), shift::shift);
    EXPECT_EQ(selection(), (Selection{{3, 1}, {6, 12}}));
    click(in(3, 2));
    click(in(0, 3), shift::shift);
    EXPECT_EQ(selection(), (Selection{{1, 2}, {99, 3}}));
}

TEST_F(InputWorld, DraggingExtends) {
    mouseDown(in(3, 2));
    EXPECT_TRUE(input.dragging());
    input.mouseMove(in(5, 3), layout);
    EXPECT_EQ(selection(), (Selection{{3, 2}, {5, 3}}));
    input.mouseMove(in(2, 1), layout);
    EXPECT_EQ(selection(), (Selection{{3, 2}, {2, 1}}));
    mouseUp(in(2, 1));
    EXPECT_FALSE(input.dragging());
    input.mouseMove(in(8, 3), layout);
    EXPECT_EQ(selection(), (Selection{{3, 2}, {2, 1}}));
}

TEST_F(InputWorld, DraggingLabelsSelectsRowsAndDraggingHeadersColumns) {
    mouseDown(in(3, 0));
    input.mouseMove(in(5, 3), layout);
    mouseUp(in(5, 3));
    EXPECT_EQ(selection(), (Selection{{3, 1}, {5, 12}}));
    mouseDown(in(0, 1));
    input.mouseMove(in(5, 3), layout);
    mouseUp(in(5, 3));
    EXPECT_EQ(selection(), (Selection{{1, 1}, {99, 3}}));
    EXPECT_EQ(grid.topRow(), 1);
}

TEST_F(InputWorld, DraggingBeyondTheViewScrollsRowByRow) {
    mouseDown(in(9, 2));
    input.mouseMove({65, 500}, layout);
    EXPECT_EQ(selection(), (Selection{{9, 2}, {11, 2}}));
    EXPECT_EQ(grid.topRow(), 2);
    input.mouseMove({65, 500}, layout);
    EXPECT_EQ(grid.topRow(), 3);
    input.mouseMove({65, -50}, layout);
    input.mouseMove({65, -50}, layout);
    EXPECT_EQ(grid.topRow(), 1);
    EXPECT_EQ(selection(), (Selection{{9, 2}, {1, 2}}));
}

TEST_F(InputWorld, DraggingOverAPartlyVisibleRowDoesNotScroll) {
    const ui::GridLayout cut(grid, {400, 240}, layout.metrics());
    input.mouseDown({MouseButton::Left, shift::none, in(9, 2)}, cut);
    input.mouseMove(in(11, 2), cut);
    EXPECT_EQ(selection(), (Selection{{9, 2}, {11, 2}}));
    EXPECT_EQ(grid.topRow(), 1);
}

TEST_F(InputWorld, APartlyVisibleRowIsScrolledToOnReleaseOnly) {
    const ui::GridLayout cut(grid, {400, 240}, layout.metrics());
    input.mouseDown({MouseButton::Left, shift::none, in(11, 2)}, cut);
    EXPECT_EQ(grid.topRow(), 1);
    input.mouseUp({MouseButton::Left, shift::none, in(11, 2)}, cut);
    EXPECT_EQ(grid.topRow(), 2);
}

TEST_F(InputWorld, APressInsideSeveralRowsCollapsesOnRelease) {
    grid.select({3, 1}, {8, 5});
    mouseDown(in(5, 2));
    EXPECT_EQ(selection(), (Selection{{3, 1}, {8, 5}}));
    mouseUp(in(5, 2));
    EXPECT_EQ(selection(), at(5, 2));
}

TEST_F(InputWorld, ADragFromInsideSeveralRowsBeginsANewSelection) {
    grid.select({3, 1}, {8, 5});
    mouseDown(in(5, 2));
    input.mouseMove(in(5, 2), layout);
    EXPECT_EQ(selection(), (Selection{{3, 1}, {8, 5}}));
    input.mouseMove(in(6, 3), layout);
    EXPECT_EQ(selection(), (Selection{{5, 2}, {6, 3}}));
}

TEST_F(InputWorld, APressInsideASelectionOfOneRowMovesAtOnce) {
    grid.select({3, 1}, {3, 5});
    mouseDown(in(3, 2));
    EXPECT_EQ(selection(), at(3, 2));
}

TEST_F(InputWorld, ADoubleClickInsideSeveralRowsIsOnTheClickedCellAndTellsTheRows) {
    grid.select({3, 1}, {8, 5});
    doubleClick(in(5, 2));
    EXPECT_EQ(selection(), at(5, 2));
    EXPECT_EQ(log, (Log{"mouse 1", "click", "double 5"}));
    EXPECT_EQ(twiceClicked.at, (Cell{5, 2}));
    EXPECT_EQ(twiceClicked.selected, (CellRange{3, 1, 8, 5}));
}

TEST_F(InputWorld, ADoubleClickInAnUnselectedColumnOfSelectedRowsTellsTheRows) {
    grid.select({3, 1}, {8, 2});
    doubleClick(in(5, 3));
    EXPECT_EQ(selection(), at(5, 3));
    EXPECT_EQ(twiceClicked.selected, (CellRange{3, 1, 8, 2}));
}

TEST_F(InputWorld, ADoubleClickElsewhereIsOnTheClickedRow) {
    grid.select({3, 1}, {8, 5});
    doubleClick(in(9, 2));
    EXPECT_EQ(selection(), at(9, 2));
    EXPECT_EQ(log, (Log{"mouse 1", "click", "double 9"}));
    EXPECT_EQ(twiceClicked.selected, (CellRange{9, 2, 9, 2}));
}

TEST_F(InputWorld, ASecondDoubleClickTellsTheFormerRowsNoMore) {
    grid.select({3, 1}, {8, 5});
    doubleClick(in(5, 2));
    doubleClick(in(5, 2));
    EXPECT_EQ(twiceClicked.selected, (CellRange{5, 2, 5, 2}));
}

TEST_F(InputWorld, ADoubleClickOnARowsNumberSelectsTheRow) {
    grid.select({3, 1}, {8, 5});
    doubleClick(in(5, 0));
    EXPECT_EQ(selection(), (Selection{{5, 1}, {5, 12}}));
    EXPECT_EQ(twiceClicked.at, (Cell{5, 0}));
    EXPECT_EQ(twiceClicked.selected, (CellRange{3, 1, 8, 5}));
}

TEST_F(InputWorld, ADoubleClickOnAColumnsHeaderSaysSo) {
    grid.select({3, 1}, {8, 5});
    doubleClick(in(0, 2));
    EXPECT_EQ(twiceClicked.at, (Cell{0, 2}));
    EXPECT_EQ(twiceClicked.selected, (CellRange{1, 2, 99, 2}));
}

TEST_F(InputWorld, ADoubleClickWithShiftIsOnTheClickedRow) {
    grid.select({3, 2}, {3, 2});
    click(in(6, 2), shift::shift);
    input.doubleClick({MouseButton::Left, shift::shift, in(6, 2)}, layout);
    EXPECT_EQ(selection(), at(6, 2));
    EXPECT_EQ(twiceClicked.selected, (CellRange{6, 2, 6, 2}));
}

TEST_F(InputWorld, ADoubleClickWhoseFirstReleaseWasLostIsOnTheClickedCell) {
    grid.select({3, 1}, {8, 5});
    mouseDown(in(5, 2));
    input.doubleClick({MouseButton::Left, shift::none, in(5, 2)}, layout);
    EXPECT_EQ(selection(), at(5, 2));
    EXPECT_EQ(twiceClicked.selected, (CellRange{3, 1, 8, 5}));
}

TEST_F(InputWorld, ADoubleClickOnAPartlyVisibleRowIsOnThatRow) {
    const ui::GridLayout cut(grid, {400, 240}, layout.metrics());
    input.mouseDown({MouseButton::Left, shift::none, in(11, 2)}, cut);
    input.mouseUp({MouseButton::Left, shift::none, in(11, 2)}, cut);
    input.doubleClick({MouseButton::Left, shift::none, in(11, 2)}, cut);
    EXPECT_EQ(log.back(), "double 11");
}

TEST_F(InputWorld, TheRightButtonKeepsASelectionThatItHits) {
    grid.select({3, 1}, {8, 5});
    mouseDown(in(5, 2), shift::none, MouseButton::Right);
    EXPECT_EQ(selection(), (Selection{{3, 1}, {8, 5}}));
    EXPECT_FALSE(input.dragging());
    EXPECT_EQ(log, (Log{"mouse 2"}));
}

TEST_F(InputWorld, TheRightButtonMovesToACellOutside) {
    grid.select({3, 1}, {8, 5});
    mouseDown(in(9, 2), shift::none, MouseButton::Right);
    EXPECT_EQ(selection(), at(9, 2));
}

TEST_F(InputWorld, TheRightButtonOnALabelTakesTheRow) {
    grid.select({3, 1}, {8, 5});
    mouseDown(in(5, 0), shift::none, MouseButton::Right);
    EXPECT_EQ(selection(), (Selection{{5, 1}, {5, 12}}));
    grid.select({3, 1}, {8, 12});
    mouseDown(in(5, 0), shift::none, MouseButton::Right);
    EXPECT_EQ(selection(), (Selection{{3, 1}, {8, 12}}));
}

TEST_F(InputWorld, TheSelectionIsMadeBeforeMouseDownIsRaised) {
    Selection seen{};
    grid.MouseDown.connect([&](const ui::MouseEvent&) { seen = selection(); });
    mouseDown(in(9, 2), shift::none, MouseButton::Right);
    EXPECT_EQ(seen, at(9, 2));
}

TEST_F(InputWorld, ALostMouseEndsTheDragWithoutAClick) {
    mouseDown(in(3, 2));
    input.cancelDrag();
    EXPECT_FALSE(input.dragging());
    mouseUp(in(3, 2));
    EXPECT_EQ(log, (Log{"mouse 1"}));
}

TEST_F(InputWorld, TheWheelScrollsWithoutMovingTheSelection) {
    input.wheel(-1, 3, layout);
    EXPECT_EQ(grid.topRow(), 4);
    input.wheel(1, 3, layout);
    input.wheel(1, 3, layout);
    EXPECT_EQ(grid.topRow(), 1);
    input.wheel(-100, 3, layout);
    EXPECT_EQ(grid.topRow(), 90);
    EXPECT_EQ(selection(), at(1, 1));
}

}  // namespace
}  // namespace telvar::tests
