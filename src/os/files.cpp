#include "os/files.h"

#include <algorithm>
#include <atomic>

#include "base/pinned.h"
#include "os/file_steps.h"

namespace telvar::os {

namespace {

[[nodiscard]] std::string_view folderOf(std::string_view path) noexcept {
    return path.substr(0, path.size() - fileName(path).size());
}

// A short name of its own, so that a file whose name is as long as names may be can still be replaced.
[[nodiscard]] std::string temporaryBeside(const std::string& path) {
    static std::atomic<unsigned> counter{0};
    std::string name;
    do {
        name = std::string(folderOf(path)) + ".telvar-" + std::to_string(steps::processNumber()) + "-" +
               std::to_string(counter++) + ".tmp";
    } while (fileExists(name));
    return name;
}

// Removes a temporary file unless it has got its final name.
class Temporary : private base::Pinned {
public:
    explicit Temporary(const std::string& beside) : name_(temporaryBeside(beside)) {}
    ~Temporary() { steps::removeQuietly(name_); }

    [[nodiscard]] const std::string& name() const noexcept { return name_; }

private:
    std::string name_;
};

[[nodiscard]] steps::Done keepOldFile(const std::string& path) {
    const Temporary kept(path);
    if (auto done = steps::keepAs(path, kept.name()); !done) {
        return done;
    }
    return steps::renameOver(kept.name(), path + ".bak");
}

[[nodiscard]] steps::Done replaceTarget(const std::string& target, std::string_view contents) {
    const bool exists = steps::kindOf(target) != steps::Kind::Nothing;
    if (exists) {
        if (auto done = steps::mayWrite(target); !done) {
            return done;
        }
    }
    const Temporary fresh(target);
    if (auto done = steps::writeThrough(fresh.name(), contents, target); !done) {
        return done;
    }
    if (exists) {
        if (const auto done = keepOldFile(target); !done) {
            return steps::Failed("The old file cannot be kept as " + std::string(fileName(target)) +
                                 ".bak: " + done.error());
        }
    }
    if (auto done = steps::renameOver(fresh.name(), target); !done) {
        return done;
    }
    steps::flushFolderOf(target);
    return {};
}

}  // namespace

std::expected<std::string, FileError> readWholeFile(const std::string& path, std::size_t limit) {
    if (steps::kindOf(path) == steps::Kind::Folder) {
        return std::unexpected(FileError{path, "Is a folder"});
    }
    auto contents = steps::read(path, limit);
    if (!contents) {
        return std::unexpected(FileError{path, contents.error()});
    }
    if (contents->size() > limit) {
        return std::unexpected(FileError{path, "Is larger than " + std::to_string(limit) + " bytes"});
    }
    return *std::move(contents);
}

std::expected<void, FileError> replaceFile(const std::string& path, std::string_view contents) {
    const auto target = steps::followLinks(path);
    if (!target) {
        return std::unexpected(FileError{path, target.error()});
    }
    switch (steps::kindOf(*target)) {
    case steps::Kind::Folder:
        return std::unexpected(FileError{path, "Is a folder"});
    case steps::Kind::Other:
        return std::unexpected(FileError{path, "Is not a regular file"});
    default:
        break;
    }
    if (const auto done = replaceTarget(*target, contents); !done) {
        return std::unexpected(FileError{path, done.error()});
    }
    return {};
}

std::expected<bool, FileError> createFile(const std::string& path, std::string_view contents) {
    const Temporary fresh(path);
    auto done = steps::writeThrough(fresh.name(), contents, path);
    if (done) {
        done = steps::keepAs(fresh.name(), path);
        if (!done && fileExists(path)) {
            return false;
        }
    }
    if (!done) {
        return std::unexpected(FileError{path, done.error()});
    }
    steps::flushFolderOf(path);
    return true;
}

bool fileExists(const std::string& path) { return steps::kindOf(path) != steps::Kind::Nothing; }

std::string_view fileName(std::string_view path) noexcept {
    const auto last = std::find_if(path.rbegin(), path.rend(), steps::isFolderSeparator);
    return path.substr(static_cast<std::size_t>(path.rend() - last));
}

std::string_view fileStem(std::string_view path) noexcept {
    const auto name = fileName(path);
    const auto dot = name.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? name : name.substr(0, dot);
}

std::string fileExtension(std::string_view path) {
    std::string extension(fileName(path).substr(fileStem(path).size()));
    std::ranges::transform(extension, extension.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return extension;
}

}  // namespace telvar::os
