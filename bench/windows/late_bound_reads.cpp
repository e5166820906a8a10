// What one value of our own data store costs through the adapter to foreign stores, against the bare calls with
// remembered dispatch numbers, in the same run.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "VexloDataStore.h"
#include "base/failure.h"
#include "com/adapters/foreign_data_store.h"
#include "com/kit/failure.h"
#include "com/kit/late_bound.h"
#include "com/kit/pointer.h"
#include "com/kit/variant.h"
#include "support/windows/loaded_server.h"

namespace {

using namespace telvar;
using com::ComPointer;

constexpr int rounds = 15;
constexpr int reads = 255 * 27;  // as many as a full refresh of plain cells

DISPID numberOf(IDispatch& object, std::wstring name) {
    LPOLESTR text = name.data();
    DISPID id = DISPID_UNKNOWN;
    com::check(object.GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id));
    return id;
}

void bareGet(IDispatch& object, DISPID id, com::Variant& answer) {
    DISPPARAMS none{};
    EXCEPINFO exception{};
    com::check(
        object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, com::getFlags, &none, answer.put(), &exception, nullptr));
}

// Nanoseconds of one, by the median of the rounds.
double costOf(const std::function<void(int)>& read) {
    std::vector<double> costs;
    for (int round = 0; round < rounds; ++round) {
        const auto begin = std::chrono::steady_clock::now();
        for (int at = 0; at < reads; ++at) {
            read(at / 27);
        }
        const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - begin;
        costs.push_back(taken.count() / reads);
    }
    std::ranges::sort(costs);
    return costs[rounds / 2];
}

void measure() {
    const tests::LoadedServer server("VexloDataStore.dll");
    const auto store = server.create<IDispatch>(__uuidof(DataStore));
    const auto adapter = com::adaptDataStore(store.get());
    for (int index = 0; index < 255; ++index) {
        adapter->writeChannel(static_cast<std::int16_t>(index), model::ChannelKey::TxFreq, std::int32_t{145'000'000});
    }
    const auto records = ComPointer<IChannelRecords>::from(store);
    ComPointer<IChannelRecord> record;
    com::check(records->Record(100, record.put()));
    const DISPID keyId = numberOf(*record, L"TxFreq");

    const auto report = [](const char* what, double cost) { std::printf("%-46s %8.1f ns\n", what, cost); };
    com::Variant value;
    const double get = costOf([&](int /*index*/) { bareGet(*record, keyId, value); });
    const double bare = costOf([&](int index) {
        ComPointer<IChannelRecord> held;
        com::check(records->Record(static_cast<std::int16_t>(index), held.put()));
        bareGet(*held, keyId, value);
    });
    const double kind = costOf([&](int /*index*/) {
        ComPointer<ITypeInfo> info;
        com::check(record->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()));
    });
    const double through = costOf(
        [&](int index) { (void)adapter->readChannel(static_cast<std::int16_t>(index), model::ChannelKey::TxFreq); });
    report("bare get of one key of a record at hand", get);
    report("bare get of a record and its key", bare);
    report("question for a record's type information", kind);
    report("one value through the adapter", through);
    std::printf("%-46s %8.2f\n", "adapter against bare", through / bare);
}

}  // namespace

int main() {
    try {
        com::check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
        measure();
        return 0;
    } catch (const base::Failure& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
