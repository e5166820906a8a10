#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "base/failure.h"
#include "support/test_desktop.h"

namespace telvar::tests {
namespace {

constexpr ui::Buttons yesNo = ui::Buttons::YesNo;

TEST(TestDesktop, AnswersQuestionsInTheScriptedOrder) {
    TestDesktop desktop;
    desktop.answerWith(ui::Answer::Yes);
    desktop.answerWith(ui::Answer::No);
    EXPECT_EQ(desktop.show({.text = "1", .buttons = yesNo}), ui::Answer::Yes);
    EXPECT_EQ(desktop.show({.text = "told"}), ui::Answer::Ok);
    EXPECT_EQ(desktop.show({.text = "2", .buttons = yesNo}), ui::Answer::No);
    EXPECT_EQ(desktop.boxes().size(), 3U);
}

TEST(TestDesktop, AQuestionWithoutAnAnswerFailsTheTest) {
    static TestDesktop desktop;
    EXPECT_NONFATAL_FAILURE(desktop.show({.text = "sure?", .buttons = yesNo}), "without a scripted answer: sure?");
}

TEST(TestDesktop, AWaitRunsQueuedWorkAndSteps) {
    TestDesktop desktop;
    int done = 0;
    desktop.dispatcher().post([&] { ++done; });
    desktop.whenPumping([&] { ++done; });
    EXPECT_TRUE(desktop.pumpUntil([&] { return done == 2; }));
    EXPECT_EQ(desktop.pumps(), 2);
}

TEST(TestDesktop, AWaitThatCannotEndFailsTheTest) {
    static TestDesktop desktop;
    static bool answer = true;
    EXPECT_NONFATAL_FAILURE(answer = desktop.pumpUntil([] { return false; }), "nothing is left to happen");
    EXPECT_FALSE(answer);
}

TEST(TestDesktop, AWaitEndsWhenTheLoopIsQuitting) {
    TestDesktop desktop;
    desktop.whenPumping([&] { desktop.quit(); });
    EXPECT_FALSE(desktop.pumpUntil([] { return false; }));
}

TEST(TestDesktop, TheClipboardCanBeLockedOrWithoutText) {
    TestDesktop desktop;
    EXPECT_EQ(desktop.clipboardText(), std::nullopt);
    desktop.setClipboardText("a");
    EXPECT_EQ(desktop.clipboardText(), "a");
    desktop.clipboardLocked = true;
    EXPECT_THROW(static_cast<void>(desktop.clipboardText()), base::Failure);
    EXPECT_THROW(desktop.setClipboardText("b"), base::Failure);
}

TEST(TestDesktop, AModalFormHasToBeHidden) {
    static TestDesktop desktop;
    static ui::Form form("frm");
    bool wasShown = false;
    desktop.duringModal = [&](ui::Form& shown) {
        wasShown = desktop.isOpen(shown);
        desktop.hide(shown);
    };
    desktop.showModal(form);
    EXPECT_TRUE(wasShown);
    desktop.duringModal = nullptr;
    EXPECT_NONFATAL_FAILURE(desktop.showModal(form), "frm was not closed");
    EXPECT_FALSE(desktop.isOpen(form));
}

TEST(TestDesktop, AMenuTakesTheScriptedChoice) {
    TestDesktop desktop;
    ui::Form form("frm");
    ui::Menu menu("mnu");
    ui::MenuItem copy("mnuCopy", "Copy");
    menu.add(copy);
    int clicks = 0;
    copy.Click.connect([&] { ++clicks; });
    desktop.popUp(menu, form, {1, 2});
    desktop.menuChoice = "mnuCopy";
    desktop.popUp(menu, form, {3, 4});
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(desktop.popUps(), (std::vector<TestDesktop::PopUp>{{"mnu", "frm", {1, 2}}, {"mnu", "frm", {3, 4}}}));
}

}  // namespace
}  // namespace telvar::tests
