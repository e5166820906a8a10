// The edit form without its window: loading a channel and Apply, each against the bare cost of the store calls that it
// makes, which are the ones that its rules name.
#include <benchmark/benchmark.h>

#include <memory>

#include "refreshed_control.h"

namespace {

using namespace telvar;

constexpr int channel = 7;

// A control whose form shows a channel.
struct OpenForm : bench::RefreshedControl {
    OpenForm() : OpenForm(bench::configuredTable()) {}
    explicit OpenForm(const model::DataStorePointer& store) {
        control.setCentralDataStore(store);
        control.DistributeDataStoreLink();
        control.UpdateAccess(5);
        control.fgdDatabase.setCurrent({channel, 1});
        control.fgdDatabase.DblClick({.at = {channel, 1}, .selected = control.fgdDatabase.selection()});
    }
    // Another frequency each time: cells and values change.
    void apply() {
        higher_ = !higher_;
        control.frmCE.txtTxFrequency.setText(higher_ ? "460.0125" : "450.0125");
        control.frmCE.cmdApply.userPress();
    }
    void load() { control.frmCE.refresh(); }

private:
    bool higher_ = false;
};

void repeatCalls(benchmark::State& state, void (OpenForm::*work)()) {
    const auto store = bench::configuredTable();
    const auto calls = std::make_shared<bench::CallList>(*store);
    OpenForm form(calls);
    calls->forget();
    (form.*work)();
    for (auto _ : state) {
        calls->repeat(*store);
    }
    state.counters["calls"] = static_cast<double>(calls->count());
}

void run(benchmark::State& state, void (OpenForm::*work)()) {
    OpenForm form;
    for (auto _ : state) {
        (form.*work)();
    }
}

void storeCallsOfApply(benchmark::State& state) { repeatCalls(state, &OpenForm::apply); }
BENCHMARK(storeCallsOfApply)->Unit(benchmark::kMicrosecond);

void apply(benchmark::State& state) { run(state, &OpenForm::apply); }
BENCHMARK(apply)->Unit(benchmark::kMicrosecond);

void storeCallsOfLoading(benchmark::State& state) { repeatCalls(state, &OpenForm::load); }
BENCHMARK(storeCallsOfLoading)->Unit(benchmark::kMicrosecond);

void loading(benchmark::State& state) { run(state, &OpenForm::load); }
BENCHMARK(loading)->Unit(benchmark::kMicrosecond);

}  // namespace
