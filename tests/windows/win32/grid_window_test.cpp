// The grid's window: what it paints and when, its frame, its bars, and what mouse and keys do through real messages.
#include "world.h"

#include "ui/grid_layout.h"
#include "win/gdi.h"
#include "win32/fonts.h"
#include "win32/grid_painter.h"

namespace telvar::win32 {
namespace {

constexpr COLORREF mark = RGB(255, 0, 255);

class GridWindows : public World {
protected:
    GridWindows() : window(windowOf(widgets.grid)) { pump(); }

    [[nodiscard]] ui::GridLayout layout() {
        RECT client{};
        GetClientRect(window, &client);
        return {widgets.grid,
                {static_cast<int>(client.right), static_cast<int>(client.bottom)},
                GridPainter(desktop.font(96)).metrics()};
    }
    [[nodiscard]] LPARAM at(ui::Cell cell) {
        const ui::Rect rect = layout().cellRect(cell);
        return MAKELPARAM(rect.left + 4, rect.top + 4);
    }
    void press(ui::Cell cell, WPARAM keys = 0) { SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | keys, at(cell)); }
    void move(ui::Cell cell) { SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, at(cell)); }
    void release(ui::Cell cell) { SendMessageW(window, WM_LBUTTONUP, 0, at(cell)); }

    // Paints over everything, behind the window's back.
    void soil() {
        const win::WindowContext screen(window);
        RECT client{};
        GetClientRect(window, &client);
        const win::Brush brush(CreateSolidBrush(mark));
        FillRect(screen.get(), &client, brush.get());
    }
    // What has been painted since, as the smallest rectangle around it.
    [[nodiscard]] ui::Rect painted() {
        const Picture picture(window);
        ui::Rect box{picture.width(), picture.height(), 0, 0};
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.at(x, y) != mark) {
                    box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                           std::max(box.bottom, y + 1)};
                }
            }
        }
        return box.empty() ? ui::Rect{} : box;
    }
    [[nodiscard]] SCROLLINFO bar(int which) const {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL;
        GetScrollInfo(window, which, &info);
        return info;
    }
    // The same grid, painted from scratch without the frame.
    [[nodiscard]] Picture clean() {
        widgets.grid.setHighlightShown(false);
        InvalidateRect(window, nullptr, FALSE);
        UpdateWindow(window);
        return Picture(window);
    }

    HWND window;
};

// ---- painting

TEST_F(GridWindows, PaintOnlyAChangedCell) {
    soil();
    widgets.grid.setText(5, 3, "88.5 Hz");
    pump();
    EXPECT_EQ(painted(), layout().cellRect({5, 3}));
}

TEST_F(GridWindows, PaintARowThatIsWrittenCellByCellOnce) {
    soil();
    widgets.grid.setText(5, 3, "a");
    widgets.grid.setText(5, 4, "b");
    widgets.grid.setText(5, 5, "c");
    pump();
    const ui::Rect row = layout().cellRect({5, 0});
    const ui::Rect box = painted();
    EXPECT_EQ(box.top, row.top);
    EXPECT_EQ(box.bottom, row.bottom);
}

TEST_F(GridWindows, PaintNothingForAnEqualTextOrAHiddenCell) {
    widgets.grid.setText(5, 3, "same");
    pump();
    soil();
    widgets.grid.setText(5, 3, "same");
    widgets.grid.setText(5, 20, "hidden");
    widgets.grid.setText(200, 3, "scrolled out");
    pump();
    EXPECT_TRUE(painted().empty());
}

TEST_F(GridWindows, PaintOnceForAWholeRefresh) {
    widgets.grid.setRedraw(false);
    soil();
    for (int row = 1; row < 256; ++row) {
        widgets.grid.setText(row, 1, "X");
    }
    pump();
    EXPECT_TRUE(painted().empty());
    widgets.grid.setRedraw(true);
    pump();
    EXPECT_EQ(painted().left, layout().cellRect({1, 1}).left);
    EXPECT_EQ(painted().right, layout().cellRect({1, 1}).right);
}

TEST_F(GridWindows, CoverEveryPixel) {
    soil();
    InvalidateRect(window, nullptr, FALSE);
    pump();
    const Picture picture(window);
    EXPECT_EQ(picture.count({0, 0, picture.width(), picture.height()}, mark), 0);
}

