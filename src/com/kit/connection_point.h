// Events: one connection point with any number of sinks. Firing works on a copy of the list: a sink may advise,
// unadvise, release the source or die inside its call, and what it answers is its own affair.
#pragma once

#include <span>
#include <vector>

#include "base/pinned.h"
#include "com/kit/automation.h"
#include "com/kit/guard.h"
#include "com/kit/pointer.h"
#include "com/kit/variant.h"

namespace telvar::com {

// Lives inside its source, whose reference count it shares.
class ConnectionPoint final : public IConnectionPoint, private base::Pinned {
public:
    // `source` is the object that offers the point.
    ConnectionPoint(IConnectionPointContainer& source, REFIID events) noexcept : source_(source), events_(events) {}
    virtual ~ConnectionPoint() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override { return source_.AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept override { return source_.Release(); }

    STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) noexcept override;

    // Calls every sink with the arguments in the order of their declaration. A sink whose process has gone is dropped.
    void fire(DISPID event, std::span<const Variant> arguments = {}) noexcept;
    // Lets every sink go, as when the source is closed.
    void disconnectAll() noexcept;
    [[nodiscard]] REFIID events() const noexcept { return events_; }

private:
    struct Connection {
        DWORD cookie = 0;
        ComPointer<IDispatch> sink;
    };

    [[nodiscard]] bool holds(DWORD cookie) const noexcept;

    IConnectionPointContainer& source_;
    IID events_;
    std::vector<Connection> connections_;
    DWORD lastCookie_ = 0;
};

// IConnectionPointContainer for a source of one event interface.
class EventSource : public IConnectionPointContainer, private base::Pinned {
public:
    using ComInterface = IConnectionPointContainer;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;

protected:
    explicit EventSource(REFIID events) noexcept : point_(*this, events) {}
    ~EventSource() = default;

    [[nodiscard]] ConnectionPoint& point() noexcept { return point_; }

private:
    ConnectionPoint point_;
};

// The same for a class, which is then made without arguments.
template <class Events>
class SourceOf : public EventSource {
protected:
    SourceOf() noexcept : EventSource(__uuidof(Events)) {}
    ~SourceOf() = default;
};

}  // namespace telvar::com
