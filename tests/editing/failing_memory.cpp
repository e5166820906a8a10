#include "failing_memory.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace {

thread_local bool failsNext = false;

[[nodiscard]] void* allocated(std::size_t size) {
    void* const memory = std::exchange(failsNext, false) ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

}  // namespace

// The program's own, so that every allocation passes here; the other forms call these.
void* operator new(std::size_t size) { return allocated(size); }
void* operator new[](std::size_t size) { return allocated(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace telvar::tests {

FailingMemory::FailingMemory() noexcept { failsNext = true; }

FailingMemory::~FailingMemory() { failsNext = false; }

}  // namespace telvar::tests
