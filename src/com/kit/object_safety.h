// IObjectSafety: a careful host asks whether an object may be used by callers or fed with data that it does not trust.
#pragma once

#include "com/kit/automation.h"
#include "com/kit/guard.h"

#include <objsafe.h>

// The system's header does not tie the identifier to the interface.
__CRT_UUID_DECL(IObjectSafety, 0xcb5bdc81, 0x93c1, 0x11cf, 0x8f, 0x20, 0x00, 0x80, 0x5f, 0x2c, 0xd0, 0x64)

namespace telvar::com {

// Agrees to both kinds of distrust for calls through IDispatch and the named interfaces. An heir whose members could do
// harm looks at isDistrusted().
template <class... Interfaces>
class ObjectSafety : public IObjectSafety {
public:
    using ComInterface = IObjectSafety;

    STDMETHODIMP GetInterfaceSafetyOptions(REFIID iid, DWORD* supported, DWORD* enabled) noexcept override {
        return guarded([&] {
            deref(supported) = 0;
            deref(enabled) = 0;
            if (!offers(iid)) {
                return E_NOINTERFACE;
            }
            *supported = options;
            *enabled = enabled_;
            return S_OK;
        });
    }
    STDMETHODIMP SetInterfaceSafetyOptions(REFIID iid, DWORD mask, DWORD enabled) noexcept override {
        if (!offers(iid)) {
            return E_NOINTERFACE;
        }
        if ((mask & ~options) != 0) {
            return E_FAIL;
        }
        enabled_ = (enabled_ & ~mask) | (enabled & mask);
        return S_OK;
    }

protected:
    ~ObjectSafety() = default;

    // The host said that the caller or the data may mean harm.
    [[nodiscard]] bool isDistrusted() const noexcept { return enabled_ != 0; }

private:
    static constexpr DWORD options = INTERFACESAFE_FOR_UNTRUSTED_CALLER | INTERFACESAFE_FOR_UNTRUSTED_DATA;

    [[nodiscard]] static bool offers(REFIID iid) noexcept {
        return IsEqualIID(iid, __uuidof(IDispatch)) || (IsEqualIID(iid, __uuidof(Interfaces)) || ...);
    }

    DWORD enabled_ = 0;
};

}  // namespace telvar::com
