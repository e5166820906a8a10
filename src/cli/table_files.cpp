#include "cli/table_files.h"

#include <array>
#include <bitset>
#include <charconv>
#include <vector>

#include "base/text.h"
#include "interchange/csv_reader.h"
#include "interchange/csv_writer.h"
#include "os/files.h"
#include "store/table_file.h"

namespace telvar::cli {

namespace {

constexpr std::string_view standardInput = "standard input";
constexpr std::string_view standardOutput = "standard output";

using Text = std::expected<std::string, os::FileError>;

[[nodiscard]] Text readStream(std::istream& in) {
    std::string text;
    std::array<char, 65536> part{};
    while (in.read(part.data(), part.size()) || in.gcount() > 0) {
        text.append(part.data(), static_cast<std::size_t>(in.gcount()));
        if (text.size() > store::largestTableFile) {
            return std::unexpected(os::FileError{
                std::string(standardInput), "Is larger than " + std::to_string(store::largestTableFile) + " bytes"});
        }
    }
    if (in.bad()) {
        return std::unexpected(os::FileError{std::string(standardInput), "Cannot be read"});
    }
    return text;
}

// A channel number at the beginning of the text, which is shortened by it.
[[nodiscard]] std::optional<std::int16_t> takeChannel(std::string_view& text) {
    std::int16_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || number < 1 || number > model::channelCount) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

}  // namespace

std::optional<FileFormat> formatOf(const std::string& path) {
    if (path == standardStream) {
        return FileFormat::Table;
    }
    const auto extension = os::fileExtension(path);
    if (extension == store::tableExtension) {
        return FileFormat::Table;
    }
    return extension == ".csv" ? std::optional(FileFormat::Csv) : std::nullopt;
}

std::expected<std::string, os::FileError> readText(const Console& console, const std::string& path) {
    return path == standardStream ? readStream(console.in) : os::readWholeFile(path, store::largestTableFile);
}

std::expected<store::TableContents, os::FileError> readTable(const Console& console, const std::string& path) {
    const auto format = formatOf(path);
    if (!format) {
        return std::unexpected(os::FileError{path, "The name must end in .telvar or .csv"});
    }
    if (*format == FileFormat::Csv) {
        return readCsvTable(console, path, store::emptyTable());
    }
    const auto text = readText(console, path);
    return text ? store::parseTable(*text, shownName(path, standardInput)) : std::unexpected(text.error());
}

std::expected<store::TableContents, os::FileError> readCsvTable(const Console& console, const std::string& path,
                                                                const store::TableContents& around) {
    const auto text = readText(console, path);
    if (!text) {
        return std::unexpected(text.error());
    }
    auto contents = interchange::readCsv(*text, around, console.format);
    if (!contents) {
        return std::unexpected(os::FileError{shownName(path, standardInput), contents.error()});
    }
    return *std::move(contents);
}

std::expected<std::string, os::FileError> textOf(const Console& console, const std::string& name,
                                                 const store::TableContents& contents, FileFormat format) {
    if (format == FileFormat::Table) {
        return store::tableText(contents, name);
    }
    model::MemoryDataStore table;
    store::putInto(table, contents);
    auto text = interchange::csvText(table, console.format);
    return text ? Text(*std::move(text)) : std::unexpected(os::FileError{name, text.error()});
}

std::expected<void, os::FileError> writeTable(const Console& console, const std::string& path,
                                              const store::TableContents& contents, FileFormat format) {
    const auto text = textOf(console, shownName(path, standardOutput), contents, format);
    if (!text) {
        return std::unexpected(text.error());
    }
    if (path == standardStream) {
        console.out << *text;
        return {};
    }
    return os::replaceFile(path, *text);
}

std::optional<std::vector<std::int16_t>> channelList(std::string_view text) {
    std::bitset<static_cast<std::size_t>(model::channelCount) + 1> named;
    for (auto part : base::splitAt(text, ',')) {
        const auto first = takeChannel(part);
        auto last = first;
        if (first && part.starts_with('-')) {
            part.remove_prefix(1);
            last = takeChannel(part);
        }
        if (!first || !last || *last < *first || !part.empty()) {
            return std::nullopt;
        }
        for (auto number = *first; number <= *last; ++number) {
            named.set(static_cast<std::size_t>(number));
        }
    }
    std::vector<std::int16_t> numbers;
    for (std::int16_t number = 1; number <= model::channelCount; ++number) {
        if (named[static_cast<std::size_t>(number)]) {
            numbers.push_back(number);
        }
    }
    return numbers;
}

std::string shownName(const std::string& path, std::string_view stream) {
    return path == standardStream ? std::string(stream) : path;
}

}  // namespace telvar::cli
