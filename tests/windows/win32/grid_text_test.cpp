// What of a text is shown in a cell that is too narrow for it, and the tooltip that has the rest.
#include "win/text.h"
#include "win32/grid_text.h"

#include <commctrl.h>

#include <array>

#include "ui/grid_layout.h"
#include "win32/grid_painter.h"
#include "world.h"

namespace telvar::win32 {
namespace {

class GridTexts : public testing::TestWithParam<int> {
protected:
    [[nodiscard]] int widthOf(std::wstring_view text) const { return font.widthOf(dc.get(), text); }
    [[nodiscard]] FittedText fitted(std::wstring_view text, int width) { return texts.cell(text, width, buffer); }
    [[nodiscard]] int scaled(int pixels) const { return MulDiv(pixels, GetParam(), 96); }

    FormFont font{GetParam()};
    win::MemoryContext dc;
    win::Selected selected{dc.get(), font.get()};
    GridText texts{font, dc.get()};
    std::wstring buffer;
};

TEST_P(GridTexts, HaveTheUsualInsetWhereThereIsRoom) {
    const FittedText shown = fitted(L"P25 Repeater", widthOf(L"P25 Repeater") + (2 * scaled(3)));
    EXPECT_EQ(shown.text, L"P25 Repeater");
    EXPECT_EQ(shown.inset, scaled(3));
    EXPECT_FALSE(shown.cut);
}

TEST_P(GridTexts, HaveASmallerInsetBeforeAnythingIsCut) {
    const int wide = widthOf(L"P25 Repeater");
    for (int width = wide + (2 * scaled(1)); width < wide + (2 * scaled(3)); ++width) {
        const FittedText shown = fitted(L"P25 Repeater", width);
        EXPECT_EQ(shown.text, L"P25 Repeater") << width;
        EXPECT_EQ(shown.inset, scaled(1)) << width;
        EXPECT_FALSE(shown.cut) << width;
    }
}

TEST_P(GridTexts, EndInDotsThatFitWhereThereIsNoRoomEvenSo) {
    const int wide = widthOf(L"P25 Repeater");
    for (int width = widthOf(L"...") + (2 * scaled(1)); width < wide + (2 * scaled(1)); ++width) {
        const FittedText shown = fitted(L"P25 Repeater", width);
        EXPECT_TRUE(shown.cut) << width;
        EXPECT_TRUE(shown.text.ends_with(L"...")) << width;
        EXPECT_EQ(std::wstring_view(L"P25 Repeater").substr(0, shown.text.size() - 3),
                  shown.text.substr(0, shown.text.size() - 3));
        EXPECT_LE(widthOf(shown.text), width - (2 * scaled(1))) << width;
    }
}

TEST_P(GridTexts, ShowAsMuchAsFits) {
    const int wide = widthOf(L"P25 Repe...") + (2 * scaled(1));
    EXPECT_EQ(fitted(L"P25 Repeater", wide).text, L"P25 Repe...");
    EXPECT_EQ(fitted(L"P25 Repeater", wide - 1).text, L"P25 Rep...");
}

TEST_P(GridTexts, AreNotCutInsideACharacter) {
    const std::wstring text = L"\xD83D\xDE00\xD83D\xDE00\xD83D\xDE00\xD83D\xDE00";
    for (int width = 0; width < widthOf(text); ++width) {
        const FittedText shown = fitted(text, width);
        EXPECT_EQ((shown.text.size() - 3) % 2, 0U) << width;
    }
}

// The published width of the column, less the line at its right.
TEST_P(GridTexts, HaveRoomForEveryModeInItsColumn) {
    constexpr int columnWidth = 1100;
    for (const wchar_t* const mode : {L"Simplex", L"Repeater", L"P25 Repeater", L"Mixed Mode"}) {
        EXPECT_FALSE(fitted(mode, ui::pixelsOf(columnWidth, GetParam()) - 1).cut) << win::narrow(mode);
    }
}

INSTANTIATE_TEST_SUITE_P(Resolutions, GridTexts, testing::Values(96, 120, 144, 192));

// ---- tooltips

BOOL CALLBACK findTip(HWND window, LPARAM found) {
    std::array<wchar_t, 64> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    if (std::wstring_view(name.data()) != TOOLTIPS_CLASSW || IsWindowVisible(window) == FALSE) {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

class GridTips : public World {
protected:
    GridTips() : window(windowOf(widgets.grid)) {
        SetForegroundWindow(top.handle());
        widgets.grid.setText(5, 3, longText);
        widgets.grid.setText(5, 4, "88.5");
        widgets.grid.setText(0, 6, longHeader);
        pump();
        pointAt({9, 1});
    }
    [[nodiscard]] ui::Rect placeOf(ui::Cell cell) {
        RECT client{};
        GetClientRect(window, &client);
        const ui::GridLayout layout(widgets.grid, {static_cast<int>(client.right), static_cast<int>(client.bottom)},
                                    GridPainter(desktop.font(96)).metrics());
        return layout.cellRect(cell);
    }
    // As a hand moves the mouse: the system makes the messages.
    void pointAt(ui::Cell cell) {
        const ui::Rect place = placeOf(cell);
        POINT at{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        ClientToScreen(window, &at);
        SetCursorPos(static_cast<int>(at.x), static_cast<int>(at.y));
        INPUT moved{};
        moved.type = INPUT_MOUSE;
        moved.mi.dx = 1;
        moved.mi.dwFlags = MOUSEEVENTF_MOVE;
        SendInput(1, &moved, sizeof moved);
        pump();
    }
    // Null while none is shown.
    [[nodiscard]] static HWND tip() {
        HWND found = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), findTip, reinterpret_cast<LPARAM>(&found));
        return found;
    }
    [[nodiscard]] static std::string tipText() {
        std::array<wchar_t, 200> text{};
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.lpszText = text.data();
        SendMessageW(tip(), TTM_GETCURRENTTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
        return win::narrow(text.data());
    }
    // Longer than the system waits before it shows one.
    void expectNoTip() {
        const auto end = GetTickCount64() + (3ULL * GetDoubleClickTime());
        desktop.pumpUntil([&] { return tip() != nullptr || GetTickCount64() > end; });
        EXPECT_EQ(tip(), nullptr) << tipText();
    }

    static constexpr const char* longText = "A subtone & more than its column is wide for";
    static constexpr const char* longHeader = "Incomprehensibilities Uncharacteristically Counterrevolutionaries";
    HWND window;
};

TEST_F(GridTips, ShowTheWholeTextOfACutCell) {
    pointAt({5, 3});
    ASSERT_TRUE(until([] { return tip() != nullptr; }));
    EXPECT_EQ(tipText(), longText);
}

TEST_F(GridTips, ShowTheWholeTextOfACutHeader) {
    pointAt({0, 6});
    ASSERT_TRUE(until([] { return tip() != nullptr; }));
    EXPECT_EQ(tipText(), longHeader);
}

TEST_F(GridTips, FollowTheMouseToTheNextCutCell) {
    widgets.grid.setText(6, 3, "Another text that is too long for its cell");
    pointAt({5, 3});
    ASSERT_TRUE(until([] { return tip() != nullptr; }));
    pointAt({6, 3});
    EXPECT_TRUE(until([] { return tip() != nullptr && tipText() == "Another text that is too long for its cell"; }));
}

TEST_F(GridTips, AreNotForCellsThatShowEverything) {
    pointAt({5, 4});
    expectNoTip();
    pointAt({0, 4});
    expectNoTip();
}

TEST_F(GridTips, GoWithTheMouse) {
    pointAt({5, 3});
    ASSERT_TRUE(until([] { return tip() != nullptr; }));
    pointAt({5, 4});
    EXPECT_TRUE(until([] { return tip() == nullptr; }));
}

TEST_F(GridTips, GoWhenTheTextChanges) {
    pointAt({5, 3});
    ASSERT_TRUE(until([] { return tip() != nullptr; }));
    widgets.grid.setText(5, 3, "short");
    pump();
    EXPECT_EQ(tip(), nullptr);
    pointAt({5, 4});
    pointAt({5, 3});
    expectNoTip();
}

TEST_F(GridTips, GoWhenTheGridScrolls) {
    pointAt({5, 3});
    ASSERT_TRUE(until([] { return tip() != nullptr; }));
    widgets.grid.setTopRow(20);
    pump();
    EXPECT_EQ(tip(), nullptr);
}

TEST_F(GridTips, GoWithTheGrid) {
    pointAt({5, 3});
    ASSERT_TRUE(until([] { return tip() != nullptr; }));
    const HWND shown = tip();
    panel.reset();
    EXPECT_FALSE(IsWindow(shown));
}

TEST_F(GridTips, AreShownBesideAnotherWindowThatIsActive) {
    const TopWindow other(60, 40);
    SetWindowPos(other.handle(), nullptr, 700, 500, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    pump();
    pointAt({5, 3});
    EXPECT_TRUE(until([] { return tip() != nullptr; }));
}

}  // namespace
}  // namespace telvar::win32