TEST_F(GridWindows, ShowTheColourOfACell) {
    widgets.grid.setCellBackColor(4, 2, ui::green);
    widgets.grid.setCellBackColor(4, 3, ui::white);
    pump();
    const ui::Rect cell = layout().cellRect({4, 2});
    const Picture picture(window);
    EXPECT_EQ(picture.at(cell.left + 1, cell.top + 1), RGB(0, 255, 0));
    EXPECT_EQ(picture.count(cell, RGB(0, 255, 0)), (cell.width() - 1) * (cell.height() - 1));
}

// Of the pixels of a header without the lines that part it from the next ones.
TEST_F(GridWindows, ShowALockedColumnsHeaderGreen) {
    widgets.grid.setCurrent({4, 1});
    widgets.grid.setText(0, 3, "");
    widgets.grid.setCellBackColor(0, 3, ui::green);
    pump();
    const ui::Rect header = layout().cellRect({0, 3});
    const int inside = (header.width() - 1) * (header.height() - 1);
    EXPECT_EQ(Picture(window).count(header, RGB(0, 255, 0)), inside);
    widgets.grid.setText(0, 3, "P25 Tx NAC");
    pump();
    EXPECT_GT(Picture(window).count(header, RGB(0, 255, 0)), inside / 2);
    EXPECT_LT(Picture(window).count(header, RGB(0, 255, 0)), inside) << "the text is still there";
    EXPECT_EQ(Picture(window).count(layout().cellRect({0, 4}), RGB(0, 255, 0)), 0);
}

TEST_F(GridWindows, ShowALabelThatAProgramColoured) {
    widgets.grid.setCellBackColor(4, 0, ui::green);
    pump();
    const ui::Rect label = layout().cellRect({4, 0});
    EXPECT_EQ(Picture(window).at(label.left + 1, label.top + 1), RGB(0, 255, 0));
}

TEST_F(GridWindows, ShowAnUnlockedColumnsHeaderAsBefore) {
    widgets.grid.setCurrent({4, 1});
    pump();
    const Picture before(window);
    widgets.grid.setCellBackColor(0, 3, ui::green);
    pump();
    EXPECT_NE(Picture(window), before);
    widgets.grid.setCellBackColor(0, 3, 0);
    pump();
    EXPECT_EQ(Picture(window), before);
    const ui::Rect header = layout().cellRect({0, 3});
    EXPECT_EQ(Picture(window).at(header.left + 1, header.top + 1), GetSysColor(COLOR_BTNFACE));
}

