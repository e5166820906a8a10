// A course of actions inside somebody else's message loop: each step is tried every few milliseconds until it holds,
// then the next one's turn has come. A step that never holds fails the test and closes the window.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <deque>
#include <functional>
#include <utility>

namespace telvar::tests {

class TimedSteps {
public:
    using Step = std::function<bool()>;

    TimedSteps() { current = this; }
    TimedSteps(const TimedSteps&) = delete;
    TimedSteps& operator=(const TimedSteps&) = delete;
    TimedSteps(TimedSteps&&) = delete;
    TimedSteps& operator=(TimedSteps&&) = delete;
    ~TimedSteps() {
        stop();
        current = nullptr;
        EXPECT_TRUE(steps_.empty()) << steps_.size() << " steps were never taken";
    }

    // Holds at once.
    TimedSteps& act(std::function<void()> action) {
        return until([action = std::move(action)] {
            action();
            return true;
        });
    }
    TimedSteps& until(Step step) {
        steps_.push_back(std::move(step));
        return *this;
    }
    // `window` is what a stuck course closes.
    void start(HWND window) {
        window_ = window;
        since_ = GetTickCount64();
        timer_ = SetTimer(nullptr, 0, 10, ticked);
    }

private:
    static void CALLBACK ticked(HWND, UINT, UINT_PTR, DWORD) noexcept {
        if (current != nullptr) {
            current->tick();
        }
    }

    void tick() {
        if (inside_) {
            return;
        }
        inside_ = true;
        while (!steps_.empty() && steps_.front()()) {
            steps_.pop_front();
            since_ = GetTickCount64();
        }
        inside_ = false;
        if (steps_.empty()) {
            stop();
        } else if (GetTickCount64() - since_ > patience) {
            ADD_FAILURE() << "the course stands still, " << steps_.size() << " steps before its end";
            steps_.clear();
            stop();
            PostMessageW(window_, WM_COMMAND, IDCANCEL, 0);
        }
    }

    void stop() {
        if (timer_ != 0) {
            KillTimer(nullptr, std::exchange(timer_, 0));
        }
    }

    static constexpr ULONGLONG patience = 10'000;  // milliseconds
    static inline TimedSteps* current = nullptr;

    std::deque<Step> steps_;
    HWND window_ = nullptr;
    UINT_PTR timer_ = 0;
    ULONGLONG since_ = 0;
    bool inside_ = false;
};

}  // namespace telvar::tests
