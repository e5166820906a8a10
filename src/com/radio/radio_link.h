// The radio link as an automation object.
#pragma once

#include <cstdint>
#include <string>

#include "VexloRadioLink.h"
#include "com/kit/class_info.h"
#include "com/kit/connection_point.h"
#include "com/kit/dispatch.h"
#include "com/kit/object.h"
#include "com/kit/object_safety.h"
#include "radio/radio_link_core.h"

namespace telvar::com {

class RadioLink final
    : public Object<Dual<IRadioLink>, SupportsErrorInfo<IRadioLink>, ProvidesClassInfo<::RadioLink, _RadioLinkEvents>,
                    SourceOf<_RadioLinkEvents>, ObjectSafety<IRadioLink>> {
public:
    RadioLink();

    STDMETHODIMP SendChannelTable() noexcept override;
    STDMETHODIMP LoadChannelTable(BSTR* text, VARIANT_BOOL* flag) noexcept override;
    STDMETHODIMP AbortTransfer() noexcept override;
    STDMETHODIMP SendPotValues(BSTR* text) noexcept override;
    STDMETHODIMP SelectChannel(BSTR* channel) noexcept override;

    // Any object that dispatches, or none.
    STDMETHODIMP get_DataStore(IDispatch** store) noexcept override;
    STDMETHODIMP put_DataStore(IDispatch* store) noexcept override;
    STDMETHODIMP putref_DataStore(IDispatch* store) noexcept override;

    STDMETHODIMP Wait(long milliseconds, VARIANT_BOOL* ended) noexcept override;
    STDMETHODIMP get_Connected(VARIANT_BOOL* connected) noexcept override;

private:
    void fireExchangeEnded(std::int16_t task, bool succeeded, const std::string& message);

    radio::RadioLinkCore core_;
    ComPointer<IDispatch> store_;
};

}  // namespace telvar::com
