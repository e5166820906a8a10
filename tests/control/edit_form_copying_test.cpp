// Settings of one channel for several selected ones: which channels a double-click or F2 is about, what the user is
// asked, and how long the answer counts.
#include "control/copy_question.h"

#include "edit_form_world.h"

namespace telvar::tests {
namespace {

using control::GridCommand;
using ui::Answer;

class CopyingToOthers : public ControlEditForm {
protected:
    // Opened at channel 5 by F2, with the answer Yes for these and the question for channels 6 to 8.
    void openForFiveToEight() {
        answerCopying(true);
        grid().select({5, 1}, {8, 3});
        control->editChannel();
        ASSERT_TRUE(copies());
    }
    [[nodiscard]] bool copies() const { return form().lblSelectedChannels.visible(); }
    [[nodiscard]] bool scans(std::int16_t channel) {
        return base::isTrue(store->channel(channel).get(ChannelKey::scan));
    }
    // The channels that got the shown one's settings by Apply, itself included.
    [[nodiscard]] std::vector<int> channelsOfApply() {
        for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
            store->channel(channel).put(ChannelKey::scan, false);
        }
        form().ckScanChannel.setValue(1);
        form().cmdApply.userPress();
        std::vector<int> changed;
        for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
            if (scans(channel)) {
                changed.push_back(channel);
            }
        }
        return changed;
    }
};

using Channels = std::vector<int>;

TEST(CopyQuestion, NamesTheOtherChannels) {
    EXPECT_EQ(control::copyQuestion(5, 8, 5), copyQuestion + "\nThe other channels are 6 to 8.");
    EXPECT_EQ(control::copyQuestion(5, 8, 8), copyQuestion + "\nThe other channels are 5 to 7.");
    EXPECT_EQ(control::copyQuestion(5, 8, 6), copyQuestion + "\nThe other channels are 5 and 7 to 8.");
    EXPECT_EQ(control::copyQuestion(5, 7, 6), copyQuestion + "\nThe other channels are 5 and 7.");
    EXPECT_EQ(control::copyQuestion(1, 255, 100), copyQuestion + "\nThe other channels are 1 to 99 and 101 to 255.");
    EXPECT_EQ(control::copyQuestion(5, 6, 5), copyQuestion + "\nThe other channel is 6.");
    EXPECT_EQ(control::copyQuestion(5, 6, 6), copyQuestion + "\nThe other channel is 5.");
}

// -- opening ---------------------------------------------------------------------------------------------------------

TEST_F(CopyingToOthers, AsksBeforeItOpensWithSeveralSelectedChannels) {
    answerCopying(true);
    grid().select({5, 1}, {8, 3});
    doubleClickCurrent();
    EXPECT_EQ(copyQuestions, 1);
    EXPECT_EQ(askedText, copyQuestion + "\nThe other channels are 6 to 8.");
    EXPECT_EQ(askedTitle, "Bench 3");
    EXPECT_EQ(form().lblSelectedChannels.caption(), "Also applies to channels 5 to 8");
    EXPECT_TRUE(form().lblSelectedChannels.visible());
}

TEST_F(CopyingToOthers, CopiesToTheOtherSelectedChannelsAndRendersThem) {
    answerCopying(true);
    grid().select({5, 1}, {8, 3});
    doubleClickCurrent();
    form().ckScanChannel.userClick();
    // Of a column that the form itself does not write.
    form().txtTxBinaryMain.userTyped("9");
    form().cmdApply.userPress();
    for (std::int16_t channel = 5; channel <= 8; ++channel) {
        EXPECT_TRUE(base::isTrue(store->channel(channel).get(ChannelKey::scan))) << channel;
        EXPECT_EQ(grid().text(channel, 18), "9") << channel;
        const auto rendered = renderedRow(*store, channel);
        const auto shown = row(channel);
        EXPECT_EQ(Log(shown.begin() + 1, shown.end()), Log(rendered.begin() + 1, rendered.end())) << channel;
    }
    EXPECT_FALSE(base::isTrue(store->channel(4).get(ChannelKey::scan)));
    EXPECT_FALSE(base::isTrue(store->channel(9).get(ChannelKey::scan)));
    EXPECT_EQ(grid().row(), 5);
}

