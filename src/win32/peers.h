// Makes the peer for a widget: one of the system's controls, or the grid window.
#pragma once

#include <windows.h>

#include <memory>

#include "win32/peer.h"

namespace telvar::ui {
class Button;
class CheckBox;
class ComboBox;
class Frame;
class Label;
class OptionButton;
class Slider;
class TextBox;
}  // namespace telvar::ui

namespace telvar::win32 {

class ControlPeer;

// The window stands and shows the widget. Empty for a widget of a kind that has no window. Throws base::Failure when
// the system refuses.
[[nodiscard]] std::shared_ptr<Peer> makePeer(ui::Widget& widget, PeerHost& host, HWND parent,
                                             const std::shared_ptr<const FormFont>& font);

[[nodiscard]] std::shared_ptr<ControlPeer> makeButtonPeer(ui::Button& button, PeerHost& host);
[[nodiscard]] std::shared_ptr<ControlPeer> makeCheckBoxPeer(ui::CheckBox& box, PeerHost& host);
[[nodiscard]] std::shared_ptr<ControlPeer> makeComboBoxPeer(ui::ComboBox& box, PeerHost& host);
[[nodiscard]] std::shared_ptr<ControlPeer> makeFramePeer(ui::Frame& frame, PeerHost& host);
[[nodiscard]] std::shared_ptr<ControlPeer> makeLabelPeer(ui::Label& label, PeerHost& host);
[[nodiscard]] std::shared_ptr<ControlPeer> makeOptionButtonPeer(ui::OptionButton& option, PeerHost& host);
[[nodiscard]] std::shared_ptr<ControlPeer> makeSliderPeer(ui::Slider& slider, PeerHost& host);
[[nodiscard]] std::shared_ptr<ControlPeer> makeTextBoxPeer(ui::TextBox& box, PeerHost& host);

}  // namespace telvar::win32
