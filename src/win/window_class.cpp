#include "win/window_class.h"

#include <cstdint>
#include <cstdio>
#include <exception>
#include <iterator>

#include "win/failure.h"
#include "win/module.h"

namespace telvar::win {

std::wstring classNameOf(const WindowKind& kind) {
    wchar_t address[2 * sizeof(void*) + 1] = {};
    std::swprintf(address, std::size(address), L"%llX",
                  static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(moduleHandle())));
    return std::wstring(L"Telvar.") + kind.name + L"." + address;
}

void registerClass(const std::wstring& name, WNDPROC procedure, const ClassLook& look) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.style = look.style;
    description.lpfnWndProc = procedure;
    description.hInstance = moduleHandle();
    description.hIcon = look.icon;
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = look.background;
    description.lpszClassName = name.c_str();
    if (RegisterClassExW(&description) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
        throw SystemFailure();
    }
}

void unregisterClass(const WindowKind& kind) noexcept {
    try {
        UnregisterClassW(classNameOf(kind).c_str(), moduleHandle());
    } catch (const std::exception&) {
        // Out of memory for a name: the class stays, as if a window were still there.
        return;
    }
}

}  // namespace telvar::win
