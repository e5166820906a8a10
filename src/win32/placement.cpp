#include "win32/placement.h"

#include <algorithm>

#include "win/work_area.h"
#include "win32/convert.h"

namespace telvar::win32 {

namespace {

ui::Rect workArea(HMONITOR monitor) noexcept { return rectOf(win::workAreaOf(monitor)); }

// The lower end of an extent that shall lie between two others.
int held(int low, int extent, int first, int last) noexcept { return std::max(std::min(low, last - extent), first); }

}  // namespace

ui::Point middleOver(HWND owner) noexcept {
    ui::Rect over =
        workArea(MonitorFromWindow(owner, owner != nullptr ? MONITOR_DEFAULTTONEAREST : MONITOR_DEFAULTTOPRIMARY));
    RECT at{};
    if (owner != nullptr && IsWindowVisible(owner) != FALSE && IsIconic(owner) == FALSE &&
        GetWindowRect(owner, &at) != FALSE) {
        over = rectOf(at);
    }
    return {(over.left + over.right) / 2, (over.top + over.bottom) / 2};
}

ui::Rect screenAt(const ui::Rect& at) noexcept {
    const RECT rect = rectOf(at);
    return workArea(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST));
}

ui::Rect keptOnScreen(const ui::Rect& window) noexcept {
    const ui::Rect screen = screenAt(window);
    const int left = held(window.left, window.width(), screen.left, screen.right);
    const int top = held(window.top, window.height(), screen.top, screen.bottom);
    return {left, top, left + window.width(), top + window.height()};
}

}  // namespace telvar::win32
