// A store that fails at any call of a paste of two whole rows, and at thousands of calls of the whole-table copies:
// what is told, and that the table is as far as it got to the last value.
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "base/conversion.h"
#include "editing/backup_table.h"
#include "editing_world.h"
#include "support/failing_store.h"

namespace telvar::tests {
namespace {

constexpr int valuesOfATable = 255 * 28;

// -- a paste of two rows ---------------------------------------------------------------------------------------------

constexpr std::int16_t upper = 20;
constexpr std::int16_t lower = 21;
const std::string twoRows =
    "145.5\t146.5\t67.0 Hz\t023\tSimplex\tYes\tNarrow\tAnalogue\t10\t20\t30\t40\t50\t60\t70\t3\t12.5\t80\t8\t6.25\t90\t"
    "5\tNo\t1A2B\t0293\tFFFF\r\n"
    "X\t450\tDisabled\tMultiple\tMixed Mode\tNo\tWide\tP25 Digital\t1\t2\t3\t4\t5\t6\t7\t0\t5\t8\t5\t25\t9\t8\tYes\t1\t"
    "0\tabcd";

// Both rows, every key or only those that undo brings back.
[[nodiscard]] std::string rowsText(model::DataStore& store, bool backedUpOnly) {
    std::string text;
    for (const auto channel : {upper, lower}) {
        for (const auto& info : model::channelKeys) {
            if (!backedUpOnly || std::ranges::find(editing::copiedKeys, info.key) != editing::copiedKeys.end()) {
                text.append(info.name).append("=").append(base::toText(store.channel(channel).get(info.key)));
                text += ' ';
            }
        }
    }
    return text;
}

// Notes where in a command each call to the store comes.
class Script : public StoreDecorator {
public:
    struct Entry {
        StoreCall call;
        bool rendering;
        std::size_t writes;  // to channels, before this call
    };
    Script(model::MemoryDataStore& table, const bool& rendering)
        : StoreDecorator(table), table_(table), rendering_(rendering) {
        note();
    }
    std::vector<Entry> entries;
    // The rows after each write, the first entry before all of them.
    std::vector<std::string> states;

    void writeChannel(std::int16_t index, ChannelKey key, const base::Value& value) override {
        StoreDecorator::writeChannel(index, key, value);
        note();
    }

protected:
    void onCall(const StoreCall& call) override {
        entries.push_back({.call = call, .rendering = rendering_, .writes = states.size() - 1});
    }

private:
    void note() { states.push_back(rowsText(table_, false)); }
    model::MemoryDataStore& table_;
    const bool& rendering_;
};

class FailingPaste : public EditingWorld {
protected:
    FailingPaste() {
        table->put(StoreMember::P25BoardFitted, true);
        reset();
        before = rowsText(*table, true);
        const auto recording = std::make_shared<Script>(*table, rendering);
        session.setStore(recording);
        EXPECT_TRUE(pasteAt({upper, 1}, twoRows));
        EXPECT_EQ(boxes(), Boxes{});
        script.entries = recording->entries;
        script.states = recording->states;
        session.setStore(failing);
    }

    void render(std::int16_t row) override {
        rendering = true;
        struct End {
            ~End() { flag = false; }
            bool& flag;
        } const end{rendering};
        EditingWorld::render(row);
    }
    void reset() {
        fillDistinct(*table, upper);
        fillDistinct(*table, lower);
    }
    [[nodiscard]] static bool judgesBandwidth(const Script::Entry& entry) {
        return !entry.rendering && entry.call.kind == StoreCall::Kind::Get &&
               (entry.call.member == StoreMember::BandwidthSwitchable ||
                entry.call.member == StoreMember::FCCNarrowBandRadio);
    }
    void expectOutcome(const Script::Entry& entry, bool backingUp) {
        if (backingUp) {
            // The paste goes on, and nobody can take it back.
            EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory")}));
            EXPECT_EQ(rowsText(*table, false), script.states.back());
        } else if (entry.rendering) {
            // A row that could not be shown stops nothing.
            EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateRowData")}));
            EXPECT_EQ(rowsText(*table, false), script.states.back());
        } else if (judgesBandwidth(entry)) {
            EXPECT_EQ(boxes(),
                      (Boxes{{.text = "Error during pasting data. Error in validating Wide/Narrow band "
                                      "setting (the data store does not answer) WB/NB. Unable to continue."}}));
            EXPECT_EQ(rowsText(*table, true), before);
        } else {
            EXPECT_EQ(boxes(), (Boxes{errorIn("PasteToCells")}));
            EXPECT_EQ(rowsText(*table, false), script.states.at(entry.writes));
        }
        EXPECT_EQ(undo.enabled(), !backingUp && !judgesBandwidth(entry));
        EXPECT_EQ(redo.enabled(), !backingUp && judgesBandwidth(entry));
        EXPECT_TRUE(grid.redraw());
    }

