#include "com/kit/waiting.h"

#include <algorithm>
#include <chrono>

#include "com/kit/automation.h"

namespace telvar::com {

namespace {

using Clock = std::chrono::steady_clock;

[[nodiscard]] DWORD millisecondsUntil(Clock::time_point end) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    return left > 0 ? static_cast<DWORD>(left) : 0;
}

enum class Next : std::uint8_t { Ran, Nothing, Quit };

[[nodiscard]] Next runOneMessage() {
    MSG message{};
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == 0) {
        return Next::Nothing;
    }
    if (message.message == WM_QUIT) {
        PostQuitMessage(static_cast<int>(message.wParam));
        return Next::Quit;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return Next::Ran;
}

}  // namespace

bool waitPumping(std::int32_t milliseconds, const std::function<bool()>& ended) {
    const auto end = Clock::now() + std::chrono::milliseconds(std::max(milliseconds, 0));
    while (!ended()) {
        const Next next = runOneMessage();
        if (next == Next::Quit) {
            return ended();
        }
        const DWORD left = millisecondsUntil(end);
        if (left == 0) {
            return ended();
        }
        if (next == Next::Nothing) {
            MsgWaitForMultipleObjectsEx(0, nullptr, left, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        }
    }
    return true;
}

void pumpMessages(std::int32_t milliseconds) {
    const auto end = Clock::now() + std::chrono::milliseconds(std::max(milliseconds, 0));
    while (runOneMessage() == Next::Ran && Clock::now() < end) {
    }
}

}  // namespace telvar::com
