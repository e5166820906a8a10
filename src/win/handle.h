// Owners of what the system hands out and wants back, one row for each kind. What gives such a handle back is called
// here and, for drawing, in gdi.h, and nowhere else.
#pragma once

#include <windows.h>

#include <utility>

namespace telvar::win {

// A policy names the handle's type and how it is given back. Null is no handle, nor is what the system answers for a
// file that cannot be opened.
template <class Policy>
class Owned {
public:
    using Value = typename Policy::Value;

    Owned() noexcept = default;
    explicit Owned(Value value) noexcept : value_(value) {}
    Owned(Owned&& other) noexcept : value_(other.release()) {}
    Owned& operator=(Owned&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { reset(); }

    [[nodiscard]] Value get() const noexcept { return value_; }
    [[nodiscard]] explicit operator bool() const noexcept {
        return value_ != nullptr && static_cast<const void*>(value_) != INVALID_HANDLE_VALUE;
    }
    // Hands the handle to the caller.
    [[nodiscard]] Value release() noexcept { return std::exchange(value_, nullptr); }
    void reset(Value value = nullptr) noexcept {
        if (*this) {
            Policy::giveBack(value_);
        }
        value_ = value;
    }

private:
    Value value_ = nullptr;
};

struct GivesHandleBack {
    using Value = HANDLE;
    static void giveBack(HANDLE handle) noexcept { CloseHandle(handle); }
};
// Of the kernel: files, events, processes, threads.
using Handle = Owned<GivesHandleBack>;

struct EndsSearch {
    using Value = HANDLE;
    static void giveBack(HANDLE search) noexcept { FindClose(search); }
};
using Search = Owned<EndsSearch>;

struct ClosesKey {
    using Value = HKEY;
    static void giveBack(HKEY key) noexcept { RegCloseKey(key); }
};
using KeyHandle = Owned<ClosesKey>;

struct FreesLocalMemory {
    using Value = HLOCAL;
    static void giveBack(HLOCAL memory) noexcept { LocalFree(memory); }
};
using LocalMemory = Owned<FreesLocalMemory>;

struct FreesGlobalMemory {
    using Value = HGLOBAL;
    static void giveBack(HGLOBAL memory) noexcept { GlobalFree(memory); }
};
using GlobalMemory = Owned<FreesGlobalMemory>;

struct FreesLibrary {
    using Value = HMODULE;
    static void giveBack(HMODULE library) noexcept { FreeLibrary(library); }
};
using Library = Owned<FreesLibrary>;

struct RemovesHook {
    using Value = HHOOK;
    static void giveBack(HHOOK hook) noexcept { UnhookWindowsHookEx(hook); }
};
using Hook = Owned<RemovesHook>;

struct ReleasesActivationContext {
    using Value = HANDLE;
    static void giveBack(HANDLE context) noexcept { ReleaseActCtx(context); }
};
using ActivationContext = Owned<ReleasesActivationContext>;

struct DestroysMenu {
    using Value = HMENU;
    static void giveBack(HMENU menu) noexcept { DestroyMenu(menu); }
};
// One that is not attached to a window.
using PopupMenu = Owned<DestroysMenu>;

}  // namespace telvar::win
