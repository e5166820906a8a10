// What the control shows and allows follows the table's radio and the user's lock: the P25 columns, and a load.
#include "radio_commands.h"

namespace telvar::tests {

struct RadioFollows : RadioCommands {
    // A new table whose radio has a P25 board or none, saved under that name.
    void saveTable(const std::string& name, bool board) {
        command(COMMAND_NEW);
        com::check(program->document().store()->put_P25BoardFitted(board ? VARIANT_TRUE : VARIANT_FALSE));
        dialogs.expectFile(path(name));
        command(COMMAND_SAVE_AS);
        ASSERT_FALSE(program->document().modified());
    }
    void openTable(const std::string& name) {
        dialogs.expectFile(path(name));
        command(COMMAND_OPEN);
        ASSERT_EQ(program->document().path(), path(name));
    }
    void enterLevel(host::AccessLevel level) {
        command(COMMAND_LOG_OUT);
        dialogs.expect([level](HWND dialog) {
            SendDlgItemMessageW(dialog, LOGIN_LEVEL, CB_SETCURSEL, level == host::AccessLevel::EditChannels ? 1U : 2U,
                                0);
            SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(LOGIN_LEVEL, CBN_SELCHANGE),
                         reinterpret_cast<LPARAM>(GetDlgItem(dialog, LOGIN_LEVEL)));
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        command(COMMAND_LOG_IN);
        ASSERT_EQ(program->accessLevel(), level);
    }
    [[nodiscard]] bool shown(long column) {
        VARIANT_BOOL visible = VARIANT_FALSE;
        com::check(com::ComPointer<IChannelGrid>::from(program->channels())->get_ColumnVisible(column, &visible));
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
    enterLevel(host::AccessLevel::EditChannels);
    EXPECT_FALSE(shown(23));
    openTable("with.telvar");
    for (const long column : {23, 24, 25, 26}) {
        EXPECT_TRUE(shown(column)) << column;
    }
    EXPECT_FALSE(shown(22));
    openTable("without.telvar");
    EXPECT_FALSE(shown(23));
    command(COMMAND_NEW);
    VARIANT_BOOL board = VARIANT_FALSE;
    com::check(program->document().store()->get_P25BoardFitted(&board));
    EXPECT_EQ(shown(23), board != VARIANT_FALSE);
}

TEST_F(RadioFollows, TheP25ColumnsFollowARefreshAndALoad) {
    startWith("gmrs.telvar");
    enterLevel(host::AccessLevel::EditChannels);
    send();
    com::check(program->document().store()->put_P25BoardFitted(VARIANT_TRUE));
    command(COMMAND_REFRESH);
    EXPECT_TRUE(shown(23));
    com::check(program->document().store()->put_P25BoardFitted(VARIANT_FALSE));
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
        << com::narrow(dialogs.shown()[0]);
    EXPECT_EQ(frequency(3), 446'006'250);
    EXPECT_TRUE(program->document().modified());
    dialogs.expectQuestion(IDNO);
    close();
}

}  // namespace telvar::tests
