#include "base/readable_colour.h"
#include "schemes.h"
#include "world.h"

#include "win/gdi.h"
#include "win32/panel_picture.h"

namespace telvar::win32 {
namespace {

class Panels : public World {};

TEST_F(Panels, GiveTheirSizeAndDotsPerInchToTheWidget) {
    int resized = 0;
    widgets.panel.Resize.connect([&] { ++resized; });
    panel->move({5, 6, 505, 306});
    EXPECT_EQ(widgets.panel.size(), (ui::Size{500, 300}));
    EXPECT_EQ(widgets.panel.dpi(), 96);
    EXPECT_EQ(resized, 1);
}

TEST_F(Panels, ShowOnlyTheClippedPart) {
    const RECT clip{0, 0, 200, 100};
    panel->move({10, 10, 510, 310}, &clip);
    const win::Region region(CreateRectRgn(0, 0, 0, 0));
    ASSERT_EQ(GetWindowRgn(panel->hwnd(), region.get()), SIMPLEREGION);
    RECT box{};
    GetRgnBox(region.get(), &box);
    EXPECT_EQ(box.right, 190);
    EXPECT_EQ(box.bottom, 90);
    panel->move({10, 10, 510, 310});
    EXPECT_EQ(GetWindowRgn(panel->hwnd(), region.get()), ERROR);
}

TEST_F(Panels, TellWhenTheFocusComesAndGoes) {
    std::vector<std::string> happened;
    panel->setFocusCallbacks([&] { happened.emplace_back("in"); }, [&] { happened.emplace_back("out"); });
    SetFocus(windowOf(widgets.grid));
    SetFocus(windowOf(widgets.text));
    SetFocus(top.handle());
    EXPECT_EQ(happened, (std::vector<std::string>{"in", "out"}));
    EXPECT_FALSE(panel->hasFocus());
}

TEST_F(Panels, GiveTheFocusBackToTheWidgetThatHadIt) {
    SetFocus(windowOf(widgets.check));
    SetFocus(top.handle());
    panel->focus();
    EXPECT_EQ(GetFocus(), windowOf(widgets.check));
}

TEST_F(Panels, TabGoesThroughTheTabStopsAndLeavesAtTheEnds) {
    widgets.none.loadValue(true);
    widgets.button.setEnabled(false);
    panel->focusFirst();
    std::vector<HWND> stops{GetFocus()};
    while (press(VK_TAB)) {
        stops.push_back(GetFocus());
        ASSERT_LT(stops.size(), 10U);
    }
    EXPECT_EQ(stops, (std::vector<HWND>{windowOf(widgets.grid), windowOf(widgets.text), windowOf(widgets.check),
                                        windowOf(widgets.none), windowOf(widgets.list),
                                        GetWindow(windowOf(widgets.typed), GW_CHILD)}));
    panel->focusLast();
    EXPECT_EQ(GetParent(GetFocus()), windowOf(widgets.typed));
    const HeldKey shift(VK_SHIFT);
    EXPECT_TRUE(press(VK_TAB));
    EXPECT_EQ(GetFocus(), windowOf(widgets.list));
    panel->focusFirst();
    EXPECT_FALSE(press(VK_TAB));
}

TEST_F(Panels, LeaveEscapeEnterAndFunctionKeysToTheHost) {
    for (const ui::Widget* const widget :
         {static_cast<ui::Widget*>(&widgets.grid), static_cast<ui::Widget*>(&widgets.text)}) {
        SetFocus(windowOf(*widget));
        EXPECT_FALSE(press(VK_ESCAPE)) << widget->name();
        EXPECT_FALSE(press(VK_RETURN)) << widget->name();
        EXPECT_FALSE(press(VK_F2)) << widget->name();
    }
}

TEST_F(Panels, TheGridsKeyDownRuleRunsOnceForAKeyThatTheHostGets) {
    std::vector<int> codes;
    widgets.grid.KeyDown.connect([&](ui::KeyEvent& event) { codes.push_back(event.code); });
    SetFocus(windowOf(widgets.grid));
    PostMessageW(windowOf(widgets.grid), WM_KEYDOWN, VK_F2, 0);
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, windowOf(widgets.grid), WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE));
    EXPECT_FALSE(panel->translateAccelerator(message));
    DispatchMessageW(&message);
    EXPECT_EQ(codes, std::vector<int>{VK_F2});
    key(windowOf(widgets.grid), VK_F2);
    EXPECT_EQ(codes.size(), 2U);
}

TEST_F(Panels, TakeTheKeysOfTheGrid) {
    SetFocus(windowOf(widgets.grid));
    EXPECT_TRUE(press(VK_DOWN));
    EXPECT_EQ(widgets.grid.row(), 2);
}

