#include "com/kit/dispatch.h"

#include "base/pinned.h"
#include "com/kit/argument_bridge.h"
#include "com/kit/bstr.h"
#include "com/kit/pointer.h"

namespace telvar::com {

namespace {

constexpr WORD putFlags = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

// One function's description, which its type information owns.
class Function : private base::Pinned {
public:
    Function(ITypeInfo& info, DISPID member, WORD flags) : info_(info) {
        TYPEATTR* attributes = nullptr;
        check(info.GetTypeAttr(&attributes));
        const WORD count = attributes->cFuncs;
        info.ReleaseTypeAttr(attributes);
        for (UINT at = 0; at < count && !matches(member, flags); ++at) {
            release();
            check(info.GetFuncDesc(at, &description_));
        }
        if (!matches(member, flags)) {
            release();
            throw ComFailure(DISP_E_MEMBERNOTFOUND);
        }
    }
    ~Function() { release(); }

    [[nodiscard]] std::vector<Parameter> parameters() const { return parametersOf(*description_); }

private:
    [[nodiscard]] bool matches(DISPID member, WORD flags) const noexcept {
        return description_ != nullptr && description_->memid == member && (description_->invkind & flags) != 0 &&
               (description_->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0;
    }
    void release() noexcept {
        if (description_ != nullptr) {
            info_.ReleaseFuncDesc(description_);
            description_ = nullptr;
        }
    }

    ITypeInfo& info_;
    FUNCDESC* description_ = nullptr;
};

}  // namespace

HRESULT invokeThroughTypeInfo(ITypeInfo* info, void* instance, DISPID member, LCID locale, WORD flags,
                              DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                              UINT* wrongArgument) noexcept {
    UINT wrong = 0;
    try {
        const Function function(deref(info), member, flags);
        ArgumentBridge bridge(function.parameters(), deref(arguments), (flags & putFlags) != 0, locale, wrong);
        const HRESULT answer = info->Invoke(instance, member, flags, &bridge.passed(), result, exception, &wrong);
        if (SUCCEEDED(answer)) {
            bridge.writeBack();
        }
        return answer;
    } catch (const ComFailure& failure) {
        if (wrongArgument != nullptr) {
            *wrongArgument = wrong;
        }
        return failure.code();
    } catch (...) {
        return exceptionFor(answerForException(), exception);
    }
}

HRESULT exceptionFor(HRESULT code, EXCEPINFO* exception) noexcept {
    if (exception != nullptr) {
        *exception = EXCEPINFO{};
        exception->scode = code;
        ComPointer<IErrorInfo> info;
        if (GetErrorInfo(0, info.put()) == S_OK) {
            info->GetDescription(&exception->bstrDescription);
            info->GetSource(&exception->bstrSource);
        }
    }
    return DISP_E_EXCEPTION;
}

}  // namespace telvar::com
