// What the control's type library calls things: the names that hosts write in their programs, and the column numbers
// that it publishes, which are the column table's.
#include <algorithm>
#include <map>
#include <tuple>
#include <vector>

#include "editing/columns.h"
#include "world.h"

namespace telvar::tests {
namespace {

[[nodiscard]] ComPointer<ITypeLib> libraryOf(IDispatch& object) {
    ComPointer<ITypeInfo> info;
    com::check(object.GetTypeInfo(0, LOCALE_INVARIANT, info.put()));
    ComPointer<ITypeLib> library;
    UINT index = 0;
    com::check(info->GetContainingTypeLib(library.put(), &index));
    return library;
}

[[nodiscard]] std::string nameOf(ITypeLib& library) {
    Bstr name;
    com::check(library.GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr));
    return name.text();
}

[[nodiscard]] std::string nameOf(ITypeInfo& info, MEMBERID member = MEMBERID_NIL) {
    Bstr name;
    com::check(info.GetDocumentation(member, name.put(), nullptr, nullptr, nullptr));
    return name.text();
}

[[nodiscard]] ComPointer<ITypeInfo> infoAt(ITypeLib& library, UINT index) {
    ComPointer<ITypeInfo> info;
    com::check(library.GetTypeInfo(index, info.put()));
    return info;
}

[[nodiscard]] TYPEATTR attributesOf(ITypeInfo& info) {
    TYPEATTR* attributes = nullptr;
    com::check(info.GetTypeAttr(&attributes));
    const TYPEATTR copy = *attributes;
    info.ReleaseTypeAttr(attributes);
    return copy;
}

[[nodiscard]] ComPointer<ITypeInfo> infoNamed(ITypeLib& library, const std::string& name) {
    for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
        auto info = infoAt(library, index);
        if (nameOf(*info) == name) {
            return info;
        }
    }
    return {};
}

struct PublishedType {
    std::string name;
    TYPEKIND kind;
    bool operator==(const PublishedType&) const = default;
    friend void PrintTo(const PublishedType& type, std::ostream* out) { *out << type.name << " of kind " << type.kind; }
};

// In the order of the library.
[[nodiscard]] std::vector<PublishedType> typesIn(ITypeLib& library) {
    std::vector<PublishedType> types;
    for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
        const auto info = infoAt(library, index);
        types.push_back({nameOf(*info), attributesOf(*info).typekind});
    }
    return types;
}

// A class's interfaces, the source ones in brackets, the default ones with a star.
[[nodiscard]] Texts interfacesOf(ITypeInfo& coclass) {
    Texts names;
    for (UINT index = 0; index < attributesOf(coclass).cImplTypes; ++index) {
        HREFTYPE reference = 0;
        com::check(coclass.GetRefTypeOfImplType(index, &reference));
        ComPointer<ITypeInfo> implemented;
        com::check(coclass.GetRefTypeInfo(reference, implemented.put()));
        int flags = 0;
        com::check(coclass.GetImplTypeFlags(index, &flags));
        std::string name = nameOf(*implemented);
        name = (flags & IMPLTYPEFLAG_FSOURCE) != 0 ? "(" + name + ")" : name;
        names.push_back((flags & IMPLTYPEFLAG_FDEFAULT) != 0 ? name + "*" : name);
    }
    return names;
}

struct PublishedNames : ControlWorld {
    ComPointer<ITypeLib> own = libraryOf(*control);
};

TEST_F(PublishedNames, OfTheControlsLibrary) {
    EXPECT_EQ(nameOf(*own), "Tesslin");
    EXPECT_EQ(typesIn(*own), (std::vector<PublishedType>{{"FlexGridColumnNo", TKIND_ENUM},
                                                         {"_ChannelInformation", TKIND_DISPATCH},
                                                         {"__ChannelInformation", TKIND_DISPATCH},
                                                         {"IChannelGrid", TKIND_DISPATCH},
                                                         {"_clsPLLSetting", TKIND_DISPATCH},
                                                         {"ChannelInformation", TKIND_COCLASS},
                                                         {"clsPLLSetting", TKIND_COCLASS}}));
}