TEST_F(GridWindows, MarkALockedColumnsHeaderBelowItsGreenWhenItIsCurrent) {
    widgets.grid.setCellBackColor(0, 3, ui::green);
    widgets.grid.setCurrent({4, 3});
    pump();
    const ui::Rect header = layout().cellRect({0, 3});
    const Picture picture(window);
    EXPECT_EQ(picture.at(header.left + 1, header.top + 1), RGB(0, 255, 0));
    EXPECT_EQ(picture.at(header.left + 1, header.bottom - 2), GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(GridWindows, ShowTheSelectionStrongerWithTheFocus) {
    SetFocus(window);
    widgets.grid.select({2, 1}, {3, 2});
    pump();
    const ui::Rect cell = layout().cellRect({3, 2});
    const COLORREF strong = GetSysColor(COLOR_HIGHLIGHT);
    EXPECT_EQ(Picture(window).at(cell.left + 1, cell.top + 1), strong);
    SetFocus(top.handle());
    pump();
    const COLORREF weak = Picture(window).at(cell.left + 1, cell.top + 1);
    EXPECT_NE(weak, strong);
    EXPECT_NE(weak, GetSysColor(COLOR_WINDOW));
}

TEST_F(GridWindows, MarkTheHeadersOfTheCurrentCell) {
    widgets.grid.setCurrent({4, 3});
    pump();
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const auto corner = [&](ui::Cell cell) {
        const ui::Rect rect = layout().cellRect(cell);
        return Picture(window).at(rect.left + 1, rect.top + 1);
    };
    EXPECT_NE(corner({4, 0}), face);
    EXPECT_NE(corner({0, 3}), face);
    EXPECT_EQ(corner({1, 0}), face);
    EXPECT_EQ(corner({0, 1}), face);
}

TEST_F(GridWindows, LeaveTheSpaceBesideTheCellsNeutral) {
    for (int column = 5; column < 27; ++column) {
        widgets.grid.setColumnWidth(column, 0);
    }
    pump();
    const Picture picture(window);
    EXPECT_EQ(picture.at(picture.width() - 2, picture.height() / 2), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(picture.at(picture.width() - 2, 2), GetSysColor(COLOR_BTNFACE));
}

TEST_F(GridWindows, LookTheSameScrolledAsPaintedAnew) {
    SetFocus(window);
    for (int row = 1; row < 256; ++row) {
        widgets.grid.setText(row, 1, std::to_string(row * 7));
        widgets.grid.setText(row, 8, std::to_string(row * 3));
    }
    widgets.grid.setColumnWidth(9, 4000);
    pump();
    for (const int to : {2, 40, 38, 255, 1, 7}) {
        widgets.grid.setTopRow(to);
        widgets.grid.setText(to, 2, "changed");
        pump();
        const Picture scrolled(window);
        EXPECT_EQ(clean().differing(scrolled), ui::Rect{}) << "row " << to;
    }
    for (const int to : {2, 4, 3, 9, 1}) {
        widgets.grid.setLeftColumn(to);
        pump();
        const Picture scrolled(window);
        EXPECT_EQ(clean().differing(scrolled), ui::Rect{}) << "column " << to;
    }
}

TEST_F(GridWindows, ScrollingPaintsOnlyWhatIsUncovered) {
    widgets.grid.setText(3, 1, "before");
    pump();
    soil();
    widgets.grid.setTopRow(3);
    pump();
    const Picture picture(window);
    const int header = layout().rowPixels(0);
    EXPECT_EQ(picture.count({0, header, picture.width(), header + 100}, mark), picture.width() * 100);
}

TEST_F(GridWindows, TakeTheirRowsHeightFromTheFont) {
    const ui::GridMetrics normal = GridPainter(desktop.font(96)).metrics();
    const ui::GridMetrics twice = GridPainter(desktop.font(192)).metrics();
    EXPECT_EQ(normal.dpi, 96);
    EXPECT_GT(normal.rowHeight, desktop.font(96)->height());
    EXPECT_GE(normal.headerHeight, 2 * desktop.font(96)->height());
    EXPECT_NEAR(twice.rowHeight, 2 * normal.rowHeight, 3);
    EXPECT_NEAR(twice.headerHeight, 2 * normal.headerHeight, 5);
    EXPECT_EQ(ui::GridLayout(widgets.grid, {800, 600}, twice).columnPixels(1), 147);
}

// ---- the frame

class GridFrames : public GridWindows {
protected:
    GridFrames() {
        for (int row = 1; row < 256; ++row) {
            widgets.grid.setText(row, 1, std::to_string(row));
        }
        widgets.grid.setCurrent({6, 1});
        pump();
        widgets.grid.setHighlightShown(true);
        pump();
    }
    // Whether the frame stands around a row, all of it and nothing else, on an otherwise clean picture.
    [[nodiscard]] bool framed(int row) {
        constexpr int width = 2;
        const ui::Rect rect = layout().rangeRect({row, 0, row, 26});
        const int pixels = (2 * width * rect.width()) + (2 * width * (rect.height() - (2 * width)));
        const Picture with(window);
        const Picture without = clean();
        widgets.grid.setHighlightShown(true);
        return with.differing(without) == rect && with.differences(without) == pixels;
    }
};

TEST_F(GridFrames, AreDrawnAndErasedWithoutATrace) {
    EXPECT_TRUE(framed(6));
    widgets.grid.setHighlightShown(false);
    const Picture erased(window);
    EXPECT_EQ(clean().differing(erased), ui::Rect{});
}

TEST_F(GridFrames, MoveWithTheCurrentRow) {
    widgets.grid.setRow(9);
    pump();
    EXPECT_TRUE(framed(9));
    const Picture blinked((widgets.grid.setHighlightShown(false), window));
    EXPECT_EQ(clean().differing(blinked), ui::Rect{});
}

TEST_F(GridFrames, LeaveNoTraceAfterScrolling) {
    for (const int to : {3, 30, 5, 255, 1}) {
        widgets.grid.setTopRow(to);
        widgets.grid.setHighlightShown(false);
        widgets.grid.setHighlightShown(true);
        pump();
        const Picture blinked((widgets.grid.setHighlightShown(false), window));
        EXPECT_EQ(clean().differing(blinked), ui::Rect{}) << to;
        widgets.grid.setHighlightShown(true);
        pump();
    }
    EXPECT_TRUE(framed(6));
}

TEST_F(GridFrames, LeaveNoTraceAfterResizing) {
    for (const ui::Rect& bounds : {ui::Rect{8, 8, 500, 300}, ui::Rect{8, 8, 708, 408}, ui::Rect{20, 20, 300, 100}}) {
        widgets.grid.setBounds(bounds);
        pump();
        const Picture blinked((widgets.grid.setHighlightShown(false), window));
        EXPECT_EQ(clean().differing(blinked), ui::Rect{}) << bounds.right;
        widgets.grid.setHighlightShown(true);
        pump();
    }
}

TEST_F(GridFrames, LeaveNoTraceAfterBeingCovered) {
    {
        const TopWindow cover(300, 200);
        SetWindowPos(cover.handle(), HWND_TOP, 60, 60, 300, 200, 0);
        pump();
        widgets.grid.setHighlightShown(false);
        widgets.grid.setHighlightShown(true);
    }
    pump();
    EXPECT_TRUE(framed(6));
}

TEST_F(GridFrames, LeaveNoTraceAfterHiding) {
    widgets.grid.setVisible(false);
    pump();
    widgets.grid.setHighlightShown(false);
    widgets.grid.setHighlightShown(true);
    widgets.grid.setVisible(true);
    pump();
    EXPECT_TRUE(framed(6));
    ShowWindow(top.handle(), SW_HIDE);
    pump();
    ShowWindow(top.handle(), SW_SHOW);
    pump();
    EXPECT_TRUE(framed(6));
}

TEST_F(GridFrames, SurviveThePaintingOfCellsUnderThem) {
    widgets.grid.setText(6, 2, "under");
    widgets.grid.setText(7, 2, "beside");
    pump();
    EXPECT_TRUE(framed(6));
}

TEST_F(GridFrames, AreNotDrawnForARowThatIsScrolledOut) {
    widgets.grid.setTopRow(100);
    pump();
    const Picture with(window);
    EXPECT_EQ(clean().differing(with), ui::Rect{});
}

// ---- bars and wheel

TEST_F(GridWindows, TheBarsRunOverRowsAndShownColumns) {
    widgets.grid.setColumnWidth(9, 4000);
    widgets.grid.setColumnWidth(12, 4000);
    const SCROLLINFO rows = bar(SB_VERT);
    EXPECT_EQ(rows.nMin, 1);
    EXPECT_EQ(rows.nMax, 255);
    EXPECT_EQ(static_cast<int>(rows.nPage), layout().fullRows());
    const SCROLLINFO columns = bar(SB_HORZ);
    EXPECT_EQ(columns.nMin, 0);
    EXPECT_EQ(columns.nMax, 9);
}

TEST_F(GridWindows, TheBarsFollowTheGrid) {
    widgets.grid.setTopRow(17);
    EXPECT_EQ(bar(SB_VERT).nPos, 17);
    widgets.grid.setTopRow(255);
    EXPECT_EQ(bar(SB_VERT).nPos, layout().lastTopRow());
}

TEST_F(GridWindows, TheGridReadsTheValuesInForce) {
    widgets.grid.setColumnWidth(9, 4000);
    widgets.grid.setTopRow(255);
    widgets.grid.setLeftColumn(26);
    EXPECT_EQ(widgets.grid.topRow(), layout().lastTopRow());
    EXPECT_EQ(widgets.grid.leftColumn(), layout().lastLeftColumn());
    pump();
    const Picture scrolled(window);
    EXPECT_EQ(clean().differing(scrolled), ui::Rect{});
    // A window that grows shows rows above instead of nothing below.
    widgets.grid.setTopRow(255);
    const int before = widgets.grid.topRow();
    widgets.grid.setBounds({8, 8, 708, 558});
    pump();
    EXPECT_LT(widgets.grid.topRow(), before);
    EXPECT_EQ(widgets.grid.topRow(), layout().lastTopRow());
}

TEST_F(GridWindows, TheBarsScroll) {
    const auto rows = [this](WORD request) { SendMessageW(window, WM_VSCROLL, request, 0); };
    rows(SB_LINEDOWN);
    EXPECT_EQ(widgets.grid.topRow(), 2);
    rows(SB_PAGEDOWN);
    EXPECT_EQ(widgets.grid.topRow(), 2 + layout().fullRows());
    rows(SB_BOTTOM);
    EXPECT_EQ(widgets.grid.topRow(), layout().lastTopRow());
    rows(SB_LINEUP);
    EXPECT_EQ(widgets.grid.topRow(), layout().lastTopRow() - 1);
    rows(SB_TOP);
    EXPECT_EQ(widgets.grid.topRow(), 1);
}

TEST_F(GridWindows, TheColumnBarSkipsHiddenColumns) {
    widgets.grid.setColumnWidth(9, 9000);
    widgets.grid.setColumnWidth(2, 0);
    SendMessageW(window, WM_HSCROLL, SB_LINERIGHT, 0);
    EXPECT_EQ(widgets.grid.leftColumn(), 3);
    SendMessageW(window, WM_HSCROLL, SB_LINELEFT, 0);
    EXPECT_EQ(widgets.grid.leftColumn(), 1);
}

TEST_F(GridWindows, AnUnneededBarGoes) {
    EXPECT_EQ(GetWindowLongW(window, GWL_STYLE) & WS_HSCROLL, 0);
    widgets.grid.setColumnWidth(9, 9000);
    pump();
    EXPECT_NE(GetWindowLongW(window, GWL_STYLE) & WS_HSCROLL, 0);
    widgets.grid.setColumnWidth(9, 0);
    pump();
    EXPECT_EQ(GetWindowLongW(window, GWL_STYLE) & WS_HSCROLL, 0);
}

TEST_F(GridWindows, TheWheelScrollsTheUsersNumberOfRows) {
    UINT rows = 0;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &rows, 0);
    ASSERT_GT(rows, 0U);
    const auto turn = [this](int delta) { SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0); };
    turn(-120);
    EXPECT_EQ(widgets.grid.topRow(), 1 + static_cast<int>(rows));
    turn(120);
    turn(120);
    EXPECT_EQ(widgets.grid.topRow(), 1);
}

TEST_F(GridWindows, FineTurnsOfTheWheelAddUp) {
    UINT rows = 0;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &rows, 0);
    for (int turn = 0; turn < 12; ++turn) {
        SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, -10), 0);
    }
    EXPECT_EQ(widgets.grid.topRow(), 1 + static_cast<int>(rows));
}

