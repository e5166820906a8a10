// The window without a face that belongs to a desktop: runs work posted from any thread, work that waits for everything
// else, and ticks timers.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <memory>

#include "win/module.h"
#include "win/work_window.h"

namespace telvar::ui {
class Timer;
}

namespace telvar::win32 {

class DispatcherWindow final : public win::WorkWindow {
public:
    // What it answers is kept for the length of each tick and each piece of work.
    void setHolder(std::function<std::shared_ptr<void>()> holder) { holder_ = std::move(holder); }

    // As Desktop::whenIdle; on the window's own thread.
    void whenIdle(std::function<void()> work);

    void start(ui::Timer& timer, std::chrono::milliseconds interval);
    void stop(const ui::Timer& timer) noexcept;

    // Drops the waiting work and ends the timers and the window.
    void endAll() noexcept;

protected:
    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    [[nodiscard]] std::shared_ptr<void> holdOwner() const override { return holder_ ? holder_() : nullptr; }

private:
    static constexpr UINT idleAsked = firstFreeMessage;
    static constexpr UINT_PTR idleTimer = 1;  // those of ui::Timer come after it

    struct Running {
        ui::Timer* timer;
        win::Use use;
    };

    void tick(UINT_PTR id) const;
    void askForIdle();
    void lookForIdle();
    void runIdle();

    std::map<UINT_PTR, Running> timers_;
    UINT_PTR lastTimer_ = idleTimer;
    std::deque<std::function<void()>> idle_;
    std::function<std::shared_ptr<void>()> holder_;
};

}  // namespace telvar::win32
