// The window full of peers inside a window of a host, which looks after its own keys and asks here about each of them.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <utility>

#include "win32/container_window.h"

namespace telvar::win32 {

class EmbeddedWindow final : public ContainerWindow {
public:
    struct FocusCallbacks {
        // The keyboard focus came to a child from outside the window, or left for another window of the same program
        // window.
        std::function<void()> entered;
        std::function<void()> left;
    };

    EmbeddedWindow(WindowsDesktop& desktop, ui::Panel& panel) noexcept : ContainerWindow(desktop, panel) {}

    // Visible. Throws base::Failure when the system refuses.
    void open(HWND parent, const RECT& at);
    void setFocusCallbacks(FocusCallbacks callbacks) { callbacks_ = std::move(callbacks); }
    void setHolder(std::function<std::shared_ptr<void>()> holder) { holder_ = std::move(holder); }

    // See PanelWindow.
    bool translateAccelerator(const MSG& message);

    [[nodiscard]] std::shared_ptr<void> hold() const override { return holder_ ? holder_() : nullptr; }

protected:
    void focusCame() override;
    void focusWent() override;

private:
    bool keyDown(const MSG& message, const PeerPointer& peer);

    FocusCallbacks callbacks_;
    std::function<std::shared_ptr<void>()> holder_;
};

}  // namespace telvar::win32
