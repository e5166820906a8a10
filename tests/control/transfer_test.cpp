// The checks and the exchanges of the whole table as the host calls them: real findings in real order, the control's
// own events and button, and what locked data, a missing store or link, and a closed control do.
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "control_world.h"
#include "support/answering_store.h"
#include "support/failing_store.h"
#include "support/recording_store.h"
#include "support/store_decorator.h"
#include "synth/table_check.h"

namespace telvar::tests {
namespace {

constexpr std::int32_t good = 450'000'000;
constexpr std::int32_t offGrid = good + 1;

class Transfer : public ControlWorld {
protected:
    Transfer() {
        store->put(StoreMember::TableOpen, true);
        store->put(StoreMember::ShowSendWarning, false);
        store->put(StoreMember::MessageTitle, base::textValue("Telvar"));
    }
    void press() {
        control->cmdChannelSelect.setEnabled(true);
        control->cmdChannelSelect.userPress();
    }
    void scan(int channels) {
        for (std::int16_t channel = 1; channel <= channels; ++channel) {
            fill(*store, channel, {{ChannelKey::TxFreq, good}, {ChannelKey::scan, true}});
        }
    }
};

TEST_F(Transfer, AGoodTableIsSentWithTheHostsEventsInOrder) {
    fill(*store, 1, {{ChannelKey::TxFreq, good}});
    control->SendChannelInfoToTelvar();
    EXPECT_EQ(events, (Log{"DisableCommands", "HourglassOverWindow", "PauseDiagnostics"}));
    EXPECT_EQ(link->calls, (Log{"SendChannelTable"}));
    EXPECT_FALSE(control->cmdChannelSelect.enabled());
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Transfer, ALoadHandsOverWithTheHostsEventsInOrder) {
    control->LoadChannelInfoFromTelvar();
    EXPECT_EQ(events, (Log{"DisableCommands", "HourglassOverWindow", "PauseDiagnostics"}));
    EXPECT_EQ(link->calls, (Log{"LoadChannelTable "}));
    EXPECT_FALSE(control->cmdChannelSelect.enabled());
}

TEST_F(Transfer, TheShortFormsDoTheSame) {
    control->SendToTelvar();
    control->LoadFromTelvar();
    EXPECT_EQ(link->calls, (Log{"SendChannelTable", "LoadChannelTable "}));
}

TEST_F(Transfer, AnEmptyTablePassesTheCheckWithoutAMessage) {
    EXPECT_TRUE(control->check_Frequencies());
    EXPECT_EQ(control->CheckTotalNoOfChannelScan(), "");
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Transfer, FaultyChannelsAreToldUnderTheStoresTitleAndFailTheCheck) {
    fill(*store, 3, {{ChannelKey::TxFreq, offGrid}});
    EXPECT_FALSE(control->check_Frequencies());
    EXPECT_EQ(boxes(),
              (Boxes{{.text = "Reference frequency divide error or main frequency divide error in channels 3.\r"
                              "Hint: Correct frequency or alter modulus or step size.\r\n",
                      .title = "Telvar",
                      .icon = ui::Icon::Exclamation}}));
}

TEST_F(Transfer, TheChipWarningHasTheDefaultTitleComesFirstAndAloneFailsNothing) {
    store->put(StoreMember::TxSynthChipInfo, base::textValue("N.A."));
    fill(*store, 2, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 2500}});
    EXPECT_TRUE(control->check_Frequencies());
    const ui::MessageBox warning{.text = "Phillips SA 7025 PLL chip detected, synthesizer step size 5kHZ or larger is "
                                         "recommended to maintain RF performance in channel 2 (TX)",
                                 .title = "Tesslin",
                                 .icon = ui::Icon::Exclamation};
    EXPECT_EQ(boxes(), (Boxes{warning}));
    fill(*store, 3, {{ChannelKey::TxFreq, offGrid}});
    EXPECT_FALSE(control->check_Frequencies());
    const Boxes both = boxes();
    ASSERT_EQ(both.size(), 2U);
    EXPECT_EQ(both[0].title, "Tesslin");
    EXPECT_EQ(both[1].title, "Telvar");
}

TEST_F(Transfer, AFaultyTableIsNotSentAndTheLinkIsAbortedTwice) {
    fill(*store, 3, {{ChannelKey::TxFreq, offGrid}});
    control->SendToTelvar();
    EXPECT_EQ(link->calls, (Log{"AbortTransfer", "AbortTransfer"}));
    EXPECT_EQ(events, (Log{"DisableCommands", "HourglassOverWindow"}));
    EXPECT_EQ(boxes().size(), 1U);
}

