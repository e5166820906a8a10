// Exchanges with a radio from the menu, as a user begins and watches them.
#pragma once

#include <functional>
#include <string>

#include "open_program.h"

namespace telvar::tests {

// Parts of the status bar.
inline constexpr int messagePart = 0;
inline constexpr int radioPart = 1;

struct RadioCommands : Program {
    // A table of one band plan, whose sending the store does not want confirmed.
    void startWith(const std::string& name) {
        start(sample(name, "a.telvar"));
        com::check(components.store->put_ShowSendWarning(VARIANT_FALSE));
    }
    [[nodiscard]] bool idle() { return offered(radioMenu, desk::Command::RadioSend); }
    void finish(desk::Command identifier) {
        constexpr ULONGLONG longestExchange = 30'000;  // milliseconds
        command(identifier);
        EXPECT_TRUE(pumpUntil([this] { return idle(); }, longestExchange));
        pump();
    }
    void send() { finish(desk::Command::RadioSend); }
    void load() { finish(desk::Command::RadioLoad); }
    void cancelDuringExchange(desk::Command identifier) {
        command(identifier);
        ASSERT_TRUE(offered(radioMenu, desk::Command::RadioCancel));
        finish(desk::Command::RadioCancel);
    }
    void setFaults(const wchar_t* plan) {
        dialogs.expect([plan](HWND dialog) {
            SetDlgItemTextW(dialog, FAULTS_PLAN, plan);
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        command(desk::Command::RadioFaults);
    }
    // As the line at the window's foot shows it; -1 while it shows none.
    [[nodiscard]] int shownPercent() {
        const std::wstring text = statusText(messagePart);
        const std::size_t at = text.find(L"the radio: ");
        return progressShows() && at != std::wstring::npos ? std::stoi(text.substr(at + 11)) : -1;
    }
    [[nodiscard]] bool commsBusy() {
        VARIANT_BOOL busy = VARIANT_FALSE;
        com::check(components.store->get_CommsBusy(&busy));
        return busy != VARIANT_FALSE;
    }
    // A button or box of the control by its caption.
    [[nodiscard]] HWND buttonNamed(const std::wstring& caption) {
        struct Search {
            const std::wstring& caption;
            HWND found = nullptr;
        } search{caption};
        EnumChildWindows(
            program->window(),
            [](HWND child, LPARAM wanted) -> BOOL {
                auto& it = *reinterpret_cast<Search*>(wanted);
                std::wstring text(32, L'\0');
                text.resize(static_cast<std::size_t>(GetWindowTextW(child, text.data(), 32)));
                std::erase(text, L'&');
                it.found = text == it.caption ? child : it.found;
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&search));
        EXPECT_NE(search.found, nullptr) << win::narrow(caption);
        return search.found;
    }
    [[nodiscard]] HWND lockDataBox() { return buttonNamed(L"Lock Data"); }
    // The control's own button for the radio, which it disables during an exchange.
    [[nodiscard]] bool selectButtonEnabled() { return IsWindowEnabled(buttonNamed(L"Select")) != FALSE; }
    [[nodiscard]] bool hourglassShows() {
        return SendMessageW(program->window(), WM_SETCURSOR, 0, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)) == TRUE;
    }
    void expectEverythingBack() {
        EXPECT_TRUE(idle());
        EXPECT_TRUE(offered(radioMenu, desk::Command::RadioLoad));
        EXPECT_FALSE(offered(radioMenu, desk::Command::RadioCancel));
        EXPECT_TRUE(offered(editMenu, desk::Command::Copy));
        EXPECT_FALSE(hourglassShows());
        EXPECT_TRUE(selectButtonEnabled());
        EXPECT_FALSE(progressShows());
    }
    [[nodiscard]] bool progressShows() {
        return IsWindowVisible(GetDlgItem(GetDlgItem(program->window(), CHILD_STATUS_BAR), CHILD_PROGRESS)) != FALSE;
    }
    [[nodiscard]] std::wstring lastDialog() {
        return dialogs.shown().empty() ? std::wstring() : dialogs.shown().back();
    }
    [[nodiscard]] bool ends(const std::wstring& text, const std::wstring& end) {
        EXPECT_TRUE(text.ends_with(end)) << win::narrow(text);
        return text.ends_with(end);
    }
};

}  // namespace telvar::tests
