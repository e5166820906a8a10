// Pasting a whole table of 255 rows and 26 columns, undo and redo of it, and pasting one cell, each against the bare
// cost of the calls to the stores that the same command makes.
#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "control/channel_information.h"
#include "model/memory_data_store.h"
#include "store_calls.h"
#include "support/test_desktop.h"

namespace {

using namespace telvar;
using control::GridCommand;

[[nodiscard]] std::string wholeTable(const std::string& frequency) {
    std::string text;
    for (int row = 1; row <= model::channelCount; ++row) {
        text += frequency;
        text +=
            "\t455\t67.0 Hz\t023\tSimplex\tYes\tNarrow\tAnalogue\t10\t20\t30\t40\t50\t60\t70\t3\t12.5\t80\t8\t6.25\t90"
            "\t5\tNo\t1A2B\t0293\tFFFF";
        text += row < model::channelCount ? "\r\n" : "";
    }
    return text;
}

// The central table and the private ones, each behind a list of what it is asked.
class ListedTables {
public:
    [[nodiscard]] model::DataStorePointer make() {
        tables_.push_back(std::make_unique<model::MemoryDataStore>());
        lists_.push_back(std::make_unique<bench::CallList>(*tables_.back()));
        return {std::shared_ptr<void>{}, lists_.back().get()};
    }
    void forget() {
        for (const auto& list : lists_) {
            list->forget();
        }
    }
    void repeat() {
        for (std::size_t at = 0; at < lists_.size(); ++at) {
            lists_[at]->repeat(*tables_[at]);
        }
    }
    [[nodiscard]] double count() const {
        std::size_t calls = 0;
        for (const auto& list : lists_) {
            calls += list->count();
        }
        return static_cast<double>(calls);
    }

private:
    std::vector<std::unique_ptr<model::MemoryDataStore>> tables_;
    std::vector<std::unique_ptr<bench::CallList>> lists_;
};

// A control over a full table, with something to undo.
struct World {
    explicit World(std::function<model::DataStorePointer()> makeTable)
        : control({.desktop = desktop, .makeTable = makeTable, .numberFormat = {}, .logPath = {}}) {
        control.setCentralDataStore(makeTable());
        control.DistributeDataStoreLink();
        control.Prepare();
        control.UpdateControlsFromMemory();
        paste(wholeTable("450"));
    }
    void paste(const std::string& text) {
        desktop.clipboard = text;
        control.fgdDatabase.setCurrent({1, 1});
        control.run(GridCommand::Paste);
    }
    void failWhereTold(benchmark::State& state) {
        if (!desktop.takeBoxes().empty()) {
            state.SkipWithError("a command failed");
        }
    }
    tests::TestDesktop desktop;
    control::ChannelInformation control;
};

[[nodiscard]] model::DataStorePointer plainTable() { return std::make_shared<model::MemoryDataStore>(); }

void repeatCalls(benchmark::State& state, ListedTables& tables) {
    for (auto _ : state) {
        tables.repeat();
    }
    state.counters["calls"] = tables.count();
}

void storeCallsOfAPaste(benchmark::State& state, const std::string& text) {
    ListedTables tables;
    World world([&] { return tables.make(); });
    tables.forget();
    world.paste(text);
    repeatCalls(state, tables);
    world.failWhereTold(state);
}

// Other frequencies each time, so that cells change.
void paste(benchmark::State& state, const std::string& text, const std::string& otherText) {
    World world(plainTable);
    bool other = false;
    for (auto _ : state) {
        other = !other;
        world.paste(other ? otherText : text);
    }
    world.failWhereTold(state);
}

void storeCallsOfPastingTheTable(benchmark::State& state) { storeCallsOfAPaste(state, wholeTable("460")); }
BENCHMARK(storeCallsOfPastingTheTable)->Unit(benchmark::kMicrosecond);

void pastingTheTable(benchmark::State& state) { paste(state, wholeTable("450"), wholeTable("460")); }
BENCHMARK(pastingTheTable)->Unit(benchmark::kMicrosecond);

void storeCallsOfPastingACell(benchmark::State& state) { storeCallsOfAPaste(state, "145.5"); }
BENCHMARK(storeCallsOfPastingACell)->Unit(benchmark::kMicrosecond);

void pastingACell(benchmark::State& state) { paste(state, "145.5", "146.5"); }
BENCHMARK(pastingACell)->Unit(benchmark::kMicrosecond);

void storeCallsOfUndoAndRedo(benchmark::State& state) {
    ListedTables tables;
    World world([&] { return tables.make(); });
    world.paste(wholeTable("460"));
    tables.forget();
    world.control.run(GridCommand::Undo);
    world.control.run(GridCommand::Redo);
    repeatCalls(state, tables);
    world.failWhereTold(state);
}
BENCHMARK(storeCallsOfUndoAndRedo)->Unit(benchmark::kMicrosecond);

// The one is the way back from the other, so both are measured together.
void undoAndRedo(benchmark::State& state) {
    World world(plainTable);
    world.paste(wholeTable("460"));
    for (auto _ : state) {
        world.control.run(GridCommand::Undo);
        world.control.run(GridCommand::Redo);
    }
    world.failWhereTold(state);
}
BENCHMARK(undoAndRedo)->Unit(benchmark::kMicrosecond);

}  // namespace
