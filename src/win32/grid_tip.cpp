#include "win32/grid_tip.h"

#include <commctrl.h>

#include "win/module.h"
#include "win/text.h"

namespace telvar::win32 {

namespace {

// Of the size that the old controls know too, which a program without a manifest gets.
TTTOOLINFOW toolOf(HWND grid) noexcept {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = grid;
    tool.uId = 1;
    return tool;
}

}  // namespace

bool GridTip::open(HWND grid, const FormFont& font, const ControlsContext& controls) {
    if (window_ != nullptr) {
        return true;
    }
    const ControlsContext::Active presentLook(controls);
    INITCOMMONCONTROLSEX needed{.dwSize = sizeof needed, .dwICC = ICC_BAR_CLASSES};
    InitCommonControlsEx(&needed);
    // Also while another window of the program is active, such as the form that stands beside the grid. A text may
    // hold an "&".
    window_ = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TRANSPARENT, TOOLTIPS_CLASSW, nullptr,
                              WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                              CW_USEDEFAULT, grid, nullptr, win::moduleHandle(), nullptr);
    if (window_ != nullptr) {
        SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), FALSE);
    }
    return window_ != nullptr;
}

void GridTip::offer(HWND grid, const RECT& cell, const std::string& text, const FormFont& font,
                    const ControlsContext& controls) {
    withdraw();
    if (!open(grid, font, controls)) {
        return;
    }
    std::wstring wide = win::wide(text);
    TTTOOLINFOW tool = toolOf(grid);
    tool.rect = cell;
    tool.lpszText = wide.data();
    if (SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)) != FALSE) {
        grid_ = grid;
    }
}

void GridTip::withdraw() noexcept {
    if (grid_ != nullptr) {
        TTTOOLINFOW tool = toolOf(grid_);
        grid_ = nullptr;
        SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

void GridTip::relay(HWND grid, UINT message, WPARAM wParam, LPARAM lParam) const noexcept {
    if (grid_ != nullptr) {
        MSG happened{};
        happened.hwnd = grid;
        happened.message = message;
        happened.wParam = wParam;
        happened.lParam = lParam;
        SendMessageW(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&happened));
    }
}

// The system destroys it as well, with the window that owns it.
void GridTip::close() noexcept {
    grid_ = nullptr;
    if (window_ != nullptr && IsWindow(window_) != FALSE) {
        DestroyWindow(window_);
    }
    window_ = nullptr;
}

}  // namespace telvar::win32
