// Pages as they are painted: which texts stand on which page, and that they stand in the same places at any resolution.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "recording_printer.h"
#include "win/text.h"

namespace telvar::tests {

using Texts = std::vector<std::wstring>;

namespace {

constexpr desk::Paper a4{{11'906, 16'838}, {850, 850, 850, 850}};

desk::PrintedTable table(int rows, int columns = 3) {
    desk::PrintedTable made{.title = "Küste & Hafen", .made = "21/11/2026 14:05"};
    made.columns = {{.header = "Channel", .width = 400}};
    for (int column = 1; column < columns; ++column) {
        made.columns.push_back({.header = "Head " + std::to_string(column), .width = 1050, .centred = column > 8});
    }
    for (int row = 1; row <= rows; ++row) {
        auto& cells = made.rows.emplace_back().cells;
        cells.push_back(std::to_string(row));
        for (int column = 1; column < columns; ++column) {
            cells.push_back(std::to_string(row) + "/" + std::to_string(column));
        }
    }
    return made;
}

bool contains(const Texts& texts, const std::wstring& text) { return std::ranges::find(texts, text) != texts.end(); }

}  // namespace

struct PagePainting : testing::Test {
    [[nodiscard]] Texts page(const host::PrintDocument& document, std::size_t index) const {
        return textsOf(printedTexts(painter, document, index, 600));
    }

