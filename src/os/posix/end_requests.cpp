#include "os/end_requests.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <thread>

namespace telvar::os {

namespace {

constexpr std::array endingSignals{SIGINT, SIGTERM, SIGHUP};

// What a signal handler can reach: raising writes to a descriptor, which is allowed there.
std::atomic<Interrupt*> listening = nullptr;

void handleSignal(int /*signal*/) noexcept {
    const int error = errno;
    if (Interrupt* const interrupt = listening) {
        interrupt->raise();
    }
    errno = error;
}

[[nodiscard]] struct sigaction handledBy(void (*handler)(int)) noexcept {
    struct sigaction action{};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    return action;
}

void dropInput(Interrupt& interrupt) noexcept {
    std::array<char, 4096> part{};
    for (;;) {
        const auto got = ::read(STDIN_FILENO, part.data(), part.size());
        if (got == 0) {
            interrupt.raise();
        }
        if (got == 0 || (got < 0 && errno != EINTR)) {
            return;
        }
    }
}

}  // namespace

struct EndRequests::Former {
    std::array<struct sigaction, endingSignals.size()> ending{};
    struct sigaction brokenPipe{};
};

EndRequests::EndRequests(Interrupt& interrupt) : former_(std::make_unique<Former>()) {
    listening = &interrupt;
    const auto ending = handledBy(handleSignal);
    for (std::size_t at = 0; at < endingSignals.size(); ++at) {
        ::sigaction(endingSignals[at], &ending, &former_->ending[at]);
    }
    const auto ignored = handledBy(SIG_IGN);
    ::sigaction(SIGPIPE, &ignored, &former_->brokenPipe);
}

EndRequests::~EndRequests() {
    for (std::size_t at = 0; at < endingSignals.size(); ++at) {
        ::sigaction(endingSignals[at], &former_->ending[at], nullptr);
    }
    ::sigaction(SIGPIPE, &former_->brokenPipe, nullptr);
    listening = nullptr;
}

void raiseAtEndOfInput(const std::shared_ptr<Interrupt>& interrupt) {
    // A terminal would stop a program that reads from its background.
    const auto ignored = handledBy(SIG_IGN);
    ::sigaction(SIGTTIN, &ignored, nullptr);
    std::thread([interrupt] { dropInput(*interrupt); }).detach();
}

}  // namespace telvar::os
