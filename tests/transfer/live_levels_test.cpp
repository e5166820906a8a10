// Every call of one live update in order, what counts as a change, and the ways in which an update can end early.
#include "transfer/live_levels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/memory_data_store.h"
#include "support/store_decorator.h"
#include "support/test_desktop.h"

namespace telvar::tests {
namespace {

using model::ExchangeOutcome;
using model::StoreMember;
using Log = std::vector<std::string>;
using transfer::LiveLevelValues;

class LoggingStore : public StoreDecorator {
public:
    LoggingStore(model::DataStore& inner, Log& log) : StoreDecorator(inner), log_(log) {}
    int failing = 0;

protected:
    void onCall(const StoreCall& call) override {
        log_.push_back(describe(call));
        if (failing != 0 && --failing == 0) {
            throw base::Failure("does not answer");
        }
    }

private:
    Log& log_;
};

class LevelsLink : public model::RadioLink {
public:
    explicit LevelsLink(Log& log) : log_(log) {}
    void SendChannelTable() override {}
    void LoadChannelTable(std::string& /*text*/, bool& /*flag*/) override {}
    void AbortTransfer() override {}
    void SendPotValues(std::string& text) override {
        log_.push_back("SendPotValues '" + text + "'");
        if (gone) {
            throw base::Failure("no radio");
        }
        begin(ExchangeOutcome::Running);
    }
    void SelectChannel(std::string& /*channel*/) override {}
    // What one does that does not number its exchanges.
    [[nodiscard]] std::optional<bool> lastExchangeSucceeded() override {
        return outcomes.empty() ? std::nullopt : std::optional(outcomes.back() == ExchangeOutcome::Succeeded);
    }
    [[nodiscard]] std::optional<std::int32_t> exchangeNumber() override {
        if (dead) {
            throw base::Failure("dead");
        }
        return numbers ? std::optional(static_cast<std::int32_t>(outcomes.size())) : std::nullopt;
    }
    [[nodiscard]] ExchangeOutcome exchangeOutcome(std::int32_t number) override {
        ++asked;
        if (dead) {
            throw base::Failure("dead");
        }
        return outcomes.at(static_cast<std::size_t>(number - 1));
    }

    // Of the levels, or of any other exchange that the link is asked for.
    void begin(ExchangeOutcome outcome) { outcomes.push_back(outcome); }
    // The exchange that was begun last.
    void end(ExchangeOutcome outcome) { outcomes.back() = outcome; }

    bool gone = false;
    bool dead = false;
    bool numbers = true;
    std::vector<ExchangeOutcome> outcomes;  // from exchange 1 on
    int asked = 0;

private:
    Log& log_;
};

class LiveLevels : public testing::Test {
protected:
    LiveLevels() {
        memory->put(StoreMember::ProgressCount, std::int16_t{17});
        log.clear();
        session.setStore(store);
        session.setLink(link);
        timer.setInterval(std::chrono::milliseconds(250));
        pauseDiagnostics.connect([this] {
            log.emplace_back("PauseDiagnostics");
            timer.setEnabled(timer.enabled() && wantedBehindTheEvent);
        });
    }
    Log update(const LiveLevelValues& levels) {
        live.update(levels);
        return std::exchange(log, {});
    }

