#include "interchange/csv_writer.h"

#include "base/failure.h"
#include "base/text.h"
#include "interchange/key_text.h"
#include "interchange/row_cells.h"
#include "model/memory_data_store.h"
#include "store/json_text.h"

namespace telvar::interchange {

namespace {

using KeyTexts = std::array<std::string, model::channelKeyCount>;

// An empty text is quoted: nothing at all between two commas is no value to whoever reads it.
[[nodiscard]] std::string field(std::string_view text) {
    const bool plain =
        !text.empty() && text.find_first_of(",\"\r\n") == std::string_view::npos && base::trimmed(text) == text;
    return plain ? std::string(text) : "\"" + base::replacedAll(text, "\"", "\"\"") + "\"";
}

template <class Texts>
void append(std::string& line, const Texts& texts) {
    for (const std::string_view text : texts) {
        if (!line.empty()) {
            line += ',';
        }
        line += field(text);
    }
}

[[nodiscard]] std::string headings() {
    std::string line(channelHeading);
    for (std::size_t column = 1; column < editing::columnCount; ++column) {
        line += "," + field(editing::columns[column].header);
    }
    for (const auto& info : model::channelKeys) {
        line += "," + field(info.name);
    }
    return line + "\r\n";
}

[[nodiscard]] std::expected<KeyTexts, std::string> keyTexts(model::DataStore& store, std::int16_t channel,
                                                            const base::NumberFormat& format) {
    KeyTexts texts;
    for (const auto& info : model::channelKeys) {
        auto text = keyText(info.kind, store.channel(channel).get(info.key), format);
        if (!text) {
            return std::unexpected(store::jsonQuoted(info.name) + " " + text.error());
        }
        if (text->find('\0') != std::string::npos) {
            return std::unexpected(store::jsonQuoted(info.name) + " holds a zero byte, which CSV cannot carry");
        }
        texts[static_cast<std::size_t>(info.key)] = *std::move(text);
    }
    return texts;
}

[[nodiscard]] KeyTexts emptyKeyTexts(const base::NumberFormat& format) {
    model::MemoryDataStore empty;
    return keyTexts(empty, 1, format).value();
}

// A frequency that is no frequency cannot be shown; its key holds it all the same.
[[nodiscard]] RowCells cellsOf(model::DataStore& store, std::int16_t channel, const base::NumberFormat& format) {
    try {
        return rowCells(store, channel, format);
    } catch (const base::Failure&) {
        return {std::to_string(channel)};
    }
}

// The line of a channel, empty for an empty one.
[[nodiscard]] std::expected<std::string, std::string>
channelLine(model::DataStore& store, std::int16_t channel, const KeyTexts& empty, const base::NumberFormat& format) {
    std::string line;
    try {
        const auto keys = keyTexts(store, channel, format);
        if (!keys) {
            return std::unexpected(keys.error());
        }
        if (*keys != empty) {
            append(line, cellsOf(store, channel, format));
            append(line, *keys);
            line += "\r\n";
        }
    } catch (const base::Failure& failure) {
        return std::unexpected(failure.description());
    }
    return line;
}

}  // namespace

std::expected<std::string, std::string> csvText(model::DataStore& store, const base::NumberFormat& format) {
    const auto empty = emptyKeyTexts(format);
    auto text = headings();
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        const auto line = channelLine(store, channel, empty, format);
        if (!line) {
            return std::unexpected("channel " + std::to_string(channel) + ": " + line.error());
        }
        text += *line;
    }
    return text;
}

}  // namespace telvar::interchange
