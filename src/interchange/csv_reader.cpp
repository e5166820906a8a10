#include "interchange/csv_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "base/failure.h"
#include "base/text.h"
#include "editing/cell_storing.h"
#include "editing/validators.h"
#include "interchange/csv_headings.h"
#include "interchange/csv_records.h"
#include "interchange/csv_writer.h"
#include "interchange/key_text.h"
#include "model/memory_data_store.h"
#include "store/json_text.h"

namespace telvar::interchange {

namespace {

// Far more than any table has, so that a file of something else is refused early.
constexpr std::size_t mostHeadings = 256;

// What is wrong with a row, if anything is.
using Problem = std::optional<std::string>;

[[nodiscard]] std::optional<std::int16_t> channelIn(std::string_view text) {
    const auto number = base::trimmed(text);
    std::int16_t channel = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), channel);
    const bool whole = error == std::errc() && end == number.data() + number.size();
    return whole && channel >= 1 && channel <= model::channelCount ? std::optional(channel) : std::nullopt;
}

// A code is whatever text the table holds; everything else is what people may type.
[[nodiscard]] std::expected<base::Value, Refusal> keyValue(model::KeyKind kind, std::string_view text,
                                                           const base::NumberFormat& format) {
    return kind == model::KeyKind::Code ? base::textValue(text) : readKeyText(kind, text, format);
}

class Reader {
public:
    Reader(const CsvHeadings& headings, const store::TableContents& around, const base::NumberFormat& format)
        : headings_(headings), format_(format) {
        store::TableContents empty = store::emptyTable();
        empty.radio = around.radio;
        empty.referenceDividerScaling = around.referenceDividerScaling;
        store::putInto(table_, empty);
    }

    [[nodiscard]] Problem take(const CsvRecord& record) {
        if (std::ranges::all_of(record.fields, &CsvField::missing)) {
            return std::nullopt;
        }
        if (record.fields.size() != headings_.count) {
            return "has " + std::to_string(record.fields.size()) + " fields where the first line has " +
                   std::to_string(headings_.count);
        }
        const auto& number = record.fields[headings_.channel].text;
        const auto channel = channelIn(number);
        if (!channel) {
            return store::jsonQuoted(channelHeading) + " must be a number of 1 to 255, not " + quotedStart(number);
        }
        auto problem = takeChannel(record, *channel);
        return problem ? "channel " + std::to_string(*channel) + ": " + *problem : problem;
    }

    [[nodiscard]] std::vector<store::ChannelValues> channels() { return store::contentsOf(table_).channels; }

private:
    [[nodiscard]] Problem takeChannel(const CsvRecord& record, std::int16_t channel) {
        int& line = lines_[static_cast<std::size_t>(channel)];
        if (line != 0) {
            return "is there twice, first in line " + std::to_string(line);
        }
        line = record.line;
        for (const auto at : headings_.unnamed) {
            if (!record.fields[at].missing()) {
                return "column " + std::to_string(at + 1) + " has no heading but holds " +
                       quotedStart(record.fields[at].text);
            }
        }
        // Cells combine several keys, so that a key's own value has to come last.
        auto problem = takeCells(record, channel);
        return problem ? problem : takeKeys(record, channel);
    }

    [[nodiscard]] bool isGiven(const CsvRecord& record, model::ChannelKey key) const {
        const auto at = headings_.key[static_cast<std::size_t>(key)];
        return at && !record.fields[*at].missing();
    }

    // From left to right, each stored before the next is validated.
    [[nodiscard]] Problem takeCells(const CsvRecord& record, std::int16_t channel) {
        for (std::int16_t column = 1; column <= editing::lastColumn; ++column) {
            const auto at = headings_.cell[static_cast<std::size_t>(column)];
            const auto given = [&](model::ChannelKey key) { return isGiven(record, key); };
            if (!at || std::ranges::all_of(keysOfCell(column), given)) {
                continue;
            }
            if (auto problem = takeCell(column, channel, record.fields[*at].text)) {
                return store::jsonQuoted(editing::columns[static_cast<std::size_t>(column)].header) + ": " + *problem;
            }
        }
        return std::nullopt;
    }

    [[nodiscard]] Problem takeCell(std::int16_t column, std::int16_t channel, std::string_view text) {
        const auto cell = base::trimmed(text);
        if (cell == editing::noValue) {
            return std::nullopt;
        }
        const editing::CellContext context{.store = table_, .channel = channel, .format = format_};
        try {
            auto error = editing::validateCell(context, column, cell);
            if (!error.empty()) {
                return error;
            }
            editing::storeCell(context, column, cell);
        } catch (const base::Failure& failure) {
            return failure.description();
        }
        return std::nullopt;
    }

    [[nodiscard]] Problem takeKeys(const CsvRecord& record, std::int16_t channel) {
        for (const auto& info : model::channelKeys) {
            if (!isGiven(record, info.key)) {
                continue;
            }
            const auto& text = record.fields[*headings_.key[static_cast<std::size_t>(info.key)]].text;
            const auto value = keyValue(info.kind, text, format_);
            if (!value) {
                return store::jsonQuoted(info.name) + " " + value.error();
            }
            table_.channel(channel).put(info.key, *value);
        }
        return std::nullopt;
    }

    const CsvHeadings& headings_;
    base::NumberFormat format_;
    model::MemoryDataStore table_;
    std::array<int, static_cast<std::size_t>(model::channelCount) + 1> lines_{};  // by channel; 0: not seen yet
};

[[nodiscard]] std::unexpected<std::string> refusedIn(int line, const std::string& what) {
    return std::unexpected("line " + std::to_string(line) + ": " + what);
}

}  // namespace

std::expected<store::TableContents, std::string> readCsv(std::string_view text, const store::TableContents& around,
                                                         const base::NumberFormat& format) {
    if (auto refusal = refusedBytes(text)) {
        return std::unexpected(*std::move(refusal));
    }
    CsvRecords records(text);
    auto record = records.next(mostHeadings);
    if (!record) {
        return std::unexpected(record.error());
    }
    if (!*record) {
        return std::unexpected("is empty; a table begins with its headings");
    }
    const auto headings = readHeadings(**record);
    if (!headings) {
        return refusedIn((*record)->line, headings.error());
    }
    Reader reader(*headings, around, format);
    while ((record = records.next(headings->count)) && *record) {
        if (const auto problem = reader.take(**record)) {
            return refusedIn((*record)->line, *problem);
        }
    }
    if (!record) {
        return std::unexpected(record.error());
    }
    auto contents = around;
    contents.channels = reader.channels();
    return contents;
}

}  // namespace telvar::interchange
