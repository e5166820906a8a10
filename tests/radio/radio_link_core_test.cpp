#include "radio/radio_link_core.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "base/conversion.h"
#include "base/failure.h"
#include "link_core.h"
#include "radio/image_file.h"
#include "support/failing_store.h"
#include "tables.h"

namespace telvar::tests {
namespace {

using model::StoreMember;

struct RadioLinkCore : LinkCore {};

TEST_F(RadioLinkCore, WhatWasSentComesBackFromTheRadio) {
    fill(*store, 1);
    const auto sent = radio::imageOf(*store);
    const auto [task, succeeded, message] = send();
    EXPECT_EQ(task, 30);
    EXPECT_TRUE(succeeded) << message;
    EXPECT_EQ(message, "The radio holds the table; its former one is kept in " + link->lastBackup() + ".");
    EXPECT_TRUE(link->connected());

    fill(*store, 2);
    EXPECT_EQ(load(), (End{std::int16_t{22}, true, "The table was loaded from the radio."}));
    EXPECT_EQ(radio::imageOf(*store), sent);
    EXPECT_EQ(shared(StoreMember::DataModified), base::Value{true});
    EXPECT_EQ(shared(StoreMember::ChannelDataModified), base::Value{true});
}

TEST_F(RadioLinkCore, MovesTheStoresProgressAndOwnsItsBusyFlag) {
    std::vector<std::int16_t> counts;
    link->Progress.connect([&](std::int16_t) {
        EXPECT_EQ(shared(StoreMember::CommsBusy), base::Value{true});
        counts.push_back(std::get<std::int16_t>(shared(StoreMember::ProgressCount)));
    });
    link->ExchangeEnded.connect([&](std::int16_t, bool, const std::string&) {
        EXPECT_EQ(shared(StoreMember::CommsBusy), base::Value{false});
        EXPECT_FALSE(link->exchangeRunning());
    });
    link->SendChannelTable();
    EXPECT_TRUE(link->exchangeRunning());
    EXPECT_EQ(shared(StoreMember::CommsBusy), base::Value{true});
    EXPECT_TRUE(std::get<1>(ended()));
    EXPECT_EQ(counts, progress);
    EXPECT_TRUE(std::ranges::is_sorted(progress));
    EXPECT_EQ(progress.front(), 0);
    EXPECT_EQ(progress.back(), 100);
}

TEST_F(RadioLinkCore, SendsTheTableAsItWasAtTheStart) {
    fill(*store, 1);
    link->SendChannelTable();
    fill(*store, 2);
    ASSERT_TRUE(std::get<1>(ended()));
    ASSERT_TRUE(std::get<1>(load()));
    EXPECT_EQ(radio::imageOf(*store), sampleImage(1));
}

TEST_F(RadioLinkCore, KeepsWhatTheRadioHeldAndCanRestoreIt) {
    fill(*store, 1);
    ASSERT_TRUE(std::get<1>(send()));
    fill(*store, 2);
    ASSERT_TRUE(std::get<1>(send()));
    const auto kept = link->lastBackup();
    EXPECT_EQ(radio::loadImage(kept), sampleImage(1));
    link->restoreBackup(kept);
    const auto [task, succeeded, message] = ended();
    EXPECT_EQ(task, 31);
    EXPECT_TRUE(succeeded) << message;
    ASSERT_TRUE(std::get<1>(load()));
    EXPECT_EQ(radio::imageOf(*store), sampleImage(1));
    EXPECT_EQ(folder.entries().size(), 3U);
}

TEST_F(RadioLinkCore, RestoresNothingFromAFileThatIsNone) {
    link->restoreBackup(folder / "none");
    EXPECT_EQ(ended(), (End{std::int16_t{31}, false, folder / "none" + ": No such file or directory."}));
}

TEST_F(RadioLinkCore, TheRadioFollowsAndTheStoreWithIt) {
    EXPECT_EQ(select("200"), (End{std::int16_t{11}, true, ""}));
    EXPECT_EQ(shared(StoreMember::SelectedChannel), base::Value{std::int16_t{200}});
    link->queryStatus();
    ASSERT_TRUE(dispatcher.runUntil([this] { return !link->exchangeRunning(); }));
    EXPECT_EQ(reports.back(), (std::pair{true, std::string("Simulated radio, serial number 000001, on channel 200.")}));
}

TEST_F(RadioLinkCore, AChannelThatIsNoneIsNotSelected) {
    for (const char* text : {"0", "256", "-1", "", "twelve", "12abc"}) {
        EXPECT_EQ(select(text), (End{std::int16_t{11}, false,
                                     "\"" + std::string(text) + "\" is not a channel; channels are 1 to 255."}));
    }
    EXPECT_EQ(shared(StoreMember::SelectedChannel), base::Value{std::int16_t{1}});
}

TEST_F(RadioLinkCore, TheStagedLevelsGoToTheRadio) {
    const auto trace = folder / "trace.txt";
    settings.traceFile = trace;
    link->setSettings(settings);
    for (std::int16_t index = 0; index < 4; ++index) {
        store->SetPotValue(index, static_cast<std::uint8_t>(16 + index));
    }
    std::string text;
    link->SendPotValues(text);
    EXPECT_EQ(ended(), (End{std::int16_t{33}, true, ""}));
    const auto lines = TemporaryFolder::read(trace);
    EXPECT_NE(lines.find(" > set levels "), std::string::npos) << lines;
    EXPECT_NE(lines.find(" < set levels answered "), std::string::npos) << lines;
    EXPECT_NE(lines.find(": 10111213\n"), std::string::npos) << lines;
}

TEST_F(RadioLinkCore, TwoLinksDoNotShareTheFileOfASimulatedRadio) {
    settings.stateFile = folder / "radio.telvar-radio";
    link->setSettings(settings);
    ASSERT_TRUE(std::get<1>(send()));
    auto other = made(std::make_unique<VirtualClock>());
    other->queryStatus();
    ASSERT_TRUE(dispatcher.runUntil([&] { return !other->exchangeRunning(); }));
    EXPECT_EQ(reports.back(), (std::pair{false, "The radio cannot be reached at simulated (" + settings.stateFile +
                                                    ": Is in use by another program)."}));
    // A link that talks to another radio leaves the file.
    settings.address = {.way = radio::Address::Way::Tcp, .place = "127.0.0.1", .port = 9};
    link->setSettings(settings);
    link->queryStatus();
    ASSERT_TRUE(dispatcher.runUntil([&] { return !link->exchangeRunning(); }));
    other->queryStatus();
    ASSERT_TRUE(dispatcher.runUntil([&] { return !other->exchangeRunning(); }));
    EXPECT_TRUE(reports.back().first) << reports.back().second;
}

TEST_F(RadioLinkCore, ATraceThatCannotBeWrittenStopsTheExchange) {
    settings.traceFile = folder / "missing/trace.txt";
    link->setSettings(settings);
    EXPECT_EQ(std::get<2>(load()), "The trace cannot be written (" + settings.traceFile +
                                       ": No such file or directory); the table here was not changed.");
}

TEST_F(RadioLinkCore, RefusesASecondExchangeWithOneSentence) {
    link->SendChannelTable();
    std::string text;
    bool flag = true;
    const std::string busy = "The radio link is busy with another exchange";
    EXPECT_EQ(failureOf([&] { link->SendChannelTable(); }), busy);
    EXPECT_EQ(failureOf([&] { link->LoadChannelTable(text, flag); }), busy);
    EXPECT_EQ(failureOf([&] { link->SendPotValues(text); }), busy);
    EXPECT_EQ(failureOf([&] { link->SelectChannel(text); }), busy);
    EXPECT_EQ(failureOf([&] { link->queryStatus(); }), busy);
    EXPECT_EQ(failureOf([&] { link->restoreBackup(""); }), busy);
    EXPECT_TRUE(std::get<1>(ended()));
    EXPECT_EQ(ends.size(), 1U);
}

// Each exchange names itself in the store before it marks the link as busy: a question to a dead radio is no load.
TEST_F(RadioLinkCore, WhileAnExchangeRunsTheStoreNamesItsTask) {
    class Marks final : public StoreDecorator {
    public:
        using StoreDecorator::StoreDecorator;
        void put(StoreMember member, const base::Value& value) override {
            if (member == StoreMember::CommsBusy && base::isTrue(value)) {
                tasks.push_back(base::toInt16(get(StoreMember::CommsTask)));
            }
            StoreDecorator::put(member, value);
        }
        std::vector<std::int16_t> tasks;  // as they stood when the mark was set

    private:
        void onCall(const StoreCall& /*call*/) override {}
    };
    const auto marks = std::make_shared<Marks>(*store);
    link->setDataStore(marks);
    const auto quiet = [this] { return !link->exchangeRunning(); };
    std::string text;
    static_cast<void>(load());
    link->queryStatus();
    ASSERT_TRUE(dispatcher.runUntil(quiet));
    static_cast<void>(send());
    static_cast<void>(select("7"));
    link->SendPotValues(text);
    static_cast<void>(ended());
    link->restoreBackup(link->lastBackup());
    static_cast<void>(ended());
    EXPECT_EQ(marks->tasks, (std::vector<std::int16_t>{22, 12, 30, 11, 33, 31}));
}

TEST_F(RadioLinkCore, AnOperationThatIsRefusedLeavesTheTaskOfTheRunningOne) {
    link->SendChannelTable();
    EXPECT_EQ(failureOf([&] { link->queryStatus(); }), "The radio link is busy with another exchange");
    EXPECT_EQ(shared(StoreMember::CommsTask), base::Value{std::int16_t{30}});
    EXPECT_TRUE(std::get<1>(ended()));
}

TEST_F(RadioLinkCore, AStoreThatTakesNoTaskHindersNoExchange) {
    class Taskless final : public StoreDecorator {
    public:
        using StoreDecorator::StoreDecorator;

    private:
        void onCall(const StoreCall& call) override {
            if (call.member == StoreMember::CommsTask) {
                throw base::Failure("has no such member");
            }
        }
    };
    link->setDataStore(std::make_shared<Taskless>(*store));
    EXPECT_TRUE(std::get<1>(load()));
}

// -- outcomes by number ----------------------------------------------------------------------------------------------

TEST_F(RadioLinkCore, EveryExchangeHasANumberUnderWhichItsOutcomeStays) {
    using model::ExchangeOutcome;
    EXPECT_EQ(link->exchangeNumber(), 0);
    EXPECT_EQ(link->exchangeOutcome(0), ExchangeOutcome::Unknown);
    std::string text;
    link->SendPotValues(text);
    EXPECT_EQ(link->exchangeNumber(), 1);
    EXPECT_EQ(link->exchangeOutcome(1), ExchangeOutcome::Running);
    EXPECT_EQ(link->exchangeOutcome(2), ExchangeOutcome::Unknown);
    EXPECT_TRUE(std::get<1>(ended()));
    EXPECT_EQ(link->exchangeOutcome(1), ExchangeOutcome::Succeeded);
    set("silence");
    EXPECT_FALSE(std::get<1>(load()));
    link->queryStatus();
    EXPECT_EQ(link->exchangeNumber(), 3);
    ASSERT_TRUE(dispatcher.runUntil([this] { return !link->exchangeRunning(); }));
    set("none");
    link->SendChannelTable();
    link->AbortTransfer();
    static_cast<void>(ended());
    EXPECT_EQ(link->exchangeOutcome(1), ExchangeOutcome::Succeeded);
    EXPECT_EQ(link->exchangeOutcome(2), ExchangeOutcome::Failed);
    EXPECT_EQ(link->exchangeOutcome(3), ExchangeOutcome::Failed);
    EXPECT_EQ(link->exchangeOutcome(4), ExchangeOutcome::Aborted);
    EXPECT_EQ(link->exchangeOutcome(-1), ExchangeOutcome::Unknown);
}

TEST_F(RadioLinkCore, TheOutcomeIsKnownWhenTheEndIsReported) {
    using model::ExchangeOutcome;
    auto known = ExchangeOutcome::Unknown;
    link->ExchangeEnded.connect(
        [&](std::int16_t, bool, const std::string&) { known = link->exchangeOutcome(*link->exchangeNumber()); });
    static_cast<void>(load());
    EXPECT_EQ(known, ExchangeOutcome::Succeeded);
}

TEST_F(RadioLinkCore, AnOperationThatIsRefusedHasNoNumberAndOneThatCannotBeginHas) {
    using model::ExchangeOutcome;
    link->queryStatus();
    EXPECT_NE(failureOf([&] { link->SendChannelTable(); }), "no failure");
    EXPECT_EQ(link->exchangeNumber(), 1);
    ASSERT_TRUE(dispatcher.runUntil([this] { return !link->exchangeRunning(); }));
    static_cast<void>(select("none"));
    EXPECT_EQ(link->exchangeOutcome(2), ExchangeOutcome::Failed);
    link->AbortTransfer();
    EXPECT_EQ(link->exchangeNumber(), 2);
}

TEST_F(RadioLinkCore, TheLastSixtyFourOutcomesAreKnown) {
    using model::ExchangeOutcome;
    for (int exchange = 0; exchange < 70; ++exchange) {
        static_cast<void>(select(exchange % 2 == 0 ? "none" : "7"));
    }
    for (std::int32_t number = 1; number <= 70; ++number) {
        const auto kept = number % 2 != 0 ? ExchangeOutcome::Failed : ExchangeOutcome::Succeeded;
        EXPECT_EQ(link->exchangeOutcome(number), number > 6 ? kept : ExchangeOutcome::Unknown) << number;
    }
    EXPECT_EQ(link->exchangeOutcome(71), ExchangeOutcome::Unknown);
}

TEST_F(RadioLinkCore, AnExchangeMayFollowFromInsideTheEndOfAnother) {
    bool first = true;
    link->ExchangeEnded.connect([&](std::int16_t, bool, const std::string&) {
        if (std::exchange(first, false)) {
            link->queryStatus();
        }
    });
    EXPECT_TRUE(std::get<1>(load()));
    EXPECT_EQ(ends.size(), 1U);
    EXPECT_EQ(reports.size(), 1U);
}

TEST_F(RadioLinkCore, WithoutADataStoreThereIsNothingToSend) {
    link->setDataStore(nullptr);
    EXPECT_EQ(send(), (End{std::int16_t{30}, false, "The radio link has no data store."}));
    EXPECT_EQ(load(), (End{std::int16_t{22}, false, "The radio link has no data store."}));
    EXPECT_EQ(select("7"), (End{std::int16_t{11}, true, ""}));
}

TEST_F(RadioLinkCore, WhatTheRadioCannotHoldIsNotSent) {
    store->writeChannel(6, model::ChannelKey::TxFreq, 5e9);
    EXPECT_EQ(send(), (End{std::int16_t{30}, false, "Channel 7: TxFreq is out of the radio's range."}));
    EXPECT_EQ(shared(StoreMember::CommsBusy), base::Value{false});
    EXPECT_TRUE(folder.entries().empty());
}

TEST_F(RadioLinkCore, AFailedLoadLeavesTheTableAlone) {
    fill(*store, 1);
    const auto revision = store->tableRevision();
    for (const char* faults : {"silence@40+", "noise@10+", "cut@60+", "identity", "power@30", "echo,silence"}) {
        set(faults);
        const auto [task, succeeded, message] = load();
        EXPECT_FALSE(succeeded) << faults;
        EXPECT_TRUE(message.ends_with("; the table here was not changed.")) << message;
    }
    EXPECT_EQ(store->tableRevision(), revision);
    EXPECT_EQ(shared(StoreMember::DataModified), base::Value{false});
}

// With nothing running each abort is answered by itself; the host counts on it after a refused send.
TEST_F(RadioLinkCore, ReportsTheEndOncePerAbort) {
    link->AbortTransfer();
    EXPECT_EQ(ends, (std::vector<End>{{std::int16_t{0}, false, ""}}));
    link->AbortTransfer();
    EXPECT_EQ(ends.size(), 2U);
}

TEST_F(RadioLinkCore, AnAbortOfARunningExchangeReportsItsEndOnce) {
    SilentRadio silent;
    auto waiting = onSystemTime(silent.address());
    waiting->SendChannelTable();
    waiting->AbortTransfer();
    waiting->AbortTransfer();
    ASSERT_TRUE(dispatcher.runUntil([&] { return !waiting->exchangeRunning(); }));
    EXPECT_EQ(ends, (std::vector<End>{
                        {std::int16_t{30}, false, "The exchange was aborted; nothing was written to the radio."}}));
    EXPECT_EQ(shared(StoreMember::CommsBusy), base::Value{false});
}

TEST_F(RadioLinkCore, AnAbortedStatusReportsAnEndAsWell) {
    SilentRadio silent;
    auto waiting = onSystemTime(silent.address());
    waiting->queryStatus();
    waiting->AbortTransfer();
    ASSERT_TRUE(dispatcher.runUntil([&] { return !waiting->exchangeRunning(); }));
    EXPECT_EQ(reports, (std::vector<std::pair<bool, std::string>>{{false, "The exchange was aborted."}}));
    EXPECT_EQ(ends, (std::vector<End>{{std::int16_t{0}, false, ""}}));
}

TEST_F(RadioLinkCore, ALinkThatGoesInTheMiddleFreesTheStoreAndSaysNothingMore) {
    SilentRadio silent;
    auto waiting = onSystemTime(silent.address());
    waiting->SendChannelTable();
    waiting.reset();
    EXPECT_EQ(shared(StoreMember::CommsBusy), base::Value{false});
    ASSERT_TRUE(dispatcher.runUntil([this] { return dispatcher.idle(); }));
    EXPECT_TRUE(ends.empty());
}

TEST_F(RadioLinkCore, AListenerMayLetTheLinkGo) {
    link->Progress.connect([this](std::int16_t percent) {
        if (percent == 50) {
            link.reset();
        }
    });
    link->SendChannelTable();
    ASSERT_TRUE(dispatcher.runUntil([this] { return link == nullptr; }));
    ASSERT_TRUE(dispatcher.runUntil([this] { return dispatcher.idle(); }));
    EXPECT_EQ(shared(StoreMember::CommsBusy), base::Value{false});
    EXPECT_TRUE(ends.empty());
}

TEST_F(RadioLinkCore, AListenerOfTheEndMayLetTheLinkGo) {
    link->ExchangeEnded.connect([this](std::int16_t, bool, const std::string&) { link.reset(); });
    link->SendChannelTable();
    ASSERT_TRUE(dispatcher.runUntil([this] { return link == nullptr; }));
    EXPECT_EQ(ends.size(), 1U);
}

// A store whose n-th call fails: whatever call it is, one sentence comes of it, and the link is free again.
TEST_F(RadioLinkCore, AStoreThatFailsAtAnyCallOfASendEndsItWithOneSentence) {
    const auto failing = std::make_shared<FailingStore>(*store);
    link->setDataStore(failing);
    failing->failAt(0);
    ASSERT_TRUE(std::get<1>(send()));
    const int calls = failing->calls();
    for (int call = 1; call <= calls; call += call < 5 || call > calls - 8 ? 1 : 997) {
        ends.clear();
        failing->failAt(call);
        const auto [task, succeeded, message] = send();
        EXPECT_EQ(task, 30);
        EXPECT_EQ(ends.size(), 1U);
        EXPECT_TRUE(succeeded || message == "the data store does not answer.") << call << ": " << message;
        EXPECT_EQ(shared(StoreMember::CommsBusy), base::Value{false}) << call;
    }
}

TEST_F(RadioLinkCore, AStoreThatFailsForGoodEndsALoadWithOneSentence) {
    const auto failing = std::make_shared<FailingStore>(*store);
    link->setDataStore(failing);
    for (const int call : {1, 2, 50, 500, 5'000}) {
        ends.clear();
        failing->failAt(call, FailureSpan::FromThereOn);
        const auto [task, succeeded, message] = load();
        EXPECT_EQ(task, 22);
        EXPECT_FALSE(succeeded && call < 500) << message;
        EXPECT_EQ(ends.size(), 1U);
        EXPECT_NE(message.find("The data store could not be told that the link is free."), std::string::npos)
            << message;
    }
}

// Of the writes that tell where an exchange is, only the very first one can stop it, and the last one is repeated.
TEST_F(RadioLinkCore, ALoadWhoseStoreFailsOnceToTakeItsStateEndsOnceAndFreesTheStore) {
    class ForgetfulStore final : public StoreDecorator {
    public:
        using StoreDecorator::StoreDecorator;
        int states = 0;
        int failingState = 0;

    private:
        void onCall(const StoreCall& call) override {
            const bool state = call.member == StoreMember::CommsBusy || call.member == StoreMember::ProgressCount;
            if (call.kind == StoreCall::Kind::Put && state && ++states == failingState) {
                throw base::Failure("the data store does not answer");
            }
        }
    };
    const auto forgetful = std::make_shared<ForgetfulStore>(*store);
    link->setDataStore(forgetful);
    ASSERT_TRUE(std::get<1>(load()));
    const int states = std::exchange(forgetful->states, 0);
    ASSERT_GT(states, 30);
    for (int state = 1; state <= states; ++state) {
        ends.clear();
        forgetful->states = 0;
        forgetful->failingState = state;
        const End expected = state == 1 ? End{std::int16_t{22}, false, "the data store does not answer."}
                                        : End{std::int16_t{22}, true, "The table was loaded from the radio."};
        EXPECT_EQ(load(), expected) << state;
        EXPECT_EQ(ends.size(), 1U) << state;
        EXPECT_EQ(shared(StoreMember::CommsBusy), base::Value{false}) << state;
    }
}

TEST_F(RadioLinkCore, AStoreThatCallsBackFindsTheLinkBusy) {
    class CallingStore final : public StoreDecorator {
    public:
        using StoreDecorator::StoreDecorator;
        std::function<void()> inside;

    private:
        void onCall(const StoreCall& call) override {
            if (call.kind == StoreCall::Kind::ReadChannel && inside) {
                std::exchange(inside, nullptr)();
            }
        }
    };
    const auto calling = std::make_shared<CallingStore>(*store);
    calling->inside = [this] {
        EXPECT_EQ(failureOf([this] { link->queryStatus(); }), "The radio link is busy with another exchange");
        link->AbortTransfer();
    };
    link->setDataStore(calling);
    EXPECT_EQ(std::get<2>(send()), "The exchange was aborted; nothing was written to the radio.");
    calling->inside = [this] { link.reset(); };
    link->SendChannelTable();
    EXPECT_EQ(link, nullptr);
}

}  // namespace
}  // namespace telvar::tests
