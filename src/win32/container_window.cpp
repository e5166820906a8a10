#include "win32/container_window.h"

#include <algorithm>
#include <utility>

#include "ui/frame.h"
#include "win/scaling.h"
#include "win32/peers.h"

namespace telvar::win32 {

namespace {

// Newer than the headers' default target.
constexpr UINT dpiChangedAfterParent = 0x02E3;

}  // namespace

ContainerWindow::~ContainerWindow() {
    ContainerWindow::release();
    destroy();
}

void ContainerWindow::useFont(int dpi) { font_ = desktop_->font(dpi); }

void ContainerWindow::fill() {
    resized();
    makePeers();
    container_->attach(*this);
}

void ContainerWindow::makePeers() {
    const ControlsContext::Active presentLook(desktop_->controls());
    for (ui::Widget* const child : container_->children()) {
        if (auto peer = makePeer(*child, *this, handle(), font_)) {
            desktop_->widgetShown(*child, peer->window());
            peers_.push_back(std::move(peer));
        }
    }
    // A frame lies behind the widgets that it surrounds, wherever it comes in tab order.
    for (const PeerPointer& peer : peers_) {
        if (dynamic_cast<const ui::Frame*>(peer->widget()) != nullptr) {
            SetWindowPos(peer->window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        }
    }
}

void ContainerWindow::release() noexcept {
    if (container_ != nullptr) {
        container_->detach();
        container_ = nullptr;
    }
    moves_.clear();
    // Out of reach before they go: the system looks for the next place of the focus meanwhile.
    const auto gone = std::exchange(peers_, {});
    for (const PeerPointer& peer : gone) {
        desktop_->windowGone(peer->window());
        peer->detach();
    }
}

void ContainerWindow::widgetEnds() noexcept {
    container_ = nullptr;
    release();
}

void ContainerWindow::show(ui::Aspect changed) noexcept {
    if (container_ != nullptr && (changed == ui::Aspect::Everything || changed == ui::Aspect::Enabled)) {
        EnableWindow(handle(), container_->enabled());
    }
}

void ContainerWindow::takeFocus() noexcept { SetFocus(handle()); }

void ContainerWindow::resized() {
    RECT client{};
    GetClientRect(handle(), &client);
    if (container_ != nullptr && font_) {
        container_->setSize(sizeIn({static_cast<int>(client.right), static_cast<int>(client.bottom)}), font_->dpi());
    }
}

void ContainerWindow::changeFont(int dpi) {
    // The controls still use the old font until each has the new one.
    const auto before = std::exchange(font_, desktop_->font(dpi));
    for (const PeerPointer& peer : peers_) {
        peer->setFont(font_);
    }
    resized();
    InvalidateRect(handle(), nullptr, TRUE);
}

ContainerWindow::PeerPointer ContainerWindow::peerOf(HWND window) const noexcept {
    // Some controls have a child of their own.
    while (window != nullptr && GetParent(window) != handle()) {
        window = GetAncestor(window, GA_PARENT);
    }
    const auto found =
        std::ranges::find_if(peers_, [window](const PeerPointer& peer) { return peer->window() == window; });
    return window != nullptr && found != peers_.end() ? *found : nullptr;
}

LRESULT ContainerWindow::eraseBackground(HDC dc) const noexcept {
    RECT client{};
    GetClientRect(handle(), &client);
    FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
    return 1;
}

LRESULT ContainerWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto held = hold();
    switch (message) {
    case WM_SIZE:
        resized();
        return 0;
    case WM_SETFOCUS:
        focusInside();
        return 0;
    case settleLater:
        settleWhenFree();
        return 0;
    case WM_TIMER:
        if (wParam == settleTimer) {
            settleWhenFree();
        }
        return 0;
    case WM_COMMAND:
        if (const PeerPointer peer = peerOf(reinterpret_cast<HWND>(lParam))) {
            peer->notified(HIWORD(wParam));
        }
        return 0;
    case WM_VSCROLL:
        if (const PeerPointer peer = peerOf(reinterpret_cast<HWND>(lParam))) {
            peer->notified(LOWORD(wParam));
        }
        return 0;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORLISTBOX:
        if (const PeerPointer peer = peerOf(reinterpret_cast<HWND>(lParam))) {
            return reinterpret_cast<LRESULT>(peer->background(reinterpret_cast<HDC>(wParam)));
        }
        break;
    case WM_ERASEBKGND:
        return eraseBackground(reinterpret_cast<HDC>(wParam));
    case WM_SETCURSOR:
        if (container_ != nullptr && desktop_->showPointer()) {
            return TRUE;
        }
        break;
    case WM_SYSCOLORCHANGE:
        // Controls keep colours of their own until somebody tells them; the system tells windows of their own only.
        for (const PeerPointer& peer : peers()) {
            SendMessageW(peer->window(), message, wParam, lParam);
        }
        [[fallthrough]];
    case WM_THEMECHANGED:
        RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
        return 0;
    case WM_SETTINGCHANGE:
        if (container_ != nullptr) {
            desktop_->forgetFonts();
            changeFont(dpi());
        }
        return 0;
    case dpiChangedAfterParent:
        changeFont(win::dpiOf(handle()));
        return 0;
    case WM_DESTROY:
        release();
        return 0;
    default:
        break;
    }
    return defaultMessage(message, wParam, lParam);
}

}  // namespace telvar::win32
