// The published members: their numbers, their by-reference arguments in every form, and the two object properties.
#include "world.h"

#include <map>

#include "com/kit/module.h"

namespace telvar::tests {
namespace {

struct Members : ControlWorld {
    void SetUp() override { setUp(); }

    // HighLightChannel makes the channel's row current, which shows what argument arrived.
    [[nodiscard]] Answer highlight(const VARIANT& argument) {
        return tryCall(*control, "HighLightChannel", {argument});
    }
};

const std::map<std::string, DISPID> memberNumbers{
    {"pCentralDataStore", 1},
    {"plibRadioComms", 2},
    {"bHidden", 3},
    {"intPrevChannel", 4},
    {"Prepare", 5},
    {"DistributeDataStoreLink", 6},
    {"DistributeRadioCommsLink", 7},
    {"HideAdvancedButton", 8},
    {"DisplayFill", 9},
    {"ChannelFillDown", 10},
    {"ChannelFillSeries", 11},
    {"check_Frequencies", 12},
    {"LoadFromTelvar", 13},
    {"SendToTelvar", 14},
    {"LoadChannelInfoFromTelvar", 15},
    {"SendChannelInfoToTelvar", 16},
    {"CheckTotalNoOfChannelScan", 17},
    {"SetRowBackColour", 18},
    {"HighLightChannel", 19},
    {"UpdateChannelSelection", 20},
    {"UpdateControlsFromMemory", 21},
    {"UpdateRowData", 22},
    {"UpdateAccess", 23},
    {"DisableMyCommands", 24},
    {"EnableMyCommands", 25},
    {"PrintInfo", 26},
    {"RefreshEditForm", 27},
    {"ChannelKeyUp", 28},
    {"ChannelKeyDown", 29},
    {"logMessage", 30},
};

const std::map<std::string, DISPID> eventNumbers{
    {"RestoreButtons", 1},    {"DisableCommands", 2},          {"EnableCommands", 3},
    {"PauseDiagnostics", 4},  {"OpenLoginWithChannelFill", 5}, {"OpenLoginWithChannelEdit", 6},
    {"DefaultOverWindow", 7}, {"HourglassOverWindow", 8},      {"NewWindowCaption", 9},
    {"PrintChannelData", 10}, {"EditWindowClosed", 11},        {"IncrementProgressBar", 12},
};

// Names and numbers of one interface of a library.
[[nodiscard]] std::map<std::string, DISPID> membersIn(ITypeLib& library, REFGUID id) {
    ComPointer<ITypeInfo> info;
    com::check(library.GetTypeInfoOfGuid(id, info.put()));
    TYPEATTR* attributes = nullptr;
    com::check(info->GetTypeAttr(&attributes));
    const WORD count = attributes->cFuncs;
    info->ReleaseTypeAttr(attributes);
    std::map<std::string, DISPID> members;
    for (UINT at = 0; at < count; ++at) {
        FUNCDESC* function = nullptr;
        com::check(info->GetFuncDesc(at, &function));
        Bstr name;
        UINT names = 0;
        com::check(info->GetNames(function->memid, name.put(), 1, &names));
        if (function->memid > 0 && function->memid < 0x60000000) {
            members[name.text()] = function->memid;
        }
        info->ReleaseFuncDesc(function);
    }
    return members;
}

[[nodiscard]] ComPointer<ITypeLib> library(IDispatch& object) {
    ComPointer<ITypeInfo> info;
    com::check(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()));
    ComPointer<ITypeLib> found;
    UINT index = 0;
    com::check(info->GetContainingTypeLib(found.put(), &index));
    return found;
}

TEST_F(Members, HaveTheirNumbersByName) {
    for (const auto& [name, number] : memberNumbers) {
        EXPECT_EQ(numberOf(*control, name), number) << name;
    }
}

TEST_F(Members, AndEventsStandInTheTypeLibraryWithTheirNumbers) {
    const auto own = library(*control);
    EXPECT_EQ(membersIn(*own, __uuidof(_ChannelInformation)), memberNumbers);
    EXPECT_EQ(membersIn(*own, __uuidof(__ChannelInformation)), eventNumbers);
}

TEST_F(Members, AreFoundInAnyLetterCase) {
    EXPECT_EQ(numberOf(*control, "updaterowdata"), 22);
    EXPECT_EQ(numberOf(*control, "PLIBRADIOCOMMS"), 2);
}

TEST_F(Members, UnknownNamesAndNumbersAreRefused) {
    std::wstring name = L"NoSuchMember";
    LPOLESTR changeable = name.data();
    DISPID id = 0;
    EXPECT_EQ(control->GetIDsOfNames(IID_NULL, &changeable, 1, LOCALE_USER_DEFAULT, &id), DISP_E_UNKNOWNNAME);
    DISPPARAMS none{};
    EXPECT_EQ(control->Invoke(31, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
}

TEST_F(Members, TheFlagAndThePreviousChannelAreKept) {
    put(*control, "bHidden", Variant(true));
    put(*control, "intPrevChannel", Variant(std::int16_t{17}));
    EXPECT_EQ(com::valueOf(get(*control, "bHidden")), base::Value{true});
    EXPECT_EQ(com::valueOf(get(*control, "intPrevChannel")), base::Value{std::int16_t{17}});
}

// ---- arguments by reference

struct Form {
    const char* what;
    std::function<Variant()> make;
};

TEST_F(Members, AReferenceArgumentMayComeByValueInAnyNumericType) {
    const std::vector<Form> forms{
        {"Integer", [] { return Variant(std::int16_t{9}); }},
        {"Long", [] { return Variant(std::int32_t{9}); }},
        {"Double", [] { return Variant(9.0); }},
        {"Single", [] { return Variant(9.0F); }},
        {"Byte", [] { return Variant(std::uint8_t{9}); }},
        {"String", [] { return Variant("9"); }},
    };
    for (const auto& form : forms) {
        ASSERT_EQ(highlight(Variant(std::int16_t{1}).get()).code, S_OK);
        const Variant argument = form.make();
        EXPECT_EQ(highlight(argument.get()).code, S_OK) << form.what;
        EXPECT_EQ(currentRow(), 9) << form.what;
    }
}

TEST_F(Members, AReferenceArgumentMayReferToAVariableOfAnyType) {
    std::int16_t integer = 11;
    std::int32_t longInteger = 12;
    double real = 13.0;
    Bstr text(std::string_view("14"));
    Variant variable("15");
    Variant inner(std::int32_t{16});
    Variant outer = Variant::reference(VT_VARIANT, &inner.get());
    const std::vector<std::pair<LONG, Variant>> forms{
        {11, Variant::reference(VT_I2, &integer)},
        {12, Variant::reference(VT_I4, &longInteger)},
        {13, Variant::reference(VT_R8, &real)},
        {14, Variant::reference(VT_BSTR, text.address())},
        {15, Variant::reference(VT_VARIANT, &variable.get())},
        {16, Variant::reference(VT_VARIANT, &outer.get())},
    };
    for (const auto& [row, argument] : forms) {
        EXPECT_EQ(highlight(argument.get()).code, S_OK) << row;
        EXPECT_EQ(currentRow(), row);
    }
    EXPECT_EQ(variable.type(), VT_BSTR) << "what the method did not change stays as it was";
}

TEST_F(Members, ACallersOwnArgumentIsNeverWrittenTo) {
    VARIANT argument = Variant(std::int16_t{21}).get();
    const VARIANT before = argument;
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    EXPECT_EQ(
        control->Invoke(19, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
        S_OK);
    EXPECT_EQ(V_VT(&argument), V_VT(&before));
    EXPECT_EQ(V_I2(&argument), V_I2(&before));
}

TEST_F(Members, WrongArgumentsAreNamed) {
    EXPECT_EQ(highlight(Variant(std::int32_t{40000}).get()).code, DISP_E_OVERFLOW);
    const Variant text("x");
    const Answer mismatch = highlight(text.get());
    EXPECT_EQ(mismatch.code, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(mismatch.wrongArgument, 0U);
    EXPECT_EQ(highlight(Variant(static_cast<IDispatch*>(nullptr)).get()).code, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(highlight(Variant::missing().get()).code, DISP_E_PARAMNOTOPTIONAL);

    const Variant one(std::int16_t{1});
    const Answer second = tryCall(*control, "SetRowBackColour", {text.get(), one.get()});
    EXPECT_EQ(second.code, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(second.wrongArgument, 0U) << "the last argument stands first";
}

TEST_F(Members, TheNumberOfArgumentsCounts) {
    const Variant one(std::int16_t{1});
    EXPECT_EQ(tryCall(*control, "HighLightChannel", {}).code, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(tryCall(*control, "HighLightChannel", {one.get(), one.get()}).code, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(tryCall(*control, "Prepare", {one.get()}).code, DISP_E_BADPARAMCOUNT);
}

TEST_F(Members, ArgumentsMayBeNamed) {
    fill(3, 145'000'000);
    ASSERT_EQ(highlight(Variant(std::int16_t{3}).get()).code, S_OK);
    // (rgbBackColour:=255, index:=3), in the order of the names.
    std::vector<VARIANT> arguments{Variant(std::int32_t{255}).get(), Variant(std::int16_t{3}).get()};
    std::vector<DISPID> names{1, 0};
    DISPPARAMS parameters{arguments.data(), names.data(), 2, 2};
    EXPECT_EQ(
        control->Invoke(18, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
        S_OK);
    LONG colour = 0;
    com::check(grid->get_CellBackColour(3, 1, &colour));
    EXPECT_EQ(colour, 255);

    names = {7, 0};
    EXPECT_EQ(
        control->Invoke(18, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
        DISP_E_PARAMNOTFOUND);
}

// ---- failures

TEST_F(Members, AFailureThatLeavesTheControlIsDescribed) {
    // A path that cannot be a file: logging is the one routine that lets its failure through.
    EXCEPINFO exception{};
    VARIANT argument = Variant("line").detach();
    const Variant owned = Variant::adopt(argument);
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    DeleteFileW(L"c:\\msglog.txt");
    ASSERT_NE(CreateDirectoryW(L"c:\\msglog.txt", nullptr), FALSE);
    const HRESULT answer =
        control->Invoke(30, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, &exception, nullptr);
    RemoveDirectoryW(L"c:\\msglog.txt");
    const Bstr source = Bstr::adopt(exception.bstrSource);
    const Bstr description = Bstr::adopt(exception.bstrDescription);
    EXPECT_EQ(answer, DISP_E_EXCEPTION);
    EXPECT_EQ(source.text(), "Tesslin");
    EXPECT_NE(description.text(), "");
    EXPECT_EQ(ComPointer<ISupportErrorInfo>::from(control)->InterfaceSupportsErrorInfo(__uuidof(_ChannelInformation)),
              S_OK);
}

TEST_F(Members, NullReferencesAreRefusedByEveryDirectCall) {
    EXPECT_EQ(control->UpdateRowData(nullptr), E_POINTER);
    EXPECT_EQ(control->logMessage(nullptr), E_POINTER);
    EXPECT_EQ(control->get_bHidden(nullptr), E_POINTER);
    EXPECT_EQ(control->CheckTotalNoOfChannelScan(nullptr), E_POINTER);
}

}  // namespace
}  // namespace telvar::tests