TEST_F(PublishedNames, OfTheClassesInterfaces) {
    EXPECT_EQ(interfacesOf(*infoNamed(*own, "ChannelInformation")),
              (Texts{"_ChannelInformation*", "IChannelGrid", "(__ChannelInformation)*"}));
    EXPECT_EQ(interfacesOf(*infoNamed(*own, "clsPLLSetting")), Texts{"_clsPLLSetting*"});
}

TEST_F(PublishedNames, OfTheEventsAndTheirArguments) {
    const auto events = infoNamed(*own, "__ChannelInformation");
    Texts texts;
    for (UINT at = 0; at < attributesOf(*events).cFuncs; ++at) {
        FUNCDESC* function = nullptr;
        com::check(events->GetFuncDesc(at, &function));
        std::vector<BSTR> names(8);
        UINT count = 0;
        com::check(events->GetNames(function->memid, names.data(), static_cast<UINT>(names.size()), &count));
        std::string text = std::to_string(function->memid);
        for (UINT name = 0; name < count; ++name) {
            text += " " + Bstr::adopt(names[name]).text();
        }
        texts.push_back(text);
        events->ReleaseFuncDesc(function);
    }
    EXPECT_EQ(texts, (Texts{"1 RestoreButtons", "2 DisableCommands", "3 EnableCommands sCommands", "4 PauseDiagnostics",
                            "5 OpenLoginWithChannelFill", "6 OpenLoginWithChannelEdit", "7 DefaultOverWindow",
                            "8 HourglassOverWindow", "9 NewWindowCaption sNewCaption", "10 PrintChannelData",
                            "11 EditWindowClosed", "12 IncrementProgressBar"}));
}

TEST_F(PublishedNames, OfTheDataStoresLibrary) {
    const auto library = libraryOf(*store);
    EXPECT_EQ(nameOf(*library), "VexloDataStore");
    EXPECT_EQ(typesIn(*library), (std::vector<PublishedType>{{"IChannelRecord", TKIND_DISPATCH},
                                                             {"IConfigRecord", TKIND_DISPATCH},
                                                             {"IConfigRecords", TKIND_DISPATCH},
                                                             {"IDataStore", TKIND_DISPATCH},
                                                             {"IChannelRecords", TKIND_INTERFACE},
                                                             {"DataStore", TKIND_COCLASS}}));
    EXPECT_EQ(interfacesOf(*infoNamed(*library, "DataStore")), (Texts{"IDataStore*", "IChannelRecords"}));
}

TEST_F(PublishedNames, OfTheRadioLinksLibrary) {
    const LoadedServer linkServer("VexloRadioLink.dll");
    const auto library = libraryOf(*linkServer.create<IDispatch>(__uuidof(RadioLink)));
    EXPECT_EQ(nameOf(*library), "VexloRadioLink");
    EXPECT_EQ(interfacesOf(*infoNamed(*library, "RadioLink")), (Texts{"IRadioLink*", "(_RadioLinkEvents)*"}));
}

// Both ways: no column without its number, no number without its column.
TEST_F(PublishedNames, OfTheColumnsAreTheColumnTables) {
    const auto enumeration = infoNamed(*own, "FlexGridColumnNo");
    std::map<std::string, LONG> published;
    for (UINT at = 0; at < attributesOf(*enumeration).cVars; ++at) {
        VARDESC* variable = nullptr;
        com::check(enumeration->GetVarDesc(at, &variable));
        ASSERT_EQ(variable->varkind, VAR_CONST);
        published[nameOf(*enumeration, variable->memid)] = V_I4(variable->lpvarValue);
        enumeration->ReleaseVarDesc(variable);
    }
    std::map<std::string, LONG> inTable;
    for (const auto& column : editing::columns) {
        if (!column.enumerationName.empty()) {
            inTable[std::string(column.enumerationName)] = column.number;
        }
    }
    EXPECT_EQ(published, inTable);
    EXPECT_EQ(published.size(), 18U);
    EXPECT_EQ(published["TXPowerCol"], 9);
    EXPECT_EQ(published["P25RxNAC"], 26);
}

