// The window of a grid: paints what is visible and damaged, scrolls, keeps the blinking frame, and hands mouse and keys
// to ui::GridInput. A grid has no state here that must survive: everything shown is read from the widget.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "ui/grid.h"
#include "ui/grid_input.h"
#include "ui/grid_layout.h"
#include "win/window.h"
#include "win32/grid_painter.h"
#include "win32/grid_tip.h"
#include "win32/paint_buffer.h"
#include "win32/peer.h"

namespace telvar::win32 {

class GridWindow final : public win::Window, public Peer, public ui::GridPeer {
public:
    GridWindow(ui::Grid& grid, PeerHost& host) noexcept : grid_(&grid), host_(&host), input_(grid) {}
    ~GridWindow() override;

    void open(HWND parent, const std::shared_ptr<const FormFont>& font);

    // Null once the widget has ended.
    [[nodiscard]] ui::Grid* grid() const noexcept { return grid_; }
    // Of the present client area.
    [[nodiscard]] ui::GridLayout layout() const noexcept;

    // ---- Peer
    [[nodiscard]] HWND window() const noexcept override { return handle(); }
    [[nodiscard]] ui::Widget* widget() const noexcept override { return grid_; }
    void detach() noexcept override;
    void setFont(const std::shared_ptr<const FormFont>& font) override;
    [[nodiscard]] bool takesKey(const ui::KeyEvent& event) const noexcept override;
    [[nodiscard]] bool takesCharacters() const noexcept override { return true; }
    void keyPassedOn(const MSG& message) override;
    void accessKey() override { SetFocus(handle()); }
    void notified(unsigned code) override { static_cast<void>(code); }
    [[nodiscard]] HBRUSH background(HDC dc) const override;

    // ---- the widget's peer
    void show(ui::Aspect changed) noexcept override;
    void takeFocus() noexcept override { host_->giveFocus(*this); }
    void widgetEnds() noexcept override;
    void cellsChanged(const ui::CellRange& cells) noexcept override;
    void layoutChanged() noexcept override;
    void highlightChanged() noexcept override;
    [[nodiscard]] std::optional<ui::Rect> currentRowOnScreen() const override;

protected:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    // What of the grid's layout the picture on the screen was made for.
    struct View {
        int topRow = 1;
        int leftColumn = 1;
        std::vector<int> widths;  // pixels
        bool operator==(const View&) const = default;
    };
    static constexpr UINT_PTR dragTimer = 1;

    // ---- painting (grid_window_paint.cpp)
    void paint();
    void paintRect(HDC dc, const ui::GridLayout& layout, const RECT& rect, bool framed);
    void invalidate(ui::Rect rect) noexcept;
    void invalidateAll() noexcept;
    void invalidateHeadersOfCurrent() noexcept;
    [[nodiscard]] std::optional<RECT> frame() const noexcept;
    void eraseFrame() noexcept;
    void showFrame() noexcept;

    // ---- scrolling (grid_window_scroll.cpp)
    [[nodiscard]] View view() const;
    void follow();
    void keepWithinLastPage();
    void scrollPicture(const View& from, const View& to);
    void updateBars();
    void setBar(int bar, int first, int last, int page, int position);
    void scrolled(int bar, WORD request);
    [[nodiscard]] std::vector<int> shownColumns() const;
    void wheel(int delta, bool sideways);

    // ---- input (grid_window_input.cpp)
    std::optional<LRESULT> inputMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void keyDown(WPARAM code, LPARAM details);
    void pressed(ui::MouseButton button, LPARAM at, bool twice);
    void moved(LPARAM at);
    void released(LPARAM at);
    void captureLost();
    void dragOn();
    void menuKey();
    [[nodiscard]] bool outsideCells(ui::Point at) const;
    // The mouse did something there: the cell below it gets a tip, where its text is cut.
    void hover(UINT message, WPARAM wParam, LPARAM lParam);
    void forgetHover() noexcept;

    void resized();
    void focusChanged(bool gained, HWND other);
    void tellScreenReaders() noexcept;

    ui::Grid* grid_;
    PeerHost* host_;
    ui::GridInput input_;
    std::optional<GridPainter> painter_;
    PaintBuffer buffer_;
    GridTip tip_;
    ui::Size size_;
    ui::Rect placedAt_;
    View shown_;
    bool updatingBars_ = false;

    std::vector<ui::Rect> invalid_;  // already handed to the system since the last painting
    std::optional<RECT> drawn_;      // every valid pixel of this frame is inverted on the screen
    ui::Cell headersOf_{1, 1};       // the current cell that the headers show

    std::optional<ui::Cell> hovered_;  // the mouse is over it, and `tip_` knows
    ui::Point lastPoint_;
    std::optional<MSG> passedOn_;  // this key-down's rule has run already
    int wheelRest_ = 0;
    int sidewaysRest_ = 0;
    ui::Cell toldCurrent_{1, 1};
    ui::Cell toldEnd_{1, 1};
};

}  // namespace telvar::win32