    bool rendering = false;
    std::string before;
    Script script{*table, rendering};
    std::shared_ptr<FailingStore> failing = std::make_shared<FailingStore>(*table);
};

TEST_F(FailingPaste, OfTwoWholeRowsTellsAndKeepsWhatItWroteAtEveryCall) {
    ASSERT_GT(script.entries.size(), static_cast<std::size_t>(valuesOfATable + 1500));
    // Of the backup's calls each is like its neighbours.
    constexpr int sample = 41;
    for (int call = 1; call <= static_cast<int>(script.entries.size()); call += call < valuesOfATable ? sample : 1) {
        const auto& entry = script.entries.at(static_cast<std::size_t>(call) - 1);
        const bool backingUp = call <= valuesOfATable;
        reset();
        history.forget();
        failing->failAt(call);
        EXPECT_EQ(pasteAt({upper, 1}, twoRows), backingUp || entry.rendering || judgesBandwidth(entry) ||
                                                    entry.writes > 0 ||
                                                    entry.call.kind == StoreCall::Kind::WriteChannel);
        expectOutcome(entry, backingUp);
        ASSERT_FALSE(HasFailure()) << call << " " << describe(entry.call);
    }
}

TEST_F(FailingPaste, IntoAStoreThatStaysAwayKeepsWhatItWroteUntilThen) {
    constexpr int everyThird = 3;
    for (int call = valuesOfATable + 1; call <= static_cast<int>(script.entries.size()); call += everyThird) {
        const auto& entry = script.entries.at(static_cast<std::size_t>(call) - 1);
        reset();
        failing->failAt(call, FailureSpan::FromThereOn);
        pasteAt({upper, 1}, twoRows);
        EXPECT_EQ(rowsText(*table, false), script.states.at(entry.writes));
        const auto told = boxes();
        ASSERT_FALSE(told.empty());
        EXPECT_LE(told.size(), 3U);
        EXPECT_EQ(told.front() == errorIn("UpdateRowData"), entry.rendering);
        EXPECT_TRUE(grid.redraw());
        ASSERT_FALSE(HasFailure()) << call << " " << describe(entry.call);
    }
}

// -- whole-table copies ----------------------------------------------------------------------------------------------

// Whole numbers for every key of every channel, fast to compare; Boolean keys are always True. One call of it may fail.
class NumberTable : public model::MemoryDataStore {
public:
    using Numbers = std::vector<std::int32_t>;
    explicit NumberTable(std::int32_t number) : numbers(static_cast<std::size_t>(valuesOfATable), number) {}

    [[nodiscard]] base::Value readChannel(std::int16_t index, ChannelKey key) override {
        count();
        return isBoolean(key) ? base::Value{true} : base::Value{at(index, key)};
    }
    void writeChannel(std::int16_t index, ChannelKey key, const base::Value& value) override {
        count();
        if (!isBoolean(key)) {
            at(index, key) = base::toInt32(value);
        }
    }
    [[nodiscard]] static bool isBoolean(ChannelKey key) noexcept {
        return model::infoOf(key).kind == model::KeyKind::Boolean;
    }

