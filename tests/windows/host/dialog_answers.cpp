#include "dialog_answers.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <array>

#include "walk/walk.h"
#include "win/text.h"

namespace telvar::tests {

namespace {

constexpr UINT interval = 10;  // milliseconds
constexpr int nameCombo = 0x047C;
constexpr int nameBox = 0x0480;

DialogAnswers* current = nullptr;

BOOL CALLBACK addText(HWND child, LPARAM collected) noexcept {
    std::array<wchar_t, 16> name{};
    std::array<wchar_t, 1024> text{};
    GetClassNameW(child, name.data(), static_cast<int>(name.size()));
    if (std::wstring_view(name.data()) == L"Static" &&
        GetWindowTextW(child, text.data(), static_cast<int>(text.size())) > 0) {
        *reinterpret_cast<std::wstring*>(collected) += std::wstring(L": ") + text.data();
    }
    return TRUE;
}

std::wstring textOf(HWND dialog) {
    std::array<wchar_t, 256> title{};
    GetWindowTextW(dialog, title.data(), static_cast<int>(title.size()));
    std::wstring text = title.data();
    EnumChildWindows(dialog, addText, reinterpret_cast<LPARAM>(&text));
    return text;
}

}  // namespace

DialogAnswers::DialogAnswers() : timer_(SetTimer(nullptr, 0, interval, ticked)) { current = this; }

DialogAnswers::~DialogAnswers() {
    KillTimer(nullptr, timer_);
    current = nullptr;
    EXPECT_TRUE(answers_.empty()) << answers_.size() << " expected dialogs were never shown";
}

void DialogAnswers::expectBox(int button) {
    expect([button](HWND dialog) { PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0); });
}

void DialogAnswers::expectQuestion(int button) {
    expect([button](HWND dialog) { PostMessageW(dialog, TDM_CLICK_BUTTON, static_cast<WPARAM>(button), 0); });
}

void DialogAnswers::expectFile(std::wstring path) {
    expect([path = std::move(path)](HWND dialog) {
        SetDlgItemTextW(dialog, GetDlgItem(dialog, nameCombo) != nullptr ? nameCombo : nameBox, path.c_str());
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
}

void CALLBACK DialogAnswers::ticked(HWND, UINT, UINT_PTR, DWORD) noexcept {
    if (current != nullptr) {
        current->tick();
    }
}

void DialogAnswers::tick() {
    const HWND dialog = walk::Walk::dialog();
    if (dialog == nullptr || dialog == answered_) {
        answered_ = dialog;
        return;
    }
    const std::wstring text = textOf(dialog);
    if (!ignored_.empty() && (text == ignored_ || text.starts_with(ignored_ + L":"))) {
        return;
    }
    answered_ = dialog;
    if (answers_.empty()) {
        ADD_FAILURE() << "nobody expected this: " << win::narrow(text);
        PostMessageW(dialog, WM_CLOSE, 0, 0);
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        return;
    }
    shown_.push_back(text);
    const Answer answer = std::move(answers_.front());
    answers_.pop_front();
    answer(dialog);
}

}  // namespace telvar::tests
