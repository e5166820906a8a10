#include "com/store/shared_table.h"

namespace telvar::com {

SharedTable::SharedTable() {
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        records_.emplace_back(*this, index);
    }
}

ULONG SharedTable::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) {
        delete this;
    }
    return left;
}

}  // namespace telvar::com
