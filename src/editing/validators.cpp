#include "editing/validators.h"

#include <algorithm>
#include <array>
#include <exception>
#include <expected>
#include <initializer_list>

#include "base/conversion.h"
#include "base/failure.h"
#include "base/text.h"
#include "editing/columns.h"
#include "model/mode_bits.h"
#include "model/subtones.h"

namespace telvar::editing {

namespace {

using model::ChannelKey;
using model::StoreMember;

constexpr std::size_t codeLength = 4;
constexpr std::int32_t configurationWithP25 = 7;  // permits P25 modes without a board

// The number, or the failure that a trapping validator answers as a text.
template <class Number>
[[nodiscard]] Number numberOr(const std::expected<Number, base::NumberError>& read) {
    if (!read) {
        throw base::ConversionFailure(base::describe(read.error()));
    }
    return *read;
}

template <class Body>
[[nodiscard]] std::string trappedAs(std::string_view prefix, Body body) {
    try {
        return body();
    } catch (const std::exception& failure) {
        return std::string(prefix) + failure.what() + ")";
    }
}

[[nodiscard]] std::string keyword(std::string_view text) { return base::upperCased(base::trimmed(text)); }

[[nodiscard]] bool isOneOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return std::ranges::find(words, word) != words.end();
}

[[nodiscard]] std::string validateSubtone(const CellContext& context, std::string_view text, bool transmit) {
    return trappedAs("Error in validating subtone (", [&]() -> std::string {
        const auto word = keyword(text);
        if (word == "DISABLED" || (!transmit && word == "MULTIPLE")) {
            return {};
        }
        const auto trimmed = base::trimmed(text);
        if (trimmed.ends_with("Hz")) {
            const float tone = numberOr(base::readSingle(base::replacedAll(trimmed, "Hz", ""), context.format));
            return tone == 0.0F || (tone >= model::lowestTone && tone <= model::highestTone)
                       ? ""
                       : "Invalid CTCSS value (out of range, must be 65Hz to 257Hz)";
        }
        return model::dcsIndexOf(trimmed) ? "" : "Invalid DCS value (not found in the table)";
    });
}

[[nodiscard]] std::string validateWhole(const CellContext& context, std::string_view text, std::int16_t highest,
                                        std::string_view error, std::string_view trap) {
    return trappedAs(trap, [&]() -> std::string {
        const auto value = numberOr(base::readInt16(text, context.format));
        return value >= 0 && value <= highest ? "" : std::string(error);
    });
}

// Reads nothing from the store and converts nothing; what is left to fail is the copy of a text beyond the memory.
[[nodiscard]] std::string validateCode(std::string_view text, std::string_view error, std::string_view trap) {
    return trappedAs(trap, [&]() -> std::string {
        const auto code = base::trimmed(text).size() < codeLength ? paddedCode(text) : std::string(text);
        return code.size() == codeLength && isHexadecimal(code) ? "" : std::string(error);
    });
}

[[nodiscard]] bool switchable(const CellContext& context) {
    return base::isTrue(context.store.get(StoreMember::BandwidthSwitchable));
}

constexpr auto fixedBandwidth =
    "Invalid value for Wide/Narrow band (Wide or Narrow band are not available for fixed bandwidth radio)";

[[nodiscard]] std::string judgeBandwidth(const CellContext& context, std::string_view word) {
    if (word == "WIDE") {
        if (!switchable(context)) {
            return fixedBandwidth;
        }
        return base::isTrue(context.store.get(StoreMember::FCCNarrowBandRadio))
                   ? "Invalid value, this radio cannot be set to Wide band (FCC NB)"
                   : "";
    }
    if (word == "NARROW") {
        return switchable(context) ? "" : fixedBandwidth;
    }
    if (word == "N/A") {
        return switchable(context) ? "Invalid value for Wide/Narrow band (must be Wide or Narrow)" : "";
    }
    return "Unknown value for Wide/Narrow band setting";
}

}  // namespace

std::string validateFrequency(const CellContext& context, std::string_view text) {
    if (text == noValue) {
        return {};
    }
    return trappedAs("Error in validating channel frequency (", [&]() -> std::string {
        constexpr double lowest = 10.0;
        constexpr double highest = 1000.0;
        const double frequency = numberOr(base::readDouble(text, context.format));
        return frequency == 0.0 || (frequency >= lowest && frequency <= highest)
                   ? ""
                   : "Invalid channel frequency value (out of range)";
    });
}

