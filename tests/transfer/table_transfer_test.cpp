// Every event, store write and link call of a send and a load, in order, and every way in which a sequence can end
// early.
#include "transfer/table_transfer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "model/memory_data_store.h"
#include "support/answering_store.h"
#include "support/failing_store.h"
#include "support/store_decorator.h"
#include "support/test_desktop.h"

namespace telvar::tests {
namespace {

using model::StoreMember;
using Log = std::vector<std::string>;

// Writes every call of the store and of the link into one list, and lets the n-th of them fail.
class Journal {
public:
    void note(std::string what) {
        entries.push_back(std::move(what));
        if (failing != 0 && ++count == failing) {
            throw base::Failure("does not answer");
        }
    }
    Log entries;
    int failing = 0;
    int count = 0;
};

class JournalStore : public StoreDecorator {
public:
    JournalStore(model::DataStore& inner, Journal& journal) : StoreDecorator(inner), journal_(journal) {}

protected:
    void onCall(const StoreCall& call) override { journal_.note(describe(call)); }

private:
    Journal& journal_;
};

class JournalLink : public model::RadioLink {
public:
    explicit JournalLink(Journal& journal) : journal_(journal) {}
    void SendChannelTable() override {
        journal_.note("link SendChannelTable");
        if (whenSent) {
            whenSent();
        }
    }
    void LoadChannelTable(std::string& text, bool& flag) override {
        journal_.note("link LoadChannelTable '" + text + "' " + (flag ? "True" : "False"));
    }
    void AbortTransfer() override { journal_.note("link AbortTransfer"); }
    void SendPotValues(std::string& /*text*/) override { journal_.note("link SendPotValues"); }
    void SelectChannel(std::string& /*channel*/) override { journal_.note("link SelectChannel"); }
    std::optional<bool> lastExchangeSucceeded() override { return lastSucceeded; }

    std::function<void()> whenSent;
    // Nothing, as with a link that does not tell.
    std::optional<bool> lastSucceeded;

private:
    Journal& journal_;
};

// The control around a transfer.
class JournalOwner : public transfer::TransferOwner {
public:
    explicit JournalOwner(Journal& journal) : journal_(journal) {}
    void disableCommands() override { journal_.note("event DisableCommands"); }
    void hourglassOverWindow() override { journal_.note("event HourglassOverWindow"); }
    void pauseDiagnostics() override { journal_.note("event PauseDiagnostics"); }
    void restoreButtons() override { journal_.note("event RestoreButtons"); }
    void enableCommands(std::string commands) override { journal_.note("event EnableCommands " + commands); }
    void disableChannelSelect() override { journal_.note("cmdChannelSelect off"); }
    bool checkFrequencies() override {
        journal_.note("check_Frequencies");
        if (duringCheck) {
            duringCheck();
        }
        return tableIsGood;
    }
    std::string checkScanCount() override {
        journal_.note("CheckTotalNoOfChannelScan");
        return scanMessage;
    }
    std::unique_ptr<transfer::SendPermission> makePermission(model::DataStorePointer store) override {
        permissionsFrom.push_back(store);
        return TransferOwner::makePermission(store);
    }

    bool tableIsGood = true;
    std::function<void()> duringCheck;
    std::string scanMessage;
    std::vector<model::DataStorePointer> permissionsFrom;

private:
    Journal& journal_;
};

class TableTransfer : public testing::Test {
protected:
    TableTransfer() {
        session.setStore(store);
        session.setLink(link);
        desktop.duringBox = [this](const ui::MessageBox&) { journal.note("box"); };
        memory->put(StoreMember::TableOpen, true);
        memory->put(StoreMember::ShowSendWarning, false);
        memory->put(StoreMember::SendInProgress, true);
        memory->put(StoreMember::ProgressCount, std::int16_t{17});
        memory->put(StoreMember::MessageTitle, base::textValue("Telvar"));
    }

    [[nodiscard]] Log send() {
        sequence.send();
        return std::exchange(journal.entries, {});
    }
    [[nodiscard]] bool loading() const { return session.activities().underWay(session::Activity::Loading); }
    [[nodiscard]] bool underWay() const {
        return loading() || session.activities().underWay(session::Activity::Sending);
    }
    [[nodiscard]] Log load() {
        sequence.load();
        return std::exchange(journal.entries, {});
    }

