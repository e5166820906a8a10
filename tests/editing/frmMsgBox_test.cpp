// The question that can be switched off: its controls, its place, its two answers.
#include "editing/frmMsgBox.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/test_desktop.h"
#include "ui/metrics.h"

namespace telvar::tests {
namespace {

using Answers = std::vector<std::pair<bool, bool>>;

class MsgBox : public testing::Test {
protected:
    MsgBox() {
        form.Unloaded.connect([this](bool yes, bool ignore) {
            answers.emplace_back(yes, ignore);
            wasOpen = desktop.isOpen(form);
        });
    }
    TestDesktop desktop;
    editing::frmMsgBox form{desktop};
    Answers answers;
    bool wasOpen = false;
};

TEST_F(MsgBox, HasItsControlsAndCaptions) {
    EXPECT_EQ(form.caption(), "Form1");
    EXPECT_EQ(form.lblMsg.caption(), "Would you?");
    EXPECT_EQ(ui::shownText(form.cmdYes.caption()), "Yes");
    EXPECT_EQ(ui::shownText(form.cmdNo.caption()), "No");
    EXPECT_EQ(ui::shownText(form.chkDoNotAskAgain.caption()),
              "Do not show this message again until program is restarted");
    EXPECT_TRUE(form.cmdYes.isDefault());
}

TEST_F(MsgBox, ShowsTheQuestion) {
    form.InitControls("Shall it be?");
    EXPECT_EQ(form.lblMsg.caption(), "Shall it be?");
}

TEST_F(MsgBox, StandsInTheMiddleOfTheScreen) {
    // A desktop that has put it elsewhere: in the middle of a window at the screen's edge.
    form.setBounds({700, 500, 1000, 620});
    form.Load();
    EXPECT_EQ(form.bounds(), (ui::Rect{(1024 - 300) / 2, (768 - 120) / 2, (1024 + 300) / 2, (768 + 120) / 2}));
}

TEST_F(MsgBox, BreaksALongQuestionAndShowsAllOfIt) {
    std::string question;
    for (int word = 0; word < 60; ++word) {
        question += "question ";
    }
    const ui::Metrics metrics(desktop, ui::standardDpi);
    const auto one = form.wantedSize(metrics);
    form.InitControls(question);
    desktop.showModeless(form);
    EXPECT_GT(form.size().height, one.height + 5 * metrics.line());
    EXPECT_LT(form.size().width, metrics.digits(80));
    EXPECT_EQ(form.lblMsg.bounds().height(), form.lblMsg.wantedSize(metrics).height);
    const ui::Rect client{0, 0, form.size().width, form.size().height};
    for (const auto* child : form.children()) {
        EXPECT_EQ(child->bounds().intersected(client), child->bounds()) << child->name();
    }
}

TEST_F(MsgBox, AnswersYesOrNoBeforeItCloses) {
    desktop.showModeless(form);
    form.cmdYes.userPress();
    EXPECT_TRUE(wasOpen);
    EXPECT_FALSE(desktop.isOpen(form));
    desktop.showModeless(form);
    form.cmdNo.userPress();
    EXPECT_FALSE(desktop.isOpen(form));
    EXPECT_EQ(answers, (Answers{{true, false}, {false, false}}));
}

TEST_F(MsgBox, OnlyACheckedBoxCountsAsTicked) {
    for (const int value : {0, 1, 2}) {
        form.chkDoNotAskAgain.loadValue(value);
        form.cmdYes.userPress();
        form.cmdNo.userPress();
    }
    EXPECT_EQ(answers,
              (Answers{{true, false}, {false, false}, {true, true}, {false, true}, {true, false}, {false, false}}));
}

TEST_F(MsgBox, TheCloseBoxAnswersNothing) {
    desktop.showModeless(form);
    form.chkDoNotAskAgain.setValue(1);
    desktop.close(form);
    EXPECT_EQ(answers, Answers{});
}

}  // namespace
}  // namespace telvar::tests