    Log log;
    TestDesktop desktop;
    std::shared_ptr<model::MemoryDataStore> memory = std::make_shared<model::MemoryDataStore>();
    std::shared_ptr<LoggingStore> store = std::make_shared<LoggingStore>(*memory, log);
    std::shared_ptr<LevelsLink> link = std::make_shared<LevelsLink>(log);
    bool wantedBehindTheEvent = true;
    base::Event<> pauseDiagnostics;
    ui::Timer timer{desktop};
    session::Session session{desktop, {}};
    transfer::LiveLevels live{session, pauseDiagnostics, timer};
    const Log whole{"SetPotValue(0)", "SetPotValue(1)", "SetPotValue(2)", "SetPotValue(3)",  "PauseDiagnostics",
                    "CommsBusy",      "CommsTask=",     "ProgressCount=", "SendPotValues ''"};
};

TEST_F(LiveLevels, AChangeIsStagedAnnouncedAndHandedOver) {
    EXPECT_EQ(update({1, 2, 3, 255, 5, 6}), whole);
    EXPECT_EQ(memory->potValue(0), 1);
    EXPECT_EQ(memory->potValue(1), 2);
    EXPECT_EQ(memory->potValue(2), 3);
    EXPECT_EQ(memory->potValue(3), 255);
    EXPECT_EQ(memory->get(StoreMember::CommsTask), base::Value{std::int16_t{33}});
    EXPECT_EQ(memory->get(StoreMember::ProgressCount), base::Value{std::int16_t{0}});
}

TEST_F(LiveLevels, NothingIsDoneWithoutAChange) {
    EXPECT_EQ(update({}), Log{});
    EXPECT_EQ(update({1, 0, 0, 0, 0, 0}), whole);
    EXPECT_EQ(update({1, 0, 0, 0, 0, 0}), Log{});
}

TEST_F(LiveLevels, EachOfTheSixCountsAsAChange) {
    LiveLevelValues levels{};
    for (auto& level : levels) {
        level = 7;
        EXPECT_EQ(update(levels), whole);
    }
}

TEST_F(LiveLevels, WaitsWhileTheLinkIsBusy) {
    memory->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([] {});
    desktop.whenPumping([this] { memory->put(StoreMember::CommsBusy, false); });
    const auto calls = update({1, 2, 3, 4, 0, 0});
    EXPECT_EQ(calls.back(), "SendPotValues ''");
    EXPECT_GE(std::ranges::count(calls, "CommsBusy"), 2);
}

TEST_F(LiveLevels, DoesNothingInsideItsOwnWait) {
    memory->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([this] { live.update({9, 9, 9, 9, 9, 9}); });
    desktop.whenPumping([this] { memory->put(StoreMember::CommsBusy, false); });
    const auto calls = update({1, 2, 3, 4, 0, 0});
    EXPECT_EQ(std::ranges::count(calls, "SendPotValues ''"), 1);
    EXPECT_EQ(memory->potValue(0), 1);
    EXPECT_EQ(update({9, 9, 9, 9, 9, 9}), whole);
}

TEST_F(LiveLevels, WhatIsNotWantedAnyMoreAfterTheWaitIsNotSentAndCountsAsNotSent) {
    memory->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([this] {
        timer.setEnabled(false);
        memory->put(StoreMember::CommsBusy, false);
    });
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}).back(), "CommsBusy");
    timer.setEnabled(true);
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
}

TEST_F(LiveLevels, WhatIsNotWantedAnyMoreBehindTheEventWaitsForNoLink) {
    memory->put(StoreMember::CommsBusy, true);
    wantedBehindTheEvent = false;
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}).back(), "PauseDiagnostics");
}

TEST_F(LiveLevels, AQuittingMessageLoopSendsNothingBeTheLinkQuietOrNot) {
    for (const bool busy : {true, false}) {
        memory->put(StoreMember::CommsBusy, busy);
        desktop.whenPumping([&] { desktop.quit(); });
        const auto calls = update({1, 2, 3, 4, 0, 0});
        EXPECT_EQ(std::ranges::count(calls, "SendPotValues ''"), 0) << busy;
        EXPECT_EQ(std::ranges::count(calls, "CommsTask="), 0) << busy;
    }
}

TEST_F(LiveLevels, ALinkThatRefusesOrIsMissingIsRadioSilence) {
    link->gone = true;
    EXPECT_THROW(live.update({1, 2, 3, 4, 0, 0}), transfer::RadioSilence);
    link = nullptr;
    session.setLink(link);
    EXPECT_THROW(live.update({1, 2, 3, 4, 0, 0}), transfer::RadioSilence);
    link = std::make_shared<LevelsLink>(log);
    session.setLink(link);
    log.clear();
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
}

