// Keys in the reference host, as from the keyboard: what reaches the grid, and what comes back to the host.
#include "open_program.h"

namespace telvar::tests {

struct Keyboard : Program {
    // Row, column, and the selection's end, once they are as expected; else as they are.
    void expectSelection(long atRow, long atColumn, long toRow, long toColumn) {
        EXPECT_TRUE(pumpUntil([&] {
            return row() == atRow && column() == atColumn && endRow() == toRow && endColumn() == toColumn;
        })) << "found "
            << row() << ',' << column() << " to " << endRow() << ',' << endColumn();
    }
};

TEST_F(Keyboard, ArrowsMoveTheCurrentCell) {
    start();
    press({VK_DOWN});
    press({VK_DOWN});
    press({VK_RIGHT});
    expectSelection(3, 2, 3, 2);
    press({VK_UP});
    press({VK_LEFT});
    expectSelection(2, 1, 2, 1);
}

TEST_F(Keyboard, PagesMoveByTheVisibleRowsAndBack) {
    start();
    press({VK_NEXT});
    ASSERT_TRUE(pumpUntil([this] { return row() > 5; }));
    const long page = row();
    press({VK_NEXT});
    EXPECT_TRUE(pumpUntil([&] { return row() > page; }));
    press({VK_PRIOR});
    press({VK_PRIOR});
    expectSelection(1, 1, 1, 1);
}

TEST_F(Keyboard, HomeAndEndGoToTheEndsOfTheRowAndWithControlOfTheTable) {
    start();
    press({VK_END});
    expectSelection(1, 26, 1, 26);
    press({VK_HOME});
    expectSelection(1, 1, 1, 1);
    press({VK_CONTROL, VK_END});
    ASSERT_TRUE(pumpUntil([this] { return row() == 255; }));
    press({VK_CONTROL, VK_HOME});
    ASSERT_TRUE(pumpUntil([this] { return row() == 1; }));
}

TEST_F(Keyboard, ShiftExtendsTheSelection) {
    start();
    select(10, 3, 10, 3);
    press({VK_SHIFT, VK_DOWN});
    press({VK_SHIFT, VK_DOWN});
    press({VK_SHIFT, VK_RIGHT});
    expectSelection(10, 3, 12, 4);
    press({VK_SHIFT, VK_HOME});
    expectSelection(10, 3, 12, 1);
    press({VK_CONTROL, VK_SHIFT, VK_END});
    ASSERT_TRUE(pumpUntil([this] { return endRow() == 255; }));
    EXPECT_EQ(row(), 10);
    press({VK_CONTROL, VK_SHIFT, VK_HOME});
    ASSERT_TRUE(pumpUntil([this] { return endRow() == 1; }));
    EXPECT_EQ(row(), 10);
}

TEST_F(Keyboard, ControlCAndControlVCopyAndPasteInTheGrid) {
    start(sample("gmrs.telvar", "a.telvar"));
    select(1, 1, 1, 1);
    press({VK_CONTROL, 'C'});
    select(200, 1, 200, 1);
    press({VK_CONTROL, 'V'});
    EXPECT_TRUE(pumpUntil([this] { return cell(200, 1) == cell(1, 1); }));
    dialogs.expectQuestion(IDNO);
    close();
}

TEST_F(Keyboard, DeleteAsksBeforeItDeletes) {
    start(sample("gmrs.telvar", "a.telvar"));
    select(1, 1, 1, 1);
    const std::wstring before = cell(1, 1);
    dialogs.expect([](HWND) { walk::press({VK_ESCAPE}); });
    press({VK_DELETE});
    EXPECT_TRUE(pumpUntil([this] { return dialogs.shown().size() == 1; }));
    EXPECT_EQ(cell(1, 1), before);
}

TEST_F(Keyboard, TabLeavesTheGridAndShiftTabComesBack) {
    start();
    const HWND grid = GetFocus();
    press({VK_TAB});
    ASSERT_TRUE(pumpUntil([grid] { return GetFocus() != grid; }));
    EXPECT_TRUE(IsChild(program->window(), GetFocus()));
    press({VK_SHIFT, VK_TAB});
    EXPECT_TRUE(pumpUntil([grid] { return GetFocus() == grid; }));
}

TEST_F(Keyboard, WhatTheGridDoesNotUseIsTheHosts) {
    start(sample("gmrs.telvar", "a.telvar"));
    change(7);
    press({VK_F5});
    EXPECT_TRUE(pumpUntil([this] { return cell(7, 1) == L"446.006250"; }));
    press({VK_CONTROL, 'S'});
    EXPECT_TRUE(pumpUntil([this] { return !modified(); }));
    press({VK_CONTROL, 'A'});
    EXPECT_TRUE(pumpUntil([this] { return endRow() == 255; }));
    // Neither has a meaning here, and the cells stay as they are.
    const std::wstring before = cell(1, 1);
    press({VK_ESCAPE});
    press({VK_RETURN});
    EXPECT_EQ(cell(1, 1), before);
    EXPECT_TRUE(isOpen());
}

TEST_F(Keyboard, AltFOpensTheMenuOfTheHost) {
    start();
    static bool opened;
    opened = false;
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) noexcept {
        GUITHREADINFO information{};
        information.cbSize = sizeof information;
        GetGUIThreadInfo(GetCurrentThreadId(), &information);
        if ((information.flags & GUI_INMENUMODE) != 0) {
            opened = true;
            EndMenu();
        }
    });
    press({VK_MENU, 'F'});
    EXPECT_TRUE(pumpUntil([] { return opened; }));
    KillTimer(nullptr, timer);
}

}  // namespace telvar::tests
