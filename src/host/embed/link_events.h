// What the radio link reports during and after an exchange.
#pragma once

#include <string>

#include "base/pinned.h"
#include "host/embed/event_sink.h"

namespace telvar::host {

class LinkListener : private base::Pinned {
public:
    // 0 to 100 percent.
    virtual void linkProgressed(long percent) = 0;
    // Whatever the outcome; `message` is one sentence or empty. The task is 22 for a load, 30 for a send, 0 for none.
    virtual void exchangeEnded(long task, bool succeeded, const std::wstring& message) = 0;
    // Who answered a question how the radio is, or why nobody did.
    virtual void statusReported(bool answered, const std::wstring& message) = 0;

protected:
    ~LinkListener() = default;
};

// `listener` outlives the connection. Throws com::ComFailure where `link` does not have these events.
[[nodiscard]] EventConnection connectLink(IUnknown* link, LinkListener& listener);

}  // namespace telvar::host
