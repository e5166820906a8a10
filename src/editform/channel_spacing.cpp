#include "editform/channel_spacing.h"

#include <string_view>

namespace telvar::editform {

namespace {

constexpr std::int32_t switchableSpacing = 25'000;  // Hz; the only one at which a radio has two bandwidths
constexpr double hertzPerKilohertz = 1000.0;

[[nodiscard]] std::string_view bandWord(std::int32_t spacing) {
    switch (spacing) {
    case 12'500:
        return " Narrow Band";
    case 20'000:
        return " Medium Band";
    case switchableSpacing:
        return " Wide Band";
    case 30'000:
        return " Data Band";
    case 50'000:
        return " Cellular Band";
    default:
        return "";
    }
}

}  // namespace

std::string channelSpacingCaption(const ChannelSpacing& radio, const base::NumberFormat& format) {
    std::string caption =
        base::fixedText(radio.spacing / hertzPerKilohertz, 1, format).append(" kHz ").append(bandWord(radio.spacing));
    if (radio.spacing == switchableSpacing && radio.bandwidthSwitchable) {
        if (radio.narrowBandOnly) {
            caption = std::string(narrowBandCaption) + " Only";
        } else if (radio.channelIsNarrow) {
            caption = narrowBandCaption;
        }
    }
    return caption + " Channel Spacing";
}

std::vector<std::string> channelSpacingCaptions() {
    std::vector<std::string> captions{wideBandCaption, narrowBandCaption};
    for (const std::int32_t spacing : {0, 12'500, 20'000, switchableSpacing, 30'000, 50'000}) {
        for (const bool narrow : {false, true}) {
            for (const bool only : {false, true}) {
                captions.push_back(channelSpacingCaption({.spacing = spacing,
                                                          .bandwidthSwitchable = true,
                                                          .narrowBandOnly = only,
                                                          .channelIsNarrow = narrow}));
            }
        }
    }
    return captions;
}

}  // namespace telvar::editform
