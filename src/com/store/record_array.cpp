#include "com/store/record_array.h"

#include <new>

namespace telvar::com {

Variant recordArray(SharedTable& table) {
    Variant answer;
    SAFEARRAY* const array = SafeArrayCreateVector(VT_VARIANT, 0, model::channelCount);
    if (array == nullptr) {
        throw std::bad_alloc();
    }
    V_VT(&answer.get()) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(&answer.get()) = array;
    auto* const elements = static_cast<VARIANT*>(array->pvData);
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        elements[index] = Variant(&table.record(index)).detach();
    }
    return answer;
}

}  // namespace telvar::com
