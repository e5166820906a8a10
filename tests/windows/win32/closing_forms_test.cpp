// All open forms closed at once, as the end of the control does it.
#include <memory>

#include "form_world.h"
#include "ui/timer.h"

namespace telvar::win32 {
namespace {

class ClosingForms : public FormWorld {
protected:
    ui::Form& form = widgets.form;
    FormWidgets second{desktop};
};

TEST_F(ClosingForms, AModalFormWhoseLoopIsRunningReturns) {
    whenOpen([&] {
        EXPECT_FALSE(IsWindowEnabled(top.handle()));
        desktop.closeForms();
        EXPECT_FALSE(desktop.isOpen(form));
        EXPECT_TRUE(IsWindowEnabled(top.handle()));
    });
    desktop.showModal(form);
    EXPECT_EQ(window(), nullptr);
    EXPECT_FALSE(form.attached());
    EXPECT_EQ(modeless, (std::vector<bool>{false, true}));
    EXPECT_EQ(GetActiveWindow(), top.handle());
}

TEST_F(ClosingForms, AModalFormOverAModalFormReturnsToo) {
    std::vector<std::string> returned;
    whenOpen([&] {
        desktop.dispatcher().post([&] { desktop.closeForms(); });
        desktop.showModal(second.form);
        returned.emplace_back("second");
    });
    desktop.showModal(form);
    returned.emplace_back("first");
    EXPECT_EQ(returned, (std::vector<std::string>{"second", "first"}));
    EXPECT_EQ(window(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
}

TEST_F(ClosingForms, ModelessFormsCloseWithTheModalOneOverThem) {
    openModeless();
    desktop.dispatcher().post([&] { desktop.closeForms(); });
    desktop.showModal(second.form);
    EXPECT_FALSE(desktop.isOpen(form));
    EXPECT_EQ(window(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
}

TEST_F(ClosingForms, NothingIsRaised) {
    int raised = 0;
    const auto count = [&] { ++raised; };
    openModeless();
    form.CloseBox.connect(count);
    widgets.name.LostFocus.connect(count);
    widgets.cancel.Click.connect(count);
    desktop.closeForms();
    pump();
    EXPECT_EQ(raised, 0);
    desktop.closeForms();
}

TEST_F(ClosingForms, FromInsideLoadTheFormDoesNotComeUp) {
    form.Load.connect([&] { desktop.closeForms(); });
    desktop.showModal(form);
    EXPECT_FALSE(desktop.isOpen(form));
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
}

TEST_F(ClosingForms, FromInsideTheirOwnEvents) {
    widgets.ok.Click.connect([&] { desktop.closeForms(); });
    whenOpen([&] { key(VK_RETURN); });
    desktop.showModal(form);
    EXPECT_EQ(window(), nullptr);
    widgets.name.KeyPress.connect([&](ui::KeyPressEvent& /*event*/) { desktop.closeForms(); });
    openModeless();
    key('A');
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(widgets.name.text(), "");
}

TEST_F(ClosingForms, AFormMayBeShownAgainAfterwards) {
    openModeless();
    desktop.closeForms();
    openModeless();
    EXPECT_TRUE(desktop.isOpen(form));
    key('A');
    EXPECT_EQ(widgets.name.text(), "a");
}

TEST_F(ClosingForms, TheDesktopMayEndInsideTheLoopOfAModalForm) {
    auto other = std::make_unique<WindowsDesktop>();
    auto own = std::make_unique<FormWidgets>(*other);
    other->setSite({.owner = [this] { return top.handle(); }});
    desktop.dispatcher().post([&] {
        other->closeForms();
        own.reset();
        other.reset();
    });
    other->showModal(own->form);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(window(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
}

}  // namespace
}  // namespace telvar::win32
