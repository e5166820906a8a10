#include "win32/key_hook.h"

#include "win32/form_window.h"

namespace telvar::win32 {

namespace {

// A menu and a window that is being moved take keys from the queue for themselves.
bool systemTakesKeys() noexcept {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    constexpr DWORD busy = GUI_INMENUMODE | GUI_INMOVESIZE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
    return GetGUIThreadInfo(GetCurrentThreadId(), &info) != FALSE && (info.flags & busy) != 0;
}

void catchKey(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST || systemTakesKeys()) {
        return;
    }
    if (auto* const form = dynamic_cast<FormWindow*>(win::Window::of(GetAncestor(message.hwnd, GA_ROOT)))) {
        form->takeKey(message);
    }
}

LRESULT CALLBACK messageTaken(int code, WPARAM removed, LPARAM lParam) noexcept {
    if (code == HC_ACTION && (removed & PM_REMOVE) != 0) {
        try {
            catchKey(*reinterpret_cast<MSG*>(lParam));
        } catch (const std::exception&) {
            // Out of memory: this key takes its usual way.
            return CallNextHookEx(nullptr, code, removed, lParam);
        }
    }
    return CallNextHookEx(nullptr, code, removed, lParam);
}

}  // namespace

KeyHook::KeyHook() noexcept : hook_(SetWindowsHookExW(WH_GETMESSAGE, messageTaken, nullptr, GetCurrentThreadId())) {}

}  // namespace telvar::win32
