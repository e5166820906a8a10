// The peer of an option button. The control is not automatic, and a plain radio button reports a click when it merely
// gets the focus; that one is not the user's. The arrow keys choose the neighbour in the group.
#include "ui/option_button.h"

#include <algorithm>

#include "win32/control_peer.h"
#include "win32/peers.h"

namespace telvar::win32 {

namespace {

class OptionButtonPeer final : public ControlPeer {
public:
    OptionButtonPeer(ui::OptionButton& option, PeerHost& host) noexcept : ControlPeer(option, host) {}

    [[nodiscard]] bool tabStop() const noexcept override {
        return option() == nullptr || option()->group() == nullptr || option()->group()->tabStop() == option();
    }

    [[nodiscard]] bool takesKey(const ui::KeyEvent& event) const noexcept override {
        return ControlPeer::takesKey(event) || (arrow(event.code) && event.shift == ui::shift::none);
    }

    void accessKey() override {
        ControlPeer::accessKey();
        click();
    }

protected:
    [[nodiscard]] Control control() const noexcept override {
        return {.className = L"BUTTON", .style = WS_TABSTOP | BS_RADIOBUTTON};
    }

    void showAspect(ui::Aspect changed) override {
        if (changed == ui::Aspect::Everything || changed == ui::Aspect::Value) {
            SendMessageW(window(), BM_SETCHECK, option()->value() ? BST_CHECKED : BST_UNCHECKED, 0);
        }
    }

    void userDid(unsigned code) override {
        if (code == BN_CLICKED && !gettingFocus_) {
            click();
        }
    }

    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_GETDLGCODE) {
            return ControlPeer::message(message, wParam, lParam) | DLGC_WANTARROWS;
        }
        if (message == WM_SETFOCUS) {
            gettingFocus_ = true;
            const LRESULT result = ControlPeer::message(message, wParam, lParam);
            gettingFocus_ = false;
            return result;
        }
        const LRESULT result = ControlPeer::message(message, wParam, lParam);
        if (message == WM_KEYDOWN && arrow(static_cast<int>(wParam))) {
            chooseNeighbour(wParam == VK_LEFT || wParam == VK_UP ? -1 : +1);
        }
        return result;
    }

private:
    static bool arrow(int code) noexcept { return code >= ui::key::left && code <= ui::key::down; }
    [[nodiscard]] ui::OptionButton* option() const noexcept { return static_cast<ui::OptionButton*>(widget()); }

    void click() {
        if (settled()) {
            option()->userClick();
        }
    }

    // The next one that can be chosen, round the ends.
    void chooseNeighbour(int step) {
        if (option() == nullptr || option()->group() == nullptr) {
            return;
        }
        const auto& buttons = option()->group()->buttons();
        const auto count = static_cast<int>(buttons.size());
        const auto self = static_cast<int>(std::ranges::find(buttons, option()) - buttons.begin());
        for (int away = 1; away < count; ++away) {
            ui::OptionButton* const other =
                buttons[static_cast<std::size_t>((self + (step * away) + (count * away)) % count)];
            if (other->isUsable() && other->isShown()) {
                other->setFocus();
                if (settled()) {
                    other->userClick();
                }
                return;
            }
        }
    }

    bool gettingFocus_ = false;
};

}  // namespace

std::shared_ptr<ControlPeer> makeOptionButtonPeer(ui::OptionButton& option, PeerHost& host) {
    return std::make_shared<OptionButtonPeer>(option, host);
}

}  // namespace telvar::win32
