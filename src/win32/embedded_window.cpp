#include "win32/embedded_window.h"
#include "win32/window_kinds.h"

#include "win/scaling.h"

namespace telvar::win32 {

void EmbeddedWindow::open(HWND parent, const RECT& at) {
    create(panelKind, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, at, parent);
    useFont(win::dpiOf(handle()));
    fill();
    ShowWindow(handle(), SW_SHOWNA);
}

void EmbeddedWindow::focusCame() {
    if (const auto entered = callbacks_.entered) {
        entered();
    }
}

void EmbeddedWindow::focusWent() {
    if (const auto left = callbacks_.left) {
        left();
    }
}

bool EmbeddedWindow::translateAccelerator(const MSG& message) {
    const auto alive = shared_from_this();
    const PeerPointer peer = peerOf(message.hwnd);
    if (!peer) {
        return false;
    }
    switch (message.message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return keyDown(message, peer);
    case WM_CHAR:
        // As the keys that they come of.
        if (message.wParam == VK_TAB || message.wParam == VK_ESCAPE ||
            (message.wParam == VK_RETURN && !peer->takesKey({.code = ui::key::enter}))) {
            return false;
        }
        DispatchMessageW(&message);
        return true;
    case WM_SYSCHAR:
        return pressAccessKey(static_cast<wchar_t>(message.wParam));
    default:
        return false;
    }
}

bool EmbeddedWindow::keyDown(const MSG& message, const PeerPointer& peer) {
    const ui::KeyEvent event{.code = static_cast<int>(message.wParam), .shift = shiftState()};
    if (peer->takesKey(event)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
        return true;
    }
    peer->keyPassedOn(message);
    const bool tab = event.code == ui::key::tab && (event.shift & (ui::shift::control | ui::shift::alt)) == 0;
    return tab && moveFocus(*peer, (event.shift & ui::shift::shift) != 0, false);
}

}  // namespace telvar::win32
