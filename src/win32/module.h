// What belongs to the module (DLL or program) that links this folder: its handle, its window classes and the count of
// things that would crash if it were unloaded under them.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace telvar::win32 {

[[nodiscard]] HINSTANCE moduleHandle() noexcept;

// Told +1 for every window, hook, timer and accessible object that comes and -1 for each that goes. Set once, before
// the first window; without one nothing is counted.
using UseCounter = void (*)(int change) noexcept;
void setUseCounter(UseCounter counter) noexcept;

// One counted use of the module.
class Use {
public:
    Use() noexcept;
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    Use(Use&&) = delete;
    Use& operator=(Use&&) = delete;
    ~Use();
};

enum class WindowKind : std::uint8_t { Messages, Panel, Grid, Form };

// Registers the class when it is not registered yet; every class has the same window procedure.
[[nodiscard]] std::wstring windowClass(WindowKind kind, WNDPROC procedure);
// Class name as registered, whether or not it is.
[[nodiscard]] std::wstring windowClassName(WindowKind kind);

// Takes every class back of which no window exists. To be called before the module may be unloaded.
void unregisterWindowClasses() noexcept;

}  // namespace telvar::win32
