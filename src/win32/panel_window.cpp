#include "win32/panel_window.h"

#include <utility>

#include "win/gdi.h"
#include "win32/embedded_window.h"

namespace telvar::win32 {

PanelWindow::PanelWindow(WindowsDesktop& desktop, ui::Panel& panel, HWND parent, const RECT& at)
    : window_(std::make_shared<EmbeddedWindow>(desktop, panel)) {
    window_->open(parent, at);
}

PanelWindow::~PanelWindow() {
    window_->setFocusCallbacks({});
    window_->setHolder(nullptr);
    window_->destroy();
}

HWND PanelWindow::hwnd() const noexcept { return window_->handle(); }

void PanelWindow::move(const RECT& at, const RECT* clip) {
    const HWND window = hwnd();
    RECT seen = at;
    if (clip == nullptr || IntersectRect(&seen, &at, clip) != FALSE) {
        const bool whole = EqualRect(&seen, &at) != FALSE;
        OffsetRect(&seen, -at.left, -at.top);
        // The system owns the region of a window.
        SetWindowRgn(window, whole ? nullptr : CreateRectRgnIndirect(&seen), TRUE);
    }
    SetWindowPos(window, nullptr, static_cast<int>(at.left), static_cast<int>(at.top),
                 static_cast<int>(at.right - at.left), static_cast<int>(at.bottom - at.top),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void PanelWindow::show(bool visible) { ShowWindow(hwnd(), visible ? SW_SHOWNA : SW_HIDE); }

void PanelWindow::setFocusCallbacks(std::function<void()> entered, std::function<void()> left) {
    window_->setFocusCallbacks({.entered = std::move(entered), .left = std::move(left)});
}

void PanelWindow::setHolder(std::function<std::shared_ptr<void>()> holder) { window_->setHolder(std::move(holder)); }

bool PanelWindow::hasFocus() const noexcept { return window_->hasFocus(); }

void PanelWindow::focus() { SetFocus(hwnd()); }

void PanelWindow::focusFirst() { window_->focusFirst(); }

void PanelWindow::focusLast() { window_->focusLast(); }

bool PanelWindow::translateAccelerator(const MSG& message) {
    return std::shared_ptr(window_)->translateAccelerator(message);
}

bool PanelWindow::pressAccessKey(wchar_t character) { return std::shared_ptr(window_)->pressAccessKey(character); }

}  // namespace telvar::win32
