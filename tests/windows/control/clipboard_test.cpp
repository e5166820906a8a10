// Copy and paste by real keys on the system's clipboard, with a foreign program on the other side of it; and the pop-up
// menu that the right button really shows.
#include <array>
#include <chrono>
#include <filesystem>
#include <functional>

#include "clipboard_keys.h"
#include "container.h"
#include "support/temporary_folder.h"
#include "win/text.h"

namespace telvar::tests {
namespace {

using namespace std::chrono_literals;

class RealClipboard : public ControlWorld {
protected:
    RealClipboard() {
        fill(2, 145'025'000);
        fill(3, 145'037'500);
        setUp();
        call(*control, "UpdateControlsFromMemory");
        container = new Container(*control.get());
        container->AddRef();
        com::check(container->activate(OLEIVERB_UIACTIVATE));
        pump();
        gridWindow = GetFocus();
    }
    void TearDown() override {
        container->close();
        container->Release();
        ControlWorld::TearDown();
    }

    void select(LONG row, LONG column, LONG endRow, LONG endColumn) {
        com::check(grid->Select(row, column, endRow, endColumn));
    }
    void pressControlAnd(WPARAM key) {
        const HeldControl held;
        SendMessageW(gridWindow, WM_KEYDOWN, key, 0);
        pump();
    }

    static std::wstring onClipboard() {
        std::wstring text;
        if (OpenClipboard(nullptr) != FALSE) {
            const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
            if (const auto* const letters = memory != nullptr ? static_cast<wchar_t*>(GlobalLock(memory)) : nullptr) {
                text = letters;
                GlobalUnlock(memory);
            }
            CloseClipboard();
        }
        return text;
    }
    // Pumps until it is so, for ten seconds at most.
    static bool until(const std::function<bool()>& condition) {
        const auto end = std::chrono::steady_clock::now() + 10s;
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end) {
                return false;
            }
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
            pump();
        }
        return true;
    }

    Container* container = nullptr;
    HWND gridWindow = nullptr;
};

TEST_F(RealClipboard, CarriesABlockByKeys) {
    select(2, 1, 3, 2);
    pressControlAnd('C');
    EXPECT_EQ(onClipboard(), L"145.025000\t145.025000\r145.037500\t145.037500");
    select(20, 1, 20, 1);
    pressControlAnd('V');
    EXPECT_EQ(cell(21, 2), "145.037500");
    EXPECT_EQ(boxes.texts(), Texts{});
}

// Another program would rather take a picture or a formatted text than the cells.
TEST_F(RealClipboard, HoldsNothingOfOtherProgramsAfterACopy) {
    const UINT formatted = RegisterClipboardFormatW(L"Rich Text Format");
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    const HDC screen = GetDC(nullptr);
    SetClipboardData(CF_BITMAP, CreateCompatibleBitmap(screen, 8, 8));
    ReleaseDC(nullptr, screen);
    for (const UINT format : {UINT{CF_TEXT}, formatted}) {
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 16);
        CopyMemory(GlobalLock(memory), "{somebody}", 11);
        GlobalUnlock(memory);
        SetClipboardData(format, memory);
    }
    CloseClipboard();
    ASSERT_TRUE(IsClipboardFormatAvailable(formatted));
    select(2, 1, 2, 1);
    pressControlAnd('C');
    EXPECT_EQ(onClipboard(), L"145.025000");
    EXPECT_FALSE(IsClipboardFormatAvailable(formatted));
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
    ASSERT_TRUE(OpenClipboard(nullptr));
    const HANDLE plain = GetClipboardData(CF_TEXT);
    const auto* const letters = plain != nullptr ? static_cast<const char*>(GlobalLock(plain)) : nullptr;
    EXPECT_STREQ(letters, "145.025000") << "made by the system from the new text";
    if (letters != nullptr) {
        GlobalUnlock(plain);
    }
    CloseClipboard();
}

