// Subtone tables: the 83 DCS codes in the order that stored indexes refer to, and the CTCSS tones.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace telvar::model {

inline constexpr std::size_t dcsCodeCount = 83;

inline constexpr std::array<std::string_view, dcsCodeCount> dcsCodes{
    "023", "025", "026", "031", "032", "043", "047", "051", "054", "065", "071", "072", "073", "074",
    "114", "115", "116", "125", "131", "132", "134", "143", "152", "155", "156", "162", "165", "172",
    "174", "205", "223", "226", "243", "244", "245", "251", "261", "263", "265", "271", "306", "311",
    "315", "331", "343", "346", "351", "364", "365", "371", "411", "412", "413", "423", "431", "432",
    "445", "464", "465", "466", "503", "506", "516", "532", "546", "565", "606", "612", "624", "627",
    "631", "632", "654", "662", "664", "703", "712", "723", "731", "732", "734", "743", "754"};

// Position of a code, blanks around the text ignored; nothing for a text that is not exactly one of the codes.
[[nodiscard]] std::optional<std::int16_t> dcsIndexOf(std::string_view text) noexcept;

// Tone range that the radio can decode, in hertz, both ends included; 0 stands for no tone.
inline constexpr float lowestTone = 65.0F;
inline constexpr float highestTone = 257.0F;

inline constexpr std::size_t ctcssToneCount = 39;

// The 38 standard tones of TIA-603 and 69.3 Hz, held from highest to lowest.
inline constexpr std::array<float, ctcssToneCount> ctcssTones{
    250.3F, 241.8F, 233.6F, 225.7F, 218.1F, 210.7F, 203.5F, 192.8F, 186.2F, 179.9F, 173.8F, 167.9F, 162.2F,
    156.7F, 151.4F, 146.2F, 141.3F, 136.5F, 131.8F, 127.3F, 123.0F, 118.8F, 114.8F, 110.9F, 107.2F, 103.5F,
    100.0F, 97.4F,  94.8F,  91.5F,  88.5F,  85.4F,  82.5F,  79.7F,  77.0F,  74.4F,  71.9F,  69.3F,  67.0F};

}  // namespace telvar::model
