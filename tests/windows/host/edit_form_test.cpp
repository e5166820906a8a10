// The control's edit form over the program's window: opened by a double-click, followed by the program's own commands,
// and never the reason that an edit is lost when the table or the program goes.
#include <algorithm>
#include <initializer_list>

#include "open_program.h"
#include "support/windows/edit_form_driver.h"

namespace telvar::tests {

struct EditFormOverTheProgram : Program, EditFormDriver {
    void open() {
        dialogs.ignore(L"Channel Edit");
        start(sample("maritime.telvar", "table.telvar"));
        doubleClickIn(gridIn(program->window()));
        pump();
        ASSERT_NE(form(), nullptr);
        channel = row();
    }
    void edit() {
        type(frequencyField(), "160.5");
        pump();
    }
    [[nodiscard]] std::wstring question() const {
        return L"Channel " + std::to_wstring(channel) + L" has changes that have not been applied. Apply them now?";
    }
    [[nodiscard]] std::ptrdiff_t asked(const std::wstring& text) {
        return std::ranges::count_if(dialogs.shown(), [&](const auto& box) { return box.contains(text); });
    }
    // Yes or No to the control, then the answer about the file.
    void answer(std::initializer_list<int> buttons) {
        for (const int button : buttons) {
            dialogs.expectBox(button);
        }
    }

    long channel = 0;
};

TEST_F(EditFormOverTheProgram, BelongsToItAndLeavesItUsable) {
    open();
    EXPECT_EQ(GetWindow(form(), GW_OWNER), program->window());
    EXPECT_TRUE(IsWindowEnabled(program->window()));
    EXPECT_EQ(textOf(channelField()), std::to_string(channel));
}

TEST_F(EditFormOverTheProgram, OpensByTheKeyboard) {
    dialogs.ignore(L"Channel Edit");
    start(sample("maritime.telvar", "table.telvar"));
    select(5, 2, 5, 2);
    Program::press({VK_F2});
    ASSERT_NE(form(), nullptr);
    EXPECT_EQ(textOf(channelField()), "5");
    EXPECT_EQ(GetForegroundWindow(), form());
}

TEST_F(EditFormOverTheProgram, FollowsGoToChannel) {
    open();
    dialogs.expect([](HWND dialog) {
        SetDlgItemTextW(dialog, CHANNEL_NUMBER, L"16");
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    command(desk::Command::GoTo);
    EXPECT_EQ(row(), 16);
    EXPECT_EQ(textOf(channelField()), "16");
}

TEST_F(EditFormOverTheProgram, GetsTheUserBackAfterItsLogin) {
    open();
    command(desk::Command::LogOut);
    dialogs.expect([](HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDOK, 0); });
    SetActiveWindow(form());
    EditFormDriver::press("Access");
    EXPECT_TRUE(pumpUntil([this] { return accessLevel() == desk::AccessLevel::EditChannels; }));
    EXPECT_EQ(GetActiveWindow(), form());
}

TEST_F(EditFormOverTheProgram, AppliedEditsMakeTheTableAnUnsavedOne) {
    open();
    edit();
    EditFormDriver::press("Apply");
    pump();
    EXPECT_EQ(frequency(static_cast<int>(channel)), 160'500'000);
    EXPECT_TRUE(modified());
    program->refreshState();
    dialogs.expectQuestion(IDNO);
    close();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(form(), nullptr);
}

TEST_F(EditFormOverTheProgram, ClosingTheProgramAsksAboutEditsFirst) {
    open();
    edit();
    answer({IDYES});
    dialogs.expectQuestion(IDCANCEL);
    close();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(asked(question()), 1);
    EXPECT_EQ(frequency(static_cast<int>(channel)), 160'500'000);
    dialogs.expectQuestion(IDNO);
    close();
    EXPECT_FALSE(isOpen());
}

TEST_F(EditFormOverTheProgram, StayingKeepsTheProgramOpen) {
    open();
    edit();
    answer({IDNO, IDNO});
    close();
    EXPECT_TRUE(isOpen());
    EXPECT_NE(form(), nullptr);
    EXPECT_EQ(textOf(frequencyField()), "160.5");
    answer({IDNO, IDYES});
    close();
    EXPECT_FALSE(isOpen());
}

TEST_F(EditFormOverTheProgram, AnotherTableIsNotOpenedOverEditsUnasked) {
    open();
    edit();
    answer({IDNO, IDNO});
    command(desk::Command::New);
    EXPECT_EQ(asked(question()), 1);
    EXPECT_EQ(textOf(frequencyField()), "160.5");
    answer({IDNO, IDYES});
    command(desk::Command::New);
    EXPECT_EQ(textOf(channelField()), "1");
    EXPECT_EQ(textOf(frequencyField()), "0.000000");
    EXPECT_EQ(frequency(static_cast<int>(channel)), 0);
}

}  // namespace telvar::tests
