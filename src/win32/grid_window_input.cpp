// Mouse and keyboard of the grid window. What they do to the grid is ui::GridInput's; here are focus, capture, the
// order of the messages, and scrolling on while the mouse is held outside. After every event the grid or the window may
// be gone.
#include <windowsx.h>

#include "win32/convert.h"
#include "win32/grid_window.h"
#include "win32/windows_desktop.h"

namespace telvar::win32 {

namespace {

ui::Point pointOf(LPARAM at) noexcept { return {GET_X_LPARAM(at), GET_Y_LPARAM(at)}; }

constexpr UINT dragPause = 50;  // milliseconds a row

}  // namespace

std::optional<LRESULT> GridWindow::inputMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_KEYDOWN:
        keyDown(wParam, lParam);
        return 0;
    case WM_SYSKEYDOWN:
        keyDown(wParam, lParam);
        return std::nullopt;
    case WM_CHAR:
        input_.keyPress(static_cast<int>(wParam));
        return 0;
    case WM_LBUTTONDOWN:
        pressed(ui::MouseButton::Left, lParam, false);
        return 0;
    case WM_RBUTTONDOWN:
        pressed(ui::MouseButton::Right, lParam, false);
        return 0;
    case WM_LBUTTONDBLCLK:
        pressed(ui::MouseButton::Left, lParam, true);
        return 0;
    case WM_MOUSEMOVE:
        moved(lParam);
        return 0;
    case WM_LBUTTONUP:
        released(lParam);
        return 0;
    case WM_CAPTURECHANGED:
        captureLost();
        return 0;
    case WM_TIMER:
        dragOn();
        return 0;
    case WM_MOUSEWHEEL:
        wheel(GET_WHEEL_DELTA_WPARAM(wParam), (GET_KEYSTATE_WPARAM(wParam) & MK_SHIFT) != 0);
        return 0;
    case WM_MOUSEHWHEEL:
        wheel(GET_WHEEL_DELTA_WPARAM(wParam), true);
        return TRUE;
    case WM_CONTEXTMENU:
        // The press of the right button has been reported already.
        if (lParam == -1) {
            menuKey();
        }
        return 0;
    default:
        return std::nullopt;
    }
}

// ---- keys

bool GridWindow::takesKey(const ui::KeyEvent& event) const noexcept { return ui::GridInput::takesKey(event); }

// The grid's own key-down rule comes before the host's use of a key. When the host does not use it either, the same
// message arrives here as well.
void GridWindow::keyPassedOn(const MSG& message) {
    if (grid_ != nullptr) {
        host_->settleFocus();
        passedOn_ = message;
        if (grid_ != nullptr) {
            input_.keyDown({.code = static_cast<int>(message.wParam), .shift = shiftState()}, layout());
        }
    }
}

void GridWindow::keyDown(WPARAM code, LPARAM details) {
    const auto before = std::exchange(passedOn_, std::nullopt);
    if (before && before->wParam == code && before->lParam == details &&
        before->time == static_cast<DWORD>(GetMessageTime())) {
        return;
    }
    host_->settleFocus();
    if (grid_ == nullptr) {
        return;
    }
    const ui::KeyEvent event{.code = static_cast<int>(code), .shift = shiftState()};
    input_.keyDown(event, layout());
    if (handle() != nullptr) {
        UpdateWindow(handle());
    }
}

void GridWindow::menuKey() {
    const ui::GridLayout now = layout();
    const ui::Rect cell = now.cellRect({grid_->row(), grid_->column()});
    const ui::Point at =
        cell.empty() ? ui::Point{now.columnPixels(0), now.rowPixels(0)} : ui::Point{cell.left, cell.bottom};
    const ui::MouseEvent event{.button = ui::MouseButton::Right, .shift = shiftState(), .at = at};
    grid_->MouseDown(event);
}

// ---- mouse

void GridWindow::pressed(ui::MouseButton button, LPARAM at, bool twice) {
    SetFocus(handle());
    host_->settleFocus();
    if (grid_ == nullptr || handle() == nullptr) {
        return;
    }
    lastPoint_ = pointOf(at);
    const ui::MouseEvent event{.button = button, .shift = shiftState(), .at = lastPoint_};
    if (twice) {
        input_.doubleClick(event, layout());
        return;
    }
    if (button == ui::MouseButton::Left) {
        SetCapture(handle());
    }
    input_.mouseDown(event, layout());
    if (grid_ == nullptr || handle() == nullptr) {
        return;
    }
    UpdateWindow(handle());
}

void GridWindow::hover(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_MOUSEMOVE) {
        const ui::GridLayout now = layout();
        const auto cell = input_.dragging() ? std::nullopt : now.hit(pointOf(lParam));
        if (cell != hovered_) {
            hovered_ = cell;
            if (cell && painter_->cuts(*grid_, *cell, now.columnPixels(cell->column))) {
                tip_.offer(handle(), rectOf(now.cellRect(*cell)), grid_->text(cell->row, cell->column),
                           painter_->font(), host_->desktop().controls());
            } else {
                tip_.withdraw();
            }
        }
    }
    tip_.relay(handle(), message, wParam, lParam);
}

void GridWindow::forgetHover() noexcept {
    hovered_.reset();
    tip_.withdraw();
}

bool GridWindow::outsideCells(ui::Point at) const {
    const ui::GridLayout now = layout();
    const ui::Rect cells{now.columnPixels(0), now.rowPixels(0), size_.width, size_.height};
    return !cells.contains(at);
}

void GridWindow::moved(LPARAM at) {
    if (!input_.dragging() || GetCapture() != handle()) {
        return;
    }
    lastPoint_ = pointOf(at);
    if (outsideCells(lastPoint_)) {
        SetTimer(handle(), dragTimer, dragPause, nullptr);
    } else {
        KillTimer(handle(), dragTimer);
    }
    dragOn();
}

void GridWindow::dragOn() {
    if (!input_.dragging()) {
        KillTimer(handle(), dragTimer);
        return;
    }
    input_.mouseMove(lastPoint_, layout());
    if (handle() != nullptr) {
        UpdateWindow(handle());
    }
}

void GridWindow::released(LPARAM at) {
    KillTimer(handle(), dragTimer);
    lastPoint_ = pointOf(at);
    input_.mouseUp({.button = ui::MouseButton::Left, .shift = shiftState(), .at = lastPoint_}, layout());
    if (handle() != nullptr && GetCapture() == handle()) {
        ReleaseCapture();
        UpdateWindow(handle());
    }
}

// A message box, a menu or another program ended the drag.
void GridWindow::captureLost() {
    KillTimer(handle(), dragTimer);
    input_.cancelDrag();
}

}  // namespace telvar::win32
