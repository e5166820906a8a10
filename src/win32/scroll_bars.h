// The scroll bars of a window that shows less than all of its content, and its children moving with them.
#pragma once

#include <windows.h>

#include "ui/scroll_area.h"

namespace telvar::win32 {

class ScrollBars {
public:
    // What the bars of a window take from its room.
    [[nodiscard]] static ui::Size widths() noexcept;
    // The client area of a window, and the room that the bars take which it shows now.
    [[nodiscard]] static ui::Size roomOf(HWND window) noexcept;

    // Shows the bars that the window needs for that content; what was scrolled too far comes back. The window's size
    // messages come back here and do nothing.
    void fit(HWND window, ui::Size content);
    // The point of the content at the upper left corner of the client area.
    [[nodiscard]] ui::Point position() const noexcept { return area_.position(); }

    // WM_VSCROLL or WM_HSCROLL of the window's own bars, WM_MOUSEWHEEL or WM_MOUSEHWHEEL; a step of the arrows in
    // pixels. Answers whether there was anything to scroll.
    bool take(HWND window, UINT message, WPARAM wParam, int step);
    void reveal(HWND window, const ui::Rect& part, int around);

private:
    [[nodiscard]] ui::Point barTarget(HWND window, bool vertical, UINT request, int step) const noexcept;
    [[nodiscard]] ui::Point wheelTarget(bool vertical, int delta, int step);
    void scrolled(HWND window, ui::Point before);
    void showPosition(HWND window) const noexcept;

    ui::ScrollArea area_;
    int wheel_ = 0;  // turned, but not yet a whole step
    bool fitting_ = false;
};

}  // namespace telvar::win32
