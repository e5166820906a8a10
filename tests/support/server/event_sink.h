// Hands a source's events on to the methods of a script object, by name. A script takes references to variants only,
// so that arguments by reference are exchanged through a variant and come back converted to the source's type.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "com/kit/object.h"
#include "com/kit/pointer.h"

namespace telvar::tests {

struct EventCounts {
    long events = 0;    // calls that reached a handler
    long failures = 0;  // of these, the calls that the handler failed
};

class EventSink final : public com::Object<IDispatch> {
public:
    // `names` maps the dispatch numbers of the events of interface `events` to the handler's methods.
    EventSink(REFIID events, std::map<DISPID, std::wstring> names, IDispatch* handler,
              std::shared_ptr<EventCounts> counts);

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) noexcept override;
    STDMETHODIMP Invoke(DISPID event, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* argument) noexcept override;

private:
    [[nodiscard]] HRESULT handOn(DISPID event, const DISPPARAMS& parameters);

    IID events_;
    std::map<DISPID, std::wstring> names_;
    com::ComPointer<IDispatch> handler_;
    std::shared_ptr<EventCounts> counts_;
};

}  // namespace telvar::tests
