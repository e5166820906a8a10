#include "store/table_file.h"

#include "os/files.h"

namespace telvar::store {

std::expected<TableContents, os::FileError> loadTable(const std::string& path) {
    const auto text = os::readWholeFile(path, largestTableFile);
    if (!text) {
        return std::unexpected(text.error());
    }
    return parseTable(*text, path);
}

std::expected<void, os::FileError> saveTable(const std::string& path, const TableContents& contents) {
    const auto text = tableText(contents, path);
    if (!text) {
        return std::unexpected(text.error());
    }
    return os::replaceFile(path, *text);
}

}  // namespace telvar::store
