// How a table spreads over pages, as a table of cases.
#include "desk/page_layout.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace telvar::tests {

using namespace desk;

namespace {

// 100 by 100 inside the margins: 10 for the title, 5 for the footer, 15 for the headers, 70 for rows.
constexpr Paper paper{{120, 140}, {5, 10, 15, 30}};

TableMeasures measures(std::vector<int> columns, int row = 10) {
    return {.title = 10, .footer = 5, .header = 15, .row = row, .columns = std::move(columns)};
}

using Runs = std::vector<std::pair<int, int>>;

Runs rowsOf(const std::vector<Page>& pages) {
    Runs runs;
    for (const Page& page : pages) {
        runs.emplace_back(page.firstRow, page.rowCount);
    }
    return runs;
}

std::vector<std::vector<int>> columnsOf(const std::vector<Page>& pages) {
    std::vector<std::vector<int>> columns;
    for (const Page& page : pages) {
        auto& own = columns.emplace_back();
        for (const Slot& slot : page.slots) {
            own.push_back(slot.column);
        }
    }
    return columns;
}

}  // namespace

TEST(PageArea, IsThePaperWithoutItsMargins) { EXPECT_EQ(areaOf(paper), (Area{5, 10, 100, 100})); }

TEST(PageArea, IsNeverEmpty) {
    EXPECT_EQ(areaOf({{10, 10}, {20, 20, 20, 20}}), (Area{20, 20, 1, 1}));
    EXPECT_EQ(areaOf({{0, -5}, {-1, -1, 0, 0}}), (Area{0, 0, 1, 1}));
}

TEST(PageLayout, SpreadsRows) {
    struct Case {
        const char* what;
        int rows;
        Runs expected;
    };
    for (const Case& each :
         {Case{"an empty table has one page", 0, {{0, 0}}}, Case{"less than none is none", -3, {{0, 0}}},
          Case{"one row", 1, {{0, 1}}}, Case{"an exact fit", 7, {{0, 7}}}, Case{"one line over", 8, {{0, 7}, {7, 1}}},
          Case{"two exact pages", 14, {{0, 7}, {7, 7}}}, Case{"three pages", 15, {{0, 7}, {7, 7}, {14, 1}}}}) {
        EXPECT_EQ(rowsOf(pagesOf(paper, measures({20, 30}), each.rows)), each.expected) << each.what;
    }
}

TEST(PageLayout, SpreadsColumnsAndRepeatsTheFirst) {
    struct Case {
        const char* what;
        std::vector<int> widths;
        std::vector<std::vector<int>> expected;
    };
    for (const Case& each :
         {Case{"no column at all", {}, {{}}}, Case{"the first alone", {20}, {{0}}},
          Case{"an exact fit", {20, 40, 40}, {{0, 1, 2}}}, Case{"one too many", {20, 40, 41}, {{0, 1}, {0, 2}}},
          Case{"three pages", {20, 50, 50, 50}, {{0, 1}, {0, 2}, {0, 3}}},
          Case{"one wider than the page", {20, 30, 200, 30, 30}, {{0, 1}, {0, 2}, {0, 3, 4}}},
          Case{"a first one wider than the page", {500, 30, 30}, {{0, 1}, {0, 2}}},
          Case{"columns without a width", {0, 0, 0}, {{0, 1, 2}}},
          Case{"negative widths count as none", {-5, -5, 100}, {{0, 1, 2}}}}) {
        EXPECT_EQ(columnsOf(pagesOf(paper, measures(each.widths), 3)), each.expected) << each.what;
    }
}

TEST(PageLayout, PlacesColumnsSideBySideInsideTheArea) {
    const auto pages = pagesOf(paper, measures({20, 30, 200, 30}), 1);
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(pages[0].slots, (std::vector<Slot>{{0, 0, 20}, {1, 20, 30}}));
    EXPECT_EQ(pages[1].slots, (std::vector<Slot>{{0, 0, 20}, {2, 20, 80}}));
    EXPECT_EQ(pages[2].slots, (std::vector<Slot>{{0, 0, 20}, {3, 20, 30}}));
}

TEST(PageLayout, AllColumnsOfSomeRowsLieOnNeighbouringPages) {
    const auto pages = pagesOf(paper, measures({20, 50, 50}), 10);
    EXPECT_EQ(rowsOf(pages), (Runs{{0, 7}, {0, 7}, {7, 3}, {7, 3}}));
    EXPECT_EQ(columnsOf(pages), (std::vector<std::vector<int>>{{0, 1}, {0, 2}, {0, 1}, {0, 2}}));
}

TEST(PageLayout, TheTiniestPaperTakesARowAndAColumnAPage) {
    const auto pages = pagesOf({{1, 1}, {50, 50, 50, 50}}, measures({20, 30, 40}), 255);
    EXPECT_EQ(pages.size(), 255U * 2U);
    EXPECT_EQ(pages.back().firstRow, 254);
    EXPECT_EQ(pages.back().rowCount, 1);
}

TEST(PageLayout, RowsWithoutAHeightDoNotHang) {
    EXPECT_EQ(rowsOf(pagesOf(paper, measures({20, 30}, 0), 255)), (Runs{{0, 70}, {70, 70}, {140, 70}, {210, 45}}));
    EXPECT_EQ(pagesOf(paper, measures({20, 30}, -4), 255).size(), 4U);
}

// Whatever the paper, each cell is printed exactly once, and the first column wherever its row is.
TEST(PageLayout, EveryCellIsPrintedOnce) {
    for (int side = 1; side <= 400; side += 7) {
        const auto pages = pagesOf({{side, side}, {3, 3, 3, 3}}, measures({10, 40, 60, 20, 90}), 23);
        std::multiset<std::pair<int, int>> cells;
        for (const Page& page : pages) {
            ASSERT_FALSE(page.slots.empty());
            EXPECT_EQ(page.slots.front().column, 0);
            for (int row = page.firstRow; row < page.firstRow + page.rowCount; ++row) {
                for (std::size_t at = 1; at < page.slots.size(); ++at) {
                    cells.emplace(row, page.slots[at].column);
                }
            }
            const Slot& last = page.slots.back();
            EXPECT_LE(last.left + last.width, areaOf({{side, side}, {3, 3, 3, 3}}).width);
        }
        EXPECT_EQ(cells.size(), 23U * 4U) << side;
        EXPECT_EQ(std::set(cells.begin(), cells.end()).size(), 23U * 4U) << side;
    }
}

}  // namespace telvar::tests