TEST_F(Transfer, FortyScannedChannelsAreSentFortyOneAreNot) {
    scan(40);
    control->SendToTelvar();
    EXPECT_EQ(link->calls, (Log{"SendChannelTable"}));
    scan(41);
    link->calls.clear();
    events.clear();
    control->SendToTelvar();
    EXPECT_EQ(boxes(), (Boxes{{.text = "Total number of channel scan must not exceed 40.",
                               .title = "Telvar",
                               .icon = ui::Icon::Exclamation}}));
    EXPECT_EQ(link->calls, (Log{"AbortTransfer"}));
    EXPECT_EQ(events, (Log{"DisableCommands", "HourglassOverWindow", "PauseDiagnostics"}));
}

TEST_F(Transfer, ACancelledSendGivesTheHostItsCommandsBack) {
    store->put(StoreMember::ShowSendWarning, true);
    desktop.answerWith(ui::Answer::Cancel);
    control->SendToTelvar();
    EXPECT_EQ(events, (Log{"RestoreButtons", "EnableCommands All"}));
    EXPECT_TRUE(control->cmdChannelSelect.enabled());
    EXPECT_EQ(link->calls, Log{});
}

TEST_F(Transfer, LockedDataRefusesALoadButNotASend) {
    control->ckLockData.setValue(1);
    control->LoadFromTelvar();
    EXPECT_EQ(boxes(), (Boxes{{.text = "Data is locked. Clear 'Lock Data' to make changes.",
                               .title = "Telvar",
                               .icon = ui::Icon::Exclamation}}));
    EXPECT_EQ(events, Log{});
    control->SendToTelvar();
    EXPECT_EQ(link->calls, (Log{"SendChannelTable"}));
}

// What is changed while the radio's table is on its way would be overwritten unseen.
TEST_F(Transfer, NothingChangesTheTableWhileItIsBeingLoaded) {
    control->DistributeDataStoreLink();
    control->DistributeRadioCommsLink();
    control->UpdateAccess(5);
    fill(*store, 1, {{ChannelKey::TxFreq, good}, {ChannelKey::RxFreq, good}});
    control->UpdateControlsFromMemory();
    desktop.clipboard = "451";
    control->run(control::GridCommand::Paste);
    doubleClickCurrent();
    control->LoadChannelInfoFromTelvar();
    store->put(StoreMember::CommsBusy, true);
    const auto before = tableText(*store);
    const ui::MessageBox refused{
        .text = "The channel table is being loaded from the radio. Please wait until it has ended.",
        .title = "Telvar",
        .icon = ui::Icon::Exclamation};
    static_cast<void>(boxes());
    for (const auto command : {control::GridCommand::Paste, control::GridCommand::Delete, control::GridCommand::Undo}) {
        control->run(command);
        EXPECT_EQ(boxes(), Boxes{refused});
    }
    control->ChannelFillDown();
    EXPECT_EQ(boxes(), Boxes{refused});
    control->frmCE.cmdApply.userPress();
    EXPECT_EQ(boxes(), Boxes{refused});
    EXPECT_EQ(tableText(*store), before);
    control->run(control::GridCommand::Copy);
    EXPECT_EQ(boxes(), Boxes{});

    store->put(StoreMember::CommsBusy, false);
    control->run(control::GridCommand::Paste);
    EXPECT_EQ(boxes(), Boxes{});
    // Somebody else's exchange, later.
    store->put(StoreMember::CommsTask, std::int16_t{12});
    store->put(StoreMember::CommsBusy, true);
    control->run(control::GridCommand::Paste);
    EXPECT_EQ(boxes(), Boxes{});
}

class Guard : public Transfer {
protected:
    Guard() {
        control->DistributeDataStoreLink();
        control->UpdateControlsFromMemory();
        desktop.clipboard = "451";
        grid().select({3, 1}, {3, 1});
        static_cast<void>(boxes());
        events.clear();
    }
    void paste() { control->run(control::GridCommand::Paste); }
    [[nodiscard]] double pasted() const { return base::toDouble(store->channelValue(2, ChannelKey::TxFreq)); }
    void setTask(std::int16_t task, bool busy) {
        store->put(StoreMember::CommsTask, task);
        store->put(StoreMember::CommsBusy, busy);
    }
    const ui::MessageBox refused{
        .text = "The channel table is being loaded from the radio. Please wait until it has ended.",
        .title = "Telvar",
        .icon = ui::Icon::Exclamation};
};

