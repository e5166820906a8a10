#include "editing/cell_storing.h"

#include <limits>
#include <utility>

#include "base/conversion.h"
#include "base/failure.h"
#include "base/text.h"
#include "editing/columns.h"
#include "editing/validators.h"
#include "model/mode_bits.h"
#include "model/subtones.h"

namespace telvar::editing {

namespace {

using base::Value;
using model::ChannelKey;

template <class Number>
[[nodiscard]] Number numberOrFail(const std::expected<Number, base::NumberError>& read) {
    if (!read) {
        throw base::ConversionFailure(base::describe(read.error()));
    }
    return *read;
}

[[nodiscard]] model::ChannelRecord recordOf(const CellContext& context) {
    return context.store.channel(context.channel);
}

[[nodiscard]] std::string keyword(std::string_view text) { return base::upperCased(base::trimmed(text)); }

// In the narrowest type that holds them, 16 bits for every field that the radio knows.
[[nodiscard]] Value bitsValue(std::int64_t bits) {
    if (std::in_range<std::int16_t>(bits)) {
        return static_cast<std::int16_t>(bits);
    }
    if (std::in_range<std::int32_t>(bits)) {
        return static_cast<std::int32_t>(bits);
    }
    return bits;
}

void storeFrequency(const CellContext& context, ChannelKey key, std::string_view text) {
    if (text == noValue) {
        recordOf(context).put(key, std::int16_t{0});
        return;
    }
    constexpr double hertzPerMegahertz = 1e6;
    recordOf(context).put(key, numberOrFail(base::readDouble(text, context.format)) * hertzPerMegahertz);
}

struct SubtoneKeys {
    ChannelKey isDcs;
    ChannelKey dcsIndex;
    ChannelKey tone;
};

void storeTone(const CellContext& context, const SubtoneKeys& keys, float hertz) {
    const auto record = recordOf(context);
    record.put(keys.isDcs, false);
    record.put(keys.dcsIndex, std::int16_t{0});
    record.put(keys.tone, hertz);
}

void storeSubtone(const CellContext& context, const SubtoneKeys& keys, std::string_view text) {
    const auto trimmed = base::trimmed(text);
    if (keyword(text) == "DISABLED") {
        storeTone(context, keys, 0.0F);
        return;
    }
    if (trimmed.ends_with("Hz")) {
        storeTone(context, keys, numberOrFail(base::readSingle(base::replacedAll(trimmed, "Hz", ""), context.format)));
        return;
    }
    const auto index = model::dcsIndexOf(trimmed);
    if (!index) {
        throw base::ConversionFailure::typeMismatch();
    }
    const auto record = recordOf(context);
    record.put(keys.isDcs, true);
    record.put(keys.dcsIndex, *index);
}

}  // namespace

void changeModeBits(const CellContext& context, std::int64_t set, std::int64_t clear) {
    const auto record = recordOf(context);
    const auto bits = base::toBits(record.get(ChannelKey::ModeBits));
    record.put(ChannelKey::ModeBits, bitsValue((bits | set) & ~clear));
}

void storeTxFrequency(const CellContext& context, std::string_view text) {
    storeFrequency(context, ChannelKey::TxFreq, text);
}

void storeRxFrequency(const CellContext& context, std::string_view text) {
    storeFrequency(context, ChannelKey::RxFreq, text);
}

// The transmit side touches no mode bit.
void storeTransmitSubtone(const CellContext& context, std::string_view text) {
    storeSubtone(context, {ChannelKey::TxCTCSSDCS, ChannelKey::TxDCSIndex, ChannelKey::TxSub}, text);
}

void storeReceiveSubtone(const CellContext& context, std::string_view text) {
    const bool multiple = keyword(text) == "MULTIPLE";
    if (multiple) {
        // The code and the tone stay; without the flag "Multiple" could never replace a DCS code.
        recordOf(context).put(ChannelKey::RxCTCSSDCS, false);
    } else {
        storeSubtone(context, {ChannelKey::RxCTCSSDCS, ChannelKey::RxDCSIndex, ChannelKey::RxSub}, text);
    }
    // The flag is read back: what the store made of it decides.
    if (base::isTrue(recordOf(context).get(ChannelKey::RxCTCSSDCS))) {
        // The transmit bit, not the receive one; kept so, since tables in the field carry it.
        changeModeBits(context, model::mode::transmitDcs, model::mode::multipleReceiveSubtones);
    } else if (multiple) {
        changeModeBits(context, model::mode::multipleReceiveSubtones, 0);
    } else {
        changeModeBits(context, 0, model::mode::multipleReceiveSubtones);
    }
}

void storeRfMode(const CellContext& context, std::string_view text) {
    using namespace model::mode;
    const auto word = keyword(text);
    bool repeatsP25 = false;
    // Each step is a writing of its own, in this order, for stores that act on what is written to them.
    if (word == "DUPLEX") {
        changeModeBits(context, 0, simplex | repeater);
    } else if (word == "SIMPLEX") {
        changeModeBits(context, simplex, 0);
        changeModeBits(context, 0, repeater);
    } else if (word == "REPEATER") {
        changeModeBits(context, repeater, 0);
        changeModeBits(context, 0, simplex);
    } else if (word == "P25 REPEATER") {
        changeModeBits(context, 0, simplex | repeater);
        changeModeBits(context, narrowBand, 0);
        repeatsP25 = true;
    } else if (word == "MIXED MODE") {
        changeModeBits(context, repeater, 0);
        changeModeBits(context, 0, simplex);
        changeModeBits(context, narrowBand, 0);
        repeatsP25 = true;
    }
    recordOf(context).put(ChannelKey::p25RepeaterEnable, repeatsP25);
}

void storeScan(const CellContext& context, std::string_view text) {
    recordOf(context).put(ChannelKey::scan, keyword(text) == "YES");
}

void storeBandwidth(const CellContext& context, std::string_view text) {
    const bool narrow = keyword(text) == "NARROW";
    changeModeBits(context, narrow ? model::mode::narrowBand : 0, narrow ? 0 : model::mode::narrowBand);
}

void storeExternalPttMode(const CellContext& context, std::string_view text) {
    const bool digital = keyword(text) == "P25 DIGITAL";
    recordOf(context).put(ChannelKey::P25TransmitMode, digital);
    if (digital) {
        changeModeBits(context, model::mode::narrowBand, 0);
    }
}

// The flag is written between the two steps of the bits.
void storeP25Repeater(const CellContext& context, std::string_view text) {
    const bool repeats = keyword(text) == "YES";
    if (repeats) {
        changeModeBits(context, 0, model::mode::simplex | model::mode::repeater);
    }
    recordOf(context).put(ChannelKey::p25RepeaterEnable, repeats);
    if (repeats) {
        changeModeBits(context, model::mode::narrowBand, 0);
    }
}

void storeTalkgroup(const CellContext& context, std::string_view text) {
    recordOf(context).put(ChannelKey::P25TalkgroupID, paddedCode(text));
}

void storeWhole(const CellContext& context, ChannelKey key, std::string_view text) {
    recordOf(context).put(key, numberOrFail(base::readInt16(text, context.format)));
}

void storeStep(const CellContext& context, ChannelKey key, std::string_view text) {
    constexpr float hertzPerKilohertz = 1000.0F;
    const float hertz = numberOrFail(base::readSingle(text, context.format)) * hertzPerKilohertz;
    recordOf(context).put(key, static_cast<double>(hertz));
}

void storeModulo(const CellContext& context, ChannelKey key, std::string_view text) {
    recordOf(context).put(key, static_cast<std::int16_t>(base::trimmed(text) == "5" ? 0 : 1));
}

void storeAsTyped(const CellContext& context, ChannelKey key, std::string_view text) {
    recordOf(context).put(key, base::textValue(text));
}

void storeCell(const CellContext& context, std::int16_t column, std::string_view text) {
    if (column < 1 || column > lastColumn) {
        throw base::SubscriptFailure();
    }
    columns[static_cast<std::size_t>(column)].store(context, base::trimmed(text));
}

}  // namespace telvar::editing
