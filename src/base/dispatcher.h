// "Run this on the user-interface thread": the door by which workers report.
#pragma once

#include <functional>

#include "base/pinned.h"

namespace telvar::base {

class Dispatcher : Pinned {
public:
    virtual ~Dispatcher() = default;

    // Callable from any thread. Work is run once, in order of posting, from the user-interface thread's message loop;
    // work that is still queued when the dispatcher ends is dropped.
    virtual void post(std::function<void()> work) = 0;
};

}  // namespace telvar::base
