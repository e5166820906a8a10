// Focus inside a window full of peers: who has it, who gets it next, and telling the widgets only when the system has
// done with moving it.
#include <algorithm>
#include <utility>

#include "win32/access_keys.h"
#include "win32/container_window.h"

namespace telvar::win32 {

namespace {

bool canFocus(const Peer& peer) noexcept {
    return peer.widget() != nullptr && peer.takesFocus() && peer.widget()->isUsable() && peer.widget()->isShown();
}

bool isStop(const Peer& peer) noexcept { return canFocus(peer) && peer.tabStop(); }

}  // namespace

ContainerWindow::PeerPointer ContainerWindow::pointerTo(const Peer& peer) const noexcept {
    const auto found = std::ranges::find_if(peers_, [&peer](const PeerPointer& other) { return other.get() == &peer; });
    return found != peers_.end() ? *found : nullptr;
}

std::size_t ContainerWindow::positionOf(const Peer& peer) const noexcept {
    const auto found = std::ranges::find_if(peers_, [&peer](const PeerPointer& other) { return other.get() == &peer; });
    return static_cast<std::size_t>(found - peers_.begin());
}

bool ContainerWindow::hasFocus() const noexcept {
    const HWND focus = GetFocus();
    return focus != nullptr && (focus == handle() || IsChild(handle(), focus) != FALSE);
}

void ContainerWindow::focusNear(std::size_t position, int step) const noexcept {
    const auto count = static_cast<std::ptrdiff_t>(peers_.size());
    const auto first = static_cast<std::ptrdiff_t>(position) - (step < 0 ? 1 : 0);
    for (std::ptrdiff_t away = 0; away < count; ++away) {
        const Peer& peer = *peers_[static_cast<std::size_t>((first + (step * away) + (2 * count)) % count)];
        if (isStop(peer)) {
            SetFocus(peer.window());
            return;
        }
    }
    SetFocus(handle());
}

bool ContainerWindow::moveFocus(const Peer& from, bool back, bool round) const noexcept {
    const auto count = static_cast<std::ptrdiff_t>(peers_.size());
    auto at = static_cast<std::ptrdiff_t>(positionOf(from));
    for (std::ptrdiff_t looked = 1; looked < count; ++looked) {
        at += back ? -1 : +1;
        if (at < 0 || at >= count) {
            if (!round) {
                return false;
            }
            at = back ? count - 1 : 0;
        }
        const Peer& peer = *peers_[static_cast<std::size_t>(at)];
        if (isStop(peer)) {
            SetFocus(peer.window());
            return true;
        }
    }
    return false;
}

void ContainerWindow::focusInside() {
    const PeerPointer last = last_.lock();
    if (last && canFocus(*last)) {
        SetFocus(last->window());
    } else if (std::ranges::any_of(peers_, [](const PeerPointer& peer) { return isStop(*peer); })) {
        focusNear(last ? positionOf(*last) : 0, +1);
    }
}

void ContainerWindow::giveFocus(Peer& peer) noexcept {
    if (IsWindowVisible(handle()) != FALSE) {
        SetFocus(peer.window());
    } else {
        last_ = pointerTo(peer);
    }
}

ContainerWindow::PeerPointer ContainerWindow::focusFallback() const noexcept {
    const ui::Widget* const widget = container_ != nullptr ? container_->focusFallback() : nullptr;
    const auto found =
        std::ranges::find_if(peers_, [widget](const PeerPointer& peer) { return peer->widget() == widget; });
    return widget != nullptr && found != peers_.end() ? *found : nullptr;
}

void ContainerWindow::passFocusOn(Peer& peer) noexcept {
    const HWND focus = GetFocus();
    if (focus == nullptr || (focus != peer.window() && IsChild(peer.window(), focus) == FALSE)) {
        return;
    }
    const PeerPointer fallback = focusFallback();
    if (fallback && fallback.get() != &peer && canFocus(*fallback)) {
        SetFocus(fallback->window());
    } else if (!moveFocus(peer, false, true)) {
        SetFocus(handle());
    }
}

void ContainerWindow::focusGained(Peer& peer) {
    const PeerPointer gaining = pointerTo(peer);
    const PeerPointer before = current_.lock();
    const bool returns = std::exchange(elsewhere_, false);
    if (gaining && gaining == before && returns) {
        queueFocus(gaining, Move::Returned);
    }
    if (!gaining || gaining == before) {
        return;
    }
    current_ = gaining;
    last_ = gaining;
    if (before) {
        queueFocus(before, Move::Lost);
    }
    queueFocus(gaining, Move::Gained);
    focusMoved();
    if (!before) {
        focusCame();
    }
}

void ContainerWindow::focusLost(Peer& peer, HWND to) {
    // A message box or another program takes the focus for a while; no field is left by that. Between two children the
    // gaining one tells.
    const bool elsewhere = to == nullptr || GetAncestor(to, GA_ROOT) != GetAncestor(handle(), GA_ROOT);
    if (current_.lock().get() != &peer) {
        return;
    }
    elsewhere_ = elsewhere;
    if (elsewhere || to == handle() || IsChild(handle(), to) != FALSE) {
        return;
    }
    queueFocus(current_.lock(), Move::Lost);
    current_.reset();
    focusWent();
}

void ContainerWindow::queueFocus(const PeerPointer& peer, Move move) {
    // A click into one field of a window that is not in front gives the focus to the former field first, and at once
    // takes it away: to the user it never came back there.
    if (move == Move::Lost && !moves_.empty() && moves_.back().move == Move::Returned) {
        moves_.back() = {.peer = peer, .move = move};
        return;
    }
    moves_.push_back({.peer = peer, .move = move});
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
            tell(*widget, move.move);
        }
    }
}

void ContainerWindow::tell(ui::Widget& widget, Move move) {
    switch (move) {
    case Move::Gained:
        widget.GotFocus();
        return;
    case Move::Lost:
        widget.LostFocus();
        return;
    case Move::Returned:
        widget.FocusReturned();
        return;
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
    if (handle() != nullptr) {
        focusSettled();
    }
}

// ---- access keys

// A label's or a frame's key belongs to what follows it; of several at one place, to the one that is shown.
ContainerWindow::PeerPointer ContainerWindow::accessTarget(std::size_t position) const noexcept {
    const auto passedOver = [](const Peer& peer) {
        return !peer.takesFocus() || peer.widget() == nullptr || !peer.widget()->isShown();
    };
    while (position < peers_.size() && passedOver(*peers_[position])) {
        ++position;
    }
    return position < peers_.size() && canFocus(*peers_[position]) ? peers_[position] : nullptr;
}

bool ContainerWindow::pressAccessKey(wchar_t character) {
    const auto alive = shared_from_this();
    const PeerPointer focused = peerOf(GetFocus());
    const std::size_t first = focused ? positionOf(*focused) + 1 : 0;
    for (std::size_t away = 0; away < peers_.size(); ++away) {
        const std::size_t position = (first + away) % peers_.size();
        const ui::Widget* const widget = peers_[position]->widget();
        if (widget != nullptr && widget->isShown() && hasAccessKey(widget->caption(), character)) {
            if (const PeerPointer target = accessTarget(position)) {
                target->accessKey();
                return true;
            }
        }
    }
    return false;
}

}  // namespace telvar::win32