TEST_F(CopyingToOthers, NoEditsTheOneChannelOnly) {
    answerCopying(false);
    grid().select({5, 1}, {8, 3});
    doubleClickCurrent();
    EXPECT_EQ(shown(), "5");
    EXPECT_FALSE(form().lblSelectedChannels.visible());
    form().ckScanChannel.userClick();
    form().cmdApply.userPress();
    EXPECT_TRUE(base::isTrue(store->channel(5).get(ChannelKey::scan)));
    EXPECT_FALSE(base::isTrue(store->channel(6).get(ChannelKey::scan)));
}

TEST_F(CopyingToOthers, AsksAtEveryOpeningUnlessTheUserSwitchesItOff) {
    answerCopying(true);
    for (int time = 1; time <= 2; ++time) {
        grid().select({5, 1}, {8, 3});
        doubleClickCurrent();
        EXPECT_EQ(copyQuestions, time);
        form().cmdCancel.userPress();
    }
    answerCopying(true, true);
    for (int time = 1; time <= 2; ++time) {
        grid().select({5, 1}, {8, 3});
        doubleClickCurrent();
        EXPECT_EQ(copyQuestions, 3);
        EXPECT_TRUE(form().lblSelectedChannels.visible());
        form().cmdCancel.userPress();
    }
}

TEST_F(CopyingToOthers, AReloadOfTheSameChannelNeitherAsksNorForgetsTheOthers) {
    answerCopying(true);
    doubleClick(5);
    grid().select({5, 1}, {8, 1});
    desktop.clipboard = "161.25";
    control->run(GridCommand::Paste);
    EXPECT_EQ(copyQuestions, 0);
    EXPECT_FALSE(form().lblSelectedChannels.visible());
    doubleClickCurrent();
    EXPECT_EQ(copyQuestions, 1);
    form().cmdApply.userPress();
    control->RefreshEditForm();
    EXPECT_EQ(form().lblSelectedChannels.caption(), "Also applies to channels 5 to 8");
    EXPECT_TRUE(form().lblSelectedChannels.visible());
}

TEST_F(CopyingToOthers, AnotherStoreIsEditedChannelByChannelAtFirst) {
    answerCopying(true);
    grid().select({5, 1}, {8, 3});
    doubleClickCurrent();
    control->setCentralDataStore(std::make_shared<model::MemoryDataStore>());
    control->DistributeDataStoreLink();
    EXPECT_FALSE(form().lblSelectedChannels.visible());
}

TEST_F(CopyingToOthers, ADoubleClickInsideSeveralSelectedRowsOpensTheClickedChannel) {
    answerCopying(true);
    grid().select({5, 1}, {8, 3});
    doubleClickOn({6, 2});
    EXPECT_EQ(shown(), "6");
    EXPECT_EQ(grid().row(), 6);
    EXPECT_EQ(selectedChannel(), 6);
    EXPECT_EQ(control->txtChannelSelect.text(), "6");
    EXPECT_EQ(copyQuestions, 1);
    EXPECT_EQ(askedText, copyQuestion + "\nThe other channels are 5 and 7 to 8.");
    EXPECT_EQ(form().lblSelectedChannels.caption(), "Also applies to channels 5 to 8");
    EXPECT_EQ(channelsOfApply(), (Channels{5, 6, 7, 8}));
}

