// Undo and redo of whole-table edits: what is copied, what the menu items say, a store that fails at any call, and
// every short sequence of edits against a second, small model of the rules.
#include "editing/undo.h"

#include <array>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "editing/table_copy.h"
#include "editing_world.h"
#include "support/failing_store.h"
#include "support/recording_store.h"

namespace telvar::tests {
namespace {

constexpr double megahertz = 1e6;
constexpr int valuesOfATable = 255 * 28;

// By a second hand.
const std::vector<std::string> keysInCopyingOrder{
    "TxFreq",      "RxFreq",       "TxSub",      "RxSub",       "ModeBits",   "TxLevel",    "SynthStep",
    "AccelInt",    "BinMain",      "Modulo",     "AccelProp",   "TxPower",    "VCODev",     "RefOscFreq",
    "RefOscDev",   "scan",         "TxCTCSSDCS", "TxDCSIndex",  "RxCTCSSDCS", "RxDCSIndex", "NBVCODev",
    "NBRefOscDev", "NBRefOscFreq", "RxBinMain",  "RxSynthStep", "RxAccelInt", "RxModulo",   "RxAccelProp"};

class UndoHistory : public EditingWorld {
protected:
    UndoHistory() {
        for (std::int16_t channel = 1; channel <= 3; ++channel) {
            fillDistinct(*table, channel);
        }
        renderAll();
        history.forget();
    }
    [[nodiscard]] std::string now() { return tableText(*table); }
};

// -- the copy --------------------------------------------------------------------------------------------------------

TEST(TableCopy, TakesTwentyEightKeysOfEveryChannelInOrder) {
    std::vector<std::string> reads;
    std::vector<std::string> writes;
    for (int index = 0; index < 255; ++index) {
        for (const auto& key : keysInCopyingOrder) {
            reads.push_back("ChannelTable(" + std::to_string(index) + ")." + key);
            writes.push_back(reads.back() + "=");
        }
    }
    const auto source = fullStore();
    model::MemoryDataStore destination;
    RecordingStore from(*source);
    RecordingStore to(destination);
    editing::copyTable(from, to);
    EXPECT_EQ(from.calls(), reads);
    EXPECT_EQ(to.calls(), writes);
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        for (const auto& info : model::channelKeys) {
            const bool copied = std::ranges::find(keysInCopyingOrder, info.name) != keysInCopyingOrder.end();
            EXPECT_EQ(destination.channel(channel).get(info.key),
                      copied ? source->channel(channel).get(info.key) : model::emptyChannelValue(info.key))
                << channel << " " << info.name;
        }
    }
}

// -- menu items and tables -------------------------------------------------------------------------------------------

TEST_F(UndoHistory, ABackupMakesUndoAvailable) {
    EXPECT_TRUE(history.UpdateBackUpFrequencyMemory());
    EXPECT_TRUE(undo.enabled());
    EXPECT_FALSE(redo.enabled());
    EXPECT_EQ(base::toDouble(backup->channel(2).get(ChannelKey::TxFreq)), transmits(2));
    EXPECT_EQ(rendered, std::vector<std::int16_t>{});
}

TEST_F(UndoHistory, AnUndoneEditCanBeRedoneAndUndoneAgain) {
    const auto before = now();
    pasteAt({2, 1}, "145.5\t146.5\r147.5\t148.5");
    const auto after = now();
    ASSERT_NE(after, before);
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(history.UndoChanges());
        EXPECT_EQ(now(), before);
        EXPECT_NE(grid.text(2, 1), "145.500000");
        EXPECT_FALSE(undo.enabled());
        EXPECT_TRUE(redo.enabled());
        EXPECT_TRUE(history.RedoChanges());
        EXPECT_EQ(now(), after);
        EXPECT_EQ(grid.text(2, 1), "145.500000");
        EXPECT_TRUE(undo.enabled());
        EXPECT_FALSE(redo.enabled());
    }
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(UndoHistory, ThereIsOneLevel) {
    pasteAt({2, 1}, "145.5");
    const auto first = now();
    pasteAt({2, 1}, "150.5");
    history.UndoChanges();
    EXPECT_EQ(now(), first);
    history.UndoChanges();
    EXPECT_EQ(now(), first);
    // The second undo has taken the state before it for redo.
    history.RedoChanges();
    EXPECT_EQ(now(), first);
}

TEST_F(UndoHistory, EveryRowIsRenderedAgainInOrder) {
    history.UpdateBackUpFrequencyMemory();
    std::vector<std::int16_t> all;
    for (std::int16_t row = 1; row <= 255; ++row) {
        all.push_back(row);
    }
    history.UndoChanges();
    EXPECT_EQ(std::exchange(rendered, {}), all);
    history.RedoChanges();
    EXPECT_EQ(std::exchange(rendered, {}), all);
    history.UpdateAllRowData();
    EXPECT_EQ(rendered, all);
}

TEST_F(UndoHistory, LeavesTheP25KeysAndTheDataModeAlone) {
    constexpr std::array keys{ChannelKey::P25TransmitMode,        ChannelKey::p25RepeaterEnable,
                              ChannelKey::P25TalkgroupID,         ChannelKey::P25TxNetworkAccessCode,
                              ChannelKey::P25RxNetworkAccessCode, ChannelKey::TTRAnalogDataMode};
    pasteAt({2, 1}, "145.5");
    model::MemoryDataStore other;
    fillDistinct(other, 1);
    const auto expectThoseOfTheOther = [&] {
        for (const auto key : keys) {
            EXPECT_EQ(at(2, key), other.channel(1).get(key));
        }
    };
    for (const auto key : keys) {
        ASSERT_NE(at(2, key), other.channel(1).get(key));
        table->channel(2).put(key, other.channel(1).get(key));
    }
    history.UndoChanges();
    EXPECT_NE(transmits(2), 145.5 * megahertz);
    expectThoseOfTheOther();
    history.RedoChanges();
    EXPECT_EQ(transmits(2), 145.5 * megahertz);
    expectThoseOfTheOther();
}

TEST_F(UndoHistory, ForgettingDisablesBothItems) {
    undo.setEnabled(true);
    redo.setEnabled(true);
    EXPECT_TRUE(history.undoAvailable());
    history.forget();
    EXPECT_FALSE(undo.enabled());
    EXPECT_FALSE(redo.enabled());
    EXPECT_FALSE(history.undoAvailable());
}

TEST_F(UndoHistory, TheRoutinesDoNotLookAtTheItems) {
    pasteAt({2, 1}, "145.5");
    history.forget();
    EXPECT_TRUE(history.UndoChanges());
    EXPECT_NE(transmits(2), 145.5 * megahertz);
    history.forget();
    EXPECT_TRUE(history.RedoChanges());
    EXPECT_EQ(transmits(2), 145.5 * megahertz);
}

TEST_F(UndoHistory, WithoutTablesOrStoreItIsTold) {
    history.setTables(nullptr, nullptr);
    EXPECT_FALSE(history.UpdateBackUpFrequencyMemory());
    EXPECT_FALSE(history.UndoChanges());
    EXPECT_FALSE(history.RedoChanges());
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory"), errorIn("UndoChanges"), errorIn("RedoChanges")}));
    history.setTables(backup, redone);
    store = nullptr;
    EXPECT_FALSE(history.UpdateBackUpFrequencyMemory());
    EXPECT_FALSE(history.UndoChanges());
    EXPECT_FALSE(history.RedoChanges());
    EXPECT_FALSE(history.UpdateAllRowData());
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory"), errorIn("UndoChanges"), errorIn("RedoChanges"),
                              errorIn("UpdateAllRowData")}));
}

