#include "win32/grid_window.h"

#include <oleacc.h>

#include "win32/convert.h"
#include "win32/grid_accessible.h"
#include "win32/window_kinds.h"
#include "win32/windows_desktop.h"

namespace telvar::win32 {

GridWindow::~GridWindow() {
    detach();
    destroy();
}

void GridWindow::open(HWND parent, const std::shared_ptr<const FormFont>& font) {
    painter_.emplace(font);
    placedAt_ = grid_->bounds();
    create(gridKind, WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL, WS_EX_CLIENTEDGE,
           rectOf(grid_->bounds()), parent);
    resized();
    shown_ = view();
    grid_->attach(*this);
}

void GridWindow::detach() noexcept {
    if (grid_ != nullptr) {
        eraseFrame();
        grid_->detach();
        grid_ = nullptr;
    }
}

void GridWindow::widgetEnds() noexcept {
    grid_ = nullptr;
    drawn_.reset();
    if (handle() != nullptr) {
        InvalidateRect(handle(), nullptr, FALSE);
    }
}

ui::GridLayout GridWindow::layout() const noexcept { return {*grid_, size_, painter_->metrics()}; }

void GridWindow::setFont(const std::shared_ptr<const FormFont>& font) {
    eraseFrame();
    forgetHover();
    tip_.close();
    painter_.emplace(font);
    follow();
    invalidateAll();
}

HBRUSH GridWindow::background(HDC dc) const {
    static_cast<void>(dc);
    return GetSysColorBrush(COLOR_WINDOW);
}

// ---- the widget's changes

void GridWindow::show(ui::Aspect changed) noexcept {
    using ui::Aspect;
    if (grid_ == nullptr || handle() == nullptr) {
        return;
    }
    // A grid asks for everything whenever it wants to be repainted, so what is as it should be is left alone.
    const bool everything = changed == Aspect::Everything;
    if (!grid_->enabled() || !grid_->visible()) {
        host_->passFocusOn(*this);
    }
    if ((IsWindowEnabled(handle()) != FALSE) != grid_->enabled()) {
        EnableWindow(handle(), grid_->enabled());
    }
    if (placedAt_ != grid_->bounds()) {
        placedAt_ = grid_->bounds();
        const ui::Point scrolled = host_->scrolled();
        SetWindowPos(handle(), nullptr, placedAt_.left - scrolled.x, placedAt_.top - scrolled.y, placedAt_.width(),
                     placedAt_.height(), SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (((GetWindowLongW(handle(), GWL_STYLE) & WS_VISIBLE) != 0) != grid_->visible()) {
        ShowWindow(handle(), grid_->visible() ? SW_SHOWNA : SW_HIDE);
    }
    if (everything || changed == Aspect::Colours || changed == Aspect::Enabled) {
        layoutChanged();
        invalidateAll();
    }
}

void GridWindow::cellsChanged(const ui::CellRange& cells) noexcept {
    if (grid_ == nullptr || handle() == nullptr) {
        return;
    }
    const auto wanted = frame();
    if (drawn_ && (!wanted || EqualRect(&*drawn_, &*wanted) == FALSE)) {
        eraseFrame();
    }
    if (hovered_ && cells.contains(*hovered_)) {
        forgetHover();
    }
    invalidate(layout().rangeRect(cells));
    invalidateHeadersOfCurrent();
    tellScreenReaders();
}

void GridWindow::layoutChanged() noexcept {
    forgetHover();
    try {
        follow();
    } catch (const std::exception&) {
        // Out of memory for the list of widths: everything is painted anew instead of moved.
        eraseFrame();
        invalidateAll();
    }
}

void GridWindow::highlightChanged() noexcept {
    if (handle() != nullptr) {
        showFrame();
    }
}

std::optional<ui::Rect> GridWindow::currentRowOnScreen() const {
    if (grid_ == nullptr || !painter_ || IsWindowVisible(handle()) == FALSE) {
        return std::nullopt;
    }
    RECT row = rectOf(layout().highlightRect());
    if (IsRectEmpty(&row) != FALSE) {
        return std::nullopt;
    }
    MapWindowPoints(handle(), nullptr, reinterpret_cast<POINT*>(&row), 2);
    return rectOf(row);
}

void GridWindow::resized() {
    RECT client{};
    GetClientRect(handle(), &client);
    size_ = {static_cast<int>(client.right), static_cast<int>(client.bottom)};
    // What the new edge uncovers is the system's to invalidate.
    invalid_.clear();
    follow();
}

void GridWindow::focusChanged(bool gained, HWND other) {
    invalidate(layout().rangeRect(grid_->selection()));
    if (gained) {
        host_->focusGained(*this);
        if (grid_ != nullptr) {
            NotifyWinEvent(EVENT_OBJECT_FOCUS, handle(), OBJID_CLIENT,
                           accessibleId(*grid_, {grid_->row(), grid_->column()}));
        }
    } else {
        host_->focusLost(*this, other);
    }
}

void GridWindow::tellScreenReaders() noexcept {
    const ui::Cell current{grid_->row(), grid_->column()};
    const ui::Cell end{grid_->rowSel(), grid_->columnSel()};
    if (current == toldCurrent_ && end == toldEnd_) {
        return;
    }
    const LONG id = accessibleId(*grid_, current);
    if (current != toldCurrent_ && GetFocus() == handle()) {
        NotifyWinEvent(EVENT_OBJECT_FOCUS, handle(), OBJID_CLIENT, id);
    }
    NotifyWinEvent(current == end ? EVENT_OBJECT_SELECTION : EVENT_OBJECT_SELECTIONWITHIN, handle(), OBJID_CLIENT,
                   current == end ? id : CHILDID_SELF);
    toldCurrent_ = current;
    toldEnd_ = end;
}

// ---- messages

LRESULT GridWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        paint();
        return 0;
    case WM_DESTROY:
        forgetHover();
        tip_.close();
        drawn_.reset();
        return 0;
    default:
        break;
    }
    // A window that outlives its widget for a moment, or has not been given its font yet, is only a rectangle.
    if (grid_ == nullptr || !painter_ || handle() == nullptr) {
        return defaultMessage(message, wParam, lParam);
    }
    const auto held = host_->hold();
    switch (message) {
    case WM_SIZE:
        resized();
        return 0;
    case WM_WINDOWPOSCHANGING:
        eraseFrame();
        break;
    case WM_PRINTCLIENT: {
        const RECT all{0, 0, size_.width, size_.height};
        painter_->paint(reinterpret_cast<HDC>(wParam), *grid_, layout(), all, GetFocus() == handle());
        return 0;
    }
    case WM_SETFOCUS:
        focusChanged(true, reinterpret_cast<HWND>(wParam));
        return 0;
    case WM_KILLFOCUS:
        focusChanged(false, reinterpret_cast<HWND>(wParam));
        return 0;
    case WM_VSCROLL:
        scrolled(SB_VERT, LOWORD(wParam));
        return 0;
    case WM_HSCROLL:
        scrolled(SB_HORZ, LOWORD(wParam));
        return 0;
    case WM_GETOBJECT:
        if (static_cast<LONG>(lParam) == OBJID_CLIENT) {
            return accessibleAnswer(std::static_pointer_cast<GridWindow>(shared_from_this()), wParam);
        }
        break;
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
        invalidateAll();
        return 0;
    default:
        if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) {
            hover(message, wParam, lParam);
        }
        if (const auto result = inputMessage(message, wParam, lParam)) {
            return *result;
        }
        break;
    }
    return defaultMessage(message, wParam, lParam);
}

}  // namespace telvar::win32
