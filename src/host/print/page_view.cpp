#include "host/print/page_view.h"

#include <algorithm>

#include "win/scaling.h"
#include "win/window_class.h"

namespace telvar::host {

namespace {

constexpr int twipsPerInch = 1440;
constexpr COLORREF desk = RGB(160, 165, 173);
constexpr COLORREF edge = RGB(104, 109, 117);
constexpr COLORREF paper = RGB(255, 255, 255);
// From the inside to the outside.
constexpr COLORREF shadow[] = {RGB(118, 123, 131), RGB(133, 138, 146), RGB(147, 152, 160)};

// In pixels at 96 dpi.
constexpr int gapAround = 14;
constexpr int lineHeight = 32;

void fill(HDC context, const RECT& at, COLORREF colour) {
    SetBkColor(context, colour);
    ExtTextOutW(context, 0, 0, ETO_OPAQUE, &at, nullptr, 0, nullptr);
}

}  // namespace

void PageView::registerClass() { win::registerClass(className, procedure); }

void PageView::attach(HWND window) {
    window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    update();
}

void PageView::show(const PrintDocument& document, std::size_t page) {
    document_ = &document;
    page_ = page;
    top_ = 0;
    update();
}

void PageView::setZoom(PageZoom zoom) {
    zoom_ = zoom;
    top_ = 0;
    update();
}

LRESULT CALLBACK PageView::procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    auto* const view = reinterpret_cast<PageView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (view == nullptr) {
        return DefWindowProcW(window, message, wparam, lparam);
    }
    try {
        return view->handle(message, wparam, lparam);
    } catch (...) {
        // Out of memory: this picture is not drawn.
        return DefWindowProcW(window, message, wparam, lparam);
    }
}

LRESULT PageView::handle(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
    case WM_PAINT:
        paint();
        return 0;
    case WM_ERASEBKGND:
        return TRUE;
    case WM_SIZE:
        update();
        return 0;
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS;
    case WM_LBUTTONDOWN:
        SetFocus(window_);
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        InvalidateRect(window_, nullptr, FALSE);
        return 0;
    case WM_VSCROLL:
        scrollBy(LOWORD(wparam));
        return 0;
    case WM_KEYDOWN:
        if (wparam == VK_UP || wparam == VK_DOWN) {
            scrollBy(wparam == VK_UP ? SB_LINEUP : SB_LINEDOWN);
        } else if (wparam == VK_LEFT || wparam == VK_RIGHT) {
            turn_(wparam == VK_LEFT ? -1 : 1);
        }
        return 0;
    case WM_MOUSEWHEEL:
        wheel(static_cast<short>(HIWORD(wparam)));
        return 0;
    case WM_NCDESTROY:
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
        window_ = nullptr;
        return 0;
    default:
        return DefWindowProcW(window_, message, wparam, lparam);
    }
}

SIZE PageView::clientSize() const {
    RECT client{};
    GetClientRect(window_, &client);
    return {client.right, client.bottom};
}

int PageView::gap() const { return win::scaled(gapAround, win::dpiOf(window_)); }

SIZE PageView::sheetPixels(int dpi) const {
    const desk::Size size = document_->paper.size;
    return {MulDiv(size.width, dpi, twipsPerInch), MulDiv(size.height, dpi, twipsPerInch)};
}

// Of the sheet on the screen.
int PageView::resolution() const {
    const SIZE client = clientSize();
    const desk::Size size = document_->paper.size;
    const int wide =
        MulDiv(std::max(static_cast<int>(client.cx) - 2 * gap(), 1), twipsPerInch, std::max(size.width, 1));
    const int high =
        MulDiv(std::max(static_cast<int>(client.cy) - 2 * gap(), 1), twipsPerInch, std::max(size.height, 1));
    return std::max(zoom_ == PageZoom::PageWidth ? wide : std::min(wide, high), 1);
}