TEST_F(Panels, AnAccessKeyActsOnItsWidget) {
    int clicks = 0;
    widgets.button.Click.connect([&] { ++clicks; });
    SetFocus(windowOf(widgets.grid));
    MSG message{};
    message.hwnd = GetFocus();
    message.message = WM_SYSCHAR;
    message.wParam = L's';
    EXPECT_TRUE(panel->translateAccelerator(message));
    EXPECT_EQ(GetFocus(), windowOf(widgets.text));
    EXPECT_TRUE(panel->pressAccessKey(L'E'));
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(panel->pressAccessKey(L'l'));
    EXPECT_EQ(widgets.check.value(), 1);
    EXPECT_TRUE(panel->pressAccessKey(L'p'));
    EXPECT_TRUE(widgets.levels.value());
    EXPECT_FALSE(panel->pressAccessKey(L'q'));
}

TEST_F(Panels, EnterPressesTheFocusedButton) {
    int clicks = 0;
    widgets.button.Click.connect([&] { ++clicks; });
    SetFocus(windowOf(widgets.button));
    EXPECT_TRUE(press(VK_RETURN));
    EXPECT_EQ(clicks, 1);
}

TEST_F(Panels, SurviveTheirDestructionInAClick) {
    widgets.button.Click.connect([&] { panel.reset(); });
    const HWND shown = windowOf(widgets.button);
    click(shown);
    pump();
    EXPECT_FALSE(IsWindow(shown));
    EXPECT_FALSE(widgets.button.attached());
    EXPECT_FALSE(widgets.grid.attached());
}

TEST_F(Panels, SurviveTheirDestructionInEveryEvent) {
    const auto reopen = [&] {
        RECT client{};
        GetClientRect(top.handle(), &client);
        panel = std::make_unique<PanelWindow>(desktop, widgets.panel, top.handle(), client);
        pump();
    };
    widgets.text.LostFocus.connect([&] { panel.reset(); });
    widgets.text.KeyDown.connect([&](ui::KeyEvent&) { panel.reset(); });
    widgets.grid.KeyDown.connect([&](ui::KeyEvent&) { panel.reset(); });
    widgets.grid.MouseDown.connect([&](const ui::MouseEvent&) { panel.reset(); });
    widgets.grid.SelectionChanged.connect([&] { panel.reset(); });
    widgets.list.Click.connect([&] { panel.reset(); });

    const auto keyTo = [&](const ui::Widget& widget) {
        const HWND window = windowOf(widget);
        SetFocus(window);
        pump();
        SendMessageW(window, WM_KEYDOWN, VK_DOWN, 0);
    };
    SetFocus(windowOf(widgets.text));
    pump();
    click(windowOf(widgets.button));
    EXPECT_EQ(panel, nullptr) << "lost focus";
    reopen();
    keyTo(widgets.text);
    EXPECT_EQ(panel, nullptr) << "key in a text";
    reopen();
    keyTo(widgets.grid);
    EXPECT_EQ(panel, nullptr) << "key in the grid";
    reopen();
    keyTo(widgets.list);
    EXPECT_EQ(panel, nullptr) << "choice in a list";
    reopen();
    const HWND grid = windowOf(widgets.grid);
    SendMessageW(grid, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(100, 100));
    EXPECT_EQ(panel, nullptr) << "press in the grid";
    EXPECT_FALSE(IsWindow(grid));
    pump();
}

TEST_F(Panels, LetGoOfTheirWidgetsWhenTheParentIsDestroyed) {
    auto parent = std::make_unique<TopWindow>(400, 300);
    ui::Panel surface("surface");
    ui::Button button("button");
    surface.add(button);
    PanelWindow window(desktop, surface, parent->handle(), {0, 0, 100, 100});
    EXPECT_TRUE(button.attached());
    parent.reset();
    EXPECT_EQ(window.hwnd(), nullptr);
    EXPECT_FALSE(button.attached());
    EXPECT_FALSE(surface.attached());
    button.setCaption("still alive");
}

TEST_F(Panels, HoldTheirOwnerDuringAMessage) {
    int held = 0;
    int mostHeld = 0;
    panel->setHolder([&]() -> std::shared_ptr<void> {
        ++held;
        return {static_cast<void*>(&held), [](void* count) { --*static_cast<int*>(count); }};
    });
    widgets.button.Click.connect([&] { mostHeld = held; });
    click(windowOf(widgets.button));
    EXPECT_GE(mostHeld, 1);
    EXPECT_EQ(held, 0);
}

TEST_F(Panels, CanBeShownAgain) {
    panel.reset();
    widgets.text.loadText("again");
    RECT client{};
    GetClientRect(top.handle(), &client);
    panel = std::make_unique<PanelWindow>(desktop, widgets.panel, top.handle(), client);
    EXPECT_TRUE(widgets.text.attached());
    EXPECT_NE(windowOf(widgets.grid), nullptr);
}

// ---- the picture without a window

