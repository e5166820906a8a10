// One thread that does jobs one after the other. It starts with the first job and is joined at the end, after the job
// under way; jobs that had not begun are dropped.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "base/pinned.h"

namespace telvar::radio {

class LinkWorker : private base::Pinned {
public:
    ~LinkWorker() { stop(); }

    // Jobs let no exception out. Throws std::system_error where the system starts no thread.
    void run(std::function<void()> job);
    void stop() noexcept;

private:
    void work() noexcept;

    std::mutex lock_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> jobs_;
    bool ending_ = false;
    std::thread thread_;
};

}  // namespace telvar::radio
