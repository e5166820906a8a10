#include "com/kit/late_bound.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include <dispex.h>

#include "com/kit/failure.h"

namespace telvar::com {

namespace {

// More kinds than this are asked each time: a caller meets a store, its records and little else.
constexpr std::size_t mostKinds = 8;

// Borrowed copies of the arguments in reverse order: the callee owns none of them.
[[nodiscard]] HRESULT invokeRaw(IDispatch& object, MemberId member, WORD flags, std::span<const Variant> arguments,
                                Variant& result, EXCEPINFO& exception) {
    constexpr std::size_t most = 8;
    std::array<VARIANT, most> reversed;  // NOLINT: filled as far as it is used
    if (arguments.size() > most) {
        return DISP_E_BADPARAMCOUNT;
    }
    std::transform(arguments.rbegin(), arguments.rend(), reversed.begin(),
                   [](const Variant& argument) { return argument.get(); });
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPID putName = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), isPut ? &putName : nullptr, static_cast<UINT>(arguments.size()),
                          isPut ? 1U : 0U};
    VARIANT* const answer = isPut ? nullptr : result.put();
    if (!member.extended) {
        return object.Invoke(member.id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, answer, &exception, nullptr);
    }
    const auto extended = ComPointer<IDispatchEx>::from(&object);
    return extended
               ? extended->InvokeEx(member.id, LOCALE_USER_DEFAULT, flags, &parameters, answer, &exception, nullptr)
               : E_NOINTERFACE;
}

// The ways in which objects say that they have no such member; any other failure is one of asking.
void checkAbsent(HRESULT answer) {
    if (answer != DISP_E_UNKNOWNNAME && answer != DISP_E_MEMBERNOTFOUND && answer != TYPE_E_ELEMENTNOTFOUND &&
        answer != E_NOTIMPL) {
        throw ComFailure(answer);
    }
}

[[nodiscard]] bool saysSame(ITypeInfo& info, const std::wstring& name, DISPID id) {
    auto* changeable = const_cast<LPOLESTR>(name.c_str());
    MEMBERID own = MEMBERID_NIL;
    return SUCCEEDED(info.GetIDsOfNames(&changeable, 1, &own)) && own == id;
}

// Engines whose language knows no case may not take the question for the exact spelling.
[[nodiscard]] HRESULT lookUpExtended(IDispatchEx& object, const std::wstring& name, DISPID& id) {
    const Bstr text{std::wstring_view(name)};
    const HRESULT exact = object.GetDispID(text.get(), fdexNameCaseSensitive, &id);
    return exact == E_NOTIMPL || exact == E_INVALIDARG ? object.GetDispID(text.get(), fdexNameCaseInsensitive, &id)
                                                       : exact;
}

// The interface takes names that it may write to, and does not.
[[nodiscard]] HRESULT lookUpPlain(IDispatch& object, const std::wstring& name, DISPID& id) {
    auto* changeable = const_cast<LPOLESTR>(name.c_str());
    return object.GetIDsOfNames(IID_NULL, &changeable, 1, LOCALE_USER_DEFAULT, &id);
}

[[nodiscard]] MemberId lookUp(IDispatch& object, const std::wstring& name) {
    const auto extended = ComPointer<IDispatchEx>::from(&object);
    MemberId member{DISPID_UNKNOWN, static_cast<bool>(extended)};
    const HRESULT answer = extended ? lookUpExtended(*extended, name, member.id) : lookUpPlain(object, name, member.id);
    if (FAILED(answer)) {
        checkAbsent(answer);
        member.id = DISPID_UNKNOWN;
    }
    return member;
}

[[nodiscard]] MemberId required(MemberId member, const std::wstring& name) {
    if (!member.known()) {
        throw ComFailure(DISP_E_UNKNOWNNAME, "The object has no member " + win::narrow(name));
    }
    return member;
}

[[nodiscard]] ComPointer<ITypeInfo> typeInfoOf(IDispatch& object) {
    ComPointer<ITypeInfo> info;
    return SUCCEEDED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put())) ? info : nullptr;
}

// Null where it has none of its own.
[[nodiscard]] GUID identityOf(ITypeInfo& info) {
    TYPEATTR* attributes = nullptr;
    if (FAILED(info.GetTypeAttr(&attributes))) {
        return GUID_NULL;
    }
    const GUID id = attributes->guid;
    info.ReleaseTypeAttr(attributes);
    return id;
}