TEST_F(Guard, OnlyTheStoreTellsThatALoadRuns) {
    // Nobody has asked this control for a load.
    setTask(22, true);
    paste();
    EXPECT_EQ(boxes(), Boxes{refused});
    EXPECT_EQ(pasted(), 0);
    // A refresh is no end of it.
    control->UpdateControlsFromMemory();
    grid().select({3, 1}, {3, 1});
    paste();
    EXPECT_EQ(boxes(), Boxes{refused});
    setTask(22, false);
    paste();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(pasted(), 451e6);
}

TEST_F(Guard, AfterALoadThatFailedNoOtherExchangeKeepsAnybodyFromEditing) {
    control->LoadChannelInfoFromTelvar();
    setTask(22, true);
    setTask(22, false);
    for (const auto task : std::vector<std::int16_t>{11, 12, 30, 31, 33}) {
        setTask(task, true);
        store->writeChannel(2, ChannelKey::TxFreq, 0);
        paste();
        EXPECT_EQ(boxes(), Boxes{}) << task;
        EXPECT_EQ(pasted(), 451e6) << task;
    }
}

TEST_F(Guard, AStoreThatCannotTellKeepsNobodyFromEditing) {
    class Secretive final : public StoreDecorator {
    public:
        using StoreDecorator::StoreDecorator;
        base::Value get(StoreMember member) override {
            if (member == StoreMember::CommsBusy || member == StoreMember::CommsTask) {
                throw base::Failure("has no such member");
            }
            return StoreDecorator::get(member);
        }

    private:
        void onCall(const StoreCall& /*call*/) override {}
    };
    decorate<Secretive>();
    paste();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(pasted(), 451e6);
}

// What is pending when a load is asked for runs inside its wait, be the link busy or quiet, and would be overwritten.
TEST_F(Guard, AnEditPendingAtTheBeginningOfALoadIsRefusedInOneSentenceAndSoIsEveryOtherInItsWait) {
    for (const bool busy : {false, true}) {
        setTask(12, busy);
        link->calls.clear();
        desktop.whenPumping([&] { paste(); });
        if (busy) {
            desktop.whenPumping([&] { control->run(control::GridCommand::Delete); });
            desktop.whenPumping([&] { setTask(12, false); });
        }
        control->LoadFromTelvar();
        EXPECT_EQ(boxes(), busy ? (Boxes{refused, refused}) : Boxes{refused});
        EXPECT_EQ(pasted(), 0);
        EXPECT_EQ(link->calls, (Log{"LoadChannelTable "}));
        // The link has taken over, and says so in the store.
        store->put(StoreMember::CommsBusy, true);
        paste();
        EXPECT_EQ(boxes(), Boxes{refused});
        EXPECT_EQ(pasted(), 0);
    }
}

TEST_F(Guard, AnEventOfTheHostAtTheBeginningOfALoadIsInsideItToo) {
    control->DisableCommands.connect([&] { paste(); });
    control->LoadFromTelvar();
    EXPECT_EQ(boxes(), Boxes{refused});
    EXPECT_EQ(pasted(), 0);
}

TEST_F(Guard, ALoadThatIsRefusedInsideASendsWaitGuardsNothing) {
    setTask(12, true);
    desktop.whenPumping([&] { control->LoadFromTelvar(); });
    desktop.whenPumping([&] { paste(); });
    desktop.whenPumping([&] { setTask(12, false); });
    control->SendToTelvar();
    EXPECT_EQ(link->calls, (Log{"SendChannelTable"}));
    EXPECT_EQ(boxes(), (Boxes{{.text = "Another transfer is waiting for the Telvar. Please wait until it has ended.",
                               .title = "Telvar",
                               .icon = ui::Icon::Exclamation}}));
    EXPECT_EQ(pasted(), 451e6);
    store->put(StoreMember::CommsBusy, true);
    desktop.clipboard = "452";
    paste();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(pasted(), 452e6);
}

