// Where the keyboard is in the control inside the program: after Select, F6, Go to Channel and the edit form it is in
// the grid, wherever it was before.
#include <array>
#include <vector>

#include "open_program.h"
#include "support/windows/edit_form_driver.h"

namespace telvar::tests {

struct ControlFocus : Program {
    // A child of the program's window by its class and text; null for none.
    [[nodiscard]] HWND child(const std::wstring& className, const std::wstring& text = {}) {
        struct Search {
            const std::wstring& className;
            const std::wstring& text;
            HWND found = nullptr;
        } search{className, text};
        EnumChildWindows(
            program->window(),
            [](HWND window, LPARAM wanted) -> BOOL {
                auto& it = *reinterpret_cast<Search*>(wanted);
                std::array<wchar_t, 64> name{};
                std::array<wchar_t, 64> caption{};
                GetClassNameW(window, name.data(), 64);
                GetWindowTextW(window, caption.data(), 64);
                const bool same = it.className == name.data() && (it.text.empty() || it.text == caption.data());
                it.found = same ? window : nullptr;
                return same ? FALSE : TRUE;
            },
            reinterpret_cast<LPARAM>(&search));
        EXPECT_NE(search.found, nullptr) << testing::PrintToString(text);
        return search.found;
    }
    [[nodiscard]] HWND box() { return child(L"Edit"); }
    [[nodiscard]] HWND selectButton() { return child(L"Button", L"Select"); }
    [[nodiscard]] HWND lock(const wchar_t* caption) { return child(L"Button", caption); }
    [[nodiscard]] HWND grid() { return EditFormDriver::gridIn(program->window()); }
    // Every window of the control that can have the keyboard, but for the grid.
    [[nodiscard]] std::vector<HWND> fields() { return {box(), selectButton(), lock(L"Lock Off"), lock(L"Lock Data")}; }
    void focus(HWND window) {
        SetForegroundWindow(program->window());
        SetFocus(window);
        pump();
        ASSERT_EQ(GetFocus(), window);
    }
    void type(const std::wstring& text) {
        SetWindowTextW(box(), text.c_str());
        pump();
    }
    void expectGridFocused(const char* after) {
        EXPECT_TRUE(pumpUntil([this] { return GetFocus() == grid(); }, 2'000)) << after;
    }
    // An arrow key moves the current cell and leaves the lock mode.
    void expectArrowsMoveTheGrid() {
        const long before = row();
        press({VK_DOWN});
        EXPECT_TRUE(pumpUntil([&] { return row() == before + 1; }, 2'000)) << row();
        EXPECT_EQ(SendMessageW(lock(L"Lock Off"), BM_GETCHECK, 0, 0), BST_CHECKED);
    }
    [[nodiscard]] bool exchanged() {
        return pumpUntil([this] { return IsWindowEnabled(selectButton()) != FALSE; }, 30'000);
    }
    // The radio has followed, and its channel's row is selected.
    void expectSelected(long channel) {
        ASSERT_TRUE(exchanged());
        EXPECT_TRUE(pumpUntil([&] { return row() == channel && column() == 1 && endColumn() == 26; })) << row();
        short selected = 0;
        com::check(components.store->get_SelectedChannel(&selected));
        EXPECT_EQ(selected, channel);
    }
};

TEST_F(ControlFocus, IsInTheGridAfterSelectByTheKeyboard) {
    start(sample("maritime.telvar", "table.telvar"));
    for (const WORD key : {WORD{VK_SPACE}, WORD{VK_RETURN}}) {
        type(L"12");
        focus(selectButton());
        press({key});
        expectGridFocused("Select");
        expectSelected(12);
        expectArrowsMoveTheGrid();
    }
}

TEST_F(ControlFocus, IsInTheGridAfterAClickOnSelect) {
    start(sample("maritime.telvar", "table.telvar"));
    type(L"12");
    focus(box());
    PostMessageW(selectButton(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
    PostMessageW(selectButton(), WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
    pump();
    expectGridFocused("Select");
    expectSelected(12);
    expectArrowsMoveTheGrid();
}

TEST_F(ControlFocus, IsInTheGridWhenTheHostDisablesSelectUnderTheKeyboard) {
    start();
    focus(selectButton());
    com::Bstr commands(std::wstring_view(L"RS232"));
    com::check(com::ComPointer<_ChannelInformation>::from(components.control)->DisableMyCommands(commands.address()));
    EXPECT_EQ(GetFocus(), grid());
    expectArrowsMoveTheGrid();
}

TEST_F(ControlFocus, TabIntoTheBoxSelectsItsTextAndEnterPressesSelect) {
    start(sample("maritime.telvar", "table.telvar"));
    type(L"99");
    focus(grid());
    press({VK_TAB});
    ASSERT_EQ(GetFocus(), box());
    press({'1'});
    press({'6'});
    std::array<wchar_t, 16> text{};
    GetWindowTextW(box(), text.data(), 16);
    EXPECT_STREQ(text.data(), L"16");
    press({VK_RETURN});
    expectGridFocused("Enter");
    expectSelected(16);
}

TEST_F(ControlFocus, AnInvalidNumberComesBackToTheBoxWithItsTextSelected) {
    start();
    type(L"256");
    focus(box());
    dialogs.expectBox(IDOK);
    press({VK_RETURN});
    ASSERT_TRUE(pumpUntil([this] { return dialogs.shown().size() == 1; }));
    EXPECT_TRUE(pumpUntil([this] { return GetFocus() == box(); }));
    DWORD from = 9;
    DWORD to = 0;
    SendMessageW(box(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 0U);
    EXPECT_EQ(to, 3U);
}

TEST_F(ControlFocus, F6BringsItToTheGridFromEveryField) {
    start();
    for (const HWND field : fields()) {
        focus(field);
        press({VK_F6});
        expectGridFocused("F6");
    }
}

TEST_F(ControlFocus, GoToChannelBringsItToTheGridFromEveryField) {
    start();
    for (const HWND field : fields()) {
        focus(field);
        dialogs.expect([](HWND dialog) {
            SetDlgItemTextW(dialog, CHANNEL_NUMBER, L"42");
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        press({VK_CONTROL, 'G'});
        expectGridFocused("Go to Channel");
        EXPECT_EQ(row(), 42);
    }
}

TEST_F(ControlFocus, TheEndOfTheEditFormBringsItToTheGridFromEveryField) {
    dialogs.ignore(L"Channel Edit");
    start(sample("maritime.telvar", "table.telvar"));
    const auto ends = std::array<std::function<void()>, 3>{
        [] { EditFormDriver::press("OK"); }, [] { EditFormDriver::press("Cancel"); },
        [] { SendMessageW(EditFormDriver::form(), WM_CLOSE, 0, 0); }};
    for (const HWND field : fields()) {
        for (const auto& end : ends) {
            focus(field);
            command(desk::Command::EditChannel);
            ASSERT_NE(EditFormDriver::form(), nullptr);
            end();
            pump();
            ASSERT_EQ(EditFormDriver::form(), nullptr);
            expectGridFocused("the edit form");
        }
    }
}

}  // namespace telvar::tests
