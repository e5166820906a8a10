// The window without a face by which work from other threads comes to the thread that made it. The thread's messages
// must be run for the work to be done.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <mutex>

#include "base/dispatcher.h"
#include "win/window.h"

namespace telvar::win {

class WorkWindow : public Window, public base::Dispatcher {
public:
    static constexpr WindowKind kind{.name = L"Messages"};

    // Throws base::Failure when the system refuses.
    void open();
    // Nothing is queued while there is no window.
    void post(std::function<void()> work) override;
    // Drops the queued work and ends the window. On the thread that opened it; may be called from inside the work.
    void close() noexcept;

protected:
    // For messages of a heir's own.
    static constexpr UINT firstFreeMessage = WM_APP + 1;

    LRESULT message(UINT message, WPARAM wParam, LPARAM lParam) override;
    // What is kept for the length of each piece of work.
    [[nodiscard]] virtual std::shared_ptr<void> holdOwner() const { return nullptr; }

private:
    static constexpr UINT workPosted = WM_APP;

    void announce() noexcept;
    void runNext();

    std::mutex lock_;
    std::deque<std::function<void()>> queue_;
    bool announced_ = false;
};

// A work window of its owner's own, which ends with it.
class WindowDispatcher final : public base::Dispatcher {
public:
    WindowDispatcher() : window_(std::make_shared<WorkWindow>()) { window_->open(); }
    ~WindowDispatcher() override { window_->close(); }

    void post(std::function<void()> work) override { window_->post(std::move(work)); }

private:
    std::shared_ptr<WorkWindow> window_;
};

}  // namespace telvar::win
