// The question that the user may switch off, with what is remembered of it.
#include "control/confirmation.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "base/failure.h"
#include "control_world.h"
#include "support/test_desktop.h"

namespace telvar::tests {
namespace {

class Confirmation : public testing::Test {
protected:
    void answer(std::function<void(editing::frmMsgBox&)> user) {
        desktop.duringModal = [this, user = std::move(user)](ui::Form& form) {
            ++asked;
            user(dynamic_cast<editing::frmMsgBox&>(form));
        };
    }
    TestDesktop desktop;
    control::Confirmation confirmation{desktop};
    int asked = 0;
};

TEST_F(Confirmation, RemembersNothingAtFirst) {
    EXPECT_EQ(confirmation.answer(), 0);
    EXPECT_FALSE(confirmation.ignoreWarning());
}

TEST_F(Confirmation, AsksItsQuestionUnderItsTitle) {
    answer([](editing::frmMsgBox& form) {
        EXPECT_EQ(form.lblMsg.caption(), "Shall it be?");
        EXPECT_EQ(form.caption(), "Bench 3");
        EXPECT_EQ(form.chkDoNotAskAgain.value(), 0);
        form.cmdYes.userPress();
    });
    EXPECT_TRUE(confirmation.ask("Shall it be?", "Bench 3"));
    EXPECT_EQ(confirmation.answer(), 6);
    EXPECT_FALSE(confirmation.ignoreWarning());
}

TEST_F(Confirmation, AsksAgainEachTimeUnlessItIsSwitchedOff) {
    answer([](editing::frmMsgBox& form) { form.cmdNo.userPress(); });
    EXPECT_FALSE(confirmation.ask("Shall it be?", "Bench 3"));
    EXPECT_EQ(confirmation.answer(), 7);
    answer([](editing::frmMsgBox& form) { form.cmdYes.userPress(); });
    EXPECT_TRUE(confirmation.ask("Shall it be?", "Bench 3"));
    EXPECT_EQ(asked, 2);
}

TEST_F(Confirmation, TickedTheRememberedAnswerCountsWithoutAsking) {
    for (const bool yes : {true, false}) {
        control::Confirmation one(desktop);
        asked = 0;
        answer([yes](editing::frmMsgBox& form) {
            form.chkDoNotAskAgain.setValue(1);
            (yes ? form.cmdYes : form.cmdNo).userPress();
        });
        EXPECT_EQ(one.ask("Shall it be?", "Bench 3"), yes);
        EXPECT_EQ(one.answer(), yes ? 6 : 7);
        EXPECT_TRUE(one.ignoreWarning());
        EXPECT_EQ(one.ask("Shall it be?", "Bench 3"), yes);
        EXPECT_EQ(asked, 1);
    }
}

TEST_F(Confirmation, TheGreyBoxDoesNotSwitchItOff) {
    answer([](editing::frmMsgBox& form) {
        form.chkDoNotAskAgain.loadValue(2);
        form.cmdNo.userPress();
    });
    EXPECT_FALSE(confirmation.ask("Shall it be?", "Bench 3"));
    EXPECT_FALSE(confirmation.ignoreWarning());
}

TEST_F(Confirmation, TheCloseBoxIsANoThatIsNotRemembered) {
    answer([](editing::frmMsgBox& form) { form.cmdYes.userPress(); });
    EXPECT_TRUE(confirmation.ask("Shall it be?", "Bench 3"));
    answer([this](editing::frmMsgBox& form) {
        form.chkDoNotAskAgain.setValue(1);
        desktop.close(form);
    });
    EXPECT_FALSE(confirmation.ask("Shall it be?", "Bench 3"));
    EXPECT_EQ(confirmation.answer(), 6);
    EXPECT_FALSE(confirmation.ignoreWarning());
}

TEST_F(Confirmation, AQuestionInsideAQuestionIsANo) {
    answer([this](editing::frmMsgBox& form) {
        EXPECT_FALSE(confirmation.ask("And that?", "Bench 3"));
        form.cmdYes.userPress();
    });
    EXPECT_TRUE(confirmation.ask("Shall it be?", "Bench 3"));
    EXPECT_EQ(asked, 1);
}

TEST_F(Confirmation, ThatIsTakenAwayIsANo) {
    answer([this](editing::frmMsgBox& form) {
        confirmation.close();
        EXPECT_FALSE(desktop.isOpen(form));
    });
    EXPECT_FALSE(confirmation.ask("Shall it be?", "Bench 3"));
    EXPECT_EQ(confirmation.answer(), 0);
    confirmation.close();
}

class WithoutWindows : public TestDesktop {
public:
    void showModal(ui::Form& /*form*/) override { throw base::Failure("There is no window"); }
};

TEST(ConfirmationWithoutWindows, FailsAndMayBeAskedAgain) {
    WithoutWindows desktop;
    control::Confirmation confirmation(desktop);
    EXPECT_THROW(static_cast<void>(confirmation.ask("Shall it be?", "Bench 3")), base::Failure);
    EXPECT_THROW(static_cast<void>(confirmation.ask("Shall it be?", "Bench 3")), base::Failure);
    confirmation.close();
}

using ConfirmationOfAControl = ControlWorld;

TEST_F(ConfirmationOfAControl, GoesAwayWithIt) {
    desktop.duringModal = [this](ui::Form&) { control->close(); };
    EXPECT_FALSE(control->confirmation.ask("Shall it be?", "Bench 3"));
}

}  // namespace
}  // namespace telvar::tests
