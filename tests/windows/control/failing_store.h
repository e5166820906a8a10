// Stands between the control and a store: counts the calls that arrive and fails one of them, as a store does whose
// radio was pulled out. The records pass through it as well.
#pragma once

#include "world.h"

namespace telvar::tests {

// What proxies of one table share.
struct FailingCall {
    int count = 0;
    int failing = 0;  // 0 fails none
    HRESULT code = DISP_E_EXCEPTION;

    [[nodiscard]] bool isNow() noexcept { return ++count == failing; }
};

// Forwards everything to `behind`; a record that it answers is wrapped likewise.
class FailingProxy final : public com::Object<IDispatch> {
public:
    FailingProxy(IDispatch* behind, FailingCall& failure) : behind_(behind), failure_(failure) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) noexcept override;

private:
    // An array of the wrapped records, a new one for each question.
    void answerTable(VARIANT& result);

    ComPointer<IDispatch> behind_;
    FailingCall& failure_;
    std::vector<ComPointer<FailingProxy>> records_;
};

}  // namespace telvar::tests
