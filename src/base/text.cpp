#include "base/text.h"

#include <algorithm>

namespace telvar::base {

namespace {

[[nodiscard]] char upper(char c) noexcept { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::string_view trimmed(std::string_view text) noexcept {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string upperCased(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), upper);
    return result;
}

bool equalIgnoringCase(std::string_view left, std::string_view right) noexcept {
    return std::ranges::equal(left, right, {}, upper, upper);
}

std::string replacedAll(std::string_view text, std::string_view what, std::string_view with) {
    if (what.empty()) {
        return std::string(text);
    }
    std::string result;
    for (auto found = text.find(what); found != std::string_view::npos; found = text.find(what)) {
        result.append(text.substr(0, found)).append(with);
        text.remove_prefix(found + what.size());
    }
    return result.append(text);
}

std::vector<std::string_view> splitAt(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (auto found = text.find(separator); found != std::string_view::npos; found = text.find(separator)) {
        parts.push_back(text.substr(0, found));
        text.remove_prefix(found + 1);
    }
    parts.push_back(text);
    return parts;
}

}  // namespace telvar::base
