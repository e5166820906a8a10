#include "os/file_steps.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <memory>

#include "os/posix/descriptor.h"

namespace telvar::os::steps {

namespace {

[[nodiscard]] Done writeAll(int file, std::string_view contents) {
    while (!contents.empty()) {
        const auto written = ::write(file, contents.data(), contents.size());
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            return Failed(errorText(errno));
        }
        contents.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

[[nodiscard]] Done writeAndFlush(Descriptor file, std::string_view contents, const struct stat* rights) {
    if (rights != nullptr && ::fchmod(file.get(), rights->st_mode & 07777U) != 0) {
        return Failed(errorText(errno));
    }
    if (auto done = writeAll(file.get(), contents); !done) {
        return done;
    }
    if (::fsync(file.get()) != 0 || ::close(file.release()) != 0) {
        return Failed(errorText(errno));
    }
    return {};
}

}  // namespace

Kind kindOf(const std::string& path) {
    struct stat status{};
    if (::stat(path.c_str(), &status) != 0) {
        // A link to nothing is something all the same.
        return ::lstat(path.c_str(), &status) == 0 ? Kind::Other : Kind::Nothing;
    }
    if (S_ISREG(status.st_mode)) {
        return Kind::File;
    }
    return S_ISDIR(status.st_mode) ? Kind::Folder : Kind::Other;
}

bool isFolderSeparator(char c) noexcept { return c == '/'; }

std::expected<std::string, std::string> followLinks(const std::string& path) {
    struct stat status{};
    if (::lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode)) {
        return path;
    }
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
    if (!real) {
        return Failed(errno == ENOENT ? "Is a link to a file that does not exist" : errorText(errno));
    }
    return std::string(real.get());
}

Done mayWrite(const std::string& path) {
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) {
        return Failed(errorText(errno));
    }
    return {};
}

std::expected<std::string, std::string> read(const std::string& path, std::size_t limit) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) {
        return Failed(errorText(errno));
    }
    std::string contents;
    std::array<char, 65536> part{};
    while (contents.size() <= limit) {
        const auto got = ::read(file.get(), part.data(), part.size());
        if (got < 0) {
            if (errno == EINTR) {
                continue;
            }
            return Failed(errorText(errno));
        }
        if (got == 0) {
            break;
        }
        contents.append(part.data(), static_cast<std::size_t>(got));
    }
    return contents;
}

unsigned long processNumber() { return static_cast<unsigned long>(::getpid()); }

Done writeThrough(const std::string& path, std::string_view contents, const std::string& model) {
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file) {
        return Failed(errorText(errno));
    }
    struct stat rights{};
    const bool known = ::stat(model.c_str(), &rights) == 0;
    auto done = writeAndFlush(std::move(file), contents, known ? &rights : nullptr);
    if (!done) {
        removeQuietly(path);
    }
    return done;
}

Done keepAs(const std::string& path, const std::string& copy) {
    if (::link(path.c_str(), copy.c_str()) == 0) {
        return {};
    }
    const auto contents = read(path, static_cast<std::size_t>(-1) / 2);
    if (!contents) {
        return Failed(contents.error());
    }
    return writeThrough(copy, *contents, path);
}

Done renameOver(const std::string& from, const std::string& to) {
    if (::rename(from.c_str(), to.c_str()) != 0) {
        return Failed(errorText(errno));
    }
    return {};
}

void flushFolderOf(const std::string& path) noexcept {
    const auto end = path.rfind('/');
    const Descriptor folder(end == std::string::npos
                                ? ::open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)
                                : ::open(std::string(path, 0, end + 1).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder) {
        ::fsync(folder.get());
    }
}

void removeQuietly(const std::string& path) noexcept { ::unlink(path.c_str()); }

}  // namespace telvar::os::steps
