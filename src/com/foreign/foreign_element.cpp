#include "com/foreign/foreign_element.h"

#include <array>
#include <cstddef>

#include <dispex.h>

#include "base/failure.h"
#include "com/kit/late_bound.h"
#include "com/kit/variant.h"

namespace telvar::com {

namespace {

[[nodiscard]] ComPointer<IDispatch> present(ComPointer<IDispatch> object) {
    if (!object) {
        throw base::Failure("Object variable not set");
    }
    return object;
}

// `type` is that of the elements. The array may be the store's own: it is read once, and the object counted, before
// anything else can run.
[[nodiscard]] ComPointer<IDispatch> elementOfArray(const SAFEARRAY* array, VARTYPE type, std::int16_t index) {
    if (array == nullptr || array->cDims != 1 || array->pvData == nullptr || index < 0 ||
        static_cast<ULONG>(index) >= array->rgsabound[0].cElements) {
        throw base::SubscriptFailure();
    }
    const auto at = static_cast<std::size_t>(index);
    if (type == VT_VARIANT && array->cbElements == sizeof(VARIANT)) {
        return objectIn(static_cast<const VARIANT*>(array->pvData)[at]);
    }
    if (type == VT_DISPATCH && array->cbElements == sizeof(IDispatch*)) {
        return present(ComPointer<IDispatch>(static_cast<IDispatch* const*>(array->pvData)[at]));
    }
    if (type == VT_UNKNOWN && array->cbElements == sizeof(IUnknown*)) {
        return present(ComPointer<IDispatch>::from(static_cast<IUnknown* const*>(array->pvData)[at]));
    }
    throw base::Failure("Object required");
}

// Objects written in a script are called through the extended interface only.
[[nodiscard]] MemberId defaultMemberOf(IDispatch& object) {
    return {DISPID_VALUE, static_cast<bool>(ComPointer<IDispatchEx>::from(&object))};
}

}  // namespace

ComPointer<IDispatch> objectIn(const VARIANT& variant) {
    const VARIANT& own = dereferenced(variant);
    switch (V_VT(&own)) {
    case VT_DISPATCH:
        return present(ComPointer<IDispatch>(V_DISPATCH(&own)));
    case VT_DISPATCH | VT_BYREF:
        return present(ComPointer<IDispatch>(V_DISPATCHREF(&own) == nullptr ? nullptr : *V_DISPATCHREF(&own)));
    case VT_UNKNOWN:
        return present(ComPointer<IDispatch>::from(V_UNKNOWN(&own)));
    default:
        throw base::Failure("Object required");
    }
}

ComPointer<IDispatch> elementOf(const VARIANT& table, std::int16_t index) {
    const VARIANT& own = dereferenced(table);
    const VARTYPE type = V_VT(&own);
    if ((type & VT_ARRAY) != 0) {
        const auto elements = static_cast<VARTYPE>(type & VT_TYPEMASK);
        if ((type & VT_BYREF) == 0) {
            return elementOfArray(V_ARRAY(&own), elements, index);
        }
        return elementOfArray(V_ARRAYREF(&own) == nullptr ? nullptr : *V_ARRAYREF(&own), elements, index);
    }
    const auto collection = objectIn(own);
    const std::array arguments{Variant(index)};
    return objectIn(invoke(*collection, defaultMemberOf(*collection), getFlags, arguments).get());
}

}  // namespace telvar::com
