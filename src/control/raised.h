// A flag that is set for as long as this lives.
#pragma once

namespace telvar::control {

class Raised {
public:
    explicit Raised(bool& flag) noexcept : flag_(flag) { flag_ = true; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;
    Raised(Raised&&) = delete;
    Raised& operator=(Raised&&) = delete;
    ~Raised() { flag_ = false; }

private:
    bool& flag_;
};

}  // namespace telvar::control
