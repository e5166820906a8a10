#include "cli/table_edit.h"

#include <utility>

#include "os/files.h"

namespace telvar::cli {

std::expected<TableEdit, os::FileError> TableEdit::begin(const Console& console, const std::string& path) {
    std::optional<os::FileLock> lock;
    if (path != standardStream) {
        auto acquired = os::FileLock::acquire(os::lockFileFor(path));
        if (!acquired) {
            return std::unexpected(acquired.error());
        }
        lock.emplace(*std::move(acquired));
    }
    auto contents = readTable(console, path);
    if (!contents) {
        return std::unexpected(contents.error());
    }
    TableEdit edit(path, std::move(lock));
    edit.contents = *std::move(contents);
    auto before = edit.text(console);
    if (!before) {
        return std::unexpected(before.error());
    }
    edit.before_ = *std::move(before);
    return edit;
}

std::expected<bool, os::FileError> TableEdit::finish(const Console& console) const {
    const auto after = text(console);
    if (!after) {
        return std::unexpected(after.error());
    }
    if (path_ == standardStream) {
        console.out << *after;
    } else if (*after != before_) {
        if (const auto done = os::replaceFile(path_, *after); !done) {
            return std::unexpected(done.error());
        }
    }
    return *after != before_;
}

// begin() has read the file, so its format is known.
std::expected<std::string, os::FileError> TableEdit::text(const Console& console) const {
    return textOf(console, shownName(path_, "standard output"), contents, formatOf(path_).value());
}

}  // namespace telvar::cli
