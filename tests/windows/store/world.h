// What the tests of the store's server share: an apartment and the server by its file. Every test ends with the server
// free to be unloaded, so that it also finds leaks.
#pragma once

#include <gtest/gtest.h>

#include "VexloDataStore.h"
#include "support/windows/automation_calls.h"
#include "support/windows/loaded_server.h"

namespace telvar::tests {

class StoreWorld : public testing::Test {
protected:
    void TearDown() override {
        store.reset();
        EXPECT_TRUE(server.canUnload());
    }

    // Element of the channel table, 0 to 254.
    [[nodiscard]] ComPointer<IChannelRecord> record(std::int16_t index) const {
        return objectIn<IChannelRecord>(get(*store, "ChannelTable", {Variant(index)}));
    }

    Apartment apartment;
    LoadedServer server{"VexloDataStore.dll"};
    ComPointer<IDataStore> store = server.create<IDataStore>(__uuidof(DataStore));
};

}  // namespace telvar::tests
