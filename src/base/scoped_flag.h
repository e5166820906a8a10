// A flag that is up for as long as this lives, and afterwards as it was before, however that ends.
#pragma once

#include <utility>

#include "base/pinned.h"

namespace telvar::base {

class ScopedFlag : Pinned {
public:
    explicit ScopedFlag(bool& flag) noexcept : flag_(flag), before_(std::exchange(flag, true)) {}
    ~ScopedFlag() { flag_ = before_; }

private:
    bool& flag_;
    bool before_;
};

}  // namespace telvar::base
