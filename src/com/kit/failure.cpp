#include "com/kit/failure.h"

#include <array>
#include <exception>
#include <new>
#include <string_view>

#include "com/kit/bstr.h"
#include "com/kit/module.h"
#include "com/kit/pointer.h"
#include "win/failure.h"
#include "win/text.h"

namespace telvar::com {

namespace {

struct KnownCode {
    HRESULT code;
    std::string_view description;
};

// The phrases by which a caller in a script knows these failures.
constexpr std::array<KnownCode, 12> knownCodes{{
    {DISP_E_TYPEMISMATCH, "Type mismatch"},
    {DISP_E_OVERFLOW, "Overflow"},
    {DISP_E_DIVBYZERO, "Division by zero"},
    {DISP_E_BADINDEX, "Subscript out of range"},
    {DISP_E_MEMBERNOTFOUND, "The object has no such member"},
    {DISP_E_UNKNOWNNAME, "The object has no such member"},
    {DISP_E_BADPARAMCOUNT, "Wrong number of arguments"},
    {DISP_E_PARAMNOTOPTIONAL, "Argument not optional"},
    {E_NOTIMPL, "Not implemented"},
    {E_OUTOFMEMORY, "Out of memory"},
    {E_POINTER, "A reference is null"},
    {E_FAIL, "Unspecified failure"},
}};

// The codes that a script's own run-time knows, so that its error numbers are the usual ones.
[[nodiscard]] HRESULT codeOf(const base::Failure& failure) noexcept {
    if (const auto* own = dynamic_cast<const ComFailure*>(&failure)) {
        return own->code();
    }
    if (const auto* system = dynamic_cast<const win::SystemFailure*>(&failure)) {
        return HRESULT_FROM_WIN32(system->code());
    }
    if (dynamic_cast<const base::SubscriptFailure*>(&failure) != nullptr) {
        return DISP_E_BADINDEX;
    }
    const std::string_view text = failure.what();
    if (dynamic_cast<const base::ConversionFailure*>(&failure) != nullptr ||
        dynamic_cast<const base::ArithmeticFault*>(&failure) != nullptr) {
        return text == "Overflow"           ? DISP_E_OVERFLOW
               : text == "Division by zero" ? DISP_E_DIVBYZERO
                                            : DISP_E_TYPEMISMATCH;
    }
    return E_FAIL;
}

}  // namespace

ComFailure::ComFailure(HRESULT code) : ComFailure(code, describe(code)) {}

std::string describe(HRESULT code) {
    for (const auto& known : knownCodes) {
        if (known.code == code) {
            return std::string(known.description);
        }
    }
    return win::errorText(static_cast<DWORD>(code));
}

void throwErrorInfo(HRESULT code) {
    ComPointer<IErrorInfo> info;
    Bstr description;
    if (GetErrorInfo(0, info.put()) == S_OK && SUCCEEDED(info->GetDescription(description.put())) &&
        !description.view().empty()) {
        throw ComFailure(code, std::string(win::withoutFinalStop(description.text())));
    }
    throw ComFailure(code);
}

void throwException(HRESULT code, EXCEPINFO& info, bool hasErrorInfo) {
    if (info.pfnDeferredFillIn != nullptr) {
        info.pfnDeferredFillIn(&info);
    }
    const Bstr source = Bstr::adopt(info.bstrSource);
    const Bstr description = Bstr::adopt(info.bstrDescription);
    const Bstr helpFile = Bstr::adopt(info.bstrHelpFile);
    const bool isException = code == DISP_E_EXCEPTION;
    const HRESULT own = isException && FAILED(info.scode) ? info.scode : code;
    if (isException && !description.view().empty()) {
        throw ComFailure(own, std::string(win::withoutFinalStop(description.text())));
    }
    if (hasErrorInfo) {
        throwErrorInfo(own);
    }
    throw ComFailure(own);
}

void setErrorInfo(const std::string& description) noexcept {
    try {
        ComPointer<ICreateErrorInfo> creation;
        if (FAILED(CreateErrorInfo(creation.put()))) {
            return;
        }
        std::wstring source = module::name();
        std::wstring text = win::wide(description);
        creation->SetSource(source.data());
        creation->SetDescription(text.data());
        if (const auto info = ComPointer<IErrorInfo>::from(creation)) {
            SetErrorInfo(0, info.get());
        }
    } catch (const std::exception&) {
        // The code alone must do.
        SetErrorInfo(0, nullptr);
    }
}

HRESULT answerForException() noexcept {
    try {
        throw;
    } catch (const base::Failure& failure) {
        setErrorInfo(failure.what());
        return codeOf(failure);
    } catch (const std::bad_alloc&) {
        SetErrorInfo(0, nullptr);
        return E_OUTOFMEMORY;
    } catch (const std::exception& exception) {
        setErrorInfo(exception.what());
        return E_UNEXPECTED;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace telvar::com
