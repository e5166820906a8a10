// A file descriptor that is closed at the end of its scope, and the system's text for an error number.
#pragma once

#include <unistd.h>

#include <string>
#include <system_error>
#include <utility>

namespace telvar::os {

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) noexcept : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) {
            ::close(number_);
        }
    }

    [[nodiscard]] explicit operator bool() const noexcept { return number_ >= 0; }
    [[nodiscard]] int get() const noexcept { return number_; }
    [[nodiscard]] int release() noexcept { return std::exchange(number_, -1); }

private:
    int number_ = -1;
};

[[nodiscard]] inline std::string errorText(int number) {
    return std::error_code(number, std::system_category()).message();
}

}  // namespace telvar::os
