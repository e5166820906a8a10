#include "com/store/config_records.h"

#include <vector>

#include "base/conversion.h"
#include "com/kit/enumerator.h"
#include "com/kit/value.h"

namespace telvar::com {

namespace {

struct GivesCopies {
    [[nodiscard]] static VARIANT give(const Variant& held) { return Variant(held).detach(); }
};
using VariantEnumerator = Enumerator<IEnumVARIANT, Variant, VARIANT, GivesCopies>;

}  // namespace

STDMETHODIMP ConfigRecord::get_sm(long* value) noexcept {
    return guarded([&] { deref(value) = table_->store().scaling(); });
}

STDMETHODIMP ConfigRecord::put_sm(long value) noexcept {
    return guarded([&] { table_->store().setReferenceDividerScaling(std::int32_t{value}); });
}

STDMETHODIMP ConfigRecords::Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) noexcept {
    if (member != DISPID_NEWENUM || result == nullptr) {
        return Dual::Invoke(member, reserved, locale, flags, arguments, result, exception, wrongArgument);
    }
    V_VT(result) = VT_UNKNOWN;
    return get__NewEnum(&V_UNKNOWN(result));
}

STDMETHODIMP ConfigRecords::get_Item(VARIANT index, IConfigRecord** record) noexcept {
    return guarded([&] {
        deref(record) = nullptr;
        if (base::toInt32(valueOf(index)) != 0) {
            throw base::SubscriptFailure();
        }
        *record = ComPointer(record_).detach();
    });
}

STDMETHODIMP ConfigRecords::get_Count(long* count) noexcept {
    return guarded([&] { deref(count) = 1; });
}

STDMETHODIMP ConfigRecords::get__NewEnum(IUnknown** enumerator) noexcept {
    return guarded([&] {
        deref(enumerator) = nullptr;
        *enumerator = make<VariantEnumerator>(std::vector<Variant>{Variant(record_.get())}).detach();
    });
}

}  // namespace telvar::com
