// Time that passes only when somebody waits for it, and then at once: time-outs of hours cost nothing.
#pragma once

#include <atomic>

#include "radio/link_clock.h"

namespace telvar::tests {

class VirtualClock final : public radio::LinkClock {
public:
    [[nodiscard]] radio::LinkTime now() const override { return radio::LinkTime(elapsed_.load()); }
    void wait(radio::LinkTime until, const os::Interrupt& interrupt) override {
        if (!interrupt.raised() && until > now()) {
            elapsed_ = until.time_since_epoch();
        }
    }

private:
    // Read by the test, too, while another thread waits.
    std::atomic<radio::LinkTime::duration> elapsed_{radio::LinkTime::duration::zero()};
};

}  // namespace telvar::tests
