// One change of a table by a command: read, changed in memory, and written back whole. Programs that change the same
// file at the same time wait for each other, so that no change is lost.
#pragma once

#include <expected>
#include <optional>
#include <string>

#include "cli/console.h"
#include "cli/table_files.h"
#include "os/file_lock.h"
#include "store/table_contents.h"

namespace telvar::cli {

class TableEdit {
public:
    // A standard stream carries a table from the input to the output.
    [[nodiscard]] static std::expected<TableEdit, os::FileError> begin(const Console& console, const std::string& path);

    store::TableContents contents;

    // Replaces the file where its text would differ, and answers whether it did; a standard stream is always written.
    [[nodiscard]] std::expected<bool, os::FileError> finish(const Console& console) const;

private:
    TableEdit(std::string path, std::optional<os::FileLock> lock) : path_(std::move(path)), lock_(std::move(lock)) {}

    [[nodiscard]] std::expected<std::string, os::FileError> text(const Console& console) const;

    std::string path_;
    std::optional<os::FileLock> lock_;
    std::string before_;  // as the table stands when nothing was changed
};

}  // namespace telvar::cli
