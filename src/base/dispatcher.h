// "Run this on the user-interface thread": the door by which workers report.
#pragma once

#include <functional>

namespace telvar::base {

class Dispatcher {
public:
    Dispatcher() = default;
    Dispatcher(const Dispatcher&) = delete;
    Dispatcher& operator=(const Dispatcher&) = delete;
    Dispatcher(Dispatcher&&) = delete;
    Dispatcher& operator=(Dispatcher&&) = delete;
    virtual ~Dispatcher() = default;

    // Callable from any thread. Work is run once, in order of posting, from the user-interface thread's message loop;
    // work that is still queued when the dispatcher ends is dropped.
    virtual void post(std::function<void()> work) = 0;
};

}  // namespace telvar::base
