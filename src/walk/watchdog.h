// Ends the process when something takes too long, even if its user-interface thread hangs.
#pragma once

#include <windows.h>

#include <functional>

#include "base/pinned.h"

namespace telvar::walk {

class Watchdog : private base::Pinned {
public:
    // After `milliseconds` calls `lastWords` on another thread and ends the process with that exit status.
    Watchdog(DWORD milliseconds, UINT exitStatus, std::function<void()> lastWords);
    ~Watchdog();

private:
    static void CALLBACK expired(void* self, BOOLEAN) noexcept;

    UINT exitStatus_;
    std::function<void()> lastWords_;
    HANDLE timer_ = nullptr;
};

}  // namespace telvar::walk
