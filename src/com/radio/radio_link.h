// The radio link as an automation object. Exchanges and their outcomes are the core's; here texts, stores and events
// cross the edge.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "VexloRadioLink.h"
#include "com/kit/class_info.h"
#include "com/kit/connection_point.h"
#include "com/kit/dispatch.h"
#include "com/kit/object.h"
#include "com/kit/object_safety.h"
#include "radio/radio_link_core.h"
#include "win/work_window.h"

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
    STDMETHODIMP RestoreBackup(BSTR path) noexcept override;
    STDMETHODIMP QueryStatus() noexcept override;

    // Any object that dispatches, or none.
    STDMETHODIMP get_DataStore(IDispatch** store) noexcept override;
    STDMETHODIMP put_DataStore(IDispatch* store) noexcept override;
    STDMETHODIMP putref_DataStore(IDispatch* store) noexcept override;

    STDMETHODIMP Wait(long milliseconds, VARIANT_BOOL* ended) noexcept override;
    STDMETHODIMP get_Connected(VARIANT_BOOL* connected) noexcept override;
    STDMETHODIMP get_Busy(VARIANT_BOOL* busy) noexcept override;
    STDMETHODIMP get_Succeeded(VARIANT_BOOL* succeeded) noexcept override;
    STDMETHODIMP get_Message(BSTR* message) noexcept override;
    STDMETHODIMP get_ExchangeNumber(long* number) noexcept override;
    STDMETHODIMP OutcomeOf(long number, short* outcome) noexcept override;
    STDMETHODIMP get_LastBackup(BSTR* path) noexcept override;

    STDMETHODIMP get_Connection(BSTR* address) noexcept override;
    STDMETHODIMP put_Connection(BSTR address) noexcept override;
    STDMETHODIMP get_Faults(BSTR* faults) noexcept override;
    STDMETHODIMP put_Faults(BSTR faults) noexcept override;
    STDMETHODIMP get_KnownFaults(BSTR* names) noexcept override;
    STDMETHODIMP get_StateFile(BSTR* path) noexcept override;
    STDMETHODIMP put_StateFile(BSTR path) noexcept override;
    STDMETHODIMP get_TraceFile(BSTR* path) noexcept override;
    STDMETHODIMP put_TraceFile(BSTR path) noexcept override;
    STDMETHODIMP get_BackupFolder(BSTR* path) noexcept override;
    STDMETHODIMP put_BackupFolder(BSTR path) noexcept override;

private:
    void fire(DISPID event, std::span<const Variant> arguments);
    // What reaches beyond this object (files, ports, other machines) is not for callers that are not trusted.
    void refuseToTheDistrusted() const;
    // Changes one of the settings.
    template <class Change>
    [[nodiscard]] HRESULT set(Change change) noexcept;

    win::WindowDispatcher dispatcher_;
    radio::RadioLinkCore core_{dispatcher_};
    ComPointer<IDispatch> store_;
    std::string faults_;
};

}  // namespace telvar::com
