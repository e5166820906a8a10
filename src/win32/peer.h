// What a window full of widgets asks of each of its children, and what a child asks of that window.
#pragma once

#include <windows.h>

#include <memory>

#include "base/pinned.h"
#include "ui/button.h"
#include "ui/input.h"
#include "ui/widget.h"

namespace telvar::win32 {

class FormFont;
class WindowsDesktop;

// A child window that shows one widget.
class Peer : private base::Pinned {
public:
    virtual ~Peer() = default;

    [[nodiscard]] virtual HWND window() const noexcept = 0;
    // Null once the widget has ended.
    [[nodiscard]] virtual ui::Widget* widget() const noexcept = 0;
    // Leaves the widget without a peer; the window may still stand for a moment.
    virtual void detach() noexcept = 0;

    virtual void setFont(const std::shared_ptr<const FormFont>& font) = 0;
    // Whether Tab may stop here while the widget is enabled and visible.
    [[nodiscard]] virtual bool takesFocus() const noexcept { return true; }
    // Of a group of options Tab stops only at the chosen one.
    [[nodiscard]] virtual bool tabStop() const noexcept { return takesFocus(); }
    // Whether the window uses that key itself, so that no accelerator of the host may have it.
    [[nodiscard]] virtual bool takesKey(const ui::KeyEvent& event) const noexcept = 0;
    // Whether characters are typed into it, so that none of them is an access key by itself.
    [[nodiscard]] virtual bool takesCharacters() const noexcept { return false; }
    // The host gets a key that the window does not take: what must happen before.
    virtual void keyPassedOn(const MSG& message) = 0;
    // Its access key was pressed: takes the focus, and acts where the user expects that.
    virtual void accessKey() = 0;
    // The focus moved on the same window, and with it the look of a button that Enter presses.
    virtual void defaultMoved() noexcept {}
    // A notification (BN_..., EN_..., CBN_..., TB_...) that the system sent to the window around.
    virtual void notified(unsigned code) = 0;
    // The system asks for the colours of a control; null leaves them to the window around.
    [[nodiscard]] virtual HBRUSH background(HDC dc) const = 0;
};

class PeerHost : private base::Pinned {
public:
    // By the window procedure of a child, with the window on the other side of the move.
    virtual void focusGained(Peer& peer) = 0;
    virtual void focusLost(Peer& peer, HWND to) = 0;
    // The program wants the focus there; at once, or when the window appears.
    virtual void giveFocus(Peer& peer) noexcept = 0;
    // The widget is no longer one to have the focus, which the system would leave there.
    virtual void passFocusOn(Peer& peer) noexcept = 0;
    // Whether Enter presses that button now.
    [[nodiscard]] virtual bool looksDefault(const ui::Button& button) const noexcept = 0;
    // The point of the widgets' surface at the upper left corner of the window.
    [[nodiscard]] virtual ui::Point scrolled() const noexcept { return {}; }
    // Raises what moves of the focus left to be raised. Comes before every click and key: leaving a field may show a
    // message box, which inside the system's focus change would swallow the click that caused it.
    virtual void settleFocus() = 0;
    [[nodiscard]] virtual WindowsDesktop& desktop() const noexcept = 0;
    // Keeps the owner of the widgets alive while a message is being handled; may be empty.
    [[nodiscard]] virtual std::shared_ptr<void> hold() const = 0;

protected:
    ~PeerHost() = default;
};

// State of Shift, Control and Alt at the message that is being handled.
[[nodiscard]] unsigned shiftState() noexcept;

}  // namespace telvar::win32
