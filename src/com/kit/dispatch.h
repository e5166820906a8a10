// IDispatch of a dual interface through the type information of this module's own library, with a bridge for arguments
// by reference: scripts pass variables as references to variants, which the type information alone refuses.
#pragma once

#include "com/kit/automation.h"
#include "com/kit/guard.h"
#include "com/kit/module.h"

namespace telvar::com {

// Calls one member. Each argument is brought to the parameter's type in a variable of the bridge; what the method
// changed is converted back into the caller's variable. Arguments passed by value are never written to. Named arguments
// are put into their places first.
[[nodiscard]] HRESULT invokeThroughTypeInfo(ITypeInfo* info, void* instance, DISPID member, LCID locale, WORD flags,
                                            DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                            UINT* wrongArgument) noexcept;

// Fills the exception record in from a failed call of one's own, with the thread's error information; answers
// DISP_E_EXCEPTION.
[[nodiscard]] HRESULT exceptionFor(HRESULT code, EXCEPINFO* exception) noexcept;

// The dual interface with its four members of IDispatch. A class may derive from several; an heir may handle single
// members itself by overriding Invoke and leave the others to invokeMember.
template <class Interface>
class Dual : public Interface {
public:
    using ComInterface = Interface;

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        if (count == nullptr) {
            return E_POINTER;
        }
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) noexcept override {
        return guarded([&] {
            deref(info) = nullptr;
            if (index != 0) {
                return DISP_E_BADINDEX;
            }
            *info = module::typeInfo(__uuidof(Interface)).detach();
            return S_OK;
        });
    }
    STDMETHODIMP GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT count, LCID /*locale*/,
                               DISPID* ids) noexcept override {
        return guarded([&] { return module::typeInfo(__uuidof(Interface))->GetIDsOfNames(names, count, ids); });
    }
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) noexcept override {
        return invokeMember(member, reserved, locale, flags, arguments, result, exception, wrongArgument);
    }

protected:
    ~Dual() = default;

    [[nodiscard]] HRESULT invokeMember(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                                       VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept {
        return guarded([&] {
            if (!IsEqualIID(reserved, IID_NULL)) {
                return DISP_E_UNKNOWNINTERFACE;
            }
            Interface* const instance = this;
            return invokeThroughTypeInfo(module::typeInfo(__uuidof(Interface)).get(), instance, member, locale, flags,
                                         arguments, result, exception, wrongArgument);
        });
    }
};

}  // namespace telvar::com
