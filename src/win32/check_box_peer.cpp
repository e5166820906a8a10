// The peer of a check box. The control does not check itself: what it shows is always the widget's value.
#include "ui/check_box.h"

#include "win32/control_peer.h"
#include "win32/peers.h"

namespace telvar::win32 {

namespace {

class CheckBoxPeer final : public ControlPeer {
public:
    CheckBoxPeer(ui::CheckBox& box, PeerHost& host) noexcept : ControlPeer(box, host) {}

    void accessKey() override {
        ControlPeer::accessKey();
        click();
    }

protected:
    [[nodiscard]] Control control() const noexcept override {
        return {.className = L"BUTTON", .style = WS_TABSTOP | BS_3STATE};
    }

    void showAspect(ui::Aspect changed) override {
        if (changed == ui::Aspect::Everything || changed == ui::Aspect::Value) {
            SendMessageW(window(), BM_SETCHECK, static_cast<WPARAM>(box()->value()), 0);
        }
    }

    void userDid(unsigned code) override {
        if (code == BN_CLICKED) {
            click();
        }
    }

private:
    [[nodiscard]] ui::CheckBox* box() const noexcept { return static_cast<ui::CheckBox*>(widget()); }

    void click() {
        if (settled()) {
            box()->userClick();
        }
    }
};

}  // namespace

std::shared_ptr<ControlPeer> makeCheckBoxPeer(ui::CheckBox& box, PeerHost& host) {
    return std::make_shared<CheckBoxPeer>(box, host);
}

}  // namespace telvar::win32
