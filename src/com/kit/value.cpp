#include "com/kit/value.h"

#include <cstdint>
#include <limits>
#include <type_traits>

#include "com/kit/late_bound.h"

namespace telvar::com {

namespace {

// The narrowest alternative that holds it.
template <class Integer>
[[nodiscard]] base::Value integerValue(Integer value) {
    if constexpr (std::is_unsigned_v<Integer> && sizeof(Integer) == sizeof(std::uint64_t)) {
        if (value > static_cast<Integer>(std::numeric_limits<std::int64_t>::max())) {
            return static_cast<double>(value);
        }
        return static_cast<std::int64_t>(value);
    } else if constexpr (std::numeric_limits<Integer>::max() <= std::numeric_limits<std::int16_t>::max()) {
        return static_cast<std::int16_t>(value);
    } else if constexpr (std::numeric_limits<Integer>::max() <= std::numeric_limits<std::int32_t>::max()) {
        return static_cast<std::int32_t>(value);
    } else {
        return static_cast<std::int64_t>(value);
    }
}

[[nodiscard]] base::Value decimalValue(const DECIMAL& decimal) {
    double value = 0;
    return SUCCEEDED(VarR8FromDec(const_cast<DECIMAL*>(&decimal), &value)) ? base::Value{value}
                                                                           : base::Value{base::Unusable{}};
}

[[nodiscard]] base::Value currencyValue(CY currency) {
    double value = 0;
    return SUCCEEDED(VarR8FromCy(currency, &value)) ? base::Value{value} : base::Value{base::Unusable{}};
}

// Asked once: the default member of a default member is nobody's value.
[[nodiscard]] base::Value defaultValueOf(IDispatch* object) {
    if (object == nullptr) {
        return base::Unusable{};
    }
    Variant answer;
    if (FAILED(tryInvoke(*object, defaultMemberOf(*object), getOrCallFlags, {}, answer))) {
        return base::Unusable{};
    }
    const VARIANT& own = dereferenced(answer.get());
    return (V_VT(&own) & VT_TYPEMASK) == VT_DISPATCH ? base::Value{base::Unusable{}} : valueOf(own);
}

// `data` points at a value of the type: into a VARIANT or at the caller's own variable.
[[nodiscard]] base::Value valueAt(VARTYPE type, const void* data) {
    const auto as = [data]<class T>(T /*type*/) { return *static_cast<const T*>(data); };
    switch (type) {
    case VT_BOOL:
        return as(VARIANT_BOOL{}) != VARIANT_FALSE;
    case VT_I1:
        return integerValue(as(std::int8_t{}));
    case VT_UI1:
        return integerValue(as(std::uint8_t{}));
    case VT_I2:
        return as(std::int16_t{});
    case VT_UI2:
        return integerValue(as(std::uint16_t{}));
    case VT_I4:
    case VT_INT:
        return as(std::int32_t{});
    case VT_UI4:
    case VT_UINT:
        return integerValue(as(std::uint32_t{}));
    case VT_I8:
        return as(std::int64_t{});
    case VT_UI8:
        return integerValue(as(std::uint64_t{}));
    case VT_R4:
        return as(float{});
    case VT_R8:
    case VT_DATE:
        return as(double{});
    case VT_CY:
        return currencyValue(as(CY{}));
    case VT_BSTR:
        return textOf(as(BSTR{}));
    case VT_DISPATCH:
        return defaultValueOf(*static_cast<IDispatch* const*>(data));
    case VT_DECIMAL:
        return decimalValue(*static_cast<const DECIMAL*>(data));
    default:
        return base::Unusable{};
    }
}

}  // namespace

base::Value valueOf(const VARIANT& variant) {
    const VARIANT& own = dereferenced(variant);
    const VARTYPE type = V_VT(&own);
    if (type == VT_EMPTY) {
        return base::Empty{};
    }
    if ((type & VT_BYREF) != 0) {
        const auto referred = static_cast<VARTYPE>(type & ~VT_BYREF);
        return V_BYREF(&own) == nullptr ? base::Value{base::Unusable{}} : valueAt(referred, V_BYREF(&own));
    }
    // A decimal fills the whole VARIANT, its type included; every other value stands in the union.
    return type == VT_DECIMAL ? decimalValue(V_DECIMAL(&own)) : valueAt(type, &V_I8(&own));
}

namespace {

void put(base::Empty /*empty*/, VARIANT& target) noexcept { V_VT(&target) = VT_EMPTY; }
void put(base::Unusable /*unusable*/, VARIANT& target) noexcept { V_VT(&target) = VT_NULL; }
void put(bool value, VARIANT& target) noexcept {
    V_VT(&target) = VT_BOOL;
    V_BOOL(&target) = value ? VARIANT_TRUE : VARIANT_FALSE;
}
void put(std::int16_t value, VARIANT& target) noexcept {
    V_VT(&target) = VT_I2;
    V_I2(&target) = value;
}
void put(std::int32_t value, VARIANT& target) noexcept {
    V_VT(&target) = VT_I4;
    V_I4(&target) = value;
}
void put(float value, VARIANT& target) noexcept {
    V_VT(&target) = VT_R4;
    V_R4(&target) = value;
}
void put(double value, VARIANT& target) noexcept {
    V_VT(&target) = VT_R8;
    V_R8(&target) = value;
}
// Scripts know no 64-bit integers.
void put(std::int64_t value, VARIANT& target) noexcept {
    constexpr std::int64_t exactInDouble = std::int64_t{1} << 53U;
    if (value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::int32_t>::max()) {
        put(static_cast<std::int32_t>(value), target);
    } else if (value >= -exactInDouble && value <= exactInDouble) {
        put(static_cast<double>(value), target);
    } else {
        V_VT(&target) = VT_I8;
        V_I8(&target) = value;
    }
}
void put(const std::string& value, VARIANT& target) {
    Bstr text(value);
    V_VT(&target) = VT_BSTR;
    V_BSTR(&target) = text.detach();
}

}  // namespace

void putValue(const base::Value& value, VARIANT* target) {
    VariantInit(target);
    std::visit([target](const auto& alternative) { put(alternative, *target); }, value);
}

Variant variantOf(const base::Value& value) {
    Variant result;
    putValue(value, result.put());
    return result;
}

}  // namespace telvar::com
