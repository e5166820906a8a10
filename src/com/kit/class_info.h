// Small interfaces that are alike in every class: IProvideClassInfo2 and ISupportErrorInfo.
#pragma once

#include "com/kit/automation.h"
#include "com/kit/guard.h"
#include "com/kit/module.h"

namespace telvar::com {

// Of a class with one event interface; both are read from the module's type library.
template <class Coclass, class Events>
class ProvidesClassInfo : public IProvideClassInfo2 {
public:
    using ComInterface = IProvideClassInfo2;

    STDMETHODIMP GetClassInfo(ITypeInfo** info) noexcept override {
        return guarded([&] {
            deref(info) = nullptr;
            *info = module::typeInfo(__uuidof(Coclass)).detach();
        });
    }
    STDMETHODIMP GetGUID(DWORD kind, GUID* id) noexcept override {
        return guarded([&] {
            deref(id) = GUID{};
            if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) {
                return E_INVALIDARG;
            }
            *id = __uuidof(Events);
            return S_OK;
        });
    }

protected:
    ~ProvidesClassInfo() = default;
};

// Says that failures of these interfaces carry error information.
template <class... Interfaces>
class SupportsErrorInfo : public ISupportErrorInfo {
public:
    using ComInterface = ISupportErrorInfo;

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return (IsEqualIID(iid, __uuidof(Interfaces)) || ...) ? S_OK : S_FALSE;
    }

protected:
    ~SupportsErrorInfo() = default;
};

}  // namespace telvar::com
