#include "helper.h"

#include <map>
#include <string>
#include <utility>

#include "com/kit/bstr.h"
#include "com/kit/waiting.h"

namespace telvar::tests {

namespace {

using com::check;
using com::ComFailure;
using com::ComPointer;

// The default event interface of the source's class.
[[nodiscard]] ComPointer<ITypeInfo> eventsOf(IDispatch* source) {
    const auto provider = ComPointer<IProvideClassInfo>::from(source);
    if (!provider) {
        throw ComFailure(E_NOINTERFACE, "The source does not tell its class");
    }
    ComPointer<ITypeInfo> classInfo;
    check(provider->GetClassInfo(classInfo.put()));
    constexpr int wanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
    int flags = 0;
    for (UINT at = 0; SUCCEEDED(classInfo->GetImplTypeFlags(at, &flags)); ++at) {
        if ((flags & wanted) == wanted) {
            HREFTYPE reference = 0;
            check(classInfo->GetRefTypeOfImplType(at, &reference));
            ComPointer<ITypeInfo> events;
            check(classInfo->GetRefTypeInfo(reference, events.put()));
            return events;
        }
    }
    throw ComFailure(E_NOINTERFACE, "The source's class has no events");
}

struct EventInterface {
    IID id{};
    std::map<DISPID, std::wstring> names;
};

[[nodiscard]] EventInterface describe(ITypeInfo& info, std::wstring_view prefix) {
    TYPEATTR* attributes = nullptr;
    check(info.GetTypeAttr(&attributes));
    EventInterface result{attributes->guid, {}};
    const WORD count = attributes->cFuncs;
    info.ReleaseTypeAttr(attributes);
    for (UINT at = 0; at < count; ++at) {
        FUNCDESC* function = nullptr;
        check(info.GetFuncDesc(at, &function));
        const MEMBERID member = function->memid;
        info.ReleaseFuncDesc(function);
        com::Bstr name;
        UINT found = 0;
        check(info.GetNames(member, name.put(), 1, &found));
        result.names.emplace(member, std::wstring(prefix) + std::wstring(name.view()));
    }
    return result;
}

}  // namespace

STDMETHODIMP Helper::Connect(IDispatch* source, IDispatch* handler, BSTR prefix) noexcept {
    return com::guarded([&] {
        auto& target = com::deref(handler);
        auto events = describe(*eventsOf(&com::deref(source)), com::viewOf(prefix));
        const auto container = ComPointer<IConnectionPointContainer>::from(source);
        if (!container) {
            throw ComFailure(E_NOINTERFACE, "The source has no events");
        }
        Connection connection;
        check(container->FindConnectionPoint(events.id, connection.point.put()));
        const auto sink = com::make<EventSink>(events.id, std::move(events.names), &target, counts_);
        check(connection.point->Advise(sink.get(), &connection.cookie));
        connections_.push_back(std::move(connection));
    });
}

STDMETHODIMP Helper::Disconnect() noexcept {
    disconnectAll();
    return S_OK;
}

STDMETHODIMP Helper::Pump(long milliseconds) noexcept {
    return com::guarded([&] { com::pumpMessages(milliseconds); });
}

STDMETHODIMP Helper::WaitForEvent(long milliseconds, VARIANT_BOOL* called) noexcept {
    return com::guarded([&] {
        const auto alive = com::keepAlive(this);
        const long before = counts_->events;
        const bool ended = com::waitPumping(milliseconds, [&] { return counts_->events != before; });
        com::deref(called) = ended ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

STDMETHODIMP Helper::get_EventCount(long* count) noexcept {
    return com::guarded([&] { com::deref(count) = counts_->events; });
}

STDMETHODIMP Helper::get_FailureCount(long* count) noexcept {
    return com::guarded([&] { com::deref(count) = counts_->failures; });
}

void Helper::disconnectAll() noexcept {
    for (const auto& connection : std::exchange(connections_, {})) {
        connection.point->Unadvise(connection.cookie);
    }
}

}  // namespace telvar::tests
