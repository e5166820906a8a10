#include "win32/peers.h"

#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/frame.h"
#include "ui/grid.h"
#include "ui/label.h"
#include "ui/option_button.h"
#include "ui/slider.h"
#include "ui/text_box.h"
#include "win32/control_peer.h"
#include "win32/grid_window.h"

namespace telvar::win32 {

namespace {

std::shared_ptr<ControlPeer> makeControlPeer(ui::Widget& widget, PeerHost& host) {
    if (auto* const box = dynamic_cast<ui::TextBox*>(&widget)) {
        return makeTextBoxPeer(*box, host);
    }
    if (auto* const button = dynamic_cast<ui::Button*>(&widget)) {
        return makeButtonPeer(*button, host);
    }
    if (auto* const check = dynamic_cast<ui::CheckBox*>(&widget)) {
        return makeCheckBoxPeer(*check, host);
    }
    if (auto* const option = dynamic_cast<ui::OptionButton*>(&widget)) {
        return makeOptionButtonPeer(*option, host);
    }
    if (auto* const combo = dynamic_cast<ui::ComboBox*>(&widget)) {
        return makeComboBoxPeer(*combo, host);
    }
    if (auto* const slider = dynamic_cast<ui::Slider*>(&widget)) {
        return makeSliderPeer(*slider, host);
    }
    if (auto* const label = dynamic_cast<ui::Label*>(&widget)) {
        return makeLabelPeer(*label, host);
    }
    if (auto* const frame = dynamic_cast<ui::Frame*>(&widget)) {
        return makeFramePeer(*frame, host);
    }
    return nullptr;
}

}  // namespace

std::shared_ptr<Peer> makePeer(ui::Widget& widget, PeerHost& host, HWND parent,
                               const std::shared_ptr<const FormFont>& font) {
    if (auto* const grid = dynamic_cast<ui::Grid*>(&widget)) {
        auto window = std::make_shared<GridWindow>(*grid, host);
        window->open(parent, font);
        return window;
    }
    auto peer = makeControlPeer(widget, host);
    if (peer) {
        peer->open(parent);
        peer->setFont(font);
    }
    return peer;
}

}  // namespace telvar::win32