// A store in whose calls something else happens.
class EventfulStore : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    std::function<void()> duringCall;

protected:
    void onCall(const StoreCall& /*call*/) override {
        if (const auto happening = std::exchange(duringCall, nullptr)) {
            happening();
        }
    }
};

TEST_F(UndoHistory, TablesThatAreLetGoDuringACopyLiveToItsEnd) {
    pasteAt({2, 1}, "145.5");
    const auto eventful = std::make_shared<EventfulStore>(*table);
    store = eventful;
    const std::weak_ptr gone(backup);
    eventful->duringCall = [this] {
        history.setTables(nullptr, nullptr);
        backup.reset();
        redone.reset();
    };
    EXPECT_TRUE(history.UndoChanges());
    EXPECT_NE(transmits(2), 145.5 * megahertz);
    EXPECT_TRUE(gone.expired());
}

// -- failing stores --------------------------------------------------------------------------------------------------

class FailingHistory : public UndoHistory {
protected:
    FailingHistory() { store = failing; }

    // Three channels that hold something, and 1 under every key to go back to.
    void reset() {
        table->clear();
        for (std::int16_t channel = 1; channel <= 3; ++channel) {
            fillDistinct(*table, channel);
        }
        redone->clear();
        for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
            for (const auto key : editing::copiedKeys) {
                backup->channel(channel).put(key, std::int32_t{1});
            }
        }
    }
    // Calls worth failing at: some of every key among the first `many`, where each is like its neighbours, and every
    // later one.
    [[nodiscard]] static std::vector<int> callsOf(int many, int total) {
        constexpr int sample = 211;
        std::vector<int> calls{57, 58, valuesOfATable, valuesOfATable + 1};
        for (int call = 1; call <= many; call += sample) {
            calls.push_back(call);
        }
        for (int call = many + 1; call <= total; ++call) {
            calls.push_back(call);
        }
        return calls;
    }

    std::shared_ptr<FailingStore> failing = std::make_shared<FailingStore>(*table);
};

