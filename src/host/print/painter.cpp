#include "host/print/painter.h"

#include <algorithm>
#include <array>
#include <cwchar>

#include "win/text.h"

namespace telvar::host {

namespace {

constexpr int twipsPerInch = 1440;
constexpr int twipsPerPoint = 20;
constexpr wchar_t face[] = L"Arial";
constexpr wchar_t dots = L'\u2026';

// All in twips.
constexpr int sidePadding = 70;
constexpr int rowPadding = 25;
constexpr int headerPadding = 50;
constexpr int titleGap = 120;  // between the title and the table, and between the table and the footer
constexpr int rule = 12;

constexpr COLORREF ink = RGB(0, 0, 0);
constexpr COLORREF paleInk = RGB(80, 80, 80);
constexpr COLORREF headerFill = RGB(223, 230, 239);
constexpr COLORREF stripeFill = RGB(241, 244, 248);
constexpr COLORREF ruleFill = RGB(120, 132, 148);

}  // namespace

// One page on one canvas.
class PagePainter::Pass {
public:
    Pass(const PagePainter& painter, const PageCanvas& canvas, const PrintDocument& document, std::size_t index)
        : painter_(painter),
          canvas_(canvas),
          document_(document),
          page_(document.pages[index]),
          index_(index),
          area_(desk::areaOf(document.paper)) {
        for (std::size_t at = 0; at < styles; ++at) {
            fonts_[at] = makeFont(static_cast<Style>(at), canvas.dpi.cy);
        }
    }

    void paint() const {
        SetBkMode(canvas_.context, TRANSPARENT);
        SetTextAlign(canvas_.context, TA_BASELINE | TA_LEFT);
        paintTitle();
        paintHeaders();
        for (int row = 0; row < page_.rowCount; ++row) {
            paintRow(row);
        }
        fill({area_.left, bottomOfRows(), tableWidth(), rule}, ruleFill);
        paintFooter();
    }

private:
    // In twips of the sheet.
    struct Box {
        int left;
        int top;
        int width;
        int height;
    };

    [[nodiscard]] int x(int twips) const { return canvas_.corner.x + MulDiv(twips, canvas_.dpi.cx, twipsPerInch); }
    [[nodiscard]] int y(int twips) const { return canvas_.corner.y + MulDiv(twips, canvas_.dpi.cy, twipsPerInch); }
    [[nodiscard]] RECT onDevice(const Box& box) const {
        return {x(box.left), y(box.top), x(box.left + box.width), y(box.top + box.height)};
    }
    [[nodiscard]] const FontMeasures& font(Style style) const { return painter_.measuresOf(style); }
    [[nodiscard]] int topOfTable() const { return area_.top + document_.measures.title; }
    [[nodiscard]] int topOfRows() const { return topOfTable() + document_.measures.header; }
    [[nodiscard]] int bottomOfRows() const { return topOfRows() + page_.rowCount * document_.measures.row; }
    [[nodiscard]] int tableWidth() const {
        return page_.slots.empty() ? area_.width : page_.slots.back().left + page_.slots.back().width;
    }

    // At least one pixel high, and without an object of the device's.
    void fill(const Box& box, COLORREF colour) const {
        RECT at = onDevice(box);
        at.bottom = std::max(at.bottom, at.top + 1);
        SetBkColor(canvas_.context, colour);
        ExtTextOutW(canvas_.context, 0, 0, ETO_OPAQUE, &at, nullptr, 0, nullptr);
    }

    // One line in the box's middle; what does not fit is cut, with dots for its end.
    void text(const Box& box, Style style, Align align, std::wstring text, COLORREF colour = ink) const {
        std::vector<int> ends = painter_.endsOf(style, text);
        if (!ends.empty() && ends.back() > box.width) {
            const int dotsWidth = painter_.widthOf(style, std::wstring_view(&dots, 1));
            while (!text.empty() && ends[text.size() - 1] + dotsWidth > box.width) {
                text.pop_back();
            }
            text += dots;
            ends = painter_.endsOf(style, text);
        }
        if (text.empty()) {
            return;
        }
        const RECT clip = onDevice(box);
        const win::Selected selected(canvas_.context, fonts_[static_cast<std::size_t>(style)].get());
        SIZE natural{};
        GetTextExtentPoint32W(canvas_.context, text.c_str(), static_cast<int>(text.size()), &natural);
        const bool fits = natural.cx <= clip.right - clip.left;
        const int width = fits ? static_cast<int>(natural.cx) : x(ends.back()) - x(0);
        const int free = std::max(static_cast<int>(clip.right - clip.left) - width, 0);
        const int left = clip.left + (align == Align::Left ? 0 : align == Align::Right ? free : free / 2);
        SetTextColor(canvas_.context, colour);
        ExtTextOutW(canvas_.context, left, y(box.top + (box.height - font(style).height) / 2 + font(style).ascent),
                    ETO_CLIPPED, &clip, text.c_str(), static_cast<UINT>(text.size()),
                    fits ? nullptr : stepsOf(ends).data());
    }

