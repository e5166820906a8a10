// Fills channels tersely and shows what a store holds, for tests.
#pragma once

#include <array>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "base/number_text.h"
#include "editing/columns.h"
#include "model/data_store.h"
#include "model/memory_data_store.h"

namespace telvar::tests {

using KeyValues = std::initializer_list<std::pair<model::ChannelKey, base::Value>>;

// fill(store, 7, {{ChannelKey::TxFreq, 145'000'000}, {ChannelKey::scan, true}}); channel 1 to 255.
void fill(model::DataStore& store, std::int16_t channel, KeyValues values);

// A configured channel with a value of its own under every key, different from channel to channel.
void fillDistinct(model::DataStore& store, std::int16_t channel);

// All 255 channels, each with fillDistinct.
[[nodiscard]] std::shared_ptr<model::MemoryDataStore> fullStore();

// The cells of one row by column; element 0 and cells that were not reached are empty.
using RowTexts = std::array<std::string, editing::columnCount>;
[[nodiscard]] RowTexts renderedRow(model::DataStore& store, std::int16_t channel, base::NumberFormat format = {});

// Every value of every channel as "key=text", one channel a line: two tables are equal when these are.
[[nodiscard]] std::string tableText(model::DataStore& store);

}  // namespace telvar::tests
