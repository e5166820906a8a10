// The peers of what is only looked at: labels and frames.
#include "ui/frame.h"
#include "ui/label.h"

#include "win32/control_peer.h"
#include "win32/peers.h"

namespace telvar::win32 {

namespace {

// Newer than the headers' default target.
constexpr DWORD liveRegionChanged = 0x8019;

class StillPeer final : public ControlPeer {
public:
    StillPeer(ui::Widget& widget, PeerHost& host, const Control& control) noexcept
        : ControlPeer(widget, host), control_(control) {}

    [[nodiscard]] bool takesFocus() const noexcept override { return false; }
    [[nodiscard]] bool takesKey(const ui::KeyEvent& event) const noexcept override {
        static_cast<void>(event);
        return false;
    }

    // Broken between words, or one line that is cut off where its room ends.
    static Control labelControl(bool wraps) noexcept {
        return {.className = L"STATIC", .style = static_cast<DWORD>(wraps ? SS_LEFT : SS_LEFTNOWORDWRAP)};
    }
    // Paints its border only; transparent, so that the window around it paints what lies inside.
    static Control frameControl() noexcept {
        return {.className = L"BUTTON", .style = BS_GROUPBOX, .extendedStyle = WS_EX_TRANSPARENT};
    }

protected:
    [[nodiscard]] Control control() const noexcept override { return control_; }
    void showAspect(ui::Aspect changed) override {
        if (changed == ui::Aspect::Announcement) {
            NotifyWinEvent(liveRegionChanged, window(), OBJID_CLIENT, CHILDID_SELF);
        }
    }
    void userDid(unsigned code) override { static_cast<void>(code); }

private:
    Control control_;
};

}  // namespace

std::shared_ptr<ControlPeer> makeLabelPeer(ui::Label& label, PeerHost& host) {
    return std::make_shared<StillPeer>(label, host, StillPeer::labelControl(label.wraps()));
}

std::shared_ptr<ControlPeer> makeFramePeer(ui::Frame& frame, PeerHost& host) {
    return std::make_shared<StillPeer>(frame, host, StillPeer::frameControl());
}

}  // namespace telvar::win32
