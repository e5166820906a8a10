#include "com/adapters/foreign_element.h"

#include <array>
#include <cstddef>
#include <string>

#include "base/failure.h"
#include "com/kit/failure.h"
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

// By the default member; where that is a method and no property, it is called.
[[nodiscard]] Variant byDefaultMember(IDispatch& collection, MemberId item, std::int16_t index) {
    const std::array arguments{Variant(index)};
    try {
        return invoke(collection, item, getFlags, arguments);
    } catch (const ComFailure& failure) {
        if (failure.code() != DISP_E_MEMBERNOTFOUND) {
            throw;
        }
    }
    return invoke(collection, item, DISPATCH_METHOD, arguments);
}

// The elements of an array that a script made itself are its properties, named by their numbers.
[[nodiscard]] Variant elementOfCollection(IDispatch& collection, std::int16_t index) {
    const MemberId item = defaultMemberOf(collection);
    if (item.extended) {
        if (const MemberId numbered = memberOf(collection, std::to_string(index)); numbered.known()) {
            return invoke(collection, numbered, getFlags);
        }
    }
    return byDefaultMember(collection, item, index);
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
    return objectIn(elementOfCollection(*objectIn(own), index).get());
}

}  // namespace telvar::com
