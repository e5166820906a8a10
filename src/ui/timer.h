// A timer of the message loop: ticks on the user-interface thread while it is enabled and its interval is not zero.
#pragma once

#include <chrono>

#include "base/event.h"
#include "base/pinned.h"
#include "ui/desktop.h"

namespace telvar::ui {

class Timer : base::Pinned {
public:
    explicit Timer(Desktop& desktop) noexcept : desktop_(desktop) {}
    ~Timer() { desktop_.stopTimer(*this); }

    [[nodiscard]] std::chrono::milliseconds interval() const noexcept { return interval_; }
    void setInterval(std::chrono::milliseconds interval) {
        interval_ = interval;
        apply();
    }
    [[nodiscard]] bool enabled() const noexcept { return enabled_; }
    void setEnabled(bool enabled) {
        if (enabled_ != enabled) {
            enabled_ = enabled;
            apply();
        }
    }

    base::Event<> Tick;

private:
    void apply() {
        desktop_.stopTimer(*this);
        if (enabled_ && interval_.count() > 0) {
            desktop_.startTimer(*this, interval_);
        }
    }

    Desktop& desktop_;
    std::chrono::milliseconds interval_{0};
    bool enabled_ = true;
};

}  // namespace telvar::ui
