// The program is to end while something modal of the control's stands open: the fill dialog, its confirmation, or a
// message box.
#include <algorithm>

#include "open_program.h"

namespace telvar::tests {

struct ClosingWhileModal : Program {
    // Runs a command that opens something modal, of which `inside` disposes.
    void open(desk::Command identifier, DialogAnswers::Answer inside) {
        dialogs.expect(std::move(inside));
        command(identifier);
    }
    // A paste that is refused with a message box.
    void pasteNonsense(DialogAnswers::Answer inside) {
        ASSERT_TRUE(OpenClipboard(program->window()));
        EmptyClipboard();
        const std::wstring text = L"nonsense";
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, (text.size() + 1) * sizeof(wchar_t));
        std::copy(text.begin(), text.end(), static_cast<wchar_t*>(GlobalLock(memory)));
        GlobalUnlock(memory);
        SetClipboardData(CF_UNICODETEXT, memory);
        CloseClipboard();
        open(desk::Command::Paste, std::move(inside));
    }
    // The window is asked to close, stays, and the dialog with it.
    void closeInVain(HWND dialog) {
        SendMessageW(program->window(), WM_CLOSE, 0, 0);
        EXPECT_TRUE(isOpen());
        EXPECT_TRUE(IsWindowVisible(dialog));
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    }
    // The session ends, and the user does not want to save.
    void endSession() {
        dialogs.expectQuestion(IDNO);
        EXPECT_EQ(SendMessageW(program->window(), WM_QUERYENDSESSION, 0, 0), TRUE);
        SendMessageW(program->window(), WM_ENDSESSION, TRUE, 0);
        EXPECT_FALSE(isOpen());
    }
    void expectServersCanGo() {
        end();
        pump();
        for (const char* file : {"Tesslin.ocx", "VexloRadioLink.dll", "VexloDataStore.dll"}) {
            EXPECT_TRUE(LoadedServer(file).canUnload()) << file;
        }
    }
    void expectQuestionAtTheEnd() {
        EXPECT_EQ(frequency(), 446'006'250);
        dialogs.expectQuestion(IDCANCEL);
        close();
        EXPECT_TRUE(isOpen());
        EXPECT_EQ(dialogs.shown().back(), L"Telvar: Do you want to save the changes to a.telvar?");
        EXPECT_EQ(frequency(), 446'006'250);
    }
};

TEST_F(ClosingWhileModal, TheFillDialogKeepsTheWindowOpenAndTheQuestionComesLater) {
    start(sample("gmrs.telvar", "a.telvar"));
    change();
    open(desk::Command::FillSeries, [this](HWND dialog) { closeInVain(dialog); });
    expectQuestionAtTheEnd();
}

TEST_F(ClosingWhileModal, AMessageBoxKeepsTheWindowOpenAndTheQuestionComesLater) {
    start(sample("gmrs.telvar", "a.telvar"));
    change();
    pasteNonsense([this](HWND dialog) { closeInVain(dialog); });
    expectQuestionAtTheEnd();
}

TEST_F(ClosingWhileModal, TheConfirmationKeepsTheWindowOpenAndTheQuestionComesLater) {
    start(sample("gmrs.telvar", "a.telvar"));
    change();
    open(desk::Command::Delete, [this](HWND dialog) { closeInVain(dialog); });
    expectQuestionAtTheEnd();
}

TEST_F(ClosingWhileModal, TheSessionEndsOverTheFillDialog) {
    start(sample("gmrs.telvar", "a.telvar"));
    change();
    open(desk::Command::FillSeries, [this](HWND) { endSession(); });
    expectServersCanGo();
}

TEST_F(ClosingWhileModal, TheSessionEndsOverAMessageBox) {
    start(sample("gmrs.telvar", "a.telvar"));
    change();
    pasteNonsense([this](HWND) { endSession(); });
    expectServersCanGo();
}

TEST_F(ClosingWhileModal, TheSessionEndsOverTheConfirmation) {
    start(sample("gmrs.telvar", "a.telvar"));
    change();
    open(desk::Command::Delete, [this](HWND) { endSession(); });
    expectServersCanGo();
}

TEST_F(ClosingWhileModal, TheSessionEndsOverTheLogin) {
    start(sample("gmrs.telvar", "a.telvar"));
    change();
    open(desk::Command::LogIn, [this](HWND) { endSession(); });
    expectServersCanGo();
}

TEST_F(ClosingWhileModal, WhatTheUserSavesOverTheFillDialogIsSaved) {
    start(sample("gmrs.telvar", "a.telvar"));
    change(200);
    open(desk::Command::FillSeries, [this](HWND) {
        dialogs.expectQuestion(IDYES);
        EXPECT_EQ(SendMessageW(program->window(), WM_QUERYENDSESSION, 0, 0), TRUE);
        SendMessageW(program->window(), WM_ENDSESSION, TRUE, 0);
    });
    EXPECT_FALSE(isOpen());
    EXPECT_NE(TemporaryFolder::read(folder / "a.telvar").find("\"channel\": 200"), std::string::npos);
}

}  // namespace telvar::tests
