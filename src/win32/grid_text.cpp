#include "win32/grid_text.h"

#include <algorithm>

#include "ui/geometry.h"

namespace telvar::win32 {

namespace {

constexpr std::wstring_view dots = L"...";

// Pixels at the standard number of dots per inch. The small one also stands beside headers, since the published column
// widths leave little room for them; they are centred anyway.
constexpr int usualInset = 3;
constexpr int leastInset = 1;

// The last place before `end` where a header may go on in the next line: at a blank, or where a new word begins with a
// capital letter. 0 for none.
std::size_t breakBefore(std::wstring_view text, std::size_t end) noexcept {
    const auto small = [](wchar_t letter) { return letter >= L'a' && letter <= L'z'; };
    const auto capital = [](wchar_t letter) { return letter >= L'A' && letter <= L'Z'; };
    for (std::size_t at = end - 1; at > 0; --at) {
        if (text[at] == L' ' || (small(text[at - 1]) && capital(text[at]))) {
            return at;
        }
    }
    return 0;
}

}  // namespace

int GridText::smallInset() const noexcept { return MulDiv(leastInset, font_.dpi(), ui::standardDpi); }

FittedText GridText::cell(std::wstring_view text, int width, std::wstring& buffer) const {
    return fitted(text, width, MulDiv(usualInset, font_.dpi(), ui::standardDpi), buffer);
}

FittedText GridText::headerLine(std::wstring_view text, int width, std::wstring& buffer) const {
    return fitted(text, width, smallInset(), buffer);
}

FittedText GridText::fitted(std::wstring_view text, int width, int inset, std::wstring& buffer) const {
    const int wanted = font_.widthOf(dc_, text);
    if (wanted <= width - (2 * inset)) {
        return {.text = text, .width = wanted, .inset = inset};
    }
    const int room = width - (2 * smallInset());
    if (wanted <= room) {
        return {.text = text, .width = wanted, .inset = smallInset()};
    }
    const std::size_t kept = font_.fitting(dc_, text, room - font_.widthOf(dc_, dots));
    buffer.assign(text.substr(0, kept)).append(dots);
    return {.text = buffer, .width = font_.widthOf(dc_, buffer), .inset = smallInset(), .cut = true};
}

HeaderText GridText::header(std::wstring_view text, int width) const {
    const int room = width - (2 * smallInset());
    HeaderText header;
    while (header.lines().size() + 1 < headerLines) {
        std::size_t end = text.size();
        while (end > 0 && font_.widthOf(dc_, text.substr(0, end)) > room) {
            end = breakBefore(text, end);
        }
        if (end == 0 || end == text.size()) {
            break;
        }
        header.add(text.substr(0, end));
        text.remove_prefix(text[end] == L' ' ? end + 1 : end);
    }
    header.add(text);
    return header;
}

bool GridText::headerIsCut(std::wstring_view text, int width) const {
    const HeaderText shown = header(text, width);
    std::wstring buffer;
    return std::ranges::any_of(shown.lines(),
                               [&](std::wstring_view line) { return headerLine(line, width, buffer).cut; });
}

}  // namespace telvar::win32