// Rows are what is selected, whatever columns of them are marked.
TEST_F(CopyingToOthers, ADoubleClickInAnotherColumnOfTheSelectedRowsIsAboutThemToo) {
    answerCopying(true);
    grid().select({5, 1}, {8, 3});
    doubleClickOn({6, 7});
    EXPECT_EQ(shown(), "6");
    EXPECT_EQ(channelsOfApply(), (Channels{5, 6, 7, 8}));
}

TEST_F(CopyingToOthers, ADoubleClickBesideTheSelectedRowsIsAboutItsRowOnly) {
    grid().select({5, 1}, {8, 3});
    doubleClickOn({9, 2});
    EXPECT_EQ(shown(), "9");
    EXPECT_EQ(copyQuestions, 0);
    EXPECT_EQ(channelsOfApply(), Channels{9});
}

// Whatever the grid says was selected: what does not include the opened channel is nothing that the form is about.
TEST_F(CopyingToOthers, SelectedRowsWithoutTheOpenedChannelAreNoQuestion) {
    answerCopying(true);
    for (const ui::CellRange& selected : {ui::CellRange{1, 1, 3, 26}, ui::CellRange{5, 1, 8, 26}}) {
        grid().setCurrent({4, 2});
        grid().DblClick({.at = {4, 2}, .selected = selected});
        EXPECT_EQ(shown(), "4");
        EXPECT_EQ(copyQuestions, 0);
        EXPECT_FALSE(copies());
        form().cmdCancel.userPress();
    }
}

TEST_F(CopyingToOthers, ADoubleClickInsideSeveralRowsWhileTheFormIsOpenAsksAgain) {
    answerCopying(false);
    grid().select({5, 1}, {8, 3});
    doubleClickOn({6, 2});
    EXPECT_FALSE(copies());
    answerCopying(true);
    grid().select({5, 1}, {8, 3});
    doubleClickOn({6, 2});
    EXPECT_EQ(copyQuestions, 2);
    EXPECT_EQ(shown(), "6");
    EXPECT_EQ(channelsOfApply(), (Channels{5, 6, 7, 8}));
}

