// The forms of IDispatch calls that nearly every client uses, told apart from the rest in a few comparisons.
#pragma once

#include "com/kit/dispatch.h"

namespace telvar::com {

// A property read without arguments by a caller who wants the value.
[[nodiscard]] inline bool isPlainGet(REFIID reserved, WORD flags, const DISPPARAMS* arguments,
                                     const VARIANT* result) noexcept {
    return (flags & DISPATCH_PROPERTYGET) != 0 && arguments != nullptr && arguments->cArgs == 0 && result != nullptr &&
           IsEqualIID(reserved, IID_NULL);
}

// A property set to one value.
[[nodiscard]] inline bool isPlainPut(REFIID reserved, WORD flags, const DISPPARAMS* arguments) noexcept {
    return (flags & DISPATCH_PROPERTYPUT) != 0 && arguments != nullptr && arguments->cArgs == 1 &&
           arguments->cNamedArgs == 1 && arguments->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT &&
           IsEqualIID(reserved, IID_NULL);
}

// What a plain get or put answers when it failed: a value that does not convert is the argument's fault, everything
// else travels as an exception with its description.
[[nodiscard]] inline HRESULT failedCall(HRESULT code, EXCEPINFO* exception, UINT* wrongArgument) noexcept {
    if (code != DISP_E_TYPEMISMATCH && code != DISP_E_OVERFLOW) {
        return exceptionFor(code, exception);
    }
    SetErrorInfo(0, nullptr);
    if (wrongArgument != nullptr) {
        *wrongArgument = 0;
    }
    return code;
}

// A single name, without names of parameters behind it.
[[nodiscard]] inline bool isPlainName(LPOLESTR* names, UINT count, const DISPID* ids) noexcept {
    return count == 1 && names != nullptr && names[0] != nullptr && ids != nullptr;
}

}  // namespace telvar::com
