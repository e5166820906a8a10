#include "host/shell/sentences.h"

#include <string_view>

#include "base/failure.h"
#include "com/kit/text.h"

namespace telvar::host {

std::wstring sentenceFor(const std::exception& failure) {
    const auto* described = dynamic_cast<const base::Failure*>(&failure);
    std::wstring text = described == nullptr ? L"" : com::wide(described->description());
    if (text.empty()) {
        text = L"The program ran out of memory";
    }
    if (!std::wstring_view(L".!?").contains(text.back())) {
        text += L'.';
    }
    return text;
}

}  // namespace telvar::host
