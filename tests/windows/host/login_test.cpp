// Logging in and out: by the menu and when the control asks for it, and the passwords.
#include "open_program.h"

namespace telvar::tests {

using host::AccessLevel;
using host::ControlListener;

namespace {

constexpr int levelPart = 2;

std::wstring textOf(HWND dialog, int control) {
    std::wstring text(200, L'\0');
    text.resize(static_cast<std::size_t>(GetDlgItemTextW(dialog, control, text.data(), 200)));
    return text;
}

void choose(HWND dialog, int list, int index) {
    SendDlgItemMessageW(dialog, list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(list, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, list)));
}

void ok(HWND dialog) { SendMessageW(dialog, WM_COMMAND, IDOK, 0); }

}  // namespace

struct Login : Program {
    void expectLogin(int index, const std::wstring& password) {
        dialogs.expect([=](HWND dialog) {
            choose(dialog, LOGIN_LEVEL, index);
            SetDlgItemTextW(dialog, LOGIN_PASSWORD, password.c_str());
            ok(dialog);
        });
    }
    // Log in at the place of the list: 0 View, 1 Edit channels, 2 Everything.
    void logIn(int index, const std::wstring& password) {
        expectLogin(index, password);
        command(COMMAND_LOG_IN);
    }
    static void protect(AccessLevel level, const wchar_t* password) {
        win::Settings own(TestSettings::key);
        host::Access(own).setPassword(level, password);
    }
    [[nodiscard]] bool columnShows(long index) {
        VARIANT_BOOL shows = VARIANT_FALSE;
        com::check(com::ComPointer<IChannelGrid>::from(program->channels())->get_ColumnVisible(index, &shows));
        return shows != VARIANT_FALSE;
    }
};

TEST_F(Login, TheFirstStartShowsEverything) {
    start();
    EXPECT_EQ(program->accessLevel(), AccessLevel::Everything);
    EXPECT_EQ(statusText(levelPart), L"Everything");
    EXPECT_TRUE(columnShows(22));
}

TEST_F(Login, LoggingOutLeavesTheFirstColumns) {
    start();
    command(COMMAND_LOG_OUT);
    EXPECT_EQ(statusText(levelPart), L"View");
    EXPECT_TRUE(columnShows(8));
    EXPECT_FALSE(columnShows(9));
}

TEST_F(Login, ALevelWithoutAPasswordIsEnteredWithEnterAlone) {
    start();
    command(COMMAND_LOG_OUT);
    dialogs.expect([](HWND dialog) {
        EXPECT_EQ(textOf(dialog, LOGIN_LEVEL), L"Edit channels");
        EXPECT_EQ(textOf(dialog, DIALOG_NOTE), L"This level needs no password.");
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, LOGIN_PASSWORD)));
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, LOGIN_LEVEL));
        walk::press({VK_RETURN});
    });
    press({VK_CONTROL, 'L'});
    EXPECT_TRUE(pumpUntil([this] { return program->accessLevel() == AccessLevel::EditChannels; }));
    EXPECT_EQ(statusText(levelPart), L"Edit channels");
}

TEST_F(Login, AWrongPasswordIsToldAndMayBeTriedAgain) {
    protect(AccessLevel::Everything, L"chief");
    protect(AccessLevel::EditChannels, L"operator");
    start();
    EXPECT_EQ(program->accessLevel(), AccessLevel::View);
    dialogs.expect([this](HWND dialog) {
        choose(dialog, LOGIN_LEVEL, 2);
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, LOGIN_PASSWORD)));
        SetDlgItemTextW(dialog, LOGIN_PASSWORD, L"operator");
        ok(dialog);
        EXPECT_EQ(textOf(dialog, DIALOG_NOTE), L"The password is wrong.");
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, LOGIN_PASSWORD));
        EXPECT_EQ(program->accessLevel(), AccessLevel::View);
        SetDlgItemTextW(dialog, LOGIN_PASSWORD, L"chief");
        ok(dialog);
    });
    command(COMMAND_LOG_IN);
    EXPECT_EQ(program->accessLevel(), AccessLevel::Everything);
    EXPECT_TRUE(columnShows(22));
}

