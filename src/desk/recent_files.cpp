#include "desk/recent_files.h"

#include <algorithm>
#include <string_view>

#include "desk/paths.h"

namespace telvar::desk {

namespace {

constexpr std::size_t longestMenuPath = 60;  // characters
constexpr std::string_view gap = "...";

bool beginsCharacter(char byte) noexcept { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

std::size_t charactersIn(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, beginsCharacter));
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    for (std::size_t seen = 0; end < text.size(); ++end) {
        if (beginsCharacter(text[end]) && seen++ == count) {
            break;
        }
    }
    return text.substr(0, end);
}

// As much of the path's beginning as there is room for, a gap, and its last part; that alone, cut if need be, where it
// leaves no room.
std::string shortened(const std::string& path) {
    if (charactersIn(path) <= longestMenuPath) {
        return path;
    }
    const std::string_view name = fileNameOf(path);
    const std::size_t taken = gap.size() + 1 + charactersIn(name);
    if (taken <= longestMenuPath) {
        return std::string(firstCharacters(path, longestMenuPath - taken)).append(gap) + separatorOf(path) +
               std::string(name);
    }
    return charactersIn(name) <= longestMenuPath
               ? std::string(name)
               : std::string(firstCharacters(name, longestMenuPath - gap.size())).append(gap);
}

}  // namespace

std::vector<std::string> RecentFiles::paths() const {
    std::vector<std::string> result = setting::recentFiles.in(settings_);
    result.resize(std::min(result.size(), limit));
    return result;
}

std::vector<std::string> RecentFiles::without(const std::string& path) const {
    std::vector<std::string> list = paths();
    std::erase_if(list, [&](const std::string& each) { return system_.samePath(each, path); });
    return list;
}

void RecentFiles::add(const std::string& path) {
    std::vector<std::string> list = without(path);
    list.insert(list.begin(), path);
    list.resize(std::min(list.size(), limit));
    settings_.setList(setting::recentFiles.name, list);
}

void RecentFiles::remove(const std::string& path) { settings_.setList(setting::recentFiles.name, without(path)); }

std::string RecentFiles::menuText(std::size_t index, const std::string& path) {
    std::string result = "&" + std::to_string(index + 1) + " ";
    for (const char letter : shortened(path)) {
        result += letter;
        if (letter == '&') {
            result += '&';
        }
    }
    return result;
}

}  // namespace telvar::desk
