#include "win32/container_window.h"

#include <algorithm>
#include <ranges>
#include <utility>

#include "ui/frame.h"
#include "ui/label.h"
#include "win32/access_keys.h"
#include "win32/dpi.h"
#include "win32/peers.h"

namespace telvar::win32 {

namespace {

// Newer than the headers' default target.
constexpr UINT dpiChangedAfterParent = 0x02E3;

bool canFocus(const Peer& peer) noexcept {
    return peer.widget() != nullptr && peer.takesFocus() && peer.widget()->isUsable() && peer.widget()->isShown();
}

}  // namespace

ContainerWindow::~ContainerWindow() {
    release();
    destroy();
}

void ContainerWindow::open(HWND parent, const RECT& at) {
    create(WindowKind::Panel, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, at, parent);
    font_ = desktop_->font(dpiOf(handle()));
    resized();
    makePeers();
    container_->attach(*this);
    ShowWindow(handle(), SW_SHOWNA);
}

void ContainerWindow::makePeers() {
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
    for (const PeerPointer& peer : peers_) {
        desktop_->windowGone(peer->window());
        peer->detach();
    }
    peers_.clear();
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
        container_->setSize({static_cast<int>(client.right), static_cast<int>(client.bottom)}, font_->dpi());
    }
}

void ContainerWindow::useDpi(int dpi) {
    // The controls still use the old font until each has the new one.
    const auto before = std::exchange(font_, desktop_->font(dpi));
    for (const PeerPointer& peer : peers_) {
        peer->setFont(font_);
    }
    resized();
    InvalidateRect(handle(), nullptr, TRUE);
}

// ---- children

ContainerWindow::PeerPointer ContainerWindow::peerOf(HWND window) const noexcept {
    // Some controls have a child of their own.
    while (window != nullptr && GetParent(window) != handle()) {
        window = GetAncestor(window, GA_PARENT);
    }
    const auto found =
        std::ranges::find_if(peers_, [window](const PeerPointer& peer) { return peer->window() == window; });
    return window != nullptr && found != peers_.end() ? *found : nullptr;
}

ContainerWindow::PeerPointer ContainerWindow::pointerTo(const Peer& peer) const noexcept {
    const auto found = std::ranges::find_if(peers_, [&peer](const PeerPointer& other) { return other.get() == &peer; });
    return found != peers_.end() ? *found : nullptr;
}

// ---- focus

bool ContainerWindow::hasFocus() const noexcept {
    const HWND focus = GetFocus();
    return focus != nullptr && (focus == handle() || IsChild(handle(), focus) != FALSE);
}

void ContainerWindow::focusFirst() {
    const auto found =
        std::ranges::find_if(peers_, [](const PeerPointer& peer) { return canFocus(*peer) && peer->tabStop(); });
    SetFocus(found != peers_.end() ? (*found)->window() : handle());
}

void ContainerWindow::focusLast() {
    const auto backwards = peers_ | std::views::reverse;
    const auto found =
        std::ranges::find_if(backwards, [](const PeerPointer& peer) { return canFocus(*peer) && peer->tabStop(); });
    SetFocus(found != backwards.end() ? (*found)->window() : handle());
}

void ContainerWindow::focusInside() {
    const PeerPointer last = last_.lock();
    if (last && canFocus(*last)) {
        SetFocus(last->window());
        return;
    }
    const auto found =
        std::ranges::find_if(peers_, [](const PeerPointer& peer) { return canFocus(*peer) && peer->tabStop(); });
    if (found != peers_.end()) {
        SetFocus((*found)->window());
    }
}

void ContainerWindow::focusGained(Peer& peer) {
    const PeerPointer gaining = pointerTo(peer);
    const PeerPointer before = current_.lock();
    if (!gaining || gaining == before) {
        return;
    }
    current_ = gaining;
    last_ = gaining;
    if (before) {
        queueFocus(before, false);
    }
    queueFocus(gaining, true);
    if (!before && callbacks_.entered) {
        const auto entered = callbacks_.entered;
        entered();
    }
}

void ContainerWindow::focusLost(Peer& peer, HWND to) {
    // A message box or another program takes the focus for a while; no field is left by that. Between two children the
    // gaining one tells.
    const bool elsewhere = to == nullptr || GetAncestor(to, GA_ROOT) != GetAncestor(handle(), GA_ROOT);
    if (elsewhere || to == handle() || IsChild(handle(), to) != FALSE || current_.lock().get() != &peer) {
        return;
    }
    queueFocus(current_.lock(), false);
    current_.reset();
    if (callbacks_.left) {
        const auto left = callbacks_.left;
        left();
    }
}

