// Values to and from VARIANT, in every form that a foreign store may use.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

#include "base/conversion.h"
#include "com/kit/object.h"
#include "com/kit/value.h"

namespace telvar::com {
namespace {

using base::Empty;
using base::Unusable;
using base::Value;

#define TELVAR_VARIANT(type, access, value)                                                                            \
    [] {                                                                                                               \
        VARIANT result{};                                                                                              \
        V_VT(&result) = type;                                                                                          \
        access(&result) = value;                                                                                       \
        return result;                                                                                                 \
    }()

struct Case {
    const char* what;
    VARIANT variant;
    Value expected;
};

[[nodiscard]] VARIANT decimal(double value) {
    VARIANT result{};
    VarDecFromR8(value, &V_DECIMAL(&result));
    V_VT(&result) = VT_DECIMAL;
    return result;
}

[[nodiscard]] std::vector<Case> plainCases() {
    return {
        {"empty", VARIANT{}, Empty{}},
        {"True", TELVAR_VARIANT(VT_BOOL, V_BOOL, VARIANT_TRUE), true},
        {"False", TELVAR_VARIANT(VT_BOOL, V_BOOL, VARIANT_FALSE), false},
        {"a truth that is neither", TELVAR_VARIANT(VT_BOOL, V_BOOL, 1), true},
        {"I1", TELVAR_VARIANT(VT_I1, V_I1, -128), std::int16_t{-128}},
        {"UI1", TELVAR_VARIANT(VT_UI1, V_UI1, 255), std::int16_t{255}},
        {"I2", TELVAR_VARIANT(VT_I2, V_I2, -32768), std::int16_t{-32768}},
        {"UI2", TELVAR_VARIANT(VT_UI2, V_UI2, 65535), std::int32_t{65535}},
        {"I4", TELVAR_VARIANT(VT_I4, V_I4, std::numeric_limits<std::int32_t>::min()),
         std::numeric_limits<std::int32_t>::min()},
        {"INT", TELVAR_VARIANT(VT_INT, V_INT, -7), std::int32_t{-7}},
        {"UI4", TELVAR_VARIANT(VT_UI4, V_UI4, 4294967295U), std::int64_t{4294967295}},
        {"UINT", TELVAR_VARIANT(VT_UINT, V_UINT, 4294967295U), std::int64_t{4294967295}},
        {"I8", TELVAR_VARIANT(VT_I8, V_I8, std::numeric_limits<std::int64_t>::min()),
         std::numeric_limits<std::int64_t>::min()},
        {"UI8", TELVAR_VARIANT(VT_UI8, V_UI8, 7U), std::int64_t{7}},
        {"UI8 beyond I8", TELVAR_VARIANT(VT_UI8, V_UI8, 18446744073709551615ULL), 18446744073709551615.0},
        {"R4", TELVAR_VARIANT(VT_R4, V_R4, 5.2F), 5.2F},
        {"R8", TELVAR_VARIANT(VT_R8, V_R8, 145500000.25), 145500000.25},
        {"date", TELVAR_VARIANT(VT_DATE, V_DATE, 2.5), 2.5},
        {"currency", TELVAR_VARIANT(VT_CY, V_CY, (CY{.int64 = 125000})), 12.5},
        {"decimal", decimal(67.5), 67.5},
        {"Null", TELVAR_VARIANT(VT_NULL, V_I4, 0), Unusable{}},
        {"error", TELVAR_VARIANT(VT_ERROR, V_ERROR, E_FAIL), Unusable{}},
        {"Nothing", TELVAR_VARIANT(VT_DISPATCH, V_DISPATCH, nullptr), Unusable{}},
        {"unknown", TELVAR_VARIANT(VT_UNKNOWN, V_UNKNOWN, nullptr), Unusable{}},
        {"array", TELVAR_VARIANT(VT_ARRAY | VT_I2, V_ARRAY, nullptr), Unusable{}},
        {"a type of nobody", TELVAR_VARIANT(VT_CLSID, V_I4, 0), Unusable{}},
    };
}

TEST(ValueOf, ReadsEveryType) {
    for (const auto& test : plainCases()) {
        EXPECT_EQ(valueOf(test.variant), test.expected) << test.what;
    }
}

TEST(ValueOf, FollowsReferencesToEveryType) {
    for (auto& test : plainCases()) {
        VARIANT reference{};
        V_VT(&reference) = static_cast<VARTYPE>(V_VT(&test.variant) | VT_BYREF);
        V_BYREF(&reference) = V_VT(&test.variant) == VT_DECIMAL ? static_cast<void*>(&V_DECIMAL(&test.variant))
                                                                : static_cast<void*>(&V_I8(&test.variant));
        if (V_VT(&test.variant) != VT_EMPTY) {
            EXPECT_EQ(valueOf(reference), test.expected) << test.what;
        }
        VARIANT variable{};
        V_VT(&variable) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&variable) = &test.variant;
        EXPECT_EQ(valueOf(variable), test.expected) << test.what;
        VARIANT outer{};
        V_VT(&outer) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&outer) = &variable;
        EXPECT_EQ(valueOf(outer), test.expected) << test.what;
    }
}

