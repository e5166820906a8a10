// The channel table as the radio holds it: 255 records of 71 bytes. The one place that knows where a key lies in a
// record, what the radio can hold of it, and what it reads as.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <string>
#include <vector>

#include "base/value.h"
#include "model/channel_key.h"
#include "model/data_store.h"

namespace telvar::radio {

inline constexpr std::size_t recordSize = 71;
inline constexpr std::size_t imageCount = static_cast<std::size_t>(model::channelCount);

using RecordImage = std::array<std::uint8_t, recordSize>;
// Always 255, channel 1 first.
using TableImage = std::vector<RecordImage>;

// Puts one value into a record. What the radio cannot hold (out of range, a code of more than 4 characters, no number)
// is a base::Failure. Frequencies and steps are rounded to whole hertz, tones to tenths, halves to even.
void putInto(RecordImage& record, model::ChannelKey key, const base::Value& value);

// Frequencies as 32-bit integers where they fit, else as doubles; tones as doubles; steps as 32-bit and other numbers
// as 16-bit integers; codes as texts.
[[nodiscard]] base::Value valueIn(const RecordImage& record, model::ChannelKey key);

// Empty where every byte of the record means something; else what does not, for a sentence.
[[nodiscard]] std::string defectOf(const RecordImage& record);

// Every channel as in a new table.
[[nodiscard]] TableImage emptyImage();

// Reads the whole store. A value that the radio cannot hold is a base::Failure that names the channel and the key.
[[nodiscard]] TableImage imageOf(model::DataStore& store);

// Over all records, first to last.
[[nodiscard]] std::uint32_t checksumOf(const TableImage& image) noexcept;

// Numbers of the channels that differ, ascending.
[[nodiscard]] std::vector<std::int16_t> differences(const TableImage& left, const TableImage& right);

// "channel 3" or "channels 1, 3 to 7 and 9".
[[nodiscard]] std::string channelsText(const std::vector<std::int16_t>& channels);

}  // namespace telvar::radio
