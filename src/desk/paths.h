// Parts of a path, as far as its text tells: both kinds of slash part it.
#pragma once

#include <string>
#include <string_view>

namespace telvar::desk {

// Behind the last slash.
[[nodiscard]] constexpr std::string_view fileNameOf(std::string_view path) noexcept {
    return path.substr(path.find_last_of("\\/") + 1);
}

// The last slash; a backslash where there is none.
[[nodiscard]] constexpr char separatorOf(std::string_view path) noexcept {
    const std::size_t at = path.find_last_of("\\/");
    return at == std::string_view::npos ? '\\' : path[at];
}

// "C:\tables\marine" of "C:\tables\marine.telvar".
[[nodiscard]] constexpr std::string_view withoutExtension(std::string_view path) noexcept {
    const std::size_t dot = fileNameOf(path).find_last_of('.');
    return dot == std::string_view::npos ? path : path.substr(0, path.size() - fileNameOf(path).size() + dot);
}

}  // namespace telvar::desk