// The edit would go on in a table that is about to be overwritten.
TEST_F(Guard, ALoadInsideTheQuestionOfAnEditIsRefusedInOneSentence) {
    fill(*store, 3, {{ChannelKey::TxFreq, good}});
    desktop.answerWith(ui::Answer::Yes);
    int questions = 0;
    desktop.duringBox = [&](const ui::MessageBox& box) {
        if (box.buttons != ui::Buttons::Ok) {
            ++questions;
            control->LoadFromTelvar();
        }
    };
    control->run(control::GridCommand::Delete);
    EXPECT_EQ(questions, 1);
    const Boxes told = boxes();
    ASSERT_EQ(told.size(), 2U);
    EXPECT_EQ(told[1],
              (ui::MessageBox{
                  .text = "The channel table is being edited. Please end that before it is loaded from the radio.",
                  .title = "Telvar",
                  .icon = ui::Icon::Exclamation}));
    EXPECT_EQ(link->calls, Log{});
    EXPECT_EQ(events, Log{});
    EXPECT_EQ(pasted(), 0);
}

TEST_F(Guard, ALoadThatFailsToBeginLeavesNoGuardBehind) {
    control->setRadioComms(nullptr);
    control->LoadFromTelvar();
    EXPECT_EQ(boxes(), (Boxes{errorIn("LoadChannelInfoFromTelvar")}));
    paste();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(pasted(), 451e6);
}

// -- the wait --------------------------------------------------------------------------------------------------------

TEST_F(Transfer, TheWaitForAQuietLinkHasNoLimit) {
    store->put(StoreMember::ChannelChangeAllowed, true);
    control->txtChannelSelect.setText("12");
    const std::vector<std::pair<std::function<void()>, std::string>> uses{
        {[&] { control->SendToTelvar(); }, "SendChannelTable"},
        {[&] { control->LoadFromTelvar(); }, "LoadChannelTable "},
        {[&] { press(); }, "SelectChannel 12"}};
    for (const auto& [use, call] : uses) {
        store->put(StoreMember::CommsBusy, true);
        link->calls.clear();
        waitAnHour(desktop, [&] {
            EXPECT_EQ(link->calls, Log{});
            store->put(StoreMember::CommsBusy, false);
        });
        use();
        EXPECT_EQ(link->calls, (Log{call}));
    }
}

TEST_F(Transfer, AProgramThatEndsBeginsNoExchangeBeTheLinkQuietOrNot) {
    store->put(StoreMember::ChannelChangeAllowed, true);
    for (const bool busy : {true, false}) {
        for (int use = 0; use < 3; ++use) {
            store->put(StoreMember::CommsBusy, busy);
            desktop.whenPumping([&] { desktop.quit(); });
            control->txtChannelSelect.setText("12");
            use == 0 ? control->SendToTelvar() : use == 1 ? control->LoadFromTelvar() : press();
            EXPECT_EQ(link->calls, Log{}) << busy << use;
        }
    }
    EXPECT_EQ(boxes(), Boxes{});
}

// Nothing is enabled again here: the host does that.
TEST_F(Transfer, TheButtonStaysDisabledAfterARefusedCheckAndAfterARefusedPermission) {
    fill(*store, 3, {{ChannelKey::TxFreq, offGrid}});
    control->SendToTelvar();
    EXPECT_FALSE(control->cmdChannelSelect.enabled());
    control->EnableMyCommands("RS232");
    store->setSendPermitted(false);
    control->SendToTelvar();
    EXPECT_FALSE(control->cmdChannelSelect.enabled());
}

TEST_F(Transfer, TheChecksBoxesTakeTheStoresTitleAsItIsAlsoAnEmptyOne) {
    store->put(StoreMember::MessageTitle, base::textValue(""));
    store->put(StoreMember::TxSynthChipInfo, base::textValue("N.A."));
    fill(*store, 2, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 2500}});
    fill(*store, 3, {{ChannelKey::TxFreq, offGrid}});
    EXPECT_FALSE(control->check_Frequencies());
    const Boxes both = boxes();
    ASSERT_EQ(both.size(), 2U);
    EXPECT_EQ(both[0].title, "Tesslin") << "the warning has no title of its own";
    EXPECT_EQ(both[1].title, "");
    fill(*store, 3, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 0}});
    EXPECT_FALSE(control->check_Frequencies());
    EXPECT_EQ(boxes().back().title, "");
    // One that cannot be read is none.
    decorate<AnsweringStore>()->answer(StoreMember::MessageTitle, base::Unusable{});
    EXPECT_FALSE(control->check_Frequencies());
    EXPECT_EQ(boxes().back().title, "Tesslin");
}

