#include "ui/beside.h"

#include <algorithm>

namespace telvar::ui {

namespace {

// Moved between the two ends of the screen; the window has room there.
[[nodiscard]] int held(int wanted, int extent, int first, int last) noexcept {
    return std::clamp(wanted, first, last - extent);
}

}  // namespace

std::optional<Point> besideRow(const Rect& row, Size window, const Rect& screen) noexcept {
    if (window.width > screen.width() || window.height > screen.height()) {
        return std::nullopt;
    }
    const int left = held(row.left, window.width, screen.left, screen.right);
    const int top = held(row.top, window.height, screen.top, screen.bottom);
    if (row.right >= screen.left && row.right + window.width <= screen.right) {
        return Point{row.right, top};
    }
    if (row.left <= screen.right && row.left - window.width >= screen.left) {
        return Point{row.left - window.width, top};
    }
    if (row.bottom >= screen.top && row.bottom + window.height <= screen.bottom) {
        return Point{left, row.bottom};
    }
    if (row.top <= screen.bottom && row.top - window.height >= screen.top) {
        return Point{left, row.top - window.height};
    }
    return std::nullopt;
}

}  // namespace telvar::ui
