// The radio-wide members and the operations of the store.
#include <cstdint>
#include <string>

#include "base/conversion.h"
#include "model/memory_data_store.h"
#include "model/subtones.h"
#include "win/text.h"
#include "world.h"

#include "com/kit/object_safety.h"

namespace telvar::tests {
namespace {

using Store = StoreWorld;

// A value that differs from the member's default.
[[nodiscard]] base::Value otherValue(const model::StoreMemberInfo& info) {
    const auto value = model::defaultValue(info.member);
    switch (info.kind) {
    case model::MemberKind::Boolean:
        return !base::isTrue(value);
    case model::MemberKind::Integer16:
        return static_cast<std::int16_t>(base::toInt16(value) + 17);
    case model::MemberKind::Integer32:
        return base::toInt32(value) + 170'000;
    case model::MemberKind::Single:
        return base::toSingle(value) + 0.5F;
    case model::MemberKind::Text:
        break;
    }
    return base::textValue("Küste");
}

TEST_F(Store, StartsWithTheDefaultsOfANewTable) {
    for (const auto& info : model::storeMembers) {
        if (info.member != model::StoreMember::DatabaseTitle) {
            EXPECT_EQ(com::valueOf(get(*store, std::string(info.name))), model::defaultValue(info.member)) << info.name;
        }
    }
    EXPECT_EQ(textOf(get(*store, "DatabaseTitle")), "");
    EXPECT_EQ(textOf(get(*store, "SendPermitted")), "True");
    EXPECT_EQ(textOf(get(*store, "FollowSteps")), "False");
    EXPECT_EQ(textOf(get(*store, "FilePath")), "");
    EXPECT_EQ(textOf(get(*store, "Modified")), "False");
}

TEST_F(Store, KeepsEveryMemberApart) {
    for (const auto& info : model::storeMembers) {
        put(*store, std::string(info.name), com::variantOf(otherValue(info)));
    }
    for (const auto& info : model::storeMembers) {
        EXPECT_EQ(com::valueOf(get(*store, std::string(info.name))), otherValue(info)) << info.name;
    }
}

TEST_F(Store, ConvertsWhatIsPutToTheMembersType) {
    put(*store, "ChannelSpacing", Variant("12500"));
    EXPECT_EQ(get(*store, "ChannelSpacing").type(), VT_I4);
    EXPECT_EQ(textOf(get(*store, "ChannelSpacing")), "12500");
    put(*store, "SelectedChannel", Variant(12.5));
    EXPECT_EQ(textOf(get(*store, "SelectedChannel")), "12");
    put(*store, "HardwareRevision", Variant("2.9"));
    EXPECT_EQ(get(*store, "HardwareRevision").type(), VT_R4);
    put(*store, "CommsBusy", Variant(std::int16_t{1}));
    EXPECT_EQ(get(*store, "CommsBusy").type(), VT_BOOL);
    put(*store, "MessageTitle", Variant(std::int16_t{7}));
    EXPECT_EQ(get(*store, "MessageTitle").type(), VT_BSTR);

    Variant variable(std::int32_t{6'250});
    put(*store, "ChannelSpacing", Variant::reference(VT_VARIANT, &variable.get()));
    EXPECT_EQ(textOf(get(*store, "ChannelSpacing")), "6250");
}

TEST_F(Store, RefusesWhatDoesNotConvertAndKeepsTheOldValue) {
    EXPECT_EQ(putCode(*store, "ChannelSpacing", Variant("wide")), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(putCode(*store, "SelectedChannel", Variant(std::int32_t{40'000})), DISP_E_OVERFLOW);
    EXPECT_EQ(putCode(*store, "CommsBusy", Variant(store.get())), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(textOf(get(*store, "ChannelSpacing")), "25000");
    EXPECT_EQ(textOf(get(*store, "SelectedChannel")), "1");
    EXPECT_EQ(textOf(get(*store, "CommsBusy")), "False");
    for (const auto* name : {"Revision", "Modified", "FilePath", "ConfigRecords"}) {
        EXPECT_EQ(putCode(*store, name, Variant(std::int16_t{1})), DISP_E_MEMBERNOTFOUND) << name;
    }
}

TEST_F(Store, ServesEarlyBoundCallersAlike) {
    ASSERT_EQ(store->put_ChannelSpacing(12'500), S_OK);
    EXPECT_EQ(textOf(get(*store, "ChannelSpacing")), "12500");
    put(*store, "TableOpen", Variant(true));
    VARIANT_BOOL open = VARIANT_FALSE;
    ASSERT_EQ(store->get_TableOpen(&open), S_OK);
    EXPECT_EQ(open, VARIANT_TRUE);
    float revision = 0;
    ASSERT_EQ(store->put_HardwareRevision(2.9F), S_OK);
    ASSERT_EQ(store->get_HardwareRevision(&revision), S_OK);
    EXPECT_EQ(revision, 2.9F);
    short task = 0;
    ASSERT_EQ(store->put_CommsTask(30), S_OK);
    ASSERT_EQ(store->get_CommsTask(&task), S_OK);
    EXPECT_EQ(task, 30);
    const Bstr title(L"Küste");
    ASSERT_EQ(store->put_MessageTitle(title.get()), S_OK);
    Bstr answer;
    ASSERT_EQ(store->get_MessageTitle(answer.put()), S_OK);
    EXPECT_EQ(answer.view(), L"Küste");
    ASSERT_EQ(store->put_MessageTitle(nullptr), S_OK);
    EXPECT_EQ(textOf(get(*store, "MessageTitle")), "");
    EXPECT_EQ(store->get_MessageTitle(nullptr), E_POINTER);
    EXPECT_EQ(store->get_CommsTask(nullptr), E_POINTER);
}

TEST_F(Store, StagesFourLevels) {
    Variant result;
    Variant index(std::int32_t{2});
    const Variant byReference = Variant::reference(VT_VARIANT, &index.get());
    ASSERT_EQ(callCode(*store, "SetPotValue", {byReference, Variant(std::int16_t{200})}, result), S_OK);
    EXPECT_EQ(textOf(get(*store, "PotValue", {Variant(std::int16_t{2})})), "200");
    EXPECT_EQ(textOf(get(*store, "PotValue", {Variant(std::int16_t{3})})), "0");
    short outside = 4;
    EXPECT_EQ(store->SetPotValue(&outside, 1), DISP_E_BADINDEX);
    EXPECT_EQ(errorDescription(), "Subscript out of range");
    EXPECT_EQ(store->SetPotValue(nullptr, 1), E_POINTER);
    EXPECT_EQ(callCode(*store, "SetPotValue", {Variant(std::int16_t{0}), Variant(std::int16_t{256})}, result),
              DISP_E_OVERFLOW);
    EXPECT_EQ(textOf(get(*store, "PotValue", {Variant(std::int16_t{0})})), "0");
}

TEST_F(Store, AnswersTheQuestionsOfTheChannelSelection) {
    Variant result;
    EXPECT_EQ(callCode(*store, "EnterChannelSelect", {}, result), S_OK);
    const auto automatic = [&] { return textOf(get(*store, "AutomaticSelect", {Variant(std::int16_t{2})})); };
    EXPECT_EQ(automatic(), "False");
    put(*store, "FollowSteps", Variant(true));
    EXPECT_EQ(automatic(), "True");
    const auto accepts = [&](std::int16_t code) { return textOf(get(*store, "CheckKey", {Variant(code)})); };
    EXPECT_EQ(accepts('7'), "True");
    EXPECT_EQ(accepts('x'), "False");
    put(*store, "SendPermitted", Variant(false));
    EXPECT_EQ(textOf(get(*store, "SendPermitted")), "False");
}

TEST_F(Store, GivesTheToneTable) {
    for (std::int16_t index = 0; index < 39; ++index) {
        EXPECT_EQ(com::valueOf(get(*store, "CtcssTone", {Variant(index)})),
                  base::Value(model::ctcssTones[static_cast<std::size_t>(index)]));
    }
    float tone = 0;
    EXPECT_EQ(store->CtcssTone(39, &tone), DISP_E_BADINDEX);
    EXPECT_EQ(store->CtcssTone(-1, &tone), DISP_E_BADINDEX);
}

TEST_F(Store, CountsEveryChangeWhoeverMadeIt) {
    const auto revision = [&] { return std::stol(textOf(get(*store, "Revision"))); };
    const long before = revision();
    ASSERT_EQ(record(0)->put_TxFreq(Variant(std::int32_t{1}).get()), S_OK);
    const long after = revision();
    EXPECT_GT(after, before);
    EXPECT_EQ(textOf(get(*store, "Modified")), "True");
    put(*store, "SelectedChannel", Variant(std::int16_t{9}));
    EXPECT_GT(revision(), after);
}

TEST_F(Store, HasOneConfigurationRecord) {
    const auto records = objectIn<IDispatch>(get(*store, "ConfigRecords"));
    ASSERT_TRUE(records);
    EXPECT_EQ(textOf(get(*records, "Count")), "1");
    const auto first = objectIn<IConfigRecord>(get(*records, "Item", {Variant(std::int16_t{0})}));
    ASSERT_TRUE(first);
    put(*first, "sm", Variant("-3"));
    EXPECT_EQ(objectIn<IConfigRecord>(get(*store, "ConfigRecords", {Variant("0")})), first);
    long scaling = 0;
    ASSERT_EQ(first->get_sm(&scaling), S_OK);
    EXPECT_EQ(scaling, -3);
    EXPECT_EQ(textOf(get(*store, "Modified")), "True");

    ComPointer<IConfigRecords> early;
    ASSERT_EQ(store->get_ConfigRecords(early.put()), S_OK);
    ComPointer<IConfigRecord> none;
    EXPECT_EQ(early->get_Item(Variant(std::int16_t{1}).get(), none.put()), DISP_E_BADINDEX);
    EXPECT_EQ(early->get_Item(Variant(std::int16_t{-1}).get(), none.put()), DISP_E_BADINDEX);
    EXPECT_FALSE(none);
}

TEST_F(Store, EnumeratesTheConfigurationRecords) {
    const auto records = objectIn<IDispatch>(get(*store, "ConfigRecords"));
    Variant answer;
    DISPPARAMS none{};
    ASSERT_EQ(records->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, answer.put(), nullptr, nullptr),
              S_OK);
    ASSERT_EQ(answer.type(), VT_UNKNOWN);
    const auto enumerator = ComPointer<IEnumVARIANT>::from(V_UNKNOWN(&answer.get()));
    ASSERT_TRUE(enumerator);
    Variant element;
    ULONG fetched = 0;
    ASSERT_EQ(enumerator->Next(1, element.put(), &fetched), S_OK);
    EXPECT_TRUE(objectIn<IConfigRecord>(element));
    EXPECT_EQ(enumerator->Next(1, element.put(), &fetched), S_FALSE);
    EXPECT_EQ(fetched, 0U);
}

TEST_F(Store, KeepsFilesFromCallersThatTheHostDistrusts) {
    const auto safety = ComPointer<IObjectSafety>::from(store);
    ASSERT_TRUE(safety);
    DWORD supported = 0;
    DWORD enabled = 1;
    ASSERT_EQ(safety->GetInterfaceSafetyOptions(__uuidof(IDispatch), &supported, &enabled), S_OK);
    EXPECT_EQ(supported, DWORD{INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA});
    EXPECT_EQ(enabled, 0U);
    EXPECT_EQ(safety->SetInterfaceSafetyOptions(__uuidof(IDispatch), 0x100, 0x100), E_FAIL);
    ASSERT_EQ(safety->SetInterfaceSafetyOptions(__uuidof(IDispatch), INTERFACESAFE_FOR_UNTRUSTED_CALLER,
                                                INTERFACESAFE_FOR_UNTRUSTED_CALLER),
              S_OK);
    const Bstr path(LR"(C:\never.telvar)");
    EXPECT_EQ(store->SaveAs(path.get()), E_ACCESSDENIED);
    EXPECT_EQ(store->Open(path.get()), E_ACCESSDENIED);
    EXPECT_EQ(store->Save(), E_ACCESSDENIED);
    EXPECT_EQ(errorDescription(), "Files are not open to a caller that is not trusted");
    EXPECT_EQ(GetFileAttributesW(path.get()), INVALID_FILE_ATTRIBUTES);
    // What touches no file still works.
    EXPECT_EQ(store->NewTable(), S_OK);
}

}  // namespace
}  // namespace telvar::tests
