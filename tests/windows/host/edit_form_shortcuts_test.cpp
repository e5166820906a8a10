// The program's own shortcuts while the control's edit form has the keyboard.
#include <algorithm>

#include "open_program.h"
#include "support/windows/edit_form_driver.h"

namespace telvar::tests {

struct ShortcutsInTheEditForm : Program, EditFormDriver {
    void open(int channel = 5) {
        dialogs.ignore(L"Channel Edit");
        start(sample("maritime.telvar", "table.telvar"));
        select(channel, 1, channel, 1);
        command(desk::Command::EditChannel);
        ASSERT_NE(form(), nullptr);
        SetForegroundWindow(form());
        SetFocus(frequencyField());
        pump();
    }
    // As from the keyboard, into the form.
    void pressInForm(std::initializer_list<WORD> chord) {
        SetForegroundWindow(form());
        ASSERT_TRUE(pumpUntil([] { return GetForegroundWindow() == form(); }));
        walk::press(chord);
        pump();
    }
    void edit() {
        EditFormDriver::type(frequencyField(), "160.5");
        pump();
    }
    // The transmit frequency that a channel has in the file.
    [[nodiscard]] long saved(const std::string& name, int number) {
        com::ComPointer<IDataStore> store;
        com::check(CoCreateInstance(__uuidof(DataStore), nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDataStore),
                                    store.putVoid()));
        host::StoreAdapter(store).open(win::narrow(path(name)));
        com::Variant value;
        com::check(host::recordOf(*store, number)->get_TxFreq(value.put()));
        value.convertTo(VT_I4);
        return V_I4(&value.get());
    }
};

TEST_F(ShortcutsInTheEditForm, ControlSSavesTheTable) {
    open();
    change(7);
    ASSERT_TRUE(modified());
    pressInForm({VK_CONTROL, 'S'});
    EXPECT_TRUE(pumpUntil([this] { return !modified(); }));
    EXPECT_EQ(saved("table.telvar", 7), 446'006'250);
    EXPECT_NE(form(), nullptr);
    EXPECT_EQ(GetActiveWindow(), form());
}

TEST_F(ShortcutsInTheEditForm, ControlSAppliesEditsFirstWhereTheUserWantsThat) {
    open();
    edit();
    dialogs.expectBox(IDYES);
    pressInForm({VK_CONTROL, 'S'});
    EXPECT_TRUE(pumpUntil([this] { return dialogs.shown().size() == 1 && !modified(); }));
    EXPECT_EQ(saved("table.telvar", 5), 160'500'000);
}

TEST_F(ShortcutsInTheEditForm, ControlSSavesNothingWhileTheUserStaysWithEdits) {
    open();
    change(7);
    edit();
    dialogs.expectBox(IDNO);
    dialogs.expectBox(IDNO);
    pressInForm({VK_CONTROL, 'S'});
    ASSERT_TRUE(pumpUntil([this] { return dialogs.shown().size() == 2; }));
    pump();
    EXPECT_TRUE(modified());
    EXPECT_NE(saved("table.telvar", 7), 446'006'250);
    EXPECT_EQ(textOf(frequencyField()), "160.5");
    dialogs.expectBox(IDNO);
    dialogs.expectBox(IDYES);
    dialogs.expectQuestion(IDNO);
    close();
}

TEST_F(ShortcutsInTheEditForm, SavingByTheMenuAsksAboutEditsToo) {
    open();
    edit();
    dialogs.expectBox(IDYES);
    command(desk::Command::Save);
    EXPECT_EQ(saved("table.telvar", 5), 160'500'000);
    EXPECT_FALSE(modified());
}

TEST_F(ShortcutsInTheEditForm, F6GoesToTheGridAndControlNBeginsANewTable) {
    open();
    pressInForm({VK_F6});
    EXPECT_EQ(GetFocus(), gridIn(program->window()));
    ASSERT_NE(form(), nullptr);
    pressInForm({VK_CONTROL, 'N'});
    EXPECT_TRUE(pumpUntil([this] { return openPath().empty(); }));
}

TEST_F(ShortcutsInTheEditForm, CommandsOfTheGridsSelectionStayOut) {
    open();
    const std::wstring before = cell(5, 1);
    // Where nothing is typed, so that the keys are no field's.
    SetFocus(button("Apply"));
    pump();
    pressInForm({VK_CONTROL, 'A'});
    EXPECT_EQ(endRow(), 5);
    pressInForm({VK_CONTROL, 'V'});
    pressInForm({VK_CONTROL, 'D'});
    EXPECT_EQ(cell(5, 1), before);
    EXPECT_TRUE(IsWindowEnabled(program->window()));
}

}  // namespace telvar::tests
