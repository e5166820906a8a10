// The caption that names a radio's channel spacing and band class.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/number_text.h"

namespace telvar::editform {

inline constexpr const char* wideBandCaption = "25.0 kHz Wide Band";
inline constexpr const char* narrowBandCaption = "12.5 kHz Narrow Band";

struct ChannelSpacing {
    std::int32_t spacing = 0;  // Hz
    bool bandwidthSwitchable = false;
    bool narrowBandOnly = false;
    bool channelIsNarrow = false;
};

// The two blanks after "kHz" are meant, as is their absence in the narrow-band captions of a 25 kHz radio.
[[nodiscard]] std::string channelSpacingCaption(const ChannelSpacing& radio, const base::NumberFormat& format = {});
// Those of every band class, and the two of a change of bandwidth: what a frame must have room for.
[[nodiscard]] std::vector<std::string> channelSpacingCaptions();

}  // namespace telvar::editform
