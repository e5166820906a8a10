// Every colour comes from the user's system colours, or from a mixture of two of them, so that high-contrast schemes
// keep their contrast.
#include "win32/grid_painter.h"

#include <algorithm>
#include <array>
#include <span>

#include "win32/convert.h"
#include "win32/gdi.h"

namespace telvar::win32 {

namespace {

// Narrow, since the published column widths leave little room for the headers; they are centred anyway.
constexpr int headerPadding = 1;

// The frequencies' headers need three in the widths that they have been given.
constexpr std::size_t headerLines = 3;

// `share` of `over`, in hundredths, the rest of `under`.
COLORREF mixed(COLORREF under, COLORREF over, int share) noexcept {
    const auto part = [share](int low, int high) { return static_cast<BYTE>(low + (((high - low) * share) / 100)); };
    return RGB(part(GetRValue(under), GetRValue(over)), part(GetGValue(under), GetGValue(over)),
               part(GetBValue(under), GetBValue(over)));
}

// On a colour that a program chose, whatever the system's text colour is.
COLORREF readableOn(COLORREF back) noexcept {
    const int brightness = ((GetRValue(back) * 299) + (GetGValue(back) * 587) + (GetBValue(back) * 114)) / 1000;
    return brightness >= 128 ? RGB(0, 0, 0) : RGB(255, 255, 255);
}

// The last place before `end` where a header may go on in the next line: at a blank, or where a new word begins with a
// capital letter. 0 for none.
std::size_t breakBefore(std::wstring_view text, std::size_t end) noexcept {
    const auto small = [](wchar_t letter) { return letter >= L'a' && letter <= L'z'; };
    const auto capital = [](wchar_t letter) { return letter >= L'A' && letter <= L'Z'; };
    for (std::size_t at = end - 1; at > 0; --at) {
        if (text[at] == L' ' || (small(text[at - 1]) && capital(text[at]))) {
            return at;
        }
    }
    return 0;
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
            wide = widened(text);
            return;
        }
        wide.push_back(static_cast<wchar_t>(character));
    }
}

}  // namespace

struct GridColours {
    COLORREF window = GetSysColor(COLOR_WINDOW);  // what lines and the inactive selection are mixed with
    COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    COLORREF face = GetSysColor(COLOR_BTNFACE);
    COLORREF faceText = GetSysColor(COLOR_BTNTEXT);
    COLORREF edge = GetSysColor(COLOR_BTNSHADOW);
    COLORREF selected = GetSysColor(COLOR_HIGHLIGHT);
    COLORREF selectedText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    COLORREF line = mixed(window, edge, 45);
    COLORREF selectedInactive = mixed(window, selected, 25);
    COLORREF currentHeader = mixed(face, selected, 30);
    COLORREF disabledText = GetSysColor(COLOR_GRAYTEXT);
};

struct GridPainter::Pass {
    HDC dc = nullptr;
    const ui::Grid& grid;
    RECT damage{};
    bool active = false;
    ui::CellRange selection;
    GridColours colours;
    std::wstring* text = nullptr;  // used again for every cell
};

ui::GridMetrics GridPainter::metrics() const noexcept {
    const int dpi = font_->dpi();
    return {.dpi = dpi,
            .rowHeight = font_->height() + MulDiv(5, dpi, ui::standardDpi),
            .headerHeight = (static_cast<int>(headerLines) * font_->height()) + MulDiv(6, dpi, ui::standardDpi)};
}

