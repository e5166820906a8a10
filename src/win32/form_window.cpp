#include "win32/form_window.h"

#include <utility>

#include "win32/convert.h"
#include "win32/dpi.h"
#include "win32/placement.h"

namespace telvar::win32 {

namespace {

// Newer than the headers' default target.
constexpr UINT dpiChanged = 0x02E0;

constexpr DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD extendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

ui::Rect around(ui::Point middle, ui::Size size) noexcept {
    const int left = middle.x - size.width / 2;
    const int top = middle.y - size.height / 2;
    return {left, top, left + size.width, top + size.height};
}

}  // namespace

void FormWindow::open(HWND owner) {
    focusBefore_ = GetFocus();
    // There first, so that it has the dots per inch of that screen, and with room for its frame.
    constexpr int anySize = 300;
    const ui::Point middle = middleOver(owner);
    create(WindowKind::Form, style, extendedStyle, rectOf(around(middle, {anySize, anySize})), owner);
    useFont(dpiOf(handle()));
    placeFirst(owner);
    placing_ = false;
    follow();
    fill();
    const auto alive = shared_from_this();
    const auto held = hold();
    openForm()->Load();
}

void FormWindow::placeFirst(HWND owner) {
    const ui::Form& form = *openForm();
    const ui::Size size = wholeSize(form.wantedSize(ui::Metrics(desktop(), dpi())));
    const ui::Rect& last = form.bounds();
    if (isModal() || last.empty()) {
        place(keptOnScreen(around(middleOver(owner), size)));
    } else {
        place(keptOnScreen({last.left, last.top, last.left + size.width, last.top + size.height}));
    }
}

// Of the window with that client area; the frame is as wide as the system makes it now.
ui::Size FormWindow::wholeSize(ui::Size client) const noexcept {
    RECT whole{};
    RECT inside{};
    GetWindowRect(handle(), &whole);
    GetClientRect(handle(), &inside);
    const ui::Rect around = rectOf(whole);
    return {client.width + around.width() - static_cast<int>(inside.right),
            client.height + around.height() - static_cast<int>(inside.bottom)};
}

void FormWindow::place(const ui::Rect& bounds) noexcept {
    SetWindowPos(handle(), nullptr, bounds.left, bounds.top, bounds.width(), bounds.height(),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

void FormWindow::fitToLayout() {
    const ui::Form& form = *openForm();
    const ui::Size size = wholeSize(form.wantedSize(ui::Metrics(desktop(), dpi())));
    const ui::Rect& now = form.bounds();
    place(keptOnScreen({now.left, now.top, now.left + size.width, now.top + size.height}));
}

// The form knows where its window is.
void FormWindow::follow() {
    RECT at{};
    if (openForm() == nullptr || placing_ || GetWindowRect(handle(), &at) == FALSE) {
        return;
    }
    placing_ = true;
    openForm()->setBounds(rectOf(at));
    placing_ = false;
}

void FormWindow::moveToDpi(int dpi, const RECT& suggested) {
    changeFont(dpi);
    place(rectOf(suggested));
    if (openForm() != nullptr) {
        fitToLayout();
    }
}

void FormWindow::appear(const std::vector<HWND>& disabled) {
    for (const HWND window : disabled) {
        disabled_.disable(window);
    }
    hook_.emplace();
    ShowWindow(handle(), SW_SHOW);
    bringToFront();
}

void FormWindow::bringToFront() noexcept {
    SetForegroundWindow(handle());
    if (!hasFocus()) {
        SetFocus(handle());
    }
}

void FormWindow::close() noexcept {
    const auto alive = weak_from_this().lock();
    if (handle() == nullptr) {
        return;
    }
    const bool active = GetActiveWindow() == handle();
    // First, else the system would look for some other window to be active.
    disabled_.enable();
    destroy();
    if (active && IsWindow(focusBefore_) != FALSE && GetAncestor(focusBefore_, GA_ROOT) == GetActiveWindow()) {
        SetFocus(focusBefore_);
    }
}

void FormWindow::closedByUser() {
    const auto alive = shared_from_this();
    if (IsWindowEnabled(handle()) == FALSE) {
        return;
    }
    settleFocus();
    if (openForm() != nullptr) {
        openForm()->CloseBox();
    }
    close();
}

void FormWindow::release() noexcept {
    const auto alive = weak_from_this().lock();
    ContainerWindow::release();
    disabled_.enable();
    hook_.reset();
    desktop().formGone(*this);
}

void FormWindow::widgetEnds() noexcept {
    const auto alive = weak_from_this().lock();
    ContainerWindow::widgetEnds();
    close();
}

std::shared_ptr<void> FormWindow::hold() const { return container() != nullptr ? desktop().holdOwner() : nullptr; }

bool FormWindow::looksDefault(const ui::Button& button) const noexcept {
    const PeerPointer focused = current();
    const auto* const other = focused ? dynamic_cast<const ui::Button*>(focused->widget()) : nullptr;
    return other != nullptr ? other == &button : button.isDefault();
}

void FormWindow::focusMoved() {
    for (const PeerPointer& peer : peers()) {
        peer->defaultMoved();
    }
}

void FormWindow::show(ui::Aspect changed) noexcept {
    using ui::Aspect;
    if (openForm() == nullptr) {
        return;
    }
    ContainerWindow::show(changed);
    try {
        if (changed == Aspect::Everything || changed == Aspect::Text) {
            SetWindowTextW(handle(), widened(openForm()->caption()).c_str());
        }
        if (changed == Aspect::Bounds && !placing_) {
            place(openForm()->bounds());
        }
        if (changed == Aspect::Size) {
            fitToLayout();
        }
    } catch (const std::exception&) {
        // Out of memory: the window stays as it is.
        InvalidateRect(handle(), nullptr, TRUE);
    }
}

LRESULT FormWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto held = hold();
    switch (message) {
    case keyTaken:
        deliver(wParam);
        return 0;
    case WM_CLOSE:
        closedByUser();
        return 0;
    case WM_MOVE:
        follow();
        return 0;
    case WM_SIZE:
        ContainerWindow::message(message, wParam, lParam);
        follow();
        return 0;
    case WM_SETTINGCHANGE:
        ContainerWindow::message(message, wParam, lParam);
        if (openForm() != nullptr) {
            fitToLayout();
        }
        return 0;
    case dpiChanged:
        moveToDpi(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
        return 0;
    default:
        return ContainerWindow::message(message, wParam, lParam);
    }
}

}  // namespace telvar::win32
