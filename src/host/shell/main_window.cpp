// What the system sends to the main window: size, focus, closing.
#include "host/shell/main_window.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <utility>

#include "host/shell/menu_bar.h"
#include "host/shell/window_placement.h"
#include "win/scaling.h"
#include "win/text.h"

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
    case goOnMessage:
        desk_->goOn();
        return 0;
    case WM_DROPFILES:
        openDropped(reinterpret_cast<HDROP>(wparam));
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
        return !desk_ || desk_->mayEndSession() ? TRUE : FALSE;
    case WM_ENDSESSION:
        if (wparam != FALSE) {
            DestroyWindow(window_);
        }
        return 0;
    case WM_CLOSE:
        if (!desk_ || desk_->mayClose()) {
            DestroyWindow(window_);
        }
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
        if (handleFocus(message, wparam) || handleCommand(message, wparam, lparam)) {
            return 0;
        }
        break;
    }
    return DefWindowProcW(window_, message, wparam, lparam);
}

// The desk is there once the window is.
bool MainWindow::handleCommand(UINT message, WPARAM wparam, LPARAM lparam) {
    if (!desk_) {
        return false;
    }
    switch (message) {
    case WM_COMMAND:
        desk_->run(static_cast<desk::Command>(LOWORD(wparam)));
        return true;
    case WM_INITMENUPOPUP:
        showMenu(reinterpret_cast<HMENU>(wparam), *desk_);
        return true;
    case WM_MENUSELECT:
        showHint(wparam, lparam);
        return true;
    default:
        return false;
    }
}

void MainWindow::tick(UINT_PTR timer) {
    if (!desk_) {
        return;
    }
    if (timer == pollTimer) {
        desk_->poll();
    } else {
        desk_->goOn();
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

void MainWindow::openDropped(HDROP files) {
    std::wstring path(DragQueryFileW(files, 0, nullptr, 0), L'\0');
    DragQueryFileW(files, 0, path.data(), static_cast<UINT>(path.size() + 1));
    DragFinish(files);
    if (desk_) {
        desk_->openDropped(win::narrow(path));
    }
}

// A menu that closes says so with no menu and all flags set.
void MainWindow::showHint(WPARAM wparam, LPARAM lparam) {
    const UINT flags = HIWORD(wparam);
    if (flags == 0xFFFF && lparam == 0) {
        statusBar_.endHint();
    } else if ((flags & (MF_POPUP | MF_SEPARATOR | MF_SYSMENU)) != 0) {
        statusBar_.showHint({});
    } else {
        statusBar_.showHint(hintOf(static_cast<desk::Command>(LOWORD(wparam)), *desk_));
    }
}

void MainWindow::refreshState() {
    if (desk_) {
        desk_->refreshState();
    }
}

void MainWindow::showStatus(const std::wstring& text) { statusBar_.setMessage(win::narrow(text)); }

void MainWindow::enableWindow(bool enabled) {
    if (desk_) {
        desk_->windowEnabled(enabled);
    }
}

void MainWindow::setTitle(const std::string& title) {
    const std::wstring wanted = win::wide(title);
    std::wstring shown(static_cast<std::size_t>(GetWindowTextLengthW(window_)) + 1, L'\0');
    shown.resize(static_cast<std::size_t>(GetWindowTextW(window_, shown.data(), static_cast<int>(shown.size()))));
    if (shown != wanted) {
        SetWindowTextW(window_, wanted.c_str());
    }
}

void MainWindow::setHourglass(bool hourglass) {
    hourglass_ = hourglass;
    SetCursor(LoadCursorW(nullptr, hourglass ? IDC_WAIT : IDC_ARROW));
}

void MainWindow::beginModal() {
    activeBefore_.push_back(GetActiveWindow());
    saveFocus();
    if (control_) {
        control_->enableModeless(false);
    }
}

void MainWindow::endModal() {
    if (control_) {
        control_->enableModeless(true);
    }
    const HWND before = activeBefore_.back();
    activeBefore_.pop_back();
    // The user goes on where the question came from, such as the control's edit form, not in the window below it.
    if (before != window_ && IsWindowVisible(before) != FALSE && IsWindowEnabled(before) != FALSE) {
        SetActiveWindow(before);
    }
}

void MainWindow::showModal() {
    MessageBeep(MB_ICONWARNING);
    SetForegroundWindow(GetLastActivePopup(window_));
}

bool MainWindow::textBoxHasFocus() const {
    std::array<wchar_t, 16> name{};
    GetClassNameW(GetFocus(), name.data(), static_cast<int>(name.size()));
    return CompareStringOrdinal(name.data(), -1, WC_EDITW, -1, TRUE) == CSTR_EQUAL;
}

void MainWindow::editText(desk::EditAction action) {
    const HWND box = GetFocus();
    switch (action) {
    case desk::EditAction::Undo:
    case desk::EditAction::Redo:
        // A text box has one step back, which is its step forward as well.
        SendMessageW(box, WM_UNDO, 0, 0);
        break;
    case desk::EditAction::Copy:
        SendMessageW(box, WM_COPY, 0, 0);
        break;
    case desk::EditAction::Paste:
        SendMessageW(box, WM_PASTE, 0, 0);
        break;
    case desk::EditAction::Delete:
        SendMessageW(box, WM_CLEAR, 0, 0);
        break;
    case desk::EditAction::SelectAll:
        SendMessageW(box, EM_SETSEL, 0, -1);
        break;
    }
}

}  // namespace telvar::host