TEST_F(GridWindows, TheSidewaysWheelScrollsColumns) {
    widgets.grid.setColumnWidth(9, 9000);
    SendMessageW(window, WM_MOUSEHWHEEL, MAKEWPARAM(0, 240), 0);
    EXPECT_EQ(widgets.grid.leftColumn(), 3);
    SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, 120), 0);
    EXPECT_NE(widgets.grid.leftColumn(), 3);
}

// ---- mouse

TEST_F(GridWindows, APressSelectsACellAndTakesTheFocus) {
    press({4, 3});
    release({4, 3});
    EXPECT_EQ(widgets.grid.selection(), (ui::CellRange{4, 3, 4, 3}));
    EXPECT_EQ(GetFocus(), window);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(GridWindows, DraggingSelectsABlock) {
    press({4, 3});
    EXPECT_EQ(GetCapture(), window);
    move({6, 5});
    release({6, 5});
    EXPECT_EQ(widgets.grid.selection(), (ui::CellRange{4, 3, 6, 5}));
}

TEST_F(GridWindows, DraggingBelowTheWindowScrollsOn) {
    press({4, 3});
    const ui::Rect cell = layout().cellRect({4, 3});
    SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(cell.left + 4, 2000));
    until([&] { return widgets.grid.topRow() > 5; });
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(cell.left + 4, 2000));
    const int stopped = widgets.grid.topRow();
    const DWORD start = GetTickCount();
    desktop.pumpUntil([&] { return GetTickCount() - start > 200; });
    EXPECT_EQ(widgets.grid.topRow(), stopped);
    EXPECT_EQ(widgets.grid.selection().firstRow, 4);
    EXPECT_GT(widgets.grid.selection().lastRow, layout().fullRows());
}

