// Logging in and out: by the menu and when the control asks for it, and the passwords.
#include "open_program.h"

namespace telvar::tests {

using desk::AccessLevel;

namespace {

constexpr int levelPart = 2;
// Of the control's event OpenLoginWithChannelEdit.
constexpr DISPID openLoginWithChannelEdit = 6;

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
    // As the control does, to whoever listens.
    void raise(DISPID event) {
        com::ComPointer<IConnectionPoint> point;
        com::check(com::ComPointer<IConnectionPointContainer>::from(components.control)
                       ->FindConnectionPoint(__uuidof(__ChannelInformation), point.put()));
        com::ComPointer<IEnumConnections> connections;
        com::check(point->EnumConnections(connections.put()));
        CONNECTDATA sink{};
        while (connections->Next(1, &sink, nullptr) == S_OK) {
            const auto listener = com::ComPointer<IDispatch>::from(sink.pUnk);
            sink.pUnk->Release();
            DISPPARAMS none{};
            com::check(
                listener->Invoke(event, IID_NULL, LOCALE_INVARIANT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr));
        }
    }
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
        command(desk::Command::LogIn);
    }
    static void protect(AccessLevel level, const char* password) {
        host::RegistrySettings own(TestSettings::key);
        const host::SystemPasswordHasher hasher;
        desk::Access(own, hasher).setPassword(level, password);
    }
    [[nodiscard]] bool columnShows(long index) {
        VARIANT_BOOL shows = VARIANT_FALSE;
        com::check(com::ComPointer<IChannelGrid>::from(components.control)->get_ColumnVisible(index, &shows));
        return shows != VARIANT_FALSE;
    }
};

TEST_F(Login, TheFirstStartShowsEverything) {
    start();
    EXPECT_EQ(accessLevel(), AccessLevel::Everything);
    EXPECT_EQ(statusText(levelPart), L"Everything");
    EXPECT_TRUE(columnShows(22));
}

TEST_F(Login, LoggingOutLeavesTheFirstColumns) {
    start();
    command(desk::Command::LogOut);
    EXPECT_EQ(statusText(levelPart), L"View");
    EXPECT_TRUE(columnShows(8));
    EXPECT_FALSE(columnShows(9));
}

TEST_F(Login, ALevelWithoutAPasswordIsEnteredWithEnterAlone) {
    start();
    command(desk::Command::LogOut);
    dialogs.expect([](HWND dialog) {
        EXPECT_EQ(textOf(dialog, LOGIN_LEVEL), L"Edit channels");
        EXPECT_EQ(textOf(dialog, DIALOG_NOTE), L"This level needs no password.");
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, LOGIN_PASSWORD)));
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, LOGIN_LEVEL));
        walk::press({VK_RETURN});
    });
    press({VK_CONTROL, 'L'});
    EXPECT_TRUE(pumpUntil([this] { return accessLevel() == AccessLevel::EditChannels; }));
    EXPECT_EQ(statusText(levelPart), L"Edit channels");
}

TEST_F(Login, AWrongPasswordIsToldAndMayBeTriedAgain) {
    protect(AccessLevel::Everything, "chief");
    protect(AccessLevel::EditChannels, "operator");
    start();
    EXPECT_EQ(accessLevel(), AccessLevel::View);
    dialogs.expect([this](HWND dialog) {
        choose(dialog, LOGIN_LEVEL, 2);
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, LOGIN_PASSWORD)));
        SetDlgItemTextW(dialog, LOGIN_PASSWORD, L"operator");
        ok(dialog);
        EXPECT_EQ(textOf(dialog, DIALOG_NOTE), L"The password is wrong.");
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, LOGIN_PASSWORD));
        EXPECT_EQ(accessLevel(), AccessLevel::View);
        SetDlgItemTextW(dialog, LOGIN_PASSWORD, L"chief");
        ok(dialog);
    });
    command(desk::Command::LogIn);
    EXPECT_EQ(accessLevel(), AccessLevel::Everything);
    EXPECT_TRUE(columnShows(22));
}

