// Memory that runs out: the next allocation by `new` fails once. For failures that nothing else can bring about.
#pragma once

namespace telvar::tests {

class FailingMemory {
public:
    // From here to the end of its life, the first allocation of this thread throws std::bad_alloc.
    FailingMemory() noexcept;
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;
    FailingMemory(FailingMemory&&) = delete;
    FailingMemory& operator=(FailingMemory&&) = delete;
    ~FailingMemory();
};

}  // namespace telvar::tests
