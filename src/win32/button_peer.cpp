// The peer of a push button.
#include "ui/button.h"

#include "win32/control_peer.h"
#include "win32/peers.h"

namespace telvar::win32 {

namespace {

class ButtonPeer final : public ControlPeer {
public:
    ButtonPeer(ui::Button& button, PeerHost& host) noexcept : ControlPeer(button, host) {}

    [[nodiscard]] bool takesKey(const ui::KeyEvent& event) const noexcept override {
        return ControlPeer::takesKey(event) || (event.code == ui::key::enter && event.shift == ui::shift::none);
    }

    void accessKey() override {
        ControlPeer::accessKey();
        press();
    }

    void defaultMoved() noexcept override { showLook(); }

protected:
    [[nodiscard]] Control control() const noexcept override {
        return {.className = L"BUTTON", .style = WS_TABSTOP | BS_PUSHBUTTON};
    }

    void showAspect(ui::Aspect changed) override {
        if (changed == ui::Aspect::Everything || changed == ui::Aspect::Value) {
            showLook();
        }
    }

    void userDid(unsigned code) override {
        if (code == BN_CLICKED) {
            press();
        }
    }

    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override {
        const LRESULT result = ControlPeer::message(message, wParam, lParam);
        if (message == WM_KEYDOWN && wParam == VK_RETURN) {
            press();
        }
        return result;
    }

private:
    [[nodiscard]] ui::Button* button() const noexcept { return static_cast<ui::Button*>(widget()); }

    void showLook() const noexcept {
        if (button() == nullptr) {
            return;
        }
        const LONG look = host().looksDefault(*button()) ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        if ((GetWindowLongW(window(), GWL_STYLE) & BS_TYPEMASK) != look) {
            SendMessageW(window(), BM_SETSTYLE, static_cast<WPARAM>(look), TRUE);
        }
    }

    void press() {
        if (button() != nullptr) {
            button()->userPress([this] { return settled(); });
        }
    }
};

}  // namespace

std::shared_ptr<ControlPeer> makeButtonPeer(ui::Button& button, PeerHost& host) {
    return std::make_shared<ButtonPeer>(button, host);
}

}  // namespace telvar::win32