    host::PagePainter painter;
};

TEST_F(PagePainting, APageSaysTitleDateHeadersCellsAndItsNumber) {
    const auto document = painter.compose(table(2), a4);
    ASSERT_EQ(document.pages.size(), 1U);
    EXPECT_EQ(page(document, 0), (Texts{L"Küste & Hafen", L"21/11/2026 14:05", L"Channel", L"Head 1", L"Head 2", L"1",
                                        L"1/1", L"1/2", L"2", L"2/1", L"2/2", L"Page 1 of 1"}));
}

TEST_F(PagePainting, AnEmptyTableHasItsHeaders) {
    const auto document = painter.compose(table(0), a4);
    ASSERT_EQ(document.pages.size(), 1U);
    EXPECT_EQ(page(document, 0),
              (Texts{L"Küste & Hafen", L"21/11/2026 14:05", L"Channel", L"Head 1", L"Head 2", L"Page 1 of 1"}));
}

TEST_F(PagePainting, HeadersStandOnEveryPageAndEveryRowOnOne) {
    const auto document = painter.compose(table(255), a4);
    ASSERT_GT(document.pages.size(), 1U);
    Texts channels;
    for (std::size_t index = 0; index < document.pages.size(); ++index) {
        const Texts texts = page(document, index);
        EXPECT_TRUE(contains(texts, L"Head 2")) << index;
        EXPECT_TRUE(contains(texts, L"Küste & Hafen")) << index;
        EXPECT_EQ(texts.back(),
                  L"Page " + std::to_wstring(index + 1) + L" of " + std::to_wstring(document.pages.size()));
        for (int row = 1; row <= 255; ++row) {
            if (contains(texts, std::to_wstring(row) + L"/2")) {
                channels.push_back(std::to_wstring(row));
            }
        }
    }
    ASSERT_EQ(channels.size(), 255U);
    EXPECT_EQ(channels.front(), L"1");
    EXPECT_EQ(channels.back(), L"255");
}

TEST_F(PagePainting, ColumnsThatDoNotFitGoOnBesideTheChannelNumber) {
    const auto document = painter.compose(table(1, 27), a4);
    ASSERT_GT(document.pages.size(), 1U);
    std::size_t cells = 0;
    for (std::size_t index = 0; index < document.pages.size(); ++index) {
        const Texts texts = page(document, index);
        EXPECT_TRUE(contains(texts, L"Channel")) << index;
        EXPECT_TRUE(contains(texts, L"1")) << index;
        cells += static_cast<std::size_t>(
            std::ranges::count_if(texts, [](const std::wstring& text) { return text.starts_with(L"1/"); }));
    }
    EXPECT_EQ(cells, 26U);
}

TEST_F(PagePainting, AHeaderIsBrokenAtItsBlanksAndTheColumnHoldsItsLongestWord) {
    desk::PrintedTable made = table(1, 2);
    made.columns[1] = {.header = "Tx Frequency (MHz)", .width = 900};
    const auto document = painter.compose(made, a4);
    const Texts texts = page(document, 0);
    EXPECT_TRUE(contains(texts, L"Frequency"));
    EXPECT_FALSE(contains(texts, L"Frequen\u2026"));
    EXPECT_TRUE(contains(texts, L"(MHz)"));
}

TEST_F(PagePainting, AColumnIsAsWideAsTheControlShowsItAndWiderForALongCell) {
    desk::PrintedTable made = table(1, 3);
    made.columns[1].width = 5000;
    made.rows[0].cells[2] = "a cell that is much longer than its column is wide";
    const auto document = painter.compose(made, a4);
    EXPECT_EQ(document.measures.columns[1], 5000);
    EXPECT_GT(document.measures.columns[2], 2000);
    Texts whole;
    for (std::size_t index = 0; index < document.pages.size(); ++index) {
        std::ranges::copy(page(document, index), std::back_inserter(whole));
    }
    EXPECT_TRUE(contains(whole, L"a cell that is much longer than its column is wide"));
}

TEST_F(PagePainting, WhatIsWiderThanThePaperIsCutWithDots) {
    desk::PrintedTable made = table(1, 2);
    made.title = std::string(400, 'W');
    made.rows[0].cells[1] = std::string(400, 'M');
    const auto document = painter.compose(made, a4);
    const Texts texts = page(document, 0);
    EXPECT_TRUE(texts.front().ends_with(L'\u2026'));
    EXPECT_TRUE(std::ranges::any_of(
        texts, [](const std::wstring& text) { return text.starts_with(L"MM") && text.ends_with(L'\u2026'); }));
}

TEST_F(PagePainting, TheTiniestPaperIsPaintedWithoutHarm) {
    const auto document = painter.compose(table(3, 5), {{1, 1}, {10, 10, 10, 10}});
    EXPECT_EQ(document.pages.size(), 12U);
    for (std::size_t index = 0; index < document.pages.size(); ++index) {
        (void)page(document, index);
    }
}

TEST_F(PagePainting, EveryResolutionHasTheSameTextsInTheSamePlaces) {
    const auto document = painter.compose(table(20, 9), a4);
    const auto fine = printedTexts(painter, document, 0, 1200);
    for (const int dpi : {37, 96, 144, 192, 300, 600}) {
        const auto coarse = printedTexts(painter, document, 0, dpi);
        ASSERT_EQ(textsOf(coarse), textsOf(fine)) << dpi;
        for (std::size_t at = 0; at < fine.size(); ++at) {
            // What stands at the right begins where its last character demands.
            if (fine[at].text != win::wide(document.table.made) && !fine[at].text.starts_with(L"Page ")) {
                EXPECT_LE(std::abs(coarse[at].at.x - MulDiv(fine[at].at.x, dpi, 1200)), 1) << dpi;
            }
            EXPECT_LE(std::abs(coarse[at].at.y - MulDiv(fine[at].at.y, dpi, 1200)), 1) << dpi;
        }
    }
}

// On a bitmap: ink inside the margins, and nothing but paper outside.
TEST_F(PagePainting, TheMarginsStayWhite) {
    constexpr int dpi = 96;
    const auto document = painter.compose(table(255, 9), a4);
    const int width = MulDiv(a4.size.width, dpi, 1440);
    const int height = MulDiv(a4.size.height, dpi, 1440);
    BITMAPINFO format{};
    format.bmiHeader = {.biSize = sizeof format.bmiHeader,
                        .biWidth = width,
                        .biHeight = -height,
                        .biPlanes = 1,
                        .biBitCount = 32,
                        .biCompression = BI_RGB};
    const win::DeviceContext memory(CreateCompatibleDC(nullptr));
    void* bits = nullptr;
    const win::Bitmap bitmap(CreateDIBSection(memory.get(), &format, DIB_RGB_COLORS, &bits, nullptr, 0));
    ASSERT_NE(bits, nullptr);
    const win::Selected selected(memory.get(), bitmap.get());
    PatBlt(memory.get(), 0, 0, width, height, WHITENESS);
    painter.paint({.context = memory.get(), .corner = {0, 0}, .dpi = {dpi, dpi}}, document, 0);
    GdiFlush();
    const auto* const pixels = static_cast<const std::uint32_t*>(bits);
    const int margin = MulDiv(a4.margins.left, dpi, 1440);
    int inside = 0;
    int outside = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if ((pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)] &
                 0xFFFFFF) != 0xFFFFFF) {
                const bool within = x >= margin - 1 && x <= width - margin && y >= margin - 1 && y <= height - margin;
                ++(within ? inside : outside);
            }
        }
    }
    EXPECT_GT(inside, 10'000);
    EXPECT_EQ(outside, 0);
}

}  // namespace telvar::tests
