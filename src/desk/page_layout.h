// How a table spreads over pages. Rows that do not fit go on to further pages, and so do columns that are too wide for
// one page; the first column comes again on every page. All columns of some rows lie on neighbouring pages.
#pragma once

#include <vector>

namespace telvar::desk {

struct Size {
    int width;
    int height;
    bool operator==(const Size&) const = default;
};

struct Margins {
    int left;
    int top;
    int right;
    int bottom;
    bool operator==(const Margins&) const = default;
};

struct Paper {
    Size size;
    Margins margins;
    bool operator==(const Paper&) const = default;
};

// Inside the margins; at least 1 by 1, whatever the paper.
struct Area {
    int left;
    int top;
    int width;
    int height;
    bool operator==(const Area&) const = default;
};

[[nodiscard]] Area areaOf(const Paper& paper) noexcept;

struct TableMeasures {
    int title = 0;   // height of what stands above the table
    int footer = 0;  // and below it
    int header = 0;
    int row = 0;
    std::vector<int> columns;  // widths
};

// One column on one page; `left` counts from the area's left edge.
struct Slot {
    int column;
    int left;
    int width;
    bool operator==(const Slot&) const = default;
};

struct Page {
    int firstRow;
    int rowCount;
    std::vector<Slot> slots;
    bool operator==(const Page&) const = default;
};

// At least one page. Each page takes at least one row and one column besides the first, even if they do not fit; a
// column that is wider than a page is cut.
[[nodiscard]] std::vector<Page> pagesOf(const Paper& paper, const TableMeasures& measures, int rows);

}  // namespace telvar::desk