TEST_F(LiveLevels, LevelsWhoseExchangeFailedAreRadioSilenceAtTheNextTickAlsoWithoutAChange) {
    const LiveLevelValues levels{1, 2, 3, 4, 0, 0};
    EXPECT_EQ(update(levels), whole);
    EXPECT_EQ(update(levels), Log{});
    link->end(ExchangeOutcome::Failed);
    EXPECT_THROW(live.update(levels), transfer::RadioSilence);
    EXPECT_EQ(update(levels), whole);
}

TEST_F(LiveLevels, AfterAFailureZerosAreSentAgainToo) {
    const LiveLevelValues zeros{};
    EXPECT_EQ(update({1, 0, 0, 0, 0, 0}), whole);
    link->end(ExchangeOutcome::Succeeded);
    EXPECT_EQ(update(zeros), whole);
    link->end(ExchangeOutcome::Failed);
    EXPECT_THROW(live.update(zeros), transfer::RadioSilence);
    EXPECT_EQ(update(zeros), whole);
    link->end(ExchangeOutcome::Succeeded);
    EXPECT_EQ(update(zeros), Log{});
    // The same where the link refuses them at once.
    link->gone = true;
    EXPECT_THROW(live.update({1, 0, 0, 0, 0, 0}), transfer::RadioSilence);
    link->gone = false;
    log.clear();
    EXPECT_EQ(update(zeros), whole);
}

TEST_F(LiveLevels, LevelsThatWereDeliveredAreNotAskedAboutAgain) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->end(ExchangeOutcome::Succeeded);
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), Log{});
    link->end(ExchangeOutcome::Failed);
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), Log{});
    EXPECT_EQ(link->asked, 1);
}

TEST_F(LiveLevels, LevelsThatAreStillOnTheirWayAreNeitherToldNorSentAgain) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    for (int tick = 0; tick < 10; ++tick) {
        EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), Log{});
    }
}

TEST_F(LiveLevels, AnotherExchangeThatFailedOrWasCancelledBehindThemIsNoSilenceOfTheRadio) {
    for (const auto ended : {ExchangeOutcome::Failed, ExchangeOutcome::Aborted, ExchangeOutcome::Running}) {
        link->begin(ExchangeOutcome::Failed);  // and one before them
        EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
        link->end(ExchangeOutcome::Succeeded);
        link->begin(ended);
        EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), Log{});
        EXPECT_EQ(update({0, 0, 0, 0, 0, 0}), whole);
        link->end(ExchangeOutcome::Succeeded);
    }
}

TEST_F(LiveLevels, AnotherExchangeThatSucceededBehindThemDoesNotHideTheirFailure) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->end(ExchangeOutcome::Failed);
    link->begin(ExchangeOutcome::Succeeded);
    EXPECT_THROW(live.update({1, 2, 3, 4, 0, 0}), transfer::RadioSilence);
}

TEST_F(LiveLevels, LevelsThatWereAbortedAreSentAgainInSilence) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->end(ExchangeOutcome::Aborted);
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    // Also where others have taken their place in the wait, which are then not wanted.
    memory->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] {
        link->end(ExchangeOutcome::Aborted);
        timer.setEnabled(false);
        memory->put(StoreMember::CommsBusy, false);
    });
    static_cast<void>(update({9, 2, 3, 4, 0, 0}));
    timer.setEnabled(true);
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
}

TEST_F(LiveLevels, ALinkThatDoesNotNumberItsExchangesIsBelieved) {
    link->numbers = false;
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->end(ExchangeOutcome::Failed);
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), Log{});
    EXPECT_EQ(link->asked, 0);
}

