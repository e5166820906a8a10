// Writing a cell's text into the data store, column by column. Nothing is validated here: whoever stores has validated
// before, and a text that cannot be converted is a base::ConversionFailure. A failing store leaves what it took before.
#pragma once

#include <cstdint>
#include <string_view>

#include "editing/columns.h"
#include "model/channel_key.h"

namespace telvar::editing {

void storeTxFrequency(const CellContext& context, std::string_view text);
void storeRxFrequency(const CellContext& context, std::string_view text);
void storeTransmitSubtone(const CellContext& context, std::string_view text);
void storeReceiveSubtone(const CellContext& context, std::string_view text);
void storeRfMode(const CellContext& context, std::string_view text);
void storeScan(const CellContext& context, std::string_view text);
void storeBandwidth(const CellContext& context, std::string_view text);
void storeExternalPttMode(const CellContext& context, std::string_view text);
void storeP25Repeater(const CellContext& context, std::string_view text);
// Padded on the left; the network access codes are stored as typed.
void storeTalkgroup(const CellContext& context, std::string_view text);

// Rounded half to even to a 16-bit integer.
void storeWhole(const CellContext& context, model::ChannelKey key, std::string_view text);
// Kilohertz read and multiplied in single precision, stored as a double number of hertz: 5.2 gives 5200.
void storeStep(const CellContext& context, model::ChannelKey key, std::string_view text);
void storeModulo(const CellContext& context, model::ChannelKey key, std::string_view text);
void storeAsTyped(const CellContext& context, model::ChannelKey key, std::string_view text);

template <model::ChannelKey key>
void storeWhole(const CellContext& context, std::string_view text) {
    storeWhole(context, key, text);
}
template <model::ChannelKey key>
void storeStep(const CellContext& context, std::string_view text) {
    storeStep(context, key, text);
}
template <model::ChannelKey key>
void storeModulo(const CellContext& context, std::string_view text) {
    storeModulo(context, key, text);
}
template <model::ChannelKey key>
void storeAsTyped(const CellContext& context, std::string_view text) {
    storeAsTyped(context, key, text);
}

// Sets some bits of ModeBits, then clears some, in one reading and one writing; all others are kept.
void changeModeBits(const CellContext& context, std::int64_t set, std::int64_t clear);

// One cell of the grid; the text is trimmed first. A column outside 1 to 26 is a base::SubscriptFailure.
void storeCell(const CellContext& context, std::int16_t column, std::string_view text);

}  // namespace telvar::editing
