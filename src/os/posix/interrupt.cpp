#include "os/interrupt.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>

#include "base/failure.h"
#include "os/posix/interrupt_handle.h"

namespace telvar::os {

namespace {

using Clock = std::chrono::steady_clock;

[[nodiscard]] int millisecondsUntil(Clock::time_point until) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now()).count();
    return static_cast<int>(std::clamp<long long>(left, 0, INT_MAX));
}

}  // namespace

Interrupt::Interrupt()
    : handle_(std::make_unique<Handle>(Handle{Descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))})) {
    if (!handle_->event) {
        throw base::Failure(errorText(errno));
    }
}

Interrupt::~Interrupt() = default;

void Interrupt::raise() noexcept { ::eventfd_write(handle_->event.get(), 1); }

void Interrupt::reset() noexcept {
    eventfd_t raisedSoOften = 0;
    ::eventfd_read(handle_->event.get(), &raisedSoOften);
}

bool Interrupt::raised() const noexcept { return waitFor(std::chrono::milliseconds(0)); }

bool Interrupt::waitFor(std::chrono::milliseconds time) const noexcept {
    const auto until = Clock::now() + time;
    for (;;) {
        pollfd event{.fd = handle_->event.get(), .events = POLLIN, .revents = 0};
        const int ready = ::poll(&event, 1, millisecondsUntil(until));
        if (ready >= 0 || errno != EINTR) {
            return ready > 0;
        }
    }
}

Waited waitForDescriptor(int descriptor, short events, const Interrupt& interrupt, Clock::time_point until) {
    for (;;) {
        std::array<pollfd, 2> waited{{{.fd = descriptor, .events = events, .revents = 0},
                                      {.fd = interrupt.handle().event.get(), .events = POLLIN, .revents = 0}}};
        const int ready = ::poll(waited.data(), waited.size(), millisecondsUntil(until));
        if (ready < 0 && errno == EINTR) {
            continue;
        }
        if (waited[1].revents != 0) {
            return Waited::Interrupted;
        }
        return ready > 0 ? Waited::Ready : Waited::TimedOut;
    }
}

}  // namespace telvar::os
