// Undo and redo of whole-table edits: what is copied, what the menu items say, and a store that fails at any call.
#include "editing/undo.h"

#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "editing/backup_table.h"
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

TEST(BackupTable, TakesTwentyEightKeysOfEveryChannelInOrder) {
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
    const auto between = std::make_shared<model::MemoryDataStore>();
    const auto privateTable = std::make_shared<RecordingStore>(*between);
    RecordingStore to(destination);
    editing::BackupTable copy(privateTable);
    copy.takeFrom(from);
    EXPECT_EQ(from.calls(), reads);
    EXPECT_EQ(privateTable->calls(), writes);
    privateTable->forget();
    copy.giveTo(to);
    EXPECT_EQ(privateTable->calls(), reads);
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

// A store of somebody else's making, which keeps whatever is written.
class AnyValueStore : public model::MemoryDataStore {
public:
    [[nodiscard]] base::Value readChannel(std::int16_t index, ChannelKey key) override {
        const auto found = kept_.find({index, key});
        return found != kept_.end() ? found->second : MemoryDataStore::readChannel(index, key);
    }
    void writeChannel(std::int16_t index, ChannelKey key, const base::Value& value) override {
        kept_.insert_or_assign({index, key}, value);
    }

private:
    std::map<std::pair<std::int16_t, ChannelKey>, base::Value> kept_;
};

const std::vector<base::Value> valuesOfAllKinds{base::Unusable{},
                                                base::Empty{},
                                                true,
                                                std::int16_t{1},
                                                std::int16_t{-1},
                                                std::int32_t{7},
                                                std::int64_t{9'000'000'000},
                                                1.5F,
                                                2.25,
                                                std::numeric_limits<double>::quiet_NaN(),
                                                base::textValue(""),
                                                base::textValue("12"),
                                                base::textValue("nonsense")};

// Equal in type and value, "not a number" included.
[[nodiscard]] bool same(const base::Value& one, const base::Value& other) {
    const auto* number = std::get_if<double>(&one);
    const auto* second = std::get_if<double>(&other);
    return one == other || (number != nullptr && second != nullptr && std::isnan(*number) && std::isnan(*second));
}

TEST(BackupTable, GivesBackValuesOfEveryKindAsTheyWere) {
    for (const auto& value : valuesOfAllKinds) {
        AnyValueStore live;
        editing::BackupTable copy(std::make_shared<model::MemoryDataStore>());
        for (const auto key : editing::copiedKeys) {
            live.writeChannel(254, key, value);
        }
        copy.takeFrom(live);
        for (const auto key : editing::copiedKeys) {
            live.writeChannel(254, key, std::int32_t{3});
        }
        copy.giveTo(live);
        for (const auto key : editing::copiedKeys) {
            EXPECT_TRUE(same(live.readChannel(254, key), value)) << value.index() << model::infoOf(key).name;
        }
    }
}

TEST(BackupTable, TakenAgainForgetsWhatWasBefore) {
    AnyValueStore live;
    editing::BackupTable copy(std::make_shared<model::MemoryDataStore>());
    live.writeChannel(7, ChannelKey::TxFreq, base::Unusable{});
    copy.takeFrom(live);
    live.writeChannel(7, ChannelKey::TxFreq, std::int32_t{145'000'000});
    copy.takeFrom(live);
    live.writeChannel(7, ChannelKey::TxFreq, std::int32_t{0});
    copy.giveTo(live);
    EXPECT_EQ(live.readChannel(7, ChannelKey::TxFreq), base::Value{std::int32_t{145'000'000}});
}

// -- menu items and tables -------------------------------------------------------------------------------------------

TEST_F(UndoHistory, ABackupMakesUndoAvailable) {
    history.UpdateBackUpFrequencyMemory();
    EXPECT_TRUE(undo.enabled());
    EXPECT_FALSE(redo.enabled());
    EXPECT_EQ(boxes(), Boxes{});
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
    history.UpdateBackUpFrequencyMemory();
    EXPECT_FALSE(history.UndoChanges());
    EXPECT_FALSE(history.RedoChanges());
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory"), errorIn("UndoChanges"), errorIn("RedoChanges")}));
    history.setTables(backup, redone);
    session.setStore(nullptr);
    history.UpdateBackUpFrequencyMemory();
    EXPECT_FALSE(history.UndoChanges());
    EXPECT_FALSE(history.RedoChanges());
    EXPECT_FALSE(history.UpdateAllRowData());
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory"), errorIn("UndoChanges"), errorIn("RedoChanges"),
                              errorIn("UpdateAllRowData")}));
}

