// What the system sends to the main window: size, focus, closing.
#include "host/shell/main_window.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "host/shell/dialogs.h"
#include "host/shell/main_window_scopes.h"
#include "host/shell/resource.h"
#include "host/shell/window_placement.h"
#include "win/scaling.h"

namespace telvar::host {

namespace {

// Smallest window, in pixels at 96 dpi.
constexpr int smallestWidth = 480;
constexpr int smallestHeight = 320;

}  // namespace

LRESULT CALLBACK MainWindow::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_NCCREATE) {
        auto* owner = static_cast<MainWindow*>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams);
        owner->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(owner));
    }
    auto* owner = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (owner == nullptr) {
        return DefWindowProcW(window, message, wparam, lparam);
    }
    try {
        return owner->handle(message, wparam, lparam);
    } catch (...) {
        // Out of memory: the message is lost, the program goes on.
        return 0;
    }
}

LRESULT MainWindow::handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
    case WM_SIZE:
        layout();
        return 0;
    case WM_DPICHANGED:
        moveToDpi(*reinterpret_cast<const RECT*>(lparam));
        return 0;
    case WM_GETMINMAXINFO: {
        const int dpi = win::dpiOf(window_);
        reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {win::scaled(smallestWidth, dpi),
                                                                 win::scaled(smallestHeight, dpi)};
        return 0;
    }
    case WM_COMMAND:
        run(LOWORD(wparam));
        return 0;
    case WM_INITMENUPOPUP:
        showMenu(reinterpret_cast<HMENU>(wparam));
        return 0;
    case WM_MENUSELECT:
        showHint(wparam, lparam);
        return 0;
    case loginMessage:
        answerLogin();
        return 0;
    case WM_DROPFILES:
        openDropped(reinterpret_cast<HDROP>(wparam));
        return 0;
    case exchangeMessage:
        answerExchange();
        return 0;
    case printMessage:
        answerPrint();
        return 0;
    case WM_TIMER:
        tick(wparam);
        return 0;
    case WM_SETCURSOR:
        if (hourglass_ && LOWORD(lparam) == HTCLIENT) {
            SetCursor(LoadCursorW(nullptr, IDC_WAIT));
            return TRUE;
        }
        break;
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
        if (control_) {
            control_->ambientsChanged();
        }
        break;
    case WM_QUERYENDSESSION:
        return mayDiscard() ? TRUE : FALSE;
    case WM_ENDSESSION:
        if (wparam != FALSE) {
            DestroyWindow(window_);
        }
        return 0;
    case WM_CLOSE:
        closeByUser();
        return 0;
    case WM_DESTROY:
        savePlacement(settings_, window_);
        closeComponents();
        PostQuitMessage(0);
        return 0;
    case WM_NCDESTROY:
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
        return DefWindowProcW(std::exchange(window_, nullptr), message, wparam, lparam);
    default:
        if (handleFocus(message, wparam)) {
            return 0;
        }
        break;
    }
    return DefWindowProcW(window_, message, wparam, lparam);
}

void MainWindow::tick(UINT_PTR timer) {
    if (timer == pollTimer) {
        radio_.poll(document_ && document_->commsBusy());
        return;
    }
    refreshState();
    answerLogin();
    answerExchange();
    answerPrint();
}

void MainWindow::closeByUser() {
    // A modal window of the control still needs this one.
    if (modal_ > 0 || (calls_ > 0 && !preparing_) || !windowEnabled_) {
        MessageBeep(MB_ICONWARNING);
        SetForegroundWindow(GetLastActivePopup(window_));
    } else if (mayLeaveRadio() && mayDiscard()) {
        DestroyWindow(window_);
    }
}

bool MainWindow::handleFocus(UINT message, WPARAM wparam) {
    if (message == WM_SETFOCUS) {
        restoreFocus();
        return true;
    }
    if (message == WM_ACTIVATE) {
        const bool active = LOWORD(wparam) != WA_INACTIVE;
        if (!active) {
            saveFocus();
        } else if (HIWORD(wparam) == 0) {
            // After a message box nobody else gives the focus back to the control's child.
            restoreFocus();
        }
        if (control_) {
            control_->windowActivated(active);
        }
        return true;
    }
    return false;
}

void MainWindow::saveFocus() {
    const HWND focus = GetFocus();
    if (focus != nullptr && IsChild(window_, focus)) {
        focused_ = focus;
    }
}

void MainWindow::restoreFocus() {
    if (focused_ != nullptr && IsChild(window_, focused_) && IsWindowVisible(focused_) && IsWindowEnabled(focused_)) {
        SetFocus(focused_);
    } else if (control_) {
        control_->takeFocus();
    }
}

void MainWindow::layout() {
    statusBar_.layout();
    if (control_ && !IsIconic(window_)) {
        control_->move();
    }
}

RECT MainWindow::sitePlace() const {
    RECT place{};
    GetClientRect(window_, &place);
    place.bottom = std::max<LONG>(place.bottom - statusBar_.height(), 0);
    return place;
}

void MainWindow::moveToDpi(const RECT& suggested) {
    SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    layout();
    if (control_) {
        control_->ambientsChanged();
    }
}

bool MainWindow::translate(MSG& message) {
    if (control_ && control_->translate(message)) {
        return true;
    }
    if (window_ == nullptr || (message.hwnd != window_ && !IsChild(window_, message.hwnd))) {
        return false;
    }
    // The dialog manager moves the focus with Tab.
    return TranslateAcceleratorW(window_, accelerators_, &message) != 0 || IsDialogMessageW(window_, &message);
}

}  // namespace telvar::host
