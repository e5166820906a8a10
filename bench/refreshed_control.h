// A control over a full table, refreshed once, and what its rows ask of a store.
#pragma once

#include <memory>

#include "control/channel_information.h"
#include "editing/columns.h"
#include "model/memory_data_store.h"
#include "store_calls.h"
#include "support/test_desktop.h"

namespace telvar::bench {

struct RefreshedControl {
    RefreshedControl() {
        control.setCentralDataStore(configuredTable());
        control.DistributeDataStoreLink();
        control.Prepare();
        control.UpdateControlsFromMemory();
    }

    tests::TestDesktop desktop;
    control::ChannelInformation control{{.desktop = desktop,
                                         .makeTable = [] { return std::make_shared<model::MemoryDataStore>(); },
                                         .numberFormat = {},
                                         .logPath = {}}};
};

// Renders every row into nothing.
inline void renderEveryRow(model::DataStore& store) {
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        editing::renderRow({.store = store, .channel = channel, .format = {}}, [](std::int16_t, const std::string&) {});
    }
}

}  // namespace telvar::bench
