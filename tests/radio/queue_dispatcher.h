// A user-interface thread without an interface: work posted from any thread is run by the test, which waits for it.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "base/dispatcher.h"

namespace telvar::tests {

class QueueDispatcher final : public base::Dispatcher {
public:
    void post(std::function<void()> work) override {
        {
            const std::scoped_lock held(lock_);
            queue_.push_back(std::move(work));
        }
        changed_.notify_one();
    }

    // Runs what is posted until `ended`; false where nothing more came for a long time.
    [[nodiscard]] bool runUntil(const std::function<bool()>& ended) {
        while (!ended()) {
            std::function<void()> work;
            {
                std::unique_lock held(lock_);
                if (!changed_.wait_for(held, std::chrono::seconds(30), [this] { return !queue_.empty(); })) {
                    return false;
                }
                work = std::move(queue_.front());
                queue_.pop_front();
            }
            work();
        }
        return true;
    }

    [[nodiscard]] bool idle() {
        const std::scoped_lock held(lock_);
        return queue_.empty();
    }

private:
    std::mutex lock_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> queue_;
};

}  // namespace telvar::tests
