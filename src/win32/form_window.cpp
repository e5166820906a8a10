#include "win32/form_window.h"

#include <algorithm>
#include <utility>

#include "base/pinned.h"
#include "win/scaling.h"
#include "win/text.h"
#include "win32/convert.h"
#include "win32/placement.h"
#include "win32/window_kinds.h"

namespace telvar::win32 {

namespace {

// Newer than the headers' default target.
constexpr UINT dpiChanged = 0x02E0;

constexpr DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD extendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

// The window shows nothing of what happens to its children meanwhile: each that moves would take its picture along at
// once. It must not be resized or get the focus in that time, since the system takes it for hidden.
class DrawingHeld : private base::Pinned {
public:
    explicit DrawingHeld(HWND window) noexcept : window_(IsWindowVisible(window) != FALSE ? window : nullptr) {
        set(FALSE);
    }
    ~DrawingHeld() { set(TRUE); }

private:
    void set(BOOL drawing) const noexcept {
        if (window_ != nullptr) {
            SendMessageW(window_, WM_SETREDRAW, static_cast<WPARAM>(drawing), 0);
        }
    }
    HWND window_;
};

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
    create(formKind, style, extendedStyle, rectOf(around(middle, {anySize, anySize})), owner);
    useFont(win::dpiOf(handle()));
    placeFirst(owner);
    placing_ = false;
    showBars();
    follow();
    fill();
    const auto alive = shared_from_this();
    const auto held = hold();
    openForm()->Load();
}

void FormWindow::placeFirst(HWND owner) {
    const ui::Rect last = openForm()->bounds();
    if (isModal() || last.empty()) {
        const ui::Point middle = middleOver(owner);
        place(keptOnScreen(around(middle, wholeSize(screenAt(around(middle, {1, 1}))))));
    } else {
        const ui::Size size = wholeSize(screenAt(last));
        place(keptOnScreen({last.left, last.top, last.left + size.width, last.top + size.height}));
    }
}

ui::Size FormWindow::wantedSize() const { return openForm()->wantedSize(ui::Metrics(desktop(), dpi())); }

// Of the window with room for the layout, or for as much of it as the screen has room for; the frame is as wide as the
// system makes it now.
ui::Size FormWindow::wholeSize(const ui::Rect& screen) const {
    RECT whole{};
    GetWindowRect(handle(), &whole);
    const ui::Rect around = rectOf(whole);
    const ui::Size room = ScrollBars::roomOf(handle());
    const ui::Size frame{around.width() - room.width, around.height() - room.height};
    const ui::Size most{screen.width() - frame.width, screen.height() - frame.height};
    const ui::Size view = ui::viewOf(wantedSize(), most, ScrollBars::widths()).size;
    return {view.width + frame.width, view.height + frame.height};
}

void FormWindow::place(const ui::Rect& bounds) noexcept {
    SetWindowPos(handle(), nullptr, bounds.left, bounds.top, bounds.width(), bounds.height(),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

void FormWindow::fitToLayout() {
    const ui::Rect now = openForm()->bounds();
    const ui::Size size = wholeSize(screenAt(now));
    place(keptOnScreen({now.left, now.top, now.left + size.width, now.top + size.height}));
    // A window that is as large as before hears of no new size.
    resized();
    {
        const DrawingHeld held(handle());
        openForm()->arrange();
    }
    showBars();
    revealFocus();
    // A frame leaves its inside alone, so nobody would erase the lines that a moved one leaves behind.
    if (std::vector<ui::Rect> places = arrangement(); places != painted_) {
        painted_ = std::move(places);
        RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }
    paintAtOnce();
}

// Where each of its widgets stands; nowhere for a hidden one.
std::vector<ui::Rect> FormWindow::arrangement() const {
    std::vector<ui::Rect> places;
    for (const ui::Widget* const child : container()->children()) {
        places.push_back(child->isShown() ? child->bounds() : ui::Rect());
    }
    return places;
}

// Left to the message loop, each child would be painted for itself, whenever there is nothing else to do: until then
// the user sees black places, frames without texts, and what stood there before.
void FormWindow::paintAtOnce() const noexcept {
    if (IsWindowVisible(handle()) != FALSE) {
        // What a field wanted to paint while drawing was held, the system has forgotten.
        for (HWND child = GetWindow(handle(), GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
            RedrawWindow(child, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
        }
        RedrawWindow(handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
}

// -- a window that is smaller than its layout ------------------------------------------------------------------------

// What stands on the form needs its room, also where the window has less of it.
ui::Size FormWindow::sizeIn(ui::Size client) const {
    const ui::Size wanted = wantedSize();
    return {std::max(client.width, wanted.width), std::max(client.height, wanted.height)};
}

void FormWindow::showBars() {
    if (openForm() != nullptr && handle() != nullptr && !placing_) {
        bars_.fit(handle(), wantedSize());
    }
}

void FormWindow::focusSettled() { revealFocus(); }

void FormWindow::revealFocus() {
    const PeerPointer focused = current();
    const ui::Widget* const widget = focused ? focused->widget() : nullptr;
    if (widget != nullptr && handle() != nullptr) {
        bars_.reveal(handle(), widget->bounds(), ui::Metrics(desktop(), dpi()).margin());
    }
}

bool FormWindow::scroll(UINT message, WPARAM wParam) {
    return openForm() != nullptr && bars_.take(handle(), message, wParam, ui::Metrics(desktop(), dpi()).fieldHeight());
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
    painted_ = arrangement();
    ShowWindow(handle(), SW_SHOW);
    bringToFront();
    paintAtOnce();
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
    const ui::Widget* const after = openForm() != nullptr ? openForm()->focusAfter() : nullptr;
    const HWND wanted = after != nullptr ? desktop().windowOf(*after) : nullptr;
    // First, else the system would look for some other window to be active.
    disabled_.enable();
    destroy();
    // The wanted window may have gone with the form.
    const HWND next = wanted != nullptr && IsWindowVisible(wanted) != FALSE ? wanted : focusBefore_;
    if (active && IsWindow(next) != FALSE && GetAncestor(next, GA_ROOT) == GetActiveWindow()) {
        SetFocus(next);
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
    // The system takes the focus from what is disabled, and does not give it back.
    if (changed == Aspect::Enabled && openForm()->enabled() && GetActiveWindow() == handle() && GetFocus() == nullptr) {
        SetFocus(handle());
    }
    try {
        if (changed == Aspect::Everything || changed == Aspect::Text) {
            SetWindowTextW(handle(), win::wide(openForm()->caption()).c_str());
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
        showBars();
        follow();
        return 0;
    case WM_VSCROLL:
    case WM_HSCROLL:
        // Sliders report with the same messages.
        if (lParam != 0 || !scroll(message, wParam)) {
            return ContainerWindow::message(message, wParam, lParam);
        }
        return 0;
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
        return scroll(message, wParam) ? 0 : ContainerWindow::message(message, wParam, lParam);
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
