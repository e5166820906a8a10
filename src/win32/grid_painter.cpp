// Every colour comes from the user's system colours, or from a mixture of two of them, or is one that a program gave to
// a cell; what is written on a mixture or on such a colour is chosen so that it can be read in every scheme.
#include "win32/grid_painter.h"
#include "win/text.h"

#include "base/readable_colour.h"
#include "win/gdi.h"
#include "win32/convert.h"
#include "win32/grid_text.h"

namespace telvar::win32 {

namespace {

// Height of the line below the header of the current column, in pixels at the standard number of dots per inch.
constexpr int currentMark = 3;

int widthOf(const RECT& rect) noexcept { return static_cast<int>(rect.right - rect.left); }

// Pixels at the right and lower edge of a cell that belong to the lines between the cells.
int gapOf(const ui::Grid& grid, ui::Cell cell) noexcept {
    return cell.row == 0 || cell.column == 0 || grid.display().gridLines ? 1 : 0;
}

void fill(HDC dc, const RECT& rect, COLORREF colour) noexcept {
    SetBkColor(dc, colour);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
}

// Into a buffer that is used again for every cell; nearly all texts are ASCII.
void widen(std::string_view text, std::wstring& wide) {
    wide.clear();
    for (const char character : text) {
        if (static_cast<unsigned char>(character) >= 0x80) {
            wide = win::wide(text);
            return;
        }
        wide.push_back(static_cast<wchar_t>(character));
    }
}

}  // namespace

struct CellColours {
    COLORREF back;
    COLORREF text;
};

struct GridColours {
    COLORREF window = GetSysColor(COLOR_WINDOW);  // what lines and the inactive selection are mixed with
    COLORREF windowText = GetSysColor(COLOR_WINDOWTEXT);
    COLORREF face = GetSysColor(COLOR_BTNFACE);
    COLORREF faceText = GetSysColor(COLOR_BTNTEXT);
    COLORREF edge = GetSysColor(COLOR_BTNSHADOW);
    COLORREF selected = GetSysColor(COLOR_HIGHLIGHT);
    COLORREF selectedText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    COLORREF disabledText = GetSysColor(COLOR_GRAYTEXT);
    COLORREF line = base::mixed(window, edge, 45);
    COLORREF selectedInactive = base::mixed(window, selected, 25);
    COLORREF selectedInactiveText = base::readable(windowText, selectedInactive);
    COLORREF currentHeader = base::mixed(face, selected, 30);
    COLORREF currentHeaderText = base::readable(faceText, currentHeader);

