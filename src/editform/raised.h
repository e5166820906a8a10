// A flag that is up while something goes on, however that ends.
#pragma once

#include <utility>

namespace telvar::editform {

class Raised {
public:
    explicit Raised(bool& flag) noexcept : flag_(flag), before_(std::exchange(flag, true)) {}
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;
    Raised(Raised&&) = delete;
    Raised& operator=(Raised&&) = delete;
    ~Raised() { flag_ = before_; }

private:
    bool& flag_;
    bool before_;
};

}  // namespace telvar::editform
