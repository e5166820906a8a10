#include "com/radio/radio_link.h"

#include "com/adapters/foreign_data_store.h"
#include "com/kit/bstr.h"
#include "com/kit/waiting.h"

namespace telvar::com {

namespace {

// Of _RadioLinkEvents.
constexpr DISPID progressEvent = 1;
constexpr DISPID exchangeEndedEvent = 2;
constexpr DISPID statusReportedEvent = 3;

[[nodiscard]] VARIANT_BOOL truth(bool value) noexcept { return value ? VARIANT_TRUE : VARIANT_FALSE; }

// Runs an operation of the link; what it says of its failure reaches the caller as a sentence. The store that the link
// reads may let its owner run, who may let the link go.
template <class Operation>
[[nodiscard]] HRESULT operated(RadioLink* link, Operation operation) noexcept {
    return guarded([&] {
        const auto alive = keepAlive(link);
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

[[nodiscard]] HRESULT answerText(BSTR* answer, const std::string& text) noexcept {
    return guarded([&] {
        deref(answer) = nullptr;
        *answer = Bstr(text).detach();
    });
}

[[nodiscard]] HRESULT answerTruth(VARIANT_BOOL* answer, bool value) noexcept {
    return guarded([&] { deref(answer) = truth(value); });
}

template <class Parsed>
[[nodiscard]] auto understood(Parsed parsed) {
    if (!parsed) {
        throw ComFailure(E_INVALIDARG, parsed.error() + ".");
    }
    return *std::move(parsed);
}

}  // namespace

RadioLink::RadioLink() {
    core_.Progress.connect([this](std::int16_t percent) { fire(progressEvent, std::array{Variant(percent)}); });
    core_.ExchangeEnded.connect([this](std::int16_t task, bool succeeded, const std::string& message) {
        fire(exchangeEndedEvent, std::array{Variant(task), Variant(succeeded), Variant(std::string_view(message))});
    });
    core_.StatusReported.connect([this](bool answered, const std::string& message) {
        fire(statusReportedEvent, std::array{Variant(answered), Variant(std::string_view(message))});
    });
}

STDMETHODIMP RadioLink::SendChannelTable() noexcept {
    return operated(this, [&] { core_.SendChannelTable(); });
}

STDMETHODIMP RadioLink::LoadChannelTable(BSTR* text, VARIANT_BOOL* flag) noexcept {
    return operated(this, [&] {
        bool exchanged = deref(flag) != VARIANT_FALSE;
        withText(text, [&](std::string& own) { core_.LoadChannelTable(own, exchanged); });
        *flag = truth(exchanged);
    });
}

STDMETHODIMP RadioLink::AbortTransfer() noexcept {
    return operated(this, [&] { core_.AbortTransfer(); });
}

STDMETHODIMP RadioLink::SendPotValues(BSTR* text) noexcept {
    return operated(this, [&] { withText(text, [&](std::string& own) { core_.SendPotValues(own); }); });
}

STDMETHODIMP RadioLink::SelectChannel(BSTR* channel) noexcept {
    return operated(this, [&] { withText(channel, [&](std::string& own) { core_.SelectChannel(own); }); });
}

STDMETHODIMP RadioLink::RestoreBackup(BSTR path) noexcept {
    return operated(this, [&] {
        refuseToTheDistrusted();
        core_.restoreBackup(textOf(path));
    });
}

STDMETHODIMP RadioLink::QueryStatus() noexcept {
    return operated(this, [&] { core_.queryStatus(); });
}

STDMETHODIMP RadioLink::get_DataStore(IDispatch** store) noexcept {
    return guarded([&] {
        deref(store) = nullptr;
        *store = store_.share();
    });
}

STDMETHODIMP RadioLink::put_DataStore(IDispatch* store) noexcept { return putref_DataStore(store); }

STDMETHODIMP RadioLink::putref_DataStore(IDispatch* store) noexcept {
    return guarded([&] {
        const auto alive = keepAlive(this);
        store_ = ComPointer<IDispatch>(store);
        core_.setDataStore(adaptDataStore(store));
    });
}

STDMETHODIMP RadioLink::Wait(long milliseconds, VARIANT_BOOL* ended) noexcept {
    return guarded([&] {
        auto& answer = deref(ended);
        const auto alive = keepAlive(this);
        answer = truth(waitPumping(milliseconds, [this] { return !core_.exchangeRunning(); }));
    });
}

STDMETHODIMP RadioLink::get_Connected(VARIANT_BOOL* connected) noexcept {
    return answerTruth(connected, core_.connected());
}

STDMETHODIMP RadioLink::get_Busy(VARIANT_BOOL* busy) noexcept { return answerTruth(busy, core_.exchangeRunning()); }

STDMETHODIMP RadioLink::get_Succeeded(VARIANT_BOOL* succeeded) noexcept {
    return answerTruth(succeeded, core_.lastOutcome().succeeded);
}

STDMETHODIMP RadioLink::get_Message(BSTR* message) noexcept {
    return answerText(message, core_.lastOutcome().sentence);
}

STDMETHODIMP RadioLink::get_ExchangeNumber(long* number) noexcept {
    return guarded([&] { deref(number) = core_.exchangeNumber().value_or(0); });
}

STDMETHODIMP RadioLink::OutcomeOf(long number, short* outcome) noexcept {
    return guarded([&] { deref(outcome) = static_cast<short>(core_.exchangeOutcome(number)); });
}

STDMETHODIMP RadioLink::get_LastBackup(BSTR* path) noexcept { return answerText(path, core_.lastBackup()); }

template <class Change>
HRESULT RadioLink::set(Change change) noexcept {
    return guarded([&] {
        refuseToTheDistrusted();
        auto settings = core_.settings();
        change(settings);
        core_.setSettings(std::move(settings));
    });
}

STDMETHODIMP RadioLink::get_Connection(BSTR* address) noexcept {
    return answerText(address, radio::textOf(core_.settings().address));
}

STDMETHODIMP RadioLink::put_Connection(BSTR address) noexcept {
    return set(
        [&](radio::LinkSettings& settings) { settings.address = understood(radio::parseAddress(textOf(address))); });
}

STDMETHODIMP RadioLink::get_Faults(BSTR* faults) noexcept { return answerText(faults, faults_); }

STDMETHODIMP RadioLink::get_KnownFaults(BSTR* names) noexcept { return answerText(names, radio::faultNames()); }

STDMETHODIMP RadioLink::put_Faults(BSTR faults) noexcept {
    return set([&](radio::LinkSettings& settings) {
        settings.faults = understood(radio::parseFaults(textOf(faults)));
        faults_ = textOf(faults);
    });
}

STDMETHODIMP RadioLink::get_StateFile(BSTR* path) noexcept { return answerText(path, core_.settings().stateFile); }

STDMETHODIMP RadioLink::put_StateFile(BSTR path) noexcept {
    return set([&](radio::LinkSettings& settings) { settings.stateFile = textOf(path); });
}

STDMETHODIMP RadioLink::get_TraceFile(BSTR* path) noexcept { return answerText(path, core_.settings().traceFile); }

STDMETHODIMP RadioLink::put_TraceFile(BSTR path) noexcept {
    return set([&](radio::LinkSettings& settings) { settings.traceFile = textOf(path); });
}

STDMETHODIMP RadioLink::get_BackupFolder(BSTR* path) noexcept {
    return answerText(path, core_.settings().backupFolder);
}

STDMETHODIMP RadioLink::put_BackupFolder(BSTR path) noexcept {
    return set([&](radio::LinkSettings& settings) { settings.backupFolder = textOf(path); });
}

void RadioLink::fire(DISPID event, std::span<const Variant> arguments) {
    // A sink may let the link go.
    const auto alive = keepAlive(this);
    point().fire(event, arguments);
}

void RadioLink::refuseToTheDistrusted() const {
    if (isDistrusted()) {
        throw ComFailure(E_ACCESSDENIED, "Connections and files are not open to a caller that is not trusted");
    }
}

}  // namespace telvar::com
