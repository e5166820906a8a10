// The store and its records answer names and plain calls by themselves. Whatever they say must be what their type
// library says.
#include <cctype>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "com/store/dispatch_names.h"
#include "win/text.h"
#include "world.h"

namespace telvar::tests {
namespace {

struct Member {
    DISPID id = DISPID_UNKNOWN;
    int kinds = 0;              // INVOKEKIND values
    VARTYPE answer = VT_EMPTY;  // of the property get or the method
    bool operator==(const Member&) const = default;
};
using Members = std::map<std::string, Member>;

[[nodiscard]] ComPointer<ITypeInfo> typeInfoOf(IDispatch& object) {
    ComPointer<ITypeInfo> info;
    com::check(object.GetTypeInfo(0, LOCALE_INVARIANT, info.put()));
    return info;
}

// The interface's own members, without those of IDispatch.
[[nodiscard]] Members membersIn(ITypeInfo& info) {
    constexpr DISPID firstOfIDispatch = 0x60000000;
    TYPEATTR* attributes = nullptr;
    com::check(info.GetTypeAttr(&attributes));
    const WORD count = attributes->cFuncs;
    info.ReleaseTypeAttr(attributes);
    Members members;
    for (UINT at = 0; at < count; ++at) {
        FUNCDESC* function = nullptr;
        com::check(info.GetFuncDesc(at, &function));
        if (function->memid < firstOfIDispatch) {
            Bstr name;
            UINT found = 0;
            com::check(info.GetNames(function->memid, name.put(), 1, &found));
            Member& member = members[name.text()];
            member.id = function->memid;
            member.kinds |= function->invkind;
            if (function->invkind != INVOKE_PROPERTYPUT) {
                member.answer = function->elemdescFunc.tdesc.vt;
            }
        }
        info.ReleaseFuncDesc(function);
    }
    return members;
}

template <class Table>
[[nodiscard]] std::map<std::string, DISPID> idsOf(const Table& table) {
    std::map<std::string, DISPID> ids;
    for (const auto& member : table.members()) {
        ids.emplace(std::string(member.name), member.id);
    }
    return ids;
}

[[nodiscard]] std::map<std::string, DISPID> idsOf(const Members& members) {
    std::map<std::string, DISPID> ids;
    for (const auto& [name, member] : members) {
        ids.emplace(name, member.id);
    }
    return ids;
}

[[nodiscard]] DISPID askedFor(IDispatch& object, const std::string& name) {
    std::wstring text = win::wide(name);
    wchar_t* names = text.data();
    DISPID id = 0;
    const HRESULT answer = object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_INVARIANT, &id);
    EXPECT_EQ(answer, id == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK) << name;
    return id;
}

template <class Change>
[[nodiscard]] std::string changed(std::string text, Change change) {
    for (char& character : text) {
        character = static_cast<char>(change(static_cast<unsigned char>(character)));
    }
    return text;
}

[[nodiscard]] VARTYPE typeOf(model::MemberKind kind) {
    switch (kind) {
    case model::MemberKind::Boolean:
        return VT_BOOL;
    case model::MemberKind::Integer16:
        return VT_I2;
    case model::MemberKind::Integer32:
        return VT_I4;
    case model::MemberKind::Single:
        return VT_R4;
    case model::MemberKind::Text:
        break;
    }
    return VT_BSTR;
}

constexpr int readAndWritten = INVOKE_PROPERTYGET | INVOKE_PROPERTYPUT;

class TypeLibrary : public StoreWorld {
protected:
    // Every member under its own spelling and others, and words that are no members.
    static void expectNames(IDispatch& object, const std::map<std::string, DISPID>& ids) {
        for (const auto& [name, id] : ids) {
            EXPECT_EQ(askedFor(object, name), id) << name;
            EXPECT_EQ(askedFor(object, changed(name, [](int c) { return std::tolower(c); })), id) << name;
            EXPECT_EQ(askedFor(object, changed(name, [](int c) { return std::toupper(c); })), id) << name;
            EXPECT_EQ(askedFor(object, name + "x"), DISPID_UNKNOWN) << name;
            EXPECT_EQ(askedFor(object, name.substr(1)), DISPID_UNKNOWN) << name;
            EXPECT_EQ(askedFor(object, name.substr(0, name.size() - 1)), DISPID_UNKNOWN) << name;
            // The same bits but for the one that tells upper case from lower.
            EXPECT_EQ(askedFor(object, changed(name, [](int c) { return c ^ 0x40; })), DISPID_UNKNOWN) << name;
        }
        EXPECT_EQ(askedFor(object, ""), DISPID_UNKNOWN);
        EXPECT_EQ(askedFor(object, "Größe"), DISPID_UNKNOWN);
    }
};

TEST_F(TypeLibrary, NamesTheRecordsMembersAsTheyAreAnswered) {
    const auto first = record(0);
    const Members members = membersIn(*typeInfoOf(*first));
    EXPECT_EQ(idsOf(com::recordNames), idsOf(members));
    EXPECT_EQ(members.size(), model::channelKeyCount);
    for (const auto& info : model::channelKeys) {
        const Member expected{com::firstKeyId + static_cast<DISPID>(info.key), readAndWritten, VT_VARIANT};
        EXPECT_EQ(members.at(std::string(info.name)), expected) << info.name;
    }
    expectNames(*first, idsOf(members));
}

TEST_F(TypeLibrary, NamesTheStoresMembersAsTheyAreAnswered) {
    const Members members = membersIn(*typeInfoOf(*store));
    EXPECT_EQ(idsOf(com::dataStoreNames), idsOf(members));
    for (const auto& info : model::storeMembers) {
        const Member expected{com::firstMemberId + static_cast<DISPID>(info.member), readAndWritten, typeOf(info.kind)};
        EXPECT_EQ(members.at(std::string(info.name)), expected) << info.name;
    }
    expectNames(*store, idsOf(members));
}

// The same question through the type library, which calls the object's vtable.
[[nodiscard]] Variant askedOf(ITypeInfo& info, void* instance, DISPID id) {
    Variant answer;
    DISPPARAMS none{};
    com::check(info.Invoke(instance, id, DISPATCH_PROPERTYGET, &none, answer.put(), nullptr, nullptr));
    return answer;
}

TEST_F(TypeLibrary, AnswersValuesAndTypesAsTheObjectsDo) {
    const auto first = record(0);
    const auto recordInfo = typeInfoOf(*first);
    for (const auto& info : model::channelKeys) {
        const Variant own = get(*first, std::string(info.name));
        const Variant other = askedOf(*recordInfo, first.get(), com::firstKeyId + static_cast<DISPID>(info.key));
        EXPECT_EQ(own.type(), other.type()) << info.name;
        EXPECT_EQ(textOf(own), textOf(other)) << info.name;
    }
    const auto storeInfo = typeInfoOf(*store);
    for (const auto& info : model::storeMembers) {
        const Variant own = get(*store, std::string(info.name));
        const Variant other = askedOf(*storeInfo, store.get(), com::firstMemberId + static_cast<DISPID>(info.member));
        EXPECT_EQ(own.type(), typeOf(info.kind)) << info.name;
        EXPECT_EQ(own.type(), other.type()) << info.name;
        EXPECT_EQ(textOf(own), textOf(other)) << info.name;
    }
}

TEST_F(TypeLibrary, FindsTheNamesOfArgumentsToo) {
    std::wstring method = L"setpotvalue";
    std::wstring level = L"level";
    std::wstring index = L"index";
    wchar_t* names[] = {method.data(), level.data(), index.data()};
    DISPID ids[] = {0, 0, 0};
    ASSERT_EQ(store->GetIDsOfNames(IID_NULL, names, 3, LOCALE_INVARIANT, ids), S_OK);
    EXPECT_EQ(ids[0], 28);
    EXPECT_EQ(ids[1], 1);
    EXPECT_EQ(ids[2], 0);
}

TEST_F(TypeLibrary, BelongsToTheClass) {
    const auto provider = ComPointer<IProvideClassInfo>::from(store);
    ASSERT_TRUE(provider);
    ComPointer<ITypeInfo> info;
    ASSERT_EQ(provider->GetClassInfo(info.put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, __uuidof(DataStore)));
    info->ReleaseTypeAttr(attributes);
}

}  // namespace
}  // namespace telvar::tests
