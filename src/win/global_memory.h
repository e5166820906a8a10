// Movable memory of the system's, in which the clipboard and the printers' dialogs hand things over.
#pragma once

#include <windows.h>

#include <string_view>

#include "base/pinned.h"
#include "win/handle.h"

namespace telvar::win {

// While it is looked into. Null where the block is null or has no contents.
template <class Content>
class Locked : private base::Pinned {
public:
    explicit Locked(HGLOBAL memory) noexcept
        : memory_(memory), content_(memory == nullptr ? nullptr : static_cast<Content*>(GlobalLock(memory))) {}
    ~Locked() {
        if (content_ != nullptr) {
            GlobalUnlock(memory_);
        }
    }

    [[nodiscard]] Content* get() const noexcept { return content_; }

private:
    HGLOBAL memory_;
    Content* content_;
};

// A block as CF_UNICODETEXT wants it; none where the memory does not suffice.
[[nodiscard]] inline GlobalMemory textBlock(std::wstring_view text) noexcept {
    GlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t)));
    const Locked<wchar_t> locked(memory.get());
    if (locked.get() != nullptr) {
        locked.get()[text.copy(locked.get(), text.size())] = L'\0';
    }
    return memory;
}

}  // namespace telvar::win