std::string validateTransmitSubtone(const CellContext& context, std::string_view text) {
    return validateSubtone(context, text, true);
}

std::string validateReceiveSubtone(const CellContext& context, std::string_view text) {
    return validateSubtone(context, text, false);
}

std::string validateRfMode(const CellContext& context, std::string_view text) {
    const auto word = keyword(text);
    if (isOneOf(word, {"DUPLEX", "SIMPLEX", "REPEATER"})) {
        return {};
    }
    if (!isOneOf(word, {"P25 REPEATER", "MIXED MODE"})) {
        return "Unknown RF Mode value";
    }
    const bool board = base::isTrue(context.store.get(StoreMember::P25BoardFitted));
    const auto code = base::toInt32(context.store.get(StoreMember::RadioConfigurationCode));
    return board || code == configurationWithP25 ? "" : "Invalid value, there is no P25 board fitted for this mode";
}

std::string validateScan(const CellContext& /*context*/, std::string_view text) {
    return isOneOf(keyword(text), {"YES", "NO"}) ? "" : "Invalid scan data value";
}

std::string validateBandwidth(const CellContext& context, std::string_view text) {
    return trappedAs("Error in validating Wide/Narrow band setting (",
                     [&] { return judgeBandwidth(context, keyword(text)); });
}

std::string validateExternalPttMode(const CellContext& /*context*/, std::string_view text) {
    return isOneOf(keyword(text), {"ANALOGUE", "P25 DIGITAL"}) ? "" : "Invalid External PTT Mode value";
}

std::string validatePotLevel(const CellContext& context, std::string_view text) {
    return validateWhole(context, text, 255, "Invalid pot value (out of range)", "Error in validating Pot Value (");
}

std::string validateSubtoneLevel(const CellContext& context, std::string_view text) {
    return validateWhole(context, text, 6, "Invalid subtone level value (out of range)",
                         "Error in validating Subtone Level Value (");
}

std::string validateSynthesizerStep(const CellContext& context, std::string_view text) {
    return trappedAs("Error in validating Synthesizer step size (", [&]() -> std::string {
        constexpr float highest = 25.5F;
        const float step = numberOr(base::readSingle(text, context.format));
        return step > 0.0F && step <= highest ? "" : "Invalid Synthesizer Step size value (out of range)";
    });
}

std::string validateModulo(const CellContext& /*context*/, std::string_view text) {
    return isOneOf(text, {"5", "8"}) ? "" : "Invalid modulo value";
}

std::string validateP25Repeater(const CellContext& context, std::string_view text) {
    const auto word = keyword(text);
    if (word == "YES") {
        // An inclusive-or with True is never zero: the channel's bits are read, and every value of them passes.
        constexpr std::int64_t allBits = -1;
        const auto bits = base::toBits(context.store.channel(context.channel).get(ChannelKey::ModeBits));
        return base::isTrue(base::Value{bits | allBits})
                   ? ""
                   : "Invalid P25 Repeater enable value (channel must be in narrow band)";
    }
    return word == "NO" ? "" : "Invalid P25 Repeater enable value";
}

std::string validateTalkgroup(const CellContext& /*context*/, std::string_view text) {
    return validateCode(text, "Invalid P25 Talkgroup value", "Error in validating P25 Talkgroup (");
}

std::string validateNetworkAccessCode(const CellContext& /*context*/, std::string_view text) {
    return validateCode(text, "Invalid P25 NAC value", "Error in validating P25 NAC (");
}

bool isHexadecimal(std::string_view text) noexcept {
    return text.find_first_not_of("0123456789ABCDEFabcdef") == std::string_view::npos;
}

std::string paddedCode(std::string_view text) {
    std::string code(base::trimmed(text));
    if (code.size() < codeLength) {
        code.insert(0, codeLength - code.size(), '0');
    }
    return code;
}

std::string validateCell(const CellContext& context, std::int16_t column, std::string_view text) {
    if (column < 1 || column > lastColumn) {
        return "Unknown Column type";
    }
    const Column& row = columns[static_cast<std::size_t>(column)];
    auto error = row.validate(context, text);
    return error.empty() ? error : error + " " + std::string(row.errorName);
}

}  // namespace telvar::editing