TEST_F(RealClipboard, TakesTheTextOfASpreadsheet) {
    putOnClipboard(L"145.5\t146.5\tDisabled\r\n147.5\t148.5\t023\r\n");
    select(20, 1, 20, 1);
    pressControlAnd('V');
    EXPECT_EQ(cell(20, 3), "Disabled");
    EXPECT_EQ(cell(21, 3), "023");
    EXPECT_EQ(cell(22, 1), "X");
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(RealClipboard, WithABadValueIsRefusedInTheExactWords) {
    putOnClipboard(L"145.5\t146.5\tnonsense");
    select(2, 1, 2, 1);
    pressControlAnd('V');
    EXPECT_EQ(boxes.texts(), (Texts{"Error during pasting data. Invalid DCS value (not found in the table) TX Subtone. "
                                    "Unable to continue."}));
    EXPECT_EQ(cell(2, 1), "145.025000");
}

TEST_F(RealClipboard, WithAPictureChangesNothing) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    const HDC screen = GetDC(nullptr);
    SetClipboardData(CF_BITMAP, CreateCompatibleBitmap(screen, 8, 8));
    ReleaseDC(nullptr, screen);
    CloseClipboard();
    select(2, 1, 3, 1);
    pressControlAnd('V');
    EXPECT_EQ(cell(2, 1), "145.025000");
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(RealClipboard, EndsItsTextAtAZero) {
    putOnClipboard(std::wstring(L"145.5\0\t146.5", 12));
    select(20, 1, 20, 1);
    pressControlAnd('V');
    EXPECT_EQ(cell(20, 1), "145.500000");
    EXPECT_EQ(cell(20, 2), "X");
    EXPECT_EQ(boxes.texts(), Texts{});
}

// -- a program of the system around this one -------------------------------------------------------------------------

class ForeignProgram : public RealClipboard {
protected:
    // A shell command of the system that runs this one; it is told files by their names there.
    static void runOutside(const std::string& command) {
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION started{};
        std::wstring line = win::wide("\"\\\\?\\unix\\bin\\sh\" -c \"" + command + "\"");
        ASSERT_TRUE(CreateProcessW(L"\\\\?\\unix\\bin\\sh", line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &start, &started));
        CloseHandle(started.hThread);
        CloseHandle(started.hProcess);
    }
    static std::string outsideName(const std::string& path) {
        using Naming = char*(CDECL*)(LPCWSTR);
        const auto name = reinterpret_cast<Naming>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name")));
        char* const answer = name(win::wide(path).c_str());
        std::string text = answer;
        HeapFree(GetProcessHeap(), 0, answer);
        return text;
    }
    // The foreign program ends when somebody else takes the clipboard.
    void TearDown() override {
        putOnClipboard(L"");
        RealClipboard::TearDown();
    }
    TemporaryFolder folder;
};

TEST_F(ForeignProgram, ReadsWhatWasCopied) {
    select(2, 1, 3, 2);
    pressControlAnd('C');
    const auto part = folder / "part";
    const auto whole = folder / "whole";
    runOutside("xclip -o -selection clipboard > " + outsideName(part) + " && mv " + outsideName(part) + " " +
               outsideName(whole));
    ASSERT_TRUE(until([&] { return std::filesystem::exists(TemporaryFolder::pathOf(whole)); }));
    EXPECT_EQ(TemporaryFolder::read(whole), "145.025000\t145.025000\r145.037500\t145.037500");
}

TEST_F(ForeignProgram, IsPastedFrom) {
    const auto file = folder / "cells";
    TemporaryFolder::write(file, "145.5\t146.5\tDisabled\r\n147.5\t148.5\t023\r\n");
    runOutside("xclip -i -selection clipboard " + outsideName(file));
    ASSERT_TRUE(until([&] { return onClipboard().starts_with(L"145.5\t146.5"); }));
    select(20, 1, 20, 1);
    pressControlAnd('V');
    EXPECT_EQ(cell(20, 2), "146.500000");
    EXPECT_EQ(cell(21, 3), "023");
    EXPECT_EQ(boxes.texts(), Texts{});
}

// -- the menu --------------------------------------------------------------------------------------------------------

class GridMenu : public RealClipboard {
protected:
    static constexpr UINT askForMenu = 0x01E1;  // MN_GETHMENU

    // What the right button shows: the captions, those that are greyed in brackets.
    Texts shown() {
        seen().clear();
        const UINT_PTR timer = SetTimer(nullptr, 0, 15, &look);
        SendMessageW(gridWindow, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(60, 60));
        KillTimer(nullptr, timer);
        pump();
        return seen();
    }

private:
    static Texts& seen() {
        static Texts texts;
        return texts;
    }
    static void CALLBACK look(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/, DWORD /*time*/) noexcept {
        const HWND popup = FindWindowW(MAKEINTRESOURCEW(32768), nullptr);
        if (popup == nullptr || !seen().empty()) {
            return;
        }
        // NOLINTNEXTLINE: a handle travels as a number
        const auto menu = reinterpret_cast<HMENU>(SendMessageW(popup, askForMenu, 0, 0));
        for (int item = 0; item < GetMenuItemCount(menu); ++item) {
            std::array<wchar_t, 64> text{};
            GetMenuStringW(menu, static_cast<UINT>(item), text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
            const bool grey =
                (GetMenuState(menu, static_cast<UINT>(item), MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) != 0;
            const std::string caption = win::narrow(text.data());
            seen().push_back(grey ? "(" + caption + ")" : caption);
        }
        PostMessageW(popup, WM_KEYDOWN, VK_ESCAPE, 0);
    }
};

TEST_F(GridMenu, GreysUndoAndRedoByWhatCanBeTakenBack) {
    EXPECT_EQ(shown(), (Texts{"Copy", "Paste", "Delete", "(Undo)", "(Redo)"}));
    putOnClipboard(L"145.5");
    select(20, 1, 20, 1);
    pressControlAnd('V');
    EXPECT_EQ(shown(), (Texts{"Copy", "Paste", "Delete", "Undo", "(Redo)"}));
    putOnClipboard(L"nonsense");
    pressControlAnd('V');
    EXPECT_EQ(shown(), (Texts{"Copy", "Paste", "Delete", "(Undo)", "Redo"}));
    EXPECT_EQ(boxes.texts().size(), 1U);
}

}  // namespace
}  // namespace telvar::tests
