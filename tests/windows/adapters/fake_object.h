// Hand-made automation objects of no known class, which count what is asked of them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "com/kit/automation.h"
#include "com/kit/pointer.h"
#include "com/kit/variant.h"

#include <dispex.h>

namespace telvar::com::test {

// How a member answers one call.
struct Call {
    WORD flags;
    const DISPPARAMS& given;
    VARIANT* result;
    EXCEPINFO* exception;

    [[nodiscard]] UINT count() const { return given.cArgs; }
    // In the order of declaration.
    [[nodiscard]] VARIANT& argument(UINT position) const { return given.rgvarg[given.cArgs - 1 - position]; }
    [[nodiscard]] bool isPut() const { return (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0; }
    [[nodiscard]] HRESULT answer(Variant value) const;
};
using Member = std::function<HRESULT(const Call&)>;

// A property that holds a value and takes any other.
[[nodiscard]] Member property(Variant& value);
// Without an argument the answer is refused as by a property that needs one.
[[nodiscard]] Member constant(Variant value);

// Type information of nothing but an identity and numbers of names.
class FakeTypeInfo final : public ITypeInfo {
public:
    explicit FakeTypeInfo(const GUID& id) : id_(id) {}
    void knows(const std::wstring& name, MEMBERID number) { names_.push_back({name, number}); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() noexcept override;
    STDMETHODIMP GetTypeAttr(TYPEATTR** attributes) noexcept override;
    STDMETHODIMP_(void) ReleaseTypeAttr(TYPEATTR* attributes) noexcept override { delete attributes; }
    STDMETHODIMP GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) noexcept override;

    // NOLINTBEGIN(readability-named-parameter)
    STDMETHODIMP GetTypeComp(ITypeComp**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetFuncDesc(UINT, FUNCDESC**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetVarDesc(UINT, VARDESC**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetNames(MEMBERID, BSTR*, UINT, UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetRefTypeOfImplType(UINT, HREFTYPE*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetImplTypeFlags(UINT, INT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(PVOID, MEMBERID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP GetDocumentation(MEMBERID, BSTR*, BSTR*, DWORD*, BSTR*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetDllEntry(MEMBERID, INVOKEKIND, BSTR*, BSTR*, WORD*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetRefTypeInfo(HREFTYPE, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP AddressOfMember(MEMBERID, INVOKEKIND, PVOID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID, PVOID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMops(MEMBERID, BSTR*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetContainingTypeLib(ITypeLib**, UINT*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP_(void) ReleaseFuncDesc(FUNCDESC*) noexcept override {}
    STDMETHODIMP_(void) ReleaseVarDesc(VARDESC*) noexcept override {}
    // NOLINTEND(readability-named-parameter)

private:
    struct Name {
        std::wstring name;
        MEMBERID number;
    };

    virtual ~FakeTypeInfo() = default;

    GUID id_;
    std::vector<Name> names_;
    ULONG references_ = 1;
};

[[nodiscard]] inline ComPointer<FakeTypeInfo> makeTypeInfo(const GUID& id) {
    return ComPointer<FakeTypeInfo>::adopt(new FakeTypeInfo(id));
}

class FakeObject final : public IDispatchEx, public ISupportErrorInfo {
public:
    FakeObject() { ++alive; }

    // Members are numbered from `firstNumber` in the order in which they are added; the default member has number 0.
    FakeObject& with(const std::wstring& name, Member member);
    FakeObject& withDefault(Member member);

    DISPID firstNumber = 1;
    // Like an object of a script engine: the plain interface answers nothing, the extended one everything.
    bool isScript = false;
    // Of the extended interface: whether it takes a question for a name's exact spelling.
    bool tellsCase = true;
    bool supportsErrorInfo = false;
    ComPointer<ITypeInfo> typeInfo;
    HRESULT typeInfoAnswer = S_OK;  // of asking for it
    HRESULT namesAnswer = S_OK;     // of asking for any name
    std::function<void()> uponName;

    int namesAsked = 0;
    int typeInfoAsked = 0;
    int calls = 0;
    int counted = 0;  // times that somebody took a reference
    [[nodiscard]] ULONG references() const { return references_; }

    // All objects of this class that exist.
    static int alive;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override {
        ++counted;
        return ++references_;
    }
    STDMETHODIMP_(ULONG) Release() noexcept override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) noexcept override;

    STDMETHODIMP GetDispID(BSTR name, DWORD options, DISPID* id) noexcept override;
    STDMETHODIMP InvokeEx(DISPID id, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                          EXCEPINFO* exception, IServiceProvider* caller) noexcept override;
    // NOLINTBEGIN(readability-named-parameter)
    STDMETHODIMP DeleteMemberByName(BSTR, DWORD) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP DeleteMemberByDispID(DISPID) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMemberProperties(DISPID, DWORD, DWORD*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetMemberName(DISPID, BSTR*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetNextDispID(DWORD, DISPID, DISPID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetNameSpaceParent(IUnknown**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID) noexcept override { return S_OK; }
    // NOLINTEND(readability-named-parameter)

private:
    struct Named {
        std::wstring name;
        Member member;
    };

    virtual ~FakeObject() { --alive; }
    using Comparison = int (*)(const wchar_t* left, const wchar_t* right);
    [[nodiscard]] HRESULT find(const OLECHAR* name, Comparison compare, DISPID& id);
    [[nodiscard]] HRESULT call(DISPID id, WORD flags, const DISPPARAMS& arguments, VARIANT* result,
                               EXCEPINFO* exception);

    std::vector<Named> members_;
    Member default_;
    ULONG references_ = 1;
};

[[nodiscard]] inline ComPointer<FakeObject> makeObject() { return ComPointer<FakeObject>::adopt(new FakeObject); }

[[nodiscard]] inline Variant objectVariant(const ComPointer<FakeObject>& object) {
    return Variant(static_cast<IDispatch*>(object.get()));
}

}  // namespace telvar::com::test
