// What every widget has: name, state, bounds, focus, and the link to the peer that shows it. A widget lives happily
// without a peer; a peer may be attached and detached any number of times and shows the present state when it is
// attached.
//
// Setting a value by program raises the same event as the user's action when the value changes; the `load...` setters
// show a value and raise nothing.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "base/event.h"
#include "base/pinned.h"
#include "ui/geometry.h"
#include "ui/input.h"
#include "ui/metrics.h"

namespace telvar::ui {

enum class Aspect : std::uint8_t {
    Everything,
    Text,
    Value,
    Items,
    TextSelection,
    Enabled,
    Visible,
    Colours,
    Bounds,
    Size,          // a form wants the size of its layout
    Announcement,  // a label's text answers what the user did
};

// Shows one widget. Reads what it shows from the widget at any time; a peer must ignore the notifications that it
// caused.
class WidgetPeer : base::Pinned {
public:
    virtual ~WidgetPeer() = default;

    virtual void show(Aspect changed) noexcept = 0;
    virtual void takeFocus() noexcept = 0;
    // The widget is being destroyed; the peer must not touch it again.
    virtual void widgetEnds() noexcept = 0;
};

class Widget : base::Pinned {
public:
    explicit Widget(std::string name) : name_(std::move(name)) {}
    virtual ~Widget() {
        if (peer_ != nullptr) {
            peer_->widgetEnds();
        }
    }

    // The programmer's name, e.g. "txtChannelSelect".
    [[nodiscard]] const std::string& name() const noexcept { return name_; }

    // "&" stands before the access key; "&&" is an ampersand. Widgets without a visible caption use it as accessible
    // name.
    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }
    void setCaption(std::string caption) { change(caption_, std::move(caption), Aspect::Text); }

    // The widget's own state; a peer shows what isUsable() and isShown() say.
    [[nodiscard]] bool enabled() const noexcept { return enabled_; }
    void setEnabled(bool enabled) { change(enabled_, enabled, Aspect::Enabled); }

    [[nodiscard]] bool visible() const noexcept { return visible_; }
    void setVisible(bool visible) { change(visible_, visible, Aspect::Visible); }

    // The frame that the widget stands in, null for none. What is in a hidden frame is hidden, what is in a disabled
    // frame is disabled.
    [[nodiscard]] const Widget* frame() const noexcept { return frame_; }
    [[nodiscard]] bool isShown() const noexcept { return visible_ && (frame_ == nullptr || frame_->isShown()); }
    [[nodiscard]] bool isUsable() const noexcept { return enabled_ && (frame_ == nullptr || frame_->isUsable()); }

    [[nodiscard]] Colour foreColor() const noexcept { return foreColor_; }
    void setForeColor(Colour colour) { change(foreColor_, colour, Aspect::Colours); }

    // Pixels, relative to the client area of the window that shows it, as long as that is not scrolled.
    [[nodiscard]] const Rect& bounds() const noexcept { return bounds_; }
    void setBounds(const Rect& bounds) { change(bounds_, bounds, Aspect::Bounds); }

    // The size at which everything that the widget shows fits, in pixels.
    [[nodiscard]] virtual Size wantedSize(const Metrics& metrics) const { return {0, metrics.line()}; }

    // Moves the keyboard focus here; without a peer only the event is raised.
    void setFocus() {
        if (peer_ != nullptr) {
            peer_->takeFocus();
        } else {
            GotFocus();
        }
    }

    void attach(WidgetPeer& peer) noexcept {
        peer_ = &peer;
        peer.show(Aspect::Everything);
    }
    void detach() noexcept { peer_ = nullptr; }
    [[nodiscard]] bool attached() const noexcept { return peer_ != nullptr; }

    base::Event<> GotFocus;
    base::Event<> LostFocus;
    // The focus is here again after a message box or another window had it. That was no leaving: neither LostFocus nor
    // GotFocus is raised for it, and what the user has selected stays.
    base::Event<> FocusReturned;
    base::Event<KeyEvent&> KeyDown;
    base::Event<KeyPressEvent&> KeyPress;

protected:
    template <class T>
    bool change(T& member, T value, Aspect aspect) {
        if (member == value) {
            return false;
        }
        member = std::move(value);
        shown(aspect);
        return true;
    }
    virtual void shown(Aspect aspect) const noexcept {
        if (peer_ != nullptr) {
            peer_->show(aspect);
        }
    }
    [[nodiscard]] WidgetPeer* peer() const noexcept { return peer_; }

private:
    friend class Frame;  // which sets frame_

    std::string name_;
    std::string caption_;
    Rect bounds_;
    WidgetPeer* peer_ = nullptr;
    const Widget* frame_ = nullptr;
    Colour foreColor_ = windowText;
    bool enabled_ = true;
    bool visible_ = true;
};

// Connects an event to a member function of `owner`, which must not be outlived by the event's widget.
template <class Owner, class... Arguments>
void on(base::Event<Arguments...>& event, Owner* owner, void (Owner::*handler)(Arguments...)) {
    event.connect([owner, handler](Arguments... arguments) { (owner->*handler)(arguments...); });
}

}  // namespace telvar::ui
