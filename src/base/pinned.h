// Base of what stays where it was made, because somebody else knows its address: neither copied nor moved. Nothing is
// destroyed through it.
#pragma once

namespace telvar::base {

class Pinned {
public:
    Pinned(const Pinned&) = delete;
    Pinned& operator=(const Pinned&) = delete;
    Pinned(Pinned&&) = delete;
    Pinned& operator=(Pinned&&) = delete;

protected:
    Pinned() = default;
    ~Pinned() = default;
};

}  // namespace telvar::base
