// A kernel handle that is closed at the end of its scope.
#pragma once

#include <windows.h>

#include <utility>

namespace telvar::os {

class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE handle) noexcept : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(other.release()) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (*this) {
            ::CloseHandle(handle_);
        }
    }

    [[nodiscard]] explicit operator bool() const noexcept { return handle_ != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE get() const noexcept { return handle_; }
    [[nodiscard]] HANDLE release() noexcept { return std::exchange(handle_, INVALID_HANDLE_VALUE); }

private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

}  // namespace telvar::os