void ContainerWindow::queueFocus(const PeerPointer& peer, bool gained) {
    moves_.push_back({.peer = peer, .gained = gained});
    if (moves_.size() == 1) {
        PostMessageW(handle(), settleLater, 0, 0);
    }
}

void ContainerWindow::settleFocus() {
    const auto alive = shared_from_this();
    while (!moves_.empty()) {
        const FocusMove move = moves_.front();
        moves_.pop_front();
        const PeerPointer peer = move.peer.lock();
        if (ui::Widget* const widget = peer ? peer->widget() : nullptr) {
            move.gained ? widget->GotFocus() : widget->LostFocus();
        }
    }
}

void ContainerWindow::settleWhenFree() {
    // While a mouse button is held the click is still to come, and settles the focus itself.
    constexpr UINT lookAgain = 30;
    if (GetCapture() != nullptr) {
        SetTimer(handle(), settleTimer, lookAgain, nullptr);
        return;
    }
    KillTimer(handle(), settleTimer);
    settleFocus();
}

// ---- keys

bool ContainerWindow::translateAccelerator(const MSG& message) {
    const auto alive = shared_from_this();
    const PeerPointer peer = peerOf(message.hwnd);
    if (!peer) {
        return false;
    }
    switch (message.message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return keyDown(message, peer);
    case WM_CHAR:
        if (message.wParam == VK_TAB || message.wParam == VK_RETURN || message.wParam == VK_ESCAPE) {
            return false;
        }
        DispatchMessageW(&message);
        return true;
    case WM_SYSCHAR:
        return pressAccessKey(static_cast<wchar_t>(message.wParam));
    default:
        return false;
    }
}

bool ContainerWindow::keyDown(const MSG& message, const PeerPointer& peer) {
    const ui::KeyEvent event{.code = static_cast<int>(message.wParam), .shift = shiftState()};
    if (peer->takesKey(event)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
        return true;
    }
    peer->keyPassedOn(message);
    const bool tab = event.code == ui::key::tab && (event.shift & (ui::shift::control | ui::shift::alt)) == 0;
    return tab && moveFocus(*peer, (event.shift & ui::shift::shift) != 0);
}

bool ContainerWindow::moveFocus(const Peer& from, bool back) const {
    auto at = std::ranges::find_if(peers_, [&from](const PeerPointer& peer) { return peer.get() == &from; });
    while (at != peers_.end()) {
        if (back && at == peers_.begin()) {
            return false;
        }
        back ? --at : ++at;
        if (at != peers_.end() && canFocus(**at) && (*at)->tabStop()) {
            SetFocus((*at)->window());
            return true;
        }
    }
    return false;
}

bool ContainerWindow::pressAccessKey(wchar_t character) {
    const auto alive = shared_from_this();
    auto at = std::ranges::find_if(peers_, [character](const PeerPointer& peer) {
        return peer->widget() != nullptr && peer->widget()->isShown() &&
               hasAccessKey(peer->widget()->caption(), character);
    });
    // A label's key belongs to what follows it.
    while (at != peers_.end() && !canFocus(**at)) {
        if ((*at)->takesFocus()) {
            return false;
        }
        ++at;
    }
    if (at == peers_.end()) {
        return false;
    }
    const PeerPointer peer = *at;
    peer->accessKey();
    return true;
}

// ---- messages

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
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORLISTBOX:
        if (const PeerPointer peer = peerOf(reinterpret_cast<HWND>(lParam))) {
            return reinterpret_cast<LRESULT>(peer->background(reinterpret_cast<HDC>(wParam)));
        }
        break;
    case WM_ERASEBKGND: {
        RECT client{};
        GetClientRect(handle(), &client);
        FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(COLOR_BTNFACE));
        return 1;
    }
    case WM_SETCURSOR:
        if (desktop_->showPointer()) {
            return TRUE;
        }
        break;
    case WM_SYSCOLORCHANGE:
        RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
        return 0;
    case WM_SETTINGCHANGE:
        desktop_->forgetFonts();
        useDpi(dpiOf(handle()));
        return 0;
    case dpiChangedAfterParent:
        useDpi(dpiOf(handle()));
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