TEST_F(Transfer, LessThanHalfAHertzIsNoFrequencyInTheCheckAsInTheGrid) {
    fill(*store, 3,
         {{ChannelKey::TxFreq, 0.4},
          {ChannelKey::RxFreq, 0.5},
          {ChannelKey::SynthStep, 0},
          {ChannelKey::RxSynthStep, 0}});
    control->UpdateRowData(3);
    EXPECT_EQ(grid().text(3, 1), "X");
    EXPECT_TRUE(control->check_Frequencies());
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Transfer, WithoutAStoreEveryCommandSaysSoAndStartsNothing) {
    control->setCentralDataStore(nullptr);
    EXPECT_FALSE(control->check_Frequencies());
    EXPECT_EQ(control->CheckTotalNoOfChannelScan(), "Error in calculating Total number of channel scan.");
    control->SendToTelvar();
    EXPECT_EQ(boxes(), (Boxes{errorIn("check_Frequencies"), errorIn("SendChannelInfoToTelvar")}));
    EXPECT_EQ(link->calls, Log{});
}

TEST_F(Transfer, WithoutALinkASendAndALoadFailUnderTheirOwnNames) {
    control->setRadioComms(nullptr);
    control->SendToTelvar();
    control->LoadFromTelvar();
    EXPECT_EQ(boxes(), (Boxes{errorIn("SendChannelInfoToTelvar"), errorIn("LoadChannelInfoFromTelvar")}));
}

TEST_F(Transfer, AStoreThatFailsAtAnyCallNeverCrashesNorSendsAndIsToldOnce) {
    const auto failing = decorate<FailingStore>();
    fill(*store, 1, {{ChannelKey::TxFreq, good}, {ChannelKey::RxFreq, 446'100'000}});
    for (const bool sending : {true, false}) {
        const auto run = [&] { sending ? control->SendToTelvar() : control->LoadFromTelvar(); };
        failing->failAt(0);
        run();
        const int calls = failing->calls();
        ASSERT_GT(calls, 2);
        link->calls.clear();
        for (int call = 1; call <= calls; ++call) {
            failing->failAt(call, FailureSpan::FromThereOn);
            run();
            const Boxes told = boxes();
            EXPECT_LE(told.size(), 1U) << call;
            EXPECT_EQ(std::ranges::count(link->calls, sending ? "SendChannelTable" : "LoadChannelTable "), 0) << call;
            link->calls.clear();
        }
    }
}

// The host closes its window, or lets go of the control, while a sequence is anywhere.
TEST_F(Transfer, AControlThatIsClosedInsideASequenceEndsItQuietly) {
    const std::vector<std::function<base::Event<>&()>> places{
        [&]() -> base::Event<>& { return control->DisableCommands; },
        [&]() -> base::Event<>& { return control->HourglassOverWindow; },
        [&]() -> base::Event<>& { return control->PauseDiagnostics; }};
    for (const auto& place : places) {
        for (const bool sending : {true, false}) {
            control = std::make_unique<ChannelInformation>(
                control::Surroundings{.desktop = desktop, .makeTable = nullptr, .logPath = logPath});
            control->setCentralDataStore(store);
            control->setRadioComms(link);
            place().connect([&] { control->close(); });
            sending ? control->SendToTelvar() : control->LoadFromTelvar();
            EXPECT_EQ(link->calls, Log{});
            EXPECT_EQ(boxes(), Boxes{});
        }
    }
}

TEST_F(Transfer, AControlClosedInTheWaitEndsItQuietly) {
    store->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] { control->close(); });
    control->SendToTelvar();
    EXPECT_EQ(link->calls, Log{});
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Transfer, AControlClosedInAFindingsBoxAnswersFalse) {
    fill(*store, 3, {{ChannelKey::TxFreq, offGrid}});
    desktop.duringBox = [&](const ui::MessageBox&) { control->close(); };
    EXPECT_FALSE(control->check_Frequencies());
}

TEST_F(Transfer, TwoSendsAtOnceAreOneSendAndOneSentence) {
    store->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] { control->SendToTelvar(); });
    desktop.whenPumping([&] { store->put(StoreMember::CommsBusy, false); });
    control->SendToTelvar();
    EXPECT_EQ(link->calls, (Log{"SendChannelTable"}));
    EXPECT_EQ(boxes(), (Boxes{{.text = "Another transfer is waiting for the Telvar. Please wait until it has ended.",
                               .title = "Telvar",
                               .icon = ui::Icon::Exclamation}}));
}

}  // namespace
}  // namespace telvar::tests