TEST_F(FailingHistory, APasteStopsWhereTheStoreFails) {
    RecordingStore recording(*table);
    store = model::DataStorePointer(std::shared_ptr<void>{}, &recording);
    grid.setCurrent({2, 1});
    pasteHere("145.5\t146.5");
    const auto names = recording.calls();
    store = failing;
    ASSERT_GT(names.size(), static_cast<std::size_t>(valuesOfATable + 4));
    const auto original = base::toDouble(at(3, ChannelKey::TxFreq));
    for (const int call : callsOf(valuesOfATable, static_cast<int>(names.size()))) {
        fill(*table, 2, {{ChannelKey::TxFreq, original}, {ChannelKey::RxFreq, original}});
        grid.setCurrent({2, 1});
        failing->failAt(call);
        const bool wrote = commands.PasteToCells();
        const std::string& name = names[static_cast<std::size_t>(call) - 1];
        SCOPED_TRACE(std::to_string(call) + " " + name);
        const bool backingUp = call <= valuesOfATable;
        const bool storing = name.ends_with("=");
        EXPECT_EQ(boxes(), (Boxes{errorIn(backingUp ? "UpdateBackUpFrequencyMemory"
                                          : storing ? "PasteToCells"
                                                    : "UpdateRowData")}));
        EXPECT_EQ(wrote, !backingUp);
        const bool first = !backingUp && name != "ChannelTable(1).TxFreq=";
        const bool second = first && name != "ChannelTable(1).RxFreq=";
        EXPECT_EQ(transmits(2), first ? 145.5 * megahertz : original);
        EXPECT_EQ(base::toDouble(at(2, ChannelKey::RxFreq)), second ? 146.5 * megahertz : original);
        EXPECT_TRUE(undo.enabled());
        EXPECT_TRUE(grid.redraw());
    }
}

TEST_F(FailingHistory, ADeleteStopsWhereTheStoreFails) {
    RecordingStore recording(*table);
    store = model::DataStorePointer(std::shared_ptr<void>{}, &recording);
    grid.setCurrent({2, 1});
    desktop.answerWith(ui::Answer::Yes);
    commands.DeleteSelectedCells();
    const auto names = recording.calls();
    store = failing;
    static_cast<void>(boxes());
    ASSERT_GT(names.size(), static_cast<std::size_t>(valuesOfATable + 2));
    for (const int call : callsOf(valuesOfATable, static_cast<int>(names.size()))) {
        fill(*table, 2, {{ChannelKey::TxFreq, 145'000'000}, {ChannelKey::RxFreq, 145'000'000}});
        grid.setCurrent({2, 1});
        failing->failAt(call);
        desktop.answerWith(ui::Answer::Yes);
        const bool wrote = commands.DeleteSelectedCells();
        const std::string& name = names[static_cast<std::size_t>(call) - 1];
        SCOPED_TRACE(std::to_string(call) + " " + name);
        const bool backingUp = call <= valuesOfATable;
        const bool storing = name.ends_with("=");
        const auto told = boxes();
        ASSERT_EQ(told.size(), 2U);
        EXPECT_EQ(told.back(), errorIn(backingUp ? "UpdateBackUpFrequencyMemory"
                                       : storing ? "DeleteSelectedCells"
                                                 : "UpdateRowData"));
        EXPECT_EQ(wrote, !backingUp);
        const bool first = !backingUp && name != "ChannelTable(1).TxFreq=";
        EXPECT_EQ(transmits(2), first ? 0.0 : 145 * megahertz);
        EXPECT_TRUE(undo.enabled());
    }
}

