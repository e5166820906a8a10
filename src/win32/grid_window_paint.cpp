// Painting of the grid window, and the blinking frame.
//
// The frame is drawn by inverting pixels, so the window must know exactly where it is drawn: `drawn_` is set while
// every valid pixel of that frame is inverted. What is painted meanwhile is painted with its part of the frame.
#include <algorithm>

#include "win/gdi.h"
#include "win32/convert.h"
#include "win32/grid_window.h"

namespace telvar::win32 {

namespace {

constexpr int frameWidth = 2;

void invert(HDC dc, const RECT& frame) noexcept {
    const int left = static_cast<int>(frame.left);
    const int top = static_cast<int>(frame.top);
    const int width = static_cast<int>(frame.right - frame.left);
    const int height = static_cast<int>(frame.bottom - frame.top);
    if (width <= 2 * frameWidth || height <= 2 * frameWidth) {
        PatBlt(dc, left, top, width, height, DSTINVERT);
        return;
    }
    PatBlt(dc, left, top, width, frameWidth, DSTINVERT);
    PatBlt(dc, left, top + height - frameWidth, width, frameWidth, DSTINVERT);
    PatBlt(dc, left, top + frameWidth, frameWidth, height - (2 * frameWidth), DSTINVERT);
    PatBlt(dc, left + width - frameWidth, top + frameWidth, frameWidth, height - (2 * frameWidth), DSTINVERT);
}

// The rectangles of the update region, or their bounding box when they are many.
std::vector<RECT> damageOf(HWND window) {
    constexpr DWORD most = 12;
    const win::Region region(CreateRectRgn(0, 0, 0, 0));
    RECT box{};
    if (GetUpdateRgn(window, region.get(), FALSE) != COMPLEXREGION) {
        GetUpdateRect(window, &box, FALSE);
        return {box};
    }
    std::vector<BYTE> memory(GetRegionData(region.get(), 0, nullptr));
    auto* const data = reinterpret_cast<RGNDATA*>(memory.data());
    if (memory.empty() || GetRegionData(region.get(), static_cast<DWORD>(memory.size()), data) == 0 ||
        data->rdh.nCount > most) {
        GetUpdateRect(window, &box, FALSE);
        return {box};
    }
    const auto* const first = reinterpret_cast<const RECT*>(data->Buffer);
    return {first, first + data->rdh.nCount};
}

bool encloses(const ui::Rect& outer, const ui::Rect& inner) noexcept { return inner.intersected(outer) == inner; }

}  // namespace

void GridWindow::paint() {
    if (grid_ == nullptr) {
        const win::PaintContext context(handle());
        FillRect(context.get(), &context.damage(), GetSysColorBrush(COLOR_BTNFACE));
        return;
    }
    const ui::GridLayout now = layout();
    const auto wanted = frame();
    if (drawn_ && (!wanted || EqualRect(&*drawn_, &*wanted) == FALSE)) {
        eraseFrame();
    }
    const std::vector<RECT> damage = damageOf(handle());
    {
        const win::PaintContext context(handle());
        invalid_.clear();
        for (const RECT& rect : damage) {
            paintRect(context.get(), now, rect, drawn_.has_value());
        }
    }
    showFrame();
}

void GridWindow::paintRect(HDC dc, const ui::GridLayout& layout, const RECT& rect, bool framed) {
    if (IsRectEmpty(&rect) != FALSE) {
        return;
    }
    const bool active = GetFocus() == handle();
    const auto draw = [&](HDC target) {
        painter_->paint(target, *grid_, layout, rect, active);
        if (framed) {
            const win::SavedContext saved(target);
            IntersectClipRect(target, static_cast<int>(rect.left), static_cast<int>(rect.top),
                              static_cast<int>(rect.right), static_cast<int>(rect.bottom));
            invert(target, *drawn_);
        }
    };
    const HBITMAP bitmap = buffer_.bitmap(dc, size_);
    if (bitmap == nullptr) {
        draw(dc);
        return;
    }
    const win::MemoryContext memory(dc);
    const win::Selected selected(memory.get(), bitmap);
    draw(memory.get());
    BitBlt(dc, static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right - rect.left),
           static_cast<int>(rect.bottom - rect.top), memory.get(), static_cast<int>(rect.left),
           static_cast<int>(rect.top), SRCCOPY);
}

// ---- damage. Each call of the system is a round trip to the server, so damage that is already known is not repeated.

void GridWindow::invalidateAll() noexcept {
    invalid_.assign(1, {0, 0, size_.width, size_.height});
    InvalidateRect(handle(), nullptr, FALSE);
}

void GridWindow::invalidate(ui::Rect rect) noexcept {
    constexpr std::size_t most = 16;
    if (rect.empty() || handle() == nullptr) {
        return;
    }
    const auto known = [this](const ui::Rect& part) {
        return std::ranges::any_of(invalid_, [&part](const ui::Rect& other) { return encloses(other, part); });
    };
    if (known(rect)) {
        return;
    }
    // A row that is written cell by cell: from the second cell on, the whole row.
    if (std::ranges::any_of(invalid_, [&rect](const ui::Rect& other) {
            return other.top == rect.top && other.bottom == rect.bottom;
        })) {
        rect.left = 0;
        rect.right = size_.width;
    }
    if (invalid_.size() >= most) {
        invalidateAll();
        return;
    }
    invalid_.push_back(rect);
    const RECT damaged = rectOf(rect);
    InvalidateRect(handle(), &damaged, FALSE);
}

void GridWindow::invalidateHeadersOfCurrent() noexcept {
    const ui::Cell current{grid_->row(), grid_->column()};
    if (current == headersOf_) {
        return;
    }
    const ui::GridLayout now = layout();
    for (const ui::Cell& cell : {headersOf_, current}) {
        invalidate(now.rangeRect({cell.row, 0, cell.row, 0}));
        invalidate(now.rangeRect({0, cell.column, 0, cell.column}));
    }
    headersOf_ = current;
}

// ---- the frame

std::optional<RECT> GridWindow::frame() const noexcept {
    if (grid_ == nullptr || !grid_->highlightShown() || grid_->row() < 1) {
        return std::nullopt;
    }
    const ui::Rect rect = layout().highlightRect();
    return rect.empty() ? std::nullopt : std::optional(rectOf(rect));
}

void GridWindow::eraseFrame() noexcept {
    if (drawn_) {
        const win::WindowContext context(handle());
        invert(context.get(), *drawn_);
        drawn_.reset();
    }
}

void GridWindow::showFrame() noexcept {
    const auto wanted = frame();
    if (drawn_ && wanted && EqualRect(&*drawn_, &*wanted) != FALSE) {
        return;
    }
    eraseFrame();
    if (wanted) {
        const win::WindowContext context(handle());
        invert(context.get(), *wanted);
        drawn_ = wanted;
    }
}

}  // namespace telvar::win32