    Journal journal;
    TestDesktop desktop;
    std::shared_ptr<model::MemoryDataStore> memory = std::make_shared<model::MemoryDataStore>();
    std::shared_ptr<JournalStore> store = std::make_shared<JournalStore>(*memory, journal);
    std::shared_ptr<JournalLink> link = std::make_shared<JournalLink>(journal);
    session::Session session{desktop, {}};
    JournalOwner owner{journal};
    transfer::TableTransfer sequence{session, owner};
};

constexpr const char* anotherTransfer = "Another transfer is waiting for the Telvar. Please wait until it has ended.";

const ui::MessageBox overwriteQuestion{.text = "Warning: Sending data to the Telvar will overwrite the\r\n"
                                               "current memory contents within the Telvar.\r\n\r\n"
                                               "Recommendation: Save Telvar channel/configuration\r\n"
                                               "information to disk first.\r\n\r\n"
                                               "Proceed with overwrite?",
                                       .title = "Telvar: Communicating with Telvar",
                                       .icon = ui::Icon::Information,
                                       .buttons = ui::Buttons::OkCancel};

TEST_F(TableTransfer, ASendPreparesTheHostChecksWaitsAndHandsTheTableToTheLink) {
    EXPECT_EQ(send(),
              (Log{"TableOpen", "ShowSendWarning", "SendInProgress=", "event DisableCommands", "cmdChannelSelect off",
                   "event HourglassOverWindow", "SendPermitted", "check_Frequencies", "CheckTotalNoOfChannelScan",
                   "event PauseDiagnostics", "CommsBusy", "CommsTask=", "ProgressCount=", "link SendChannelTable"}));
    EXPECT_EQ(memory->get(StoreMember::SendInProgress), base::Value{false});
    EXPECT_EQ(memory->get(StoreMember::CommsTask), base::Value{std::int16_t{30}});
    EXPECT_EQ(memory->get(StoreMember::ProgressCount), base::Value{std::int16_t{0}});
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(TableTransfer, ALoadPreparesTheHostWaitsAndHandsOverToTheLink) {
    EXPECT_EQ(load(), (Log{"event DisableCommands", "cmdChannelSelect off", "event HourglassOverWindow",
                           "event PauseDiagnostics", "CommsBusy",
                           "CommsTask=", "ProgressCount=", "link LoadChannelTable '' True"}));
    EXPECT_EQ(memory->get(StoreMember::CommsTask), base::Value{std::int16_t{22}});
    EXPECT_EQ(memory->get(StoreMember::ProgressCount), base::Value{std::int16_t{0}});
    EXPECT_EQ(memory->get(StoreMember::SendInProgress), base::Value{true});
}

TEST_F(TableTransfer, WithoutAnOpenTableASendOnlySaysSo) {
    memory->put(StoreMember::TableOpen, false);
    EXPECT_EQ(send(), (Log{"TableOpen", "MessageTitle", "box"}));
    EXPECT_EQ(desktop.boxes(), (Boxes{{.text = "No channel information open to send. Please open a channel database.",
                                       .title = "Telvar",
                                       .icon = ui::Icon::Exclamation}}));
}

TEST_F(TableTransfer, AConfirmedOverwriteQuestionComesBeforeEverythingElse) {
    memory->put(StoreMember::ShowSendWarning, true);
    desktop.answerWith(ui::Answer::Ok);
    const Log log = send();
    EXPECT_EQ(desktop.boxes(), Boxes{overwriteQuestion});
    EXPECT_EQ(Log(log.begin(), log.begin() + 5),
              (Log{"TableOpen", "ShowSendWarning", "MessageTitle", "box", "SendInProgress="}));
    EXPECT_EQ(log.back(), "link SendChannelTable");
}

TEST_F(TableTransfer, ACancelledOverwriteRestoresButtonsThenEnablesAllCommandsAndTouchesNoLink) {
    memory->put(StoreMember::ShowSendWarning, true);
    desktop.answerWith(ui::Answer::Cancel);
    EXPECT_EQ(send(), (Log{"TableOpen", "ShowSendWarning", "MessageTitle", "box", "event RestoreButtons",
                           "event EnableCommands All"}));
    EXPECT_EQ(memory->get(StoreMember::SendInProgress), base::Value{true});
}

TEST_F(TableTransfer, ARefusedPermissionAbortsThreeTimesAndChecksNothing) {
    memory->setSendPermitted(false);
    EXPECT_EQ(send(), (Log{"TableOpen", "ShowSendWarning", "SendInProgress=", "event DisableCommands",
                           "cmdChannelSelect off", "event HourglassOverWindow", "SendPermitted", "link AbortTransfer",
                           "link AbortTransfer", "link AbortTransfer"}));
    EXPECT_TRUE(desktop.boxes().empty());
}

TEST_F(TableTransfer, FailedChecksAbortTwice) {
    owner.tableIsGood = false;
    const Log log = send();
    EXPECT_EQ(Log(log.end() - 3, log.end()), (Log{"check_Frequencies", "link AbortTransfer", "link AbortTransfer"}));
}

TEST_F(TableTransfer, TooManyScannedChannelsAbortOnceAfterTheMessage) {
    owner.scanMessage = "Total number of channel scan must not exceed 40.";
    const Log log = send();
    EXPECT_EQ(Log(log.end() - 6, log.end()),
              (Log{"check_Frequencies", "CheckTotalNoOfChannelScan", "event PauseDiagnostics", "MessageTitle", "box",
                   "link AbortTransfer"}));
    EXPECT_EQ(desktop.boxes(), (Boxes{{.text = owner.scanMessage, .title = "Telvar", .icon = ui::Icon::Exclamation}}));
}

TEST_F(TableTransfer, ThePermissionIsMadeForEachSendFromTheStoreOfTheMoment) {
    static_cast<void>(send());
    const auto other = std::make_shared<JournalStore>(*memory, journal);
    session.setStore(other);
    static_cast<void>(send());
    EXPECT_EQ(owner.permissionsFrom, (std::vector<model::DataStorePointer>{store, other}));
}

TEST_F(TableTransfer, TheWaitLetsEventsRunAndEndsWhenTheLinkIsQuiet) {
    for (const bool sending : {true, false}) {
        memory->put(StoreMember::CommsBusy, true);
        int turns = 0;
        desktop.whenPumping([&] { ++turns; });
        desktop.whenPumping([&] {
            ++turns;
            EXPECT_TRUE(underWay());
            memory->put(StoreMember::CommsBusy, false);
        });
        const Log log = sending ? send() : load();
        EXPECT_EQ(turns, 2);
        EXPECT_FALSE(underWay());
        EXPECT_EQ(log.back(), sending ? "link SendChannelTable" : "link LoadChannelTable '' True");
    }
}

TEST_F(TableTransfer, PendingEventsRunOnceEvenWhenTheLinkIsQuiet) {
    int turns = 0;
    desktop.whenPumping([&] { ++turns; });
    static_cast<void>(load());
    EXPECT_EQ(turns, 1);
}

TEST_F(TableTransfer, TheWaitHasNoLimit) {
    for (const bool sending : {true, false}) {
        memory->put(StoreMember::CommsBusy, true);
        waitAnHour(desktop, [&] {
            EXPECT_TRUE(underWay());
            memory->put(StoreMember::CommsBusy, false);
        });
        EXPECT_EQ((sending ? send() : load()).back(),
                  sending ? "link SendChannelTable" : "link LoadChannelTable '' True");
    }
}

TEST_F(TableTransfer, AQuittingMessageLoopBeginsNoExchangeBeTheLinkQuietOrNot) {
    for (const bool busy : {true, false}) {
        for (const bool sending : {true, false}) {
            memory->put(StoreMember::CommsBusy, busy);
            desktop.whenPumping([&] { desktop.quit(); });
            const Log log = sending ? send() : load();
            EXPECT_EQ(std::ranges::count(log, "CommsTask="), 0) << busy;
            EXPECT_EQ(std::ranges::count(log, "link AbortTransfer"), 0) << busy;
            EXPECT_TRUE(log.back() == "CommsBusy" || log.back() == "event PauseDiagnostics") << log.back();
            EXPECT_FALSE(underWay());
        }
    }
}

// Whatever is pending when the link falls quiet runs first; the end of the program may be among it.
TEST_F(TableTransfer, AQuitBehindTheEndOfTheBusyLinkBeginsNoExchange) {
    memory->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([] {});
    desktop.whenPumping([&] { memory->put(StoreMember::CommsBusy, false); });
    desktop.whenPumping([&] { desktop.quit(); });
    EXPECT_EQ(std::ranges::count(load(), "CommsTask="), 0);
}

// The link stays busy, so that nothing but the quit can end the wait.
TEST_F(TableTransfer, AQuitInTheMiddleOfTheWaitBeginsNoExchange) {
    memory->put(StoreMember::CommsBusy, true);
    for (int turn = 1; turn <= 3; ++turn) {
        desktop.whenPumping([] {});
    }
    desktop.whenPumping([&] { desktop.quit(); });
    EXPECT_EQ(std::ranges::count(load(), "CommsTask="), 0);
    EXPECT_EQ(desktop.pumps(), 5);
}

TEST_F(TableTransfer, OnlyALoadIsALoad) {
    for (const bool sending : {true, false}) {
        memory->put(StoreMember::CommsBusy, true);
        desktop.whenPumping([&] {
            EXPECT_EQ(loading(), !sending);
            sequence.load();
            EXPECT_EQ(loading(), !sending) << "the refused one changes nothing";
            memory->put(StoreMember::CommsBusy, false);
        });
        static_cast<void>(sending ? send() : load());
        EXPECT_FALSE(loading());
    }
}

TEST(RunningLoad, IsABusyLinkWithTheTaskOfALoad) {
    model::MemoryDataStore store;
    for (const auto task : std::vector<std::int16_t>{0, 11, 12, 21, 22, 23, 30, 31, 33}) {
        store.put(StoreMember::CommsTask, task);
        store.put(StoreMember::CommsBusy, true);
        EXPECT_EQ(transfer::loadRuns(store), task == 22) << task;
        store.put(StoreMember::CommsBusy, false);
        EXPECT_FALSE(transfer::loadRuns(store)) << task;
    }
}

TEST(RunningLoad, IsToldByNoStoreThatFailsOrHasNoSuchValues) {
    model::MemoryDataStore store;
    store.put(StoreMember::CommsTask, std::int16_t{22});
    store.put(StoreMember::CommsBusy, true);
    FailingStore failing(store);
    for (const int call : {1, 2}) {
        failing.failAt(call);
        EXPECT_FALSE(transfer::loadRuns(failing)) << call;
    }
    AnsweringStore answering(store);
    for (const base::Value& odd : {base::Value{base::Empty{}}, base::Value{base::Unusable{}}, base::Value{70'000}}) {
        answering.answer(StoreMember::CommsTask, odd);
        EXPECT_FALSE(transfer::loadRuns(answering));
    }
    answering.answer(StoreMember::CommsTask, base::textValue("22"));
    EXPECT_TRUE(transfer::loadRuns(answering));
}

TEST_F(TableTransfer, AnotherTransferInsideTheWaitIsRefusedInOneSentence) {
    memory->put(StoreMember::CommsBusy, true);
    desktop.whenPumping([&] { sequence.load(); });
    desktop.whenPumping([&] { sequence.send(); });
    desktop.whenPumping([&] { memory->put(StoreMember::CommsBusy, false); });
    const Log log = send();
    const ui::MessageBox refusal{.text = anotherTransfer, .title = "Telvar", .icon = ui::Icon::Exclamation};
    EXPECT_EQ(desktop.boxes(), (Boxes{refusal, refusal}));
    EXPECT_EQ(std::ranges::count(log, "link SendChannelTable"), 1);
    EXPECT_EQ(std::ranges::count(log, "event DisableCommands"), 1);
}

// Whatever the sequence shows: while its box is open, the host may call.
TEST_F(TableTransfer, AnotherTransferInsideABoxOfTheSequenceIsRefusedInOneSentence) {
    memory->put(StoreMember::ShowSendWarning, true);
    owner.scanMessage = "Total number of channel scan must not exceed 40.";
    owner.duringCheck = [this] { desktop.show({.text = "a finding"}); };
    int inside = 0;
    desktop.duringBox = [&](const ui::MessageBox& box) {
        EXPECT_TRUE(underWay());
        if (box.text != anotherTransfer) {
            (++inside % 2 == 0) ? sequence.send() : sequence.load();
        }
    };
    for (int answer = 0; answer < 6; ++answer) {
        desktop.answerWith(ui::Answer::Ok);
    }
    sequence.send();
    EXPECT_FALSE(underWay());
    std::vector<std::string> texts;
    for (const ui::MessageBox& box : desktop.boxes()) {
        texts.push_back(box.text);
    }
    EXPECT_EQ(texts, (std::vector<std::string>{overwriteQuestion.text, anotherTransfer, "a finding", anotherTransfer,
                                               owner.scanMessage, anotherTransfer}));
    EXPECT_EQ(std::ranges::count(journal.entries, "event DisableCommands"), 1);
    EXPECT_EQ(std::ranges::count(journal.entries, "link AbortTransfer"), 1);
}

TEST_F(TableTransfer, AnotherTransferInsideTheBoxAboutAMissingTableIsRefusedToo) {
    memory->put(StoreMember::TableOpen, false);
    desktop.duringBox = [&](const ui::MessageBox& box) {
        if (box.text != anotherTransfer) {
            sequence.load();
        }
    };
    static_cast<void>(send());
    EXPECT_EQ(desktop.boxes().size(), 2U);
    EXPECT_EQ(desktop.boxes().back().text, anotherTransfer);
    static_cast<void>(desktop.takeBoxes());
    desktop.duringBox = nullptr;
    EXPECT_EQ(load().back(), "link LoadChannelTable '' True");
}

// Somebody else was faster: the exchange that runs now is theirs, and its end will give the host its commands back.
TEST_F(TableTransfer, AFailureLeavesTheRunningExchangeOfAnotherAlone) {
    link->whenSent = [this] {
        memory->put(StoreMember::CommsBusy, true);
        throw base::Failure("busy with another exchange");
    };
    EXPECT_THROW(sequence.send(), base::Failure);
    EXPECT_EQ(std::ranges::count(journal.entries, "link AbortTransfer"), 0);
    EXPECT_EQ(std::ranges::count(journal.entries, "event DisableCommands"), 1);
}

TEST_F(TableTransfer, WhereNobodyKnowsWhetherAnExchangeRunsAFailureAbortsNothing) {
    class SecretiveStore final : public JournalStore {
    public:
        using JournalStore::JournalStore;
        base::Value get(StoreMember member) override {
            if (member == StoreMember::CommsBusy) {
                throw base::Failure("does not answer");
            }
            return JournalStore::get(member);
        }
    };
    session.setStore(std::make_shared<SecretiveStore>(*memory, journal));
    for (const bool sending : {true, false}) {
        EXPECT_THROW(sending ? sequence.send() : sequence.load(), base::Failure);
        EXPECT_EQ(std::ranges::count(journal.entries, "link AbortTransfer"), 0);
    }
    // The link itself says that it runs none.
    link->lastSucceeded = false;
    EXPECT_THROW(sequence.load(), base::Failure);
    EXPECT_EQ(journal.entries.back(), "link AbortTransfer");
}

// A store exchanged during the wait is the one that is asked and told from then on.
TEST_F(TableTransfer, TheStoreOfTheMomentIsToldTheTask) {
    memory->put(StoreMember::CommsBusy, true);
    model::MemoryDataStore other;
    desktop.whenPumping([&] { session.setStore(std::make_shared<JournalStore>(other, journal)); });
    static_cast<void>(load());
    EXPECT_EQ(other.get(StoreMember::CommsTask), base::Value{std::int16_t{22}});
    EXPECT_NE(memory->get(StoreMember::CommsTask), base::Value{std::int16_t{22}});
}

// Wherever a sequence fails: before the host's commands were disabled nothing more happens, after that the link is told
// to report an end, and no exchange is begun but by the link's own call.
TEST_F(TableTransfer, AFailureOnceTheHostIsDisabledAbortsOnceAndReachesTheCaller) {
    memory->put(StoreMember::ShowSendWarning, true);
    for (const bool sending : {true, false}) {
        journal = {};
        desktop.answerWith(ui::Answer::Ok);
        const int steps = static_cast<int>((sending ? send() : load()).size());
        for (int step = 1; step <= steps; ++step) {
            journal = {.entries = {}, .failing = step, .count = 0};
            desktop.answerWith(ui::Answer::Ok);
            EXPECT_THROW(sending ? sequence.send() : sequence.load(), base::Failure) << step;
            const auto disabled = std::ranges::find(journal.entries, "event DisableCommands");
            const bool prepared = disabled != journal.entries.end();
            EXPECT_EQ(std::ranges::count(journal.entries, "link AbortTransfer"), prepared ? 1 : 0) << step;
            EXPECT_EQ(journal.entries.back() == "link AbortTransfer", prepared) << step;
            EXPECT_FALSE(underWay()) << step;
        }
        static_cast<void>(desktop.takeBoxes());
    }
}

}  // namespace
}  // namespace telvar::tests
