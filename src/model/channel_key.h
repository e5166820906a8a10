// The keys of one channel record, with what each holds. This table is the one place that lists them: the data store,
// the table file, CSV and the command line are all driven by it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace telvar::model {

enum class ChannelKey : std::uint8_t {
    TxFreq,
    RxFreq,
    TxCTCSSDCS,
    TxDCSIndex,
    TxSub,
    RxCTCSSDCS,
    RxDCSIndex,
    RxSub,
    ModeBits,
    scan,
    TxLevel,
    SynthStep,
    AccelInt,
    BinMain,
    Modulo,
    AccelProp,
    RxSynthStep,
    RxAccelInt,
    RxBinMain,
    RxModulo,
    RxAccelProp,
    TxPower,
    RefOscFreq,
    VCODev,
    RefOscDev,
    NBRefOscFreq,
    NBVCODev,
    NBRefOscDev,
    P25TransmitMode,
    p25RepeaterEnable,
    TTRAnalogDataMode,
    P25TxNetworkAccessCode,
    P25RxNetworkAccessCode,
    P25TalkgroupID,
};

inline constexpr std::size_t channelKeyCount = 34;

enum class KeyKind : std::uint8_t {
    Frequency,  // hertz; a number, 0 means none
    Step,       // hertz; a number
    Tone,       // hertz with one decimal; a number, 0 means disabled
    Integer,    // a whole number
    Boolean,
    Code,  // text, four hexadecimal digits
};

struct ChannelKeyInfo {
    ChannelKey key;
    std::string_view name;  // exact spelling, as in a record's automation interface
    KeyKind kind;
    std::int32_t emptyValue;  // what an empty channel of the reference store holds; codes hold "0000" instead
};

inline constexpr std::int32_t emptyStep = 12'500;  // Hz
inline constexpr std::int32_t emptyModulo = 1;     // selector: modulo 8
inline constexpr std::int32_t emptyLevel = 128;    // middle of a potentiometer
inline constexpr std::string_view emptyCode = "0000";

inline constexpr std::array<ChannelKeyInfo, channelKeyCount> channelKeys{{
    {ChannelKey::TxFreq, "TxFreq", KeyKind::Frequency, 0},
    {ChannelKey::RxFreq, "RxFreq", KeyKind::Frequency, 0},
    {ChannelKey::TxCTCSSDCS, "TxCTCSSDCS", KeyKind::Boolean, 0},
    {ChannelKey::TxDCSIndex, "TxDCSIndex", KeyKind::Integer, 0},
    {ChannelKey::TxSub, "TxSub", KeyKind::Tone, 0},
    {ChannelKey::RxCTCSSDCS, "RxCTCSSDCS", KeyKind::Boolean, 0},
    {ChannelKey::RxDCSIndex, "RxDCSIndex", KeyKind::Integer, 0},
    {ChannelKey::RxSub, "RxSub", KeyKind::Tone, 0},
    {ChannelKey::ModeBits, "ModeBits", KeyKind::Integer, 0},
    {ChannelKey::scan, "scan", KeyKind::Boolean, 0},
    {ChannelKey::TxLevel, "TxLevel", KeyKind::Integer, 0},
    {ChannelKey::SynthStep, "SynthStep", KeyKind::Step, emptyStep},
    {ChannelKey::AccelInt, "AccelInt", KeyKind::Integer, 0},
    {ChannelKey::BinMain, "BinMain", KeyKind::Integer, 0},
    {ChannelKey::Modulo, "Modulo", KeyKind::Integer, emptyModulo},
    {ChannelKey::AccelProp, "AccelProp", KeyKind::Integer, 0},
    {ChannelKey::RxSynthStep, "RxSynthStep", KeyKind::Step, emptyStep},
    {ChannelKey::RxAccelInt, "RxAccelInt", KeyKind::Integer, 0},
    {ChannelKey::RxBinMain, "RxBinMain", KeyKind::Integer, 0},
    {ChannelKey::RxModulo, "RxModulo", KeyKind::Integer, emptyModulo},
    {ChannelKey::RxAccelProp, "RxAccelProp", KeyKind::Integer, 0},
    {ChannelKey::TxPower, "TxPower", KeyKind::Integer, emptyLevel},
    {ChannelKey::RefOscFreq, "RefOscFreq", KeyKind::Integer, emptyLevel},
    {ChannelKey::VCODev, "VCODev", KeyKind::Integer, emptyLevel},
    {ChannelKey::RefOscDev, "RefOscDev", KeyKind::Integer, emptyLevel},
    {ChannelKey::NBRefOscFreq, "NBRefOscFreq", KeyKind::Integer, emptyLevel},
    {ChannelKey::NBVCODev, "NBVCODev", KeyKind::Integer, emptyLevel},
    {ChannelKey::NBRefOscDev, "NBRefOscDev", KeyKind::Integer, emptyLevel},
    {ChannelKey::P25TransmitMode, "P25TransmitMode", KeyKind::Boolean, 0},
    {ChannelKey::p25RepeaterEnable, "p25RepeaterEnable", KeyKind::Boolean, 0},
    {ChannelKey::TTRAnalogDataMode, "TTRAnalogDataMode", KeyKind::Boolean, 0},
    {ChannelKey::P25TxNetworkAccessCode, "P25TxNetworkAccessCode", KeyKind::Code, 0},
    {ChannelKey::P25RxNetworkAccessCode, "P25RxNetworkAccessCode", KeyKind::Code, 0},
    {ChannelKey::P25TalkgroupID, "P25TalkgroupID", KeyKind::Code, 0},
}};

[[nodiscard]] constexpr const ChannelKeyInfo& infoOf(ChannelKey key) noexcept {
    return channelKeys[static_cast<std::size_t>(key)];
}

// Exact spelling, letter case included.
[[nodiscard]] constexpr std::optional<ChannelKey> channelKeyNamed(std::string_view name) noexcept {
    for (const auto& info : channelKeys) {
        if (info.name == name) {
            return info.key;
        }
    }
    return std::nullopt;
}

namespace detail {
[[nodiscard]] constexpr bool keysStandInOrder() {
    for (std::size_t at = 0; at < channelKeyCount; ++at) {
        if (static_cast<std::size_t>(channelKeys[at].key) != at) {
            return false;
        }
    }
    return true;
}
}  // namespace detail
static_assert(detail::keysStandInOrder());

}  // namespace telvar::model
