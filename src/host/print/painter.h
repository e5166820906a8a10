// Draws pages of a printed table on any device context, at any resolution: a printer's, a window's, a metafile's. What
// goes where is computed once, in twips with fonts of that resolution, and scaled to the device, so that every device
// shows the same lines and pages.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "desk/page_layout.h"
#include "desk/printed_table.h"
#include "win/gdi.h"

namespace telvar::host {

// A sheet on a device: where its top left corner lies in the device's pixels, and how many of them an inch has.
struct PageCanvas {
    HDC context = nullptr;
    POINT corner{};
    SIZE dpi{};
};

struct PrintDocument {
    desk::PrintedTable table;
    desk::Paper paper;  // twips, as all lengths here
    desk::TableMeasures measures;
    std::vector<desk::Page> pages;
};

class PagePainter {
public:
    PagePainter();

    // Measures the table and spreads it over pages.
    [[nodiscard]] PrintDocument compose(desk::PrintedTable table, const desk::Paper& paper) const;

    // Page `index`, counted from 0. Paints on what is there: nothing is erased.
    void paint(const PageCanvas& canvas, const PrintDocument& document, std::size_t index) const;

private:
    enum class Style { Title, Small, Header, Cell };
    static constexpr std::size_t styles = 4;
    enum class Align { Left, Centre, Right };
    struct FontMeasures {
        int height = 0;  // of a line
        int ascent = 0;
    };
    class Pass;

    [[nodiscard]] static win::Font makeFont(Style style, int dpi);
    [[nodiscard]] HFONT reference(Style style) const noexcept { return fonts_[static_cast<std::size_t>(style)].get(); }
    [[nodiscard]] const FontMeasures& measuresOf(Style style) const noexcept {
        return measures_[static_cast<std::size_t>(style)];
    }
    [[nodiscard]] int widthOf(Style style, std::wstring_view text) const;
    // Where each character ends.
    [[nodiscard]] std::vector<int> endsOf(Style style, std::wstring_view text) const;
    [[nodiscard]] std::vector<std::wstring> wrapped(std::wstring_view header, int width) const;
    [[nodiscard]] int columnWidth(const desk::PrintedTable& table, std::size_t column) const;

    // Declared in this order: the context lets go of the fonts first.
    std::vector<win::Font> fonts_;
    win::DeviceContext context_;
    std::vector<FontMeasures> measures_;
};

}  // namespace telvar::host
