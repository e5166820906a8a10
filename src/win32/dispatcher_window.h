// The window without a face that belongs to a desktop: runs work posted from any thread, and ticks timers.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>

#include "base/dispatcher.h"
#include "win32/module.h"
#include "win32/window.h"

namespace telvar::ui {
class Timer;
}

namespace telvar::win32 {

class DispatcherWindow final : public Window, public base::Dispatcher {
public:
    void open();
    // What it answers is kept for the length of each tick and each piece of work.
    void setHolder(std::function<std::shared_ptr<void>()> holder) { holder_ = std::move(holder); }

    void post(std::function<void()> work) override;
    // As Desktop::whenIdle; on the window's own thread.
    void whenIdle(std::function<void()> work);

    void start(ui::Timer& timer, std::chrono::milliseconds interval);
    void stop(const ui::Timer& timer) noexcept;

    // Drops the queued work and ends the timers and the window.
    void close() noexcept;

protected:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    static constexpr UINT workPosted = WM_APP;
    static constexpr UINT idleAsked = WM_APP + 1;
    static constexpr UINT_PTR idleTimer = 1;  // those of ui::Timer come after it

    struct Running {
        ui::Timer* timer;
        Use use;
    };

    void runNext();
    void tick(UINT_PTR id) const;
    void askForIdle();
    void lookForIdle();
    void runIdle();

    std::mutex lock_;
    std::deque<std::function<void()>> queue_;
    bool announced_ = false;
    std::map<UINT_PTR, Running> timers_;
    UINT_PTR lastTimer_ = idleTimer;
    std::deque<std::function<void()>> idle_;
    std::function<std::shared_ptr<void>()> holder_;
};

}  // namespace telvar::win32
