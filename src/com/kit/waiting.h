// Waiting that lets the thread's messages run, and with them events, timers and calls from other apartments.
#pragma once

#include <cstdint>
#include <functional>

namespace telvar::com {

// Runs messages until `ended` says so, at most that many milliseconds; whether it did. Looks before the first message
// and after each one, and sleeps while there is none. A quit message is posted again and ends the wait.
[[nodiscard]] bool waitPumping(std::int32_t milliseconds, const std::function<bool()>& ended);

// Runs the messages that wait and those that they cause, for at most that many milliseconds.
void pumpMessages(std::int32_t milliseconds);

}  // namespace telvar::com
