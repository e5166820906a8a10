#include "win32/dispatcher_window.h"

#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "ui/timer.h"

namespace telvar::win32 {

void DispatcherWindow::whenIdle(std::function<void()> work) {
    if (handle() == nullptr) {
        return;
    }
    idle_.push_back(std::move(work));
    if (idle_.size() == 1) {
        askForIdle();
    }
}

void DispatcherWindow::askForIdle() {
    if (PostMessageW(handle(), idleAsked, 0, 0) == FALSE) {
        SetTimer(handle(), idleTimer, USER_TIMER_MINIMUM, nullptr);
    }
}

// A posted message comes before the user's input, however much of that waits. A timer comes after all of it.
void DispatcherWindow::lookForIdle() {
    const bool busy = HIWORD(GetQueueStatus(QS_KEY | QS_MOUSEBUTTON | QS_POSTMESSAGE)) != 0;
    if (!busy || SetTimer(handle(), idleTimer, USER_TIMER_MINIMUM, nullptr) == 0) {
        runIdle();
    }
}

void DispatcherWindow::runIdle() {
    KillTimer(handle(), idleTimer);
    if (idle_.empty()) {
        return;
    }
    const auto kept = holdOwner();
    const auto work = std::move(idle_.front());
    idle_.pop_front();
    // Asked before the work runs, which may pump messages itself.
    if (!idle_.empty()) {
        askForIdle();
    }
    work();
}

void DispatcherWindow::start(ui::Timer& timer, std::chrono::milliseconds interval) {
    stop(timer);
    const auto id = ++lastTimer_;
    const auto period = std::clamp<long long>(interval.count(), USER_TIMER_MINIMUM, USER_TIMER_MAXIMUM);
    if (handle() == nullptr || SetTimer(handle(), id, static_cast<UINT>(period), nullptr) == 0) {
        throw base::Failure("A timer could not be started");
    }
    timers_.try_emplace(id, &timer);
}

void DispatcherWindow::stop(const ui::Timer& timer) noexcept {
    const auto found =
        std::ranges::find_if(timers_, [&timer](const auto& entry) { return entry.second.timer == &timer; });
    if (found != timers_.end()) {
        KillTimer(handle(), found->first);
        timers_.erase(found);
    }
}

void DispatcherWindow::tick(UINT_PTR id) const {
    const auto kept = holdOwner();
    // A tick that was under way when its timer was stopped finds nothing.
    if (const auto found = timers_.find(id); found != timers_.end()) {
        found->second.timer->Tick();
    }
}

void DispatcherWindow::endAll() noexcept {
    for (const auto& [id, running] : timers_) {
        KillTimer(handle(), id);
    }
    timers_.clear();
    KillTimer(handle(), idleTimer);
    const auto dropped = std::exchange(idle_, {});
    close();
}

LRESULT DispatcherWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case idleAsked:
        lookForIdle();
        return 0;
    case WM_TIMER:
        if (wParam == idleTimer) {
            runIdle();
        } else {
            tick(wParam);
        }
        return 0;
    default:
        return WorkWindow::message(message, wParam, lParam);
    }
}

}  // namespace telvar::win32
