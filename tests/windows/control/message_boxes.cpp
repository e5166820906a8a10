#include "message_boxes.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "win/text.h"

namespace telvar::tests {

namespace {

MessageBoxes* active = nullptr;

[[nodiscard]] std::string textOf(HWND window) {
    std::array<wchar_t, 1024> text{};
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return win::narrow({text.data(), static_cast<std::size_t>(length)});
}

[[nodiscard]] bool isDialog(HWND window) {
    std::array<wchar_t, 16> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return std::wstring_view(name.data()) == L"#32770";
}

// The one static text that is not empty; the icon's is.
[[nodiscard]] std::string sentenceOf(HWND box) {
    HWND part = nullptr;
    while ((part = FindWindowExW(box, part, L"Static", nullptr)) != nullptr) {
        if (std::string text = textOf(part); !text.empty()) {
            return text;
        }
    }
    return "";
}

// The box has a place for an icon whether or not there is one in it.
[[nodiscard]] std::string iconOf(HWND box) {
    const auto systemIcon = [](LPCWSTR name) { return LoadIconW(nullptr, name); };
    HWND part = nullptr;
    while ((part = FindWindowExW(box, part, L"Static", nullptr)) != nullptr) {
        const LONG_PTR style = GetWindowLongPtrW(part, GWL_STYLE);
        if ((style & SS_TYPEMASK) == SS_ICON && (style & WS_VISIBLE) != 0) {
            // NOLINTNEXTLINE: a handle travels as a number
            const auto icon = reinterpret_cast<HICON>(SendMessageW(part, STM_GETICON, 0, 0));
            return icon == nullptr                       ? "none"
                   : icon == systemIcon(IDI_EXCLAMATION) ? "exclamation"
                   : icon == systemIcon(IDI_INFORMATION) ? "information"
                                                         : "other";
        }
    }
    return "none";
}

[[nodiscard]] std::vector<int> buttonsOf(HWND box) {
    std::vector<std::pair<LONG, int>> found;
    HWND part = nullptr;
    while ((part = FindWindowExW(box, part, L"Button", nullptr)) != nullptr) {
        if ((GetWindowLongPtrW(part, GWL_STYLE) & WS_VISIBLE) != 0) {
            RECT place{};
            GetWindowRect(part, &place);
            found.emplace_back(place.left, GetDlgCtrlID(part));
        }
    }
    std::ranges::sort(found);
    std::vector<int> buttons;
    for (const auto& [left, button] : found) {
        buttons.push_back(button);
    }
    return buttons;
}

}  // namespace

MessageBoxes::MessageBoxes() : hook_(SetWindowsHookExW(WH_CBT, &hook, nullptr, GetCurrentThreadId())) { active = this; }

MessageBoxes::~MessageBoxes() {
    UnhookWindowsHookEx(hook_);
    active = nullptr;
}

std::vector<std::string> MessageBoxes::texts() const {
    std::vector<std::string> texts;
    for (const auto& box : shown_) {
        texts.push_back(box.text);
    }
    return texts;
}

LRESULT CALLBACK MessageBoxes::hook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE && active != nullptr) {
        // NOLINTNEXTLINE: a handle travels as a number
        const auto window = reinterpret_cast<HWND>(wParam);
        if (isDialog(window) && active->waiting_ == nullptr) {
            // Its texts come after its activation; the timer ticks in its own message loop.
            active->waiting_ = window;
            SetTimer(nullptr, 0, 0, &tick);
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void CALLBACK MessageBoxes::tick(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
    KillTimer(nullptr, timer);
    if (active != nullptr) {
        active->answer(std::exchange(active->waiting_, nullptr));
    }
}

void MessageBoxes::answer(HWND box) {
    shown_.push_back({.text = sentenceOf(box),
                      .title = textOf(box),
                      .owner = GetWindow(box, GW_OWNER),
                      .icon = iconOf(box),
                      .buttons = buttonsOf(box)});
    PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button_), 0);
}

}  // namespace telvar::tests