[[nodiscard]] bool belongsToItsKind(IDispatch& object, const std::wstring& name, DISPID id) {
    const auto info = typeInfoOf(object);
    return info && !IsEqualGUID(identityOf(*info), GUID_NULL) && saysSame(*info, name, id);
}

}  // namespace

MemberId memberOf(IDispatch& object, std::string_view name) { return lookUp(object, win::wide(name)); }

MemberId defaultMemberOf(IDispatch& object) {
    return {DISPID_VALUE, static_cast<bool>(ComPointer<IDispatchEx>::from(&object))};
}

Variant invoke(IDispatch& object, MemberId member, WORD flags, std::span<const Variant> arguments) {
    EXCEPINFO exception{};
    Variant result;
    // What an earlier failure left is not this one's.
    SetErrorInfo(0, nullptr);
    const HRESULT answer = invokeRaw(object, member, flags, arguments, result, exception);
    if (FAILED(answer)) {
        const bool hasErrorInfo =
            answer == DISP_E_EXCEPTION || static_cast<bool>(ComPointer<ISupportErrorInfo>::from(&object));
        throwException(answer, exception, hasErrorInfo);
    }
    return result;
}

HRESULT tryInvoke(IDispatch& object, MemberId member, WORD flags, std::span<const Variant> arguments, Variant& result) {
    EXCEPINFO exception{};
    const HRESULT answer = invokeRaw(object, member, flags, arguments, result, exception);
    const Bstr source = Bstr::adopt(exception.bstrSource);
    const Bstr description = Bstr::adopt(exception.bstrDescription);
    const Bstr helpFile = Bstr::adopt(exception.bstrHelpFile);
    return answer;
}

void putProperty(IDispatch& object, MemberId member, const Variant& value) {
    if (value.type() == VT_DISPATCH) {
        // Some objects have the plain put only; its failure is the one to tell.
        Variant nothing;
        if (SUCCEEDED(tryInvoke(object, member, DISPATCH_PROPERTYPUTREF, {&value, 1}, nothing))) {
            return;
        }
    }
    (void)invoke(object, member, DISPATCH_PROPERTYPUT, {&value, 1});
}

MemberId MembersOfKind::find(IDispatch& object, std::size_t name) {
    if (ids_[name] != DISPID_UNKNOWN) {
        return {ids_[name], false};
    }
    const MemberId member = lookUp(object, names_[name]);
    if (member.known() && !member.extended && belongsToItsKind(object, names_[name], member.id)) {
        ids_[name] = member.id;
    }
    return member;
}

MemberId MembersOfKind::require(IDispatch& object, std::size_t name) {
    return required(find(object, name), names_[name]);
}

KnownMembers::KnownMembers(std::vector<std::wstring> names) : names_(std::move(names)) { kinds_.reserve(mostKinds); }

MembersOfKind* KnownMembers::kindOf(IDispatch& object) {
    if (ComPointer<IDispatchEx>::from(&object)) {
        return nullptr;
    }
    auto info = typeInfoOf(object);
    if (!info) {
        return nullptr;
    }
    const auto same = [&](const Kind& kind) { return kind.info == info; };
    if (const auto found = std::ranges::find_if(kinds_, same); found != kinds_.end()) {
        return &found->members;
    }
    const GUID id = identityOf(*info);
    if (IsEqualGUID(id, GUID_NULL)) {
        return nullptr;
    }
    const auto alike = [&](const Kind& kind) { return IsEqualGUID(kind.id, id); };
    if (const auto found = std::ranges::find_if(kinds_, alike); found != kinds_.end()) {
        return &found->members;
    }
    if (kinds_.size() >= mostKinds) {
        return nullptr;
    }
    kinds_.push_back({.info = std::move(info), .id = id, .members = MembersOfKind(names_)});
    return &kinds_.back().members;
}

MemberId KnownMembers::require(IDispatch& object, std::size_t name) {
    MembersOfKind* const kind = kindOf(object);
    return kind != nullptr ? kind->require(object, name) : required(lookUp(object, names_[name]), names_[name]);
}

}  // namespace telvar::com
