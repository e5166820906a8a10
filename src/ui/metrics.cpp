#include "ui/metrics.h"

namespace telvar::ui {

std::string shownText(const std::string& caption) {
    std::string shown;
    for (std::size_t at = 0; at < caption.size(); ++at) {
        if (caption[at] == '&' && at + 1 < caption.size()) {
            ++at;
        }
        shown += caption[at];
    }
    return shown;
}

}  // namespace telvar::ui
