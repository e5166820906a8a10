#include "form_world.h"

namespace telvar::win32 {
namespace {

class Forms : public FormWorld {};

TEST_F(Forms, AModalFormReturnsWhenItIsHidden) {
    widgets.ok.Click.connect([&] { desktop.hide(widgets.form); });
    whenOpen([&] {
        EXPECT_FALSE(IsWindowEnabled(top.handle()));
        EXPECT_TRUE(IsWindowVisible(window()));
        EXPECT_TRUE(desktop.isOpen(widgets.form));
        click(windowOf(widgets.ok));
    });
    desktop.showModal(widgets.form);
    EXPECT_FALSE(desktop.isOpen(widgets.form));
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
    EXPECT_EQ(GetActiveWindow(), top.handle());
    EXPECT_EQ(modeless, (std::vector<bool>{false, true}));
}

}  // namespace
}  // namespace telvar::win32
