#include "com/kit/late_bound.h"

#include <algorithm>
#include <array>

#include <dispex.h>

#include "com/kit/failure.h"

namespace telvar::com {

namespace {

// More kinds than this are asked each time: a caller meets a store, its records and little else.
constexpr std::size_t mostKinds = 8;

[[nodiscard]] HRESULT invokeRaw(IDispatch& object, MemberId member, WORD flags, DISPPARAMS& parameters, VARIANT* result,
                                EXCEPINFO& exception) {
    if (!member.extended) {
        return object.Invoke(member.id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, &exception, nullptr);
    }
    const auto extended = ComPointer<IDispatchEx>::from(&object);
    return extended
               ? extended->InvokeEx(member.id, LOCALE_USER_DEFAULT, flags, &parameters, result, &exception, nullptr)
               : E_NOINTERFACE;
}

}  // namespace

MemberId memberOf(IDispatch& object, const wchar_t* name) {
    MemberId member;
    // The interface takes names that it may write to, and does not.
    auto* changeable = const_cast<LPOLESTR>(name);
    if (SUCCEEDED(object.GetIDsOfNames(IID_NULL, &changeable, 1, LOCALE_USER_DEFAULT, &member.id))) {
        return member;
    }
    member.id = DISPID_UNKNOWN;
    if (const auto extended = ComPointer<IDispatchEx>::from(&object)) {
        const Bstr text{std::wstring_view(name)};
        member.extended = true;
        if (FAILED(extended->GetDispID(text.get(), fdexNameCaseInsensitive, &member.id))) {
            member.id = DISPID_UNKNOWN;
        }
    }
    return member;
}

Variant invoke(IDispatch& object, MemberId member, WORD flags, std::span<const Variant> arguments) {
    // Borrowed copies: the callee owns none of its arguments.
    constexpr std::size_t most = 8;
    std::array<VARIANT, most> reversed;  // NOLINT: filled as far as it is used
    if (arguments.size() > most) {
        throw ComFailure(DISP_E_BADPARAMCOUNT);
    }
    std::transform(arguments.rbegin(), arguments.rend(), reversed.begin(),
                   [](const Variant& argument) { return argument.get(); });
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPID putName = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), isPut ? &putName : nullptr, static_cast<UINT>(arguments.size()),
                          isPut ? 1U : 0U};
    EXCEPINFO exception{};
    Variant result;
    const HRESULT answer = invokeRaw(object, member, flags, parameters, isPut ? nullptr : result.put(), exception);
    if (FAILED(answer)) {
        if (answer != DISP_E_EXCEPTION && ComPointer<ISupportErrorInfo>::from(&object)) {
            throwErrorInfo(answer);
        }
        throwException(answer, exception);
    }
    return result;
}

void putProperty(IDispatch& object, MemberId member, const Variant& value) {
    if (value.type() == VT_DISPATCH) {
        try {
            (void)invoke(object, member, DISPATCH_PROPERTYPUTREF, {&value, 1});
            return;
        } catch (const ComFailure&) {
            // Some objects have the plain put only; its failure is the one to tell.
        }
    }
    (void)invoke(object, member, DISPATCH_PROPERTYPUT, {&value, 1});
}

KnownMembers::Kind* KnownMembers::kindOf(IDispatch& object) {
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
    kinds_.push_back({std::move(info), id, std::vector<std::optional<MemberId>>(names_.size())});
    return &kinds_.back();
}

MemberId KnownMembers::find(IDispatch& object, std::size_t name) {
    if (const Kind* const kind = kindOf(object); kind != nullptr && kind->members[name]) {
        return *kind->members[name];
    }
    const MemberId member = memberOf(object, names_[name].c_str());
    // Looked up anew: the object may have called back and changed what is remembered.
    if (Kind* const kind = kindOf(object)) {
        kind->members[name] = member;
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
