#include "com/kit/connection_point.h"

#include <algorithm>

#include "com/kit/enumerator.h"

namespace telvar::com {

namespace {

struct HeldConnection {
    DWORD cookie = 0;
    ComPointer<IUnknown> sink;
};

struct GiveConnection {
    [[nodiscard]] static CONNECTDATA give(const HeldConnection& connection) noexcept {
        return {connection.sink.share(), connection.cookie};
    }
};

struct GivePoint {
    [[nodiscard]] static IConnectionPoint* give(const ComPointer<IConnectionPoint>& point) noexcept {
        return point.share();
    }
};

// The sink's process or apartment has gone for good.
[[nodiscard]] bool isDead(HRESULT answer) noexcept {
    return answer == RPC_E_DISCONNECTED || answer == RPC_E_SERVER_DIED || answer == RPC_E_SERVER_DIED_DNE ||
           answer == CO_E_OBJNOTCONNECTED || answer == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
}

// Copies share the references that arguments by reference hold, so that each sink sees what the one before it wrote.
void callSink(IDispatch& sink, DISPID event, std::span<const Variant> arguments, HRESULT& answer) {
    std::vector<VARIANT> reversed;
    reversed.reserve(arguments.size());
    std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(reversed),
                   [](const Variant& argument) { return argument.get(); });
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    answer = sink.Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
}

}  // namespace

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** object) noexcept {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IConnectionPoint)) {
        return E_NOINTERFACE;
    }
    *object = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) noexcept {
    return guarded([&] { deref(iid) = events_; });
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept {
    return guarded([&] { deref(container) = ComPointer<IConnectionPointContainer>(&source_).detach(); });
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    return guarded([&] {
        deref(cookie) = 0;
        ComPointer<IDispatch> events;
        // Some sinks know the events' own identity only, others only IDispatch.
        if (FAILED(deref(sink).QueryInterface(events_, events.putVoid())) &&
            FAILED(sink->QueryInterface(IID_IDispatch, events.putVoid()))) {
            return CONNECT_E_CANNOTCONNECT;
        }
        connections_.push_back({++lastCookie_, std::move(events)});
        *cookie = lastCookie_;
        return S_OK;
    });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) noexcept {
    const auto found = std::find_if(connections_.begin(), connections_.end(),
                                    [&](const Connection& connection) { return connection.cookie == cookie; });
    if (found == connections_.end()) {
        return CONNECT_E_NOCONNECTION;
    }
    // Out of the list before it is let go: its end may call back.
    const Connection last = std::move(*found);
    connections_.erase(found);
    return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) noexcept {
    return guarded([&] {
        deref(connections) = nullptr;
        std::vector<HeldConnection> held;
        for (const auto& connection : connections_) {
            held.push_back({connection.cookie, ComPointer<IUnknown>(connection.sink.get())});
        }
        using Connections = Enumerator<IEnumConnections, HeldConnection, CONNECTDATA, GiveConnection>;
        *connections = make<Connections>(std::move(held)).detach();
    });
}

bool ConnectionPoint::holds(DWORD cookie) const noexcept {
    return std::any_of(connections_.begin(), connections_.end(),
                       [&](const Connection& connection) { return connection.cookie == cookie; });
}

void ConnectionPoint::fire(DISPID event, std::span<const Variant> arguments) noexcept {
    const ComPointer<IConnectionPointContainer> alive(&source_);
    (void)guarded([&] {
        const std::vector<Connection> round = connections_;
        for (const auto& connection : round) {
            if (!holds(connection.cookie)) {
                continue;
            }
            HRESULT answer = S_OK;
            callSink(*connection.sink, event, arguments, answer);
            if (isDead(answer)) {
                (void)Unadvise(connection.cookie);
            }
        }
    });
}

void ConnectionPoint::disconnectAll() noexcept {
    std::vector<Connection> last;
    last.swap(connections_);
}

HRESULT EventSource::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
    return guarded([&] {
        deref(points) = nullptr;
        using Points = Enumerator<IEnumConnectionPoints, ComPointer<IConnectionPoint>, IConnectionPoint*, GivePoint>;
        *points = make<Points>(std::vector{ComPointer<IConnectionPoint>(&point_)}).detach();
    });
}

HRESULT EventSource::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept {
    return guarded([&] {
        deref(point) = nullptr;
        if (!IsEqualIID(iid, point_.events())) {
            return CONNECT_E_NOCONNECTION;
        }
        *point = ComPointer<IConnectionPoint>(&point_).detach();
        return S_OK;
    });
}

}  // namespace telvar::com