// ---- the calculator

struct Called {
    std::string name;
    DISPID number;
    int place;  // in the table of functions, after the seven of IDispatch
    INVOKEKIND kind;
    bool operator==(const Called&) const = default;
    friend void PrintTo(const Called& member, std::ostream* out) {
        *out << member.name << " " << member.number << " at " << member.place << " kind " << member.kind;
    }
};

TEST_F(PublishedNames, OfTheCalculatorsMembersAreInTheirOrder) {
    const auto calculator = server.create<IDispatch>(__uuidof(clsPLLSetting));
    ComPointer<ITypeInfo> dispatch;
    com::check(calculator->GetTypeInfo(0, LOCALE_INVARIANT, dispatch.put()));
    EXPECT_EQ(nameOf(*dispatch), "_clsPLLSetting");
    // The half of a dual interface that is a table of functions.
    HREFTYPE reference = 0;
    com::check(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    ComPointer<ITypeInfo> table;
    com::check(dispatch->GetRefTypeInfo(reference, table.put()));
    constexpr int ofDispatch = 7;
    std::vector<Called> members;
    for (UINT at = 0; at < attributesOf(*table).cFuncs; ++at) {
        FUNCDESC* function = nullptr;
        com::check(table->GetFuncDesc(at, &function));
        members.push_back({nameOf(*table, function->memid), function->memid,
                           function->oVft / static_cast<int>(sizeof(void*)) - ofDispatch, function->invkind});
        table->ReleaseFuncDesc(function);
    }
    EXPECT_EQ(members, (std::vector<Called>{{"InitialiseSettings", 1, 0, INVOKE_FUNC},
                                            {"Modulo", 2, 1, INVOKE_PROPERTYGET},
                                            {"VCOFreq", 3, 2, INVOKE_PROPERTYGET},
                                            {"FreqStepSize", 4, 3, INVOKE_PROPERTYGET},
                                            {"IsValid", 5, 4, INVOKE_PROPERTYGET}}));
    for (const Called& member : members) {
        EXPECT_EQ(numberOf(*calculator, member.name), member.number);
    }
}

// What a caller of the bare table meets at each place.
TEST_F(PublishedNames, OfTheCalculatorAnswerAtTheirPlaces) {
    const auto calculator = server.create<_clsPLLSetting>(__uuidof(clsPLLSetting));
    using Function = HRESULT(STDMETHODCALLTYPE*)(void* self, void* answer);
    using Initialise = HRESULT(STDMETHODCALLTYPE*)(void* self, LONG* vco, short* modulo, LONG* step, LONG* reference);
    auto* const functions = *reinterpret_cast<void***>(calculator.get());
    LONG vco = 450'000'000;
    short modulo = 8;
    LONG step = 12'500;
    LONG reference = 12'800'000;
    ASSERT_EQ(reinterpret_cast<Initialise>(functions[7])(calculator.get(), &vco, &modulo, &step, &reference), S_OK);
    const auto ask = [&](int place, auto answer) {
        EXPECT_EQ(reinterpret_cast<Function>(functions[place])(calculator.get(), &answer), S_OK) << place;
        return answer;
    };
    EXPECT_EQ(ask(8, short{0}), 8);
    EXPECT_EQ(ask(9, LONG{0}), 450'000'000);
    EXPECT_EQ(ask(10, LONG{0}), 12'500);
    EXPECT_EQ(ask(11, VARIANT_BOOL{1}), VARIANT_TRUE);
}

}  // namespace
}  // namespace telvar::tests
