#include "win/window.h"

#include "base/failure.h"

namespace telvar::win {

Window::~Window() { destroy(); }

void Window::destroy() noexcept {
    if (handle_ != nullptr) {
        DestroyWindow(handle_);
    }
}

// The class tells whose window it is, also when a host has put its own procedure before ours.
Window* Window::of(HWND handle) noexcept {
    const bool ours =
        handle != nullptr && reinterpret_cast<WNDPROC>(GetClassLongPtrW(handle, GCLP_WNDPROC)) == procedure;
    return ours ? reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA)) : nullptr;
}

void Window::create(const WindowKind& kind, DWORD style, DWORD extendedStyle, const RECT& at, HWND parent) {
    const std::wstring name = classNameOf(kind);
    registerClass(name, procedure, {.style = kind.style});
    const HWND made = CreateWindowExW(extendedStyle, name.c_str(), L"", style, at.left, at.top, at.right - at.left,
                                      at.bottom - at.top, parent, nullptr, moduleHandle(), this);
    if (made == nullptr) {
        throw base::Failure("A window could not be created");
    }
}

LRESULT CALLBACK Window::procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    try {
        return dispatch(handle, message, wParam, lParam);
    } catch (...) {
        return 0;
    }
}

LRESULT Window::dispatch(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* const made = static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        made->handle_ = handle;
        made->use_.emplace();
        SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* const window = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    if (window == nullptr) {
        return DefWindowProcW(handle, message, wParam, lParam);
    }
    // Empty while the object's destructor ends the window.
    const std::shared_ptr<Window> alive = window->weak_from_this().lock();
    const LRESULT result =
        alive ? alive->message(message, wParam, lParam) : DefWindowProcW(handle, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
        window->handle_ = nullptr;
        window->use_.reset();
    }
    return result;
}

}  // namespace telvar::win
