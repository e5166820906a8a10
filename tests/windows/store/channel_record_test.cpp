#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "base/conversion.h"
#include "model/channel_key.h"
#include "model/memory_data_store.h"
#include "world.h"

namespace telvar::tests {
namespace {

using Record = StoreWorld;

[[nodiscard]] Variant adopted(VARTYPE type, auto set) {
    VARIANT value;
    VariantInit(&value);
    value.vt = type;
    set(value);
    return Variant::adopt(value);
}

TEST_F(Record, HoldsAnEmptyChannelAtFirst) {
    const auto first = record(0);
    for (const auto& info : model::channelKeys) {
        const Variant value = get(*first, std::string(info.name));
        EXPECT_EQ(com::valueOf(value), model::emptyChannelValue(info.key)) << info.name;
    }
}

TEST_F(Record, AnswersTheTypeThatWasPut) {
    const auto first = record(0);
    const std::vector<Variant> values{Variant(std::int16_t{1250}),
                                      Variant(std::int32_t{145'000'000}),
                                      Variant(88.5),
                                      Variant(12.5F),
                                      Variant("6.25"),
                                      Variant()};
    for (const auto& value : values) {
        put(*first, "TxFreq", value);
        const Variant answer = get(*first, "TxFreq");
        EXPECT_EQ(answer.type(), value.type());
        EXPECT_EQ(com::valueOf(answer), com::valueOf(value));
    }
}

TEST_F(Record, KeepsTheValueOfTypesThatScriptsDoNotKnow) {
    const auto first = record(0);
    const auto kept = [&](const Variant& value) {
        put(*first, "RxFreq", value);
        return textOf(get(*first, "RxFreq"));
    };
    EXPECT_EQ(kept(Variant(std::uint8_t{200})), "200");
    EXPECT_EQ(kept(adopted(VT_UI2, [](VARIANT& v) { v.uiVal = 65'535; })), "65535");
    EXPECT_EQ(kept(adopted(VT_UI4, [](VARIANT& v) { v.ulVal = 4'000'000'000U; })), "4000000000");
    EXPECT_EQ(kept(adopted(VT_I8, [](VARIANT& v) { v.llVal = 5'000'000'000; })), "5000000000");
    EXPECT_EQ(kept(adopted(VT_CY, [](VARIANT& v) { v.cyVal.int64 = 125'000; })), "12.5");
    EXPECT_EQ(kept(adopted(VT_BOOL, [](VARIANT& v) { v.boolVal = VARIANT_TRUE; })), "True");
}

TEST_F(Record, FollowsReferences) {
    const auto first = record(0);
    std::int32_t number = 145'000'000;
    put(*first, "TxFreq", Variant::reference(VT_I4, &number));
    EXPECT_EQ(get(*first, "TxFreq").type(), VT_I4);
    EXPECT_EQ(textOf(get(*first, "TxFreq")), "145000000");

    Variant variable(88.5);
    put(*first, "TxSub", Variant::reference(VT_VARIANT, &variable.get()));
    EXPECT_EQ(textOf(get(*first, "TxSub")), "88.5");

    Variant outer = Variant::reference(VT_VARIANT, &variable.get());
    variable = Variant(100.0);
    put(*first, "TxSub", Variant::reference(VT_VARIANT, &outer.get()));
    EXPECT_EQ(textOf(get(*first, "TxSub")), "100");

    BSTR text = Bstr(L"12AB").detach();
    put(*first, "P25TalkgroupID", Variant::reference(VT_BSTR, &text));
    EXPECT_EQ(textOf(get(*first, "P25TalkgroupID")), "12AB");
    (void)Bstr::adopt(text);
}

TEST_F(Record, TurnsBooleanKeysIntoTrueAndFalse) {
    const auto first = record(0);
    for (const auto& info : model::channelKeys) {
        if (info.kind != model::KeyKind::Boolean) {
            continue;
        }
        const std::string name(info.name);
        for (const auto& truth : {Variant(std::int16_t{1}), Variant(-1.0), Variant("True"), Variant(true)}) {
            put(*first, name, Variant(false));
            put(*first, name, truth);
            EXPECT_EQ(get(*first, name).type(), VT_BOOL) << name;
            EXPECT_EQ(textOf(get(*first, name)), "True") << name;
        }
        put(*first, name, Variant(std::int32_t{0}));
        EXPECT_EQ(textOf(get(*first, name)), "False") << name;
    }
}

TEST_F(Record, KeepsCodesAsText) {
    const auto first = record(0);
    put(*first, "P25TxNetworkAccessCode", Variant(std::int16_t{293}));
    EXPECT_EQ(get(*first, "P25TxNetworkAccessCode").type(), VT_BSTR);
    EXPECT_EQ(textOf(get(*first, "P25TxNetworkAccessCode")), "293");
}

TEST_F(Record, RefusesWhatIsNoValueAndKeepsTheOldOne) {
    const auto first = record(0);
    put(*first, "TxFreq", Variant(std::int32_t{145'000'000}));
    const Variant null = adopted(VT_NULL, [](VARIANT&) {});
    const Variant array = adopted(VT_ARRAY | VT_I4, [](VARIANT& v) { v.parray = SafeArrayCreateVector(VT_I4, 0, 3); });
    for (const auto& wrong : {Variant("x"), null, array, Variant::missing(), Variant(first.get())}) {
        EXPECT_EQ(putCode(*first, "TxFreq", wrong), DISP_E_TYPEMISMATCH) << wrong.type();
    }
    EXPECT_EQ(putCode(*first, "TxFreq", Variant(std::numeric_limits<double>::infinity())), DISP_E_OVERFLOW);
    EXPECT_EQ(putCode(*first, "scan", Variant("perhaps")), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(textOf(get(*first, "TxFreq")), "145000000");
    EXPECT_EQ(textOf(get(*first, "scan")), "False");
}

TEST_F(Record, ServesEarlyBoundCallersAlike) {
    const auto first = record(0);
    ASSERT_EQ(first->put_TxFreq(Variant(std::int32_t{145'000'000}).get()), S_OK);
    EXPECT_EQ(textOf(get(*first, "TxFreq")), "145000000");
    put(*first, "scan", Variant(std::int16_t{1}));
    Variant scanned;
    ASSERT_EQ(first->get_scan(scanned.put()), S_OK);
    EXPECT_EQ(scanned.type(), VT_BOOL);
    EXPECT_EQ(textOf(scanned), "True");

    EXPECT_EQ(first->put_TxFreq(Variant("x").get()), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(errorDescription(), "Type mismatch");
    EXPECT_EQ(first->get_TxFreq(nullptr), E_POINTER);
    const auto told = ComPointer<ISupportErrorInfo>::from(first);
    ASSERT_TRUE(told);
    EXPECT_EQ(told->InterfaceSupportsErrorInfo(__uuidof(IChannelRecord)), S_OK);
    EXPECT_EQ(told->InterfaceSupportsErrorInfo(__uuidof(IDataStore)), S_FALSE);
}

// Each key by its own pair of entries, so that no two of the 68 are exchanged.
TEST_F(Record, KeepsEveryKeyApart) {
    const auto first = record(0);
    std::int32_t number = 1;
    for (const auto& info : model::channelKeys) {
        if (info.kind != model::KeyKind::Boolean && info.kind != model::KeyKind::Code) {
            put(*first, std::string(info.name), Variant(number));
        }
        ++number;
    }
    ComPointer<ITypeInfo> types;
    ASSERT_EQ(first->GetTypeInfo(0, LOCALE_INVARIANT, types.put()), S_OK);
    number = 1;
    for (const auto& info : model::channelKeys) {
        if (info.kind != model::KeyKind::Boolean && info.kind != model::KeyKind::Code) {
            Variant answer;
            DISPPARAMS none{};
            const auto id = static_cast<DISPID>(info.key) + 1;
            ASSERT_EQ(types->Invoke(first.get(), id, DISPATCH_PROPERTYGET, &none, answer.put(), nullptr, nullptr),
                      S_OK);
            EXPECT_EQ(textOf(answer), std::to_string(number)) << info.name;
        }
        ++number;
    }
}

TEST_F(Record, AnswersUnusualCallsAsTheTypeLibraryDoes) {
    const auto first = record(0);
    Variant result;
    EXPECT_EQ(callCode(*first, "TxFreq", {Variant(std::int16_t{1}), Variant(std::int16_t{2})}, result),
              DISP_E_BADPARAMCOUNT);
    DISPPARAMS none{};
    EXPECT_EQ(first->Invoke(99, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, result.put(), nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(first->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYPUTREF, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(first->Invoke(1, IID_IDispatch, 0, DISPATCH_PROPERTYGET, &none, result.put(), nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    // A value that nobody wants.
    EXPECT_EQ(first->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr), S_OK);
}

}  // namespace
}  // namespace telvar::tests
