// Ends the process when something takes too long, even if its user-interface thread hangs.
#pragma once

#include <windows.h>

#include <functional>

namespace telvar::walk {

class Watchdog {
public:
    // After `milliseconds` calls `lastWords` on another thread and ends the process with that exit status.
    Watchdog(DWORD milliseconds, UINT exitStatus, std::function<void()> lastWords);
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    Watchdog(Watchdog&&) = delete;
    Watchdog& operator=(Watchdog&&) = delete;
    ~Watchdog();

private:
    static void CALLBACK expired(void* self, BOOLEAN) noexcept;

    UINT exitStatus_;
    std::function<void()> lastWords_;
    HANDLE timer_ = nullptr;
};

}  // namespace telvar::walk