TEST_F(FailingHistory, AnUndoStopsWhereTheStoreFails) {
    reset();
    failing->failAt(0);
    history.UndoChanges();
    const int total = failing->calls();
    ASSERT_GT(total, 2 * valuesOfATable + 2 * 255);
    for (const int call : callsOf(total, total)) {
        reset();
        undo.setEnabled(true);
        redo.setEnabled(false);
        const double present = transmits(3);
        bool drawing = false;
        desktop.duringBox = [&](const ui::MessageBox&) { drawing = grid.redraw(); };
        failing->failAt(call);
        const bool wrote = history.UndoChanges();
        SCOPED_TRACE(call);
        const bool rendering = call > 2 * valuesOfATable;
        EXPECT_EQ(boxes(), (Boxes{errorIn(rendering ? "UpdateAllRowData" : "UndoChanges")}));
        EXPECT_TRUE(drawing);
        EXPECT_EQ(wrote, call > valuesOfATable);
        // Channel 3's transmit frequency is the 57th value.
        EXPECT_EQ(transmits(3), call > valuesOfATable + 57 ? 1.0 : present);
        EXPECT_EQ(transmits(255), rendering ? 1.0 : 0.0);
        EXPECT_EQ(base::toDouble(redone->channel(3).get(ChannelKey::TxFreq)), call > 57 ? present : 0.0);
        EXPECT_FALSE(undo.enabled());
        EXPECT_TRUE(redo.enabled());
    }
}

TEST_F(FailingHistory, ARedoStopsWhereTheStoreFails) {
    reset();
    failing->failAt(0);
    history.setTables(redone, backup);  // what is put back is the table of ones
    history.RedoChanges();
    const int total = failing->calls();
    ASSERT_GT(total, valuesOfATable + 2 * 255);
    for (const int call : callsOf(total, total)) {
        reset();
        undo.setEnabled(false);
        redo.setEnabled(true);
        const double present = transmits(3);
        failing->failAt(call);
        const bool wrote = history.RedoChanges();
        SCOPED_TRACE(call);
        const bool rendering = call > valuesOfATable;
        EXPECT_EQ(boxes(), (Boxes{errorIn(rendering ? "UpdateAllRowData" : "RedoChanges")}));
        EXPECT_TRUE(wrote);
        EXPECT_EQ(transmits(3), call > 57 ? 1.0 : present);
        EXPECT_TRUE(undo.enabled());
        EXPECT_FALSE(redo.enabled());
        EXPECT_TRUE(grid.redraw());
    }
}

TEST_F(UndoHistory, AGridThatDoesNotDrawStaysSo) {
    grid.setRedraw(false);
    EXPECT_TRUE(history.UpdateAllRowData());
    EXPECT_FALSE(grid.redraw());
}

// -- sequences, against a second model -------------------------------------------------------------------------------

constexpr std::int16_t firstRow = 5;
constexpr std::size_t rowsOfModel = 4;

// A table of which only the model's rows hold anything, so that whole-table copies cost little.
class SmallTable : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    [[nodiscard]] base::Value readChannel(std::int16_t index, ChannelKey key) override {
        return holds(index) ? StoreDecorator::readChannel(index, key) : base::Value{};
    }
    void writeChannel(std::int16_t index, ChannelKey key, const base::Value& value) override {
        if (holds(index)) {
            StoreDecorator::writeChannel(index, key, value);
        }
    }

protected:
    void onCall(const StoreCall& /*call*/) override {}

private:
    [[nodiscard]] static bool holds(std::int16_t index) noexcept {
        return index >= firstRow - 1 && index < firstRow - 1 + static_cast<int>(rowsOfModel);
    }
};

enum class Operation : std::uint8_t { Paste, RefusedPaste, Delete, Undo, Redo };
constexpr int operationCount = 5;

// The rules once more, in whole megahertz: frequencies are backed up, talk groups are not.
struct Model {
    struct Frequencies {
        int transmit = 0;
        int receive = 0;
        bool operator==(const Frequencies&) const = default;
    };
    using Table = std::array<Frequencies, rowsOfModel>;
    Table live{};
    Table backup{};
    Table redone{};
    std::array<std::string, rowsOfModel> talkgroups{"0000", "0000", "0000", "0000"};
    bool canUndo = false;
    bool canRedo = false;

    void takeBackup() {
        backup = live;
        canUndo = true;
    }
    void undo() {
        redone = std::exchange(live, backup);
        canUndo = false;
        canRedo = true;
    }
    void redo() {
        live = redone;
        canUndo = true;
        canRedo = false;
    }
};

class Sequences : public EditingWorld {
protected:
    Sequences() { store = small; }

    void render(std::int16_t row) override {
        if (row >= firstRow && row < firstRow + static_cast<int>(rowsOfModel)) {
            EditingWorld::render(row);
        }
    }

