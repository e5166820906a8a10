#include "ui/grid_input.h"

#include <algorithm>
#include <utility>

namespace telvar::ui {

namespace {

[[nodiscard]] bool navigates(int code) noexcept { return code >= key::pageUp && code <= key::down; }

// Virtual key codes of keys that type a character, the numeric pad included.
[[nodiscard]] bool types(int code) noexcept {
    constexpr int digit0 = 48;
    constexpr int letterZ = 90;
    constexpr int pad0 = 96;
    constexpr int padDivide = 111;
    constexpr int firstPunctuation = 186;
    constexpr int lastPunctuation = 226;
    return code == key::space || (code >= digit0 && code <= letterZ) || (code >= pad0 && code <= padDivide) ||
           (code >= firstPunctuation && code <= lastPunctuation);
}

}  // namespace

bool GridInput::takesKey(const KeyEvent& event) noexcept {
    if ((event.shift & shift::alt) != 0) {
        return false;
    }
    if (navigates(event.code)) {
        return true;
    }
    if ((event.shift & shift::control) != 0) {
        return event.code == key::c || event.code == key::v;
    }
    return event.code == key::backspace || event.code == key::deleteKey || types(event.code);
}

bool GridInput::keyDown(KeyEvent event, const GridLayout& layout) {
    const bool taken = takesKey(event);
    grid_.KeyDown(event);
    if (event.code == 0) {
        return true;
    }
    if (taken && navigates(event.code)) {
        navigate(event, layout);
    } else if (taken && event.code == key::deleteKey) {
        keyPress(key::deleteKey);
    }
    return taken;
}

void GridInput::keyPress(int code) {
    KeyPressEvent event{code};
    grid_.KeyPress(event);
}

void GridInput::navigate(const KeyEvent& event, const GridLayout& layout) {
    const bool extend = (event.shift & shift::shift) != 0;
    const Cell current{grid_.row(), grid_.column()};
    const Cell to = target(event, extend ? Cell{grid_.rowSel(), grid_.columnSel()} : current, layout);
    grid_.select(extend ? current : to, to);
    scrollTo(to, layout);
}

Cell GridInput::target(const KeyEvent& event, Cell from, const GridLayout& layout) const {
    const bool far = (event.shift & shift::control) != 0;
    const int lastRow = grid_.rows() - 1;
    const int firstColumn = layout.firstShownColumn();
    const int lastColumn = layout.lastShownColumn();
    Cell to = from;
    switch (event.code) {
    case key::left:
        // From a hidden column the step starts at the shown one before it, else nothing would seem to happen.
        to.column = far ? firstColumn : layout.columnBefore(std::min(from.column, lastColumn));
        break;
    case key::right:
        to.column = far ? lastColumn : layout.columnAfter(from.column);
        break;
    case key::up:
        to.row = far ? 1 : from.row - 1;
        break;
    case key::down:
        to.row = far ? lastRow : from.row + 1;
        break;
    case key::pageUp:
        to.row = from.row - layout.fullRows();
        break;
    case key::pageDown:
        to.row = from.row + layout.fullRows();
        break;
    case key::home:
        to = {far ? 1 : from.row, firstColumn};
        break;
    case key::end:
        to = {far ? lastRow : from.row, lastColumn};
        break;
    default:
        break;
    }
    return {std::clamp(to.row, 1, lastRow), std::max(to.column, firstColumn)};
}

void GridInput::scrollTo(Cell cell, const GridLayout& layout) {
    grid_.setTopRow(layout.topRowToShow(cell.row));
    grid_.setLeftColumn(layout.leftColumnToShow(cell.column));
}

GridInput::Unit GridInput::unitOf(Cell hit) noexcept {
    if (hit.row > 0) {
        return hit.column > 0 ? Unit::Cell : Unit::Row;
    }
    return hit.column > 0 ? Unit::Column : Unit::None;
}

// Whole rows and columns run to the last column and row, hidden ones included: a copy carries them.
GridInput::Selection GridInput::unitAt(Cell hit) const {
    const Cell first{std::max(hit.row, 1), std::max(hit.column, 1)};
    const Cell last{hit.row > 0 ? hit.row : grid_.rows() - 1, hit.column > 0 ? hit.column : grid_.columns() - 1};
    return {first, last};
}

bool GridInput::selected(Cell hit) const {
    const Selection unit = unitAt(hit);
    return grid_.selection().contains(unit.current) && grid_.selection().contains(unit.end);
}

void GridInput::press(Cell hit, bool extend) {
    if (extend) {
        extendTo(hit, unitOf(hit));
        return;
    }
    const Selection unit = unitAt(hit);
    if (hit.row > 0 && grid_.selection().rowCount() > 1 && selected(hit)) {
        collapsing_ = unit;
        return;
    }
    grid_.select(unit.current, unit.end);
}

void GridInput::extendTo(Cell cell, Unit unit) {
    const Cell current{std::max(grid_.row(), 1), std::max(grid_.column(), 1)};
    switch (unit) {
    case Unit::Cell:
        grid_.select(current, cell);
        break;
    case Unit::Row:
        grid_.select({current.row, 1}, {cell.row, grid_.columns() - 1});
        break;
    case Unit::Column:
        grid_.select({1, current.column}, {grid_.rows() - 1, cell.column});
        break;
    case Unit::None:
        break;
    }
}

void GridInput::mouseDown(const MouseEvent& event, const GridLayout& layout) {
    const auto hit = layout.hit(event.at);
    if (event.button == MouseButton::Left) {
        cancelDrag();
        press_.reset();
        if (hit) {
            press_ = DoubleClick{.at = *hit, .selected = grid_.selection()};
            press(*hit, (event.shift & shift::shift) != 0);
            pressed_ = hit;
            drag_ = unitOf(*hit);
        }
    } else if (event.button == MouseButton::Right && hit && !selected(*hit)) {
        const Selection unit = unitAt(*hit);
        grid_.select(unit.current, unit.end);
    }
    grid_.MouseDown(event);
}

void GridInput::mouseMove(Point at, const GridLayout& layout) {
    if (drag_ == Unit::None || !pressed_) {
        return;
    }
    const Cell near = layout.nearest(at);
    if (layout.hit(at) == pressed_ && collapsing_) {
        return;
    }
    collapse();
    extendTo(near, drag_);
    // A cell that is only partly visible is scrolled to when the point leaves the view, not when it enters the cell.
    if (!layout.hit(at) || near.row < layout.topRow() || near.column < layout.leftColumn()) {
        const bool scrollsRows = drag_ != Unit::Column;
        const bool scrollsColumns = drag_ != Unit::Row;
        grid_.setTopRow(scrollsRows ? layout.topRowToShow(near.row) : layout.topRow());
        grid_.setLeftColumn(scrollsColumns ? layout.leftColumnToShow(near.column) : layout.leftColumn());
    }
}

void GridInput::mouseUp(const MouseEvent& event, const GridLayout& layout) {
    if (event.button != MouseButton::Left) {
        return;
    }
    const auto pressed = std::exchange(pressed_, std::nullopt);
    const bool stayed = pressed && layout.hit(event.at) == pressed;
    drag_ = Unit::None;
    collapse();
    if (stayed) {
        scrollTo(*pressed, layout);
    }
    if (pressed) {
        grid_.Click();
    }
}

void GridInput::doubleClick(const MouseEvent& event, const GridLayout& layout) {
    const auto hit = layout.hit(event.at);
    if (event.button != MouseButton::Left || !hit) {
        return;
    }
    collapse();
    cancelDrag();
    DoubleClick click =
        std::exchange(press_, std::nullopt).value_or(DoubleClick{.at = *hit, .selected = grid_.selection()});
    if (click.at.row > 0 && grid_.row() != click.at.row) {
        const Selection unit = unitAt(click.at);
        grid_.select(unit.current, unit.end);
    }
    const bool amongSeveral = click.selected.rowCount() > 1 && click.selected.firstRow <= click.at.row &&
                              click.selected.lastRow >= click.at.row;
    if (!amongSeveral) {
        click.selected = grid_.selection();
    }
    grid_.DblClick(click);
}

void GridInput::cancelDrag() noexcept {
    drag_ = Unit::None;
    pressed_.reset();
    collapsing_.reset();
}

void GridInput::collapse() {
    if (const auto unit = std::exchange(collapsing_, std::nullopt)) {
        grid_.select(unit->current, unit->end);
    }
}

void GridInput::wheel(int notches, int rowsPerNotch, const GridLayout& layout) {
    const int wanted = layout.topRow() - notches * rowsPerNotch;
    grid_.setTopRow(std::clamp(wanted, 1, layout.lastTopRow()));
}

}  // namespace telvar::ui
