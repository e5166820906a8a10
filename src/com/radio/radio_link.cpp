#include "com/radio/radio_link.h"

#include <array>
#include <cstdint>
#include <string>

#include "com/kit/bstr.h"
#include "com/kit/waiting.h"

namespace telvar::com {

namespace {

// Of _RadioLinkEvents.
constexpr DISPID exchangeEndedEvent = 2;

[[nodiscard]] VARIANT_BOOL truth(bool value) noexcept { return value ? VARIANT_TRUE : VARIANT_FALSE; }

// Runs an operation of the link; what it says of its failure reaches the caller as a sentence.
template <class Operation>
[[nodiscard]] HRESULT operated(Operation operation) noexcept {
    return guarded([&] {
        try {
            operation();
        } catch (const ComFailure&) {
            throw;
        } catch (const base::Failure& failure) {
            throw ComFailure(E_FAIL, failure.description() + ".");
        }
    });
}

// The operations exchange texts with their callers.
template <class Operation>
void withText(BSTR* text, Operation operation) {
    BSTR& own = deref(text);
    std::string exchanged = textOf(own);
    operation(exchanged);
    assign(own, exchanged);
}

}  // namespace

RadioLink::RadioLink() {
    core_.ExchangeEnded.connect([this](std::int16_t task, bool succeeded, const std::string& message) {
        fireExchangeEnded(task, succeeded, message);
    });
}

STDMETHODIMP RadioLink::SendChannelTable() noexcept {
    return operated([&] { core_.SendChannelTable(); });
}

STDMETHODIMP RadioLink::LoadChannelTable(BSTR* text, VARIANT_BOOL* flag) noexcept {
    return operated([&] {
        bool exchanged = deref(flag) != VARIANT_FALSE;
        withText(text, [&](std::string& own) { core_.LoadChannelTable(own, exchanged); });
        *flag = truth(exchanged);
    });
}

STDMETHODIMP RadioLink::AbortTransfer() noexcept {
    return operated([&] {
        // A sink may let the link go.
        const auto alive = keepAlive(this);
        core_.AbortTransfer();
    });
}

STDMETHODIMP RadioLink::SendPotValues(BSTR* text) noexcept {
    return operated([&] { withText(text, [&](std::string& own) { core_.SendPotValues(own); }); });
}

STDMETHODIMP RadioLink::SelectChannel(BSTR* channel) noexcept {
    return operated([&] { withText(channel, [&](std::string& own) { core_.SelectChannel(own); }); });
}

STDMETHODIMP RadioLink::get_DataStore(IDispatch** store) noexcept {
    return guarded([&] {
        deref(store) = nullptr;
        *store = store_.share();
    });
}

STDMETHODIMP RadioLink::put_DataStore(IDispatch* store) noexcept { return putref_DataStore(store); }

STDMETHODIMP RadioLink::putref_DataStore(IDispatch* store) noexcept {
    return guarded([&] { store_ = ComPointer<IDispatch>(store); });
}

STDMETHODIMP RadioLink::Wait(long milliseconds, VARIANT_BOOL* ended) noexcept {
    return guarded([&] {
        auto& answer = deref(ended);
        const auto alive = keepAlive(this);
        answer = truth(waitPumping(milliseconds, [this] { return !core_.exchangeRunning(); }));
    });
}

STDMETHODIMP RadioLink::get_Connected(VARIANT_BOOL* connected) noexcept {
    return guarded([&] { deref(connected) = truth(core_.connected()); });
}

void RadioLink::fireExchangeEnded(std::int16_t task, bool succeeded, const std::string& message) {
    const std::array<Variant, 3> arguments{Variant(task), Variant(succeeded), Variant(std::string_view(message))};
    point().fire(exchangeEndedEvent, arguments);
}

}  // namespace telvar::com
