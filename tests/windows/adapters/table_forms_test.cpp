// Every form in which a foreign store may answer `ChannelTable`.
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>

#include "base/failure.h"
#include "com/kit/failure.h"
#include "fake_store.h"

namespace telvar::com::test {
namespace {

// What a form needs to stay alive beside the store.
struct Kept {
    Array array{nullptr};
    Variant outer;
    Variant inner;
    std::vector<Variant> variables;
    std::vector<IDispatch*> objectVariables;
    ComPointer<FakeObject> collection;
};

struct Form {
    const char* name;
    void (*install)(FakeStore& store, Kept& kept);
};

std::ostream& operator<<(std::ostream& out, const Form& form) { return out << form.name; }

template <VARTYPE Type, LONG Lowest>
void byValue(FakeStore& store, Kept& kept) {
    kept.array = arrayOf(Type, Lowest, store.records);
    store.table = [&kept](const Call& call) {
        return call.count() == 0 ? call.answer(copyOfArray(kept.array.get(), Type)) : DISP_E_BADPARAMCOUNT;
    };
}

template <VARTYPE Type, LONG Lowest>
void byReference(FakeStore& store, Kept& kept) {
    kept.array = arrayOf(Type, Lowest, store.records);
    store.table = [&kept](const Call& call) { return call.answer(referenceToArray(kept.array.get(), Type)); };
}

// As a script variable: a reference to a variant, which again refers to one, that holds the array.
void referenceToVariant(FakeStore& store, Kept& kept) {
    kept.array = arrayOf(VT_VARIANT, 0, store.records);
    kept.inner = copyOfArray(kept.array.get(), VT_VARIANT);
    kept.outer = Variant::reference(VT_VARIANT, &kept.inner.get());
    store.table = [&kept](const Call& call) { return call.answer(Variant::reference(VT_VARIANT, &kept.outer.get())); };
}

// Its elements are references to variants and to object variables.
void elementsByReference(FakeStore& store, Kept& kept) {
    for (const auto& record : store.records) {
        kept.variables.push_back(objectVariant(record));
        kept.objectVariables.push_back(record.get());
    }
    kept.array = Array(SafeArrayCreateVector(VT_VARIANT, 1, tableSize));
    for (std::size_t at = 0; at < kept.variables.size(); ++at) {
        VARIANT& target = static_cast<VARIANT*>(kept.array.get()->pvData)[at];
        target = at % 2 == 0 ? Variant::reference(VT_VARIANT, &kept.variables[at].get()).detach()
                             : Variant::reference(VT_DISPATCH, &kept.objectVariables[at]).detach();
    }
    store.table = [&kept](const Call& call) { return call.answer(referenceToArray(kept.array.get(), VT_VARIANT)); };
}

template <bool IsScript>
void collection(FakeStore& store, Kept& kept) {
    kept.collection = makeObject();
    kept.collection->isScript = IsScript;
    kept.collection->withDefault([&store](const Call& call) {
        return call.count() == 1 ? call.answer(objectVariant(store.records.at(indexIn(call)))) : DISP_E_BADPARAMCOUNT;
    });
    store.table = constant(objectVariant(kept.collection));
}

// Its default member is a method: getting it as a property is refused.
void collectionWithMethod(FakeStore& store, Kept& kept) {
    kept.collection = makeObject();
    kept.collection->withDefault([&store](const Call& call) {
        if (call.flags != DISPATCH_METHOD) {
            return DISP_E_MEMBERNOTFOUND;
        }
        return call.count() == 1 ? call.answer(objectVariant(store.records.at(indexIn(call)))) : DISP_E_BADPARAMCOUNT;
    });
    store.table = constant(objectVariant(kept.collection));
}

// An array that a script made itself: an object with a property for every element.
void scriptArray(FakeStore& store, Kept& kept) {
    kept.collection = makeObject();
    kept.collection->isScript = true;
    for (std::size_t at = 0; at < store.records.size(); ++at) {
        kept.collection->with(std::to_wstring(at), constant(objectVariant(store.records[at])));
    }
    store.table = constant(objectVariant(kept.collection));
}

template <HRESULT Refusal>
void withArgument(FakeStore& store, Kept& /*kept*/) {
    store.table = [&store](const Call& call) {
        return call.count() == 1 ? call.answer(objectVariant(store.records.at(indexIn(call)))) : Refusal;
    };
}

// A script engine refuses as an exception of its own.
void withArgumentInScript(FakeStore& store, Kept& /*kept*/) {
    store.object->isScript = true;
    store.table = [&store](const Call& call) {
        if (call.count() == 1) {
            return call.answer(objectVariant(store.records.at(indexIn(call))));
        }
        call.exception->scode = static_cast<SCODE>(0x800A01C2);
        call.exception->bstrDescription = Bstr(L"Wrong number of arguments or invalid property assignment").detach();
        return DISP_E_EXCEPTION;
    };
}

class TableForms : public testing::TestWithParam<Form> {
protected:
    TableForms() { GetParam().install(store, kept); }
    Kept kept;
    FakeStore store;
};

INSTANTIATE_TEST_SUITE_P(
    Each, TableForms,
    testing::Values(
        Form{"ObjectsByValueFrom0", byValue<VT_DISPATCH, 0>}, Form{"ObjectsByValueFrom1", byValue<VT_DISPATCH, 1>},
        Form{"VariantsByValueFrom0", byValue<VT_VARIANT, 0>}, Form{"VariantsByValueFrom1", byValue<VT_VARIANT, 1>},
        Form{"UnknownsByValueFrom0", byValue<VT_UNKNOWN, 0>},
        Form{"ObjectsByReferenceFrom0", byReference<VT_DISPATCH, 0>},
        Form{"ObjectsByReferenceFrom1", byReference<VT_DISPATCH, 1>},
        Form{"VariantsByReferenceFrom0", byReference<VT_VARIANT, 0>},
        Form{"VariantsByReferenceFrom1", byReference<VT_VARIANT, 1>}, Form{"ReferenceToVariant", referenceToVariant},
        Form{"ElementsByReference", elementsByReference}, Form{"ObjectWithDefaultMember", collection<false>},
        Form{"ScriptObjectWithDefaultMember", collection<true>}, Form{"ObjectWithDefaultMethod", collectionWithMethod},
        Form{"ArrayOfAScript", scriptArray}, Form{"PropertyWithArgument", withArgument<DISP_E_BADPARAMCOUNT>},
        Form{"PropertyWithArgumentNotOptional", withArgument<DISP_E_PARAMNOTOPTIONAL>},
        Form{"PropertyWithArgumentInScript", withArgumentInScript}),
    [](const testing::TestParamInfo<Form>& form) { return form.param.name; });

TEST_P(TableForms, EveryChannelIsRead) {
    for (int index = 0; index < tableSize; ++index) {
        ASSERT_EQ(store.read(index), FakeStore::frequencyOf(index)) << index;
    }
}

TEST_P(TableForms, AWriteReachesItsRecordAlone) {
    store.write(7, std::int32_t{433'000'000});
    EXPECT_EQ(store.read(6), FakeStore::frequencyOf(6));
    EXPECT_EQ(store.read(7), base::Value{std::int32_t{433'000'000}});
    EXPECT_EQ(store.read(8), FakeStore::frequencyOf(8));
}

TEST_P(TableForms, AnIndexOutsideTheTableFailsBeforeTheStoreIsAsked) {
    for (const int index : {-32768, -1, 255, 256, 32767}) {
        EXPECT_THROW((void)store.read(index), base::SubscriptFailure) << index;
        EXPECT_THROW(store.write(index, std::int32_t{1}), base::SubscriptFailure) << index;
    }
    EXPECT_EQ(store.object->calls, 0);
}

TEST_P(TableForms, NoReferenceIsLeftBehind) {
    const int before = FakeObject::alive;
    const ULONG ofRecord = store.records[254]->references();
    const ULONG ofStore = store.object->references();
    (void)store.read(254);
    store.write(254, std::int32_t{1});
    EXPECT_EQ(store.records[254]->references(), ofRecord);
    EXPECT_EQ(store.object->references(), ofStore);
    EXPECT_EQ(FakeObject::alive, before);
}

class TableReference : public testing::TestWithParam<Form> {
protected:
    TableReference() { GetParam().install(store, kept); }
    Kept kept;
    FakeStore store;
};

INSTANTIATE_TEST_SUITE_P(Each, TableReference,
                         testing::Values(Form{"Objects", byReference<VT_DISPATCH, 0>},
                                         Form{"Variants", byReference<VT_VARIANT, 1>}),
                         [](const testing::TestParamInfo<Form>& form) { return form.param.name; });

TEST_P(TableReference, IsIndexedWhereItLies) {
    SAFEARRAY* const array = kept.array.get();
    const SAFEARRAY before = *array;
    for (auto& record : store.records) {
        record->counted = 0;
    }
    (void)store.read(3);
    store.write(3, std::int32_t{1});

    EXPECT_EQ(kept.array.get(), array);
    EXPECT_EQ(array->pvData, before.pvData);
    EXPECT_EQ(array->cLocks, before.cLocks);
    EXPECT_EQ(array->fFeatures, before.fFeatures);
    for (int index = 0; index < tableSize; ++index) {
        // Twice for the read and the write, which each hold the record while they ask it.
        const int counted = store.records[static_cast<std::size_t>(index)]->counted;
        if (index == 3) {
            EXPECT_GE(counted, 2);
        } else {
            EXPECT_EQ(counted, 0) << index;
        }
    }
}

// ---- odd answers

class OddTables : public testing::Test {
protected:
    [[nodiscard]] std::string failureOf(int index) const {
        try {
            (void)store.read(index);
        } catch (const base::Failure& failure) {
            return failure.description();
        }
        return "no failure";
    }
    FakeStore store;
};

TEST_F(OddTables, TheTableIsAskedForAgainForEveryValue) {
    Array first = arrayOf(VT_VARIANT, 0, store.records);
    std::vector<ComPointer<FakeObject>> turned(store.records.rbegin(), store.records.rend());
    Array second = arrayOf(VT_VARIANT, 0, turned);
    SAFEARRAY** present = &first.get();
    store.table = [&present](const Call& call) { return call.answer(referenceToArray(*present, VT_VARIANT)); };

    EXPECT_EQ(store.read(0), FakeStore::frequencyOf(0));
    present = &second.get();
    EXPECT_EQ(store.read(0), FakeStore::frequencyOf(254));
    EXPECT_EQ(store.object->calls, 2);
}

TEST_F(OddTables, AShortArrayEndsWhereItEnds) {
    store.records.resize(8);
    Array array = arrayOf(VT_DISPATCH, 1, store.records);
    store.table = [&array](const Call& call) { return call.answer(referenceToArray(array.get(), VT_DISPATCH)); };
    EXPECT_EQ(store.read(7), FakeStore::frequencyOf(7));
    EXPECT_EQ(failureOf(8), "Subscript out of range");
    EXPECT_EQ(failureOf(254), "Subscript out of range");
}

TEST_F(OddTables, AnArrayOfTwoDimensionsIsNoTable) {
    std::array<SAFEARRAYBOUND, 2> bounds{{{255, 0}, {2, 0}}};
    Array array(SafeArrayCreate(VT_DISPATCH, 2, bounds.data()));
    store.table = [&array](const Call& call) { return call.answer(referenceToArray(array.get(), VT_DISPATCH)); };
    EXPECT_EQ(failureOf(0), "Subscript out of range");
}

TEST_F(OddTables, AnEmptyPlaceIsNoRecord) {
    store.records[4].reset();
    for (const VARTYPE type : {VARTYPE{VT_DISPATCH}, VARTYPE{VT_VARIANT}, VARTYPE{VT_UNKNOWN}}) {
        Array array = arrayOf(type, 0, store.records);
        store.table = [&array, type](const Call& call) { return call.answer(referenceToArray(array.get(), type)); };
        EXPECT_EQ(failureOf(4), "Object variable not set") << type;
        EXPECT_EQ(store.read(5), FakeStore::frequencyOf(5)) << type;
    }
}

TEST_F(OddTables, AnArrayThatWasNeverMadeHasNoElements) {
    SAFEARRAY* none = nullptr;
    store.table = [&none](const Call& call) { return call.answer(referenceToArray(none, VT_VARIANT)); };
    EXPECT_EQ(failureOf(0), "Subscript out of range");
    store.table = [](const Call& call) {
        return call.answer(Variant::reference(VT_ARRAY | VT_VARIANT, static_cast<SAFEARRAY**>(nullptr)));
    };
    EXPECT_EQ(failureOf(0), "Subscript out of range");
}

TEST_F(OddTables, NumbersAreNoRecords) {
    Array array(SafeArrayCreateVector(VT_I4, 0, 255));
    store.table = [&array](const Call& call) { return call.answer(referenceToArray(array.get(), VT_I4)); };
    EXPECT_EQ(failureOf(0), "Object required");
    Array variants(SafeArrayCreateVector(VT_VARIANT, 0, 255));
    store.table = [&variants](const Call& call) { return call.answer(referenceToArray(variants.get(), VT_VARIANT)); };
    EXPECT_EQ(failureOf(0), "Object required");
}

TEST_F(OddTables, AnArrayThatLiesAboutItsElementsIsNotRead) {
    Array array(SafeArrayCreateVector(VT_UI1, 0, 255));
    store.table = [&array](const Call& call) { return call.answer(referenceToArray(array.get(), VT_DISPATCH)); };
    EXPECT_EQ(failureOf(254), "Object required");
}

TEST_F(OddTables, PlainValuesAreNoTable) {
    store.table = constant(Variant());
    EXPECT_EQ(failureOf(0), "Object required");
    store.table = constant(Variant(std::int16_t{3}));
    EXPECT_EQ(failureOf(0), "Object required");
    store.table = constant(Variant("table"));
    EXPECT_EQ(failureOf(0), "Object required");
    store.table = constant(Variant(static_cast<IDispatch*>(nullptr)));
    EXPECT_EQ(failureOf(0), "Object variable not set");
}

TEST_F(OddTables, AnObjectWithoutADefaultMemberIsNoTable) {
    store.table = constant(objectVariant(makeObject()));
    EXPECT_EQ(failureOf(0), "The object has no such member");
}

TEST_F(OddTables, AFailureOfThePropertyIsNotTakenForAMissingArgument) {
    int asked = 0;
    store.table = [&asked](const Call& call) {
        ++asked;
        EXPECT_EQ(call.count(), 0U);
        return E_FAIL;
    };
    EXPECT_EQ(failureOf(0), "Unspecified failure");
    EXPECT_EQ(asked, 1);
}

TEST_F(OddTables, ARecordOutlivesTheTableThatItCameFrom) {
    auto array = std::make_unique<Array>(arrayOf(VT_VARIANT, 0, store.records));
    store.table = [&array](const Call& call) { return call.answer(referenceToArray(array->get(), VT_VARIANT)); };
    const int before = FakeObject::alive;
    auto last = makeObject();
    Variant value(std::int16_t{5});
    bool wasAlive = false;
    last->with(L"TxFreq", [&](const Call& call) {
        // The store forgets its whole table while one of its records is asked.
        array.reset();
        store.records.clear();
        wasAlive = FakeObject::alive > 0;
        return call.answer(value);
    });
    store.records[9] = last;
    array = std::make_unique<Array>(arrayOf(VT_VARIANT, 0, store.records));
    last.reset();

    EXPECT_EQ(store.read(9), base::Value{std::int16_t{5}});
    EXPECT_TRUE(wasAlive);
    EXPECT_EQ(FakeObject::alive, before - tableSize);
}

}  // namespace
}  // namespace telvar::com::test
