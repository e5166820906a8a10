// Where a paste was refused, beside the control's box, which does not say it.
#include "open_program.h"

namespace telvar::tests {

struct RefusedPaste : Program {
    void copyToClipboard(const std::wstring& text) {
        ASSERT_TRUE(OpenClipboard(program->window()));
        EmptyClipboard();
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, (text.size() + 1) * sizeof(wchar_t));
        std::copy(text.begin(), text.end(), static_cast<wchar_t*>(GlobalLock(memory)));
        GlobalUnlock(memory);
        SetClipboardData(CF_UNICODETEXT, memory);
        CloseClipboard();
    }
    // By the keyboard; what the status bar says while the box is open.
    std::wstring pasteRefused(long atRow, long atColumn) {
        select(atRow, atColumn, atRow, atColumn);
        std::wstring told;
        const std::size_t before = dialogs.shown().size();
        dialogs.expect([&](HWND box) {
            program->refreshState();
            told = statusText(0);
            PostMessageW(box, WM_COMMAND, IDOK, 0);
        });
        press({VK_CONTROL, 'V'});
        EXPECT_TRUE(pumpUntil([&] { return dialogs.shown().size() == before + 1; }));
        pump();
        return told;
    }
};

TEST_F(RefusedPaste, TheStatusBarNamesChannelAndColumnWhileTheBoxIsOpenAndAfterwards) {
    start();
    copyToClipboard(L"145.5\t145.5\r\n145.5\t145.5\tnonsense");
    EXPECT_EQ(pasteRefused(11, 1), L"Paste refused at channel 12, Tx Subtone");
    EXPECT_EQ(statusText(0), L"Paste refused at channel 12, Tx Subtone");
    EXPECT_EQ(cell(11, 1), L"X");
}

TEST_F(RefusedPaste, IsSaidAgainAtTheSameCellAndGoesWithTheNextPaste) {
    start();
    copyToClipboard(L"perhaps");
    pasteRefused(3, 6);
    program->refreshState();
    command(desk::Command::LogOut);
    EXPECT_NE(statusText(0), L"Paste refused at channel 3, Scan");
    EXPECT_EQ(pasteRefused(3, 6), L"Paste refused at channel 3, Scan");
    copyToClipboard(L"Yes");
    press({VK_CONTROL, 'V'});
    EXPECT_TRUE(pumpUntil([this] { return statusText(0) == L"New channel table"; })) << win::narrow(statusText(0));
    dialogs.expectQuestion(IDNO);
    close();
}

TEST_F(RefusedPaste, ACellRightOfTheLastColumnIsNamedByItsNumber) {
    start();
    copyToClipboard(L"0293\tmore");
    EXPECT_EQ(pasteRefused(3, 26), L"Paste refused at channel 3, column 27");
}

}  // namespace telvar::tests
