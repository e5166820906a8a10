// Readings of a channel that several places share: what a combination of stored values means. All mode tests are
// bitwise on the stored values with True as -1, never logical: a store that answers 1 instead of True reads
// differently, on purpose.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/value.h"

namespace telvar::model {

// Both frequencies zero, by bitwise or of the two values rounded half to even to whole hertz.
[[nodiscard]] bool isUnconfigured(const base::Value& txFreq, const base::Value& rxFreq);

// "Mixed Mode", "Repeater", "P25 Repeater", "Simplex" or "Duplex", tested in this order.
[[nodiscard]] std::string_view rfModeReading(const base::Value& modeBits, const base::Value& p25RepeaterEnable);

// "N/A", "Narrow" or "Wide".
[[nodiscard]] std::string_view bandwidthReading(const base::Value& modeBits, const base::Value& bandwidthSwitchable,
                                                const base::Value& fccNarrowBandRadio);

// "P25 Digital" or "Analogue"; digital only on a narrow-band channel.
[[nodiscard]] std::string_view transmitModeReading(const base::Value& modeBits, const base::Value& p25TransmitMode);

// 8 for the selector 1, else 5.
[[nodiscard]] std::int16_t moduloReading(const base::Value& selector);

// From this hardware revision on, narrow band has a reference bias of its own. Compared in single precision.
inline constexpr float narrowBandBiasRevision = 2.9F;

}  // namespace telvar::model
