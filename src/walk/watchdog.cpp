#include "walk/watchdog.h"

#include <exception>

namespace telvar::walk {

Watchdog::Watchdog(DWORD milliseconds, UINT exitStatus, std::function<void()> lastWords)
    : exitStatus_(exitStatus), lastWords_(std::move(lastWords)) {
    if (!CreateTimerQueueTimer(&timer_, nullptr, expired, this, milliseconds, 0, WT_EXECUTEONLYONCE)) {
        timer_ = nullptr;
    }
}

Watchdog::~Watchdog() {
    if (timer_ != nullptr) {
        // Waits for an expiry that has begun.
        DeleteTimerQueueTimer(nullptr, timer_, INVALID_HANDLE_VALUE);
    }
}

void CALLBACK Watchdog::expired(void* self, BOOLEAN) noexcept {
    const auto* watchdog = static_cast<const Watchdog*>(self);
    try {
        watchdog->lastWords_();
    } catch (const std::exception&) {
        // The exit status must do.
    }
    TerminateProcess(GetCurrentProcess(), watchdog->exitStatus_);
}

}  // namespace telvar::walk