TEST_F(Login, CancelLeavesTheLevel) {
    protect(AccessLevel::Everything, L"chief");
    start();
    dialogs.expect([](HWND dialog) {
        choose(dialog, LOGIN_LEVEL, 0);
        SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    command(COMMAND_LOG_IN);
    EXPECT_EQ(program->accessLevel(), AccessLevel::EditChannels);
    dialogs.expect([](HWND dialog) { SendMessageW(dialog, WM_CLOSE, 0, 0); });
    command(COMMAND_LOG_IN);
    EXPECT_EQ(statusText(levelPart), L"Edit channels");
}

TEST_F(Login, TheMenuOffersWhatTheLevelAllows) {
    start();
    EXPECT_TRUE(offered(accessMenu, COMMAND_LOG_OUT));
    EXPECT_TRUE(offered(accessMenu, COMMAND_SET_PASSWORDS));
    command(COMMAND_LOG_OUT);
    EXPECT_TRUE(offered(accessMenu, COMMAND_LOG_IN));
    EXPECT_FALSE(offered(accessMenu, COMMAND_LOG_OUT));
    EXPECT_FALSE(offered(accessMenu, COMMAND_SET_PASSWORDS));
    // Nobody gets there otherwise.
    command(COMMAND_SET_PASSWORDS);
    EXPECT_EQ(dialogs.shown(), Texts{});
}

TEST_F(Login, APasswordIsSetAndHoldsInTheNextRun) {
    start();
    dialogs.expect([](HWND dialog) {
        EXPECT_EQ(textOf(dialog, DIALOG_NOTE), L"This level has no password yet.");
        SetDlgItemTextW(dialog, PASSWORD_NEW, L"chief");
        SetDlgItemTextW(dialog, PASSWORD_AGAIN, L"cheif");
        ok(dialog);
        EXPECT_EQ(textOf(dialog, DIALOG_NOTE), L"The two passwords differ.");
        SetDlgItemTextW(dialog, PASSWORD_AGAIN, L"chief");
        ok(dialog);
    });
    command(COMMAND_SET_PASSWORDS);
    EXPECT_EQ(statusText(0), L"The level Everything has a new password.");
    close();
    program.reset();
    start();
    EXPECT_EQ(program->accessLevel(), AccessLevel::EditChannels);
    logIn(2, L"chief");
    EXPECT_EQ(program->accessLevel(), AccessLevel::Everything);
}

TEST_F(Login, APasswordIsChangedAndTakenAway) {
    protect(AccessLevel::Everything, L"chief");
    start();
    logIn(2, L"chief");
    dialogs.expect([](HWND dialog) {
        EXPECT_EQ(textOf(dialog, DIALOG_NOTE), L"Leave both fields empty to remove the password.");
        ok(dialog);
    });
    command(COMMAND_SET_PASSWORDS);
    EXPECT_EQ(statusText(0), L"The level Everything needs no password.");
    win::Settings own(TestSettings::key);
    EXPECT_FALSE(own.has(L"Password5"));
}

TEST_F(Login, AHigherLevelIsNeverOpenAboveAProtectedOne) {
    start();
    dialogs.expect([](HWND dialog) {
        choose(dialog, PASSWORD_LEVEL, 0);
        SetDlgItemTextW(dialog, PASSWORD_NEW, L"operator");
        SetDlgItemTextW(dialog, PASSWORD_AGAIN, L"operator");
        ok(dialog);
        EXPECT_EQ(textOf(dialog, DIALOG_NOTE),
                  L"Set a password for the level Everything first; everybody can enter it now.");
        SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    command(COMMAND_SET_PASSWORDS);
    protect(AccessLevel::Everything, L"chief");
    protect(AccessLevel::EditChannels, L"operator");
    dialogs.expect([](HWND dialog) {
        ok(dialog);
        EXPECT_EQ(textOf(dialog, DIALOG_NOTE), L"Remove the password of the level Edit channels first.");
        SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    command(COMMAND_SET_PASSWORDS);
    win::Settings own(TestSettings::key);
    EXPECT_TRUE(own.has(L"Password5"));
}

TEST_F(Login, TheEditFormsWishIsAnsweredAfterItsEvent) {
    start();
    command(COMMAND_LOG_OUT);
    static_cast<ControlListener&>(*program).OpenLoginWithChannelEdit();
    EXPECT_EQ(dialogs.shown(), Texts{});
    expectLogin(2, L"");
    EXPECT_TRUE(pumpUntil([this] { return program->accessLevel() == AccessLevel::Everything; }));
}

TEST_F(Login, AWishThatCannotBeAnsweredNowWaits) {
    start();
    command(COMMAND_LOG_OUT);
    dialogs.expect([this](HWND dialog) {
        static_cast<ControlListener&>(*program).OpenLoginWithChannelEdit();
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
        EXPECT_EQ(program->accessLevel(), AccessLevel::View);
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    expectLogin(1, L"");
    command(COMMAND_ABOUT);
    EXPECT_TRUE(pumpUntil([this] { return program->accessLevel() == AccessLevel::EditChannels; }));
}

TEST_F(Login, FillAsksForALoginBelowEditChannels) {
    protect(AccessLevel::Everything, L"chief");
    start();
    command(COMMAND_LOG_OUT);
    for (const int fill : {COMMAND_FILL_DOWN, COMMAND_FILL_SERIES}) {
        dialogs.expect([](HWND dialog) {
            EXPECT_EQ(textOf(dialog, LOGIN_WHY), L"Filling channels needs the level Edit channels.");
            EXPECT_EQ(textOf(dialog, LOGIN_LEVEL), L"Edit channels");
            SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        });
        const std::size_t before = dialogs.shown().size();
        command(fill);
        EXPECT_TRUE(pumpUntil([&] { return dialogs.shown().size() > before; })) << fill;
        EXPECT_EQ(program->accessLevel(), AccessLevel::View);
    }
}

TEST_F(Login, TheFillDialogFollowsTheLogin) {
    start(sample("gmrs.telvar", "a.telvar"));
    command(COMMAND_LOG_OUT);
    dialogs.expectBox(IDOK);
    std::wstring title(64, L'\0');
    dialogs.expect([&title](HWND dialog) {
        title.resize(static_cast<std::size_t>(GetWindowTextW(dialog, title.data(), 64)));
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    command(COMMAND_FILL_SERIES);
    EXPECT_TRUE(pumpUntil([this] { return dialogs.shown().size() == 2; }));
    pump();
    EXPECT_EQ(title, L"Channel Fill");
    EXPECT_EQ(program->accessLevel(), AccessLevel::EditChannels);
    EXPECT_FALSE(program->document().modified());
}

}  // namespace telvar::tests