    // Of a cell for which nothing else is said.
    [[nodiscard]] CellColours plain(const ui::Grid& grid) const noexcept {
        const COLORREF back = colourOf(grid.display().backColor);
        if (!grid.enabled()) {
            return {.back = back, .text = disabledText};
        }
        const ui::Colour wanted = grid.display().foreColor;
        return {.back = back, .text = base::readable(wanted == ui::black ? windowText : colourOf(wanted), back)};
    }
    // Of a cell that a program coloured.
    [[nodiscard]] CellColours own(ui::Colour colour) const noexcept {
        const COLORREF back = colourOf(colour);
        return {.back = back, .text = base::readableOf(windowText, window, back)};
    }
};

struct GridPainter::Pass {
    HDC dc = nullptr;
    const ui::Grid& grid;
    RECT damage{};
    bool active = false;
    ui::CellRange selection;
    GridColours colours;
    CellColours plain = colours.plain(grid);
    GridText measures;
    // Used again for every cell.
    std::wstring* text = nullptr;
    std::wstring* shortened = nullptr;
};

ui::GridMetrics GridPainter::metrics() const noexcept {
    const int dpi = font_->dpi();
    return {.dpi = dpi,
            .rowHeight = font_->height() + MulDiv(5, dpi, ui::standardDpi),
            .headerHeight = (static_cast<int>(headerLines) * font_->height()) + MulDiv(6, dpi, ui::standardDpi)};
}

void GridPainter::paint(HDC dc, const ui::Grid& grid, const ui::GridLayout& layout, const RECT& damage,
                        bool active) const {
    const win::SavedContext saved(dc);
    IntersectClipRect(dc, static_cast<int>(damage.left), static_cast<int>(damage.top), static_cast<int>(damage.right),
                      static_cast<int>(damage.bottom));
    const win::Selected selected(dc, font_->get());
    SetTextAlign(dc, TA_LEFT | TA_TOP);

    std::wstring text;
    std::wstring shortened;
    const Pass pass{.dc = dc,
                    .grid = grid,
                    .damage = damage,
                    .active = active,
                    .selection = grid.selection(),
                    .colours = {},
                    .measures = {*font_, dc},
                    .text = &text,
                    .shortened = &shortened};

    std::vector<Line> columns;
    std::vector<Line> rows;
    const auto addColumn = [&](int column) {
        const ui::Rect rect = layout.cellRect({0, column});
        if (!rect.empty() && rect.left < damage.right && rect.right > damage.left) {
            columns.push_back({column, rect.left, rect.right});
        }
    };
    const auto addRow = [&](int row) {
        const ui::Rect rect = layout.cellRect({row, 0});
        if (rect.bottom > rect.top && rect.top < damage.bottom && rect.bottom > damage.top) {
            rows.push_back({row, rect.top, rect.bottom});
        }
    };
    addColumn(0);
    for (int column = layout.leftColumn(); column <= layout.lastVisibleColumn(); ++column) {
        addColumn(column);
    }
    addRow(0);
    for (int row = layout.topRow(); row <= layout.lastVisibleRow(); ++row) {
        addRow(row);
    }
    fill(dc, damage, pass.colours.face);
    // Lines are what the cells leave uncovered.
    fill(dc, blockOf(rows, columns, false), pass.colours.edge);
    paintBody(pass, rows, columns);
    paintFixed(pass, rows, columns);
}

// What the lines cover together, or only their scrolled part; both are in order and without gaps.
RECT GridPainter::blockOf(const std::vector<Line>& rows, const std::vector<Line>& columns, bool scrolledOnly) {
    if (rows.empty() || columns.empty()) {
        return {};
    }
    const auto first = [scrolledOnly](const std::vector<Line>& lines) {
        return scrolledOnly && lines.front().index == 0 ? lines.front().to : lines.front().from;
    };
    return {first(columns), first(rows), columns.back().to, rows.back().to};
}

void GridPainter::paintBody(const Pass& pass, const std::vector<Line>& rows, const std::vector<Line>& columns) const {
    const int gap = gapOf(pass.grid, {1, 1});
    if (gap > 0) {
        fill(pass.dc, blockOf(rows, columns, true), pass.colours.line);
    }
    for (const Line& row : rows) {
        for (const Line& column : columns) {
            if (row.index > 0 && column.index > 0) {
                paintCell(pass, {row.index, column.index}, {column.from, row.from, column.to - gap, row.to - gap});
            }
        }
    }
}

void GridPainter::paintFixed(const Pass& pass, const std::vector<Line>& rows, const std::vector<Line>& columns) const {
    for (const Line& row : rows) {
        for (const Line& column : columns) {
            if (row.index == 0 || column.index == 0) {
                const int gap = gapOf(pass.grid, {row.index, column.index});
                paintHeader(pass, {row.index, column.index}, {column.from, row.from, column.to - gap, row.to - gap});
            }
        }
    }
}

void GridPainter::paintCell(const Pass& pass, ui::Cell cell, const RECT& rect) const {
    const GridColours& colours = pass.colours;
    const bool current = cell == ui::Cell{pass.grid.row(), pass.grid.column()};
    const bool several = pass.selection.rowCount() > 1 || pass.selection.columnCount() > 1;
    // Among several selected cells the current one keeps its own colours, so that it is seen.
    const bool selected = pass.grid.display().selectionShown && pass.selection.contains(cell) && !(current && several);

    CellColours shown = pass.plain;
    if (selected) {
        shown = pass.active ? CellColours{.back = colours.selected, .text = colours.selectedText}
                            : CellColours{.back = colours.selectedInactive, .text = colours.selectedInactiveText};
    } else if (const ui::Colour own = pass.grid.cellBackColor(cell.row, cell.column); own != 0) {
        shown = colours.own(own);
    }
    paintLine(pass, cell, rect, shown);
    if (current && pass.active) {
        // Drawn by exclusive-or with these two colours.
        SetTextColor(pass.dc, ui::black);
        SetBkColor(pass.dc, ui::white);
        DrawFocusRect(pass.dc, &rect);
    }
}

void GridPainter::paintHeader(const Pass& pass, ui::Cell cell, const RECT& rect) const {
    const GridColours& colours = pass.colours;
    const bool ofCurrent = (cell.row == 0) != (cell.column == 0) &&
                           (cell.row == 0 ? cell.column == pass.grid.column() : cell.row == pass.grid.row());
    const ui::Colour own = pass.grid.cellBackColor(cell.row, cell.column);
    CellColours shown{.back = colours.face, .text = colours.faceText};
    if (own != 0) {
        shown = colours.own(own);
    } else if (ofCurrent) {
        shown = {.back = colours.currentHeader, .text = colours.currentHeaderText};
    }
    if (cell.row > 0) {
        paintLine(pass, cell, rect, shown);
    } else {
        paintColumnHeader(pass, cell, rect, shown);
    }
    if (own != 0 && ofCurrent) {
        // A colour of its own is a message, so the mark of the current one leaves it as it is.
        const RECT mark{rect.left, rect.bottom - MulDiv(currentMark, font_->dpi(), ui::standardDpi), rect.right,
                        rect.bottom};
        fill(pass.dc, mark, colours.selected);
    }
}

void GridPainter::paintLine(const Pass& pass, ui::Cell cell, const RECT& rect, const CellColours& colours) const {
    SetBkColor(pass.dc, colours.back);
    SetTextColor(pass.dc, colours.text);
    widen(pass.grid.text(cell.row, cell.column), *pass.text);
    const int top = static_cast<int>(rect.top) + ((static_cast<int>(rect.bottom - rect.top) - font_->height()) / 2);
    drawText(pass.dc, rect, pass.measures.cell(*pass.text, widthOf(rect), *pass.shortened),
             pass.grid.cellAlignment(cell.row, cell.column), top, ETO_OPAQUE);
}

void GridPainter::paintColumnHeader(const Pass& pass, ui::Cell cell, const RECT& rect,
                                    const CellColours& colours) const {
    SetBkColor(pass.dc, colours.back);
    SetTextColor(pass.dc, colours.text);
    widen(pass.grid.text(cell.row, cell.column), *pass.text);
    const HeaderText header = pass.measures.header(*pass.text, widthOf(rect));
    const int height = static_cast<int>(rect.bottom - rect.top);
    int at = static_cast<int>(rect.top) + ((height - (static_cast<int>(header.lines().size()) * font_->height())) / 2);
    UINT opaque = ETO_OPAQUE;
    for (const auto line : header.lines()) {
        drawText(pass.dc, rect, pass.measures.headerLine(line, widthOf(rect), *pass.shortened), ui::Alignment::Centre,
                 at, opaque);
        at += font_->height();
        opaque = 0;
    }
}

void GridPainter::drawText(HDC dc, const RECT& rect, const FittedText& text, ui::Alignment alignment, int top,
                           UINT options) {
    int left = static_cast<int>(rect.left) + text.inset;
    if (alignment != ui::Alignment::LeftCentre) {
        const int rest = widthOf(rect) - (2 * text.inset) - text.width;
        left += alignment == ui::Alignment::Centre ? rest / 2 : rest;
    }
    ExtTextOutW(dc, left, top, options | ETO_CLIPPED, &rect, text.text.data(), static_cast<UINT>(text.text.size()),
                nullptr);
}

bool GridPainter::cuts(const ui::Grid& grid, ui::Cell cell, int width) const {
    const std::wstring text = win::wide(grid.text(cell.row, cell.column));
    const win::MemoryContext dc;
    const win::Selected selected(dc.get(), font_->get());
    const GridText measures(*font_, dc.get());
    const int room = width - gapOf(grid, cell);
    std::wstring shortened;
    return cell.row == 0 ? measures.headerIsCut(text, room) : measures.cell(text, room, shortened).cut;
}

}  // namespace telvar::win32
