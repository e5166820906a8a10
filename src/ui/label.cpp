#include "ui/label.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace telvar::ui {

namespace {

// Extent of a text whose lines are broken between words where they would be wider than `room`.
[[nodiscard]] Size brokenExtent(std::string_view text, int room, const Metrics& metrics) {
    Size extent{0, 0};
    while (!text.empty() || extent.height == 0) {
        const auto end = std::min(text.find('\n'), text.size());
        std::string line;
        for (std::size_t at = 0; at < end;) {
            const auto next = std::min(text.find(' ', at + 1), end);
            const std::string longer = line + std::string(text.substr(at, next - at));
            if (!line.empty() && metrics.width(longer) > room) {
                break;
            }
            line = longer;
            at = next;
        }
        extent = {std::max(extent.width, metrics.width(line)), extent.height + metrics.line()};
        text.remove_prefix(std::min(line.size() + (line.size() < text.size() ? 1 : 0), text.size()));
    }
    return extent;
}

}  // namespace

Size Label::wantedSize(const Metrics& metrics) const {
    if (lines_ > 0) {
        return {0, lines_ * metrics.line()};
    }
    if (wrapWidth_ == 0) {
        return {metrics.captionWidth(caption()), metrics.line()};
    }
    return brokenExtent(caption(), metrics.digits(wrapWidth_), metrics);
}

}  // namespace telvar::ui