TEST_F(CopyingToOthers, F2WhileTheFormIsOpenAsksAgainAndKeepsWhatWasTyped) {
    openForFiveToEight();
    edit();
    answerCopying(false);
    control->editChannel();
    EXPECT_EQ(copyQuestions, 2);
    EXPECT_FALSE(copies());
    EXPECT_EQ(form().txtTxFrequency.text(), "160.5");
    answerCopying(true);
    control->editChannel();
    EXPECT_EQ(copyQuestions, 3);
    EXPECT_EQ(channelsOfApply(), (Channels{5, 6, 7, 8}));
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(CopyingToOthers, F2OnTheOneSelectedRowOnlyBringsTheFormToTheFront) {
    answerCopying(true);
    grid().select({5, 1}, {8, 3});
    doubleClickOn({6, 2});
    control->editChannel();
    EXPECT_EQ(copyQuestions, 1);
    EXPECT_TRUE(copies());
}

TEST_F(CopyingToOthers, TheCloseBoxOfTheQuestionIsANo) {
    desktop.duringModal = [this](ui::Form& box) { desktop.close(box); };
    grid().select({5, 1}, {8, 3});
    control->editChannel();
    EXPECT_TRUE(open());
    EXPECT_EQ(channelsOfApply(), Channels{5});
}

TEST_F(CopyingToOthers, AnAnswerAboutATableThatWasExchangedMeanwhileDoesNotCount) {
    const auto other = std::make_shared<model::MemoryDataStore>();
    desktop.duringModal = [&](ui::Form& box) {
        control->setCentralDataStore(other);
        control->DistributeDataStoreLink();
        dynamic_cast<editing::frmMsgBox&>(box).cmdYes.userPress();
    };
    grid().select({5, 1}, {8, 3});
    control->editChannel();
    EXPECT_TRUE(open());
    EXPECT_FALSE(copies());
}

// -- how long the answer counts --------------------------------------------------------------------------------------

TEST_F(CopyingToOthers, GoesOnAfterApply) {
    openForFiveToEight();
    EXPECT_EQ(channelsOfApply(), (Channels{5, 6, 7, 8}));
    press(ui::key::left);
    EXPECT_EQ(channelsOfApply(), (Channels{5, 6, 7, 8}));
}

TEST_F(CopyingToOthers, GoesOnAfterAPasteThatPutsTheSelectionBack) {
    openForFiveToEight();
    desktop.clipboard = "161.25";
    control->run(GridCommand::Paste);
    press(ui::key::control);
    EXPECT_TRUE(copies());
}

TEST_F(CopyingToOthers, GoesOnWhereTheUserStaysWithTheChannel) {
    openForFiveToEight();
    edit();
    desktop.answerWith(Answer::No);
    desktop.answerWith(Answer::No);
    click({10, 2});
    EXPECT_EQ(shown(), "5");
    press(ui::key::control);
    EXPECT_TRUE(copies());
}

TEST_F(CopyingToOthers, EndsWithAClickOnAColumnHeader) {
    openForFiveToEight();
    click({0, 2});
    EXPECT_FALSE(copies());
    EXPECT_EQ(channelsOfApply(), Channels{1});
    EXPECT_EQ(copyQuestions, 1);
}

TEST_F(CopyingToOthers, EndsWithAnotherSelectionThatBeginsAtTheSameChannel) {
    openForFiveToEight();
    press(ui::key::down, ui::shift::shift);
    EXPECT_EQ(grid().row(), 5);
    EXPECT_FALSE(copies());
    EXPECT_EQ(channelsOfApply(), Channels{5});
}

TEST_F(CopyingToOthers, EndsWithAClickThatSelectsTheChannelAlone) {
    openForFiveToEight();
    click({5, 2});
    EXPECT_EQ(channelsOfApply(), Channels{5});
}

TEST_F(CopyingToOthers, EndsWhenEverythingIsSelected) {
    openForFiveToEight();
    control->selectAll();
    desktop.doEvents();
    EXPECT_FALSE(copies());
    EXPECT_EQ(shown(), "1");
    EXPECT_EQ(channelsOfApply(), Channels{1});
}

TEST_F(CopyingToOthers, EndsWithAnotherChannelUntilItIsAskedForAgain) {
    openForFiveToEight();
    userMovesTo(10);
    EXPECT_EQ(shown(), "10");
    EXPECT_FALSE(copies());
    grid().select({2, 1}, {3, 1});
    control->RefreshEditForm();
    EXPECT_EQ(shown(), "2");
    EXPECT_FALSE(copies());
    EXPECT_EQ(copyQuestions, 1);
    control->editChannel();
    EXPECT_EQ(copyQuestions, 2);
    EXPECT_EQ(channelsOfApply(), (Channels{2, 3}));
}

TEST_F(CopyingToOthers, EndsWithAnotherStoreUntilItIsAskedForAgain) {
    openForFiveToEight();
    const auto other = std::make_shared<model::MemoryDataStore>();
    control->setCentralDataStore(other);
    control->DistributeDataStoreLink();
    EXPECT_FALSE(copies());
    control->editChannel();
    EXPECT_EQ(copyQuestions, 2);
    EXPECT_TRUE(copies());
}

TEST_F(CopyingToOthers, OneYesIsNotKeptForTheNextOpening) {
    openForFiveToEight();
    form().cmdCancel.userPress();
    answerCopying(false);
    control->editChannel();
    EXPECT_EQ(copyQuestions, 2);
    EXPECT_FALSE(copies());
}

TEST_F(CopyingToOthers, OneSelectedChannelIsNoQuestion) {
    answerCopying(true);
    grid().select({5, 1}, {5, 20});
    doubleClickCurrent();
    EXPECT_EQ(copyQuestions, 0);
    EXPECT_FALSE(copies());
}

}  // namespace
}  // namespace telvar::tests
