// Where the keyboard goes after a press of Select, in the channel-select box, and at the end of the edit form: natively
// as the events of the widgets that are given it.
#include "control_world.h"

namespace telvar::tests {
namespace {

class Focus : public ControlWorld {
protected:
    Focus() {
        control->fgdDatabase.GotFocus.connect([this] {
            focused.emplace_back("grid");
            selectWasEnabled = control->cmdChannelSelect.enabled();
        });
        control->txtChannelSelect.GotFocus.connect([this] { focused.emplace_back("box"); });
    }

    // As the peer reports it; answers whether the key was used up.
    bool typeEnter() {
        ui::KeyPressEvent event{.code = ui::key::enter};
        control->txtChannelSelect.KeyPress(event);
        return event.code == 0;
    }
    void openForm() {
        control->DistributeDataStoreLink();
        fill(*store, 7, {{ChannelKey::TxFreq, 150'000'000}, {ChannelKey::RxFreq, 151'000'000}});
        grid().setCurrent({7, 2});
        control->editChannel();
        ASSERT_TRUE(desktop.isOpen(control->frmCE));
        focused.clear();
    }

    Log focused;
    bool selectWasEnabled = false;
};

TEST_F(Focus, GoesToTheGridBeforeSelectDisablesItself) {
    control->txtChannelSelect.setText("12");
    control->cmdChannelSelect.userPress();
    EXPECT_EQ(focused, Log{"grid"});
    EXPECT_TRUE(selectWasEnabled);
    EXPECT_FALSE(control->cmdChannelSelect.enabled());
    EXPECT_EQ(link->calls, Log{"SelectChannel 12"});
}

TEST_F(Focus, FallsBackToTheGridFromAWidgetThatIsDisabled) {
    EXPECT_EQ(control->panel().focusFallback(), &control->fgdDatabase);
}

TEST_F(Focus, AnInvalidNumberBringsItToTheBoxInTheEnd) {
    control->txtChannelSelect.setText("abc");
    control->cmdChannelSelect.userPress();
    EXPECT_EQ(focused, (Log{"grid", "box"}));
    EXPECT_EQ(control->txtChannelSelect.selLength(), 3);
    EXPECT_EQ(boxes().size(), 1U);
}

TEST_F(Focus, EnterInTheBoxPressesSelect) {
    EXPECT_TRUE(control->txtChannelSelect.takesEnter());
    control->txtChannelSelect.setText("12");
    EXPECT_TRUE(typeEnter());
    EXPECT_EQ(link->calls, Log{"SelectChannel 12"});
    EXPECT_EQ(focused, Log{"grid"});
    EXPECT_FALSE(control->cmdChannelSelect.enabled());
}

TEST_F(Focus, EnterDoesNothingWhileSelectIsDisabled) {
    control->cmdChannelSelect.setEnabled(false);
    control->txtChannelSelect.setText("12");
    EXPECT_TRUE(typeEnter());
    EXPECT_EQ(link->calls, Log{});
    EXPECT_EQ(focused, Log{});
}

TEST_F(Focus, OtherCharactersStayInTheBox) {
    ui::KeyPressEvent event{.code = '1'};
    control->txtChannelSelect.KeyPress(event);
    EXPECT_EQ(event.code, '1');
    EXPECT_EQ(link->calls, Log{});
}

TEST_F(Focus, EnteringTheBoxSelectsItsText) {
    control->txtChannelSelect.setText("123");
    control->txtChannelSelect.setFocus();
    EXPECT_EQ(control->txtChannelSelect.selStart(), 0);
    EXPECT_EQ(control->txtChannelSelect.selLength(), 3);
}

// The host steps the number wherever the user is.
TEST_F(Focus, StaysWhenTheHostStepsTheChannel) {
    store->setAutomaticSelect(true);
    control->txtChannelSelect.setText("12");
    control->ChannelKeyDown();
    EXPECT_EQ(link->calls, Log{"SelectChannel 13"});
    EXPECT_EQ(focused, Log{});
}

TEST_F(Focus, GoesToTheGridAtEachEndOfTheEditForm) {
    openForm();
    control->frmCE.cmdCancel.userPress();
    EXPECT_EQ(focused, Log{"grid"});
    openForm();
    control->frmCE.cmdOk.userPress();
    EXPECT_EQ(focused, Log{"grid"});
    openForm();
    desktop.close(control->frmCE);
    EXPECT_EQ(focused, Log{"grid"});
}

TEST_F(Focus, IsGivenToTheGridForTheHost) {
    control->focusGrid();
    EXPECT_EQ(focused, Log{"grid"});
    control->close();
    control->focusGrid();
    EXPECT_EQ(focused, Log{"grid"});
}

}  // namespace
}  // namespace telvar::tests
