// Registers window classes, which point into the module and must go before it is unloaded.
#pragma once

#include <windows.h>

#include <string>

namespace telvar::win {

// A kind of window that several modules of a process may have: the name as registered carries the module's address.
struct WindowKind {
    const wchar_t* name = nullptr;  // a literal
    UINT style = 0;                 // CS_...
};
[[nodiscard]] std::wstring classNameOf(const WindowKind& kind);

struct ClassLook {
    UINT style = 0;
    HICON icon = nullptr;
    HBRUSH background = nullptr;
};
// A class of this module with an arrow as its pointer, unless there is one of that name. Throws SystemFailure.
void registerClass(const std::wstring& name, WNDPROC procedure, const ClassLook& look = {});

// Takes it back, unless there is still a window of it.
void unregisterClass(const WindowKind& kind) noexcept;

}  // namespace telvar::win
