// Time as the link sees it, so that tests let hours of time-outs pass in no time.
#pragma once

#include <chrono>

#include "base/pinned.h"
#include "os/interrupt.h"

namespace telvar::radio {

using LinkTime = std::chrono::steady_clock::time_point;

class LinkClock : private base::Pinned {
public:
    virtual ~LinkClock() = default;

    [[nodiscard]] virtual LinkTime now() const = 0;
    // Returns at that time, or earlier when the interrupt is raised.
    virtual void wait(LinkTime until, const os::Interrupt& interrupt) = 0;
};

class SystemClock final : public LinkClock {
public:
    [[nodiscard]] LinkTime now() const override { return std::chrono::steady_clock::now(); }
    void wait(LinkTime until, const os::Interrupt& interrupt) override {
        interrupt.waitFor(std::chrono::ceil<std::chrono::milliseconds>(until - now()));
    }
};

}  // namespace telvar::radio
