// Names and calls that arrive late-bound.
#include "com/store/data_store.h"

#include "base/conversion.h"
#include "base/failure.h"
#include "com/kit/value.h"
#include "com/store/dispatch_names.h"
#include "com/store/plain_call.h"
#include "com/store/record_array.h"

namespace telvar::com {

namespace {

[[nodiscard]] bool isMember(DISPID member) noexcept {
    return member >= firstMemberId && member < firstMemberId + static_cast<DISPID>(model::storeMemberCount);
}

[[nodiscard]] model::StoreMember memberOf(DISPID member) noexcept {
    return static_cast<model::StoreMember>(member - firstMemberId);
}

// A property read with one argument and nothing else.
[[nodiscard]] bool isIndexedGet(REFIID reserved, WORD flags, const DISPPARAMS* arguments,
                                const VARIANT* result) noexcept {
    return (flags & DISPATCH_PROPERTYGET) != 0 && arguments != nullptr && arguments->cArgs == 1 &&
           arguments->cNamedArgs == 0 && result != nullptr && IsEqualIID(reserved, IID_NULL);
}

[[nodiscard]] std::int32_t numberOf(const VARIANT& index) {
    const VARIANT& own = dereferenced(index);
    if (V_VT(&own) == VT_I2) {
        return V_I2(&own);
    }
    return V_VT(&own) == VT_I4 ? V_I4(&own) : base::toInt32(valueOf(own));
}

}  // namespace

STDMETHODIMP DataStore::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) noexcept {
    if (!isPlainName(names, count, ids)) {
        return Dual::GetIDsOfNames(reserved, names, count, locale, ids);
    }
    ids[0] = dataStoreNames.find(names[0]);
    return ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
}

STDMETHODIMP DataStore::Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                               VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept {
    if (member == channelTableId) {
        if (isPlainGet(reserved, flags, arguments, result)) {
            return get_ChannelTable(result);
        }
        if (isIndexedGet(reserved, flags, arguments, result)) {
            return element(arguments->rgvarg[0], result, wrongArgument);
        }
    } else if (member == configRecordsId) {
        // Type information does not hand an index on to the collection.
        if (isIndexedGet(reserved, flags, arguments, result)) {
            return guarded([&] {
                return configRecords().Invoke(DISPID_VALUE, reserved, locale, flags, arguments, result, exception,
                                              wrongArgument);
            });
        }
    } else if (isMember(member)) {
        if (isPlainGet(reserved, flags, arguments, result)) {
            const HRESULT answer = get(memberOf(member), result);
            return SUCCEEDED(answer) ? answer : failedCall(answer, exception, wrongArgument);
        }
        if (isPlainPut(reserved, flags, arguments)) {
            const HRESULT answer = put(memberOf(member), arguments->rgvarg[0]);
            return SUCCEEDED(answer) ? answer : failedCall(answer, exception, wrongArgument);
        }
    }
    return invokeMember(member, reserved, locale, flags, arguments, result, exception, wrongArgument);
}

STDMETHODIMP DataStore::get_ChannelTable(VARIANT* table) noexcept {
    return guarded([&] {
        VARIANT& answer = deref(table);
        answer = recordArray(*table_).detach();
    });
}

STDMETHODIMP DataStore::Record(short index, IChannelRecord** record) noexcept {
    return guarded([&] {
        deref(record) = nullptr;
        if (index < 0 || index >= model::channelCount) {
            throw base::SubscriptFailure();
        }
        *record = keepAlive(&table_->record(index)).detach();
    });
}

STDMETHODIMP DataStore::get_ConfigRecords(IConfigRecords** records) noexcept {
    return guarded([&] {
        deref(records) = nullptr;
        *records = keepAlive(&configRecords()).detach();
    });
}

HRESULT DataStore::element(const VARIANT& index, VARIANT* record, UINT* wrongArgument) noexcept {
    const HRESULT answer = guarded([&] {
        const std::int32_t number = numberOf(index);
        if (number < 0 || number >= model::channelCount) {
            return DISP_E_BADINDEX;
        }
        *record = Variant(&table_->record(static_cast<std::int16_t>(number))).detach();
        return S_OK;
    });
    if (FAILED(answer)) {
        SetErrorInfo(0, nullptr);
        if (wrongArgument != nullptr) {
            *wrongArgument = 0;
        }
    }
    return answer;
}

HRESULT DataStore::get(model::StoreMember member, VARIANT* value) noexcept {
    return guarded([&] { putValue(store().memberValue(member), value); });
}

HRESULT DataStore::put(model::StoreMember member, const VARIANT& value) noexcept {
    return guarded([&] { store().put(member, valueOf(value)); });
}

ConfigRecords& DataStore::configRecords() {
    if (!configRecords_) {
        configRecords_ = make<ConfigRecords>(*table_);
    }
    return *configRecords_;
}

}  // namespace telvar::com
