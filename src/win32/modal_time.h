// Guards for the time in which something modal is shown: what it closes off opens again when it ends.
#pragma once

#include <windows.h>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "base/pinned.h"

namespace telvar::win32 {

// The site is told that its modeless windows have to wait. Holds a copy: the site may change inside.
class ModalTime : private base::Pinned {
public:
    explicit ModalTime(std::function<void(bool)> enableModeless) : enableModeless_(std::move(enableModeless)) {
        if (enableModeless_) {
            enableModeless_(false);
        }
    }
    ~ModalTime() {
        if (enableModeless_) {
            enableModeless_(true);
        }
    }

private:
    std::function<void(bool)> enableModeless_;
};

// Windows that take no input. Those that took none before stay as they are.
class DisabledWindows : private base::Pinned {
public:
    ~DisabledWindows() { enable(); }

    void disable(HWND window) {
        if (window != nullptr && IsWindowEnabled(window) != FALSE) {
            windows_.push_back(window);
            EnableWindow(window, FALSE);
        }
    }
    void enable() noexcept {
        for (const HWND window : std::exchange(windows_, {})) {
            EnableWindow(window, TRUE);
        }
    }

private:
    std::vector<HWND> windows_;
};

}  // namespace telvar::win32
