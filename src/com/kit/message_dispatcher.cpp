#include "com/kit/message_dispatcher.h"

#include <string>
#include <utility>

#include "com/kit/failure.h"
#include "com/kit/module.h"

namespace telvar::com {

namespace {

// One window's class may not be taken back while another thread is about to make a window of it.
SRWLOCK classLock = SRWLOCK_INIT;

class ClassLocked {
public:
    ClassLocked() noexcept { AcquireSRWLockExclusive(&classLock); }
    ClassLocked(const ClassLocked&) = delete;
    ClassLocked& operator=(const ClassLocked&) = delete;
    ClassLocked(ClassLocked&&) = delete;
    ClassLocked& operator=(ClassLocked&&) = delete;
    ~ClassLocked() { ReleaseSRWLockExclusive(&classLock); }
};

[[nodiscard]] std::wstring className() { return std::wstring(module::name()) + L".Dispatcher"; }

}  // namespace

MessageDispatcher::MessageDispatcher() {
    const std::wstring name = className();
    const ClassLocked locked;
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = &procedure;
    description.hInstance = module::handle();
    description.lpszClassName = name.c_str();
    if (RegisterClassExW(&description) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
        throw ComFailure(HRESULT_FROM_WIN32(GetLastError()));
    }
    window_ = CreateWindowExW(0, name.c_str(), L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, module::handle(), nullptr);
    if (window_ == nullptr) {
        throw ComFailure(HRESULT_FROM_WIN32(GetLastError()));
    }
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

MessageDispatcher::~MessageDispatcher() {
    std::deque<std::function<void()>> dropped;
    {
        const std::scoped_lock held(lock_);
        dropped.swap(queue_);
    }
    const ClassLocked locked;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
    // Refused as long as there is another window of the class.
    UnregisterClassW(className().c_str(), module::handle());
}

void MessageDispatcher::post(std::function<void()> work) {
    const std::scoped_lock held(lock_);
    queue_.push_back(std::move(work));
    announce();
}

// One message at a time: a thread's message queue is of limited length.
void MessageDispatcher::announce() noexcept {
    if (!announced_ && !queue_.empty()) {
        announced_ = PostMessageW(window_, workPosted, 0, 0) != FALSE;
    }
}

std::function<void()> MessageDispatcher::takeNext() {
    const std::scoped_lock held(lock_);
    announced_ = false;
    if (queue_.empty()) {
        return nullptr;
    }
    auto work = std::move(queue_.front());
    queue_.pop_front();
    // Before the work runs, which may pump messages itself.
    announce();
    return work;
}

LRESULT CALLBACK MessageDispatcher::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* const dispatcher = reinterpret_cast<MessageDispatcher*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != workPosted || dispatcher == nullptr) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    try {
        // The work may end the dispatcher.
        if (const auto work = dispatcher->takeNext()) {
            work();
        }
    } catch (...) {
        return 0;
    }
    return 0;
}

}  // namespace telvar::com
