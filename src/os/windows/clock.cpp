#include "os/clock.h"

#include <windows.h>

namespace telvar::os {

LocalTime localTime() {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    return {.year = now.wYear,
            .month = now.wMonth,
            .day = now.wDay,
            .hour = now.wHour,
            .minute = now.wMinute,
            .second = now.wSecond};
}

}  // namespace telvar::os
