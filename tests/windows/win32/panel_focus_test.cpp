// Where the focus goes in a panel when the widget that has it cannot keep it, and Enter in a box that wants it.
#include "world.h"

namespace telvar::win32 {
namespace {

class PanelFocus : public World {};

TEST_F(PanelFocus, FallsBackToTheWidgetThatThePanelNames) {
    widgets.panel.setFocusFallback(&widgets.grid);
    SetFocus(windowOf(widgets.button));
    widgets.button.setEnabled(false);
    EXPECT_EQ(GetFocus(), windowOf(widgets.grid));
    SetFocus(windowOf(widgets.check));
    widgets.check.setVisible(false);
    EXPECT_EQ(GetFocus(), windowOf(widgets.grid));
}

TEST_F(PanelFocus, GoesOnInTabOrderWhereThatWidgetCannotHaveIt) {
    widgets.panel.setFocusFallback(&widgets.grid);
    widgets.grid.setEnabled(false);
    SetFocus(windowOf(widgets.button));
    widgets.button.setEnabled(false);
    EXPECT_EQ(GetFocus(), windowOf(widgets.check));
    widgets.grid.setEnabled(true);
    SetFocus(windowOf(widgets.grid));
    widgets.grid.setEnabled(false);
    EXPECT_EQ(GetFocus(), windowOf(widgets.text));
}

TEST_F(PanelFocus, EnterIsTheBoxsThatWantsItAndTheHostsElsewhere) {
    int entered = 0;
    widgets.text.KeyPress.connect([&](ui::KeyPressEvent& event) { entered += event.code == ui::key::enter ? 1 : 0; });
    SetFocus(windowOf(widgets.text));
    const auto dialogCode = [&] { return SendMessageW(GetFocus(), WM_GETDLGCODE, VK_RETURN, 0); };
    EXPECT_FALSE(press(VK_RETURN, L'\r'));
    EXPECT_EQ(entered, 0);
    EXPECT_EQ(dialogCode() & DLGC_WANTMESSAGE, 0);
    widgets.text.setTakesEnter(true);
    EXPECT_TRUE(press(VK_RETURN, L'\r'));
    EXPECT_EQ(entered, 1);
    EXPECT_NE(dialogCode() & DLGC_WANTMESSAGE, 0);
    const HeldKey control(VK_CONTROL);
    EXPECT_FALSE(press(VK_RETURN));
}

}  // namespace
}  // namespace telvar::win32
