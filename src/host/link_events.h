// What the radio link reports during and after an exchange.
#pragma once

#include <string>

#include "host/event_sink.h"

namespace telvar::host {

class LinkListener {
public:
    LinkListener() = default;
    LinkListener(const LinkListener&) = delete;
    LinkListener& operator=(const LinkListener&) = delete;
    LinkListener(LinkListener&&) = delete;
    LinkListener& operator=(LinkListener&&) = delete;

    // 0 to 100 percent.
    virtual void linkProgressed(long percent) = 0;
    // Whatever the outcome; `message` is one sentence or empty.
    virtual void exchangeEnded(bool succeeded, const std::wstring& message) = 0;

protected:
    ~LinkListener() = default;
};

// `listener` outlives the connection. Throws com::ComFailure where `link` does not have these events.
[[nodiscard]] EventConnection connectLink(IUnknown* link, LinkListener& listener);

}  // namespace telvar::host
