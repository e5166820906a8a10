#include "win32/dispatcher_window.h"

#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "ui/timer.h"

namespace telvar::win32 {

void DispatcherWindow::open() { create(WindowKind::Messages, 0, 0, RECT{}, HWND_MESSAGE); }

void DispatcherWindow::post(std::function<void()> work) {
    const std::scoped_lock held(lock_);
    if (handle() == nullptr) {
        return;
    }
    queue_.push_back(std::move(work));
    // One message at a time: a thread's message queue is of limited length.
    if (!announced_) {
        announced_ = PostMessageW(handle(), workPosted, 0, 0) != FALSE;
    }
}

void DispatcherWindow::runNext() {
    std::function<void()> work;
    {
        const std::scoped_lock held(lock_);
        announced_ = false;
        if (queue_.empty()) {
            return;
        }
        work = std::move(queue_.front());
        queue_.pop_front();
        // Announced before the work runs, which may pump messages itself.
        if (!queue_.empty()) {
            announced_ = PostMessageW(handle(), workPosted, 0, 0) != FALSE;
        }
    }
    const auto kept = holder_ ? holder_() : nullptr;
    work();
}

// -- work that waits for everything else ----------------------------------------------------------------------------

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
    const auto kept = holder_ ? holder_() : nullptr;
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
    const auto kept = holder_ ? holder_() : nullptr;
    // A tick that was under way when its timer was stopped finds nothing.
    if (const auto found = timers_.find(id); found != timers_.end()) {
        found->second.timer->Tick();
    }
}

void DispatcherWindow::close() noexcept {
    for (const auto& [id, running] : timers_) {
        KillTimer(handle(), id);
    }
    timers_.clear();
    KillTimer(handle(), idleTimer);
    const auto droppedIdle = std::exchange(idle_, {});
    std::deque<std::function<void()>> dropped;
    {
        // A worker that posts meanwhile finds either the window or none.
        const std::scoped_lock held(lock_);
        dropped.swap(queue_);
        destroy();
    }
}

LRESULT DispatcherWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case workPosted:
        runNext();
        return 0;
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
        return defaultMessage(message, wParam, lParam);
    }
}

}  // namespace telvar::win32
