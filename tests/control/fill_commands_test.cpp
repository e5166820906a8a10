// The fill dialog as the host and the user meet it: who may open it, what it shows, what surrounds the fill, and hosts
// that do something meanwhile.
#include "base/failure.h"
#include "control_world.h"
#include "support/failing_store.h"
#include "support/recording_store.h"

namespace telvar::tests {
namespace {

using control::GridCommand;
using ui::CellRange;

const ui::MessageBox locked{
    .text = "Data is locked. Clear 'Lock Data' to make changes.", .title = "Bench 3", .icon = ui::Icon::Exclamation};

class FillCommands : public ControlWorld {
protected:
    FillCommands() {
        for (std::int16_t channel = 1; channel <= 6; ++channel) {
            fillDistinct(*store, channel);
        }
        store->put(StoreMember::MessageTitle, base::textValue("Bench 3"));
        control->DistributeDataStoreLink();
        control->Prepare();
        control->UpdateControlsFromMemory();
        control->UpdateAccess(3);
        before = tableText(*store);
        events.clear();
    }

    [[nodiscard]] editing::frmFill& form() const { return control->frmFill(); }
    // What the user does in the dialog; it is cancelled afterwards where it is still open.
    void inDialog(std::function<void()> user) {
        desktop.duringModal = [this, user = std::move(user)](ui::Form& shown) {
            ++dialogs;
            user();
            if (desktop.isOpen(shown)) {
                form().cancel_but.userPress();
            }
        };
    }
    void type(ui::TextBox& box, const std::string& text) const {
        box.setText(text);
        box.LostFocus();
    }
    void enter(const std::string& first, const std::string& last, const std::string& start, const std::string& step) {
        type(form().start_chan_val, first);
        type(form().end_chan_val, last);
        type(form().start_freq_val, start);
        if (form().step_val.visible()) {
            type(form().step_val, step);
        }
    }
    void fillSeries(const std::string& first, const std::string& last, const std::string& start,
                    const std::string& step) {
        inDialog([=, this] {
            enter(first, last, start, step);
            form().ok_but.userPress();
        });
        control->ChannelFillSeries();
        desktop.duringModal = nullptr;
    }
    [[nodiscard]] std::string now() { return tableText(*store); }
    [[nodiscard]] std::int32_t transmits(std::int16_t channel) {
        return base::toInt32(store->channel(channel).get(ChannelKey::TxFreq));
    }
    [[nodiscard]] std::string channels() const {
        return form().start_chan_val.text() + " to " + form().end_chan_val.text();
    }
    [[nodiscard]] bool flag(StoreMember member) { return base::isTrue(store->get(member)); }
    [[nodiscard]] bool marked() { return flag(StoreMember::DataModified) && flag(StoreMember::ChannelDataModified); }
    void unmark() {
        store->put(StoreMember::DataModified, false);
        store->put(StoreMember::ChannelDataModified, false);
    }

