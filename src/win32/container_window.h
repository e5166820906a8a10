// A window full of peers: makes one for every widget of a container, hands the window's size to the container, and
// looks after focus, keys and colours. It is destroyed safely from inside any callback.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "ui/form.h"
#include "win32/peer.h"
#include "win32/window.h"
#include "win32/windows_desktop.h"

namespace telvar::win32 {

class ContainerWindow final : public Window, public PeerHost, public ui::WidgetPeer {
public:
    struct FocusCallbacks {
        // The keyboard focus came to a child from outside the window, or left for another window of the same program
        // window.
        std::function<void()> entered;
        std::function<void()> left;
    };

    ContainerWindow(WindowsDesktop& desktop, ui::Container& container) noexcept
        : desktop_(&desktop), container_(&container) {}
    ~ContainerWindow() override;

    // Visible. Throws base::Failure when the system refuses.
    void open(HWND parent, const RECT& at);
    void setFocusCallbacks(FocusCallbacks callbacks) { callbacks_ = std::move(callbacks); }
    void setHolder(std::function<std::shared_ptr<void>()> holder) { holder_ = std::move(holder); }

    // See PanelWindow.
    bool translateAccelerator(const MSG& message);
    bool pressAccessKey(wchar_t character);
    void focusFirst();
    void focusLast();
    [[nodiscard]] bool hasFocus() const noexcept;

    // ---- PeerHost
    void focusGained(Peer& peer) override;
    void focusLost(Peer& peer, HWND to) override;
    void settleFocus() override;
    [[nodiscard]] WindowsDesktop& desktop() noexcept override { return *desktop_; }
    [[nodiscard]] std::shared_ptr<void> hold() const override { return holder_ ? holder_() : nullptr; }

    // ---- the container's own peer
    void show(ui::Aspect changed) noexcept override;
    void takeFocus() noexcept override;
    void widgetEnds() noexcept override;

protected:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    using PeerPointer = std::shared_ptr<Peer>;
    struct FocusMove {
        std::weak_ptr<Peer> peer;
        bool gained;
    };
    static constexpr UINT settleLater = WM_APP;
    static constexpr UINT_PTR settleTimer = 1;

    void makePeers();
    void release() noexcept;
    void useDpi(int dpi);
    void resized();
    [[nodiscard]] PeerPointer peerOf(HWND window) const noexcept;
    [[nodiscard]] PeerPointer focusedPeer() const noexcept { return peerOf(GetFocus()); }
    [[nodiscard]] PeerPointer pointerTo(const Peer& peer) const noexcept;
    void focusInside();
    void queueFocus(const PeerPointer& peer, bool gained);
    void settleWhenFree();
    bool keyDown(const MSG& message, const PeerPointer& peer);
    bool moveFocus(const Peer& from, bool back) const;

    WindowsDesktop* desktop_;
    ui::Container* container_;
    std::vector<PeerPointer> peers_;
    std::shared_ptr<const FormFont> font_;
    std::deque<FocusMove> moves_;
    std::weak_ptr<Peer> current_;  // has the focus as far as the widgets know
    std::weak_ptr<Peer> last_;     // had it last
    FocusCallbacks callbacks_;
    std::function<std::shared_ptr<void>()> holder_;
};

}  // namespace telvar::win32