TEST_F(GridWindows, ALostCaptureEndsTheDrag) {
    press({4, 3});
    SetCapture(top.handle());
    move({8, 3});
    EXPECT_EQ(widgets.grid.selection(), (ui::CellRange{4, 3, 4, 3}));
    ReleaseCapture();
}

TEST_F(GridWindows, TheRightButtonIsReported) {
    std::vector<ui::MouseButton> pressed;
    widgets.grid.MouseDown.connect([&](const ui::MouseEvent& event) { pressed.push_back(event.button); });
    SendMessageW(window, WM_RBUTTONDOWN, MK_RBUTTON, at({4, 3}));
    EXPECT_EQ(pressed, std::vector<ui::MouseButton>{ui::MouseButton::Right});
}

TEST_F(GridWindows, TheMenuKeyCountsAsTheRightButtonAtTheCurrentCell) {
    std::vector<ui::Point> pressed;
    widgets.grid.MouseDown.connect([&](const ui::MouseEvent& event) { pressed.push_back(event.at); });
    widgets.grid.setCurrent({3, 2});
    SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), -1);
    const ui::Rect cell = layout().cellRect({3, 2});
    EXPECT_EQ(pressed, (std::vector<ui::Point>{{cell.left, cell.bottom}}));
}

TEST_F(GridWindows, ADoubleClickIsReported) {
    int twice = 0;
    widgets.grid.DblClick.connect([&](const ui::DoubleClick&) { ++twice; });
    press({4, 3});
    release({4, 3});
    SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, at({4, 3}));
    release({4, 3});
    EXPECT_EQ(twice, 1);
    EXPECT_EQ(widgets.grid.row(), 4);
}