class PanelPictures : public testing::Test {
protected:
    // The pixels of a picture of the widgets, drawn at that size and number of dots per inch.
    static Picture drawn(Widgets& widgets, int width, int height, int dpi) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        const win::MemoryContext dc;
        const win::Bitmap bitmap(CreateDIBSection(dc.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        {
            const win::Selected selected(dc.get(), bitmap.get());
            drawPanel(widgets.panel, dc.get(), {0, 0, width, height}, dpi);
            GdiFlush();
        }
        const auto* const first = static_cast<const DWORD*>(bits);
        std::vector<COLORREF> pixels(first, first + (static_cast<std::ptrdiff_t>(width) * height));
        for (COLORREF& pixel : pixels) {
            pixel = RGB((pixel >> 16U) & 0xFFU, (pixel >> 8U) & 0xFFU, pixel & 0xFFU);
        }
        return {width, height, std::move(pixels)};
    }
};

TEST_F(PanelPictures, ShowTheWidgetsInTheirPlaces) {
    Widgets widgets;
    widgets.grid.setCellBackColor(2, 1, ui::green);
    const Picture picture = drawn(widgets, 760, 460, 96);
    EXPECT_EQ(widgets.panel.size(), (ui::Size{760, 460}));
    EXPECT_EQ(picture.at(2, 2), GetSysColor(COLOR_BTNFACE));
    EXPECT_GT(picture.count(widgets.grid.bounds(), RGB(0, 255, 0)), 500);
    EXPECT_GT(picture.count(widgets.text.bounds(), GetSysColor(COLOR_WINDOW)), 500);
    EXPECT_GT(picture.count(widgets.label.bounds(), GetSysColor(COLOR_WINDOWTEXT)), 5);
}

TEST_F(PanelPictures, ShowALockedColumnsHeaderGreen) {
    Widgets widgets;
    const Picture before = drawn(widgets, 760, 460, 96);
    EXPECT_EQ(before.count(widgets.grid.bounds(), RGB(0, 255, 0)), 0);
    widgets.grid.setCellBackColor(0, 3, ui::green);
    const Picture picture = drawn(widgets, 760, 460, 96);
    const ui::Rect green = picture.differing(before);
    EXPECT_LT(green.top, widgets.grid.bounds().top + 5);
    EXPECT_GT(picture.count(green, RGB(0, 255, 0)), green.width() * green.height() / 2);
    EXPECT_EQ(picture.count(widgets.grid.bounds(), RGB(0, 255, 0)), picture.count(green, RGB(0, 255, 0)));
    widgets.grid.setCellBackColor(0, 3, 0);
    EXPECT_EQ(drawn(widgets, 760, 460, 96), before);
}

TEST_F(PanelPictures, ShowEveryTextSoThatItCanBeReadInEveryScheme) {
    for (const Scheme& scheme : everyScheme()) {
        SCOPED_TRACE(scheme.name);
        const SchemeInForce inForce(scheme);
        Widgets widgets;
        widgets.text.loadText("12");
        widgets.text.setForeColor(ui::red);
        widgets.typed.loadText("67.0");
        widgets.list.loadListIndex(0);
        widgets.grid.setText(3, 2, "88.5");
        widgets.grid.setCellBackColor(0, 3, ui::green);
        const Picture with = drawn(widgets, 760, 460, 96);
        widgets.text.loadText("");
        widgets.typed.loadText("");
        widgets.list.loadListIndex(-1);
        for (ui::Widget* const child : widgets.panel.children()) {
            child->setCaption("");
        }
        for (int column = 0; column < widgets.grid.columns(); ++column) {
            widgets.grid.setText(0, column, "");
            widgets.grid.setText(3, column, "");
        }
        const Picture without = drawn(widgets, 760, 460, 96);
        for (const ui::Widget* const child : widgets.panel.children()) {
            constexpr int leastPixels = 5;
            EXPECT_GE(pixelsSeen(with, without, child->bounds(), base::readableContrast), leastPixels) << child->name();
        }
        EXPECT_EQ(widgets.text.foreColor(), ui::red);
    }
}

TEST_F(PanelPictures, LeaveHiddenWidgetsOut) {
    Widgets widgets;
    widgets.grid.setVisible(false);
    const Picture picture = drawn(widgets, 760, 460, 96);
    EXPECT_EQ(picture.count(widgets.grid.bounds(), GetSysColor(COLOR_BTNFACE)),
              widgets.grid.bounds().width() * widgets.grid.bounds().height());
}

TEST_F(PanelPictures, CarryTheDotsPerInchToTheWidgets) {
    Widgets widgets;
    static_cast<void>(drawn(widgets, 760, 460, 192));
    EXPECT_EQ(widgets.panel.dpi(), 192);
}

TEST_F(PanelPictures, GoIntoAMetafile) {
    Widgets widgets;
    const HDC meta = CreateMetaFileW(nullptr);
    drawPanel(widgets.panel, meta, {0, 0, 300, 200}, 96);
    const HMETAFILE file = CloseMetaFile(meta);
    ASSERT_NE(file, nullptr);
    EXPECT_GT(GetMetaFileBitsEx(file, 0, nullptr), 1000U);
    DeleteMetaFile(file);
}

}  // namespace
}  // namespace telvar::win32
