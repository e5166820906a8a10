// A peer whose window is one of the system's own controls. Sees its messages first, raises focus and key events, and
// ignores the notifications that it causes itself.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "win32/peer.h"
#include "win32/text_colours.h"

namespace telvar::win32 {

// Must be owned by a shared_ptr.
class ControlPeer : public Peer, public ui::WidgetPeer, public std::enable_shared_from_this<ControlPeer> {
public:
    ControlPeer(ui::Widget& widget, PeerHost& host) noexcept : widget_(&widget), host_(&host) {}
    ~ControlPeer() override;

    // Makes the control, with the widget's present state, and attaches to the widget.
    void open(HWND parent);

    [[nodiscard]] HWND window() const noexcept override { return window_; }
    [[nodiscard]] ui::Widget* widget() const noexcept override { return widget_; }
    void detach() noexcept override;
    void setFont(const std::shared_ptr<const FormFont>& font) override;
    [[nodiscard]] bool takesKey(const ui::KeyEvent& event) const noexcept override;
    void keyPassedOn(const MSG& message) override;
    void accessKey() override;
    void notified(unsigned code) final;
    [[nodiscard]] HBRUSH background(HDC dc) const final;

    void show(ui::Aspect changed) noexcept final;
    void takeFocus() noexcept override;
    void widgetEnds() noexcept final;

protected:
    struct Control {
        const wchar_t* className = L"";
        DWORD style = 0;
        DWORD extendedStyle = 0;
    };
    [[nodiscard]] virtual Control control() const noexcept = 0;
    // Everything but caption, enabled, visible and bounds.
    virtual void showAspect(ui::Aspect changed) = 0;
    // A notification that the user caused. Must do nothing after it has raised an event: the peer may have lost its
    // widget.
    virtual void userDid(unsigned code) = 0;
    [[nodiscard]] virtual bool showsCaption() const noexcept { return true; }
    // What its text stands on now.
    [[nodiscard]] virtual Ground ground() const noexcept { return faceGround; }
    // On the surface that the widgets stand on.
    [[nodiscard]] virtual RECT windowBounds() const noexcept;
    // Whether the wheel turned over what the control uses it for; else it is for the window around, even where the
    // control has the focus: who wants to scroll does not want to change a value.
    [[nodiscard]] virtual bool takesWheel(POINT at) const noexcept;

    // Raises the key event that a message stands for. Answers the key or character to go on with, and nothing where the
    // widget swallowed it or the control has no use for it; any other message goes on as it is.
    [[nodiscard]] std::optional<WPARAM> raiseKey(UINT message, WPARAM wParam);
    // The body of a window procedure: `handle` gets the living peer that the window's user data names.
    template <class Handle>
    static LRESULT onPeer(HWND window, UINT message, WPARAM wParam, LPARAM lParam, Handle handle) noexcept {
        auto* const peer = reinterpret_cast<ControlPeer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        const auto alive = peer != nullptr ? peer->weak_from_this().lock() : nullptr;
        if (!alive) {
            return DefWindowProcW(window, message, wParam, lParam);
        }
        try {
            const auto held = alive->widget_ != nullptr ? alive->host_->hold() : nullptr;
            return handle(*alive);
        } catch (...) {
            return 0;
        }
    }

    // A message of the control; the default raises focus and key events around the control's own handling.
    virtual LRESULT message(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT original(UINT message, WPARAM wParam, LPARAM lParam) const noexcept;
    // Raises what moves of the focus left to be raised; answers whether the widget is still there to be acted on. The
    // host may be touched only while it is.
    [[nodiscard]] bool settled() const;
    [[nodiscard]] PeerHost& host() const noexcept { return *host_; }
    void setWindowText(const std::string& text) const;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void showAny(ui::Aspect changed);
    std::optional<WPARAM> raiseKeyDown(WPARAM code);
    std::optional<WPARAM> raiseKeyPress(WPARAM character);

    ui::Widget* widget_;
    PeerHost* host_;
    HWND window_ = nullptr;
    WNDPROC original_ = nullptr;
    int showing_ = 0;
};

}  // namespace telvar::win32
