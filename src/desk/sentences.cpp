#include "desk/sentences.h"

#include <string_view>

#include "base/failure.h"

namespace telvar::desk {

std::string sentenceFor(const std::exception& failure) {
    const auto* described = dynamic_cast<const base::Failure*>(&failure);
    std::string text = described == nullptr ? "" : described->description();
    if (text.empty()) {
        text = "The program ran out of memory";
    }
    if (!std::string_view(".!?").contains(text.back())) {
        text += '.';
    }
    return text;
}

}  // namespace telvar::desk
