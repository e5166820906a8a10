// A store or link that is set once more: COM identity decides whether it is the same one, whichever way it is set and
// by whichever of its interfaces, and of the same one nothing is forgotten.
#include <ostream>

#include "edit_form_world.h"

#include <docobj.h>

namespace telvar::tests {
namespace {

struct SetAgain {
    const char* name;
    WORD flags;
    bool byAnotherInterface;
    friend void PrintTo(const SetAgain& how, std::ostream* out) { *out << how.name; }
};

class SameStore : public EditFormWorld, public testing::WithParamInterface<SetAgain> {
protected:
    [[nodiscard]] HRESULT set(DISPID property, WORD flags, Variant value) {
        DISPID name = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{&value.get(), &name, 1, 1};
        return control->Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, nullptr, nullptr, nullptr);
    }
    void setTheSameAgain() {
        Variant value(store.get());
        if (GetParam().byAnotherInterface) {
            V_VT(value.put()) = VT_UNKNOWN;
            V_UNKNOWN(&value.get()) = ComPointer<IChannelRecords>::from(store).detach();
        }
        ASSERT_EQ(set(1, GetParam().flags, value), S_OK);
        call(*control, "DistributeDataStoreLink");
    }
    [[nodiscard]] bool canUndo() const {
        OLECMD asked{OLECMDID_UNDO, 0};
        com::check(ComPointer<IOleCommandTarget>::from(control)->QueryStatus(nullptr, 1, &asked, nullptr));
        return (asked.cmdf & OLECMDF_ENABLED) != 0;
    }
    void deleteAChannel() {
        boxes.answerWith(IDYES);
        com::check(grid->Select(3, 1, 3, 1));
        com::check(ComPointer<IOleCommandTarget>::from(control)->Exec(nullptr, OLECMDID_DELETE, 0, nullptr, nullptr));
        boxes.answerWith(IDOK);
        boxes.forget();
    }
};

INSTANTIATE_TEST_SUITE_P(Set, SameStore,
                         testing::Values(SetAgain{"Plainly", DISPATCH_PROPERTYPUT, false},
                                         SetAgain{"ByReference", DISPATCH_PROPERTYPUTREF, false},
                                         SetAgain{"PlainlyByAnotherInterface", DISPATCH_PROPERTYPUT, true},
                                         SetAgain{"ByReferenceByAnotherInterface", DISPATCH_PROPERTYPUTREF, true}),
                         [](const testing::TestParamInfo<SetAgain>& how) { return how.param.name; });

TEST_P(SameStore, LeavesTheChangesThatCanBeTakenBack) {
    show();
    deleteAChannel();
    ASSERT_EQ(cell(3, 1), "X");
    ASSERT_TRUE(canUndo());
    setTheSameAgain();
    ASSERT_TRUE(canUndo());
    com::check(ComPointer<IOleCommandTarget>::from(control)->Exec(nullptr, OLECMDID_UNDO, 0, nullptr, nullptr));
    EXPECT_EQ(storedHertz(3), firstHertz + 3 * stepHertz);
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_P(SameStore, LeavesTheEditsInTheForm) {
    show();
    doubleClick();
    ASSERT_NE(form(), nullptr);
    type(frequencyField(), "151.5");
    setTheSameAgain();
    EXPECT_EQ(textOf(frequencyField()), "151.5");
    EXPECT_EQ(boxes.texts(), Texts{});
    setTheSameAgain();
    press("Apply");
    EXPECT_EQ(storedHertz(static_cast<std::int16_t>(currentRow())), 151'500'000);
}

TEST_P(SameStore, IsNotAnotherOfItsClass) {
    show();
    deleteAChannel();
    const auto other = storeServer.create<IDispatch>(__uuidof(DataStore));
    ASSERT_EQ(set(1, GetParam().flags, Variant(other.get())), S_OK);
    EXPECT_FALSE(canUndo());
    setTheSameAgain();
    EXPECT_FALSE(canUndo()) << "it was taken away in between";
}

TEST_P(SameStore, IsNoLongerTheSameWhenItWasTakenAway) {
    show();
    deleteAChannel();
    ASSERT_EQ(set(1, GetParam().flags, Variant()), S_OK);
    setTheSameAgain();
    EXPECT_FALSE(canUndo());
}

class TypedCalls : public EditFormWorld {};

TEST_F(TypedCalls, OfTheSameStoreLeaveTheEditsInTheForm) {
    show();
    doubleClick();
    type(frequencyField(), "151.5");
    com::check(control->putref_pCentralDataStore(store.get()));
    com::check(control->DistributeDataStoreLink());
    com::check(control->put_pCentralDataStore(store.get()));
    com::check(control->DistributeDataStoreLink());
    EXPECT_EQ(textOf(frequencyField()), "151.5");
}

}  // namespace
}  // namespace telvar::tests
