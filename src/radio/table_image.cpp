#include "radio/table_image.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <ranges>
#include <span>

#include "base/conversion.h"
#include "base/failure.h"
#include "base/rounding.h"
#include "model/memory_data_store.h"
#include "radio/crc32.h"

namespace telvar::radio {

namespace {

using model::ChannelKey;

enum class Form : std::uint8_t { Unsigned32, Signed32, Tenths16, Signed16, Flag, Code };

struct Field {
    ChannelKey key;
    Form form;
    std::size_t at;  // first byte of the record; for a flag its bit in the flag byte
};

constexpr std::size_t flagByte = 58;
constexpr std::size_t codeLength = 4;
constexpr std::uint8_t unusedFlags = 0xC0;

constexpr std::array<Field, model::channelKeyCount> fields{{
    {ChannelKey::TxFreq, Form::Unsigned32, 0},
    {ChannelKey::RxFreq, Form::Unsigned32, 4},
    {ChannelKey::TxCTCSSDCS, Form::Flag, 0},
    {ChannelKey::TxDCSIndex, Form::Signed16, 20},
    {ChannelKey::TxSub, Form::Tenths16, 16},
    {ChannelKey::RxCTCSSDCS, Form::Flag, 1},
    {ChannelKey::RxDCSIndex, Form::Signed16, 22},
    {ChannelKey::RxSub, Form::Tenths16, 18},
    {ChannelKey::ModeBits, Form::Signed16, 24},
    {ChannelKey::scan, Form::Flag, 2},
    {ChannelKey::TxLevel, Form::Signed16, 26},
    {ChannelKey::SynthStep, Form::Signed32, 8},
    {ChannelKey::AccelInt, Form::Signed16, 28},
    {ChannelKey::BinMain, Form::Signed16, 30},
    {ChannelKey::Modulo, Form::Signed16, 32},
    {ChannelKey::AccelProp, Form::Signed16, 34},
    {ChannelKey::RxSynthStep, Form::Signed32, 12},
    {ChannelKey::RxAccelInt, Form::Signed16, 36},
    {ChannelKey::RxBinMain, Form::Signed16, 38},
    {ChannelKey::RxModulo, Form::Signed16, 40},
    {ChannelKey::RxAccelProp, Form::Signed16, 42},
    {ChannelKey::TxPower, Form::Signed16, 44},
    {ChannelKey::RefOscFreq, Form::Signed16, 46},
    {ChannelKey::VCODev, Form::Signed16, 48},
    {ChannelKey::RefOscDev, Form::Signed16, 50},
    {ChannelKey::NBRefOscFreq, Form::Signed16, 52},
    {ChannelKey::NBVCODev, Form::Signed16, 54},
    {ChannelKey::NBRefOscDev, Form::Signed16, 56},
    {ChannelKey::P25TransmitMode, Form::Flag, 3},
    {ChannelKey::p25RepeaterEnable, Form::Flag, 4},
    {ChannelKey::TTRAnalogDataMode, Form::Flag, 5},
    {ChannelKey::P25TxNetworkAccessCode, Form::Code, 59},
    {ChannelKey::P25RxNetworkAccessCode, Form::Code, 63},
    {ChannelKey::P25TalkgroupID, Form::Code, 67},
}};

[[nodiscard]] constexpr bool fieldsStandInOrder() {
    for (std::size_t at = 0; at < fields.size(); ++at) {
        if (static_cast<std::size_t>(fields[at].key) != at) {
            return false;
        }
    }
    return true;
}
static_assert(fieldsStandInOrder());

[[nodiscard]] const Field& fieldOf(ChannelKey key) noexcept { return fields[static_cast<std::size_t>(key)]; }

void putBytes(std::span<std::uint8_t> bytes, std::uint64_t value) noexcept {
    for (std::uint8_t& byte : bytes | std::views::reverse) {
        byte = static_cast<std::uint8_t>(value);
        value >>= 8U;
    }
}

[[nodiscard]] std::uint32_t bytesAt(std::span<const std::uint8_t> bytes) noexcept {
    std::uint32_t value = 0;
    for (const std::uint8_t byte : bytes) {
        value = value << 8U | byte;
    }
    return value;
}

// Integers outside are refused, never bent.
template <class Integer>
void putNumber(RecordImage& record, std::size_t at, double number) {
    const double rounded = base::roundHalfEven(number);
    if (!(rounded >= static_cast<double>(std::numeric_limits<Integer>::min()) &&
          rounded <= static_cast<double>(std::numeric_limits<Integer>::max()))) {
        throw base::Failure("is out of the radio's range");
    }
    putBytes(std::span(record).subspan(at, sizeof(Integer)),
             static_cast<std::uint64_t>(static_cast<std::int64_t>(rounded)));
}

[[nodiscard]] bool isCodeCharacter(std::uint8_t c) noexcept { return c > ' ' && c < 0x7F; }

void putCode(RecordImage& record, std::size_t at, const std::string& code) {
    if (code.size() > codeLength ||
        !std::ranges::all_of(code, [](char c) { return isCodeCharacter(static_cast<std::uint8_t>(c)); })) {
        throw base::Failure("is no code of the radio's");
    }
    const auto bytes = std::span(record).subspan(at, codeLength);
    std::ranges::fill(bytes, std::uint8_t{0});
    std::ranges::copy(code, bytes.begin());
}

[[nodiscard]] std::span<const std::uint8_t> codeAt(const RecordImage& record, std::size_t at) noexcept {
    return std::span(record).subspan(at, codeLength);
}

void putFlag(RecordImage& record, std::size_t bit, bool set) noexcept {
    const auto mask = static_cast<std::uint8_t>(1U << bit);
    auto& flags = record[flagByte];
    flags = static_cast<std::uint8_t>(set ? flags | mask : flags & ~mask);
}

constexpr double tenths = 10.0;

}  // namespace

void putInto(RecordImage& record, ChannelKey key, const base::Value& value) {
    const Field& field = fieldOf(key);
    switch (field.form) {
    case Form::Unsigned32:
        return putNumber<std::uint32_t>(record, field.at, base::toDouble(value));
    case Form::Signed32:
        return putNumber<std::int32_t>(record, field.at, base::toDouble(value));
    case Form::Tenths16:
        return putNumber<std::uint16_t>(record, field.at, base::toDouble(value) * tenths);
    case Form::Signed16:
        return putNumber<std::int16_t>(record, field.at, base::toDouble(value));
    case Form::Flag:
        return putFlag(record, field.at, base::isTrue(value));
    case Form::Code:
        return putCode(record, field.at, base::toText(value));
    }
}

base::Value valueIn(const RecordImage& record, ChannelKey key) {
    const Field& field = fieldOf(key);
    const auto bytes = std::span(record).subspan(field.form == Form::Flag ? flagByte : field.at);
    switch (field.form) {
    case Form::Unsigned32: {
        const std::uint32_t number = bytesAt(bytes.first(4));
        if (number <= static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max())) {
            return static_cast<std::int32_t>(number);
        }
        return static_cast<double>(number);
    }
    case Form::Signed32:
        return static_cast<std::int32_t>(bytesAt(bytes.first(4)));
    case Form::Tenths16:
        return static_cast<double>(bytesAt(bytes.first(2))) / tenths;
    case Form::Signed16:
        return static_cast<std::int16_t>(static_cast<std::uint16_t>(bytesAt(bytes.first(2))));
    case Form::Flag:
        return (unsigned{bytes.front()} >> field.at & 1U) != 0;
    case Form::Code:
        break;
    }
    const auto code = codeAt(record, field.at);
    return std::string(code.begin(), std::ranges::find(code, std::uint8_t{0}));
}