    std::string before;
    int dialogs = 0;
};

// -- opening ---------------------------------------------------------------------------------------------------------

TEST_F(FillCommands, FillSeriesAndFillDownShowTheDialog) {
    bool stepShown = false;
    inDialog([&] { stepShown = form().step_val.visible() && form().step_cap.visible(); });
    control->ChannelFillSeries();
    EXPECT_TRUE(stepShown);
    EXPECT_EQ(form().step_val.text(), "0");
    control->ChannelFillDown();
    EXPECT_FALSE(stepShown);
    EXPECT_EQ(form().step_val.text(), "");
    EXPECT_EQ(dialogs, 2);
    EXPECT_EQ(now(), before);
    EXPECT_EQ(events, Log{});
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(FillCommands, ShowingItAgainShowsItAsItStands) {
    inDialog([&] { enter("7", "9", "450", ""); });
    control->ChannelFillDown();
    grid().select({2, 1}, {5, 1});
    std::string shown;
    inDialog([&] { shown = channels() + " " + form().start_freq_val.text(); });
    control->DisplayFill();
    EXPECT_EQ(shown, "7 to 9 450");
    EXPECT_FALSE(form().step_val.visible());
}

TEST_F(FillCommands, TakeTheSelectedRowsWhenTheyAreTwoOrMore) {
    inDialog([] {});
    grid().select({9, 4}, {5, 2});
    control->ChannelFillDown();
    EXPECT_EQ(channels(), "5 to 9");
    grid().select({20, 1}, {20, 8});
    control->ChannelFillSeries();
    EXPECT_EQ(channels(), "5 to 9");
    grid().select({254, 1}, {255, 1});
    control->ChannelFillSeries();
    EXPECT_EQ(channels(), "254 to 255");
    grid().select({0, 1}, {1, 1});
    control->ChannelFillSeries();
    EXPECT_EQ(channels(), "254 to 255");
    control->selectAll();
    control->ChannelFillSeries();
    EXPECT_EQ(channels(), "1 to 255");
}

TEST_F(FillCommands, BelowLevelThreeTheLoginIsAskedForAndTheDialogMadeReady) {
    for (const std::int16_t level : {std::int16_t{-1}, std::int16_t{0}, std::int16_t{2}}) {
        control->UpdateAccess(level);
        grid().select({3, 1}, {4, 1});
        control->ChannelFillDown();
        EXPECT_EQ(std::exchange(events, {}), (Log{"OpenLoginWithChannelFill"}));
        EXPECT_FALSE(form().step_val.visible());
        EXPECT_EQ(channels(), "3 to 4");
        control->ChannelFillSeries();
        EXPECT_EQ(std::exchange(events, {}), (Log{"OpenLoginWithChannelFill"}));
        EXPECT_TRUE(form().step_val.visible());
    }
    EXPECT_EQ(dialogs, 0);
}

TEST_F(FillCommands, TheHostShowsTheDialogAfterTheLogin) {
    control->UpdateAccess(0);
    control->OpenLoginWithChannelFill.connect([this] {
        control->UpdateAccess(3);
        control->DisplayFill();
    });
    inDialog([&] {
        enter("1", "2", "450", "");
        form().ok_but.userPress();
    });
    control->ChannelFillDown();
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(transmits(2), 450'000'000);
}

TEST_F(FillCommands, DisplayFillLooksAtNoLevel) {
    control->UpdateAccess(0);
    inDialog([] {});
    control->DisplayFill();
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(events, Log{});
}

TEST_F(FillCommands, AreRefusedWhileTheDataIsLocked) {
    control->ckLockData.setValue(1);
    inDialog([] {});
    for (const std::int16_t level : {std::int16_t{0}, std::int16_t{5}}) {
        control->UpdateAccess(level);
        control->DisplayFill();
        control->ChannelFillDown();
        control->ChannelFillSeries();
        EXPECT_EQ(boxes(), (Boxes{locked, locked, locked}));
    }
    EXPECT_EQ(dialogs, 0);
    EXPECT_EQ(events, Log{});
    EXPECT_TRUE(form().step_val.visible());
}

TEST_F(FillCommands, ALockThatComesMeanwhileRefusesTheFillAndLeavesTheDialogOpen) {
    bool stayed = false;
    inDialog([&] {
        enter("1", "2", "450", "0");
        control->ckLockData.setValue(1);
        form().ok_but.userPress();
        stayed = desktop.isOpen(form());
    });
    control->ChannelFillSeries();
    EXPECT_EQ(boxes(), (Boxes{locked}));
    EXPECT_TRUE(stayed);
    EXPECT_EQ(now(), before);
}

// A desktop that cannot make a window.
class WindowlessDesktop : public TestDesktop {
public:
    void showModal(ui::Form& /*form*/) override { throw base::Failure("There is no window"); }
};

TEST(FillWithoutWindows, TellsTheRoutineThatFailed) {
    WindowlessDesktop desktop;
    ChannelInformation control({.desktop = desktop, .makeTable = nullptr, .logPath = {}});
    control.setCentralDataStore(std::make_shared<model::MemoryDataStore>());
    control.UpdateAccess(5);
    control.DisplayFill();
    control.ChannelFillDown();
    control.ChannelFillSeries();
    EXPECT_EQ(desktop.takeBoxes(),
              (Boxes{errorIn("DisplayFill"), errorIn("ChannelFillDown"), errorIn("ChannelFillSeries")}));
}

// -- the fill --------------------------------------------------------------------------------------------------------

TEST_F(FillCommands, TheWholeTableIn12kHz5) {
    fillSeries("1", "255", "450", "12.5");
    for (std::int16_t channel = 1; channel <= 255; ++channel) {
        ASSERT_EQ(transmits(channel), 450'000'000 + 12'500 * (channel - 1));
    }
    EXPECT_EQ(transmits(255), 453'175'000);
    EXPECT_EQ(grid().text(255, 1), "453.175000");
    EXPECT_EQ(grid().text(2, 1), "450.012500");
    EXPECT_TRUE(marked());
    EXPECT_EQ(events, Log{});
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(FillCommands, RendersWhatWasFilledAndNothingElse) {
    store->channel(5).put(ChannelKey::scan, base::Value{false});
    store->channel(2).put(ChannelKey::TxFreq, std::int32_t{160'000'000});
    const auto shown = row(2);
    fillSeries("4", "6", "450", "12.5");
    const auto expected = renderedRow(*store, 5);
    for (std::size_t column = 1; column < expected.size(); ++column) {
        EXPECT_EQ(grid().text(5, static_cast<int>(column)), expected[column]) << column;
    }
    EXPECT_EQ(row(2), shown);
}

TEST_F(FillCommands, CurrentCellAndSelectionStayWhereTheyWere) {
    grid().select({4, 2}, {2, 5});
    fillSeries("1", "9", "450", "12.5");
    EXPECT_EQ(grid().row(), 4);
    EXPECT_EQ(grid().column(), 2);
    EXPECT_EQ(grid().rowSel(), 2);
    EXPECT_EQ(grid().columnSel(), 5);
}

TEST_F(FillCommands, TheFlagsAreSetLastAndInOrder) {
    const auto recording = decorate<RecordingStore>();
    control->DistributeDataStoreLink();
    recording->forget();
    fillSeries("1", "2", "450", "12.5");
    const auto& calls = recording->calls();
    ASSERT_GT(calls.size(), 255U * 28U);
    EXPECT_EQ(calls[calls.size() - 2], "DataModified=");
    EXPECT_EQ(calls[calls.size() - 1], "ChannelDataModified=");
    // Twice whether a load runs, the backup, the two frequencies, then the rows.
    const auto firstWrite = std::ranges::find_if(calls, [](const std::string& call) { return call.ends_with("="); });
    EXPECT_EQ(firstWrite - calls.begin(), 2 + 255 * 28);
    EXPECT_EQ(*firstWrite, "ChannelTable(0).TxFreq=");
    EXPECT_EQ(*(firstWrite + 1), "ChannelTable(1).TxFreq=");
    EXPECT_EQ(std::ranges::count_if(calls, [](const std::string& call) { return call.ends_with("="); }), 4);
}

TEST_F(FillCommands, TheSelectionIsBackAndTheDialogHiddenWhenTheFlagsAreSet) {
    class Watching : public StoreDecorator {
    public:
        using StoreDecorator::StoreDecorator;
        std::function<void(const StoreCall&)> watch;

    protected:
        void onCall(const StoreCall& call) override {
            if (watch) {
                watch(call);
            }
        }
    };
    const auto watching = decorate<Watching>();
    control->DistributeDataStoreLink();
    grid().select({4, 2}, {2, 5});
    int seen = 0;
    watching->watch = [&](const StoreCall& call) {
        if (call.kind == StoreCall::Kind::Put) {
            ++seen;
            EXPECT_FALSE(desktop.isOpen(form()));
            EXPECT_EQ(selection(), (CellRange{2, 2, 4, 5}));
        }
    };
    fillSeries("2", "4", "450", "12.5");
    EXPECT_EQ(seen, 2);
}

TEST_F(FillCommands, CancelAndTheCloseBoxLeaveEverythingAsItWas) {
    inDialog([&] { enter("1", "9", "450", "12.5"); });
    control->ChannelFillSeries();
    desktop.duringModal = [&](ui::Form& shown) { desktop.close(shown); };
    control->DisplayFill();
    EXPECT_EQ(now(), before);
    EXPECT_FALSE(flag(StoreMember::DataModified));
    EXPECT_FALSE(control->commandEnabled(GridCommand::Undo));
}

TEST_F(FillCommands, AnEmptyRunIsNoChange) {
    inDialog([&] {
        form().start_chan_val.setText("9");
        form().end_chan_val.setText("8");
        form().ok_but.userPress();
    });
    control->ChannelFillSeries();
    EXPECT_FALSE(flag(StoreMember::DataModified));
    EXPECT_EQ(now(), before);
}

TEST_F(FillCommands, FillsBothFrequenciesUnderEveryLockMode) {
    for (std::size_t mode = 0; mode < control->optLockMode.size(); ++mode) {
        control->optLockMode.at(mode).userClick();
        for (std::size_t module = 0; module < 2; ++module) {
            const auto key = module == 0 ? ChannelKey::TxFreq : ChannelKey::RxFreq;
            store->clear();
            inDialog([&] {
                enter("2", "3", "450", "1000");
                form().module_sel.at(module).userClick();
                form().ok_but.userPress();
            });
            control->ChannelFillSeries();
            EXPECT_EQ(base::toInt32(store->channel(3).get(key)), 451'000'000) << mode;
        }
    }
    EXPECT_EQ(boxes(), Boxes{});
}

// -- meanwhile -------------------------------------------------------------------------------------------------------

TEST_F(FillCommands, TheHostMayPasteWhileTheDialogIsOpen) {
    inDialog([&] {
        EXPECT_TRUE(control->commandEnabled(GridCommand::Paste));
        desktop.clipboard = "145.5";
        grid().select({2, 1}, {2, 1});
        control->run(GridCommand::Paste);
    });
    control->ChannelFillSeries();
    EXPECT_EQ(transmits(2), 145'500'000);
}

TEST_F(FillCommands, TheDialogIsNotOpenedTwiceNorChangedWhileItIsOpen) {
    inDialog([&] {
        grid().select({3, 1}, {5, 1});
        control->ChannelFillDown();
        control->ChannelFillSeries();
        control->DisplayFill();
        EXPECT_TRUE(form().step_val.visible());
        EXPECT_EQ(channels(), "1 to 2");
    });
    control->ChannelFillSeries();
    EXPECT_EQ(dialogs, 1);
    inDialog([&] { EXPECT_EQ(channels(), "3 to 5"); });
    control->ChannelFillSeries();
    EXPECT_EQ(dialogs, 2);
}

TEST_F(FillCommands, AreRefusedInsideAnotherCommand) {
    inDialog([] {});
    desktop.duringBox = [this](const ui::MessageBox&) {
        control->DisplayFill();
        control->ChannelFillDown();
        control->ChannelFillSeries();
    };
    desktop.answerWith(ui::Answer::No);
    control->run(GridCommand::Delete);
    EXPECT_EQ(dialogs, 0);
    EXPECT_TRUE(form().step_val.visible());
    EXPECT_EQ(boxes().size(), 1U);
}

TEST_F(FillCommands, OkIsRefusedInsideAnotherCommand) {
    inDialog([&] {
        enter("1", "2", "450", "0");
        desktop.duringBox = [this](const ui::MessageBox&) { form().ok_but.userPress(); };
        desktop.answerWith(ui::Answer::No);
        control->run(GridCommand::Delete);
        EXPECT_TRUE(desktop.isOpen(form()));
    });
    control->ChannelFillSeries();
    EXPECT_EQ(now(), before);
}

// Calls back inside its n-th write.
class CallingBack : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    std::function<void(int)> onWrite;

protected:
    void onCall(const StoreCall& call) override {
        if (onWrite && call.kind == StoreCall::Kind::WriteChannel) {
            onWrite(++writes_);
        }
    }

private:
    int writes_ = 0;
};

class FillThatCallsBack : public FillCommands {
protected:
    FillThatCallsBack() {
        calling = decorate<CallingBack>();
        control->DistributeDataStoreLink();
    }
    std::shared_ptr<CallingBack> calling;
};

TEST_F(FillThatCallsBack, NoOtherCommandRunsInsideTheFill) {
    desktop.clipboard = "145.5";
    calling->onWrite = [&](int) {
        for (const auto command : {GridCommand::Paste, GridCommand::Delete, GridCommand::Undo, GridCommand::Redo}) {
            EXPECT_FALSE(control->commandEnabled(command));
            control->run(command);
        }
        form().ok_but.userPress();
        control->DisplayFill();
    };
    fillSeries("1", "3", "450", "1000");
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(transmits(1), 450'000'000);
    EXPECT_EQ(transmits(3), 452'000'000);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_TRUE(control->commandEnabled(GridCommand::Undo));
}

TEST_F(FillThatCallsBack, EndsQuietlyWhereTheControlIsClosedInside) {
    calling->onWrite = [&](int write) {
        if (write == 2) {
            control->close();
        }
    };
    fillSeries("1", "9", "450", "1000");
    EXPECT_TRUE(control->closed());
    EXPECT_EQ(transmits(2), 451'000'000);
    EXPECT_NE(transmits(3), 452'000'000);
    EXPECT_FALSE(flag(StoreMember::DataModified));
    EXPECT_TRUE(grid().redraw());
    EXPECT_FALSE(desktop.isOpen(form()));
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(FillCommands, ClosingTheControlTakesTheDialogAway) {
    inDialog([&] {
        control->close();
        EXPECT_FALSE(desktop.isOpen(form()));
        form().ok_but.userPress();
        type(form().start_chan_val, "300");
    });
    control->ChannelFillSeries();
    EXPECT_EQ(dialogs, 1);
    EXPECT_EQ(now(), before);
    EXPECT_EQ(boxes(), Boxes{});
    control->ChannelFillSeries();
    control->ChannelFillDown();
    control->DisplayFill();
    EXPECT_EQ(dialogs, 1);
}

TEST_F(FillCommands, ClosingTheControlBehindARefusedFieldIsQuiet) {
    inDialog([&] {
        desktop.duringBox = [this](const ui::MessageBox&) { control->close(); };
        type(form().start_freq_val, "abc");
        EXPECT_EQ(form().start_freq_val.text(), "0");
    });
    control->ChannelFillSeries();
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_TRUE(control->closed());
}

TEST_F(FillCommands, TheControlMayBeClosedInsideTheLogin) {
    control->UpdateAccess(0);
    control->OpenLoginWithChannelFill.connect([this] { control->close(); });
    control->ChannelFillDown();
    EXPECT_TRUE(control->closed());
    EXPECT_EQ(dialogs, 0);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(FillCommands, AnExchangedStoreIsFilled) {
    const auto other = std::make_shared<model::MemoryDataStore>();
    inDialog([&] {
        enter("1", "2", "450", "12.5");
        control->setCentralDataStore(other);
        control->DistributeDataStoreLink();
        form().ok_but.userPress();
    });
    control->ChannelFillSeries();
    EXPECT_EQ(now(), before);
    EXPECT_EQ(base::toInt32(other->channel(2).get(ChannelKey::TxFreq)), 450'012'500);
    EXPECT_TRUE(base::isTrue(other->get(StoreMember::DataModified)));
    EXPECT_FALSE(flag(StoreMember::DataModified));
    control->run(GridCommand::Undo);
    EXPECT_EQ(base::toInt32(other->channel(2).get(ChannelKey::TxFreq)), 0);
}

TEST_F(FillCommands, WithoutAStoreTellsTheBackupAndTheRowsAndNothingOfItsOwn) {
    control->setCentralDataStore(nullptr);
    control->DistributeDataStoreLink();
    inDialog([&] {
        form().ok_but.userPress();
        EXPECT_FALSE(desktop.isOpen(form()));
    });
    control->ChannelFillSeries();
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory"), errorIn("UpdateRowData")}));
}

// A store that cannot be asked whether a load is under way does not stop a fill, nor does one that takes no flag.
TEST_F(FillCommands, OkPassesOverEveryFailureOfItsOwn) {
    class NoFlags : public StoreDecorator {
    public:
        using StoreDecorator::StoreDecorator;
        std::vector<StoreMember> refused;
        bool away = false;

    protected:
        void onCall(const StoreCall& call) override {
            if (away && call.kind == StoreCall::Kind::Put) {
                refused.push_back(call.member);
            }
            if (away && (call.kind == StoreCall::Kind::Put || call.kind == StoreCall::Kind::Get) &&
                call.member != StoreMember::BandwidthSwitchable && call.member != StoreMember::HardwareRevision &&
                call.member != StoreMember::FCCNarrowBandRadio) {
                throw base::Failure("the data store does not answer");
            }
        }
    };
    control->LoadFromTelvar();
    static_cast<void>(boxes());
    const auto noFlags = decorate<NoFlags>();
    control->DistributeDataStoreLink();
    inDialog([&] {
        enter("2", "4", "450", "1000");
        noFlags->away = true;
        form().ok_but.userPress();
    });
    control->ChannelFillSeries();
    EXPECT_EQ(transmits(4), 452'000'000);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(noFlags->refused, (std::vector{StoreMember::DataModified, StoreMember::ChannelDataModified}));
}

// -- a store that fails at the n-th call -----------------------------------------------------------------------------

class FillThatFails : public FillCommands, public testing::WithParamInterface<FailureSpan> {
protected:
    // Whether a load runs is asked before the fill.
    static constexpr int guard = 1;

    // Fills channels 2 to `last` afresh and fails at that call of the fill; answers the calls that were made.
    int fillFailingAt(int call, int last) {
        store->clear();
        const auto failing = decorate<FailingStore>();
        control->DistributeDataStoreLink();
        inDialog([&, last] {
            enter("2", std::to_string(last), "450", "1000");
            failing->failAt(call == 0 ? 0 : guard + call, GetParam());
            form().ok_but.userPress();
            calls = failing->calls() - guard;
            failing->failAt(0);
            stayed = desktop.isOpen(form());
        });
        control->ChannelFillSeries();
        undoable = control->commandEnabled(GridCommand::Undo);
        control->setCentralDataStore(store);
        return calls;
    }
    [[nodiscard]] bool filled(std::int16_t channel) { return transmits(channel) == 448'000'000 + 1'000'000 * channel; }

    // What the user sees and what the table holds, by the place of the failing call.
    void expectOutcome(int call, int last, int all) {
        const int backup = 255 * 28;
        const int rows = last - 1;
        const bool once = GetParam() == FailureSpan::OneCall;
        SCOPED_TRACE(call);
        const auto shown = boxes();
        EXPECT_FALSE(stayed);
        for (int channel = 2; channel <= last; ++channel) {
            const int place = backup + channel - 1;
            EXPECT_EQ(filled(static_cast<std::int16_t>(channel)), once ? place != call : place < call) << channel;
        }
        const bool whileRendering = call > backup + rows && call <= all - 2;
        // The backup and the rows tell their own failures; the fill has no box of its own.
        Boxes expected;
        if (call <= backup) {
            expected.push_back(errorIn("UpdateBackUpFrequencyMemory"));
        }
        if (once ? whileRendering : call <= all - 2) {
            expected.push_back(errorIn("UpdateRowData"));
        }
        EXPECT_EQ(shown, expected);
        EXPECT_EQ(undoable, call > backup);
        EXPECT_TRUE(grid().redraw());
    }

    int calls = 0;
    bool stayed = false;
    bool undoable = false;
};

TEST_P(FillThatFails, AtEveryCallOfAShortOne) {
    constexpr int last = 4;
    const int all = fillFailingAt(0, last);
    EXPECT_EQ(boxes(), Boxes{});
    // The backup is one copy like any other: its ends and some of its middle.
    for (const int call : {1, 2, 27, 28, 29, 3570, 7139, 7140}) {
        static_cast<void>(fillFailingAt(call, last));
        expectOutcome(call, last, all);
    }
    for (int call = 255 * 28 + 1; call <= all + 1; ++call) {
        static_cast<void>(fillFailingAt(call, last));
        expectOutcome(call, last, all);
    }
}

TEST_P(FillThatFails, AtManyCallsOfALongOne) {
    constexpr int last = 255;
    const int all = fillFailingAt(0, last);
    EXPECT_EQ(boxes(), Boxes{});
    constexpr int stride = 331;  // prime, so that every kind of call is met
    for (int call = 255 * 28 - 2; call <= all + 1; call += stride) {
        static_cast<void>(fillFailingAt(call, last));
        expectOutcome(call, last, all);
    }
}

INSTANTIATE_TEST_SUITE_P(All, FillThatFails, testing::Values(FailureSpan::OneCall, FailureSpan::FromThereOn),
                         [](const auto& span) {
                             return span.param == FailureSpan::OneCall ? std::string("OneCall")
                                                                       : std::string("FromThereOn");
                         });

}  // namespace
}  // namespace telvar::tests
