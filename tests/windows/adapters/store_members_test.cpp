// Values and operations of a foreign store: which call is made, with which arguments, and what its answer becomes.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "base/conversion.h"
#include "base/failure.h"
#include "fake_store.h"

namespace telvar::com::test {
namespace {

class StoreMembers : public testing::Test {
protected:
    StoreMembers() {
        store.table = [this](const Call& call) { return call.answer(referenceToArray(array.get(), VT_DISPATCH)); };
    }
    void answerTxFreq(Variant value) { store.values[0] = std::move(value); }

    FakeStore store;
    Array array = arrayOf(VT_DISPATCH, 0, store.records);
};

TEST_F(StoreMembers, EveryRadioWideMemberIsReachedByItsName) {
    std::vector<Variant> values(model::storeMemberCount);
    for (std::size_t at = 0; at < values.size(); ++at) {
        values[at] = Variant(static_cast<std::int16_t>(at));
        const std::string name(model::storeMembers[at].name);
        store.object->with(std::wstring(name.begin(), name.end()), property(values[at]));
    }
    for (std::size_t at = 0; at < values.size(); ++at) {
        const auto member = model::storeMembers[at].member;
        EXPECT_EQ(store.adapter->get(member), base::Value{static_cast<std::int16_t>(at)});
        store.adapter->put(member, std::int32_t{100'000});
        EXPECT_EQ(store.adapter->get(member), base::Value{std::int32_t{100'000}});
    }
}

TEST_F(StoreMembers, EveryKeyOfARecordIsReachedByItsName) {
    const auto record = makeObject();
    std::vector<Variant> values(model::channelKeyCount);
    for (std::size_t at = 0; at < values.size(); ++at) {
        values[at] = Variant(static_cast<std::int16_t>(at));
        const std::string name(model::channelKeys[at].name);
        record->with(std::wstring(name.begin(), name.end()), property(values[at]));
    }
    store.records[200] = record;
    array = arrayOf(VT_DISPATCH, 0, store.records);
    for (const auto& info : model::channelKeys) {
        const auto at = static_cast<std::int16_t>(info.key);
        EXPECT_EQ(store.adapter->readChannel(200, info.key), base::Value{at}) << info.name;
        store.adapter->writeChannel(200, info.key, base::textValue(info.name));
        EXPECT_EQ(store.adapter->ChannelTable()[200].get(info.key), base::textValue(info.name));
    }
}

// A plain data property of some script engines refuses to be called.
TEST_F(StoreMembers, AValueIsGotAndNotCalled) {
    std::vector<WORD> flags;
    const auto noting = [&flags](Variant answer) -> Member {
        return [&flags, answer = std::move(answer)](const Call& call) {
            flags.push_back(call.flags);
            return call.answer(answer);
        };
    };
    const auto record = makeObject();
    record->with(L"TxFreq", noting(Variant(std::int16_t{1}))).with(L"sm", noting(Variant(std::int16_t{0})));
    const auto collection = makeObject();
    collection->withDefault(noting(objectVariant(record)));
    store.table = noting(objectVariant(collection));
    store.object->with(L"ConfigRecords", noting(objectVariant(collection)))
        .with(L"TableOpen", noting(Variant(true)))
        .with(L"SendPermitted", noting(Variant(true)));
    (void)store.read(0);
    (void)store.adapter->referenceDividerScaling();
    (void)store.adapter->get(model::StoreMember::TableOpen);
    (void)store.adapter->SendPermitted();
    EXPECT_EQ(flags, std::vector<WORD>(8, DISPATCH_PROPERTYGET));
}

TEST_F(StoreMembers, AKeyOfAnObjectThatTellsUpperFromLowerCaseIsFoundInItsExactSpellingOnly) {
    Variant value(std::int16_t{1});
    const auto record = makeObject();
    record->isScript = true;
    record->with(L"Scan", property(value));
    store.records[0] = record;
    array = arrayOf(VT_DISPATCH, 0, store.records);
    EXPECT_THROW((void)store.adapter->readChannel(0, model::ChannelKey::scan), base::Failure);
    record->tellsCase = false;
    EXPECT_EQ(store.adapter->readChannel(0, model::ChannelKey::scan), base::Value{std::int16_t{1}});
    record->isScript = false;
    EXPECT_EQ(store.adapter->readChannel(0, model::ChannelKey::scan), base::Value{std::int16_t{1}});
}

TEST_F(StoreMembers, AMemberThatTheStoreLacksIsNamed) {
    try {
        (void)store.adapter->get(model::StoreMember::HardwareRevision);
        FAIL() << "no failure";
    } catch (const base::Failure& failure) {
        EXPECT_EQ(failure.description(), "The object has no member HardwareRevision");
    }
}

TEST_F(StoreMembers, AnswersOfEveryKindOfNumberAreRead) {
    const auto read = [&](Variant value) {
        answerTxFreq(std::move(value));
        return store.read(0);
    };
    const auto typed = [](VARTYPE type, auto value) {
        Variant result;
        V_VT(&result.get()) = type;
        std::memcpy(&V_I8(&result.get()), &value, sizeof value);
        return result;
    };
    EXPECT_EQ(read(Variant()), base::Value{base::Empty{}});
    EXPECT_EQ(read(Variant(true)), base::Value{true});
    EXPECT_EQ(read(Variant(std::uint8_t{200})), base::Value{std::int16_t{200}});
    EXPECT_EQ(read(Variant(std::int16_t{-3})), base::Value{std::int16_t{-3}});
    EXPECT_EQ(read(Variant(std::int32_t{433'000'000})), base::Value{std::int32_t{433'000'000}});
    EXPECT_EQ(read(typed(VT_UI4, std::uint32_t{4'000'000'000})), base::Value{std::int64_t{4'000'000'000}});
    EXPECT_EQ(read(typed(VT_I8, std::int64_t{5'000'000'000})), base::Value{std::int64_t{5'000'000'000}});
    EXPECT_EQ(read(Variant(67.5F)), base::Value{67.5F});
    EXPECT_EQ(read(Variant(145.5)), base::Value{145.5});
    EXPECT_EQ(read(Variant("145.5")), base::textValue("145.5"));
    EXPECT_EQ(read(typed(VT_CY, std::int64_t{1'455'000})), base::Value{145.5});
}

TEST_F(StoreMembers, ReferencesAreFollowed) {
    std::int32_t number = 446'000'000;
    answerTxFreq(Variant::reference(VT_I4, &number));
    EXPECT_EQ(store.read(0), base::Value{number});
    Variant behind("446");
    answerTxFreq(Variant::reference(VT_VARIANT, &behind.get()));
    EXPECT_EQ(store.read(0), base::textValue("446"));
}

TEST_F(StoreMembers, WrongTypesFailOnConversionAndNotBefore) {
    Variant null;
    V_VT(&null.get()) = VT_NULL;
    Variant error;
    V_VT(&error.get()) = VT_ERROR;
    V_ERROR(&error.get()) = E_FAIL;
    Array numbers(SafeArrayCreateVector(VT_I2, 0, 3));
    for (const Variant& wrong :
         {null, error, Variant(static_cast<IDispatch*>(nullptr)), objectVariant(makeObject()),
          referenceToArray(numbers.get(), VT_I2), Variant::reference(VT_I4, static_cast<std::int32_t*>(nullptr))}) {
        answerTxFreq(wrong);
        const base::Value value = store.read(0);
        EXPECT_EQ(value, base::Value{base::Unusable{}}) << wrong.type();
        EXPECT_THROW((void)base::toDouble(value), base::ConversionFailure) << wrong.type();
    }
}

TEST_F(StoreMembers, AnObjectAnswersWithItsDefaultMember) {
    const auto number = makeObject();
    number->withDefault(constant(Variant(std::int16_t{12})));
    answerTxFreq(objectVariant(number));
    EXPECT_EQ(store.read(0), base::Value{std::int16_t{12}});
}

TEST_F(StoreMembers, APutIsPlainAndKeepsItsType) {
    struct Put {
        WORD flags;
        UINT named;
        DISPID name;
        Variant value;
    };
    std::vector<Put> puts;
    store.object->with(L"DataModified", [&puts](const Call& call) {
        puts.push_back(
            {call.flags, call.given.cNamedArgs, call.given.rgdispidNamedArgs[0], Variant::copyOf(call.argument(0))});
        return S_OK;
    });
    const auto put = [&](const base::Value& value) {
        store.adapter->put(model::StoreMember::DataModified, value);
        EXPECT_EQ(puts.back().flags, DISPATCH_PROPERTYPUT);
        EXPECT_EQ(puts.back().named, 1U);
        EXPECT_EQ(puts.back().name, DISPID_PROPERTYPUT);
        return puts.back().value.type();
    };
    EXPECT_EQ(put(base::Empty{}), VT_EMPTY);
    EXPECT_EQ(put(true), VT_BOOL);
    EXPECT_EQ(put(std::int16_t{1}), VT_I2);
    EXPECT_EQ(put(std::int32_t{1}), VT_I4);
    EXPECT_EQ(put(1.0F), VT_R4);
    EXPECT_EQ(put(1.0), VT_R8);
    EXPECT_EQ(put(base::textValue("1")), VT_BSTR);
    EXPECT_EQ(put(base::Unusable{}), VT_NULL);
}

TEST_F(StoreMembers, ARefusedPutIsNotTriedByReference) {
    int asked = 0;
    store.object->with(L"DataModified", [&asked](const Call& call) {
        ++asked;
        return (call.flags & DISPATCH_PROPERTYPUTREF) != 0 ? S_OK : DISP_E_MEMBERNOTFOUND;
    });
    EXPECT_THROW(store.adapter->put(model::StoreMember::DataModified, true), base::Failure);
    EXPECT_EQ(asked, 1);
}

// ---- operations

TEST_F(StoreMembers, AStagedLevelIsPassedByReferenceAndAsAByte) {
    std::vector<std::pair<int, int>> staged;
    store.object->with(L"SetPotValue", [&staged](const Call& call) {
        EXPECT_EQ(call.flags, DISPATCH_METHOD);
        if (call.count() != 2 || V_VT(&call.argument(0)) != (VT_BYREF | VT_I2) || V_VT(&call.argument(1)) != VT_UI1) {
            return DISP_E_BADPARAMCOUNT;
        }
        staged.emplace_back(*V_I2REF(&call.argument(0)), V_UI1(&call.argument(1)));
        return S_OK;
    });
    store.adapter->SetPotValue(0, 0);
    store.adapter->SetPotValue(3, 255);
    EXPECT_EQ(staged, (std::vector<std::pair<int, int>>{{0, 0}, {3, 255}}));
}

TEST_F(StoreMembers, OperationsPassTheirArguments) {
    int entered = 0;
    std::vector<int> codes;
    std::vector<int> tones;
    std::vector<int> queries;
    store.object->with(L"EnterChannelSelect", [&entered](const Call& call) {
        entered += call.count() == 0 && call.flags == DISPATCH_METHOD ? 1 : 100;
        return S_OK;
    });
    store.object->with(L"CheckKey", [&codes](const Call& call) {
        codes.push_back(V_I2(&call.argument(0)));
        return call.answer(Variant(codes.back() == 48));
    });
    store.object->with(L"CtcssTone", [&tones](const Call& call) {
        tones.push_back(V_I2(&call.argument(0)));
        return call.answer(Variant(67.0F));
    });
    store.object->with(L"AutomaticSelect", [&queries](const Call& call) {
        queries.push_back(V_VT(&call.argument(0)) == (VT_BYREF | VT_I2) ? *V_I2REF(&call.argument(0)) : -1);
        return call.answer(Variant(std::int16_t{1}));
    });
    store.adapter->EnterChannelSelect();
    EXPECT_EQ(entered, 1);
    EXPECT_TRUE(store.adapter->CheckKey(48));
    EXPECT_FALSE(store.adapter->CheckKey(65));
    EXPECT_EQ(codes, (std::vector{48, 65}));
    EXPECT_EQ(store.adapter->CtcssTone(38), 67.0F);
    EXPECT_EQ(tones, (std::vector{38}));
    EXPECT_TRUE(store.adapter->AutomaticSelect(2));
    EXPECT_EQ(queries, (std::vector{2}));
}

TEST_F(StoreMembers, AScriptIsPassedReferencesToVariants) {
    store.object->isScript = true;
    int index = -1;
    store.object->with(L"SetPotValue", [&index](const Call& call) {
        if (V_VT(&call.argument(0)) != (VT_BYREF | VT_VARIANT)) {
            return E_NOTIMPL;
        }
        index = V_I2(V_VARIANTREF(&call.argument(0)));
        return S_OK;
    });
    store.adapter->SetPotValue(2, 128);
    EXPECT_EQ(index, 2);
}

TEST_F(StoreMembers, AMethodThatTakesNoReferencesIsGivenValues) {
    int index = -1;
    store.object->with(L"SetPotValue", [&index](const Call& call) {
        if (V_VT(&call.argument(0)) != VT_I2) {
            return DISP_E_TYPEMISMATCH;
        }
        index = V_I2(&call.argument(0));
        return S_OK;
    });
    store.adapter->SetPotValue(1, 128);
    EXPECT_EQ(index, 1);
}

TEST_F(StoreMembers, AnAnswerThatIsNoTruthFails) {
    store.object->with(L"CheckKey", [](const Call& call) { return call.answer(Variant("perhaps")); });
    EXPECT_THROW((void)store.adapter->CheckKey(48), base::ConversionFailure);
}

TEST_F(StoreMembers, AStoreWithoutAnOpinionPermitsSending) {
    EXPECT_TRUE(store.adapter->SendPermitted());
    Variant permitted(false);
    store.object->with(L"SendPermitted", property(permitted));
    EXPECT_FALSE(store.adapter->SendPermitted());
    permitted = Variant(true);
    EXPECT_TRUE(store.adapter->SendPermitted());
}

TEST_F(StoreMembers, AStoreThatCannotBeAskedDoesNotPermitSending) {
    store.object->namesAnswer = HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
    EXPECT_THROW((void)store.adapter->SendPermitted(), base::Failure);
    store.object->namesAnswer = S_OK;
    EXPECT_TRUE(store.adapter->SendPermitted());
}

// ---- configuration records

class ConfigRecords : public StoreMembers {
protected:
    ConfigRecords() { record->with(L"sm", property(scaling)); }
    Variant scaling{std::int32_t{-2}};
    ComPointer<FakeObject> record = makeObject();
};

TEST_F(ConfigRecords, AreAnArray) {
    Array records = arrayOf(VT_VARIANT, 1, {record, makeObject()});
    store.object->with(L"ConfigRecords",
                       [&records](const Call& call) { return call.answer(copyOfArray(records.get(), VT_VARIANT)); });
    EXPECT_EQ(store.adapter->referenceDividerScaling(), base::Value{std::int32_t{-2}});
}

TEST_F(ConfigRecords, AreACollection) {
    const auto collection = makeObject();
    collection->withDefault([this](const Call& call) {
        return call.count() == 1 && indexIn(call) == 0 ? call.answer(objectVariant(record)) : DISP_E_BADINDEX;
    });
    store.object->with(L"ConfigRecords", constant(objectVariant(collection)));
    EXPECT_EQ(store.adapter->referenceDividerScaling(), base::Value{std::int32_t{-2}});
}

TEST_F(ConfigRecords, AreAPropertyWithAnArgument) {
    store.object->with(L"ConfigRecords", [this](const Call& call) {
        return call.count() == 0    ? DISP_E_PARAMNOTOPTIONAL
               : indexIn(call) == 0 ? call.answer(objectVariant(record))
                                    : DISP_E_BADINDEX;
    });
    EXPECT_EQ(store.adapter->referenceDividerScaling(), base::Value{std::int32_t{-2}});
}

TEST_F(ConfigRecords, ThatAreEmptyFail) {
    Array records = arrayOf(VT_DISPATCH, 0, {});
    store.object->with(L"ConfigRecords", [&records](const Call& call) {
        return call.answer(referenceToArray(records.get(), VT_DISPATCH));
    });
    EXPECT_THROW((void)store.adapter->referenceDividerScaling(), base::SubscriptFailure);
}

TEST(Adapters, OfNothingAreNothing) { EXPECT_EQ(adaptDataStore(nullptr), nullptr); }

TEST(Adapters, HoldTheirObjectAndLetItGo) {
    const auto object = makeObject();
    {
        const auto first = adaptDataStore(object.get());
        const auto second = adaptDataStore(object.get());
        EXPECT_EQ(object->references(), 3U);
    }
    EXPECT_EQ(object->references(), 1U);
}

TEST(Adapters, OfAForeignClassFailOnEveryMember) {
    const auto object = makeObject();
    const auto store = adaptDataStore(object.get());
    EXPECT_THROW((void)store->readChannel(0, model::ChannelKey::TxFreq), base::Failure);
    EXPECT_THROW(store->writeChannel(0, model::ChannelKey::TxFreq, std::int16_t{1}), base::Failure);
    EXPECT_THROW((void)store->get(model::StoreMember::TableOpen), base::Failure);
    EXPECT_THROW(store->put(model::StoreMember::TableOpen, true), base::Failure);
    EXPECT_THROW((void)store->referenceDividerScaling(), base::Failure);
    EXPECT_THROW(store->SetPotValue(0, 0), base::Failure);
    EXPECT_THROW(store->EnterChannelSelect(), base::Failure);
    EXPECT_THROW((void)store->AutomaticSelect(2), base::Failure);
    EXPECT_THROW((void)store->CheckKey(48), base::Failure);
    EXPECT_THROW((void)store->CtcssTone(0), base::Failure);
    EXPECT_EQ(object->references(), 2U);
}

TEST(Adapters, MayBeDroppedInsideTheirOwnCall) {
    const auto object = makeObject();
    auto store = adaptDataStore(object.get());
    auto* const raw = store.get();
    object->with(L"CheckKey", [&store](const Call& call) {
        store.reset();
        return call.answer(Variant(true));
    });
    object->uponName = [&object] { object->firstNumber = 50; };
    EXPECT_TRUE(raw->CheckKey(48));
    EXPECT_EQ(object->references(), 1U);
}

}  // namespace
}  // namespace telvar::com::test
