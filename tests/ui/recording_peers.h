// Peers that write down what widgets tell them.
#pragma once

#include <string>
#include <vector>

#include "ui/grid.h"

namespace telvar::tests {

class RecordingPeer : public ui::WidgetPeer {
public:
    void show(ui::Aspect changed) noexcept override { shown.push_back(changed); }
    void takeFocus() noexcept override { ++focused; }
    void widgetEnds() noexcept override { ended = true; }

    std::vector<ui::Aspect> shown;
    int focused = 0;
    bool ended = false;
};

class RecordingGridPeer : public ui::GridPeer {
public:
    void show(ui::Aspect changed) noexcept override { shown.push_back(changed); }
    void takeFocus() noexcept override {}
    void widgetEnds() noexcept override {}
    void cellsChanged(const ui::CellRange& range) noexcept override { cells.push_back(range); }
    void layoutChanged() noexcept override { ++layouts; }
    void highlightChanged() noexcept override { ++highlights; }
    void forget() {
        shown.clear();
        cells.clear();
        layouts = 0;
        highlights = 0;
    }
    [[nodiscard]] bool idle() const { return shown.empty() && cells.empty() && layouts == 0 && highlights == 0; }

    std::vector<ui::Aspect> shown;
    std::vector<ui::CellRange> cells;
    int layouts = 0;
    int highlights = 0;
};

}  // namespace telvar::tests

namespace telvar::ui {

inline void PrintTo(const CellRange& range, std::ostream* stream) {
    *stream << range.firstRow << ',' << range.firstColumn << " to " << range.lastRow << ',' << range.lastColumn;
}
inline void PrintTo(const Cell& cell, std::ostream* stream) { *stream << cell.row << ',' << cell.column; }
inline void PrintTo(const Rect& rect, std::ostream* stream) {
    *stream << rect.left << ',' << rect.top << " to " << rect.right << ',' << rect.bottom;
}

}  // namespace telvar::ui
