#include "com/control/pll_setting_object.h"

namespace telvar::com {

HRESULT PllSettingObject::InitialiseSettings(LONG* VCOFreq, short* Modulo, LONG* FStepSize, LONG* RefFreq) noexcept {
    return guarded(
        [&] { setting_.InitialiseSettings(deref(VCOFreq), deref(Modulo), deref(FStepSize), deref(RefFreq)); });
}

HRESULT PllSettingObject::get_Modulo(short* modulo) noexcept {
    return guarded([&] { deref(modulo) = setting_.Modulo(); });
}

HRESULT PllSettingObject::get_VCOFreq(LONG* hertz) noexcept {
    return guarded([&] { deref(hertz) = setting_.VCOFreq(); });
}

HRESULT PllSettingObject::get_FreqStepSize(LONG* hertz) noexcept {
    return guarded([&] { deref(hertz) = setting_.FreqStepSize(); });
}

HRESULT PllSettingObject::get_IsValid(VARIANT_BOOL* valid) noexcept {
    return guarded([&] { deref(valid) = setting_.IsValid() ? VARIANT_TRUE : VARIANT_FALSE; });
}

}  // namespace telvar::com
