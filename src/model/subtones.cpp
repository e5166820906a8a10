#include "model/subtones.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"

namespace telvar::model {

std::optional<std::int16_t> dcsIndexOf(std::string_view text) noexcept {
    const auto found = std::ranges::find(dcsCodes, base::trimmed(text));
    if (found == dcsCodes.end()) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(std::distance(dcsCodes.begin(), found));
}

}  // namespace telvar::model