class FailedBackup : public UndoHistory {
protected:
    // The backup fails at that call; everything later succeeds.
    void failBackupAt(int call) {
        failing->failAt(call);
        session.setStore(failing);
    }
    [[nodiscard]] static constexpr int middle() { return 2 * 28 + 1; }
    std::shared_ptr<FailingStore> failing = std::make_shared<FailingStore>(*table);
};

TEST_F(FailedBackup, LeavesUndoAndRedoDisabledBehindItsOwnBoxAndAfterwards) {
    for (const int call : {1, middle(), valuesOfATable}) {
        undo.setEnabled(true);
        redo.setEnabled(true);
        bool seen = false;
        desktop.duringBox = [&](const ui::MessageBox&) { seen = !undo.enabled() && !redo.enabled(); };
        failBackupAt(call);
        history.UpdateBackUpFrequencyMemory();
        EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory")}));
        EXPECT_TRUE(seen);
        EXPECT_FALSE(undo.enabled());
        EXPECT_FALSE(redo.enabled());
    }
}

TEST_F(FailedBackup, LetsThePasteGoOn) {
    failBackupAt(middle());
    EXPECT_TRUE(pasteAt({2, 1}, "145.5\t146.5"));
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory")}));
    EXPECT_EQ(transmits(2), 145.5 * megahertz);
    EXPECT_EQ(at(2, ChannelKey::RxFreq), base::Value{146.5 * megahertz});
    EXPECT_FALSE(undo.enabled());
}

TEST_F(FailedBackup, LetsTheDeleteGoOn) {
    failBackupAt(middle());
    grid.setCurrent({2, 1});
    desktop.answerWith(ui::Answer::Yes);
    EXPECT_TRUE(commands.DeleteSelectedCells());
    EXPECT_EQ(boxes().back(), errorIn("UpdateBackUpFrequencyMemory"));
    EXPECT_EQ(transmits(2), 0.0);
    EXPECT_EQ(base::toDouble(at(2, ChannelKey::RxFreq)), 0.0);
    EXPECT_FALSE(undo.enabled());
}

// The backup table holds two channels of now and the others of an earlier edit: no state that the table ever had.
TEST_F(FailedBackup, IsNeverPutBackByARefusedPaste) {
    pasteAt({3, 1}, "150.5");
    table->channel(3).put(ChannelKey::TxFreq, 160'000'000);
    failBackupAt(middle());
    EXPECT_TRUE(pasteAt({2, 1}, "145.5\tnonsense"));
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory"),
                              {.text = "Error during pasting data. Error in validating channel frequency (Type "
                                       "mismatch) RX Freq. Unable to continue."}}));
    EXPECT_EQ(transmits(3), 160 * megahertz);
    EXPECT_EQ(transmits(2), 145.5 * megahertz);
    EXPECT_FALSE(undo.enabled());
    EXPECT_FALSE(redo.enabled());
}

TEST_F(FailedBackup, IsForgottenByTheNextWholeOne) {
    failBackupAt(middle());
    pasteAt({2, 1}, "145.5");
    const auto first = now();
    pasteAt({3, 1}, "150.5");
    EXPECT_TRUE(undo.enabled());
    history.UndoChanges();
    EXPECT_EQ(now(), first);
}

