// Receives the events of one event interface and hands them on by dispatch number; and the connection to their source,
// which ends with the object that holds it.
#pragma once

#include <functional>
#include <string>

#include "com/kit/automation.h"
#include "com/kit/object.h"
#include "com/kit/pointer.h"

namespace telvar::host {

// Returns whether it knows the event.
using EventHandler = std::function<bool(DISPID event, const DISPPARAMS& arguments)>;

class EventSink final : public com::Object<IDispatch> {
public:
    EventSink(REFIID events, EventHandler handler) : events_(events), handler_(std::move(handler)) {}

    // Events that come later are dropped.
    void detach() noexcept { detached_ = true; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) noexcept override;

private:
    ~EventSink() override = default;

    IID events_;
    EventHandler handler_;
    bool detached_ = false;
};

class EventConnection {
public:
    EventConnection() = default;
    // Throws com::ComFailure where `source` does not have those events.
    EventConnection(IUnknown* source, REFIID events, EventHandler handler);
    EventConnection(const EventConnection&) = delete;
    EventConnection& operator=(const EventConnection&) = delete;
    EventConnection(EventConnection&& other) noexcept;
    EventConnection& operator=(EventConnection&& other) noexcept;
    ~EventConnection() { end(); }

    // Also in the middle of an event.
    void end() noexcept;

private:
    com::ComPointer<EventSink> sink_;
    com::ComPointer<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

// Argument `index`, counted from the first; by value or by reference. Throws com::ComFailure where there is none of
// that kind.
[[nodiscard]] std::wstring textArgument(const DISPPARAMS& arguments, UINT index);
[[nodiscard]] long longArgument(const DISPPARAMS& arguments, UINT index);

}  // namespace telvar::host
