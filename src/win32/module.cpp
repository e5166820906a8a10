// The two variables here are plain values: a DLL of ours runs no destructors when it is unloaded.
#include "win32/module.h"

#include <atomic>
#include <cstdio>
#include <iterator>

#include "base/failure.h"

namespace telvar::win32 {

namespace {

std::atomic<UseCounter> useCounter{nullptr};

constexpr WindowKind windowKinds[] = {WindowKind::Messages, WindowKind::Panel, WindowKind::Grid, WindowKind::Form};

const wchar_t* kindName(WindowKind kind) noexcept {
    switch (kind) {
    case WindowKind::Messages:
        return L"Messages";
    case WindowKind::Panel:
        return L"Panel";
    case WindowKind::Grid:
        return L"Grid";
    case WindowKind::Form:
        return L"Form";
    }
    return L"";
}

UINT classStyle(WindowKind kind) noexcept { return kind == WindowKind::Grid ? CS_DBLCLKS : 0U; }

void count(int change) noexcept {
    if (const UseCounter counter = useCounter) {
        counter(change);
    }
}

}  // namespace

HINSTANCE moduleHandle() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&useCounter), &module);
    return module;
}

void setUseCounter(UseCounter counter) noexcept { useCounter = counter; }

Use::Use() noexcept { count(+1); }

Use::~Use() { count(-1); }

std::wstring windowClassName(WindowKind kind) {
    wchar_t address[2 * sizeof(void*) + 1] = {};
    std::swprintf(address, std::size(address), L"%llX",
                  static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(moduleHandle())));
    return std::wstring(L"Telvar.") + kindName(kind) + L"." + address;
}

std::wstring windowClass(WindowKind kind, WNDPROC procedure) {
    std::wstring name = windowClassName(kind);
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    if (GetClassInfoExW(moduleHandle(), name.c_str(), &description) != FALSE) {
        return name;
    }
    description = {};
    description.cbSize = sizeof description;
    description.style = classStyle(kind);
    description.lpfnWndProc = procedure;
    description.hInstance = moduleHandle();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = name.c_str();
    if (RegisterClassExW(&description) == 0) {
        throw base::Failure("A window class could not be registered");
    }
    return name;
}

void unregisterWindowClasses() noexcept {
    try {
        for (const WindowKind kind : windowKinds) {
            UnregisterClassW(windowClassName(kind).c_str(), moduleHandle());
        }
    } catch (const std::exception&) {
        // Out of memory for a name: the classes stay, as if a window were still there.
        return;
    }
}

}  // namespace telvar::win32
