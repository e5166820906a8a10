// The two object properties: any object that dispatches, set plainly or by reference, and unset by nothing.
#include "world.h"

namespace telvar::tests {
namespace {

struct Links : ControlWorld {
    void TearDown() override {
        answer_ = Variant();
        ControlWorld::TearDown();
    }
    [[nodiscard]] HRESULT set(DISPID property, WORD flags, const VARIANT& value) {
        VARIANT argument = value;
        DISPID name = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&argument, &name, 1, 1};
        return control->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, nullptr, nullptr, nullptr);
    }
    [[nodiscard]] IDispatch* got(const char* name) {
        answer_ = get(*control, name);
        EXPECT_EQ(answer_.type(), VT_DISPATCH);
        return V_DISPATCH(&answer_.get());
    }

    // Nothing that any library knows.
    ComPointer<RecordingSink> foreign = com::make<RecordingSink>();

private:
    Variant answer_;
};

TEST_F(Links, TheObjectThatWasSetIsGot) {
    EXPECT_EQ(set(1, DISPATCH_PROPERTYPUTREF, Variant(store.get()).get()), S_OK);
    EXPECT_EQ(got("pCentralDataStore"), store.get());
    EXPECT_EQ(set(2, DISPATCH_PROPERTYPUT, Variant(foreign.get()).get()), S_OK);
    EXPECT_EQ(got("plibRadioComms"), foreign.get());
}

TEST_F(Links, AreNothingAtFirst) {
    EXPECT_EQ(got("pCentralDataStore"), nullptr);
    EXPECT_EQ(got("plibRadioComms"), nullptr);
}

TEST_F(Links, AnObjectOfNoLibraryIsAccepted) {
    EXPECT_EQ(set(1, DISPATCH_PROPERTYPUT, Variant(foreign.get()).get()), S_OK);
    EXPECT_EQ(got("pCentralDataStore"), foreign.get());
    IDataStore* typed = nullptr;
    EXPECT_EQ(control->get_pCentralDataStore(&typed), E_NOINTERFACE);
    EXPECT_EQ(typed, nullptr);
}

TEST_F(Links, ReferencesAndUnknownsLeadToTheirObject) {
    IDispatch* dispatch = foreign.get();
    EXPECT_EQ(set(1, DISPATCH_PROPERTYPUT, Variant::reference(VT_DISPATCH, &dispatch).get()), S_OK);
    EXPECT_EQ(got("pCentralDataStore"), foreign.get());

    Variant variable(store.get());
    EXPECT_EQ(set(1, DISPATCH_PROPERTYPUTREF, Variant::reference(VT_VARIANT, &variable.get()).get()), S_OK);
    EXPECT_EQ(got("pCentralDataStore"), store.get());

    VARIANT unknown{};
    V_VT(&unknown) = VT_UNKNOWN;
    V_UNKNOWN(&unknown) = foreign.get();
    EXPECT_EQ(set(1, DISPATCH_PROPERTYPUT, unknown), S_OK);
    EXPECT_EQ(got("pCentralDataStore"), foreign.get());
}

TEST_F(Links, NothingEmptyAndNullUnset) {
    VARIANT null{};
    V_VT(&null) = VT_NULL;
    for (const VARIANT& nothing : {Variant(static_cast<IDispatch*>(nullptr)).get(), Variant().get(), null}) {
        ASSERT_EQ(set(1, DISPATCH_PROPERTYPUT, Variant(store.get()).get()), S_OK);
        EXPECT_EQ(set(1, DISPATCH_PROPERTYPUT, nothing), S_OK);
        EXPECT_EQ(got("pCentralDataStore"), nullptr);
    }
}

TEST_F(Links, WhatIsNoObjectIsRefusedAndChangesNothing) {
    ASSERT_EQ(set(1, DISPATCH_PROPERTYPUT, Variant(store.get()).get()), S_OK);
    EXPECT_EQ(set(1, DISPATCH_PROPERTYPUT, Variant(std::int16_t{5}).get()), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(got("pCentralDataStore"), store.get());
}

TEST_F(Links, TypedCallsWorkToo) {
    EXPECT_EQ(control->putref_pCentralDataStore(store.get()), S_OK);
    ComPointer<IDataStore> typed;
    EXPECT_EQ(control->get_pCentralDataStore(typed.put()), S_OK);
    EXPECT_EQ(typed.get(), store.get());
    EXPECT_EQ(control->put_pCentralDataStore(nullptr), S_OK);
    EXPECT_EQ(control->get_pCentralDataStore(typed.put()), S_OK);
    EXPECT_EQ(typed.get(), nullptr);
}

TEST_F(Links, AStoreIsLetGoWhenItIsUnset) {
    const auto counted = com::make<RecordingSink>();
    counted->AddRef();
    const ULONG before = counted->Release();
    ASSERT_EQ(set(1, DISPATCH_PROPERTYPUT, Variant(counted.get()).get()), S_OK);
    call(*control, "DistributeDataStoreLink");
    ASSERT_EQ(set(1, DISPATCH_PROPERTYPUT, Variant().get()), S_OK);
    call(*control, "DistributeDataStoreLink");
    counted->AddRef();
    EXPECT_EQ(counted->Release(), before);
}

TEST_F(Links, WithoutAStoreEveryRefreshSaysSoAndChangesNothing) {
    call(*control, "Prepare");
    boxes.forget();
    call(*control, "UpdateControlsFromMemory");
    EXPECT_EQ(boxes.texts(), Texts{"Error in UpdateControlsFromMemory()"});
    EXPECT_EQ(boxes.shown().front().title, "Tesslin");
    EXPECT_TRUE(redraws());
}

TEST_F(Links, AStoreOfAForeignClassFailsInTheRoutinesWords) {
    setUp(foreign.get());
    boxes.forget();
    call(*control, "UpdateControlsFromMemory");
    EXPECT_EQ(boxes.texts(), Texts{"Error in UpdateControlsFromMemory()"});
    EXPECT_TRUE(redraws());
}

}  // namespace
}  // namespace telvar::tests
