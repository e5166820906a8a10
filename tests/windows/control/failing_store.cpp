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
    return com::guarded([&] { answerTable(*result); });
}

void FailingProxy::answerTable(VARIANT& result) {
    constexpr LONG channels = 255;
    if (records_.empty()) {
        for (std::int16_t at = 0; at < channels; ++at) {
            const Variant record = call(*behind_, "ChannelTable", {Variant(at)});
            records_.push_back(com::make<FailingProxy>(V_DISPATCH(&record.get()), failure_));
        }
    }
    SAFEARRAY* const wrapped = SafeArrayCreateVector(VT_DISPATCH, 0, channels);
    for (LONG at = 0; at < channels; ++at) {
        com::check(SafeArrayPutElement(wrapped, &at, records_[static_cast<std::size_t>(at)].get()));
    }
    V_VT(&result) = VT_ARRAY | VT_DISPATCH;
    V_ARRAY(&result) = wrapped;
}

}  // namespace telvar::tests
