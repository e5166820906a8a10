#include "host/embed/event_sink.h"

#include <utility>

#include "com/kit/guard.h"
#include "com/kit/variant.h"

namespace telvar::host {

namespace {

com::Variant argumentAs(const DISPPARAMS& arguments, UINT index, VARTYPE type) {
    if (index >= arguments.cArgs) {
        throw com::ComFailure(DISP_E_BADPARAMCOUNT);
    }
    com::Variant value;
    // Arguments lie last first.
    com::check(VariantCopyInd(value.put(), &arguments.rgvarg[arguments.cArgs - 1 - index]));
    value.convertTo(type);
    return value;
}

}  // namespace

STDMETHODIMP EventSink::QueryInterface(REFIID iid, void** object) noexcept {
    return Object::QueryInterface(IsEqualIID(iid, events_) ? __uuidof(IDispatch) : iid, object);
}

STDMETHODIMP EventSink::GetTypeInfoCount(UINT* count) noexcept {
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

STDMETHODIMP EventSink::GetTypeInfo(UINT, LCID, ITypeInfo** information) noexcept {
    if (information != nullptr) {
        *information = nullptr;
    }
    return DISP_E_BADINDEX;
}

// Events come by number.
STDMETHODIMP EventSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept { return DISP_E_UNKNOWNNAME; }

STDMETHODIMP EventSink::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                               UINT*) noexcept {
    if (detached_) {
        return S_OK;
    }
    const auto alive = com::keepAlive(this);
    return com::guarded([&] { return handler_(member, com::deref(arguments)) ? S_OK : DISP_E_MEMBERNOTFOUND; });
}

EventConnection::EventConnection(IUnknown* source, REFIID events, EventHandler handler)
    : sink_(com::make<EventSink>(events, std::move(handler))) {
    const auto container = com::ComPointer<IConnectionPointContainer>::from(source);
    if (!container) {
        throw com::ComFailure(CONNECT_E_NOCONNECTION);
    }
    com::check(container->FindConnectionPoint(events, point_.put()));
    com::check(point_->Advise(sink_.get(), &cookie_));
}

EventConnection::EventConnection(EventConnection&& other) noexcept
    : sink_(std::move(other.sink_)), point_(std::move(other.point_)), cookie_(std::exchange(other.cookie_, 0)) {}

EventConnection& EventConnection::operator=(EventConnection&& other) noexcept {
    if (this != &other) {
        end();
        sink_ = std::move(other.sink_);
        point_ = std::move(other.point_);
        cookie_ = std::exchange(other.cookie_, 0);
    }
    return *this;
}

void EventConnection::end() noexcept {
    if (sink_) {
        sink_->detach();
    }
    const DWORD cookie = std::exchange(cookie_, 0);
    const auto point = std::exchange(point_, nullptr);
    if (point && cookie != 0) {
        point->Unadvise(cookie);
    }
    sink_.reset();
}

std::wstring textArgument(const DISPPARAMS& arguments, UINT index) {
    const com::Variant value = argumentAs(arguments, index, VT_BSTR);
    return std::wstring(com::viewOf(V_BSTR(&value.get())));
}

long longArgument(const DISPPARAMS& arguments, UINT index) {
    const com::Variant value = argumentAs(arguments, index, VT_I4);
    return V_I4(&value.get());
}

}  // namespace telvar::host
