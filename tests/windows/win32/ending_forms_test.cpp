// The end of a form inside its own events.
#include <memory>

#include "form_world.h"

namespace telvar::win32 {
namespace {

class EndingForms : public FormWorld {
protected:
    void SetUp() override { mortal = std::make_unique<FormWidgets>(desktop); }
    void end() { mortal.reset(); }
    void open() {
        desktop.showModeless(mortal->form);
        pump();
    }
    void expectGone() {
        EXPECT_EQ(mortal, nullptr);
        EXPECT_EQ(window(), nullptr);
        pump();
    }

    std::unique_ptr<FormWidgets> mortal;
};

TEST_F(EndingForms, Load) {
    mortal->form.Load.connect([&] { end(); });
    desktop.showModal(mortal->form);
    expectGone();
}

TEST_F(EndingForms, AClickOfAModalForm) {
    mortal->ok.Click.connect([&] { end(); });
    whenOpen([&] { key(VK_RETURN); });
    desktop.showModal(mortal->form);
    expectGone();
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
}

TEST_F(EndingForms, TheCloseBox) {
    mortal->form.CloseBox.connect([&] { end(); });
    open();
    SendMessageW(window(), WM_CLOSE, 0, 0);
    expectGone();
}

TEST_F(EndingForms, Escape) {
    mortal->cancel.Click.connect([&] { end(); });
    open();
    key(VK_ESCAPE);
    expectGone();
}

TEST_F(EndingForms, AKeyAndACharacter) {
    mortal->name.KeyDown.connect([&](ui::KeyEvent&) { end(); });
    open();
    key('A');
    expectGone();
    SetUp();
    mortal->name.KeyPress.connect([&](ui::KeyPressEvent&) { end(); });
    open();
    key('A');
    expectGone();
    SetUp();
    mortal->tones.KeyPress.connect([&](ui::KeyPressEvent&) { end(); });
    mortal->form.Load.connect([&] { mortal->tones.setFocus(); });
    open();
    key('A');
    expectGone();
}

TEST_F(EndingForms, AChangeOfATextAListAndASlider) {
    mortal->name.Change.connect([&] { end(); });
    open();
    key('A');
    expectGone();
    SetUp();
    mortal->list.Click.connect([&] { end(); });
    mortal->form.Load.connect([&] { mortal->list.setFocus(); });
    open();
    key(VK_DOWN);
    expectGone();
    SetUp();
    mortal->level.Change.connect([&] { end(); });
    mortal->form.Load.connect([&] { mortal->level.setFocus(); });
    open();
    key(VK_UP);
    expectGone();
}

TEST_F(EndingForms, TheLossOfTheFocusThatEnterBrings) {
    mortal->name.LostFocus.connect([&] { end(); });
    open();
    mortal->note.setFocus();
    press(VK_RETURN);
    pump();
    expectGone();
}

TEST_F(EndingForms, AnAccessKeyOfAnOption) {
    mortal->narrow.Click.connect([&] { end(); });
    open();
    key('R', {VK_MENU});
    expectGone();
}

}  // namespace
}  // namespace telvar::win32
