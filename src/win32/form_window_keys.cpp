// The keys of a form, as dialogs have them.
#include <algorithm>

#include "win32/form_window.h"

namespace telvar::win32 {

namespace {

[[nodiscard]] constexpr bool isModifier(int code) noexcept {
    return code == ui::key::shift || code == ui::key::control || code == ui::key::alt || code == ui::key::capsLock;
}

}  // namespace

void FormWindow::takeKey(MSG& message) {
    taken_.push_back({.number = ++lastNumber_, .message = message});
    message.hwnd = handle();
    message.message = keyTaken;
    message.wParam = lastNumber_;
    message.lParam = 0;
}

// A loop that took an earlier key out did not dispatch it.
void FormWindow::deliver(WPARAM number) {
    while (!taken_.empty() && taken_.front().number != number) {
        taken_.pop_front();
    }
    if (taken_.empty()) {
        return;
    }
    MSG message = taken_.front().message;
    taken_.pop_front();
    if (!translate(message) && !usedByHost(message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

// Answers whether the key is done.
bool FormWindow::translate(const MSG& message) {
    const auto alive = shared_from_this();
    const PeerPointer focused = peerOf(message.hwnd);
    switch (message.message) {
    case WM_KEYDOWN:
        return navigate(static_cast<int>(message.wParam), focused);
    case WM_CHAR:
        return typed(static_cast<wchar_t>(message.wParam), focused);
    case WM_SYSCHAR:
        return pressAccessKey(static_cast<wchar_t>(message.wParam));
    default:
        return false;
    }
}

// Beside the table that it edits the form is a part of the host's program: what no field uses, and no character can
// come of, works as it does in the host's window.
bool FormWindow::usedByHost(MSG& message) {
    if (isModal() || message.message != WM_KEYDOWN || handle() == nullptr) {
        return false;
    }
    const ui::KeyEvent event{.code = static_cast<int>(message.wParam), .shift = shiftState()};
    const bool function = event.code >= VK_F1 && event.code <= VK_F24 && (event.shift & ui::shift::alt) == 0;
    // With Alt as well it is AltGr, which types.
    const bool shortcut =
        (event.shift & ui::shift::control) != 0 && (event.shift & ui::shift::alt) == 0 && !isModifier(event.code);
    const PeerPointer focused = peerOf(message.hwnd);
    if ((!function && !shortcut) || (focused && focused->takesKey(event))) {
        return false;
    }
    const auto alive = shared_from_this();
    settleFocus();
    return handle() != nullptr && desktop().offerToHost(message);
}

bool FormWindow::navigate(int code, const PeerPointer& focused) {
    const ui::KeyEvent event{.code = code, .shift = shiftState()};
    if (focused && focused->takesKey(event)) {
        return false;
    }
    const bool withControl = (event.shift & ui::shift::control) != 0;
    switch (code) {
    case ui::key::tab:
        return !withControl && tab(focused, (event.shift & ui::shift::shift) != 0);
    case ui::key::enter:
        return !withControl && press(buttonThat(&ui::Button::isDefault));
    case ui::key::escape:
        if (!press(buttonThat(&ui::Button::isCancel))) {
            closedByUser();
        }
        return true;
    default:
        return false;
    }
}

bool FormWindow::tab(const PeerPointer& focused, bool back) {
    if (focused) {
        moveFocus(*focused, back, true);
    } else {
        back ? focusLast() : focusFirst();
    }
    return true;
}

bool FormWindow::typed(wchar_t character, const PeerPointer& focused) {
    const bool types = focused && focused->takesCharacters();
    return !types && character > L' ' && pressAccessKey(character);
}

ui::Button* FormWindow::buttonThat(bool (ui::Button::*does)() const noexcept) const noexcept {
    for (const PeerPointer& peer : peers()) {
        auto* const button = dynamic_cast<ui::Button*>(peer->widget());
        if (button != nullptr && (button->*does)() && button->isUsable() && button->isShown()) {
            return button;
        }
    }
    return nullptr;
}

// Answers whether there is such a button.
bool FormWindow::press(ui::Button* button) {
    if (button == nullptr) {
        return false;
    }
    const auto stillThere = [this, button] {
        return std::ranges::any_of(peers(), [button](const PeerPointer& peer) { return peer->widget() == button; });
    };
    button->userPress([&] {
        settleFocus();
        return stillThere();
    });
    return true;
}

}  // namespace telvar::win32
