// A form that is larger than the screen stays on it and scrolls.
#include <memory>

#include "form_world.h"
#include "win32/convert.h"

namespace telvar::win32 {
namespace {

constexpr UINT dpiChanged = 0x02E0;

// Fields one below the other or side by side, more than any screen has room for.
struct LargeForm {
    enum class Direction : std::uint8_t { Down, Across };

    LargeForm(ui::Desktop& desktop, Direction direction) {
        form.setCaption("Large");
        list.addItem("first");
        list.addItem("second");
        list.addItem("third");
        list.loadListIndex(0);
        check.setCaption("Check");
        ok.setCaption("OK");
        form.add(list);
        ui::LayoutParts parts{ui::widget(list)};
        for (int at = 0; at < count; ++at) {
            fields.push_back(std::make_unique<ui::TextBox>("txt" + std::to_string(at)));
            fields.back()->loadText(std::to_string(at));
            form.add(*fields.back());
            parts.push_back(ui::widget(*fields.back()));
        }
        form.add(check);
        form.add(ok);
        parts.push_back(ui::widget(check));
        parts.push_back(ui::widget(ok));
        form.setLayout(desktop, ui::withMargin(direction == Direction::Down ? ui::column(parts) : ui::row(parts)));
    }

    static constexpr int count = 100;
    ui::Form form{"frmLarge"};
    ui::ComboBox list{"cmbList"};
    std::vector<std::unique_ptr<ui::TextBox>> fields;
    ui::CheckBox check{"ckCheck"};
    ui::Button ok{"cmdOk"};
};

class ScrollingForms : public FormWorld {
protected:
    void open() {
        desktop.showModeless(large.form);
        pump();
    }
    [[nodiscard]] bool hasBar(LONG bar) const { return (GetWindowLongW(window(), GWL_STYLE) & bar) != 0; }
    [[nodiscard]] int scrolledDown() const { return GetScrollPos(window(), SB_VERT); }
    [[nodiscard]] ui::Rect client() const {
        RECT client{};
        GetClientRect(window(), &client);
        return rectOf(client);
    }
    // In the client area, as the screen shows it.
    [[nodiscard]] ui::Rect placeOf(const ui::Widget& widget) const {
        RECT at{};
        GetWindowRect(windowOf(widget), &at);
        MapWindowPoints(nullptr, window(), reinterpret_cast<POINT*>(&at), 2);
        return rectOf(at);
    }
    [[nodiscard]] bool isSeen(const ui::Widget& widget) const {
        return placeOf(widget).intersected(client()) == placeOf(widget);
    }
    void expectOnScreen() const {
        RECT screen{};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
        RECT at{};
        GetWindowRect(window(), &at);
        EXPECT_EQ(rectOf(at).intersected(rectOf(screen)), rectOf(at));
    }
    static void turn(HWND to, int delta, POINT at = {}) {
        const auto turned = static_cast<WORD>(static_cast<SHORT>(delta));
        SendMessageW(to, WM_MOUSEWHEEL, MAKEWPARAM(0, turned), MAKELPARAM(at.x, at.y));
    }
    static void wheel(HWND to, int notches, POINT at = {}) { turn(to, notches * WHEEL_DELTA, at); }

