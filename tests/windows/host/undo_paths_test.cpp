// Undo and redo without anything to take back: no way of the user's leads there, be it menu, key, pop-up menu or the
// command target of the control.
#include <windows.h>

#include <docobj.h>

#include "open_program.h"

namespace telvar::tests {

struct UndoPaths : Program {
    // Everything that undo or redo could change.
    [[nodiscard]] std::vector<std::wstring> cells() {
        std::vector<std::wstring> result;
        for (long channel = 1; channel <= 255; ++channel) {
            result.push_back(cell(channel, 1) + L"|" + cell(channel, 2));
        }
        return result;
    }
    [[nodiscard]] ULONG commandState(OLECMDID command) {
        OLECMD state{.cmdID = static_cast<ULONG>(command), .cmdf = 0};
        com::check(
            com::ComPointer<IOleCommandTarget>::from(components.control)->QueryStatus(nullptr, 1, &state, nullptr));
        return state.cmdf;
    }
    [[nodiscard]] HRESULT execute(OLECMDID command) {
        return com::ComPointer<IOleCommandTarget>::from(components.control)
            ->Exec(nullptr, static_cast<DWORD>(command), OLECMDEXECOPT_DODEFAULT, nullptr, nullptr);
    }
    void paste() {
        select(1, 1, 1, 4);
        command(desk::Command::Copy);
        select(200, 1, 200, 1);
        command(desk::Command::Paste);
    }
    void tryEveryPath() {
        for (const desk::Command identifier : {desk::Command::Undo, desk::Command::Redo}) {
            EXPECT_FALSE(offered(editMenu, identifier)) << static_cast<int>(identifier);
            command(identifier);
        }
        for (const WORD key : {WORD{'Z'}, WORD{'Y'}}) {
            press({VK_CONTROL, key});
        }
        for (const OLECMDID standard : {OLECMDID_UNDO, OLECMDID_REDO}) {
            EXPECT_EQ(commandState(standard), static_cast<ULONG>(OLECMDF_SUPPORTED)) << standard;
            EXPECT_EQ(execute(standard), OLECMDERR_E_DISABLED) << standard;
        }
    }
    // State of the items of the pop-up menu over the grid, from its top.
    [[nodiscard]] std::vector<UINT> popUpStates();
};

namespace {

std::vector<UINT> seen;

BOOL CALLBACK readMenu(HWND window, LPARAM) noexcept {
    std::array<wchar_t, 16> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    if (std::wstring_view(name.data()) != L"#32768" || !IsWindowVisible(window)) {
        return TRUE;
    }
    const auto menu = reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0));
    for (int at = 0; at < GetMenuItemCount(menu); ++at) {
        seen.push_back(GetMenuState(menu, static_cast<UINT>(at), MF_BYPOSITION) & (MF_GRAYED | MF_SEPARATOR));
    }
    EndMenu();
    return FALSE;
}

void CALLBACK lookForMenu(HWND, UINT, UINT_PTR, DWORD) noexcept {
    EnumThreadWindows(GetCurrentThreadId(), readMenu, 0);
}

}  // namespace

std::vector<UINT> UndoPaths::popUpStates() {
    seen.clear();
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, lookForMenu);
    const HWND grid = GetFocus();
    SendMessageW(grid, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(120, 60));
    SendMessageW(grid, WM_RBUTTONUP, 0, MAKELPARAM(120, 60));
    EXPECT_TRUE(pumpUntil([] { return !seen.empty(); }));
    KillTimer(nullptr, timer);
    return seen;
}

using States = std::vector<UINT>;
// Copy, paste, delete, and undo and redo behind a line.
const States nothingToUndo{0, 0, 0, MF_GRAYED, MF_GRAYED};

TEST_F(UndoPaths, AFreshTableHasNothingToTakeBack) {
    start(sample("gmrs.telvar", "a.telvar"));
    const auto before = cells();
    tryEveryPath();
    EXPECT_EQ(cells(), before);
    EXPECT_FALSE(modified());
    EXPECT_EQ(popUpStates(), nothingToUndo);
}

TEST_F(UndoPaths, AnotherTableForgetsThePasteBefore) {
    start(sample("gmrs.telvar", "a.telvar"));
    paste();
    EXPECT_TRUE(offered(editMenu, desk::Command::Undo));
    dialogs.expectQuestion(IDNO);
    command(desk::Command::New);
    const auto before = cells();
    tryEveryPath();
    EXPECT_EQ(cells(), before);
    EXPECT_FALSE(modified());
    EXPECT_EQ(popUpStates(), nothingToUndo);
}

TEST_F(UndoPaths, ARefreshForgetsThePasteBefore) {
    start(sample("gmrs.telvar", "a.telvar"));
    paste();
    command(desk::Command::Refresh);
    const auto before = cells();
    tryEveryPath();
    EXPECT_EQ(cells(), before);
    dialogs.expectQuestion(IDNO);
    close();
}

TEST_F(UndoPaths, OneStepBackAndOneForthAreOfferedInTurn) {
    start(sample("gmrs.telvar", "a.telvar"));
    paste();
    const auto pasted = cells();
    EXPECT_EQ(popUpStates(), (States{0, 0, 0, 0, MF_GRAYED}));
    press({VK_CONTROL, 'Z'});
    EXPECT_TRUE(pumpUntil([this] { return cell(200, 1) == L"X"; }));
    EXPECT_FALSE(offered(editMenu, desk::Command::Undo));
    EXPECT_EQ(execute(OLECMDID_UNDO), OLECMDERR_E_DISABLED);
    EXPECT_EQ(popUpStates(), (States{0, 0, 0, MF_GRAYED, 0}));
    press({VK_CONTROL, 'Z'});
    press({VK_CONTROL, 'Y'});
    EXPECT_TRUE(pumpUntil([&] { return cells() == pasted; }));
    EXPECT_FALSE(offered(editMenu, desk::Command::Redo));
    EXPECT_EQ(execute(OLECMDID_REDO), OLECMDERR_E_DISABLED);
    dialogs.expectQuestion(IDNO);
    close();
}

}  // namespace telvar::tests