TEST_F(FailedBackup, BehindWhoseBoxTheControlIsClosedEndsTheEdit) {
    const auto before = now();
    desktop.duringBox = [this](const ui::MessageBox&) { session.close(); };
    failBackupAt(middle());
    EXPECT_FALSE(pasteAt({2, 1}, "145.5"));
    EXPECT_EQ(now(), before);
    EXPECT_EQ(boxes().size(), 1U);
}

TEST_F(FailedBackup, BehindWhoseBoxTheControlIsClosedEndsTheDeletion) {
    const auto before = now();
    desktop.duringBox = [this](const ui::MessageBox& box) {
        if (box.buttons == ui::Buttons::Ok) {
            session.close();
        }
    };
    failBackupAt(middle());
    desktop.answerWith(ui::Answer::Yes);
    EXPECT_FALSE(commands.DeleteSelectedCells());
    EXPECT_EQ(now(), before);
    EXPECT_EQ(boxes().size(), 2U);
}

TEST_F(UndoHistory, AStoreOfNullsAndEmptyValuesIsEditedAndComesBackAsItWas) {
    const auto foreign = std::make_shared<AnyValueStore>();
    foreign->writeChannel(8, ChannelKey::TxFreq, base::Unusable{});
    foreign->writeChannel(8, ChannelKey::scan, base::Empty{});
    foreign->writeChannel(1, ChannelKey::TxFreq, base::Empty{});
    foreign->writeChannel(1, ChannelKey::scan, std::int16_t{1});
    session.setStore(foreign);
    EXPECT_TRUE(pasteAt({2, 1}, "145.5\t146.5\tDisabled\tDisabled\tDuplex\tNo"));
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_TRUE(undo.enabled());
    // The row of the Null cannot be shown.
    history.UndoChanges();
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateAllRowData")}));
    EXPECT_EQ(foreign->readChannel(8, ChannelKey::TxFreq), base::Value{base::Unusable{}});
    EXPECT_EQ(foreign->readChannel(8, ChannelKey::scan), base::Value{base::Empty{}});
    EXPECT_EQ(foreign->readChannel(1, ChannelKey::TxFreq), base::Value{base::Empty{}});
    EXPECT_EQ(foreign->readChannel(1, ChannelKey::scan), base::Value{std::int16_t{1}});
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
    session.setStore(eventful);
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
    FailingHistory() { session.setStore(failing); }

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
    session.setStore(model::DataStorePointer(std::shared_ptr<void>{}, &recording));
    grid.setCurrent({2, 1});
    pasteHere("145.5\t146.5");
    const auto names = recording.calls();
    session.setStore(failing);
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
        EXPECT_TRUE(wrote);
        const bool first = name != "ChannelTable(1).TxFreq=";
        const bool second = first && name != "ChannelTable(1).RxFreq=";
        EXPECT_EQ(transmits(2), first ? 145.5 * megahertz : original);
        EXPECT_EQ(base::toDouble(at(2, ChannelKey::RxFreq)), second ? 146.5 * megahertz : original);
        EXPECT_EQ(undo.enabled(), !backingUp);
        EXPECT_TRUE(grid.redraw());
    }
}

TEST_F(FailingHistory, ADeleteStopsWhereTheStoreFails) {
    RecordingStore recording(*table);
    session.setStore(model::DataStorePointer(std::shared_ptr<void>{}, &recording));
    grid.setCurrent({2, 1});
    desktop.answerWith(ui::Answer::Yes);
    commands.DeleteSelectedCells();
    const auto names = recording.calls();
    session.setStore(failing);
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
        EXPECT_TRUE(wrote);
        EXPECT_EQ(transmits(2), name != "ChannelTable(1).TxFreq=" ? 0.0 : 145 * megahertz);
        EXPECT_EQ(undo.enabled(), !backingUp);
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

}  // namespace
}  // namespace telvar::tests
