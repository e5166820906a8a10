// The stores of tests/support carry other tests' conclusions, so they are tested themselves.
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/failure.h"
#include "model/memory_data_store.h"
#include "support/failing_store.h"
#include "support/recording_store.h"

namespace telvar::tests {
namespace {

using model::ChannelKey;
using model::StoreMember;

// One call of every kind.
[[nodiscard]] std::vector<std::function<void(model::DataStore&)>> everyKindOfCall() {
    return {
        [](model::DataStore& store) { (void)store.channel(8).get(ChannelKey::TxFreq); },
        [](model::DataStore& store) { store.channel(8).put(ChannelKey::scan, true); },
        [](model::DataStore& store) { (void)store.get(StoreMember::CommsBusy); },
        [](model::DataStore& store) { store.put(StoreMember::CommsTask, 30); },
        [](model::DataStore& store) { (void)store.referenceDividerScaling(); },
        [](model::DataStore& store) { store.SetPotValue(3, 200); },
        [](model::DataStore& store) { store.EnterChannelSelect(); },
        [](model::DataStore& store) { (void)store.AutomaticSelect(2); },
        [](model::DataStore& store) { (void)store.CheckKey('0'); },
        [](model::DataStore& store) { (void)store.CtcssTone(38); },
        [](model::DataStore& store) { (void)store.SendPermitted(); },
    };
}

TEST(RecordingStore, WritesEveryKindOfCallDown) {
    model::MemoryDataStore inner;
    RecordingStore store(inner);
    for (const auto& call : everyKindOfCall()) {
        call(store);
    }
    EXPECT_EQ(store.calls(),
              (std::vector<std::string>{"ChannelTable(7).TxFreq", "ChannelTable(7).scan=", "CommsBusy",
                                        "CommsTask=", "ConfigRecords(0).sm", "SetPotValue(3)", "EnterChannelSelect",
                                        "AutomaticSelect(2)", "CheckKey(48)", "CtcssTone(38)", "SendPermitted"}));
    EXPECT_EQ(inner.readChannel(7, ChannelKey::scan), base::Value{true});
    EXPECT_EQ(inner.get(StoreMember::CommsTask), base::Value{std::int16_t{30}});
    EXPECT_EQ(inner.potValue(3), 200);
}

TEST(FailingStore, FailsAtExactlyTheNthCallOfAnyKind) {
    model::MemoryDataStore inner;
    FailingStore store(inner);
    const auto calls = everyKindOfCall();
    for (std::size_t n = 1; n <= calls.size(); ++n) {
        store.failAt(static_cast<int>(n));
        for (std::size_t at = 1; at <= calls.size(); ++at) {
            if (at == n) {
                EXPECT_THROW(calls[at - 1](store), base::Failure) << n;
            } else {
                EXPECT_NO_THROW(calls[at - 1](store)) << n << ", " << at;
            }
        }
        EXPECT_EQ(store.calls(), static_cast<int>(calls.size()));
    }
}

TEST(FailingStore, MayGoOnFailing) {
    model::MemoryDataStore inner;
    FailingStore store(inner);
    store.failAt(2, FailureSpan::FromThereOn);
    EXPECT_NO_THROW(store.put(StoreMember::CommsTask, 22));
    EXPECT_THROW(store.put(StoreMember::CommsTask, 30), base::Failure);
    EXPECT_THROW(store.put(StoreMember::CommsTask, 33), base::Failure);
    EXPECT_EQ(inner.get(StoreMember::CommsTask), base::Value{std::int16_t{22}});
    store.failAt(0);
    EXPECT_NO_THROW(store.put(StoreMember::CommsTask, 33));
}

}  // namespace
}  // namespace telvar::tests
