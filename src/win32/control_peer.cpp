#include "win32/control_peer.h"

#include <windowsx.h>

#include "base/failure.h"
#include "win/module.h"
#include "win/text.h"
#include "win32/convert.h"
#include "win32/fonts.h"
#include "win32/text_keys.h"

namespace telvar::win32 {

ControlPeer::~ControlPeer() {
    detach();
    if (window_ != nullptr) {
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original_));
        DestroyWindow(window_);
    }
}

void ControlPeer::open(HWND parent) {
    const Control made = control();
    window_ = CreateWindowExW(made.extendedStyle, made.className, L"", made.style | WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0,
                              0, parent, nullptr, win::moduleHandle(), nullptr);
    if (window_ == nullptr) {
        throw base::Failure("A window could not be created");
    }
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    original_ =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)));
    widget_->attach(*this);
}

void ControlPeer::detach() noexcept {
    if (widget_ != nullptr) {
        widget_->detach();
        widget_ = nullptr;
    }
}

void ControlPeer::widgetEnds() noexcept {
    widget_ = nullptr;
    if (window_ != nullptr) {
        ShowWindow(window_, SW_HIDE);
    }
}

void ControlPeer::setFont(const std::shared_ptr<const FormFont>& font) {
    ++showing_;
    SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font->get()), TRUE);
    --showing_;
}

void ControlPeer::show(ui::Aspect changed) noexcept {
    if (widget_ == nullptr || window_ == nullptr) {
        return;
    }
    ++showing_;
    try {
        showAny(changed);
    } catch (const std::exception&) {
        // Out of memory for a text: the window goes on showing the last one.
        InvalidateRect(window_, nullptr, FALSE);
    }
    --showing_;
}

void ControlPeer::showAny(ui::Aspect changed) {
    using ui::Aspect;
    const bool everything = changed == Aspect::Everything;
    if (!widget_->isUsable() || !widget_->isShown()) {
        host_->passFocusOn(*this);
    }
    if (everything || changed == Aspect::Enabled) {
        EnableWindow(window_, widget_->isUsable());
    }
    if (everything || changed == Aspect::Bounds) {
        RECT at = windowBounds();
        const ui::Point scrolled = host_->scrolled();
        OffsetRect(&at, -scrolled.x, -scrolled.y);
        SetWindowPos(window_, nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
    }
    if (showsCaption() && (everything || changed == Aspect::Text)) {
        setWindowText(widget_->caption());
    }
    showAspect(changed);
    if (changed == Aspect::Colours) {
        InvalidateRect(window_, nullptr, TRUE);
    }
    if (everything || changed == Aspect::Visible) {
        ShowWindow(window_, widget_->isShown() ? SW_SHOWNA : SW_HIDE);
    }
}

RECT ControlPeer::windowBounds() const noexcept { return rectOf(widget_->bounds()); }

bool ControlPeer::takesWheel(POINT at) const noexcept {
    RECT own{};
    GetWindowRect(window_, &own);
    return PtInRect(&own, at) != FALSE;
}

void ControlPeer::setWindowText(const std::string& text) const { SetWindowTextW(window_, win::wide(text).c_str()); }

void ControlPeer::takeFocus() noexcept { host_->giveFocus(*this); }

void ControlPeer::accessKey() { SetFocus(window_); }

bool ControlPeer::takesKey(const ui::KeyEvent& event) const noexcept {
    return event.code == ui::key::space && (event.shift & ui::shift::alt) == 0;
}

void ControlPeer::keyPassedOn(const MSG& message) { static_cast<void>(message); }

HBRUSH ControlPeer::background(HDC dc) const {
    return useColours(dc, ground(), widget_ != nullptr ? widget_->foreColor() : ui::windowText);
}

void ControlPeer::notified(unsigned code) {
    if (showing_ == 0 && widget_ != nullptr) {
        const auto alive = shared_from_this();
        userDid(code);
    }
}

LRESULT ControlPeer::original(UINT message, WPARAM wParam, LPARAM lParam) const noexcept {
    return CallWindowProcW(original_, window_, message, wParam, lParam);
}

bool ControlPeer::settled() const {
    if (widget_ != nullptr) {
        host_->settleFocus();
    }
    return widget_ != nullptr;
}

std::optional<WPARAM> ControlPeer::raiseKeyDown(WPARAM code) {
    if (!settled()) {
        return std::nullopt;
    }
    ui::KeyEvent event{.code = static_cast<int>(code), .shift = shiftState()};
    widget_->KeyDown(event);
    return event.code != 0 && window_ != nullptr ? std::optional(code) : std::nullopt;
}

std::optional<WPARAM> ControlPeer::raiseKeyPress(WPARAM character) {
    if (widget_ == nullptr) {
        return std::nullopt;
    }
    ui::KeyPressEvent event{.code = static_cast<int>(character)};
    widget_->KeyPress(event);
    if (event.code == 0 || window_ == nullptr || isNoText(event.code)) {
        return std::nullopt;
    }
    return static_cast<WPARAM>(event.code);
}

std::optional<WPARAM> ControlPeer::raiseKey(UINT message, WPARAM wParam) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return raiseKeyDown(wParam);
    case WM_CHAR:
        return raiseKeyPress(wParam);
    default:
        return wParam;
    }
}

LRESULT ControlPeer::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (widget_ == nullptr) {
        return original(message, wParam, lParam);
    }
    switch (message) {
    case WM_SETFOCUS:
        host_->focusGained(*this);
        return original(message, wParam, lParam);
    case WM_KILLFOCUS: {
        const LRESULT result = original(message, wParam, lParam);
        if (widget_ != nullptr) {
            host_->focusLost(*this, reinterpret_cast<HWND>(wParam));
        }
        return result;
    }
    default: {
        const auto going = raiseKey(message, wParam);
        return going ? original(message, *going, lParam) : 0;
    }
    }
}

LRESULT CALLBACK ControlPeer::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    return onPeer(window, message, wParam, lParam, [&](ControlPeer& peer) -> LRESULT {
        if (message == WM_MOUSEWHEEL && !peer.takesWheel({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)})) {
            return SendMessageW(GetParent(window), message, wParam, lParam);
        }
        const LRESULT result = peer.message(message, wParam, lParam);
        if (message == WM_NCDESTROY) {
            peer.window_ = nullptr;
        }
        return result;
    });
}

}  // namespace telvar::win32
