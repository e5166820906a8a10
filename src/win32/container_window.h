// A window full of peers: makes one for every widget of a container, hands the window's size to the container, and
// looks after focus, access keys and colours. It is destroyed safely from inside any callback. Whether it is a child
// window or one of its own is the business of the classes made of it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "ui/form.h"
#include "win/window.h"
#include "win32/peer.h"
#include "win32/windows_desktop.h"

namespace telvar::win32 {

class ContainerWindow : public win::Window, public PeerHost, public ui::WidgetPeer {
public:
    ~ContainerWindow() override;

    // Acts on the widget that has that access key; of several the next one after the focus.
    bool pressAccessKey(wchar_t character);
    // For somebody who comes in by Tab or by Shift+Tab.
    void focusFirst() { focusNear(0, +1); }
    void focusLast() { focusNear(peers_.size(), -1); }
    [[nodiscard]] bool hasFocus() const noexcept;

    // ---- PeerHost
    void focusGained(Peer& peer) override;
    void focusLost(Peer& peer, HWND to) override;
    void giveFocus(Peer& peer) noexcept override;
    void passFocusOn(Peer& peer) noexcept override;
    [[nodiscard]] bool looksDefault(const ui::Button& button) const noexcept override { return button.isDefault(); }
    void settleFocus() override;
    [[nodiscard]] WindowsDesktop& desktop() const noexcept override { return *desktop_; }

    // ---- the container's own peer
    void show(ui::Aspect changed) noexcept override;
    void takeFocus() noexcept override;
    void widgetEnds() noexcept override;

protected:
    using PeerPointer = std::shared_ptr<Peer>;

    ContainerWindow(WindowsDesktop& desktop, ui::Container& container) noexcept
        : desktop_(&desktop), container_(&container) {}

    // The window stands: gives its size to the container, then the widgets and the container their peers.
    void useFont(int dpi);
    void fill();
    // The container takes the size that the window has for it now.
    void resized();
    // The size of the container in a client area.
    [[nodiscard]] virtual ui::Size sizeIn(ui::Size client) const { return client; }
    // New dots per inch, or the user's new font.
    void changeFont(int dpi);
    [[nodiscard]] int dpi() const noexcept { return font_->dpi(); }
    // Null once the widget has ended or the window is gone.
    [[nodiscard]] ui::Container* container() const noexcept { return container_; }
    // Leaves every widget without a peer.
    virtual void release() noexcept;

    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;

    // The focus came to a child from outside, went to another window inside the same top-level window, or moved inside.
    virtual void focusCame() {}
    virtual void focusWent() {}
    virtual void focusMoved() {}
    // The widgets know who has the focus, and no mouse button is held any more.
    virtual void focusSettled() {}

    [[nodiscard]] PeerPointer peerOf(HWND window) const noexcept;
    [[nodiscard]] const std::vector<PeerPointer>& peers() const noexcept { return peers_; }
    // Has the focus as far as the widgets know, also while another program is in front.
    [[nodiscard]] PeerPointer current() const noexcept { return current_.lock(); }
    // To the next tab stop; round the ends or not. Answers whether there is one.
    bool moveFocus(const Peer& from, bool back, bool round) const noexcept;

private:
    enum class Move : std::uint8_t { Gained, Lost, Returned };
    struct FocusMove {
        std::weak_ptr<Peer> peer;
        Move move;
    };
    static constexpr UINT settleLater = WM_APP;
    static constexpr UINT_PTR settleTimer = 1;

    void makePeers();
    [[nodiscard]] PeerPointer pointerTo(const Peer& peer) const noexcept;
    [[nodiscard]] std::size_t positionOf(const Peer& peer) const noexcept;
    [[nodiscard]] PeerPointer accessTarget(std::size_t position) const noexcept;
    // To the tab stop nearest to a position, looking in that direction; else to the window.
    void focusNear(std::size_t position, int step) const noexcept;
    void focusInside();
    [[nodiscard]] PeerPointer focusFallback() const noexcept;
    void queueFocus(const PeerPointer& peer, Move move);
    static void tell(ui::Widget& widget, Move move);
    void settleWhenFree();
    LRESULT eraseBackground(HDC dc) const noexcept;

    WindowsDesktop* desktop_;
    ui::Container* container_;
    std::vector<PeerPointer> peers_;
    std::shared_ptr<const FormFont> font_;
    std::deque<FocusMove> moves_;
    std::weak_ptr<Peer> current_;
    bool elsewhere_ = false;    // another top-level window has the focus meanwhile
    std::weak_ptr<Peer> last_;  // had the focus last, or shall have it when the window appears
};

}  // namespace telvar::win32
