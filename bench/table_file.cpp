// Loading and saving a table of 255 channels that differ in every key, against merely hearing the file's JSON events.
#include <benchmark/benchmark.h>

#include <string>

#include "store/json_reader.h"
#include "store/table_file.h"
#include "support/table_builder.h"

namespace {

using namespace telvar;

[[nodiscard]] std::string fullTableText() {
    return store::tableText(store::contentsOf(*tests::fullStore()), "full.telvar").value();
}

class DeafListener final : public store::JsonListener {
public:
    bool scalar(const store::JsonScalar& value) override {
        benchmark::DoNotOptimize(value.text.size());
        return true;
    }
    bool open(store::JsonType /*type*/) override { return true; }
    bool close(store::JsonType /*type*/) override { return true; }
    bool name(std::string_view name) override {
        benchmark::DoNotOptimize(name.size());
        return true;
    }
};

void hearingTheEventsAlone(benchmark::State& state) {
    const auto text = fullTableText();
    for ([[maybe_unused]] const auto step : state) {
        DeafListener listener;
        benchmark::DoNotOptimize(store::readJson(text, listener).has_value());
    }
}
BENCHMARK(hearingTheEventsAlone);

void parsingATable(benchmark::State& state) {
    const auto text = fullTableText();
    for ([[maybe_unused]] const auto step : state) {
        benchmark::DoNotOptimize(store::parseTable(text, "full.telvar").has_value());
    }
}
BENCHMARK(parsingATable);

void writingATable(benchmark::State& state) {
    const auto contents = store::contentsOf(*tests::fullStore());
    for ([[maybe_unused]] const auto step : state) {
        benchmark::DoNotOptimize(store::tableText(contents, "full.telvar").has_value());
    }
}
BENCHMARK(writingATable);

}  // namespace
