#include "desk/page_layout.h"

#include <algorithm>
#include <cstddef>

namespace telvar::desk {

namespace {

// The columns of each page that one run of rows takes.
std::vector<std::vector<Slot>> columnRuns(const std::vector<int>& widths, int available) {
    if (widths.empty()) {
        return {{}};
    }
    const int count = static_cast<int>(widths.size());
    const auto widthOf = [&](int column) { return std::max(widths[static_cast<std::size_t>(column)], 0); };
    // Something of the others is to be seen on the narrowest paper, too.
    const Slot first{0, 0, std::min(widthOf(0), count > 1 ? available / 2 : available)};
    std::vector<std::vector<Slot>> runs;
    int next = 1;
    do {
        std::vector<Slot> run{first};
        int left = first.width;
        while (next < count && (run.size() == 1 || left + widthOf(next) <= available)) {
            run.push_back({next, left, std::min(widthOf(next), available - left)});
            left += run.back().width;
            ++next;
        }
        runs.push_back(std::move(run));
    } while (next < count);
    return runs;
}

}  // namespace

Area areaOf(const Paper& paper) noexcept {
    const auto inside = [](int whole, int before, int after) {
        return std::max(whole - std::max(before, 0) - std::max(after, 0), 1);
    };
    return {std::max(paper.margins.left, 0), std::max(paper.margins.top, 0),
            inside(paper.size.width, paper.margins.left, paper.margins.right),
            inside(paper.size.height, paper.margins.top, paper.margins.bottom)};
}

std::vector<Page> pagesOf(const Paper& paper, const TableMeasures& measures, int rows) {
    const Area area = areaOf(paper);
    const int body = area.height - measures.title - measures.footer - measures.header;
    const int rowsOnPage = std::max(body / std::max(measures.row, 1), 1);
    const auto runs = columnRuns(measures.columns, area.width);
    std::vector<Page> pages;
    int first = 0;
    do {
        const int count = std::clamp(rows - first, 0, rowsOnPage);
        for (const auto& run : runs) {
            pages.push_back({first, count, run});
        }
        first += rowsOnPage;
    } while (first < rows);
    return pages;
}

}  // namespace telvar::desk