TEST(ValueOf, ReferencesToNothingOrToThemselvesAreUnusable) {
    EXPECT_EQ(valueOf(TELVAR_VARIANT(VT_BYREF | VT_I2, V_BYREF, nullptr)), Value{Unusable{}});
    EXPECT_EQ(valueOf(TELVAR_VARIANT(VT_BYREF | VT_VARIANT, V_BYREF, nullptr)), Value{Unusable{}});
    VARIANT circle{};
    V_VT(&circle) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&circle) = &circle;
    EXPECT_EQ(valueOf(circle), Value{Unusable{}});
}

TEST(ValueOf, TextsAreUtf8AndKeepTheirNulls) {
    EXPECT_EQ(valueOf(Variant(std::wstring_view(L"a\0\u00E9\u20AC", 4))),
              base::textValue(std::string_view("a\0\u00E9\u20AC", 7)));
    EXPECT_EQ(valueOf(TELVAR_VARIANT(VT_BSTR, V_BSTR, nullptr)), base::textValue(""));
}

// An object whose default member answers a value.
class WithDefault final : public Object<IDispatch> {
public:
    explicit WithDefault(Variant answer) : answer_(std::move(answer)) {}
    STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO*,
                        UINT*) noexcept override {
        if (member != DISPID_VALUE || arguments->cArgs != 0) {
            return DISP_E_MEMBERNOTFOUND;
        }
        *result = Variant(answer_).detach();
        return S_OK;
    }

private:
    Variant answer_;
};

TEST(ValueOf, AnObjectAnswersWithItsDefaultValue) {
    const auto plain = make<WithDefault>(Variant(std::int32_t{7}));
    EXPECT_EQ(valueOf(Variant(plain.get())), Value{std::int32_t{7}});
    const auto nested = make<WithDefault>(Variant(plain.get()));
    EXPECT_EQ(valueOf(Variant(nested.get())), Value{Unusable{}}) << "the default of a default is nobody's value";
}

TEST(VariantOf, HasTheTypeOfTheAlternative) {
    EXPECT_EQ(variantOf(Empty{}).type(), VT_EMPTY);
    EXPECT_EQ(variantOf(true).type(), VT_BOOL);
    EXPECT_EQ(V_BOOL(&variantOf(true).get()), VARIANT_TRUE);
    EXPECT_EQ(variantOf(std::int16_t{1}).type(), VT_I2);
    EXPECT_EQ(variantOf(std::int32_t{1}).type(), VT_I4);
    EXPECT_EQ(variantOf(1.0F).type(), VT_R4);
    EXPECT_EQ(variantOf(1.0).type(), VT_R8);
    EXPECT_EQ(variantOf(base::textValue("x")).type(), VT_BSTR);
    EXPECT_EQ(variantOf(Unusable{}).type(), VT_NULL);
}

TEST(VariantOf, A64BitIntegerBecomesWhatScriptsUnderstand) {
    EXPECT_EQ(variantOf(std::int64_t{5'000'000}).type(), VT_I4);
    EXPECT_EQ(variantOf(std::int64_t{5'000'000'000}).type(), VT_R8);
    EXPECT_EQ(base::toDouble(valueOf(variantOf(std::int64_t{5'000'000'000}))), 5e9);
    EXPECT_EQ(variantOf(std::numeric_limits<std::int64_t>::max()).type(), VT_I8) << "no double holds it";
}

TEST(VariantOf, EveryValueComesBackAsItWas) {
    for (const Value& value : {Value{Empty{}}, Value{true}, Value{std::int16_t{-5}}, Value{std::int32_t{70000}},
                               Value{2.5F}, Value{145.5}, base::textValue("\u00FC"), Value{Unusable{}}}) {
        EXPECT_EQ(valueOf(variantOf(value)), value);
    }
}

TEST(Texts, ANullBstrIsTheEmptyText) {
    EXPECT_EQ(textOf(nullptr), "");
    EXPECT_EQ(Bstr().text(), "");
}

}  // namespace
}  // namespace telvar::com
