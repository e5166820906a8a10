// The helper object that scripts create as "TelvarTest.Helper".
#pragma once

#include <memory>
#include <vector>

#include "TestHelper.h"
#include "com/kit/class_info.h"
#include "com/kit/dispatch.h"
#include "com/kit/object.h"
#include "event_sink.h"

namespace telvar::tests {

class Helper final : public com::Object<com::Dual<IHelper>, com::SupportsErrorInfo<IHelper>> {
public:
    STDMETHODIMP Connect(IDispatch* source, IDispatch* handler, BSTR prefix) noexcept override;
    STDMETHODIMP Disconnect() noexcept override;
    STDMETHODIMP Pump(long milliseconds) noexcept override;
    STDMETHODIMP WaitForEvent(long milliseconds, VARIANT_BOOL* called) noexcept override;
    STDMETHODIMP get_EventCount(long* count) noexcept override;
    STDMETHODIMP get_FailureCount(long* count) noexcept override;

private:
    struct Connection {
        com::ComPointer<IConnectionPoint> point;
        DWORD cookie = 0;
    };

    ~Helper() { disconnectAll(); }
    void disconnectAll() noexcept;

    std::vector<Connection> connections_;
    std::shared_ptr<EventCounts> counts_ = std::make_shared<EventCounts>();
};

}  // namespace telvar::tests
