// Every call of one live update in order, what counts as a change, and the ways in which an update can end early.
#include "transfer/live_levels.h"

#include <gtest/gtest.h>

#include <algorithm>
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
    }
    void SelectChannel(std::string& /*channel*/) override {}
    [[nodiscard]] std::optional<bool> lastExchangeSucceeded() override {
        ++asked;
        if (dead) {
            throw base::Failure("dead");
        }
        return outcome;
    }
    bool gone = false;
    bool dead = false;
    std::optional<bool> outcome;
    int asked = 0;

private:
    Log& log_;
};

class LiveLevels : public testing::Test {
protected:
    LiveLevels() {
        memory->put(StoreMember::ProgressCount, std::int16_t{17});
        log.clear();
    }
    [[nodiscard]] transfer::LiveLevelsSurroundings surroundings() {
        return {.desktop = desktop,
                .store = [this]() -> model::DataStorePointer { return store; },
                .link = [this]() -> model::RadioLinkPointer {
                    if (!link) {
                        throw base::Failure("There is no radio link");
                    }
                    return link;
                },
                .pauseDiagnostics = [this] { log.emplace_back("PauseDiagnostics"); },
                .wanted = [this] { return wanted; }};
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
    bool wanted = true;
    transfer::LiveLevels live{surroundings()};
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
        wanted = false;
        memory->put(StoreMember::CommsBusy, false);
    });
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}).back(), "CommsBusy");
    wanted = true;
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
}

TEST_F(LiveLevels, AQuittingMessageLoopSendsNothing) {
    memory->put(StoreMember::CommsBusy, true);
    desktop.quit();
    const auto calls = update({1, 2, 3, 4, 0, 0});
    EXPECT_EQ(calls.back(), "CommsBusy");
}

TEST_F(LiveLevels, ALinkThatRefusesOrIsMissingIsRadioSilence) {
    link->gone = true;
    EXPECT_THROW(live.update({1, 2, 3, 4, 0, 0}), transfer::RadioSilence);
    link = nullptr;
    EXPECT_THROW(live.update({1, 2, 3, 4, 0, 0}), transfer::RadioSilence);
    link = std::make_shared<LevelsLink>(log);
    log.clear();
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
}

TEST_F(LiveLevels, LevelsThatWereNotDeliveredAreRadioSilenceAtTheNextTickAlsoWithoutAChange) {
    const LiveLevelValues levels{1, 2, 3, 4, 0, 0};
    EXPECT_EQ(update(levels), whole);
    EXPECT_EQ(update(levels), Log{});
    link->outcome = false;
    EXPECT_THROW(live.update(levels), transfer::RadioSilence);
    link->outcome.reset();
    log.clear();
    EXPECT_EQ(update(levels), whole);
}

TEST_F(LiveLevels, LevelsThatWereDeliveredAreNotAskedAboutAgain) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->outcome = true;
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), Log{});
    link->outcome = false;
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), Log{});
    EXPECT_EQ(link->asked, 1);
}

TEST_F(LiveLevels, ALinkThatDiesAfterwardsIsRadioSilence) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->dead = true;
    EXPECT_THROW(live.update({1, 2, 3, 4, 0, 0}), transfer::RadioSilence);
}

TEST_F(LiveLevels, AnOutcomeThatComesDuringTheWaitForTheNextLevelsCounts) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    memory->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] {
        link->outcome = false;
        memory->put(StoreMember::CommsBusy, false);
    });
    EXPECT_THROW(live.update({9, 2, 3, 4, 0, 0}), transfer::RadioSilence);
    EXPECT_EQ(std::ranges::count(log, "SendPotValues ''"), 0);
}

TEST_F(LiveLevels, LevelsThatWereLostBehindTheNextOnesAreSentAgain) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    memory->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] {
        link->outcome = false;
        memory->put(StoreMember::CommsBusy, false);
    });
    EXPECT_THROW(live.update({9, 2, 3, 4, 0, 0}), transfer::RadioSilence);
    link->outcome.reset();
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

TEST_F(LiveLevels, OutcomesFromBeforeItBeganAreNotItsOwn) {
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), whole);
    link->outcome = false;
    live.begin();
    EXPECT_EQ(update({1, 2, 3, 4, 0, 0}), Log{});
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
