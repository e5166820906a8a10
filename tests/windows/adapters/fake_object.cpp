#include "fake_object.h"

#include <cwchar>

namespace telvar::com::test {

int FakeObject::alive = 0;

HRESULT Call::answer(Variant value) const {
    if (result == nullptr) {
        return E_POINTER;
    }
    *result = value.detach();
    return S_OK;
}

Member property(Variant& value) {
    return [&value](const Call& call) {
        if (!call.isPut()) {
            return call.count() == 0 ? call.answer(value) : DISP_E_BADPARAMCOUNT;
        }
        value = Variant::copyOf(call.argument(0));
        return S_OK;
    };
}

Member constant(Variant value) {
    return [value = std::move(value)](const Call& call) {
        return call.count() == 0 && !call.isPut() ? call.answer(value) : DISP_E_BADPARAMCOUNT;
    };
}

STDMETHODIMP FakeTypeInfo::QueryInterface(REFIID iid, void** object) noexcept {
    if (!IsEqualIID(iid, __uuidof(IUnknown)) && !IsEqualIID(iid, __uuidof(ITypeInfo))) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<ITypeInfo*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) FakeTypeInfo::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP FakeTypeInfo::GetTypeAttr(TYPEATTR** attributes) noexcept {
    *attributes = new TYPEATTR{};
    (*attributes)->guid = id_;
    return S_OK;
}

STDMETHODIMP FakeTypeInfo::GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) noexcept {
    for (const Name& known : names_) {
        if (count == 1 && known.name == names[0]) {
            ids[0] = known.number;
            return S_OK;
        }
    }
    return DISP_E_UNKNOWNNAME;
}

FakeObject& FakeObject::with(const std::wstring& name, Member member) {
    members_.push_back({name, std::move(member)});
    return *this;
}

FakeObject& FakeObject::withDefault(Member member) {
    default_ = std::move(member);
    return *this;
}

STDMETHODIMP FakeObject::QueryInterface(REFIID iid, void** object) noexcept {
    *object = nullptr;
    if (IsEqualIID(iid, __uuidof(IUnknown)) || IsEqualIID(iid, __uuidof(IDispatch)) ||
        (isScript && IsEqualIID(iid, __uuidof(IDispatchEx)))) {
        *object = static_cast<IDispatchEx*>(this);
    } else if (supportsErrorInfo && IsEqualIID(iid, __uuidof(ISupportErrorInfo))) {
        *object = static_cast<ISupportErrorInfo*>(this);
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) FakeObject::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP FakeObject::GetTypeInfoCount(UINT* count) noexcept {
    *count = typeInfo ? 1 : 0;
    return S_OK;
}

STDMETHODIMP FakeObject::GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** info) noexcept {
    ++typeInfoAsked;
    *info = nullptr;
    if (FAILED(typeInfoAnswer)) {
        return typeInfoAnswer;
    }
    if (!typeInfo) {
        return E_NOTIMPL;
    }
    *info = typeInfo.share();
    return S_OK;
}

HRESULT FakeObject::find(const OLECHAR* name, Comparison compare, DISPID& id) {
    ++namesAsked;
    if (uponName) {
        uponName();
    }
    id = DISPID_UNKNOWN;
    if (FAILED(namesAnswer)) {
        return namesAnswer;
    }
    for (std::size_t at = 0; at < members_.size(); ++at) {
        if (compare(members_[at].name.c_str(), name) == 0) {
            id = firstNumber + static_cast<DISPID>(at);
            return S_OK;
        }
    }
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP FakeObject::GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT count, LCID /*locale*/,
                                       DISPID* ids) noexcept {
    return isScript ? E_NOTIMPL : count == 1 ? find(names[0], &_wcsicmp, ids[0]) : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP FakeObject::GetDispID(BSTR name, DWORD options, DISPID* id) noexcept {
    if (options == fdexNameCaseSensitive) {
        return tellsCase ? find(name, &std::wcscmp, *id) : E_NOTIMPL;
    }
    return options == fdexNameCaseInsensitive ? find(name, &_wcsicmp, *id) : E_INVALIDARG;
}

STDMETHODIMP FakeObject::Invoke(DISPID member, REFIID /*reserved*/, LCID /*locale*/, WORD flags, DISPPARAMS* arguments,
                                VARIANT* result, EXCEPINFO* exception, UINT* /*wrongArgument*/) noexcept {
    return isScript ? E_NOTIMPL : call(member, flags, *arguments, result, exception);
}

STDMETHODIMP FakeObject::InvokeEx(DISPID id, LCID /*locale*/, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                  EXCEPINFO* exception, IServiceProvider* /*caller*/) noexcept {
    return call(id, flags, *arguments, result, exception);
}

HRESULT FakeObject::call(DISPID id, WORD flags, const DISPPARAMS& arguments, VARIANT* result, EXCEPINFO* exception) {
    ++calls;
    const ComPointer<FakeObject> kept(this);
    --counted;
    const Call call{flags, arguments, result, exception};
    if (id == DISPID_VALUE) {
        return default_ ? default_(call) : DISP_E_MEMBERNOTFOUND;
    }
    const auto at = static_cast<std::size_t>(id - firstNumber);
    if (at >= members_.size()) {
        return DISP_E_MEMBERNOTFOUND;
    }
    const Member member = members_[at].member;
    return member(call);
}

}  // namespace telvar::com::test
