// Scrolling of the grid window: its bars, the wheel, and moving the picture when the first row or column changes.
#include <algorithm>
#include <cstdlib>
#include <numeric>

#include "win32/convert.h"
#include "win32/grid_window.h"

namespace telvar::win32 {

GridWindow::View GridWindow::view() const {
    const ui::GridLayout now = layout();
    View view{.topRow = now.topRow(), .leftColumn = now.leftColumn(), .widths = {}};
    view.widths.reserve(static_cast<std::size_t>(grid_->columns()));
    for (int column = 0; column < grid_->columns(); ++column) {
        view.widths.push_back(now.columnPixels(column));
    }
    return view;
}

// Brings the screen to what the grid now shows.
void GridWindow::follow() {
    if (grid_ == nullptr || handle() == nullptr || !painter_) {
        return;
    }
    updateBars();
    keepWithinLastPage();
    View now = view();
    if (now == shown_) {
        return;
    }
    const View before = std::exchange(shown_, std::move(now));
    const bool down = before.topRow != shown_.topRow;
    const bool sideways = before.leftColumn != shown_.leftColumn;
    if (before.widths != shown_.widths || (down && sideways)) {
        eraseFrame();
        invalidateAll();
    } else {
        scrollPicture(before, shown_);
    }
}

// The grid may ask for more than can be scrolled away; what others read there is what is shown.
void GridWindow::keepWithinLastPage() {
    const ui::GridLayout inForce = layout();
    grid_->setTopRow(inForce.topRow());
    grid_->setLeftColumn(inForce.leftColumn());
}

void GridWindow::scrollPicture(const View& from, const View& to) {
    const int header = layout().rowPixels(0);
    const auto widthOf = [&to](int first, int last) {
        return std::accumulate(to.widths.begin() + first, to.widths.begin() + last, 0);
    };
    int right = 0;
    int down = 0;
    RECT moving{0, 0, size_.width, size_.height};
    if (from.topRow != to.topRow) {
        down = (from.topRow - to.topRow) * layout().metrics().rowHeight;
        moving.top = header;
    } else {
        right = from.leftColumn > to.leftColumn ? widthOf(to.leftColumn, from.leftColumn)
                                                : -widthOf(from.leftColumn, to.leftColumn);
        moving.left = to.widths.front();
    }
    eraseFrame();
    // What waits to be painted moves along.
    invalid_.clear();
    if (std::abs(down) >= moving.bottom - moving.top || std::abs(right) >= moving.right - moving.left) {
        invalidate(rectOf(moving));
    } else {
        ScrollWindowEx(handle(), right, down, &moving, &moving, nullptr, nullptr, SW_INVALIDATE);
    }
}

// ---- bars

std::vector<int> GridWindow::shownColumns() const {
    std::vector<int> columns;
    for (int column = 1; column < grid_->columns(); ++column) {
        if (grid_->columnWidth(column) > 0) {
            columns.push_back(column);
        }
    }
    return columns;
}

void GridWindow::setBar(int bar, int first, int last, int page, int position) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(handle(), bar, &info);
    if (info.nMin == first && info.nMax == last && static_cast<int>(info.nPage) == page && info.nPos == position) {
        return;
    }
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMin = first;
    info.nMax = last;
    info.nPage = static_cast<UINT>(page);
    info.nPos = position;
    SetScrollInfo(handle(), bar, &info, TRUE);
}

// A bar that comes or goes changes the client area, which comes back here.
void GridWindow::updateBars() {
    if (updatingBars_) {
        return;
    }
    updatingBars_ = true;
    ui::Size before;
    for (int round = 0; round < 3 && before != size_; ++round) {
        before = size_;
        const ui::GridLayout now = layout();
        const int rows = grid_->rows() - 1;
        setBar(SB_VERT, 1, rows, rows - now.lastTopRow() + 1, now.topRow());

        // The bar's unit is one shown column.
        const std::vector<int> columns = shownColumns();
        const auto placeOf = [&columns](int column) {
            return static_cast<int>(std::ranges::lower_bound(columns, column) - columns.begin());
        };
        const int count = static_cast<int>(columns.size());
        setBar(SB_HORZ, 0, count - 1, std::max(1, count - placeOf(now.lastLeftColumn())), placeOf(now.leftColumn()));
    }
    updatingBars_ = false;
}

void GridWindow::scrolled(int bar, WORD request) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(handle(), bar, &info);
    const int page = std::max(1, static_cast<int>(info.nPage));
    int position = info.nPos;
    switch (request) {
    case SB_LINEUP:
        position -= 1;
        break;
    case SB_LINEDOWN:
        position += 1;
        break;
    case SB_PAGEUP:
        position -= page;
        break;
    case SB_PAGEDOWN:
        position += page;
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        position = info.nTrackPos;
        break;
    case SB_TOP:
        position = info.nMin;
        break;
    case SB_BOTTOM:
        position = info.nMax;
        break;
    default:
        return;
    }
    position = std::clamp(position, info.nMin, std::max(info.nMin, info.nMax - page + 1));
    if (bar == SB_VERT) {
        grid_->setTopRow(position);
    } else if (const std::vector<int> columns = shownColumns(); !columns.empty()) {
        grid_->setLeftColumn(columns[static_cast<std::size_t>(position)]);
    }
    UpdateWindow(handle());
}

// Fine wheels report fractions of a notch, which add up to rows.
void GridWindow::wheel(int delta, bool sideways) {
    UINT perNotch = 3;
    SystemParametersInfoW(sideways ? SPI_GETWHEELSCROLLCHARS : SPI_GETWHEELSCROLLLINES, 0, &perNotch, 0);
    const ui::GridLayout now = layout();
    int& rest = sideways ? sidewaysRest_ : wheelRest_;
    if ((rest < 0) != (delta < 0)) {
        rest = 0;
    }
    if (sideways) {
        // One column a notch, whatever number of characters that is.
        rest += delta;
        const int columns = rest / WHEEL_DELTA;
        rest -= columns * WHEEL_DELTA;
        int column = now.leftColumn();
        for (int step = 0; step < std::abs(columns); ++step) {
            column = columns > 0 ? now.columnAfter(column) : now.columnBefore(column);
        }
        grid_->setLeftColumn(std::clamp(column, 1, now.lastLeftColumn()));
    } else {
        const int rows = perNotch == WHEEL_PAGESCROLL ? now.fullRows() : static_cast<int>(std::min(perNotch, 100U));
        rest += delta * rows;
        const int whole = rest / WHEEL_DELTA;
        rest -= whole * WHEEL_DELTA;
        if (whole != 0) {
            input_.wheel(whole, 1, now);
        }
    }
    if (handle() != nullptr) {
        UpdateWindow(handle());
    }
}

}  // namespace telvar::win32
