#include "ui/metrics.h"

namespace telvar::ui {

int Metrics::captionWidth(const std::string& caption) const {
    std::string shown;
    for (std::size_t at = 0; at < caption.size(); ++at) {
        if (caption[at] == '&' && at + 1 < caption.size()) {
            ++at;
        }
        shown += caption[at];
    }
    return width(shown);
}

}  // namespace telvar::ui
