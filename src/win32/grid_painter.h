// Paints a grid: cells, headers, selection and the empty space around. Used by the grid window and for pictures without
// a window; knows nothing of either. The blinking frame is the window's.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "ui/grid.h"
#include "ui/grid_layout.h"
#include "win32/fonts.h"

namespace telvar::win32 {

struct CellColours;
struct FittedText;

class GridPainter {
public:
    explicit GridPainter(std::shared_ptr<const FormFont> font) noexcept : font_(std::move(font)) {}

    [[nodiscard]] const FormFont& font() const noexcept { return *font_; }
    // Heights that the font needs.
    [[nodiscard]] ui::GridMetrics metrics() const noexcept;

    // Covers every pixel of `damage` inside the layout's view, and touches cells that lie in it only. `active` is the
    // look of a grid that has the keyboard focus.
    void paint(HDC dc, const ui::Grid& grid, const ui::GridLayout& layout, const RECT& damage, bool active) const;

    // Whether a cell so many pixels wide, its line included, has no room for its whole text.
    [[nodiscard]] bool cuts(const ui::Grid& grid, ui::Cell cell, int width) const;

private:
    struct Line {
        int index;
        int from;
        int to;
    };
    struct Pass;

    [[nodiscard]] static RECT blockOf(const std::vector<Line>& rows, const std::vector<Line>& columns,
                                      bool scrolledOnly);
    void paintBody(const Pass& pass, const std::vector<Line>& rows, const std::vector<Line>& columns) const;
    void paintFixed(const Pass& pass, const std::vector<Line>& rows, const std::vector<Line>& columns) const;
    void paintCell(const Pass& pass, ui::Cell cell, const RECT& rect) const;
    void paintHeader(const Pass& pass, ui::Cell cell, const RECT& rect) const;
    void paintLine(const Pass& pass, ui::Cell cell, const RECT& rect, const CellColours& colours) const;
    void paintColumnHeader(const Pass& pass, ui::Cell cell, const RECT& rect, const CellColours& colours) const;
    static void drawText(HDC dc, const RECT& rect, const FittedText& text, ui::Alignment alignment, int top,
                         UINT options);

    std::shared_ptr<const FormFont> font_;
};

}  // namespace telvar::win32
