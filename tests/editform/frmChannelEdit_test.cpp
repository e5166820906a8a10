// Opening, the buttons, the six events, access, locks, edits that were not applied, and the live update.
#include "edit_form_world.h"
#include "support/failing_store.h"
#include "support/recording_store.h"

namespace telvar::tests {
namespace {

using namespace std::chrono_literals;

class EditForm : public EditFormWorld {};

TEST_F(EditForm, ItsMenuListsTheGridsCommandsInTheOrderOfTheirCodes) {
    Texts captions;
    for (const auto* item : form.mnuPopUpMenu.items()) {
        captions.push_back(item->caption());
    }
    EXPECT_EQ(captions, (Texts{"Copy", "Paste", "Delete", "Undo", "Redo"}));
    EXPECT_EQ(form.caption(), "Channel Edit");
}

TEST_F(EditForm, ItsItemsRaiseTheirCodesWhateverAListenerMakesOfThem) {
    form.PopUpMenuClick.connect([](std::int16_t& code) { code = 99; });
    form.mnuPopUpMenuUndo.setEnabled(true);
    form.mnuPopUpMenuRedo.setEnabled(true);
    for (int round = 0; round < 2; ++round) {
        for (auto* item : form.mnuPopUpMenu.items()) {
            item->userChoose();
        }
    }
    const Texts once{"PopUpMenuClick 0", "PopUpMenuClick 1", "PopUpMenuClick 2", "PopUpMenuClick 3",
                     "PopUpMenuClick 4"};
    Texts twice = once;
    twice.insert(twice.end(), once.begin(), once.end());
    EXPECT_EQ(events, twice);
}

TEST_F(EditForm, UndoAndRedoStartDisabled) {
    for (auto* item : form.mnuPopUpMenu.items()) {
        item->userChoose();
    }
    EXPECT_EQ(events, (Texts{"PopUpMenuClick 0", "PopUpMenuClick 1", "PopUpMenuClick 2"}));
}

TEST_F(EditForm, NothingIsLinkedAtFirst) {
    const frmChannelEdit other(desktop, {});
    EXPECT_EQ(other.centralDataStore(), nullptr);
    EXPECT_EQ(other.radioComms(), nullptr);
    EXPECT_EQ(other.grid(), nullptr);
    EXPECT_EQ(other.accessLevel(), 0);
    EXPECT_EQ(other.LockDataMode(), 0);
    EXPECT_FALSE(other.tmrUpdate.enabled());
    EXPECT_EQ(other.tmrUpdate.interval(), 250ms);
    EXPECT_EQ(other.frChannelSpacing.caption(), "0.0 kHz Channel Spacing");
    EXPECT_FALSE(other.cmdOk.enabled());
}

// -- buttons ---------------------------------------------------------------------------------------------------------

TEST_F(EditForm, ApplyStoresBehindTheHourglassAndStaysOpen) {
    open();
    form.mnuPopUpMenuUndo.setEnabled(true);
    form.mnuPopUpMenuRedo.setEnabled(true);
    form.txtTxBinaryMain.setText("9");
    form.DataChanged.connect([this] {
        EXPECT_FALSE(form.enabled());
        EXPECT_EQ(desktop.pointers(), (std::vector{ui::Pointer::Hourglass}));
        EXPECT_TRUE(form.mnuPopUpMenuUndo.enabled());
        EXPECT_EQ(numberAt(ChannelKey::BinMain), 0.0);
    });
    form.NeedToUpdateFlexGrid.connect([this](std::int16_t&) {
        EXPECT_FALSE(form.enabled());
        EXPECT_FALSE(form.mnuPopUpMenuUndo.enabled() || form.mnuPopUpMenuRedo.enabled());
        EXPECT_EQ(numberAt(ChannelKey::BinMain), 9.0);
    });
    apply();
    EXPECT_EQ(events, (Texts{"DataChanged", "NeedToUpdateFlexGrid 7"}));
    EXPECT_TRUE(form.enabled());
    EXPECT_EQ(desktop.pointers(), (std::vector{ui::Pointer::Hourglass, ui::Pointer::Default}));
    EXPECT_TRUE(desktop.isOpen(form));
    EXPECT_FALSE(form.closing());
}

TEST_F(EditForm, OkStoresAndCloses) {
    open();
    form.EditClosed.connect([this] {
        EXPECT_FALSE(form.enabled());
        EXPECT_FALSE(desktop.isOpen(form));
        EXPECT_TRUE(form.closing());
    });
    form.cmdOk.userPress();
    EXPECT_EQ(events, (Texts{"DataChanged", "NeedToUpdateFlexGrid 7", "EditClosed"}));
    EXPECT_TRUE(form.enabled());
    EXPECT_FALSE(form.cancelled());
    EXPECT_EQ(desktop.pointers().back(), ui::Pointer::Default);
}

TEST_F(EditForm, OkWithABadFieldStaysOpen) {
    open();
    form.txtTransmitPower.setText("256");
    form.cmdOk.userPress();
    EXPECT_EQ(events, (Texts{"DataChanged", "NeedToUpdateFlexGrid 7"}));
    EXPECT_TRUE(desktop.isOpen(form));
    EXPECT_FALSE(form.closing());
    EXPECT_TRUE(form.enabled());
    EXPECT_EQ(form.txtTransmitPower.foreColor(), ui::red);
}

TEST_F(EditForm, CancelStoresNothingAndKeepsWhatWasApplied) {
    open();
    form.txtTxBinaryMain.setText("9");
    apply();
    form.txtTxBinaryMain.setText("10");
    events.clear();
    form.cmdCancel.userPress();
    EXPECT_EQ(events, (Texts{"EditClosed"}));
    EXPECT_EQ(numberAt(ChannelKey::BinMain), 9.0);
    EXPECT_FALSE(desktop.isOpen(form));
    EXPECT_TRUE(form.closing());
    EXPECT_TRUE(form.cancelled());
    form.refresh();
    EXPECT_FALSE(form.closing() || form.cancelled());
}

TEST_F(EditForm, TheCloseBoxSetsTheFlagStopsTheTimerAndRaisesNothing) {
    open();
    form.ckContinuousUpdateEnabled.userClick();
    desktop.close(form);
    EXPECT_TRUE(form.closing());
    EXPECT_FALSE(form.cancelled());
    EXPECT_FALSE(desktop.runs(form.tmrUpdate));
    EXPECT_EQ(events, Texts{});
}

TEST_F(EditForm, AccessAsksForTheLogin) {
    open();
    form.cmdAdvanced.userPress();
    EXPECT_EQ(events, (Texts{"OpenLoginWithChannelEdit"}));
}

TEST_F(EditForm, ChangesThatAreRefusedAreRefusedAtTheEntry) {
    bool locked = true;
    int asked = 0;
    form.setChangesRefused([&] {
        ++asked;
        return locked;
    });
    open();
    form.txtTxBinaryMain.setText("9");
    form.cmdApply.userPress();
    form.cmdOk.userPress();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(events, Texts{});
    EXPECT_TRUE(desktop.pointers().empty());
    EXPECT_TRUE(desktop.isOpen(form));
    locked = false;
    form.cmdOk.userPress();
    EXPECT_EQ(events, (Texts{"DataChanged", "NeedToUpdateFlexGrid 7", "EditClosed"}));
}

TEST_F(EditForm, ItsButtonsDoNothingWhileItStores) {
    open();
    form.txtTxFrequency.setText("5");
    desktop.duringBox = [&](const ui::MessageBox&) {
        form.cmdApply.Click();
        form.cmdOk.Click();
        form.cmdCancel.Click();
    };
    apply();
    EXPECT_EQ(events, (Texts{"DataChanged", "NeedToUpdateFlexGrid 7"}));
    EXPECT_EQ(desktop.boxes().size(), 1U);
    EXPECT_TRUE(desktop.isOpen(form));
}

TEST_F(EditForm, ARefreshWhileItStoresWaitsForTheEnd) {
    open();
    form.txtTxFrequency.setText("5");
    form.txtTxBinaryMain.setText("9");
    desktop.duringBox = [&](const ui::MessageBox&) {
        form.refresh();
        EXPECT_EQ(form.txtTxBinaryMain.text(), "9");
    };
    desktop.answerWith(ui::Answer::No);
    desktop.answerWith(ui::Answer::Yes);
    apply();
    EXPECT_EQ(numberAt(ChannelKey::BinMain), 9.0);
    EXPECT_EQ(form.txtTxFrequency.text(), "5.000000");
    EXPECT_EQ(form.txtTxFrequency.foreColor(), ui::black);
}

TEST_F(EditForm, ARefreshInsideARefusedApplyLeavesTheEntriesToTheUser) {
    open();
    form.txtTxFrequency.setText("5");
    bool once = true;
    desktop.duringBox = [&](const ui::MessageBox&) {
        if (std::exchange(once, false)) {
            form.refresh();
        }
    };
    desktop.answerWith(ui::Answer::No);
    desktop.answerWith(ui::Answer::No);
    apply();
    EXPECT_EQ(form.txtTxFrequency.text(), "5");
    EXPECT_EQ(form.txtTxFrequency.foreColor(), ui::red);
}

TEST_F(EditForm, ARefreshInsideTheBoxOfAFailedOneHasTheLastWord) {
    open();
    const auto failing = std::make_shared<FailingStore>(*table);
    form.setCentralDataStore(failing);
    failing->failAt(12);
    desktop.duringBox = [&](const ui::MessageBox&) { form.refresh(); };
    form.refresh();
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_TRUE(form.cmdApply.enabled());
    EXPECT_FALSE(form.hasUnappliedEdits());
    EXPECT_EQ(form.txtTxFrequency.text(), "145.000000");
}

TEST_F(EditForm, AStoreThatComesWhileItStoresIsLoadedAfterwards) {
    open();
    const auto other = std::make_shared<model::MemoryDataStore>();
    fill(*other, number, {{ChannelKey::TxFreq, 440'000'000}, {ChannelKey::RxFreq, 440'000'000}});
    form.DataChanged.connect([&] { form.setCentralDataStore(other); });
    apply();
    EXPECT_EQ(form.txtTxFrequency.text(), "440.000000");
    EXPECT_TRUE(form.cmdApply.enabled());
}

TEST_F(EditForm, TheProposalKnowsTheStepOfTwoAndAHalfWhateverSeparatesDecimals) {
    frmChannelEdit comma(desktop, {.decimalSeparator = ','});
    comma.setCentralDataStore(table);
    comma.setGrid(&grid);
    comma.setChannel(number);
    comma.UpdateAccess(5);
    comma.refresh();
    comma.txtTxSynthStepSize.setText("2,5");
    comma.txtTxFrequency.setText("450,0025");
    comma.txtTxFrequency.LostFocus();
    EXPECT_EQ(comma.txtTxSynthStepSize.text(), "2,5");
    EXPECT_EQ(boxes(), Boxes{});
}

struct Closing {
    const char* name;
    void (*arm)(frmChannelEdit&, std::function<void()>);
    void (*act)(frmChannelEdit&);
};

class ClosedInside : public EditFormWorld, public testing::WithParamInterface<Closing> {};

TEST_P(ClosedInside, AnEventOrBoxEndsQuietly) {
    open();
    const auto before = tableText(*table);
    int closed = 0;
    GetParam().arm(form, [&] {
        ++closed;
        form.setCentralDataStore(nullptr);
        form.setRadioComms(nullptr);
        desktop.hide(form);
    });
    GetParam().act(form);
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_TRUE(form.enabled());
    EXPECT_FALSE(desktop.runs(form.tmrUpdate));
    EXPECT_FALSE(form.cmdApply.enabled());
    EXPECT_TRUE(link->sent.empty());
}

INSTANTIATE_TEST_SUITE_P(
    EveryEvent, ClosedInside,
    testing::Values(
        Closing{"DataChanged", [](frmChannelEdit& f, std::function<void()> c) { f.DataChanged.connect(std::move(c)); },
                [](frmChannelEdit& f) { f.cmdOk.userPress(); }},
        Closing{"NeedToUpdateFlexGrid",
                [](frmChannelEdit& f, std::function<void()> c) {
                    f.NeedToUpdateFlexGrid.connect([c = std::move(c)](std::int16_t&) { c(); });
                },
                [](frmChannelEdit& f) { f.cmdOk.userPress(); }},
        Closing{"EditClosed", [](frmChannelEdit& f, std::function<void()> c) { f.EditClosed.connect(std::move(c)); },
                [](frmChannelEdit& f) { f.cmdOk.userPress(); }},
        Closing{"EditClosedByCancel",
                [](frmChannelEdit& f, std::function<void()> c) { f.EditClosed.connect(std::move(c)); },
                [](frmChannelEdit& f) { f.cmdCancel.userPress(); }},
        Closing{"OpenLogin",
                [](frmChannelEdit& f, std::function<void()> c) { f.OpenLoginWithChannelEdit.connect(std::move(c)); },
                [](frmChannelEdit& f) { f.cmdAdvanced.userPress(); }},
        Closing{"PauseDiagnostics",
                [](frmChannelEdit& f, std::function<void()> c) { f.PauseDiagnosticsIfRunning.connect(std::move(c)); },
                [](frmChannelEdit& f) {
                    f.ckContinuousUpdateEnabled.userClick();
                    f.tmrUpdate.Tick();
                }},
        Closing{"PopUpMenuClick",
                [](frmChannelEdit& f, std::function<void()> c) {
                    f.PopUpMenuClick.connect([c = std::move(c)](std::int16_t&) { c(); });
                },
                [](frmChannelEdit& f) { f.mnuPopUpMenuCopy.userChoose(); }}),
    [](const auto& entry) { return std::string(entry.param.name); });

// -- access and locks ------------------------------------------------------------------------------------------------

TEST_F(EditForm, TheAccessLevelShowsFrames) {
    const auto shown = [&](std::int16_t level, bool board) {
        table->put(StoreMember::P25BoardFitted, board);
        form.UpdateAccess(level);
        EXPECT_EQ(form.accessLevel(), level);
        EXPECT_EQ(form.ckContinuousUpdateEnabled.enabled(), level >= 5);
        return std::to_string(form.frSynthesizer.isShown()) + std::to_string(form.frDigitalPotentiometer.isShown()) +
               std::to_string(form.frP25ChannelSettings.isShown());
    };
    load();
    EXPECT_EQ(shown(0, false), "000");
    EXPECT_EQ(shown(0, true), "000");
    EXPECT_EQ(shown(2, true), "000");
    EXPECT_EQ(shown(3, false), "000");
    EXPECT_EQ(shown(3, true), "001");
    EXPECT_EQ(shown(4, true), "001");
    EXPECT_EQ(shown(5, false), "111");
    EXPECT_EQ(shown(9, true), "111");
    EXPECT_EQ(shown(-1, true), "000");
}

TEST_F(EditForm, TheConfigurationWithoutABoardShowsTheP25FrameAtFullAccessOnly) {
    table->put(StoreMember::RadioConfigurationCode, 7);
    form.UpdateAccess(3);
    EXPECT_FALSE(form.frP25ChannelSettings.isShown());
    form.UpdateAccess(5);
    EXPECT_TRUE(form.frP25ChannelSettings.isShown());
}

TEST_F(EditForm, P25ModesNeedABoardOrTheConfiguration) {
    for (const bool board : {false, true}) {
        for (const int configuration : {0, 7}) {
            table->put(StoreMember::P25BoardFitted, board);
            table->put(StoreMember::RadioConfigurationCode, configuration);
            form.UpdateAccess(5);
            EXPECT_EQ(form.optRFMode[3].enabled(), board || configuration == 7);
            EXPECT_EQ(form.optRFMode[4].enabled(), board || configuration == 7);
            EXPECT_TRUE(form.optRFMode[2].enabled());
        }
    }
}

TEST_F(EditForm, ALowerLevelEndsTheContinuousUpdate) {
    open();
    form.ckContinuousUpdateEnabled.userClick();
    form.UpdateAccess(4);
    EXPECT_FALSE(form.ckContinuousUpdateEnabled.checked());
    EXPECT_FALSE(desktop.runs(form.tmrUpdate));
}

TEST_F(EditForm, AStoreThatDoesNotAnswerHasNoBoard) {
    const auto failing = std::make_shared<FailingStore>(*table);
    table->put(StoreMember::P25BoardFitted, true);
    form.setCentralDataStore(failing);
    failing->failAt(1, FailureSpan::FromThereOn);
    form.UpdateAccess(3);
    EXPECT_FALSE(form.frP25ChannelSettings.visible());
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(EditForm, TheLockModeDisablesLevelsAndSynthesizerOrEverythingElse) {
    open();
    const std::vector<ui::Frame*> settings{&form.frChannelSpacing, &form.frFreqencySettings,
                                           &form.frTxSubtone,      &form.frRxSubtone,
                                           &form.frRfMode,         &form.frP25ChannelSettings};
    const auto usable = [&](bool levels, bool synthesizer, bool others) {
        EXPECT_EQ(form.txtTransmitPower.isUsable(), levels);
        EXPECT_EQ(form.txtTxSynthStepSize.isUsable(), synthesizer);
        for (const auto* const frame : settings) {
            EXPECT_EQ(frame->inside()[0]->isUsable(), others) << frame->name();
        }
        EXPECT_TRUE(form.cmdApply.isUsable() && form.cmdCancel.isUsable());
    };
    usable(true, true, true);
    form.ckContinuousUpdateEnabled.userClick();
    form.setLockDataMode(1);
    usable(false, false, true);
    EXPECT_FALSE(desktop.runs(form.tmrUpdate));
    form.setLockDataMode(2);
    usable(true, false, false);
    EXPECT_FALSE(form.optP25TransmitMode[0].isUsable());
    form.setLockDataMode(0);
    usable(true, true, true);
    EXPECT_EQ(form.LockDataMode(), 0);
}

// -- edits that were not applied -------------------------------------------------------------------------------------

class Leaving : public EditFormWorld {
protected:
    Leaving() {
        open();
        fill(*table, 8, {{ChannelKey::TxFreq, 150'000'000}});
    }
    // As the form's owner goes to another channel, unless the user wants to stay; answers whether it is shown.
    bool showChannel(std::int16_t channel, std::int16_t firstSelected, std::int16_t lastSelected) {
        if (!form.mayLeaveChannel()) {
            return false;
        }
        form.setChannel(channel);
        form.setSelectedChannels(firstSelected, lastSelected);
        form.refresh();
        return true;
    }
    [[nodiscard]] static ui::MessageBox question(const std::string& text) {
        return {.text = text, .title = "Bench 3", .icon = ui::Icon::Exclamation, .buttons = ui::Buttons::YesNo};
    }
    const ui::MessageBox applyNow = question("Channel 7 has changes that have not been applied. Apply them now?");
    const ui::MessageBox discard = question("Discard the changes to channel 7?");
};

TEST_F(Leaving, WithoutEditsNothingIsAsked) {
    EXPECT_FALSE(form.hasUnappliedEdits());
    EXPECT_TRUE(showChannel(8, 1, 20));
    EXPECT_EQ(form.txtEditChannel.text(), "8");
    EXPECT_EQ(form.txtTxFrequency.text(), "150.000000");
    EXPECT_EQ(form.lblSelectedChannels.caption(), "Also applies to channels 1 to 20");
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Leaving, EditsAreAppliedWhenTheUserWantsThat) {
    form.txtTxBinaryMain.setText("9");
    EXPECT_TRUE(form.hasUnappliedEdits());
    desktop.answerWith(ui::Answer::Yes);
    EXPECT_TRUE(showChannel(8, 8, 8));
    EXPECT_EQ(boxes(), Boxes{applyNow});
    EXPECT_EQ(numberAt(ChannelKey::BinMain), 9.0);
    EXPECT_EQ(events, (Texts{"DataChanged", "NeedToUpdateFlexGrid 7"}));
    EXPECT_EQ(form.txtEditChannel.text(), "8");
}

TEST_F(Leaving, EditsAreDiscardedOrTheChannelStays) {
    form.txtTxBinaryMain.setText("9");
    desktop.answerWith(ui::Answer::No);
    desktop.answerWith(ui::Answer::No);
    EXPECT_FALSE(showChannel(8, 8, 8));
    EXPECT_EQ(boxes(), (Boxes{applyNow, discard}));
    EXPECT_EQ(form.channel(), 7);
    EXPECT_EQ(form.txtTxBinaryMain.text(), "9");
    desktop.answerWith(ui::Answer::No);
    desktop.answerWith(ui::Answer::Yes);
    EXPECT_TRUE(showChannel(8, 8, 8));
    EXPECT_EQ(boxes(), (Boxes{applyNow, discard}));
    EXPECT_EQ(numberAt(ChannelKey::BinMain), 0.0);
    EXPECT_EQ(form.channel(), 8);
    EXPECT_EQ(events, Texts{});
}

TEST_F(Leaving, ARefusedFieldKeepsTheChannel) {
    form.txtTxBinaryMain.setText("256");
    desktop.answerWith(ui::Answer::Yes);
    EXPECT_FALSE(form.mayLeaveChannel());
    EXPECT_EQ(boxes(), (Boxes{applyNow, refusal("Binary accelerator main must be between 0 and 255.")}));
    EXPECT_EQ(form.channel(), 7);
    EXPECT_TRUE(form.hasUnappliedEdits());
}

// The store has it all the same, written as the form writes it.
TEST_F(Leaving, ARefusedFrequencyCountsAsAnEditThatWasNotApplied) {
    form.txtTxFrequency.setText("5.000000");
    apply();
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(at(ChannelKey::TxFreq), base::Value{5e6});
    EXPECT_TRUE(form.hasUnappliedEdits());
}

TEST_F(Leaving, LockedDataKeepsTheChannel) {
    form.setChangesRefused([] { return true; });
    form.txtTxBinaryMain.setText("9");
    desktop.answerWith(ui::Answer::Yes);
    EXPECT_FALSE(form.mayLeaveChannel());
}

TEST_F(Leaving, EveryKindOfEntryCounts) {
    const std::vector<std::function<void()>> edits{
        [&] { form.txtTxFrequency.setText("1"); }, [&] { form.cmbTxSubtone.userTyped("100"); },
        [&] { form.cmbTxModulo.userSelected(0); }, [&] { form.ckScanChannel.userClick(); },
        [&] { form.optNarrowBand.userClick(); },   [&] { form.sldTransmitPower.userMoved(-1); },
        [&] { form.optRxDcs.userClick(); },        [&] { form.chkTTRAnalogDataMode.userClick(); }};
    for (const auto& edit : edits) {
        form.refresh();
        EXPECT_FALSE(form.hasUnappliedEdits());
        edit();
        EXPECT_TRUE(form.hasUnappliedEdits());
    }
    form.refresh();
    form.ckContinuousUpdateEnabled.userClick();
    form.ckLockVcoRefOscDev.userClick();
    EXPECT_FALSE(form.hasUnappliedEdits());
}

TEST_F(Leaving, AQuestionIsNotAskedInsideItself) {
    form.txtTxBinaryMain.setText("9");
    desktop.answerWith(ui::Answer::No);
    desktop.answerWith(ui::Answer::No);
    desktop.duringBox = [&](const ui::MessageBox&) { EXPECT_FALSE(form.mayLeaveChannel()); };
    EXPECT_FALSE(form.mayLeaveChannel());
    EXPECT_EQ(desktop.boxes().size(), 2U);
}

TEST_F(Leaving, AStoreTakenAwayBehindTheQuestionEndsIt) {
    form.txtTxBinaryMain.setText("9");
    desktop.answerWith(ui::Answer::Yes);
    desktop.duringBox = [&](const ui::MessageBox&) { form.setCentralDataStore(nullptr); };
    EXPECT_FALSE(form.mayLeaveChannel());
    EXPECT_EQ(events, Texts{});
    EXPECT_EQ(desktop.boxes().size(), 1U);
}

// -- live update -----------------------------------------------------------------------------------------------------

class Live : public EditFormWorld {
protected:
    Live() {
        open({{ChannelKey::TxPower, 1},
              {ChannelKey::RefOscFreq, 5},
              {ChannelKey::VCODev, 3},
              {ChannelKey::RefOscDev, 4},
              {ChannelKey::NBRefOscFreq, 15},
              {ChannelKey::NBVCODev, 13},
              {ChannelKey::NBRefOscDev, 14}});
    }
    [[nodiscard]] std::vector<int> staged() const {
        return {table->potValue(0), table->potValue(1), table->potValue(2), table->potValue(3)};
    }
    void tick() { desktop.advance(250ms); }
};

TEST_F(Live, SendsTheDisplayedLevelsOfTheBandWhenTheyChange) {
    form.ckContinuousUpdateEnabled.userClick();
    EXPECT_TRUE(link->sent.empty());
    tick();
    EXPECT_EQ(staged(), (std::vector<int>{1, 250, 3, 4}));
    EXPECT_EQ(link->sent, (Texts{"''"}));
    EXPECT_EQ(table->get(StoreMember::CommsTask), base::Value{std::int16_t{33}});
    EXPECT_EQ(events, (Texts{"PauseDiagnosticsIfRunning"}));
    tick();
    tick();
    EXPECT_EQ(link->sent.size(), 1U);
    form.sldTransmitPower.userMoved(-9);
    form.sldTransmitPower.userMoved(-10);
    tick();
    EXPECT_EQ(staged(), (std::vector<int>{10, 250, 3, 4}));
    EXPECT_EQ(link->sent.size(), 2U);
    form.optNarrowBand.userClick();
    tick();
    EXPECT_EQ(staged(), (std::vector<int>{10, 240, 13, 14}));
    EXPECT_EQ(link->sent.size(), 3U);
}

TEST_F(Live, AClearedBoxStopsTheTimer) {
    form.ckContinuousUpdateEnabled.userClick();
    EXPECT_TRUE(desktop.runs(form.tmrUpdate));
    form.ckContinuousUpdateEnabled.userClick();
    EXPECT_FALSE(desktop.runs(form.tmrUpdate));
    form.tmrUpdate.setEnabled(true);
    tick();
    EXPECT_FALSE(desktop.runs(form.tmrUpdate));
    EXPECT_TRUE(link->sent.empty());
}

TEST_F(Live, AFullRefreshUnticksTheBox) {
    form.ckContinuousUpdateEnabled.userClick();
    form.refresh();
    EXPECT_FALSE(form.ckContinuousUpdateEnabled.checked());
    EXPECT_FALSE(desktop.runs(form.tmrUpdate));
    EXPECT_TRUE(form.ckContinuousUpdateEnabled.enabled());
}

TEST_F(Live, TextsThatAreNoLevelsEndTheTickSilently) {
    form.ckContinuousUpdateEnabled.userClick();
    for (const char* const text : {"", "abc", "256", "-1", "12 dB"}) {
        form.txtVcoDeviation.userTyped(text);
        tick();
        EXPECT_TRUE(link->sent.empty()) << text;
    }
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_TRUE(desktop.runs(form.tmrUpdate));
    form.txtVcoDeviation.userTyped("255");
    tick();
    EXPECT_EQ(link->sent.size(), 1U);
}

TEST_F(Live, TheSpareLevelsTakePartInTheComparisonOnly) {
    form.ckContinuousUpdateEnabled.userClick();
    tick();
    form.potval[1].setText("5");
    tick();
    EXPECT_EQ(link->sent.size(), 2U);
    EXPECT_EQ(staged(), (std::vector<int>{1, 250, 3, 4}));
}

TEST_F(Live, EveryOneOfTheSixLevelsCountsInTheComparison) {
    form.ckContinuousUpdateEnabled.userClick();
    tick();
    std::size_t sent = 1;
    for (ui::TextBox* const box : {&form.txtTransmitPower, &form.txtRefOscFreq, &form.txtVcoDeviation,
                                   &form.txtRefOscDev, &form.potval[0], &form.potval[1]}) {
        box->setText("77");
        tick();
        EXPECT_EQ(link->sent.size(), ++sent) << box->name();
        tick();
        EXPECT_EQ(link->sent.size(), sent) << box->name();
    }
    EXPECT_EQ(staged(), (std::vector<int>{77, 77, 77, 77}));
}

TEST_F(Live, AGreyBoxIsNotTicked) {
    form.ckContinuousUpdateEnabled.userClick();
    form.ckContinuousUpdateEnabled.setValue(2);
    EXPECT_FALSE(desktop.runs(form.tmrUpdate));
    form.tmrUpdate.setEnabled(true);
    tick();
    EXPECT_FALSE(desktop.runs(form.tmrUpdate));
    EXPECT_EQ(link->sent, Texts{});
}

TEST_F(Live, ARadioOfOneBandwidthIsSentTheWideSetThatIsShown) {
    table->put(StoreMember::BandwidthSwitchable, false);
    for (const int modeBits : {0x80, 0}) {
        load({{ChannelKey::ModeBits, modeBits}});
        EXPECT_EQ(form.optNarrowBand.value(), modeBits != 0);
        EXPECT_TRUE(form.txtVcoDeviation.isShown() && form.sldRefOscFreq.isShown() && form.txtRefOscDev.isShown());
        EXPECT_FALSE(form.txtNBVcoDeviation.isShown() || form.sldNBRefOscFreq.isShown());
        form.ckContinuousUpdateEnabled.userClick();
        tick();
        EXPECT_EQ(staged(), (std::vector<int>{1, 250, 3, 4})) << modeBits;
        form.sldVcoDeviation.userMoved(-33);
        tick();
        EXPECT_EQ(staged(), (std::vector<int>{1, 250, 33, 4})) << modeBits;
    }
}

TEST_F(Live, WithTheRadioGoneItSwitchesItselfOffAndThenTellsOnce) {
    link->gone = true;
    form.ckContinuousUpdateEnabled.userClick();
    desktop.duringBox = [&](const ui::MessageBox&) {
        EXPECT_FALSE(desktop.runs(form.tmrUpdate));
        EXPECT_FALSE(form.ckContinuousUpdateEnabled.checked());
    };
    tick();
    EXPECT_EQ(boxes(), (Boxes{refusal("The radio does not answer. Continuous update has been switched off.")}));
    desktop.advance(2000ms);
    EXPECT_EQ(boxes(), Boxes{});
    link->gone = false;
    form.ckContinuousUpdateEnabled.userClick();
    tick();
    EXPECT_EQ(link->sent.size(), 1U);
}

TEST_F(Live, ARadioThatDoesNotAnswerInTheBackgroundSwitchesItOffAtTheNextTick) {
    form.ckContinuousUpdateEnabled.userClick();
    tick();
    EXPECT_EQ(boxes(), Boxes{});
    link->outcome = model::ExchangeOutcome::Failed;
    tick();
    EXPECT_EQ(boxes(), (Boxes{refusal("The radio does not answer. Continuous update has been switched off.")}));
    EXPECT_FALSE(desktop.runs(form.tmrUpdate));
    EXPECT_FALSE(form.ckContinuousUpdateEnabled.checked());
}

TEST_F(Live, DoesNotTickBehindTheBoxOfAReloadThatFailed) {
    form.ckContinuousUpdateEnabled.userClick();
    const auto failing = std::make_shared<FailingStore>(*table);
    failing->failAt(12);
    bool ticking = true;
    desktop.duringBox = [&](const ui::MessageBox&) { ticking = desktop.runs(form.tmrUpdate); };
    form.setCentralDataStore(failing);
    form.refresh();
    EXPECT_FALSE(ticking);
    EXPECT_EQ(boxes().size(), 1U);
}

TEST_F(Live, LevelsOfTheFormerChannelAreNotSentAfterAReloadInTheWait) {
    form.ckContinuousUpdateEnabled.userClick();
    table->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] {
        form.refresh();
        form.ckContinuousUpdateEnabled.userClick();
        table->put(StoreMember::CommsBusy, false);
    });
    tick();
    EXPECT_EQ(link->sent, Texts{});
    EXPECT_TRUE(desktop.runs(form.tmrUpdate));
}

TEST_F(Live, AnotherLinkIsNotAnswerableForTheFormerOne) {
    form.ckContinuousUpdateEnabled.userClick();
    tick();
    const std::weak_ptr former(link);
    link->outcome = model::ExchangeOutcome::Failed;
    link = std::make_shared<RecordingLink>();
    form.setRadioComms(link);
    EXPECT_TRUE(former.expired());
    tick();
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Live, TheSameLinkOnceMoreIsNotSentTheSameLevelsAgain) {
    form.ckContinuousUpdateEnabled.userClick();
    tick();
    ASSERT_EQ(link->sent.size(), 1U);
    form.setRadioComms(link);
    tick();
    EXPECT_EQ(link->sent.size(), 1U);
}

TEST_F(Live, WithoutALinkItIsTheSame) {
    form.setRadioComms(nullptr);
    form.ckContinuousUpdateEnabled.userClick();
    tick();
    EXPECT_EQ(boxes(), (Boxes{refusal("The radio does not answer. Continuous update has been switched off.")}));
}

TEST_F(Live, AStoreThatFailsAtAnyCallOfATickEndsItAndIsToldByItsOwnName) {
    const auto failing = std::make_shared<FailingStore>(*table);
    form.setCentralDataStore(failing);
    constexpr int callsOfATick = 7;
    for (int call = 1; call <= callsOfATick; ++call) {
        failing->failAt(0);
        form.refresh();
        form.ckContinuousUpdateEnabled.userClick();
        failing->failAt(call);
        tick();
        EXPECT_EQ(boxes(), (Boxes{errorIn("tmrUpdate_Timer")})) << call;
        EXPECT_FALSE(desktop.runs(form.tmrUpdate));
    }
    EXPECT_TRUE(link->sent.empty());
}

TEST_F(Live, ABoxThatIsClearedInsideTheWaitSendsNothing) {
    table->put(StoreMember::CommsBusy, true);
    form.ckContinuousUpdateEnabled.userClick();
    desktop.whenPumping([&] { form.ckContinuousUpdateEnabled.userClick(); });
    desktop.whenPumping([&] { table->put(StoreMember::CommsBusy, false); });
    tick();
    EXPECT_TRUE(link->sent.empty());
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Live, AStoreThatIsTakenAwayInTheWaitEndsItQuietly) {
    table->put(StoreMember::CommsBusy, true);
    form.ckContinuousUpdateEnabled.userClick();
    desktop.whenPumping([&] { form.setCentralDataStore(nullptr); });
    tick();
    EXPECT_TRUE(link->sent.empty());
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_FALSE(desktop.runs(form.tmrUpdate));
}

TEST_F(Live, ASlowRadioGetsTheLastValueAndNoTickNests) {
    table->put(StoreMember::CommsBusy, true);
    form.ckContinuousUpdateEnabled.userClick();
    for (int level = 20; level < 30; ++level) {
        desktop.whenPumping([&, level] {
            form.sldTransmitPower.userMoved(-level);
            desktop.tick(form.tmrUpdate);
        });
    }
    desktop.whenPumping([&] { table->put(StoreMember::CommsBusy, false); });
    tick();
    EXPECT_EQ(link->sent.size(), 1U);
    EXPECT_EQ(events.size(), 1U);
    tick();
    EXPECT_EQ(link->sent.size(), 2U);
    EXPECT_EQ(staged()[0], 29);
    tick();
    EXPECT_EQ(link->sent.size(), 2U);
}

}  // namespace
}  // namespace telvar::tests
