#include "com/store/data_store.h"

#include "base/conversion.h"
#include "com/kit/bstr.h"

namespace telvar::com {

namespace {

[[nodiscard]] VARIANT_BOOL truth(bool value) noexcept { return value ? VARIANT_TRUE : VARIANT_FALSE; }

}  // namespace

HRESULT DataStore::get(model::StoreMember member, short* value) noexcept {
    return guarded([&] { deref(value) = base::toInt16(store().memberValue(member)); });
}

HRESULT DataStore::get(model::StoreMember member, long* value) noexcept {
    return guarded([&] { deref(value) = base::toInt32(store().memberValue(member)); });
}

HRESULT DataStore::get(model::StoreMember member, float* value) noexcept {
    return guarded([&] { deref(value) = base::toSingle(store().memberValue(member)); });
}

HRESULT DataStore::get(model::StoreMember member, BSTR* value) noexcept {
    return guarded([&] {
        deref(value) = nullptr;
        *value = Bstr(base::toText(store().memberValue(member))).detach();
    });
}

HRESULT DataStore::put(model::StoreMember member, short value) noexcept {
    return guarded([&] { store().put(member, std::int16_t{value}); });
}

HRESULT DataStore::put(model::StoreMember member, long value) noexcept {
    return guarded([&] { store().put(member, std::int32_t{value}); });
}

HRESULT DataStore::put(model::StoreMember member, float value) noexcept {
    return guarded([&] { store().put(member, value); });
}

HRESULT DataStore::put(model::StoreMember member, BSTR value) noexcept {
    return guarded([&] { store().put(member, textOf(value)); });
}

STDMETHODIMP DataStore::SetPotValue(short* index, unsigned char level) noexcept {
    return guarded([&] { store().SetPotValue(deref(index), level); });
}

STDMETHODIMP DataStore::get_PotValue(short index, short* level) noexcept {
    return guarded([&] { deref(level) = store().potValue(index); });
}

STDMETHODIMP DataStore::EnterChannelSelect() noexcept {
    return guarded([&] { store().EnterChannelSelect(); });
}

STDMETHODIMP DataStore::AutomaticSelect(short* query, VARIANT_BOOL* select) noexcept {
    return guarded([&] { deref(select) = truth(store().AutomaticSelect(deref(query))); });
}

STDMETHODIMP DataStore::CheckKey(short code, VARIANT_BOOL* accepted) noexcept {
    return guarded([&] { deref(accepted) = truth(store().CheckKey(code)); });
}

STDMETHODIMP DataStore::CtcssTone(short index, float* tone) noexcept {
    return guarded([&] { deref(tone) = store().CtcssTone(index); });
}

STDMETHODIMP DataStore::get_SendPermitted(VARIANT_BOOL* permitted) noexcept {
    return guarded([&] { deref(permitted) = truth(store().SendPermitted()); });
}

STDMETHODIMP DataStore::put_SendPermitted(VARIANT_BOOL permitted) noexcept {
    return guarded([&] { store().setSendPermitted(permitted != VARIANT_FALSE); });
}

STDMETHODIMP DataStore::get_FollowSteps(VARIANT_BOOL* follow) noexcept {
    constexpr std::int16_t everyStep = 2;
    return guarded([&] { deref(follow) = truth(store().AutomaticSelect(everyStep)); });
}

STDMETHODIMP DataStore::put_FollowSteps(VARIANT_BOOL follow) noexcept {
    return guarded([&] { store().setAutomaticSelect(follow != VARIANT_FALSE); });
}

STDMETHODIMP DataStore::GetClassInfo(ITypeInfo** info) noexcept {
    return guarded([&] {
        deref(info) = nullptr;
        *info = module::typeInfo(__uuidof(::DataStore)).detach();
    });
}

}  // namespace telvar::com
