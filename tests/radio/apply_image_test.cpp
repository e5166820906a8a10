#include "radio/apply_image.h"

#include <gtest/gtest.h>

#include <string>

#include "base/conversion.h"
#include "base/failure.h"
#include "model/memory_data_store.h"
#include "support/failing_store.h"
#include "tables.h"

namespace telvar::tests {
namespace {

using model::ChannelKey;
using model::StoreMember;

struct ApplyImage : testing::Test {
    ApplyImage() { fill(store, 1); }

    [[nodiscard]] std::string failureOf(model::DataStore& into) {
        try {
            radio::applyImage(into, sampleImage(2));
        } catch (const base::Failure& failure) {
            return failure.description();
        }
        return "no failure";
    }

    model::MemoryDataStore store;
    FailingStore failing{store};
};

TEST_F(ApplyImage, MakesTheStoreEqualAndModified) {
    EXPECT_EQ(failureOf(store), "no failure");
    EXPECT_EQ(radio::imageOf(store), sampleImage(2));
    EXPECT_EQ(store.get(StoreMember::DataModified), base::Value{true});
    EXPECT_EQ(store.get(StoreMember::ChannelDataModified), base::Value{true});
}

TEST_F(ApplyImage, TouchesOnlyWhatDiffers) {
    store.writeChannel(3, ChannelKey::TxSub, 67.1F);
    auto image = radio::imageOf(store);
    const auto revision = store.revision();
    radio::applyImage(store, image);
    EXPECT_EQ(store.revision(), revision);
    EXPECT_EQ(store.readChannel(3, ChannelKey::TxSub), base::Value{67.1F});
    radio::putInto(image[3], ChannelKey::TxSub, base::Value{67.2});
    radio::applyImage(store, image);
    EXPECT_EQ(store.readChannel(3, ChannelKey::TxSub), base::Value{67.2});
    EXPECT_EQ(store.revision(), revision + 3);
}

TEST_F(ApplyImage, AValueThatTheRadioWouldHaveRoundedIsReplacedToo) {
    store.writeChannel(3, ChannelKey::TxFreq, 156'400'000.4);
    const auto image = radio::imageOf(store);
    radio::applyImage(store, image);
    EXPECT_EQ(store.readChannel(3, ChannelKey::TxFreq), (base::Value{std::int32_t{156'400'000}}));
}

TEST_F(ApplyImage, AStoreThatFailsAtAnyCallIsAsBefore) {
    ASSERT_EQ(failureOf(failing), "no failure");
    const int calls = failing.calls();
    constexpr int stride = 113;
    for (int call = 1; call <= calls; call = call + stride < calls || call == calls ? call + stride : calls) {
        fill(store, 1);
        failing.failAt(call);
        ASSERT_EQ(failureOf(failing),
                  "The data store failed (the data store does not answer); the table here was not changed")
            << call;
        ASSERT_EQ(radio::imageOf(store), sampleImage(1)) << call;
    }
}

TEST_F(ApplyImage, AStoreThatCannotBePutBackIsNotCalledUnchanged) {
    constexpr int reads = 255 * 34;
    failing.failAt(reads + 10, FailureSpan::FromThereOn);
    EXPECT_EQ(failureOf(failing),
              "The data store failed (the data store does not answer); the table here holds a part of what was loaded");
}

}  // namespace
}  // namespace telvar::tests
