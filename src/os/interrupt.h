// Ends the waits of one thread from another one: a flag that the system's own waits look at, so that nobody polls.
#pragma once

#include <chrono>
#include <memory>

#include "base/pinned.h"

namespace telvar::os {

class Interrupt : private base::Pinned {
public:
    // Throws base::Failure where the system has no more handles.
    Interrupt();
    ~Interrupt();

    // Callable from any thread. Every wait that takes this interrupt ends at once, also those that begin later, until
    // reset().
    void raise() noexcept;
    void reset() noexcept;
    [[nodiscard]] bool raised() const noexcept;

    // Whether it was raised, now or within that time.
    bool waitFor(std::chrono::milliseconds time) const noexcept;

    struct Handle;
    [[nodiscard]] const Handle& handle() const noexcept { return *handle_; }

private:
    std::unique_ptr<Handle> handle_;
};

}  // namespace telvar::os
