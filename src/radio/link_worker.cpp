#include "radio/link_worker.h"

#include <utility>

namespace telvar::radio {

void LinkWorker::run(std::function<void()> job) {
    if (!thread_.joinable()) {
        thread_ = std::thread([this] { work(); });
    }
    {
        const std::scoped_lock held(lock_);
        jobs_.push_back(std::move(job));
    }
    changed_.notify_one();
}

void LinkWorker::stop() noexcept {
    {
        const std::scoped_lock held(lock_);
        ending_ = true;
        jobs_.clear();
    }
    changed_.notify_one();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void LinkWorker::work() noexcept {
    for (;;) {
        std::function<void()> job;
        {
            std::unique_lock held(lock_);
            changed_.wait(held, [this] { return ending_ || !jobs_.empty(); });
            if (ending_) {
                return;
            }
            job = std::move(jobs_.front());
            jobs_.pop_front();
        }
        job();
    }
}

}  // namespace telvar::radio