    void restart() {
        table->clear();
        backup->clear();
        redone->clear();
        model = {};
        history.forget();
        step = 0;
        trace.clear();
        renderAll();
    }

    // Row, values and, by turns, the column of an edit follow from the step.
    void apply(Operation operation) {
        ++step;
        const auto at = static_cast<std::size_t>(step) % (rowsOfModel - 1);
        const int row = firstRow + static_cast<int>(at);
        const int value = 100 + step;
        const bool frequencies = step % 3 != 0;
        switch (operation) {
        case Operation::Paste:
            paste(at, row, value, frequencies);
            break;
        case Operation::RefusedPaste:
            refusedPaste(at, row, value, frequencies);
            break;
        case Operation::Delete:
            select({row, 1}, {row + 1, 3});
            desktop.answerWith(ui::Answer::Yes);
            commands.DeleteSelectedCells();
            model.takeBackup();
            model.live[at] = model.live[at + 1] = {};
            break;
        case Operation::Undo:
            history.UndoChanges();
            model.undo();
            break;
        case Operation::Redo:
            history.RedoChanges();
            model.redo();
            break;
        }
        trace += " " + std::to_string(static_cast<int>(operation));
    }

    void paste(std::size_t at, int row, int value, bool frequencies) {
        const std::string number = std::to_string(value);
        model.takeBackup();
        if (frequencies) {
            pasteAt({row, 1}, number + "\t" + number + "\r" + number);
            model.live[at] = {value, value};
            model.live[at + 1].transmit = value;
        } else {
            pasteAt({row, 24}, number);
            model.talkgroups[at] = "0" + number;
        }
    }

    void refusedPaste(std::size_t at, int row, int value, bool frequencies) {
        const std::string number = std::to_string(value);
        model.takeBackup();
        if (frequencies) {
            pasteAt({row, 1}, number + "\r" + number + "\tnonsense");
            model.live[at].transmit = value;
            model.live[at + 1].transmit = value;
        } else {
            pasteAt({row, 24}, number + "\tnonsense");
            model.talkgroups[at] = "0" + number;
        }
        model.undo();
    }

    // One comparison, so that thousands of steps cost little.
    void expectModel() {
        static_cast<void>(boxes());
        bool same = undo.enabled() == model.canUndo && redo.enabled() == model.canRedo;
        for (std::size_t at = 0; at < rowsOfModel; ++at) {
            const auto row = static_cast<std::int16_t>(firstRow + static_cast<int>(at));
            const auto& wanted = model.live[at];
            same = same && transmits(row) == wanted.transmit * megahertz &&
                   base::toDouble(this->at(row, ChannelKey::RxFreq)) == wanted.receive * megahertz &&
                   this->at(row, ChannelKey::P25TalkgroupID) == base::textValue(model.talkgroups[at]) &&
                   grid.text(row, 1) == (wanted.transmit == 0 ? "X" : std::to_string(wanted.transmit) + ".000000") &&
                   grid.text(row, 24) == (wanted == Model::Frequencies{} ? "X" : model.talkgroups[at]);
        }
        ASSERT_TRUE(same) << "after" << trace;
    }

    std::shared_ptr<SmallTable> small = std::make_shared<SmallTable>(*table);
    std::shared_ptr<SmallTable> smallBackup = std::make_shared<SmallTable>(*backup);
    std::shared_ptr<SmallTable> smallRedone = std::make_shared<SmallTable>(*redone);
    Model model;
    int step = 0;
    std::string trace;
};

// Checked after each step, so shorter sequences are covered.
TEST_F(Sequences, OfUpToFourOperationsFollowTheModel) {
    history.setTables(smallBackup, smallRedone);
    for (int sequence = 0; sequence < operationCount * operationCount * operationCount * operationCount; ++sequence) {
        restart();
        for (int rest = sequence, at = 0; at < 4; ++at, rest /= operationCount) {
            apply(static_cast<Operation>(rest % operationCount));
            ASSERT_NO_FATAL_FAILURE(expectModel());
        }
    }
}

TEST_F(Sequences, OfTwentyRandomOperationsFollowTheModel) {
    history.setTables(smallBackup, smallRedone);
    std::mt19937 random(20);
    std::uniform_int_distribution<int> any(0, operationCount - 1);
    for (int sequence = 0; sequence < 2000; ++sequence) {
        restart();
        for (int at = 0; at < 20; ++at) {
            apply(static_cast<Operation>(any(random)));
            ASSERT_NO_FATAL_FAILURE(expectModel());
        }
    }
}

}  // namespace
}  // namespace telvar::tests
