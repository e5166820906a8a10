// What the keyboard and the clipboard of the system look like to the thread that a test runs on.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>

#include <windows.h>

namespace telvar::tests {

// Held down for the life of the object, as the thread sees it.
class HeldControl {
public:
    HeldControl() noexcept { set(0x80); }
    HeldControl(const HeldControl&) = delete;
    HeldControl& operator=(const HeldControl&) = delete;
    HeldControl(HeldControl&&) = delete;
    HeldControl& operator=(HeldControl&&) = delete;
    ~HeldControl() { set(0); }

private:
    static void set(BYTE state) noexcept {
        std::array<BYTE, 256> keys{};
        GetKeyboardState(keys.data());
        keys[VK_CONTROL] = state;
        SetKeyboardState(keys.data());
    }
};

inline void putOnClipboard(const std::wstring& text) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    CopyMemory(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

}  // namespace telvar::tests
