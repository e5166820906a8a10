#include "editing/columns.h"

#include <algorithm>

#include "base/conversion.h"
#include "base/rounding.h"
#include "editing/cell_storing.h"
#include "editing/validators.h"
#include "model/mode_bits.h"
#include "model/readings.h"
#include "model/subtones.h"

namespace telvar::editing {

namespace {

using model::ChannelKey;
using model::StoreMember;

constexpr double hertzPerMegahertz = 1e6;
constexpr int hertzPerKilohertz = 1000;
constexpr int highestLevel = 255;

[[nodiscard]] base::Value read(const CellContext& context, ChannelKey key) {
    return context.store.channel(context.channel).get(key);
}

[[nodiscard]] std::string yesOrNo(bool yes) { return yes ? "Yes" : "No"; }

[[nodiscard]] std::string channelNumber(const CellContext& context) { return std::to_string(context.channel); }

template <ChannelKey key>
[[nodiscard]] std::string frequency(const CellContext& context) {
    const double hertz = base::toDouble(read(context, key));
    return hertz != 0.0 ? base::fixedText(hertz / hertzPerMegahertz, 6, context.format) : std::string(noValue);
}

[[nodiscard]] std::string dcsCode(const base::Value& storedIndex) {
    const double index = base::roundHalfEven(base::toDouble(storedIndex));
    if (index >= 0.0 && index < static_cast<double>(model::dcsCodeCount)) {
        return std::string(model::dcsCodes[static_cast<std::size_t>(index)]);
    }
    return std::string(invalidDcs);
}

[[nodiscard]] std::string tone(const base::Value& hertz, const base::NumberFormat& format) {
    return base::isTrue(hertz) ? base::toFixedText(hertz, 1, format) + " Hz" : "Disabled";
}

[[nodiscard]] std::string transmitSubtone(const CellContext& context) {
    if (base::isTrue(read(context, ChannelKey::TxCTCSSDCS))) {
        return dcsCode(read(context, ChannelKey::TxDCSIndex));
    }
    return tone(read(context, ChannelKey::TxSub), context.format);
}

[[nodiscard]] std::string receiveSubtone(const CellContext& context) {
    if (base::isTrue(read(context, ChannelKey::RxCTCSSDCS))) {
        return dcsCode(read(context, ChannelKey::RxDCSIndex));
    }
    if ((base::toBits(read(context, ChannelKey::ModeBits)) & model::mode::multipleReceiveSubtones) != 0) {
        return "Multiple";
    }
    return tone(read(context, ChannelKey::RxSub), context.format);
}

[[nodiscard]] std::string rfMode(const CellContext& context) {
    const auto modeBits = read(context, ChannelKey::ModeBits);
    return std::string(model::rfModeReading(modeBits, read(context, ChannelKey::p25RepeaterEnable)));
}

[[nodiscard]] std::string bandwidth(const CellContext& context) {
    const auto switchable = context.store.get(StoreMember::BandwidthSwitchable);
    // A radio of fixed bandwidth answers by itself, without the channel.
    if (!base::isTrue(switchable)) {
        return std::string(model::bandwidthReading({}, switchable, {}));
    }
    const auto modeBits = read(context, ChannelKey::ModeBits);
    return std::string(
        model::bandwidthReading(modeBits, switchable, context.store.get(StoreMember::FCCNarrowBandRadio)));
}

[[nodiscard]] std::string transmitMode(const CellContext& context) {
    const auto modeBits = read(context, ChannelKey::ModeBits);
    return std::string(model::transmitModeReading(modeBits, read(context, ChannelKey::P25TransmitMode)));
}

template <ChannelKey key>
[[nodiscard]] std::string flag(const CellContext& context) {
    return yesOrNo(base::isTrue(read(context, key)));
}

template <ChannelKey key>
[[nodiscard]] std::string asStored(const CellContext& context) {
    return base::toText(read(context, key), context.format);
}

template <ChannelKey key>
[[nodiscard]] std::string stepInKilohertz(const CellContext& context) {
    const auto step = read(context, key);
    // A single stays one, since its digits beyond the seventh mean nothing.
    if (const auto* single = std::get_if<float>(&step)) {
        return base::numberText(*single / static_cast<float>(hertzPerKilohertz), context.format);
    }
    return base::numberText(base::toDouble(step) / hertzPerKilohertz, context.format);
}

template <ChannelKey key>
[[nodiscard]] std::string modulo(const CellContext& context) {
    return std::to_string(model::moduloReading(read(context, key)));
}

// The reference bias is shown inverted, unlike every other level.
[[nodiscard]] std::string invertedText(const base::Value& level, const base::NumberFormat& format) {
    if (const auto* single = std::get_if<float>(&level)) {
        return base::numberText(static_cast<float>(highestLevel) - *single, format);
    }
    return base::numberText(highestLevel - base::toDouble(level), format);
}

[[nodiscard]] std::string wideBias(const CellContext& context) {
    return invertedText(read(context, ChannelKey::RefOscFreq), context.format);
}

[[nodiscard]] bool bandwidthSwitchable(const CellContext& context) {
    return base::isTrue(context.store.get(StoreMember::BandwidthSwitchable));
}

// Older hardware has one bias for both bands, which the wide-band key holds.
[[nodiscard]] std::string narrowBias(const CellContext& context) {
    if (!bandwidthSwitchable(context)) {
        return std::string(noValue);
    }
    const float revision = base::toSingle(context.store.get(StoreMember::HardwareRevision));
    const auto key = revision >= model::narrowBandBiasRevision ? ChannelKey::NBRefOscFreq : ChannelKey::RefOscFreq;
    return invertedText(read(context, key), context.format);
}

template <ChannelKey key>
[[nodiscard]] std::string narrowLevel(const CellContext& context) {
    return bandwidthSwitchable(context) ? asStored<key>(context) : std::string(noValue);
}

}  // namespace

// clang-format off
constexpr std::array<Column, columnCount> columns{{
    {.number = 0, .header = "", .width = 400, .fullAccessWidth = 400, .enumerationName = "", .errorName = "",
     .render = channelNumber,
     .validate = nullptr, .store = nullptr},
    {.number = 1, .header = "Tx Frequency (MHz)", .width = 1100, .fullAccessWidth = 1100, .enumerationName = "",
     .errorName = "RX Freq",  // one name for both frequencies
     .render = frequency<ChannelKey::TxFreq>,
     .validate = validateFrequency, .store = storeTxFrequency},
    {.number = 2, .header = "Rx Frequency (MHz)", .width = 1100, .fullAccessWidth = 1100, .enumerationName = "",
     .errorName = "RX Freq", .render = frequency<ChannelKey::RxFreq>,
     .validate = validateFrequency, .store = storeRxFrequency},
    {.number = 3, .header = "Tx Subtone", .width = 950, .fullAccessWidth = 950, .enumerationName = "",
     .errorName = "TX Subtone", .render = transmitSubtone,
     .validate = validateTransmitSubtone, .store = storeTransmitSubtone},
    {.number = 4, .header = "Rx Subtone", .width = 950, .fullAccessWidth = 950, .enumerationName = "",
     .errorName = "RX Subtone", .render = receiveSubtone,
     .validate = validateReceiveSubtone, .store = storeReceiveSubtone},
    {.number = 5, .header = "RF Mode", .width = 1100, .fullAccessWidth = 1100, .enumerationName = "",
     .errorName = "RF Mode", .render = rfMode,
     .validate = validateRfMode, .store = storeRfMode},
    {.number = 6, .header = "Scan", .width = 700, .fullAccessWidth = 700, .enumerationName = "",
     .errorName = "Scan", .render = flag<ChannelKey::scan>,
     .validate = validateScan, .store = storeScan},
    {.number = 7, .header = "WB/NB Selection", .width = 1370, .fullAccessWidth = 1370, .enumerationName = "",
     .errorName = "WB/NB", .render = bandwidth,
     .validate = validateBandwidth, .store = storeBandwidth},
    {.number = 8, .header = "Ext PTT Tx Mode", .width = 1350, .fullAccessWidth = 1350, .enumerationName = "",
     .errorName = "External PTT Mode",
     .render = transmitMode,
     .validate = validateExternalPttMode, .store = storeExternalPttMode},  // the transmit mode, whatever the header says
    {.number = 9, .header = "TX Pwr", .width = 0, .fullAccessWidth = 700, .enumerationName = "TXPowerCol",
     .errorName = "TX Power", .render = asStored<ChannelKey::TxPower>,
     .validate = validatePotLevel, .store = storeWhole<ChannelKey::TxPower>},
    {.number = 10, .header = "RefOscFreq WB", .width = 0, .fullAccessWidth = 1300, .enumerationName = "RefOscFreqWBCol",
     .errorName = "Ref Osc Freq WB", .render = wideBias,
     .validate = validatePotLevel, .store = storeWhole<ChannelKey::RefOscFreq>},
    {.number = 11, .header = "VCOLvlWB", .width = 0, .fullAccessWidth = 900, .enumerationName = "VCOLevelWBCol",
     .errorName = "VCO Lvl WB", .render = asStored<ChannelKey::VCODev>,
     .validate = validatePotLevel, .store = storeWhole<ChannelKey::VCODev>},
    {.number = 12, .header = "RefOscLvlWB", .width = 0, .fullAccessWidth = 1100, .enumerationName = "RefOscLevelWBCol",
     .errorName = "Ref Osc Lvl WB", .render = asStored<ChannelKey::RefOscDev>,
     .validate = validatePotLevel, .store = storeWhole<ChannelKey::RefOscDev>},
    {.number = 13, .header = "RefOscFreqNB", .width = 0, .fullAccessWidth = 1200, .enumerationName = "RefOscFreqNBCol",
     .errorName = "Ref Osc Freq NB", .render = narrowBias,
     .validate = validatePotLevel, .store = storeWhole<ChannelKey::NBRefOscFreq>},
    {.number = 14, .header = "VCOLvlNB", .width = 0, .fullAccessWidth = 900, .enumerationName = "VCOLevelNBCol",
     .errorName = "VCO Lvl NB", .render = narrowLevel<ChannelKey::NBVCODev>,
     .validate = validatePotLevel, .store = storeWhole<ChannelKey::NBVCODev>},
    {.number = 15, .header = "RefOscLvlNB", .width = 0, .fullAccessWidth = 1100, .enumerationName = "RefOscLevelNBCol",
     .errorName = "Ref Osc Lvl NB", .render = narrowLevel<ChannelKey::NBRefOscDev>,
     .validate = validatePotLevel, .store = storeWhole<ChannelKey::NBRefOscDev>},
    {.number = 16, .header = "SubtoneLvl", .width = 0, .fullAccessWidth = 900, .enumerationName = "TXSubtoneLevelCol",
     .errorName = "Subtone Level", .render = asStored<ChannelKey::TxLevel>,
     .validate = validateSubtoneLevel, .store = storeWhole<ChannelKey::TxLevel>},
    {.number = 17, .header = "SynthStepTX", .width = 0, .fullAccessWidth = 1050,
     .enumerationName = "SynthStepSizeTXCol", .errorName = "TX Synth Step Size",
     .render = stepInKilohertz<ChannelKey::SynthStep>,
     .validate = validateSynthesizerStep, .store = storeStep<ChannelKey::SynthStep>},
    {.number = 18, .header = "BinTX", .width = 0, .fullAccessWidth = 650, .enumerationName = "BinaryMainTXCol",
     .errorName = "TX Binary Main", .render = asStored<ChannelKey::BinMain>,
     .validate = validatePotLevel, .store = storeWhole<ChannelKey::BinMain>},
    {.number = 19, .header = "ModTX", .width = 0, .fullAccessWidth = 650, .enumerationName = "ModuloTXCol",
     .errorName = "TX Modulo", .render = modulo<ChannelKey::Modulo>,
     .validate = validateModulo, .store = storeModulo<ChannelKey::Modulo>},
    {.number = 20, .header = "SynthStepRX", .width = 0, .fullAccessWidth = 1050,
     .enumerationName = "SynthStepSizeRXCol", .errorName = "RX Synth Step Size",
     .render = stepInKilohertz<ChannelKey::RxSynthStep>,
     .validate = validateSynthesizerStep, .store = storeStep<ChannelKey::RxSynthStep>},
    {.number = 21, .header = "BinRX", .width = 0, .fullAccessWidth = 650, .enumerationName = "BinaryMainRXCol",
     .errorName = "RX Binary Main", .render = asStored<ChannelKey::RxBinMain>,
     .validate = validatePotLevel, .store = storeWhole<ChannelKey::RxBinMain>},
    {.number = 22, .header = "ModRX", .width = 0, .fullAccessWidth = 650, .enumerationName = "ModuloRXCol",
     .errorName = "RX Modulo", .render = modulo<ChannelKey::RxModulo>,
     .validate = validateModulo, .store = storeModulo<ChannelKey::RxModulo>},
    {.number = 23, .header = "P25Repeater", .width = 0, .fullAccessWidth = 1050, .enumerationName = "p25RepeaterEnable",
     .errorName = "P25 Repeater Enable", .render = flag<ChannelKey::p25RepeaterEnable>,
     .validate = validateP25Repeater, .store = storeP25Repeater},
    {.number = 24, .header = "P25TalkgroupID", .width = 0, .fullAccessWidth = 1250, .enumerationName = "P25TalkgroupID",
     .errorName = "P25 Talkgroup ID", .render = asStored<ChannelKey::P25TalkgroupID>,
     .validate = validateTalkgroup, .store = storeTalkgroup},
    {.number = 25, .header = "P25TxNAC", .width = 0, .fullAccessWidth = 900, .enumerationName = "P25TxNAC",
     .errorName = "P25 TX NAC", .render = asStored<ChannelKey::P25TxNetworkAccessCode>,
     .validate = validateNetworkAccessCode, .store = storeAsTyped<ChannelKey::P25TxNetworkAccessCode>},
    {.number = 26, .header = "P25RxNAC", .width = 0, .fullAccessWidth = 900, .enumerationName = "P25RxNAC",
     .errorName = "P25 RX NAC", .render = asStored<ChannelKey::P25RxNetworkAccessCode>,
     .validate = validateNetworkAccessCode, .store = storeAsTyped<ChannelKey::P25RxNetworkAccessCode>},
}};

// The synthesizer's columns come before the levels, and steps before modulos: the order in which a store is asked.
constexpr std::array<std::int16_t, columnCount - 1> renderOrder{
    1, 2, 3, 4, 5, 6, 7, 8, 16, 17, 20, 19, 22, 9, 10, 11, 12, 18, 21, 13, 14, 15, 23, 24, 25, 26};
// clang-format on

namespace {

[[nodiscard]] constexpr bool columnsStandInOrder() {
    return std::ranges::all_of(columns, [](const Column& column) {
        return column.number == static_cast<std::int16_t>(&column - columns.data());
    });
}
static_assert(columnsStandInOrder());

[[nodiscard]] constexpr bool everyColumnIsRendered() {
    auto sorted = renderOrder;
    std::ranges::sort(sorted);
    for (std::int16_t number = 1; number <= lastColumn; ++number) {
        if (sorted[static_cast<std::size_t>(number - 1)] != number) {
            return false;
        }
    }
    return true;
}
static_assert(everyColumnIsRendered());

}  // namespace

void renderRow(const CellContext& context, const CellSink& sink) {
    const auto txFreq = read(context, ChannelKey::TxFreq);
    if (model::isUnconfigured(txFreq, read(context, ChannelKey::RxFreq))) {
        const std::string text(noValue);
        for (std::int16_t column = 1; column <= lastColumn; ++column) {
            sink(column, text);
        }
        return;
    }
    for (const auto column : renderOrder) {
        sink(column, columns[static_cast<std::size_t>(column)].render(context));
    }
}

}  // namespace telvar::editing
