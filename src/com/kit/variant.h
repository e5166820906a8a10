// Owning VARIANT. This is the only place that clears one.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "com/kit/automation.h"
#include "com/kit/bstr.h"
#include "com/kit/failure.h"

namespace telvar::com {

// What a reference to another VARIANT leads to; script variables arrive so, sometimes several deep.
[[nodiscard]] inline const VARIANT& dereferenced(const VARIANT& variant) noexcept {
    constexpr int deepest = 8;
    const VARIANT* at = &variant;
    for (int depth = 0; depth < deepest && V_VT(at) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(at) != nullptr;
         ++depth) {
        at = V_VARIANTREF(at);
    }
    return *at;
}

class Variant {
public:
    Variant() noexcept { VariantInit(&variant_); }
    explicit Variant(bool value) noexcept : Variant() {
        V_VT(&variant_) = VT_BOOL;
        V_BOOL(&variant_) = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Variant(std::int16_t value) noexcept : Variant() {
        V_VT(&variant_) = VT_I2;
        V_I2(&variant_) = value;
    }
    explicit Variant(std::int32_t value) noexcept : Variant() {
        V_VT(&variant_) = VT_I4;
        V_I4(&variant_) = value;
    }
    explicit Variant(std::uint8_t value) noexcept : Variant() {
        V_VT(&variant_) = VT_UI1;
        V_UI1(&variant_) = value;
    }
    explicit Variant(float value) noexcept : Variant() {
        V_VT(&variant_) = VT_R4;
        V_R4(&variant_) = value;
    }
    explicit Variant(double value) noexcept : Variant() {
        V_VT(&variant_) = VT_R8;
        V_R8(&variant_) = value;
    }
    explicit Variant(std::string_view utf8) : Variant() { take(Bstr(utf8)); }
    explicit Variant(std::wstring_view text) : Variant() { take(Bstr(text)); }
    // A literal would rather become a bool.
    explicit Variant(const char* utf8) : Variant(std::string_view(utf8)) {}
    explicit Variant(const wchar_t* text) : Variant(std::wstring_view(text)) {}
    // Null is Nothing.
    explicit Variant(IDispatch* object) noexcept : Variant() {
        V_VT(&variant_) = VT_DISPATCH;
        V_DISPATCH(&variant_) = object;
        if (object != nullptr) {
            object->AddRef();
        }
    }

    Variant(const Variant& other) : Variant(copyOf(other.variant_)) {}
    Variant& operator=(const Variant& other) {
        Variant(other).swap(*this);
        return *this;
    }
    Variant(Variant&& other) noexcept : variant_(other.variant_) { VariantInit(&other.variant_); }
    Variant& operator=(Variant&& other) noexcept {
        Variant(std::move(other)).swap(*this);
        return *this;
    }
    ~Variant() { VariantClear(&variant_); }

    [[nodiscard]] static Variant copyOf(const VARIANT& source) {
        Variant result;
        check(VariantCopy(&result.variant_, const_cast<VARIANT*>(&source)));
        return result;
    }
    // The value that the source refers to, where it is a reference.
    [[nodiscard]] static Variant copyBehind(const VARIANT& source) {
        Variant result;
        check(VariantCopyInd(&result.variant_, const_cast<VARIANT*>(&dereferenced(source))));
        return result;
    }
    [[nodiscard]] static Variant adopt(const VARIANT& owned) noexcept {
        Variant result;
        result.variant_ = owned;
        return result;
    }
    // What a caller passes for an optional argument that it leaves out.
    [[nodiscard]] static Variant missing() noexcept {
        Variant result;
        V_VT(&result.variant_) = VT_ERROR;
        V_ERROR(&result.variant_) = DISP_E_PARAMNOTFOUND;
        return result;
    }
    // A reference to the caller's variable, which must outlive it.
    template <class T>
    [[nodiscard]] static Variant reference(VARTYPE type, T* target) noexcept {
        Variant result;
        V_VT(&result.variant_) = static_cast<VARTYPE>(type | VT_BYREF);
        V_BYREF(&result.variant_) = target;
        return result;
    }

    [[nodiscard]] const VARIANT& get() const noexcept { return variant_; }
    [[nodiscard]] VARIANT& get() noexcept { return variant_; }
    // As the target of an answer; what was held is cleared.
    [[nodiscard]] VARIANT* put() noexcept {
        VariantClear(&variant_);
        return &variant_;
    }
    [[nodiscard]] VARIANT detach() noexcept {
        const VARIANT result = variant_;
        VariantInit(&variant_);
        return result;
    }
    [[nodiscard]] VARTYPE type() const noexcept { return V_VT(&variant_); }
    // Another type of the same value, by the rules of automation and of that locale.
    void convertTo(VARTYPE type, LCID locale = LOCALE_INVARIANT) {
        check(VariantChangeTypeEx(&variant_, &variant_, locale, 0, type));
    }

    void swap(Variant& other) noexcept { std::swap(variant_, other.variant_); }

private:
    void take(Bstr text) noexcept {
        V_VT(&variant_) = VT_BSTR;
        V_BSTR(&variant_) = text.detach();
    }

    VARIANT variant_{};
};

}  // namespace telvar::com
