#include "com/store/record_array.h"

#include <new>

#include "com/kit/failure.h"

namespace telvar::com {

RecordArray::RecordArray(SharedTable& table) : array_(SafeArrayCreateVector(VT_VARIANT, 0, model::channelCount)) {
    // Locking is what maps the elements; both fail for want of memory only.
    if (array_ == nullptr || FAILED(SafeArrayLock(array_))) {
        SafeArrayDestroy(array_);
        throw std::bad_alloc();
    }
    auto* const elements = static_cast<VARIANT*>(array_->pvData);
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        ChannelRecord& record = table.record(index);
        record.AddRef();
        V_VT(&elements[index]) = VT_DISPATCH;
        V_DISPATCH(&elements[index]) = &record;
    }
}

RecordArray::~RecordArray() {
    SafeArrayUnlock(array_);
    SafeArrayDestroy(array_);
}

void RecordArray::answer(VARIANT& target) noexcept {
    V_VT(&target) = VT_BYREF | VT_ARRAY | VT_VARIANT;
    V_ARRAYREF(&target) = &array_;
}

Variant RecordArray::copy() const {
    VARIANT copy;
    V_VT(&copy) = VT_ARRAY | VT_VARIANT;
    check(SafeArrayCopy(array_, &V_ARRAY(&copy)));
    return Variant::adopt(copy);
}

}  // namespace telvar::com
