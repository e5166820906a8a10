// An open edit form of this thread as a user and a screen meet it: its windows, fields and buttons, and the messages of
// mouse and keys.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "win/text.h"

namespace telvar::tests {

class EditFormDriver {
public:
    // Null while there is none.
    [[nodiscard]] static HWND form() { return topLevel(L"Telvar.Form."); }
    // The grid in that window.
    [[nodiscard]] static HWND gridIn(HWND window) {
        return search(L"Telvar.Grid.",
                      [window](WNDENUMPROC found, LPARAM wanted) { EnumChildWindows(window, found, wanted); });
    }
    // The children of the form of one window class, in reading order.
    [[nodiscard]] static std::vector<HWND> children(const wchar_t* className) {
        struct Search {
            std::wstring_view name;
            std::vector<HWND> found;
        } search{className, {}};
        EnumChildWindows(
            form(),
            [](HWND window, LPARAM wanted) -> BOOL {
                auto& it = *reinterpret_cast<Search*>(wanted);
                if (nameOf(window) == it.name) {
                    it.found.push_back(window);
                }
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&search));
        return search.found;
    }
    [[nodiscard]] static HWND field(std::size_t number) {
        const auto all = children(L"Edit");
        return number < all.size() ? all[number] : nullptr;
    }
    [[nodiscard]] static HWND channelField() { return field(0); }
    [[nodiscard]] static HWND frequencyField() { return field(1); }
    // By its caption without the access key's mark.
    [[nodiscard]] static HWND button(const std::string& caption) {
        for (const HWND window : children(L"Button")) {
            std::string text = textOf(window);
            std::erase(text, '&');
            if (text == caption) {
                return window;
            }
        }
        return nullptr;
    }
    [[nodiscard]] static std::string textOf(HWND window) {
        std::array<wchar_t, 256> text{};
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
        return win::narrow(text.data());
    }

    // ---- the user
    // In the middle of the grid's visible rows.
    static void doubleClickIn(HWND grid) {
        const LPARAM at = MAKELPARAM(120, 110);
        PostMessageW(grid, WM_LBUTTONDOWN, MK_LBUTTON, at);
        PostMessageW(grid, WM_LBUTTONUP, 0, at);
        PostMessageW(grid, WM_LBUTTONDBLCLK, MK_LBUTTON, at);
        PostMessageW(grid, WM_LBUTTONUP, 0, at);
        turn();
    }
    static void key(HWND window, WPARAM code) {
        PostMessageW(window, WM_KEYDOWN, code, 0);
        PostMessageW(window, WM_KEYUP, code, 0);
        turn();
    }
    static void press(const std::string& caption) {
        const HWND pressed = button(caption);
        ASSERT_NE(pressed, nullptr) << caption;
        const LPARAM at = MAKELPARAM(4, 4);
        PostMessageW(pressed, WM_LBUTTONDOWN, MK_LBUTTON, at);
        PostMessageW(pressed, WM_LBUTTONUP, 0, at);
        turn();
    }
    static void type(HWND window, const std::string& text) {
        SetFocus(window);
        turn();
        SetWindowTextW(window, win::wide(text).c_str());
        turn();
    }

private:
    [[nodiscard]] static HWND topLevel(std::wstring_view prefix) {
        return search(prefix,
                      [](WNDENUMPROC found, LPARAM wanted) { EnumThreadWindows(GetCurrentThreadId(), found, wanted); });
    }
    // As a message loop that knows nothing of the form.
    static void turn() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    [[nodiscard]] static std::wstring nameOf(HWND window) {
        std::array<wchar_t, 64> name{};
        GetClassNameW(window, name.data(), static_cast<int>(name.size()));
        return name.data();
    }
    template <class Enumerate>
    [[nodiscard]] static HWND search(std::wstring_view prefix, Enumerate enumerate) {
        struct Search {
            std::wstring_view prefix;
            HWND found;
        } search{prefix, nullptr};
        enumerate(
            [](HWND window, LPARAM wanted) -> BOOL {
                auto& it = *reinterpret_cast<Search*>(wanted);
                if (nameOf(window).starts_with(it.prefix) && IsWindowVisible(window) != FALSE) {
                    it.found = window;
                    return FALSE;
                }
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&search));
        return search.found;
    }
};

}  // namespace telvar::tests