void GridPainter::paint(HDC dc, const ui::Grid& grid, const ui::GridLayout& layout, const RECT& damage,
                        bool active) const {
    const SavedContext saved(dc);
    IntersectClipRect(dc, static_cast<int>(damage.left), static_cast<int>(damage.top), static_cast<int>(damage.right),
                      static_cast<int>(damage.bottom));
    const Selected selected(dc, font_->get());
    SetTextAlign(dc, TA_LEFT | TA_TOP);

    std::wstring text;
    const Pass pass{.dc = dc,
                    .grid = grid,
                    .damage = damage,
                    .active = active,
                    .selection = grid.selection(),
                    .colours = {},
                    .text = &text};

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
    const bool lines = pass.grid.display().gridLines;
    const int gap = lines ? 1 : 0;
    if (lines) {
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
                paintHeader(pass, {row.index, column.index}, {column.from, row.from, column.to - 1, row.to - 1});
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

    COLORREF back = colourOf(pass.grid.display().backColor);
    COLORREF text = pass.grid.enabled() ? colourOf(pass.grid.display().foreColor) : colours.disabledText;
    if (selected) {
        back = pass.active ? colours.selected : colours.selectedInactive;
        text = pass.active ? colours.selectedText : colours.text;
    } else if (const ui::Colour own = pass.grid.cellBackColor(cell.row, cell.column); own != 0) {
        back = colourOf(own);
        text = own == ui::windowBackground ? text : readableOn(back);
    }
    SetBkColor(pass.dc, back);
    SetTextColor(pass.dc, text);
    widen(pass.grid.text(cell.row, cell.column), *pass.text);
    const int top = static_cast<int>(rect.top) + ((static_cast<int>(rect.bottom - rect.top) - font_->height()) / 2);
    drawText(pass.dc, rect, *pass.text, pass.grid.cellAlignment(cell.row, cell.column), top, ETO_OPAQUE, padding());
    if (current && pass.active) {
        // Drawn by exclusive-or with these two colours.
        SetTextColor(pass.dc, RGB(0, 0, 0));
        SetBkColor(pass.dc, RGB(255, 255, 255));
        DrawFocusRect(pass.dc, &rect);
    }
}

void GridPainter::paintHeader(const Pass& pass, ui::Cell cell, const RECT& rect) const {
    const bool ofCurrent = (cell.row == 0) != (cell.column == 0) &&
                           (cell.row == 0 ? cell.column == pass.grid.column() : cell.row == pass.grid.row());
    SetBkColor(pass.dc, ofCurrent ? pass.colours.currentHeader : pass.colours.face);
    SetTextColor(pass.dc, pass.colours.faceText);
    widen(pass.grid.text(cell.row, cell.column), *pass.text);
    const std::wstring_view text = *pass.text;
    const int height = static_cast<int>(rect.bottom - rect.top);
    const int top = static_cast<int>(rect.top);
    if (cell.row > 0) {
        drawText(pass.dc, rect, text, pass.grid.cellAlignment(cell.row, cell.column),
                 top + ((height - font_->height()) / 2), ETO_OPAQUE, padding());
        return;
    }
    const int width = static_cast<int>(rect.right - rect.left) - (2 * headerPadding);
    std::array<std::wstring_view, headerLines> lines{};
    std::size_t count = 0;
    std::wstring_view rest = text;
    while (count + 1 < headerLines) {
        std::size_t end = rest.size();
        while (end > 0 && font_->widthOf(pass.dc, rest.substr(0, end)) > width) {
            end = breakBefore(rest, end);
        }
        if (end == 0 || end == rest.size()) {
            break;
        }
        lines[count++] = rest.substr(0, end);
        rest.remove_prefix(rest[end] == L' ' ? end + 1 : end);
    }
    lines[count++] = rest;
    int at = top + ((height - (static_cast<int>(count) * font_->height())) / 2);
    UINT opaque = ETO_OPAQUE;
    for (const auto line : std::span(lines).first(count)) {
        drawText(pass.dc, rect, line, ui::Alignment::Centre, at, opaque, headerPadding);
        at += font_->height();
        opaque = 0;
    }
}

std::wstring_view GridPainter::fitted(HDC dc, std::wstring_view text, int width, std::wstring& shortened) const {
    constexpr std::wstring_view dots = L"...";
    if (font_->widthOf(dc, text) <= width) {
        return text;
    }
    const int room = width - font_->widthOf(dc, dots);
    std::size_t kept = text.size();
    while (kept > 0 && font_->widthOf(dc, text.substr(0, kept)) > room) {
        --kept;
    }
    shortened.assign(text.substr(0, kept)).append(dots);
    return shortened;
}

void GridPainter::drawText(HDC dc, const RECT& rect, std::wstring_view text, ui::Alignment alignment, int top,
                           UINT options, int padding) const {
    const int width = static_cast<int>(rect.right - rect.left) - (2 * padding);
    std::wstring shortened;
    const std::wstring_view shown = fitted(dc, text, width, shortened);
    int left = static_cast<int>(rect.left) + padding;
    if (alignment != ui::Alignment::LeftCentre) {
        const int rest = width - font_->widthOf(dc, shown);
        left += alignment == ui::Alignment::Centre ? rest / 2 : rest;
    }
    ExtTextOutW(dc, left, top, options | ETO_CLIPPED, &rect, shown.data(), static_cast<UINT>(shown.size()), nullptr);
}

}  // namespace telvar::win32