TEST_F(Login, CancelLeavesTheLevel) {
    protect(AccessLevel::Everything, "chief");
    start();
    dialogs.expect([](HWND dialog) {
        choose(dialog, LOGIN_LEVEL, 0);
        SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    command(desk::Command::LogIn);
    EXPECT_EQ(accessLevel(), AccessLevel::EditChannels);
    dialogs.expect([](HWND dialog) { SendMessageW(dialog, WM_CLOSE, 0, 0); });
    command(desk::Command::LogIn);
    EXPECT_EQ(statusText(levelPart), L"Edit channels");
}

TEST_F(Login, TheMenuOffersWhatTheLevelAllows) {
    start();
    EXPECT_TRUE(offered(accessMenu, desk::Command::LogOut));
    EXPECT_TRUE(offered(accessMenu, desk::Command::SetPasswords));
    command(desk::Command::LogOut);
    EXPECT_TRUE(offered(accessMenu, desk::Command::LogIn));
    EXPECT_FALSE(offered(accessMenu, desk::Command::LogOut));
    EXPECT_FALSE(offered(accessMenu, desk::Command::SetPasswords));
    // Nobody gets there otherwise.
    command(desk::Command::SetPasswords);
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
    command(desk::Command::SetPasswords);
    EXPECT_EQ(statusText(0), L"The level Everything has a new password.");
    close();
    end();
    start();
    EXPECT_EQ(accessLevel(), AccessLevel::EditChannels);
    logIn(2, L"chief");
    EXPECT_EQ(accessLevel(), AccessLevel::Everything);
}

TEST_F(Login, APasswordIsChangedAndTakenAway) {
    protect(AccessLevel::Everything, "chief");
    start();
    logIn(2, L"chief");
    dialogs.expect([](HWND dialog) {
        EXPECT_EQ(textOf(dialog, DIALOG_NOTE), L"Leave both fields empty to remove the password.");
        ok(dialog);
    });
    command(desk::Command::SetPasswords);
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
    command(desk::Command::SetPasswords);
    protect(AccessLevel::Everything, "chief");
    protect(AccessLevel::EditChannels, "operator");
    dialogs.expect([](HWND dialog) {
        ok(dialog);
        EXPECT_EQ(textOf(dialog, DIALOG_NOTE), L"Remove the password of the level Edit channels first.");
        SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    command(desk::Command::SetPasswords);
    win::Settings own(TestSettings::key);
    EXPECT_TRUE(own.has(L"Password5"));
}

TEST_F(Login, TheEditFormsWishIsAnsweredAfterItsEvent) {
    start();
    command(desk::Command::LogOut);
    raise(openLoginWithChannelEdit);
    EXPECT_EQ(dialogs.shown(), Texts{});
    expectLogin(2, L"");
    EXPECT_TRUE(pumpUntil([this] { return accessLevel() == AccessLevel::Everything; }));
}

TEST_F(Login, AWishThatCannotBeAnsweredNowWaits) {
    start();
    command(desk::Command::LogOut);
    dialogs.expect([this](HWND dialog) {
        raise(openLoginWithChannelEdit);
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
        EXPECT_EQ(accessLevel(), AccessLevel::View);
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    expectLogin(1, L"");
    command(desk::Command::About);
    EXPECT_TRUE(pumpUntil([this] { return accessLevel() == AccessLevel::EditChannels; }));
}

TEST_F(Login, FillAsksForALoginBelowEditChannels) {
    protect(AccessLevel::Everything, "chief");
    start();
    command(desk::Command::LogOut);
    for (const desk::Command fill : {desk::Command::FillDown, desk::Command::FillSeries}) {
        dialogs.expect([](HWND dialog) {
            EXPECT_EQ(textOf(dialog, LOGIN_WHY), L"Filling channels needs the level Edit channels.");
            EXPECT_EQ(textOf(dialog, LOGIN_LEVEL), L"Edit channels");
            SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        });
        const std::size_t before = dialogs.shown().size();
        command(fill);
        EXPECT_TRUE(pumpUntil([&] { return dialogs.shown().size() > before; })) << static_cast<int>(fill);
        EXPECT_EQ(accessLevel(), AccessLevel::View);
    }
}

TEST_F(Login, TheFillDialogFollowsTheLogin) {
    start(sample("gmrs.telvar", "a.telvar"));
    command(desk::Command::LogOut);
    dialogs.expectBox(IDOK);
    std::wstring title(64, L'\0');
    dialogs.expect([&title](HWND dialog) {
        title.resize(static_cast<std::size_t>(GetWindowTextW(dialog, title.data(), 64)));
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    command(desk::Command::FillSeries);
    EXPECT_TRUE(pumpUntil([this] { return dialogs.shown().size() == 2; }));
    pump();
    EXPECT_EQ(title, L"Channel Fill");
    EXPECT_EQ(accessLevel(), AccessLevel::EditChannels);
    EXPECT_FALSE(modified());
}

}  // namespace telvar::tests
