#include "radio/image_file.h"

#include <filesystem>

#include "base/text.h"
#include "os/clock.h"
#include "os/files.h"
#include "os/folders.h"
#include "radio/bytes.h"
#include "radio/hexadecimal.h"

namespace telvar::radio {

namespace {

constexpr std::string_view firstLine = "telvar-radio-table 1";
constexpr std::string_view checksumWord = "checksum ";
constexpr std::size_t largestFile = 1U << 20U;

[[nodiscard]] std::string checksumText(const TableImage& image) {
    Bytes bytes;
    ByteWriter(bytes).u32(checksumOf(image));
    return hexadecimal(bytes);
}

[[nodiscard]] std::filesystem::path pathOf(std::string_view text) { return {std::u8string(text.begin(), text.end())}; }

[[nodiscard]] std::string textOf(const std::filesystem::path& path) {
    const auto text = path.u8string();
    return {text.begin(), text.end()};
}

[[nodiscard]] std::expected<std::filesystem::path, os::FileError> backupFolder(const std::string& folder) {
    auto chosen = pathOf(folder);
    if (chosen.empty()) {
        const auto state = os::userStateFolder();
        if (!state) {
            return std::unexpected(state.error());
        }
        chosen = pathOf(*state) / "radio-backups";
    }
    std::error_code error;
    std::filesystem::create_directories(chosen, error);
    if (error) {
        return std::unexpected(os::FileError{textOf(chosen), error.message()});
    }
    return chosen;
}

}  // namespace

std::string imageText(const TableImage& image) {
    std::string text = std::string(firstLine) + "\n";
    for (std::size_t at = 0; at < image.size(); ++at) {
        text += std::to_string(at + 1) + " " + hexadecimal(image[at]) + "\n";
    }
    return text + std::string(checksumWord) + checksumText(image) + "\n";
}

std::expected<TableImage, std::string> parseImage(std::string_view text) {
    const auto lines = base::splitAt(text, '\n');
    if (lines.front() != firstLine) {
        return std::unexpected("Is not a table of a radio");
    }
    // The title, the channels, the checksum, and nothing behind the last line's end.
    if (lines.size() != imageCount + 3 || !lines.back().empty()) {
        return std::unexpected("Does not hold " + std::to_string(imageCount) + " channels");
    }
    TableImage image(imageCount);
    for (std::size_t at = 0; at < imageCount; ++at) {
        const auto number = std::to_string(at + 1);
        const auto line = lines[at + 1];
        if (!line.starts_with(number + " ") || !readHexadecimal(line.substr(number.size() + 1), image[at])) {
            return std::unexpected("Is damaged at channel " + number);
        }
    }
    if (lines[imageCount + 1] != std::string(checksumWord) + checksumText(image)) {
        return std::unexpected("Does not match its checksum");
    }
    return image;
}

std::expected<TableImage, os::FileError> loadImage(const std::string& path) {
    const auto text = os::readWholeFile(path, largestFile);
    if (!text) {
        return std::unexpected(text.error());
    }
    auto image = parseImage(*text);
    if (!image) {
        return std::unexpected(os::FileError{path, image.error()});
    }
    return *std::move(image);
}

std::expected<void, os::FileError> saveImage(const std::string& path, const TableImage& image) {
    return os::replaceFile(path, imageText(image));
}

std::expected<std::string, os::FileError> saveDated(const std::string& folder, const TableImage& image) {
    const auto place = backupFolder(folder);
    if (!place) {
        return std::unexpected(place.error());
    }
    // Colons are no part of a file's name on every system.
    const auto stem = textOf(*place / ("radio " + base::replacedAll(os::isoText(os::localTime()), ":", ".")));
    const auto text = imageText(image);
    for (int number = 1;; ++number) {
        auto path = stem + (number == 1 ? "" : " (" + std::to_string(number) + ")") + std::string(imageExtension);
        const auto created = os::createFile(path, text);
        if (!created) {
            return std::unexpected(created.error());
        }
        if (*created) {
            return path;
        }
    }
}

}  // namespace telvar::radio