// The scroll bar always stands there, so that the width does not depend on it.
void PageView::update() {
    if (window_ == nullptr || document_ == nullptr) {
        return;
    }
    const int whole = static_cast<int>(sheetPixels(resolution()).cy) + 2 * gap();
    const int visible = static_cast<int>(clientSize().cy);
    top_ = zoom_ == PageZoom::WholePage ? 0 : std::clamp(top_, 0, std::max(whole - visible, 0));
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_ALL | SIF_DISABLENOSCROLL;
    bar.nMax = zoom_ == PageZoom::WholePage ? 0 : whole - 1;
    bar.nPage = static_cast<UINT>(std::max(visible, 1));
    bar.nPos = top_;
    SetScrollInfo(window_, SB_VERT, &bar, TRUE);
    InvalidateRect(window_, nullptr, FALSE);
}

void PageView::scrollTo(int top) {
    top_ = top;
    update();
}

void PageView::scrollBy(int code) {
    const int line = win::scaled(lineHeight, win::dpiOf(window_));
    const int screen = std::max(static_cast<int>(clientSize().cy) - line, line);
    switch (code) {
    case SB_LINEUP:
        scrollTo(top_ - line);
        break;
    case SB_LINEDOWN:
        scrollTo(top_ + line);
        break;
    case SB_PAGEUP:
        scrollTo(top_ - screen);
        break;
    case SB_PAGEDOWN:
        scrollTo(top_ + screen);
        break;
    case SB_TOP:
        scrollTo(0);
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: {
        SCROLLINFO bar{};
        bar.cbSize = sizeof bar;
        bar.fMask = SIF_TRACKPOS;
        GetScrollInfo(window_, SB_VERT, &bar);
        scrollTo(bar.nTrackPos);
        break;
    }
    default:
        break;
    }
}

// Scrolls the page, and turns it where there is no more to scroll.
void PageView::wheel(int delta) {
    wheel_ += delta;
    for (; std::abs(wheel_) >= WHEEL_DELTA; wheel_ += wheel_ > 0 ? -WHEEL_DELTA : WHEEL_DELTA) {
        const bool up = wheel_ > 0;
        const int before = top_;
        scrollTo(top_ + (up ? -3 : 3) * win::scaled(lineHeight, win::dpiOf(window_)));
        if (top_ == before) {
            turn_(up ? -1 : 1);
        }
    }
}

void PageView::paint() {
    PAINTSTRUCT damage{};
    const HDC screen = BeginPaint(window_, &damage);
    const SIZE client = clientSize();
    {
        const win::DeviceContext memory(CreateCompatibleDC(screen));
        const win::Bitmap bitmap(
            CreateCompatibleBitmap(screen, std::max<int>(client.cx, 1), std::max<int>(client.cy, 1)));
        const win::Selected selected(memory.get(), bitmap.get());
        draw(memory.get(), client);
        BitBlt(screen, 0, 0, client.cx, client.cy, memory.get(), 0, 0, SRCCOPY);
    }
    if (GetFocus() == window_ && (SendMessageW(window_, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) == 0) {
        RECT inside{2, 2, client.cx - 2, client.cy - 2};
        DrawFocusRect(screen, &inside);
    }
    EndPaint(window_, &damage);
}

void PageView::draw(HDC context, SIZE client) const {
    fill(context, {0, 0, client.cx, client.cy}, desk);
    if (document_ == nullptr) {
        return;
    }
    const int dpi = resolution();
    const SIZE sheet = sheetPixels(dpi);
    const int left = (static_cast<int>(client.cx) - static_cast<int>(sheet.cx)) / 2;
    const int free = static_cast<int>(client.cy) - static_cast<int>(sheet.cy);
    const int top = (zoom_ == PageZoom::WholePage ? free / 2 : std::max(free / 2, gap())) - top_;
    const RECT at{left, top, left + sheet.cx, top + sheet.cy};
    const int step = std::max(win::scaled(2, win::dpiOf(window_)), 1);
    for (int ring = static_cast<int>(std::size(shadow)); ring > 0; --ring) {
        const int reach = ring * step;
        fill(context, {at.left + step, at.top + step, at.right + reach, at.bottom + reach},
             shadow[static_cast<std::size_t>(ring) - 1]);
    }
    fill(context, {at.left - 1, at.top - 1, at.right + 1, at.bottom + 1}, edge);
    fill(context, at, paper);
    painter_.paint({.context = context, .corner = {at.left, at.top}, .dpi = {dpi, dpi}}, *document_, page_);
}

}  // namespace telvar::host