TEST_F(LiveLevels, ALinkThatDoesNotKnowAnExchangeIsBelieved) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->end(ExchangeOutcome::Unknown);
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), Log{});
}

TEST_F(LiveLevels, ALinkThatCannotTellTheNumberAtOnceIsBelieved) {
    link->dead = true;
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->dead = false;
    link->end(ExchangeOutcome::Failed);
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), Log{});
}

TEST_F(LiveLevels, AnExchangeWithoutANumberIsNotTakenForTheOneBefore) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->numbers = false;
    EXPECT_EQ(update({9, 2, 3, 4, 0, 0}), whole);
    link->outcomes.front() = ExchangeOutcome::Failed;
    EXPECT_EQ(update({9, 2, 3, 4, 0, 0}), Log{});
}

TEST_F(LiveLevels, ALinkThatDiesAfterwardsIsRadioSilence) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->dead = true;
    EXPECT_THROW(live.update({1, 2, 3, 4, 0, 0}), transfer::RadioSilence);
}

TEST_F(LiveLevels, ALinkThatIsGoneIsAskedNothing) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->end(ExchangeOutcome::Failed);
    const std::weak_ptr former(link);
    link = std::make_shared<LevelsLink>(log);
    session.setLink(link);
    EXPECT_TRUE(former.expired());
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), Log{});
}

// Somebody was faster than the levels: they wait for the next tick.
TEST_F(LiveLevels, ALinkThatRefusesThemForAnotherExchangeIsNoSilenceOfTheRadio) {
    link->gone = true;
    link->begin(ExchangeOutcome::Running);
    static_cast<void>(update({1, 2, 3, 4, 0, 0}));
    link->gone = false;
    link->end(ExchangeOutcome::Succeeded);
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
}

TEST_F(LiveLevels, AnOutcomeThatComesDuringTheWaitForTheNextLevelsCounts) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    memory->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] {
        link->end(ExchangeOutcome::Failed);
        memory->put(StoreMember::CommsBusy, false);
    });
    EXPECT_THROW(live.update({9, 2, 3, 4, 0, 0}), transfer::RadioSilence);
    EXPECT_EQ(std::ranges::count(log, "SendPotValues ''"), 0);
    log.clear();
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
}

TEST_F(LiveLevels, ABeginningDuringTheWaitTakesTheLevelsBack) {
    memory->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] {
        live.begin();
        memory->put(StoreMember::CommsBusy, false);
    });
    live.update({1, 2, 3, 4, 0, 0});
    EXPECT_EQ(std::ranges::count(log, "SendPotValues ''"), 0);
    log.clear();
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
}

TEST_F(LiveLevels, LevelsThatFailedBeforeItBeganAnewAreSentAgainInSilence) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->end(ExchangeOutcome::Failed);
    live.begin();
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->end(ExchangeOutcome::Succeeded);
    live.begin();
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), Log{});
}

TEST_F(LiveLevels, TheWaitHasNoLimit) {
    memory->put(StoreMember::CommsBusy, true);
    waitAnHour(desktop, [&] {
        EXPECT_EQ(std::ranges::count(log, "SendPotValues ''"), 0);
        memory->put(StoreMember::CommsBusy, false);
    });
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}).back(), "SendPotValues ''");
}

TEST_F(LiveLevels, AStoreThatFailsAtAnyCallLetsItThroughAndTheLevelsGoLater) {
    constexpr int calls = 7;
    for (int call = 1; call <= calls; ++call) {
        store->failing = call;
        try {
            live.update({1, 2, 3, 4, 5, 6});
            ADD_FAILURE() << call;
        } catch (const transfer::RadioSilence&) {
            ADD_FAILURE() << call;
        } catch (const base::Failure& failure) {
            EXPECT_EQ(failure.description(), "does not answer");
        }
    }
    log.clear();
    EXPECT_EQ(update({1, 2, 3, 4, 5, 6}), whole);
}

}  // namespace
}  // namespace telvar::tests
