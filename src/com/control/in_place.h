// In-place activation: the panel's window inside the host's, and the conversation with the host's site and frame about
// it. Anything may happen inside each of their calls; every step looks again at what is left.
#pragma once

#include <functional>
#include <memory>

#include "base/pinned.h"
#include "com/kit/automation.h"
#include "com/kit/pointer.h"
#include "win32/panel_window.h"
#include "win32/windows_desktop.h"

namespace telvar::com {

class InPlace : private base::Pinned {
public:
    // What the control wants to hear of.
    struct Listener {
        std::function<void()> focusEntered;
        std::function<void()> focusLeft;
        std::function<std::shared_ptr<void>()> holder;
    };

    InPlace(win32::WindowsDesktop& desktop, ui::Panel& panel) noexcept : desktop_(desktop), panel_(panel) {}
    ~InPlace() { deactivate(); }
    void listen(Listener listener) { listener_ = std::move(listener); }

    [[nodiscard]] bool active() const noexcept { return window_ != nullptr; }
    // Null while inactive, and once the host has destroyed it with its own window.
    [[nodiscard]] HWND window() const noexcept { return window_ ? window_->hwnd() : nullptr; }
    // Null while inactive. Borrowed: it may end inside any of its calls.
    [[nodiscard]] win32::PanelWindow* panelWindow() const noexcept { return window_.get(); }

    // At `position` in the host's window, else where the host's context says. Nothing when it is active already.
    void activate(IOleClientSite& client, const RECT* position);
    void deactivate() noexcept;
    // `object` becomes the host's active object.
    void uiActivate(IOleInPlaceActiveObject& object) noexcept;
    void uiDeactivate() noexcept;

    void move(const RECT& position, const RECT* clip);
    void show(bool visible) noexcept;
    void enable(bool enabled) noexcept;
    // Tells the host's frame that something modal begins (False) or has ended.
    void enableModeless(bool enable) const noexcept;

private:
    struct Context {
        RECT position{};
        RECT clip{};
    };

    [[nodiscard]] Context askContext(IOleInPlaceSite& site);
    void open(IOleInPlaceSite& site, const RECT* position);

    win32::WindowsDesktop& desktop_;
    ui::Panel& panel_;
    Listener listener_;
    ComPointer<IOleInPlaceSite> site_;
    ComPointer<IOleInPlaceFrame> frame_;
    ComPointer<IOleInPlaceUIWindow> document_;
    std::unique_ptr<win32::PanelWindow> window_;
    bool uiActive_ = false;
    bool enabled_ = true;
};

}  // namespace telvar::com
