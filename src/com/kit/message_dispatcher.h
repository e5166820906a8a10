// Brings work from other threads to the thread that made it, by a window without a face. The thread's messages must be
// run for the work to be done.
#pragma once

#include <deque>
#include <functional>
#include <mutex>

#include "base/dispatcher.h"
#include "com/kit/automation.h"

namespace telvar::com {

class MessageDispatcher final : public base::Dispatcher {
public:
    // Throws ComFailure where the system makes no window.
    MessageDispatcher();
    MessageDispatcher(const MessageDispatcher&) = delete;
    MessageDispatcher& operator=(const MessageDispatcher&) = delete;
    MessageDispatcher(MessageDispatcher&&) = delete;
    MessageDispatcher& operator=(MessageDispatcher&&) = delete;
    // On the thread that made it; may be called from inside the work that it runs.
    ~MessageDispatcher() override;

    void post(std::function<void()> work) override;

private:
    static constexpr UINT workPosted = WM_APP;

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    [[nodiscard]] std::function<void()> takeNext();
    void announce() noexcept;

    HWND window_ = nullptr;
    std::mutex lock_;
    std::deque<std::function<void()>> queue_;
    bool announced_ = false;
};

}  // namespace telvar::com
