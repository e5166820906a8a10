#include "com/kit/late_bound.h"

#include <algorithm>
#include <array>
#include <string>

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

// The interface takes names that it may write to, and does not.
[[nodiscard]] MemberId lookUp(IDispatch& object, const std::wstring& name) {
    MemberId member;
    auto* changeable = const_cast<LPOLESTR>(name.c_str());
    const HRESULT plain = object.GetIDsOfNames(IID_NULL, &changeable, 1, LOCALE_USER_DEFAULT, &member.id);
    if (SUCCEEDED(plain)) {
        return member;
    }
    checkAbsent(plain);
    member.id = DISPID_UNKNOWN;
    if (const auto extended = ComPointer<IDispatchEx>::from(&object)) {
        const Bstr text{std::wstring_view(name)};
        member.extended = true;
        const HRESULT answer = extended->GetDispID(text.get(), fdexNameCaseInsensitive, &member.id);
        if (FAILED(answer)) {
            checkAbsent(answer);
            member.id = DISPID_UNKNOWN;
        }
    }
    return member;
}

}  // namespace

MemberId memberOf(IDispatch& object, std::string_view name) { return lookUp(object, wide(name)); }

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

KnownMembers::KnownMembers(std::vector<std::wstring> names) : names_(std::move(names)) { kinds_.reserve(mostKinds); }

KnownMembers::Kind* KnownMembers::kindOf(IDispatch& object) {
    if (last_.get() == &object) {
        return lastKind_;
    }
    Kind* const kind = askKind(object);
    if (kind != nullptr) {
        // Released last: letting an object go may call back into here.
        ComPointer<IDispatch> previous(&object);
        previous.swap(last_);
        lastKind_ = kind;
    }
    return kind;
}

KnownMembers::Kind* KnownMembers::askKind(IDispatch& object) {
    ComPointer<ITypeInfo> info;
    if (FAILED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put())) || !info) {
        return nullptr;
    }
    const auto same = [&](const Kind& kind) { return kind.info == info; };
    if (const auto found = std::find_if(kinds_.begin(), kinds_.end(), same); found != kinds_.end()) {
        return &*found;
    }
    TYPEATTR* attributes = nullptr;
    if (FAILED(info->GetTypeAttr(&attributes))) {
        return nullptr;
    }
    const GUID id = attributes->guid;
    info->ReleaseTypeAttr(attributes);
    if (IsEqualGUID(id, GUID_NULL)) {
        return nullptr;
    }
    const auto alike = [&](const Kind& kind) { return IsEqualGUID(kind.id, id); };
    if (const auto found = std::find_if(kinds_.begin(), kinds_.end(), alike); found != kinds_.end()) {
        return &*found;
    }
    if (kinds_.size() >= mostKinds) {
        return nullptr;
    }
    kinds_.push_back({std::move(info), id, std::vector<DISPID>(names_.size(), DISPID_UNKNOWN)});
    return &kinds_.back();
}

void KnownMembers::remember(IDispatch& object, std::size_t name, DISPID id) {
    if (Kind* const kind = kindOf(object); kind != nullptr && saysSame(*kind->info, names_[name], id)) {
        kind->members[name] = id;
    }
}

MemberId KnownMembers::find(IDispatch& object, std::size_t name) {
    if (const Kind* const kind = kindOf(object); kind != nullptr && kind->members[name] != DISPID_UNKNOWN) {
        return {kind->members[name], false};
    }
    const MemberId member = lookUp(object, names_[name]);
    if (member.known() && !member.extended) {
        remember(object, name, member.id);
    }
    return member;
}

MemberId KnownMembers::require(IDispatch& object, std::size_t name) {
    const MemberId member = find(object, name);
    if (!member.known()) {
        throw ComFailure(DISP_E_UNKNOWNNAME, "The object has no member " + narrow(names_[name]));
    }
    return member;
}

}  // namespace telvar::com