    // From character to character as on paper. Coarse devices have wider ones of their own, which are easier to read
    // and used wherever they fit.
    [[nodiscard]] std::vector<INT> stepsOf(const std::vector<int>& ends) const {
        std::vector<INT> steps(ends.size());
        for (std::size_t at = 0; at < ends.size(); ++at) {
            steps[at] = x(ends[at]) - x(at == 0 ? 0 : ends[at - 1]);
        }
        return steps;
    }

    void paintTitle() const {
        const int height = font(Style::Title).height;
        const std::wstring made = win::wide(document_.table.made);
        // With room for the wider characters of a coarse device.
        const int madeWidth = std::min(painter_.widthOf(Style::Small, made) * 5 / 4, area_.width);
        const int gap = std::min(2 * sidePadding, area_.width - madeWidth);
        text({area_.left, area_.top, area_.width - madeWidth - gap, height}, Style::Title, Align::Left,
             win::wide(document_.table.title));
        text({area_.left + area_.width - madeWidth, area_.top, madeWidth, height}, Style::Small, Align::Right, made,
             paleInk);
    }

    void paintFooter() const {
        const int height = font(Style::Small).height;
        text({area_.left, area_.top + area_.height - height, area_.width, height}, Style::Small, Align::Right,
             L"Page " + std::to_wstring(index_ + 1) + L" of " + std::to_wstring(document_.pages.size()), paleInk);
    }

    void paintHeaders() const {
        const int height = document_.measures.header;
        fill({area_.left, topOfTable(), tableWidth(), height}, headerFill);
        fill({area_.left, topOfRows() - rule, tableWidth(), rule}, ruleFill);
        const int line = font(Style::Header).height;
        for (const desk::Slot& slot : page_.slots) {
            const desk::Column& column = document_.table.columns[static_cast<std::size_t>(slot.column)];
            const Box inner = innerOf(slot, topOfTable(), height);
            const auto lines = painter_.wrapped(win::wide(column.header), inner.width);
            int top = inner.top + (height - static_cast<int>(lines.size()) * line) / 2;
            for (const std::wstring& each : lines) {
                text({inner.left, top, inner.width, line}, Style::Header, column.centred ? Align::Centre : Align::Left,
                     each);
                top += line;
            }
        }
    }

    void paintRow(int row) const {
        const int height = document_.measures.row;
        const int top = topOfRows() + row * height;
        if (row % 2 != 0) {
            fill({area_.left, top, tableWidth(), height}, stripeFill);
        }
        const desk::Row& printed = document_.table.rows[static_cast<std::size_t>(page_.firstRow + row)];
        for (const desk::Slot& slot : page_.slots) {
            const auto column = static_cast<std::size_t>(slot.column);
            if (column < printed.cells.size()) {
                const bool centred = document_.table.columns[column].centred;
                text(innerOf(slot, top, height), column == 0 ? Style::Header : Style::Cell,
                     centred ? Align::Centre : Align::Left, win::wide(printed.cells[column]));
            }
        }
    }

    [[nodiscard]] Box innerOf(const desk::Slot& slot, int top, int height) const {
        return {area_.left + slot.left + sidePadding, top, std::max(slot.width - 2 * sidePadding, 0), height};
    }

