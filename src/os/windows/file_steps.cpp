#include "os/file_steps.h"

#include <windows.h>

#include <vector>

#include "win/failure.h"
#include "win/files.h"
#include "win/handle.h"
#include "win/text.h"

namespace telvar::os::steps {

namespace {

[[nodiscard]] Failed failureOf(DWORD code) { return Failed(win::errorText(code)); }

[[nodiscard]] Failed lastFailure() { return failureOf(::GetLastError()); }

[[nodiscard]] Done told(const win::Done& done) {
    if (!done) {
        return failureOf(done.error());
    }
    return {};
}

}  // namespace

Kind kindOf(const std::string& path) {
    const auto attributes = ::GetFileAttributesW(win::widePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return Kind::Nothing;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return Kind::Folder;
    }
    return (attributes & FILE_ATTRIBUTE_DEVICE) != 0 ? Kind::Other : Kind::File;
}

bool isFolderSeparator(char c) noexcept { return c == '\\' || c == '/' || c == ':'; }

std::expected<std::string, std::string> followLinks(const std::string& path) {
    const auto asked = win::widePath(path);
    const auto real = win::followLinks(asked);
    if (!real) {
        return failureOf(real.error());
    }
    return *real == asked ? path : win::narrow(*real);
}

Done mayWrite(const std::string& path) { return told(win::mayWrite(win::widePath(path))); }

std::expected<std::string, std::string> read(const std::string& path, std::size_t limit) {
    const win::Handle file(::CreateFileW(win::widePath(path).c_str(), GENERIC_READ,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                         0, nullptr));
    if (!file) {
        return lastFailure();
    }
    std::string contents;
    std::vector<char> part(65536);
    while (contents.size() <= limit) {
        DWORD got = 0;
        if (::ReadFile(file.get(), part.data(), static_cast<DWORD>(part.size()), &got, nullptr) == 0) {
            // The writing end of a pipe was closed: that is the end.
            if (::GetLastError() == ERROR_BROKEN_PIPE) {
                break;
            }
            return lastFailure();
        }
        if (got == 0) {
            break;
        }
        contents.append(part.data(), got);
    }
    return contents;
}

unsigned long processNumber() { return ::GetCurrentProcessId(); }

Done writeThrough(const std::string& path, std::string_view contents, const std::string& /*model*/) {
    return told(win::writeThrough(win::widePath(path), contents));
}

Done keepAs(const std::string& path, const std::string& copy) {
    if (::CreateHardLinkW(win::widePath(copy).c_str(), win::widePath(path).c_str(), nullptr) != 0 ||
        ::CopyFileW(win::widePath(path).c_str(), win::widePath(copy).c_str(), TRUE) != 0) {
        return {};
    }
    return lastFailure();
}

Done renameOver(const std::string& from, const std::string& to) {
    return told(win::renameOver(win::widePath(from), win::widePath(to)));
}

// The renames were written through.
void flushFolderOf(const std::string& /*path*/) noexcept {}

void removeQuietly(const std::string& path) noexcept { win::removeQuietly(win::widePath(path)); }

}  // namespace telvar::os::steps
