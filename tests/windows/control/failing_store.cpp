#include "failing_store.h"

namespace telvar::tests {

HRESULT FailingProxy::GetTypeInfoCount(UINT* count) noexcept { return behind_->GetTypeInfoCount(count); }

HRESULT FailingProxy::GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept {
    return behind_->GetTypeInfo(index, locale, info);
}

HRESULT FailingProxy::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) noexcept {
    return behind_->GetIDsOfNames(iid, names, count, locale, ids);
}

HRESULT FailingProxy::Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                             EXCEPINFO* exception, UINT* wrongArgument) noexcept {
    if (failure_.isNow()) {
        if (exception != nullptr && failure_.code == DISP_E_EXCEPTION) {
            exception->bstrDescription = Bstr(std::string_view("The cable was pulled out")).detach();
            exception->scode = E_FAIL;
        }
        return failure_.code;
    }
    constexpr DISPID channelTable = 1;
    ComPointer<IDataStore> store;
    const bool isStore = SUCCEEDED(behind_->QueryInterface(__uuidof(IDataStore), store.putVoid()));
    if (!isStore || member != channelTable || arguments->cArgs != 0 || result == nullptr) {
        return behind_->Invoke(member, iid, locale, flags, arguments, result, exception, wrongArgument);
    }
    return com::guarded([&] {
        // An array of wrapped records, a new one for each question.
        const Variant own = get(*behind_, "ChannelTable");
        const VARIANT& table = com::dereferenced(own.get());
        SAFEARRAY* const source = (V_VT(&table) & VT_BYREF) != 0 ? *V_ARRAYREF(&table) : V_ARRAY(&table);
        SAFEARRAY* const wrapped = SafeArrayCreateVector(VT_DISPATCH, 0, 255);
        for (LONG at = 0; at < 255; ++at) {
            Variant record;
            com::check(SafeArrayGetElement(source, &at, &record.get()));
            const auto proxy = com::make<FailingProxy>(V_DISPATCH(&record.get()), failure_);
            com::check(SafeArrayPutElement(wrapped, &at, proxy.get()));
        }
        V_VT(result) = VT_ARRAY | VT_DISPATCH;
        V_ARRAY(result) = wrapped;
    });
}

}  // namespace telvar::tests
