// The calculator clsPLLSetting as an automation object.
#pragma once

#include "Tesslin.h"
#include "com/kit/class_info.h"
#include "com/kit/dispatch.h"
#include "com/kit/object.h"
#include "synth/clsPLLSetting.h"

namespace telvar::com {

class PllSettingObject final : public Object<Dual<_clsPLLSetting>, SupportsErrorInfo<_clsPLLSetting>> {
public:
    STDMETHODIMP InitialiseSettings(LONG* VCOFreq, short* Modulo, LONG* FStepSize, LONG* RefFreq) noexcept override;
    STDMETHODIMP get_Modulo(short* modulo) noexcept override;
    STDMETHODIMP get_VCOFreq(LONG* hertz) noexcept override;
    STDMETHODIMP get_FreqStepSize(LONG* hertz) noexcept override;
    STDMETHODIMP get_IsValid(VARIANT_BOOL* valid) noexcept override;

private:
    synth::clsPLLSetting setting_;
};

}  // namespace telvar::com