TEST_F(GridWindows, TellsWhereTheCurrentRowIsOnTheScreen) {
    widgets.grid.setCurrent({3, 2});
    const auto row = widgets.grid.currentRowOnScreen();
    ASSERT_TRUE(row);
    const ui::Rect inWindow = layout().highlightRect();
    POINT corner{inWindow.left, inWindow.top};
    ClientToScreen(window, &corner);
    EXPECT_EQ(*row, (ui::Rect{static_cast<int>(corner.x), static_cast<int>(corner.y),
                              static_cast<int>(corner.x) + inWindow.width(),
                              static_cast<int>(corner.y) + inWindow.height()}));
    widgets.grid.setTopRow(100);
    EXPECT_EQ(widgets.grid.currentRowOnScreen(), std::nullopt);
    widgets.grid.setTopRow(1);
    ShowWindow(top.handle(), SW_HIDE);
    EXPECT_EQ(widgets.grid.currentRowOnScreen(), std::nullopt);
}

// ---- keys

TEST_F(GridWindows, KeysMoveAndExtendTheSelection) {
    SetFocus(window);
    key(window, VK_DOWN);
    key(window, VK_RIGHT);
    EXPECT_EQ(widgets.grid.selection(), (ui::CellRange{2, 2, 2, 2}));
    const HeldKey shift(VK_SHIFT);
    key(window, VK_DOWN);
    EXPECT_EQ(widgets.grid.selection(), (ui::CellRange{2, 2, 3, 2}));
}

TEST_F(GridWindows, TheDeleteKeyIsAKeyDownAndThenACharacter) {
    std::vector<std::string> happened;
    widgets.grid.KeyDown.connect(
        [&](ui::KeyEvent& event) { happened.push_back("down " + std::to_string(event.code)); });
    widgets.grid.KeyPress.connect(
        [&](ui::KeyPressEvent& event) { happened.push_back("press " + std::to_string(event.code)); });
    SetFocus(window);
    PostMessageW(window, WM_KEYDOWN, VK_DELETE, 0x01530001);
    PostMessageW(window, WM_KEYDOWN, VK_BACK, 0x000E0001);
    pump();
    EXPECT_EQ(happened, (std::vector<std::string>{"down 46", "press 46", "down 8", "press 8"}));
}

TEST_F(GridWindows, ControlCIsAKeyDownWithControl) {
    unsigned held = 0;
    widgets.grid.KeyDown.connect([&](ui::KeyEvent& event) { held = event.shift; });
    SetFocus(window);
    const HeldKey control(VK_CONTROL);
    key(window, 'C');
    EXPECT_EQ(held, ui::shift::control);
}

TEST_F(GridWindows, LeaveTabAndEnterToDialogs) {
    EXPECT_EQ(SendMessageW(window, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS | DLGC_WANTCHARS);
}

TEST_F(GridWindows, ADisabledGridTakesNothing) {
    widgets.grid.setEnabled(false);
    EXPECT_FALSE(IsWindowEnabled(window));
    widgets.grid.setEnabled(true);
    EXPECT_TRUE(IsWindowEnabled(window));
}

}  // namespace
}  // namespace telvar::win32
