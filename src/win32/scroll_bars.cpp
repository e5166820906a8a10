#include "win32/scroll_bars.h"

#include <utility>

namespace telvar::win32 {

namespace {

bool shows(HWND window, LONG bar) noexcept { return (GetWindowLongW(window, GWL_STYLE) & bar) != 0; }

ui::Size clientOf(HWND window) noexcept {
    RECT client{};
    GetClientRect(window, &client);
    return {static_cast<int>(client.right), static_cast<int>(client.bottom)};
}

void showBar(HWND window, LONG bar, int kind, bool wanted) noexcept {
    if (shows(window, bar) != wanted) {
        ShowScrollBar(window, kind, wanted ? TRUE : FALSE);
    }
}

// Lines that the user wants a notch of the wheel to scroll; WHEEL_PAGESCROLL for a page.
UINT linesOfNotch() noexcept {
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    return lines;
}

}  // namespace

ui::Size ScrollBars::widths() noexcept { return {GetSystemMetrics(SM_CXVSCROLL), GetSystemMetrics(SM_CYHSCROLL)}; }

ui::Size ScrollBars::roomOf(HWND window) noexcept {
    const ui::Size client = clientOf(window);
    const ui::Size bars = widths();
    return {client.width + (shows(window, WS_VSCROLL) ? bars.width : 0),
            client.height + (shows(window, WS_HSCROLL) ? bars.height : 0)};
}

void ScrollBars::fit(HWND window, ui::Size content) {
    if (fitting_) {
        return;
    }
    fitting_ = true;
    const ui::ScrollView view = ui::viewOf(content, roomOf(window), widths());
    showBar(window, WS_VSCROLL, SB_VERT, view.vertical);
    showBar(window, WS_HSCROLL, SB_HORZ, view.horizontal);
    const ui::Point before = area_.position();
    area_.setSizes(content, clientOf(window));
    scrolled(window, before);
    showPosition(window);
    fitting_ = false;
}

bool ScrollBars::take(HWND window, UINT message, WPARAM wParam, int step) {
    const bool wheel = message == WM_MOUSEWHEEL || message == WM_MOUSEHWHEEL;
    bool vertical = message == WM_VSCROLL || message == WM_MOUSEWHEEL;
    if (message == WM_MOUSEWHEEL && ((wParam & MK_SHIFT) != 0 || !shows(window, WS_VSCROLL))) {
        vertical = false;
    }
    if (!shows(window, vertical ? WS_VSCROLL : WS_HSCROLL)) {
        return false;
    }
    const ui::Point before = area_.position();
    if (wheel) {
        // Turning away from the user goes up, turning to the right goes right.
        const int delta = GET_WHEEL_DELTA_WPARAM(wParam);
        area_.moveTo(wheelTarget(vertical, message == WM_MOUSEHWHEEL ? delta : -delta, step));
    } else {
        area_.moveTo(barTarget(window, vertical, LOWORD(wParam), step));
    }
    scrolled(window, before);
    return true;
}

void ScrollBars::reveal(HWND window, const ui::Rect& part, int around) {
    const ui::Point before = area_.position();
    area_.reveal(part, around);
    scrolled(window, before);
}

ui::Point ScrollBars::barTarget(HWND window, bool vertical, UINT request, int step) const noexcept {
    ui::Point target = area_.position();
    int& along = vertical ? target.y : target.x;
    // A page keeps a step of what was seen before.
    const int page = (vertical ? area_.room().height : area_.room().width) - step;
    switch (request) {
    case SB_LINEUP:
        along -= step;
        break;
    case SB_LINEDOWN:
        along += step;
        break;
    case SB_PAGEUP:
        along -= page;
        break;
    case SB_PAGEDOWN:
        along += page;
        break;
    case SB_TOP:
        along = 0;
        break;
    case SB_BOTTOM:
        along = vertical ? area_.content().height : area_.content().width;
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: {
        // The message itself carries 16 bits only.
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_TRACKPOS;
        GetScrollInfo(window, vertical ? SB_VERT : SB_HORZ, &info);
        along = info.nTrackPos;
        break;
    }
    default:
        break;
    }
    return target;
}

ui::Point ScrollBars::wheelTarget(bool vertical, int delta, int step) {
    ui::Point target = area_.position();
    const UINT lines = linesOfNotch();
    const int room = vertical ? area_.room().height : area_.room().width;
    const int notch = lines == WHEEL_PAGESCROLL ? room - step : static_cast<int>(lines) * step;
    // Fine wheels turn by parts of a notch, and may turn by less than a pixel.
    const int turned = wheel_ + delta * notch;
    wheel_ = turned % WHEEL_DELTA;
    (vertical ? target.y : target.x) += turned / WHEEL_DELTA;
    return target;
}

void ScrollBars::scrolled(HWND window, ui::Point before) {
    const ui::Point now = area_.position();
    if (now == before) {
        return;
    }
    ScrollWindowEx(window, before.x - now.x, before.y - now.y, nullptr, nullptr, nullptr, nullptr,
                   SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
    showPosition(window);
}

void ScrollBars::showPosition(HWND window) const noexcept {
    const auto show = [window](int bar, int content, int room, int position) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        info.nMax = content - 1;
        info.nPage = static_cast<UINT>(room);
        info.nPos = position;
        SetScrollInfo(window, bar, &info, TRUE);
    };
    // Also of a bar that is not shown, which would keep its former position.
    show(SB_VERT, area_.content().height, area_.room().height, area_.position().y);
    show(SB_HORZ, area_.content().width, area_.room().width, area_.position().x);
}

}  // namespace telvar::win32