    Numbers numbers;       // in the order in which they are copied
    int untilFailure = 0;  // the call that fails, from 1; none where it is not positive

private:
    void count() {
        if (untilFailure == 1) {
            throw base::Failure(FailingStore::description);
        }
        --untilFailure;
    }
    [[nodiscard]] std::int32_t& at(std::int16_t index, ChannelKey key) {
        static const auto places = [] {
            std::array<std::size_t, model::channelKeyCount> found{};
            for (std::size_t place = 0; place < editing::copiedKeys.size(); ++place) {
                found.at(static_cast<std::size_t>(editing::copiedKeys.at(place))) = place;
            }
            return found;
        }();
        return numbers[static_cast<std::size_t>(index) * editing::copiedKeys.size() +
                       places[static_cast<std::size_t>(key)]];
    }
};

class FailingCopies : public EditingWorld {
protected:
    static constexpr std::int32_t present = 1;
    static constexpr std::int32_t former = 2;
    static constexpr std::int32_t undone = 3;

    FailingCopies() {
        session.setStore(live);
        history.setTables(backedUp, toRedo);
    }
    void render(std::int16_t /*row*/) override {}

    void reset() {
        std::ranges::fill(live->numbers, present);
        std::ranges::fill(backedUp->numbers, former);
        std::ranges::fill(toRedo->numbers, undone);
        for (const auto& each : {live, backedUp, toRedo}) {
            each->untilFailure = 0;
        }
    }
    // The first `count` numbers are new, the others old.
    [[nodiscard]] static bool copied(const NumberTable& destination, int count, std::int32_t written,
                                     std::int32_t old) {
        for (std::size_t place = 0; place < destination.numbers.size(); ++place) {
            const bool counts = !NumberTable::isBoolean(editing::copiedKeys.at(place % editing::copiedKeys.size()));
            const auto wanted = place < static_cast<std::size_t>(count) ? written : old;
            if (counts && destination.numbers[place] != wanted) {
                return false;
            }
        }
        return true;
    }

    std::shared_ptr<NumberTable> live = std::make_shared<NumberTable>(present);
    std::shared_ptr<NumberTable> backedUp = std::make_shared<NumberTable>(former);
    std::shared_ptr<NumberTable> toRedo = std::make_shared<NumberTable>(undone);
};

constexpr int everySeventh = 7;

TEST_F(FailingCopies, OfABackupLeaveItAsFarAsItGot) {
    for (const auto& failing : {live, backedUp}) {
        for (int call = 1; call <= valuesOfATable; call += everySeventh) {
            reset();
            failing->untilFailure = call;
            redo.setEnabled(true);
            history.UpdateBackUpFrequencyMemory();
            EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory")}));
            EXPECT_FALSE(undo.enabled());
            EXPECT_FALSE(redo.enabled());
            EXPECT_TRUE(copied(*backedUp, call - 1, present, former));
            EXPECT_TRUE(copied(*live, 0, 0, present));
            ASSERT_FALSE(HasFailure()) << call;
        }
    }
}

TEST_F(FailingCopies, OfAnUndoLeaveTheTablesAsFarAsTheyGot) {
    for (int call = 1; call <= 2 * valuesOfATable; call += everySeventh) {
        reset();
        live->untilFailure = call;
        const bool putBack = call > valuesOfATable;
        EXPECT_EQ(history.UndoChanges(), putBack);
        EXPECT_EQ(boxes(), (Boxes{errorIn("UndoChanges")}));
        EXPECT_TRUE(copied(*toRedo, putBack ? valuesOfATable : call - 1, present, undone));
        EXPECT_TRUE(copied(*live, putBack ? call - valuesOfATable - 1 : 0, former, present));
        EXPECT_TRUE(copied(*backedUp, 0, 0, former));
        ASSERT_FALSE(HasFailure()) << call;
    }
}

TEST_F(FailingCopies, OfARedoLeaveTheTableAsFarAsItGot) {
    for (const auto& failing : {live, toRedo}) {
        for (int call = 1; call <= valuesOfATable; call += everySeventh) {
            reset();
            failing->untilFailure = call;
            EXPECT_TRUE(history.RedoChanges());
            EXPECT_EQ(boxes(), (Boxes{errorIn("RedoChanges")}));
            EXPECT_TRUE(copied(*live, call - 1, undone, present));
            EXPECT_TRUE(copied(*toRedo, 0, 0, undone));
            ASSERT_FALSE(HasFailure()) << call;
        }
    }
}

}  // namespace
}  // namespace telvar::tests
