#include "com/store/channel_record.h"

#include "com/kit/value.h"
#include "com/store/dispatch_names.h"
#include "com/store/plain_call.h"
#include "com/store/shared_table.h"

namespace telvar::com {

namespace {

[[nodiscard]] bool isKey(DISPID member) noexcept {
    return member >= firstKeyId && member < firstKeyId + static_cast<DISPID>(model::channelKeyCount);
}

[[nodiscard]] model::ChannelKey keyOf(DISPID member) noexcept {
    return static_cast<model::ChannelKey>(member - firstKeyId);
}

}  // namespace

STDMETHODIMP ChannelRecord::QueryInterface(REFIID iid, void** object) noexcept {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (IsEqualIID(iid, __uuidof(IUnknown)) || IsEqualIID(iid, __uuidof(IDispatch)) ||
        IsEqualIID(iid, __uuidof(IChannelRecord))) {
        *object = static_cast<IChannelRecord*>(this);
    } else if (IsEqualIID(iid, __uuidof(ISupportErrorInfo))) {
        *object = static_cast<ISupportErrorInfo*>(this);
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ChannelRecord::AddRef() noexcept { return table_.AddRef(); }

STDMETHODIMP_(ULONG) ChannelRecord::Release() noexcept { return table_.Release(); }

STDMETHODIMP ChannelRecord::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) noexcept {
    if (!isPlainName(names, count, ids)) {
        return Dual::GetIDsOfNames(reserved, names, count, locale, ids);
    }
    ids[0] = recordNames.find(names[0]);
    return ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
}

STDMETHODIMP ChannelRecord::Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept {
    if (isKey(member)) {
        if (isPlainGet(reserved, flags, arguments, result)) {
            const HRESULT answer = get(keyOf(member), result);
            return SUCCEEDED(answer) ? answer : failedCall(answer, exception, wrongArgument);
        }
        if (isPlainPut(reserved, flags, arguments)) {
            const HRESULT answer = put(keyOf(member), arguments->rgvarg[0]);
            return SUCCEEDED(answer) ? answer : failedCall(answer, exception, wrongArgument);
        }
    }
    return invokeMember(member, reserved, locale, flags, arguments, result, exception, wrongArgument);
}

STDMETHODIMP ChannelRecord::InterfaceSupportsErrorInfo(REFIID iid) noexcept {
    return IsEqualIID(iid, __uuidof(IChannelRecord)) ? S_OK : S_FALSE;
}

HRESULT ChannelRecord::get(model::ChannelKey key, VARIANT* value) noexcept {
    return guarded([&] { putValue(table_.store().channelValue(index_, key), &deref(value)); });
}

HRESULT ChannelRecord::put(model::ChannelKey key, const VARIANT& value) noexcept {
    return guarded([&] { table_.store().writeChannel(index_, key, valueOf(value)); });
}

}  // namespace telvar::com