std::string defectOf(const RecordImage& record) {
    for (const Field& field : fields) {
        if (field.form != Form::Code) {
            continue;
        }
        const auto code = codeAt(record, field.at);
        const auto end = std::ranges::find(code, std::uint8_t{0});
        if (!std::all_of(code.begin(), end, isCodeCharacter) ||
            std::any_of(end, code.end(), [](auto c) { return c != 0; })) {
            return std::string(model::infoOf(field.key).name);
        }
    }
    return (record[flagByte] & unusedFlags) != 0 ? "its flags" : "";
}

TableImage emptyImage() {
    RecordImage empty{};
    for (const auto& info : model::channelKeys) {
        putInto(empty, info.key, model::emptyChannelValue(info.key));
    }
    return TableImage(imageCount, empty);
}

TableImage imageOf(model::DataStore& store) {
    TableImage image(imageCount);
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        for (const auto& info : model::channelKeys) {
            const base::Value value = store.readChannel(index, info.key);
            try {
                putInto(image[static_cast<std::size_t>(index)], info.key, value);
            } catch (const base::ConversionFailure&) {
                throw base::Failure("Channel " + std::to_string(index + 1) + ": " + std::string(info.name) +
                                    " is not a number");
            } catch (const base::Failure& failure) {
                throw base::Failure("Channel " + std::to_string(index + 1) + ": " + std::string(info.name) + " " +
                                    failure.description());
            }
        }
    }
    return image;
}

std::uint32_t checksumOf(const TableImage& image) noexcept {
    Crc32 crc;
    for (const RecordImage& record : image) {
        crc.add(record);
    }
    return crc.value();
}

std::vector<std::int16_t> differences(const TableImage& left, const TableImage& right) {
    std::vector<std::int16_t> channels;
    for (std::size_t at = 0; at < imageCount; ++at) {
        if (left[at] != right[at]) {
            channels.push_back(static_cast<std::int16_t>(at + 1));
        }
    }
    return channels;
}

std::string channelsText(const std::vector<std::int16_t>& channels) {
    std::vector<std::string> spans;
    for (std::size_t at = 0; at < channels.size();) {
        std::size_t last = at;
        while (last + 1 < channels.size() && channels[last + 1] == channels[last] + 1) {
            ++last;
        }
        if (last > at + 1) {
            spans.push_back(std::to_string(channels[at]) + " to " + std::to_string(channels[last]));
        } else {
            spans.push_back(std::to_string(channels[at]));
            last = at;
        }
        at = last + 1;
    }
    std::string text = channels.size() == 1 ? "channel " : "channels ";
    for (std::size_t at = 0; at < spans.size(); ++at) {
        text += at == 0 ? "" : (at + 1 == spans.size() ? " and " : ", ");
        text += spans[at];
    }
    return text;
}

}  // namespace telvar::radio
