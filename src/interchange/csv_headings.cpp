#include "interchange/csv_headings.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "interchange/csv_writer.h"
#include "interchange/key_text.h"
#include "store/json_text.h"

namespace telvar::interchange {

namespace {

using model::ChannelKey;

struct CellKeys {
    std::array<ChannelKey, 4> keys{};
    std::size_t count = 0;

    template <class... Keys>
    constexpr CellKeys(Keys... list) : keys{list...}, count(sizeof...(list)) {}
};

constexpr std::array<CellKeys, editing::columnCount> cellKeys{{
    {},
    {ChannelKey::TxFreq},
    {ChannelKey::RxFreq},
    {ChannelKey::TxCTCSSDCS, ChannelKey::TxDCSIndex, ChannelKey::TxSub},
    {ChannelKey::RxCTCSSDCS, ChannelKey::RxDCSIndex, ChannelKey::RxSub, ChannelKey::ModeBits},
    {ChannelKey::ModeBits, ChannelKey::p25RepeaterEnable},
    {ChannelKey::scan},
    {ChannelKey::ModeBits},
    {ChannelKey::P25TransmitMode, ChannelKey::ModeBits},
    {ChannelKey::TxPower},
    {ChannelKey::RefOscFreq},
    {ChannelKey::VCODev},
    {ChannelKey::RefOscDev},
    {ChannelKey::NBRefOscFreq},
    {ChannelKey::NBVCODev},
    {ChannelKey::NBRefOscDev},
    {ChannelKey::TxLevel},
    {ChannelKey::SynthStep},
    {ChannelKey::BinMain},
    {ChannelKey::Modulo},
    {ChannelKey::RxSynthStep},
    {ChannelKey::RxBinMain},
    {ChannelKey::RxModulo},
    {ChannelKey::ModeBits, ChannelKey::p25RepeaterEnable},
    {ChannelKey::P25TalkgroupID},
    {ChannelKey::P25TxNetworkAccessCode},
    {ChannelKey::P25RxNetworkAccessCode},
}};

[[nodiscard]] std::optional<std::size_t> columnHeaded(std::string_view heading) {
    for (std::size_t column = 1; column < editing::columnCount; ++column) {
        if (editing::columns[column].header == heading) {
            return column;
        }
    }
    return std::nullopt;
}

// Where the place of a heading is kept; null for a heading that names nothing. Of a name that a cell and a key share,
// the first column is the cell.
[[nodiscard]] std::optional<std::size_t>* placeOf(std::string_view heading, CsvHeadings& headings) {
    const auto column = columnHeaded(heading);
    const auto key = model::channelKeyNamed(heading);
    if (column && !(key && headings.cell[*column])) {
        return &headings.cell[*column];
    }
    return key ? &headings.key[static_cast<std::size_t>(*key)] : nullptr;
}

// A cell that stands alone and has the name of a key is the key.
void settleSharedName(CsvHeadings& headings) {
    const auto given = [](const std::optional<std::size_t>& place) { return place.has_value(); };
    const auto cell = std::ranges::find_if(headings.cell, given);
    if (std::ranges::count_if(headings.cell, given) != 1) {
        return;
    }
    const auto& heading = editing::columns[static_cast<std::size_t>(cell - headings.cell.begin())].header;
    if (const auto key = model::channelKeyNamed(heading)) {
        headings.key[static_cast<std::size_t>(*key)] = std::exchange(*cell, std::nullopt);
    }
}

[[nodiscard]] std::string missingColumn(std::string_view heading) {
    return "the column " + store::jsonQuoted(heading) + " is missing";
}

// What a table needs and the headings do not have.
[[nodiscard]] std::optional<std::string> lacking(const CsvHeadings& headings) {
    const auto given = [](const std::optional<std::size_t>& place) { return place.has_value(); };
    const auto cell = std::find_if_not(headings.cell.begin() + 1, headings.cell.end(), given);
    const auto key = std::ranges::find_if_not(headings.key, given);
    if (cell == headings.cell.end() || key == headings.key.end()) {
        return std::nullopt;
    }
    const auto& heading = editing::columns[static_cast<std::size_t>(cell - headings.cell.begin())].header;
    const auto& name = model::channelKeys[static_cast<std::size_t>(key - headings.key.begin())].name;
    return missingColumn(heading) + ", and so is the key " + store::jsonQuoted(name) +
           "; a table needs all columns of the grid or all keys";
}

}  // namespace

std::expected<CsvHeadings, std::string> readHeadings(const CsvRecord& record) {
    CsvHeadings headings{.count = record.fields.size()};
    std::optional<std::size_t> channel;
    for (std::size_t at = 0; at < record.fields.size(); ++at) {
        const auto heading = base::trimmed(record.fields[at].text);
        if (heading.empty()) {
            headings.unnamed.push_back(at);
            continue;
        }
        auto* place = heading == channelHeading ? &channel : placeOf(heading, headings);
        if (place == nullptr) {
            return std::unexpected("there is no column " + quotedStart(heading));
        }
        if (place->has_value()) {
            return std::unexpected("the column " + store::jsonQuoted(heading) + " is there twice");
        }
        *place = at;
    }
    if (!channel) {
        return std::unexpected(missingColumn(channelHeading));
    }
    headings.channel = *channel;
    settleSharedName(headings);
    const auto lack = lacking(headings);
    return lack ? std::expected<CsvHeadings, std::string>(std::unexpected(*lack)) : headings;
}

std::span<const ChannelKey> keysOfCell(std::int16_t column) noexcept {
    const auto& entry = cellKeys[static_cast<std::size_t>(column)];
    return std::span(entry.keys).first(entry.count);
}

}  // namespace telvar::interchange
