#include "win/work_window.h"

#include <utility>

#include "base/pinned.h"

namespace telvar::win {

namespace {

// The last window's class may not be taken back while another thread is about to make a window of it. A plain value: a
// DLL of ours runs no destructors when it is unloaded.
SRWLOCK classLock = SRWLOCK_INIT;

class ClassLocked : private base::Pinned {
public:
    ClassLocked() noexcept { AcquireSRWLockExclusive(&classLock); }
    ~ClassLocked() { ReleaseSRWLockExclusive(&classLock); }
};

}  // namespace

void WorkWindow::open() {
    const ClassLocked locked;
    create(kind, 0, 0, RECT{}, HWND_MESSAGE);
}

void WorkWindow::post(std::function<void()> work) {
    const std::scoped_lock held(lock_);
    if (handle() != nullptr) {
        queue_.push_back(std::move(work));
        announce();
    }
}

// One message at a time: a thread's message queue is of limited length.
void WorkWindow::announce() noexcept {
    if (!announced_ && !queue_.empty()) {
        announced_ = PostMessageW(handle(), workPosted, 0, 0) != FALSE;
    }
}

void WorkWindow::runNext() {
    std::function<void()> work;
    {
        const std::scoped_lock held(lock_);
        announced_ = false;
        if (queue_.empty()) {
            return;
        }
        work = std::move(queue_.front());
        queue_.pop_front();
        // Before the work runs, which may pump messages itself.
        announce();
    }
    const auto kept = holdOwner();
    work();
}

void WorkWindow::close() noexcept {
    std::deque<std::function<void()>> dropped;
    const ClassLocked locked;
    {
        // A worker that posts meanwhile finds either the window or none.
        const std::scoped_lock held(lock_);
        dropped.swap(queue_);
        destroy();
    }
    unregisterClass(kind);
}

LRESULT WorkWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != workPosted) {
        return defaultMessage(message, wParam, lParam);
    }
    runNext();
    return 0;
}

}  // namespace telvar::win