    const PagePainter& painter_;
    const PageCanvas& canvas_;
    const PrintDocument& document_;
    const desk::Page& page_;
    std::size_t index_;
    desk::Area area_;
    std::array<win::Font, styles> fonts_;
};

PagePainter::PagePainter() : context_(CreateCompatibleDC(nullptr)) {
    for (std::size_t at = 0; at < styles; ++at) {
        fonts_.push_back(makeFont(static_cast<Style>(at), twipsPerInch));
        TEXTMETRICW metrics{};
        const win::Selected selected(context_.get(), fonts_.back().get());
        GetTextMetricsW(context_.get(), &metrics);
        measures_.push_back({.height = metrics.tmHeight, .ascent = metrics.tmAscent});
    }
}

win::Font PagePainter::makeFont(Style style, int dpi) {
    const int points = style == Style::Title ? 13 : 8;
    LOGFONTW font{};
    font.lfHeight = -std::max(MulDiv(points * twipsPerPoint, dpi, twipsPerInch), 1);
    font.lfWeight = style == Style::Title || style == Style::Header ? FW_BOLD : FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfOutPrecision = OUT_TT_PRECIS;
    std::copy_n(face, std::size(face), font.lfFaceName);
    return win::Font(CreateFontIndirectW(&font));
}

std::vector<int> PagePainter::endsOf(Style style, std::wstring_view text) const {
    std::vector<int> ends(text.size());
    SIZE size{};
    const win::Selected selected(context_.get(), reference(style));
    if (!text.empty()) {
        GetTextExtentExPointW(context_.get(), text.data(), static_cast<int>(text.size()), 0, nullptr, ends.data(),
                              &size);
    }
    return ends;
}

int PagePainter::widthOf(Style style, std::wstring_view text) const {
    SIZE size{};
    const win::Selected selected(context_.get(), reference(style));
    GetTextExtentPoint32W(context_.get(), text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

// Into lines at blanks; a word that is too wide has a line of its own.
std::vector<std::wstring> PagePainter::wrapped(std::wstring_view header, int width) const {
    std::vector<std::wstring> lines;
    while (!header.empty()) {
        const std::size_t end = std::min(header.find(L' '), header.size());
        const std::wstring_view word = header.substr(0, end);
        header.remove_prefix(std::min(end + 1, header.size()));
        if (word.empty()) {
            continue;
        }
        if (!lines.empty()) {
            const std::wstring longer = lines.back() + L' ' + std::wstring(word);
            if (widthOf(Style::Header, longer) <= width) {
                lines.back() = longer;
                continue;
            }
        }
        lines.emplace_back(word);
    }
    return lines;
}

// As wide as the control shows it, and wider where a word of the header or a cell needs that.
int PagePainter::columnWidth(const desk::PrintedTable& table, std::size_t column) const {
    int needed = 0;
    for (const std::wstring& word : wrapped(win::wide(table.columns[column].header), 0)) {
        needed = std::max(needed, widthOf(Style::Header, word));
    }
    for (const desk::Row& row : table.rows) {
        if (column < row.cells.size()) {
            needed = std::max(needed, widthOf(column == 0 ? Style::Header : Style::Cell, win::wide(row.cells[column])));
        }
    }
    return std::max(table.columns[column].width, needed + 2 * sidePadding);
}

PrintDocument PagePainter::compose(desk::PrintedTable table, const desk::Paper& paper) const {
    desk::TableMeasures measures;
    measures.title = measuresOf(Style::Title).height + titleGap;
    measures.footer = measuresOf(Style::Small).height + titleGap;
    measures.row = measuresOf(Style::Cell).height + 2 * rowPadding;
    std::size_t lines = 1;
    for (std::size_t column = 0; column < table.columns.size(); ++column) {
        const int width = columnWidth(table, column);
        measures.columns.push_back(width);
        lines = std::max(lines, wrapped(win::wide(table.columns[column].header), width - 2 * sidePadding).size());
    }
    measures.header = static_cast<int>(lines) * measuresOf(Style::Header).height + 2 * headerPadding;
    auto pages = desk::pagesOf(paper, measures, static_cast<int>(table.rows.size()));
    return {.table = std::move(table), .paper = paper, .measures = std::move(measures), .pages = std::move(pages)};
}

void PagePainter::paint(const PageCanvas& canvas, const PrintDocument& document, std::size_t index) const {
    const win::SavedContext saved(canvas.context);
    Pass(*this, canvas, document, index).paint();
}

}  // namespace telvar::host
