// The module (DLL or program) that links this folder: its handle, and the count of things that would crash if it were
// unloaded under them.
#pragma once

#include <windows.h>

#include <string>

namespace telvar::win {

[[nodiscard]] HINSTANCE moduleHandle() noexcept;
// Full path of its file. Throws SystemFailure.
[[nodiscard]] std::wstring modulePath();

// +1 for everything that would crash if the module were unloaded under it, -1 when it goes.
void countUse(int change) noexcept;
[[nodiscard]] long uses() noexcept;

// One counted use.
class Use {
public:
    Use() noexcept { countUse(1); }
    Use(const Use&) noexcept { countUse(1); }
    Use& operator=(const Use&) noexcept = default;
    Use(Use&&) noexcept { countUse(1); }
    Use& operator=(Use&&) noexcept = default;
    ~Use() { countUse(-1); }
};

}  // namespace telvar::win
