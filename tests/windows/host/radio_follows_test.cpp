// What the control shows and allows follows the table's radio and the user's lock: the P25 columns, and a load.
#include "radio_commands.h"

namespace telvar::tests {

struct RadioFollows : RadioCommands {
    // A new table whose radio has a P25 board or none, saved under that name.
    void saveTable(const std::string& name, bool board) {
        command(desk::Command::New);
        com::check(components.store->put_P25BoardFitted(board ? VARIANT_TRUE : VARIANT_FALSE));
        dialogs.expectFile(path(name));
        command(desk::Command::SaveAs);
        ASSERT_FALSE(modified());
    }
    void openTable(const std::string& name) {
        dialogs.expectFile(path(name));
        command(desk::Command::Open);
        ASSERT_EQ(openPath(), path(name));
    }
    void enterLevel(desk::AccessLevel level) {
        command(desk::Command::LogOut);
        dialogs.expect([level](HWND dialog) {
            SendDlgItemMessageW(dialog, LOGIN_LEVEL, CB_SETCURSEL, level == desk::AccessLevel::EditChannels ? 1U : 2U,
                                0);
            SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(LOGIN_LEVEL, CBN_SELCHANGE),
                         reinterpret_cast<LPARAM>(GetDlgItem(dialog, LOGIN_LEVEL)));
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        command(desk::Command::LogIn);
        ASSERT_EQ(accessLevel(), level);
    }
    [[nodiscard]] bool shown(long column) {
        VARIANT_BOOL visible = VARIANT_FALSE;
        com::check(com::ComPointer<IChannelGrid>::from(components.control)->get_ColumnVisible(column, &visible));
        return visible != VARIANT_FALSE;
    }
    void lockData() {
        SendMessageW(lockDataBox(), BM_CLICK, 0, 0);
        pump();
    }
};

TEST_F(RadioFollows, TheP25ColumnsFollowTheBoardOfTheOpenedTable) {
    start();
    saveTable("with.telvar", true);
    saveTable("without.telvar", false);
    enterLevel(desk::AccessLevel::EditChannels);
    EXPECT_FALSE(shown(23));
    openTable("with.telvar");
    for (const long column : {23, 24, 25, 26}) {
        EXPECT_TRUE(shown(column)) << column;
    }
    EXPECT_FALSE(shown(22));
    openTable("without.telvar");
    EXPECT_FALSE(shown(23));
    command(desk::Command::New);
    VARIANT_BOOL board = VARIANT_FALSE;
    com::check(components.store->get_P25BoardFitted(&board));
    EXPECT_EQ(shown(23), board != VARIANT_FALSE);
}

TEST_F(RadioFollows, TheP25ColumnsFollowARefreshAndALoad) {
    startWith("gmrs.telvar");
    enterLevel(desk::AccessLevel::EditChannels);
    send();
    com::check(components.store->put_P25BoardFitted(VARIANT_TRUE));
    command(desk::Command::Refresh);
    EXPECT_TRUE(shown(23));
    com::check(components.store->put_P25BoardFitted(VARIANT_FALSE));
    dialogs.expectQuestion(IDNO);
    load();
    EXPECT_FALSE(shown(23));
    dialogs.expectQuestion(IDNO);
    close();
}

TEST_F(RadioFollows, ALoadIntoALockedTableIsRefusedBeforeAnythingIsAsked) {
    startWith("gmrs.telvar");
    change(3);
    lockData();
    dialogs.expectBox(IDOK);
    load();
    ASSERT_EQ(dialogs.shown().size(), 1U);
    EXPECT_NE(dialogs.shown()[0].find(L"Data is locked. Clear 'Lock Data' to make changes."), std::wstring::npos)
        << win::narrow(dialogs.shown()[0]);
    EXPECT_EQ(frequency(3), 446'006'250);
    EXPECT_TRUE(modified());
    dialogs.expectQuestion(IDNO);
    close();
}

}  // namespace telvar::tests
