#include "os/interrupt.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "os/windows/interrupt_handle.h"
#include "win/failure.h"

namespace telvar::os {

namespace {

using Clock = std::chrono::steady_clock;

[[nodiscard]] DWORD milliseconds(std::chrono::milliseconds time) {
    return static_cast<DWORD>(std::clamp<long long>(time.count(), 0, INFINITE - 1));
}

}  // namespace

win::Handle newEvent() {
    win::Handle event(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!event) {
        throw win::SystemFailure();
    }
    return event;
}

Interrupt::Interrupt() : handle_(std::make_unique<Handle>(Handle{newEvent()})) {}

Interrupt::~Interrupt() = default;

void Interrupt::raise() noexcept { ::SetEvent(handle_->event.get()); }

void Interrupt::reset() noexcept { ::ResetEvent(handle_->event.get()); }

bool Interrupt::raised() const noexcept { return waitFor(std::chrono::milliseconds(0)); }

bool Interrupt::waitFor(std::chrono::milliseconds time) const noexcept {
    return ::WaitForSingleObject(handle_->event.get(), milliseconds(time)) == WAIT_OBJECT_0;
}

Waited waitForEvent(HANDLE event, const Interrupt& interrupt, Clock::time_point until) {
    const std::array<HANDLE, 2> waited{interrupt.handle().event.get(), event};
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now());
    switch (::WaitForMultipleObjects(static_cast<DWORD>(waited.size()), waited.data(), FALSE, milliseconds(left))) {
    case WAIT_OBJECT_0:
        return Waited::Interrupted;
    case WAIT_OBJECT_0 + 1:
        return Waited::Ready;
    default:
        return Waited::TimedOut;
    }
}

}  // namespace telvar::os