    LargeForm large{desktop, LargeForm::Direction::Down};
};

TEST_F(ScrollingForms, AHighFormOpensOnTheScreenWithAVerticalBar) {
    open();
    expectOnScreen();
    EXPECT_TRUE(hasBar(WS_VSCROLL));
    EXPECT_FALSE(hasBar(WS_HSCROLL));
    EXPECT_EQ(client().width(), large.form.size().width);
    EXPECT_LT(client().height(), large.form.size().height);
    EXPECT_TRUE(isSeen(large.list));
    EXPECT_FALSE(isSeen(large.ok));
}

TEST_F(ScrollingForms, AWideFormOpensOnTheScreenWithAHorizontalBar) {
    LargeForm wide(desktop, LargeForm::Direction::Across);
    desktop.showModeless(wide.form);
    pump();
    expectOnScreen();
    EXPECT_TRUE(hasBar(WS_HSCROLL));
    EXPECT_FALSE(hasBar(WS_VSCROLL));
    EXPECT_EQ(client().height(), wide.form.size().height);
    wheel(window(), -1);
    EXPECT_GT(GetScrollPos(window(), SB_HORZ), 0);
}

TEST_F(ScrollingForms, AFormThatFitsHasNoBars) {
    openModeless();
    EXPECT_FALSE(hasBar(WS_VSCROLL));
    EXPECT_FALSE(hasBar(WS_HSCROLL));
    EXPECT_EQ(widgets.form.size(), (ui::Size{client().width(), client().height()}));
}

TEST_F(ScrollingForms, AFormThatFitsAtOneResolutionScrollsAtAnother) {
    openModeless();
    const RECT suggested{0, 0, 9000, 9000};
    constexpr int high = 960;
    SendMessageW(window(), dpiChanged, static_cast<WPARAM>(MAKELONG(high, high)), reinterpret_cast<LPARAM>(&suggested));
    pump();
    expectOnScreen();
    EXPECT_TRUE(hasBar(WS_VSCROLL));
    EXPECT_TRUE(hasBar(WS_HSCROLL));
    EXPECT_EQ(widgets.form.size(), widgets.form.wantedSize(ui::Metrics(desktop, high)));
    SendMessageW(window(), dpiChanged, static_cast<WPARAM>(MAKELONG(96, 96)), reinterpret_cast<LPARAM>(&suggested));
    EXPECT_FALSE(hasBar(WS_VSCROLL));
    EXPECT_FALSE(hasBar(WS_HSCROLL));
    EXPECT_EQ(widgets.form.size(), (ui::Size{client().width(), client().height()}));
    EXPECT_TRUE(isSeen(widgets.name));
}

TEST_F(ScrollingForms, TheFocusedFieldIsAlwaysSeen) {
    open();
    for (const auto& field : large.fields) {
        key(VK_TAB);
        ASSERT_EQ(focused(large.form), field->name());
        ASSERT_TRUE(isSeen(*field)) << field->name();
    }
    for (int at = 0; at < 3; ++at) {
        key(VK_TAB);
    }
    EXPECT_EQ(focused(large.form), "cmbList");
    EXPECT_EQ(scrolledDown(), 0);
    key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(focused(large.form), "cmdOk");
    EXPECT_TRUE(isSeen(large.ok));
}

TEST_F(ScrollingForms, TheFocusedFieldIsSeenWhereTheFormTakesItsSizeAnew) {
    open();
    large.fields[60]->setFocus();
    pump();
    for (int at = 0; at < 20; ++at) {
        large.fields[static_cast<std::size_t>(at)]->setVisible(false);
    }
    large.form.fit();
    EXPECT_TRUE(isSeen(*large.fields[60]));
}

TEST_F(ScrollingForms, WithLessOnItTheBarGoes) {
    open();
    large.ok.setFocus();
    pump();
    EXPECT_GT(scrolledDown(), 0);
    for (std::size_t at = 5; at < large.fields.size(); ++at) {
        large.fields[at]->setVisible(false);
    }
    large.form.fit();
    EXPECT_FALSE(hasBar(WS_VSCROLL));
    EXPECT_EQ(client().height(), large.form.size().height);
    EXPECT_EQ(placeOf(large.ok), large.ok.bounds());
}

TEST_F(ScrollingForms, TheWheelScrollsAndBack) {
    open();
    const ui::Rect before = placeOf(large.ok);
    wheel(window(), -2);
    const int down = scrolledDown();
    EXPECT_GT(down, 0);
    EXPECT_EQ(placeOf(large.ok).top, before.top - down);
    wheel(window(), 2);
    EXPECT_EQ(placeOf(large.ok), before);
    for (int part = 0; part < 4; ++part) {
        turn(window(), -WHEEL_DELTA / 2);
    }
    EXPECT_EQ(scrolledDown(), down) << "a fine wheel scrolls as far";
}

TEST_F(ScrollingForms, TheWheelChangesAListOnlyUnderThePointer) {
    open();
    const HWND list = windowOf(large.list);
    ASSERT_EQ(GetFocus(), list);
    wheel(list, -1, {2000, 2000});
    EXPECT_EQ(large.list.listIndex(), 0);
    EXPECT_GT(scrolledDown(), 0);
    wheel(window(), 10);
    RECT at{};
    GetWindowRect(list, &at);
    wheel(list, -1, {at.left + 2, at.top + 2});
    EXPECT_EQ(large.list.listIndex(), 1);
    EXPECT_EQ(scrolledDown(), 0);
}

TEST_F(ScrollingForms, TheBarsScroll) {
    open();
    std::vector<int> positions;
    for (const int request : {SB_LINEDOWN, SB_PAGEDOWN, SB_BOTTOM, SB_LINEUP, SB_PAGEUP, SB_TOP}) {
        SendMessageW(window(), WM_VSCROLL, static_cast<WPARAM>(request), 0);
        positions.push_back(scrolledDown());
    }
    const int line = positions[0];
    const int page = positions[1] - line;
    const int bottom = large.form.size().height - client().height();
    EXPECT_GT(line, 0);
    EXPECT_GT(page, client().height() / 2);
    EXPECT_LT(page, client().height());
    EXPECT_EQ(positions, (std::vector<int>{line, line + page, bottom, bottom - line, bottom - line - page, 0}));
}

TEST_F(ScrollingForms, NothingOfTheFormerPlaceIsLeftOnTheScreen) {
    open();
    for (const int notches : {-3, -7, 2}) {
        wheel(window(), notches);
        pump();
        const Picture scrolled(window());
        RedrawWindow(window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        EXPECT_EQ(scrolled.differences(Picture(window())), 0) << notches;
    }
}

TEST_F(ScrollingForms, AClickOnWhatIsHalfSeenIsNotScrolledAwayFromUnderTheMouse) {
    open();
    // The upper half of the check box is below the upper edge.
    SendMessageW(window(), WM_VSCROLL, SB_BOTTOM, 0);
    const ui::Rect check = large.check.bounds();
    while (scrolledDown() + client().height() > check.top + check.height() / 2) {
        const int before = scrolledDown();
        turn(window(), WHEEL_DELTA / 20);
        ASSERT_LT(scrolledDown(), before);
    }
    ASSERT_FALSE(isSeen(large.check));
    const int before = scrolledDown();
    const HWND box = windowOf(large.check);
    SendMessageW(box, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 1));
    pump();
    EXPECT_EQ(scrolledDown(), before);
    SendMessageW(box, WM_LBUTTONUP, 0, MAKELPARAM(3, 1));
    EXPECT_EQ(large.check.value(), 1);
    until([&] { return isSeen(large.check); });
}

TEST_F(ScrollingForms, AFormThatIsPlacedSmallerScrolls) {
    widgets.form.Load.connect([&] { widgets.form.setBounds({30, 40, 230, 180}); });
    openModeless();
    EXPECT_TRUE(hasBar(WS_VSCROLL));
    EXPECT_TRUE(hasBar(WS_HSCROLL));
    EXPECT_EQ(widgets.form.size(), widgets.form.wantedSize(ui::Metrics(desktop, 96)));
    widgets.cancel.setFocus();
    pump();
    EXPECT_TRUE(isSeen(widgets.cancel));
}

}  // namespace
}  // namespace telvar::win32
