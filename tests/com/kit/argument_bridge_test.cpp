// Arguments of a call on their way into the parameters' types and back into the caller's variables.
#include <gtest/gtest.h>

#include <vector>

#include "base/conversion.h"
#include "com/kit/argument_bridge.h"
#include "com/kit/value.h"

namespace telvar::com {
namespace {

constexpr Parameter shortReference{.type = VT_I2, .plain = true, .byReference = true};
constexpr Parameter longReference{.type = VT_I4, .plain = true, .byReference = true};
constexpr Parameter textReference{.type = VT_BSTR, .plain = true, .byReference = true};
constexpr Parameter truthReference{.type = VT_BOOL, .plain = true, .byReference = true};
constexpr Parameter longValue{.type = VT_I4, .plain = true};
constexpr Parameter optionalVariant{.type = VT_VARIANT, .optional = true};

// One call: the caller's arguments in their declared order.
class Call {
public:
    Call(std::vector<Parameter> parameters, std::vector<VARIANT> arguments, bool isPut = false)
        : arguments_(arguments.rbegin(), arguments.rend()),
          given_{arguments_.data(), nullptr, static_cast<UINT>(arguments_.size()), 0},
          bridge_(std::move(parameters), given_, isPut, LOCALE_INVARIANT, wrong_) {}

    // As the member sees its parameters, in their declared order.
    [[nodiscard]] VARIANT& seen(UINT at) { return bridge_.passed().rgvarg[bridge_.passed().cArgs - 1 - at]; }
    void end() { bridge_.writeBack(); }

private:
    UINT wrong_ = 99;
    std::vector<VARIANT> arguments_;
    DISPPARAMS given_;
    ArgumentBridge bridge_;
};

TEST(ArgumentBridge, AnExactReferenceIsPassedThrough) {
    std::int16_t variable = 4;
    Call call({shortReference}, {Variant::reference(VT_I2, &variable).get()});
    EXPECT_EQ(V_I2REF(&call.seen(0)), &variable);
}

TEST(ArgumentBridge, WhatTheMemberChangesComesBackIntoAScriptsVariable) {
    Variant variable("5");
    Call call({shortReference}, {Variant::reference(VT_VARIANT, &variable.get()).get()});
    ASSERT_EQ(V_VT(&call.seen(0)), VT_BYREF | VT_I2);
    EXPECT_EQ(*V_I2REF(&call.seen(0)), 5);
    *V_I2REF(&call.seen(0)) = 9;
    call.end();
    EXPECT_EQ(valueOf(variable), base::Value{std::int16_t{9}});
}

TEST(ArgumentBridge, WhatTheMemberLeavesAloneStaysAsItWas) {
    Variant variable("5");
    Call call({shortReference}, {Variant::reference(VT_VARIANT, &variable.get()).get()});
    call.end();
    EXPECT_EQ(valueOf(variable), base::textValue("5"));
}

TEST(ArgumentBridge, OtherTypesOfVariablesAreConvertedBack) {
    double real = 3.0;
    std::int32_t number = 4;
    Bstr text(std::string_view("5"));
    Call call({shortReference, shortReference, shortReference},
              {Variant::reference(VT_R8, &real).get(), Variant::reference(VT_I4, &number).get(),
               Variant::reference(VT_BSTR, text.address()).get()});
    for (UINT at = 0; at < 3; ++at) {
        *V_I2REF(&call.seen(at)) = static_cast<SHORT>(*V_I2REF(&call.seen(at)) * 10);
    }
    call.end();
    EXPECT_EQ(real, 30.0);
    EXPECT_EQ(number, 40);
    EXPECT_EQ(text.text(), "50");
}

TEST(ArgumentBridge, ANestedVariableIsFoundAtItsEnd) {
    std::int32_t number = 6;
    Variant inner = Variant::reference(VT_I4, &number);
    Variant outer = Variant::reference(VT_VARIANT, &inner.get());
    Call call({shortReference}, {Variant::reference(VT_VARIANT, &outer.get()).get()});
    EXPECT_EQ(*V_I2REF(&call.seen(0)), 6);
    *V_I2REF(&call.seen(0)) = 7;
    call.end();
    EXPECT_EQ(number, 7);
}

TEST(ArgumentBridge, ATextMayBeExchanged) {
    Variant variable("old");
    Call call({textReference}, {Variant::reference(VT_VARIANT, &variable.get()).get()});
    assign(*V_BSTRREF(&call.seen(0)), "new");
    call.end();
    EXPECT_EQ(valueOf(variable), base::textValue("new"));
}

TEST(ArgumentBridge, AnArgumentByValueIsNeverWrittenTo) {
    VARIANT argument = Variant(std::int16_t{5}).get();
    Call call({shortReference}, {argument});
    EXPECT_NE(static_cast<void*>(V_I2REF(&call.seen(0))), static_cast<void*>(&V_I2(&argument)));
    *V_I2REF(&call.seen(0)) = 9;
    call.end();
    EXPECT_EQ(V_I2(&argument), 5);
}

TEST(ArgumentBridge, TruthsAndNumbersByValueAreConverted) {
    Variant variable(std::int16_t{12});
    const Variant text("17");
    Call call({longValue, longValue, truthReference},
              {Variant::reference(VT_VARIANT, &variable.get()).get(), text.get(), Variant(std::int32_t{1}).get()});
    EXPECT_EQ(V_VT(&call.seen(0)), VT_I4);
    EXPECT_EQ(V_I4(&call.seen(0)), 12);
    EXPECT_EQ(V_I4(&call.seen(1)), 17);
    EXPECT_EQ(*V_BOOLREF(&call.seen(2)), VARIANT_TRUE);
}

TEST(ArgumentBridge, OptionalOnesMayStayAwayOrBeLeftOut) {
    Call away({longReference, optionalVariant}, {Variant(std::int32_t{1}).get()});
    EXPECT_EQ(V_VT(&away.seen(0)), VT_BYREF | VT_I4);
    Call leftOut({longReference, optionalVariant}, {Variant(std::int32_t{1}).get(), Variant::missing().get()});
    EXPECT_EQ(V_VT(&leftOut.seen(1)), VT_ERROR);
}

[[nodiscard]] HRESULT refusal(std::vector<Parameter> parameters, std::vector<VARIANT> arguments) {
    try {
        const Call call(std::move(parameters), std::move(arguments));
        return S_OK;
    } catch (const ComFailure& failure) {
        return failure.code();
    }
}

TEST(ArgumentBridge, WhatDoesNotFitIsRefused) {
    const Variant text("x");
    VARIANT array{};
    V_VT(&array) = VT_ARRAY | VT_I2;
    EXPECT_EQ(refusal({shortReference}, {text.get()}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal({shortReference}, {Variant(std::int32_t{40000}).get()}), DISP_E_OVERFLOW);
    EXPECT_EQ(refusal({shortReference}, {array}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusal({shortReference}, {Variant::missing().get()}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(refusal({shortReference}, {}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(refusal({}, {text.get()}), DISP_E_BADPARAMCOUNT);
}

}  // namespace
}  // namespace telvar::com
