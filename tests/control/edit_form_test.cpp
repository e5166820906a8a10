// The edit form as the control opens it and keeps it in step with the grid: double-click, following the current row,
// edits that were not applied, exchanged and refreshed tables, locked data, and a control that is closed meanwhile.
#include <algorithm>

#include "edit_form_world.h"
#include "support/recording_store.h"

namespace telvar::tests {
namespace {

using control::GridCommand;
using ui::Answer;

// -- opening ---------------------------------------------------------------------------------------------------------

TEST_F(ControlEditForm, IsHiddenUntilADoubleClick) { EXPECT_FALSE(open()); }

TEST_F(ControlEditForm, ADoubleClickOpensTheChannelOfTheRowAndRaisesNothing) {
    doubleClick(4);
    EXPECT_TRUE(open());
    EXPECT_EQ(shown(), "4");
    EXPECT_EQ(form().txtTxFrequency.text(), "150.100000");
    EXPECT_EQ(form().accessLevel(), 5);
    EXPECT_EQ(selectedChannel(), 4);
    EXPECT_EQ(control->txtChannelSelect.text(), "4");
    EXPECT_EQ(events, Log{});
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ControlEditForm, ADoubleClickOpensAtEveryAccessLevel) {
    control->UpdateAccess(0);
    doubleClick(4);
    EXPECT_TRUE(open());
    EXPECT_FALSE(form().frSynthesizer.visible());
}

TEST_F(ControlEditForm, ADoubleClickOnAnEmptyChannelOpensItToo) {
    doubleClick(255);
    EXPECT_EQ(shown(), "255");
    EXPECT_EQ(form().txtTxFrequency.text(), "0.000000");
}

TEST_F(ControlEditForm, ADoubleClickWithNoCurrentRowDoesNothing) {
    doubleClick(0);
    EXPECT_FALSE(open());
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ControlEditForm, ADoubleClickOnAHeaderOpensNothing) {
    grid().setCurrent({7, 3});
    for (const ui::Cell header : {ui::Cell{0, 2}, ui::Cell{0, 0}}) {
        doubleClickOn(header);
        EXPECT_FALSE(open());
        EXPECT_EQ(selectedChannel(), 1);
    }
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ControlEditForm, ADoubleClickOnARowsNumberOpensItsChannel) {
    doubleClickOn({7, 0});
    EXPECT_EQ(shown(), "7");
    EXPECT_EQ(selectedChannel(), 7);
}

TEST_F(ControlEditForm, AFailureToShowTheFormIsIgnored) {
    desktop.noWindows = true;
    doubleClick(4);
    EXPECT_FALSE(open());
    EXPECT_EQ(selectedChannel(), 4);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ControlEditForm, ASecondDoubleClickShowsTheOtherChannelInTheSameForm) {
    doubleClick(4);
    doubleClick(9);
    EXPECT_EQ(shown(), "9");
    EXPECT_EQ(selectedChannel(), 9);
}

TEST_F(ControlEditForm, ADoubleClickReloadsTheChannelThatIsShown) {
    doubleClick(4);
    fill(*store, 4, {{ChannelKey::TxFreq, 170'000'000}});
    doubleClick(4);
    EXPECT_EQ(form().txtTxFrequency.text(), "170.000000");
}

TEST_F(ControlEditForm, ADoubleClickOverEditsThatTheUserKeepsLeavesEverything) {
    doubleClick(4);
    edit();
    desktop.answerWith(Answer::No);
    desktop.answerWith(Answer::No);
    doubleClick(9);
    EXPECT_EQ(boxes(), (Boxes{applyQuestion(4), discardQuestion(4)}));
    EXPECT_EQ(shown(), "4");
    EXPECT_EQ(form().txtTxFrequency.text(), "160.5");
    EXPECT_EQ(grid().row(), 4);
    EXPECT_EQ(selectedChannel(), 4);
}

TEST_F(ControlEditForm, OpensWithoutTheMouseToo) {
    grid().setCurrent({4, 3});
    control->editChannel();
    EXPECT_TRUE(open());
    EXPECT_EQ(shown(), "4");
    EXPECT_EQ(selectedChannel(), 4);
    edit();
    control->editChannel();
    EXPECT_EQ(form().txtTxFrequency.text(), "160.5");
    EXPECT_EQ(boxes(), Boxes{});
    grid().setCurrent({6, 3});
    desktop.answerWith(Answer::Yes);
    control->editChannel();
    EXPECT_EQ(shown(), "6");
    EXPECT_EQ(grid().row(), 6);
    EXPECT_EQ(grid().column(), 3);
    control->close();
    control->editChannel();
    EXPECT_FALSE(open());
}

// -- following the grid ----------------------------------------------------------------------------------------------

TEST_F(ControlEditForm, FollowsTheRowThatTheUserMovesTo) {
    doubleClick(4);
    userMovesTo(6);
    EXPECT_EQ(shown(), "6");
    EXPECT_EQ(form().txtTxFrequency.text(), "150.150000");
    EXPECT_EQ(selectedChannel(), 6);
    EXPECT_EQ(control->txtChannelSelect.text(), "6");
    userPresses(2);
    EXPECT_EQ(shown(), "2");
    EXPECT_EQ(selectedChannel(), 2);
    EXPECT_EQ(events, Log{});
}

TEST_F(ControlEditForm, DoesNotReloadWhileTheRowStays) {
    doubleClick(4);
    edit();
    userPresses(4);
    EXPECT_EQ(form().txtTxFrequency.text(), "160.5");
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ControlEditForm, DoesNotFollowRowsThatAProgramMakesCurrent) {
    doubleClick(4);
    control->UpdateRowData(9);
    control->HighLightChannel(8);
    desktop.doEvents();
    EXPECT_EQ(shown(), "4");
}

TEST_F(ControlEditForm, HiddenFollowsNothing) {
    userMovesTo(6);
    EXPECT_EQ(selectedChannel(), 1);
    EXPECT_FALSE(open());
}

TEST_F(ControlEditForm, ManyMovesBeforeTheMessageLoopRunsEndInOneReload) {
    const auto recording = std::make_shared<RecordingStore>(*store);
    control->setCentralDataStore(recording);
    control->DistributeDataStoreLink();
    doubleClick(4);
    recording->forget();
    for (int row = 5; row <= 9; ++row) {
        ui::KeyEvent key{.code = ui::key::down};
        grid().KeyDown(key);
        grid().setCurrent({row, 1});
    }
    desktop.doEvents();
    EXPECT_EQ(shown(), "9");
    EXPECT_EQ(std::ranges::count(recording->calls(), "SelectedChannel="), 1);
}

// A key that is held: each comes when the one before it has been handled.
TEST_F(ControlEditForm, AHeldKeyReloadsTheFormOnlyWhenNoKeyWaitsAnyMore) {
    const auto recording = std::make_shared<RecordingStore>(*store);
    control->setCentralDataStore(recording);
    control->DistributeDataStoreLink();
    doubleClick(1);
    recording->forget();
    std::function<void()> nextKey = [&] {
        ui::KeyEvent key{.code = ui::key::down};
        grid().KeyDown(key);
        grid().setCurrent({grid().row() + 1, 1});
        if (grid().row() < 9) {
            desktop.dispatcher().post(nextKey);
        }
    };
    nextKey();
    desktop.doEvents();
    EXPECT_EQ(shown(), "9");
    EXPECT_EQ(std::ranges::count(recording->calls(), "SelectedChannel="), 1);
}

TEST_F(ControlEditForm, FollowsAClickThatCollapsesASelectionOnRelease) {
    doubleClick(4);
    grid().select({4, 1}, {8, 1});
    grid().MouseDown(ui::MouseEvent{});
    desktop.doEvents();
    EXPECT_EQ(shown(), "4");
    grid().setCurrent({6, 1});
    grid().Click();
    desktop.doEvents();
    EXPECT_EQ(shown(), "6");
}

TEST_F(ControlEditForm, DoesNotAskWhileThePopUpMenuIsOpen) {
    doubleClick(4);
    edit();
    desktop.menuChoice = "mnuPopUpMenuCopy";
    grid().setCurrent({6, 1});
    int boxesInMenu = -1;
    const auto look = form().PopUpMenuClick.connectScoped([&](std::int16_t&) {
        desktop.doEvents();
        boxesInMenu = static_cast<int>(desktop.boxes().size());
    });
    grid().MouseDown(ui::MouseEvent{.button = ui::MouseButton::Right});
    EXPECT_EQ(boxesInMenu, 0);
    desktop.answerWith(Answer::No);
    desktop.answerWith(Answer::No);
    desktop.doEvents();
    EXPECT_EQ(boxes(), (Boxes{applyQuestion(4), discardQuestion(4)}));
    EXPECT_EQ(grid().row(), 4);
}

TEST_F(ControlEditForm, AppliesEditsBeforeItFollows) {
    doubleClick(4);
    edit();
    desktop.answerWith(Answer::Yes);
    userMovesTo(6);
    EXPECT_EQ(boxes(), Boxes{applyQuestion(4)});
    EXPECT_EQ(stored(4), 160'500'000);
    EXPECT_EQ(grid().text(4, 1), "160.500000");
    EXPECT_EQ(shown(), "6");
    EXPECT_EQ(grid().row(), 6);
    EXPECT_EQ(grid().column(), 2);
}

TEST_F(ControlEditForm, DiscardsEditsOnRequestAndFollows) {
    doubleClick(4);
    edit();
    desktop.answerWith(Answer::No);
    desktop.answerWith(Answer::Yes);
    userMovesTo(6);
    EXPECT_EQ(boxes(), (Boxes{applyQuestion(4), discardQuestion(4)}));
    EXPECT_EQ(stored(4), 150'100'000);
    EXPECT_EQ(shown(), "6");
}

TEST_F(ControlEditForm, StaysOnRequestAndTakesTheGridBack) {
    doubleClick(4);
    edit();
    desktop.answerWith(Answer::No);
    desktop.answerWith(Answer::No);
    userMovesTo(6);
    EXPECT_EQ(shown(), "4");
    EXPECT_EQ(form().txtTxFrequency.text(), "160.5");
    EXPECT_EQ(grid().row(), 4);
    EXPECT_EQ(selectedChannel(), 4);
}

TEST_F(ControlEditForm, StaysWhereAnEditIsRefused) {
    doubleClick(4);
    edit("5");
    desktop.answerWith(Answer::Yes);
    userMovesTo(6);
    EXPECT_EQ(shown(), "4");
    EXPECT_EQ(grid().row(), 4);
    EXPECT_EQ(form().txtTxFrequency.foreColor(), ui::red);
}

TEST_F(ControlEditForm, AFormThatIsClosedWhileItAsksIsNotShownAgain) {
    doubleClick(4);
    edit();
    desktop.duringBox = [&](const ui::MessageBox&) { desktop.close(form()); };
    desktop.answerWith(Answer::No);
    desktop.answerWith(Answer::Yes);
    userMovesTo(6);
    EXPECT_FALSE(open());
    EXPECT_EQ(selectedChannel(), 4);
}

TEST_F(ControlEditForm, FollowsAfterOkNoLonger) {
    doubleClick(4);
    form().cmdOk.userPress();
    EXPECT_FALSE(open());
    userMovesTo(6);
    EXPECT_EQ(selectedChannel(), 4);
}

// -- commands, refreshes, exchanged tables ---------------------------------------------------------------------------

TEST_F(ControlEditForm, ReloadsWhenACommandChangedItsChannel) {
    doubleClick(4);
    desktop.clipboard = "161.25";
    control->run(GridCommand::Paste);
    EXPECT_EQ(form().txtTxFrequency.text(), "161.250000");
    control->run(GridCommand::Undo);
    EXPECT_EQ(form().txtTxFrequency.text(), "150.100000");
}

TEST_F(ControlEditForm, AsksBeforeACommandThatChangedItsChannelReplacesEdits) {
    doubleClick(4);
    edit();
    desktop.clipboard = "161.25";
    desktop.answerWith(Answer::No);
    desktop.answerWith(Answer::No);
    control->run(GridCommand::Paste);
    EXPECT_EQ(boxes(), (Boxes{applyQuestion(4), discardQuestion(4)}));
    EXPECT_EQ(form().txtTxFrequency.text(), "160.5");
}

TEST_F(ControlEditForm, AppliesEditsOnRequestAfterACommandThatChangedItsChannel) {
    doubleClick(4);
    edit();
    desktop.clipboard = "161.25";
    desktop.answerWith(Answer::Yes);
    control->run(GridCommand::Paste);
    EXPECT_EQ(boxes(), Boxes{applyQuestion(4)});
    EXPECT_EQ(stored(4), 160'500'000);
    EXPECT_EQ(grid().text(4, 1), "160.500000");
}

TEST_F(ControlEditForm, IsLeftAloneByACommandThatChangedOtherChannels) {
    doubleClick(4);
    edit();
    grid().setCurrent({8, 1});
    desktop.clipboard = "161.25";
    control->run(GridCommand::Paste);
    EXPECT_EQ(stored(8), 161'250'000);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(form().txtTxFrequency.text(), "160.5");
}

TEST_F(ControlEditForm, ReloadsAfterAFullRefreshInStepWithTheGrid) {
    doubleClick(4);
    fill(*store, 1, {{ChannelKey::TxFreq, 171'000'000}});
    control->UpdateControlsFromMemory();
    EXPECT_EQ(grid().row(), 1);
    EXPECT_EQ(shown(), "1");
    EXPECT_EQ(selectedChannel(), 1);
    EXPECT_EQ(form().txtTxFrequency.text(), "171.000000");
}

TEST_F(ControlEditForm, SaysAfterAFullRefreshThatEditsWouldGoToTheTableAsItIsNow) {
    doubleClick(4);
    edit();
    desktop.answerWith(Answer::No);
    desktop.answerWith(Answer::Yes);
    control->UpdateControlsFromMemory();
    EXPECT_EQ(boxes(),
              (Boxes{question("The channel table has been read anew. " + applyQuestion(4).text), discardQuestion(4)}));
    EXPECT_EQ(shown(), "1");
}

TEST_F(ControlEditForm, ShowsAnExchangedStoreOnceItIsDistributed) {
    doubleClick(4);
    const auto other = std::make_shared<model::MemoryDataStore>();
    fill(*other, 4, {{ChannelKey::TxFreq, 440'000'000}, {ChannelKey::RxFreq, 440'000'000}});
    control->setCentralDataStore(other);
    EXPECT_EQ(form().txtTxFrequency.text(), "150.100000");
    control->DistributeDataStoreLink();
    EXPECT_EQ(form().txtTxFrequency.text(), "440.000000");
    EXPECT_EQ(base::toInt16(other->get(StoreMember::SelectedChannel)), 4);
}

TEST_F(ControlEditForm, AppliesEditsToTheFormerStoreBeforeItIsExchanged) {
    doubleClick(4);
    edit();
    const auto other = std::make_shared<model::MemoryDataStore>();
    control->setCentralDataStore(other);
    desktop.answerWith(Answer::Yes);
    control->DistributeDataStoreLink();
    EXPECT_EQ(boxes(), Boxes{applyQuestion(4)});
    EXPECT_EQ(stored(4), 160'500'000);
    EXPECT_TRUE(base::isTrue(store->get(StoreMember::DataModified)));
    EXPECT_EQ(base::toDouble(other->channel(4).get(ChannelKey::TxFreq)), 0);
    EXPECT_FALSE(base::isTrue(other->get(StoreMember::DataModified)));
    EXPECT_EQ(form().txtTxFrequency.text(), "0.000000");
}

TEST_F(ControlEditForm, DropsEditsThatTheUserDoesNotApplyWhenTheStoreIsExchanged) {
    doubleClick(4);
    edit();
    control->setCentralDataStore(std::make_shared<model::MemoryDataStore>());
    desktop.answerWith(Answer::No);
    control->DistributeDataStoreLink();
    EXPECT_EQ(stored(4), 150'100'000);
    EXPECT_EQ(form().txtTxFrequency.text(), "0.000000");
}

TEST_F(ControlEditForm, TheSameStoreDistributedAgainChangesNothing) {
    doubleClick(4);
    edit();
    control->DistributeDataStoreLink();
    EXPECT_EQ(form().txtTxFrequency.text(), "160.5");
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ControlEditForm, ClosesWhenTheStoreIsTakenAway) {
    doubleClick(4);
    control->setCentralDataStore(nullptr);
    control->DistributeDataStoreLink();
    EXPECT_FALSE(open());
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ControlEditForm, RefreshEditFormDoesNothingWhileTheFormIsHidden) {
    grid().setCurrent({6, 1});
    control->RefreshEditForm();
    EXPECT_FALSE(open());
    EXPECT_EQ(selectedChannel(), 1);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ControlEditForm, RefreshEditFormReloadsTheChannel) {
    doubleClick(4);
    fill(*store, 4, {{ChannelKey::TxFreq, 170'000'000}});
    control->RefreshEditForm();
    EXPECT_EQ(form().txtTxFrequency.text(), "170.000000");
}

TEST_F(ControlEditForm, RefreshEditFormInsideApplyWaitsForItsEnd) {
    doubleClick(4);
    edit();
    bool once = true;
    form().DataChanged.connect([&] {
        if (std::exchange(once, false)) {
            control->RefreshEditForm();
            EXPECT_EQ(form().txtTxFrequency.text(), "160.5");
        }
    });
    form().cmdApply.userPress();
    EXPECT_EQ(stored(4), 160'500'000);
    EXPECT_EQ(form().txtTxFrequency.text(), "160.500000");
}

TEST_F(ControlEditForm, FollowsALogin) {
    control->UpdateAccess(0);
    doubleClick(4);
    form().OpenLoginWithChannelEdit.connect([&] { control->UpdateAccess(5); });
    form().cmdAdvanced.userPress();
    EXPECT_EQ(events, Log{"OpenLoginWithChannelEdit"});
    EXPECT_TRUE(form().frSynthesizer.visible());
    EXPECT_TRUE(form().frDigitalPotentiometer.visible());
}

TEST_F(ControlEditForm, LeavesEditsBeforeATableGoes) {
    EXPECT_TRUE(control->leaveEdits());
    doubleClick(4);
    EXPECT_TRUE(control->leaveEdits());
    EXPECT_EQ(boxes(), Boxes{});

    edit();
    desktop.answerWith(Answer::No);
    desktop.answerWith(Answer::No);
    EXPECT_FALSE(control->leaveEdits());
    EXPECT_EQ(form().txtTxFrequency.text(), "160.5");
    EXPECT_EQ(boxes(), (Boxes{applyQuestion(4), discardQuestion(4)}));

    desktop.answerWith(Answer::No);
    desktop.answerWith(Answer::Yes);
    EXPECT_TRUE(control->leaveEdits());
    EXPECT_EQ(form().txtTxFrequency.text(), "150.100000");
    static_cast<void>(boxes());

    edit();
    desktop.answerWith(Answer::Yes);
    EXPECT_TRUE(control->leaveEdits());
    EXPECT_EQ(stored(4), 160'500'000);
    EXPECT_TRUE(control->leaveEdits());
    EXPECT_EQ(boxes(), Boxes{applyQuestion(4)});
}

// -- applying --------------------------------------------------------------------------------------------------------

TEST_F(ControlEditForm, ApplyMarksTheTableAsChangedAndRendersTheRow) {
    const auto recording = std::make_shared<RecordingStore>(*store);
    control->setCentralDataStore(recording);
    control->DistributeDataStoreLink();
    doubleClick(4);
    edit();
    recording->forget();
    form().cmdApply.userPress();
    ASSERT_GE(recording->calls().size(), 3U);
    EXPECT_EQ(recording->calls()[0], "CommsBusy");  // whether a load runs
    EXPECT_EQ(recording->calls()[1], "DataModified=");
    EXPECT_EQ(recording->calls()[2], "ChannelDataModified=");
    const auto cells = renderedRow(*store, 4);
    const auto rowFour = row(4);
    EXPECT_EQ(Log(rowFour.begin() + 1, rowFour.end()), Log(cells.begin() + 1, cells.end()));
    EXPECT_EQ(grid().text(4, 1), "160.500000");
    EXPECT_EQ(grid().row(), 4);
    EXPECT_TRUE(open());
    EXPECT_EQ(events, Log{});
}

TEST_F(ControlEditForm, OkAndCancelReportTheEndAndTheCloseBoxDoesNot) {
    doubleClick(4);
    form().cmdOk.userPress();
    EXPECT_EQ(events, Log{"EditWindowClosed"});
    doubleClick(4);
    form().cmdCancel.userPress();
    EXPECT_EQ(events, (Log{"EditWindowClosed", "EditWindowClosed"}));
    doubleClick(4);
    desktop.close(form());
    EXPECT_EQ(events, (Log{"EditWindowClosed", "EditWindowClosed"}));
    EXPECT_FALSE(open());
}

TEST_F(ControlEditForm, LockedDataRefusesApplyAndOk) {
    doubleClick(4);
    edit();
    control->ckLockData.setValue(1);
    const ui::MessageBox locked{.text = "Data is locked. Clear 'Lock Data' to make changes.",
                                .title = "Bench 3",
                                .icon = ui::Icon::Exclamation};
    form().cmdApply.userPress();
    form().cmdOk.userPress();
    EXPECT_EQ(boxes(), (Boxes{locked, locked}));
    EXPECT_EQ(stored(4), 150'100'000);
    EXPECT_TRUE(open());
    EXPECT_FALSE(base::isTrue(store->get(StoreMember::DataModified)));
}

TEST_F(ControlEditForm, TheLockOfChannelSettingsReachesTheForm) {
    doubleClick(4);
    control->optLockMode[2].userClick();
    EXPECT_EQ(form().LockDataMode(), 2);
    EXPECT_FALSE(form().txtTxFrequency.isUsable());
    control->optLockMode[0].userClick();
    EXPECT_TRUE(form().txtTxFrequency.isUsable());
}

TEST_F(ControlEditForm, ApplyDisablesUndoOfTheGrid) {
    doubleClick(4);
    desktop.clipboard = "161.25";
    control->run(GridCommand::Paste);
    EXPECT_TRUE(control->commandEnabled(GridCommand::Undo));
    form().cmdApply.userPress();
    EXPECT_FALSE(control->commandEnabled(GridCommand::Undo));
}

// -- forms that end meanwhile ----------------------------------------------------------------------------------------

TEST_F(ControlEditForm, ClosingTheFormsInTheCopyQuestionOpensNothing) {
    desktop.duringModal = [this](ui::Form&) { control->closeForms(); };
    grid().select({5, 1}, {8, 3});
    doubleClickCurrent();
    EXPECT_FALSE(open());
    EXPECT_EQ(events, Log{});
}

TEST_F(ControlEditForm, ClosingTheFormsInTheLeaveQuestionKeepsThemClosed) {
    doubleClick(4);
    edit();
    desktop.duringBox = [this](const ui::MessageBox&) { control->closeForms(); };
    desktop.answerWith(Answer::No);
    desktop.answerWith(Answer::No);
    doubleClick(9);
    EXPECT_FALSE(open());
}

TEST_F(ControlEditForm, AnOkWhoseFormWasClosedMeanwhileRaisesNoEnd) {
    doubleClick(4);
    form().DataChanged.connect([this] { control->closeForms(); });
    form().cmdOk.userPress();
    EXPECT_FALSE(open());
    EXPECT_EQ(events, Log{});
}

TEST_F(ControlEditForm, MayBeOpenedAgainInsideItsOwnEnd) {
    doubleClick(4);
    bool once = true;
    control->EditWindowClosed.connect([&] {
        if (std::exchange(once, false)) {
            doubleClick(9);
        }
    });
    form().cmdOk.userPress();
    EXPECT_TRUE(open());
    EXPECT_EQ(shown(), "9");
    EXPECT_EQ(form().txtTxFrequency.text(), "150.225000");
    EXPECT_TRUE(form().cmdApply.enabled());
}

TEST_F(ControlEditForm, ATableReadAnewBehindTheQuestionGetsNoEditsOfTheFormerOne) {
    doubleClick(4);
    edit();
    bool once = true;
    desktop.duringBox = [&](const ui::MessageBox&) {
        if (std::exchange(once, false)) {
            fill(*store, 4, {{ChannelKey::TxFreq, 170'000'000}});
            control->UpdateControlsFromMemory();
        }
    };
    desktop.answerWith(Answer::Yes);
    userMovesTo(6);
    EXPECT_EQ(stored(4), 170'000'000);
    EXPECT_EQ(shown(), "4");
    EXPECT_EQ(form().txtTxFrequency.text(), "160.5");
}

// -- the control ends ------------------------------------------------------------------------------------------------

TEST_F(ControlEditForm, IsClosedWithTheControl) {
    doubleClick(4);
    control->close();
    EXPECT_FALSE(open());
    desktop.doEvents();
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(ControlEditForm, AMoveThatIsStillQueuedFindsTheControlGone) {
    doubleClick(4);
    ui::KeyEvent key{.code = ui::key::down};
    grid().KeyDown(key);
    grid().setCurrent({6, 1});
    control.reset();
    desktop.doEvents();
    EXPECT_EQ(selectedChannel(), 4);
}

TEST_F(ControlEditForm, TheControlMayBeClosedInEachEventOfTheForm) {
    const auto close = [this](auto&...) { control->close(); };
    struct Case {
        const char* name;
        std::function<void()> listen;
        std::function<void()> act;
    };
    const std::vector<Case> cases{
        {"DataChanged", [&] { form().DataChanged.connect(close); }, [&] { form().cmdApply.userPress(); }},
        {"NeedToUpdateFlexGrid", [&] { form().NeedToUpdateFlexGrid.connect(close); },
         [&] { form().cmdApply.userPress(); }},
        {"EditClosed after OK", [&] { form().EditClosed.connect(close); }, [&] { form().cmdOk.userPress(); }},
        {"EditClosed after Cancel", [&] { form().EditClosed.connect(close); }, [&] { form().cmdCancel.userPress(); }},
        {"OpenLoginWithChannelEdit", [&] { form().OpenLoginWithChannelEdit.connect(close); },
         [&] { form().cmdAdvanced.userPress(); }},
        {"PauseDiagnosticsIfRunning", [&] { form().PauseDiagnosticsIfRunning.connect(close); },
         [&] {
             form().ckContinuousUpdateEnabled.userClick();
             form().sldTransmitPower.userMoved(-7);
             desktop.tick(form().tmrUpdate);
         }},
        {"PopUpMenuClick", [&] { form().PopUpMenuClick.connect(close); },
         [&] { form().mnuPopUpMenuCopy.userChoose(); }},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        control = std::make_unique<ChannelInformation>(
            control::Surroundings{.desktop = desktop, .makeTable = nullptr, .logPath = logPath});
        control->setCentralDataStore(store);
        control->setRadioComms(link);
        control->DistributeDataStoreLink();
        control->DistributeRadioCommsLink();
        control->UpdateAccess(5);
        doubleClick(4);
        test.listen();
        test.act();
        EXPECT_TRUE(control->closed());
        EXPECT_FALSE(open());
        EXPECT_EQ(boxes(), Boxes{});
    }
}

// -- live levels -----------------------------------------------------------------------------------------------------

TEST_F(ControlEditForm, MovedLevelsReachTheLinkWhileContinuousUpdateIsOn) {
    doubleClick(4);
    form().ckContinuousUpdateEnabled.userClick();
    form().sldTransmitPower.userMoved(-7);
    desktop.tick(form().tmrUpdate);
    EXPECT_EQ(events, Log{"PauseDiagnostics"});
    EXPECT_EQ(link->calls, Log{"SendPotValues "});
    EXPECT_EQ(base::toInt16(store->get(StoreMember::CommsTask)), 33);
}

TEST_F(ControlEditForm, FollowingTheGridEndsContinuousUpdate) {
    doubleClick(4);
    form().ckContinuousUpdateEnabled.userClick();
    EXPECT_TRUE(desktop.runs(form().tmrUpdate));
    userMovesTo(5);
    EXPECT_FALSE(form().ckContinuousUpdateEnabled.checked());
    EXPECT_FALSE(desktop.runs(form().tmrUpdate));
}

}  // namespace
}  // namespace telvar::tests
