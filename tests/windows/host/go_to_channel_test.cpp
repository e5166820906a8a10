// Going to a channel by its number.
#include "host/shell/channel_dialog.h"

#include "base/readable_colour.h"
#include "open_program.h"

namespace telvar::tests {

TEST(ChannelNumber, IsOneTo255InDigits) {
    EXPECT_EQ(host::readChannel("1"), 1);
    EXPECT_EQ(host::readChannel(" 255 "), 255);
    EXPECT_EQ(host::readChannel("007"), 7);
    for (const char* wrong : {"", " ", "0", "256", "-1", "+1", "1.5", "12a", "1 2", "99999999999999999999", "\u0661"}) {
        EXPECT_EQ(host::readChannel(wrong), std::nullopt) << testing::PrintToString(wrong);
    }
}

struct GoTo : Program {
    void goTo(const wchar_t* number) {
        dialogs.expect([number](HWND dialog) {
            SetDlgItemTextW(dialog, CHANNEL_NUMBER, number);
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        command(desk::Command::GoTo);
    }
    [[nodiscard]] long top() { return gridNumber(&IChannelGrid::get_TopRow); }
};

TEST_F(GoTo, SelectsTheWholeChannelAndShowsIt) {
    start();
    goTo(L"100");
    EXPECT_EQ(row(), 100);
    EXPECT_EQ(column(), 1);
    EXPECT_EQ(endRow(), 100);
    EXPECT_EQ(endColumn(), 26);
    EXPECT_EQ(top(), 97);
    EXPECT_TRUE(IsChild(program->window(), GetFocus()));
    goTo(L"2");
    EXPECT_EQ(row(), 2);
    EXPECT_EQ(top(), 1);
}

TEST_F(GoTo, TheArrowsGoOnFromThere) {
    start();
    goTo(L"200");
    press({VK_DOWN});
    EXPECT_TRUE(pumpUntil([this] { return row() == 201; }));
}

TEST_F(GoTo, SuggestsTheCurrentChannelAndRefusesOthersThanOneTo255) {
    start();
    select(42, 3, 42, 3);
    dialogs.expect([](HWND dialog) {
        std::wstring text(100, L'\0');
        const auto read = [&](int control) {
            std::wstring found(100, L'\0');
            found.resize(static_cast<std::size_t>(GetDlgItemTextW(dialog, control, found.data(), 100)));
            return found;
        };
        EXPECT_EQ(read(CHANNEL_NUMBER), L"42");
        SetDlgItemTextW(dialog, CHANNEL_NUMBER, L"256");
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(read(DIALOG_NOTE), L"Enter a channel number from 1 to 255.");
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, CHANNEL_NUMBER));
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    command(desk::Command::GoTo);
    EXPECT_EQ(row(), 42);
    EXPECT_EQ(column(), 3);
}

TEST_F(GoTo, ARefusalCanBeReadInEveryScheme) {
    start();
    dialogs.expect([](HWND dialog) {
        SetDlgItemTextW(dialog, CHANNEL_NUMBER, L"256");
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        const HWND note = GetDlgItem(dialog, DIALOG_NOTE);
        const HDC context = GetDC(note);
        const int face = COLOR_BTNFACE;
        const COLORREF before = GetSysColor(face);
        for (const COLORREF ground : {RGB(255, 255, 255), RGB(0, 0, 0), RGB(176, 0, 32), RGB(0, 0, 128)}) {
            SetSysColors(1, &face, &ground);
            SendMessageW(dialog, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(context), reinterpret_cast<LPARAM>(note));
            EXPECT_EQ(GetBkColor(context), ground);
            EXPECT_GE(base::contrast(GetTextColor(context), ground), base::readableContrast) << std::hex << ground;
        }
        SetSysColors(1, &face, &before);
        ReleaseDC(note, context);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    command(desk::Command::GoTo);
}

TEST_F(GoTo, IsDoneFromTheKeyboardAlone) {
    start();
    dialogs.expect([](HWND) {
        walk::press({'9'});
        walk::press({'0'});
        walk::press({VK_RETURN});
    });
    press({VK_CONTROL, 'G'});
    EXPECT_TRUE(pumpUntil([this] { return row() == 90; }));
    dialogs.expect([](HWND) {
        walk::press({'7'});
        walk::press({VK_ESCAPE});
    });
    press({VK_CONTROL, 'G'});
    EXPECT_TRUE(pumpUntil([this] { return dialogs.shown().size() == 2; }));
    EXPECT_EQ(row(), 90);
}

TEST_F(GoTo, TheStatusBarTellsWhatItDoes) {
    start();
    const HMENU menu = GetSubMenu(GetMenu(program->window()), editMenu);
    SendMessageW(program->window(), WM_MENUSELECT, MAKEWPARAM(desk::Command::GoTo, MF_HILITE),
                 reinterpret_cast<LPARAM>(menu));
    EXPECT_EQ(statusText(0), L"Shows and selects a channel by its number");
    SendMessageW(program->window(), WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0);
    EXPECT_EQ(statusText(0), L"New channel table");
}

TEST_F(GoTo, EveryCommandOfTheMenusHasAHint) {
    start();
    std::function<void(HMENU)> look = [&](HMENU menu) {
        for (int at = 0; at < GetMenuItemCount(menu); ++at) {
            const UINT identifier = GetMenuItemID(menu, at);
            if (identifier == static_cast<UINT>(-1)) {
                look(GetSubMenu(menu, at));
            } else if (identifier != 0 && identifier != static_cast<UINT>(desk::Command::RecentFirst)) {
                SendMessageW(program->window(), WM_MENUSELECT, MAKEWPARAM(identifier, 0),
                             reinterpret_cast<LPARAM>(menu));
                EXPECT_NE(statusText(0), L"") << identifier;
            }
        }
    };
    look(GetMenu(program->window()));
}

}  // namespace telvar::tests
