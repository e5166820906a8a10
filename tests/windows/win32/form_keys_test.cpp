#include "form_world.h"
#include "win32/convert.h"

namespace telvar::win32 {
namespace {

class FormKeys : public FormWorld {
protected:
    FormKeys() {
        for (ui::Button* const button : {&widgets.ok, &widgets.apply, &widgets.cancel}) {
            button->Click.connect([this, button] { pressed.push_back(button->name()); });
        }
        openModeless();
    }

    // Names of the widgets that get the focus one after the other.
    std::vector<std::string> stops(std::initializer_list<WORD> held) {
        std::vector<std::string> names{focused()};
        do {
            key(VK_TAB, held);
            names.push_back(focused());
        } while (names.back() != names.front() && names.size() < 20);
        return names;
    }
    [[nodiscard]] bool looksDefault(const ui::Button& button) const {
        return (GetWindowLongW(windowOf(button), GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    }

    std::vector<std::string> pressed;
};

TEST_F(FormKeys, TabGoesRoundAndStopsOnceInAGroupOfOptions) {
    EXPECT_EQ(stops({}), (std::vector<std::string>{"txtName", "txtNote", "optWide", "ckLocked", "cmbList", "cmbTones",
                                                   "sldLevel", "cmdOk", "cmdApply", "cmdCancel", "txtName"}));
}

TEST_F(FormKeys, ShiftTabGoesBack) {
    widgets.narrow.setValue(true);
    widgets.apply.setEnabled(false);
    EXPECT_EQ(stops({VK_SHIFT}), (std::vector<std::string>{"txtName", "cmdCancel", "cmdOk", "sldLevel", "cmbTones",
                                                           "cmbList", "ckLocked", "optNarrow", "txtNote", "txtName"}));
}

TEST_F(FormKeys, AltWithAnAccessKeyActsOnItsWidget) {
    key('O', {VK_MENU});
    EXPECT_EQ(focused(), "txtNote");
    key('R', {VK_MENU});
    EXPECT_EQ(focused(), "optNarrow");
    EXPECT_TRUE(widgets.narrow.value());
    key('L', {VK_MENU});
    EXPECT_EQ(widgets.locked.value(), 1);
    key('A', {VK_MENU});
    EXPECT_EQ(pressed, std::vector<std::string>{"cmdApply"});
    EXPECT_EQ(focused(), "cmdApply");
}

TEST_F(FormKeys, AnAccessKeyNeedsNoAltWhereNothingIsTyped) {
    key('F');
    EXPECT_EQ(widgets.name.text(), "f");
    widgets.locked.setFocus();
    pump();
    key('F');
    EXPECT_TRUE(widgets.fixed.value());
    EXPECT_EQ(focused(), "optFixed");
    EXPECT_EQ(widgets.name.text(), "f");
}

TEST_F(FormKeys, AnAccessKeyOfADisabledWidgetDoesNothing) {
    widgets.apply.setEnabled(false);
    widgets.band.setEnabled(false);
    key('A', {VK_MENU});
    key('W', {VK_MENU});
    EXPECT_TRUE(pressed.empty());
    EXPECT_EQ(focused(), "txtName");
}

TEST_F(FormKeys, EnterPressesTheDefaultButton) {
    key(VK_RETURN);
    EXPECT_EQ(pressed, std::vector<std::string>{"cmdOk"});
    EXPECT_EQ(focused(), "txtName");
}

TEST_F(FormKeys, EnterPressesTheFocusedButtonInstead) {
    widgets.apply.setFocus();
    pump();
    key(VK_RETURN);
    EXPECT_EQ(pressed, std::vector<std::string>{"cmdApply"});
}

TEST_F(FormKeys, EnterIsTheFieldsWhereNoButtonIsTheDefault) {
    widgets.ok.setDefault(false);
    std::vector<int> typed;
    widgets.name.KeyPress.connect([&](ui::KeyPressEvent& event) {
        typed.push_back(event.code);
        widgets.ok.setFocus();
    });
    key(VK_RETURN);
    EXPECT_EQ(typed, std::vector<int>{13});
    EXPECT_EQ(focused(), "cmdOk");
    EXPECT_TRUE(pressed.empty());
}

TEST_F(FormKeys, TheLookOfTheDefaultButtonFollowsTheFocus) {
    EXPECT_TRUE(looksDefault(widgets.ok));
    widgets.cancel.setFocus();
    EXPECT_FALSE(looksDefault(widgets.ok));
    EXPECT_TRUE(looksDefault(widgets.cancel));
    widgets.locked.setFocus();
    EXPECT_TRUE(looksDefault(widgets.ok));
    EXPECT_FALSE(looksDefault(widgets.cancel));
}

TEST_F(FormKeys, EscapePressesTheCancelButton) {
    int boxes = 0;
    widgets.form.CloseBox.connect([&] { ++boxes; });
    key(VK_ESCAPE);
    EXPECT_EQ(pressed, std::vector<std::string>{"cmdCancel"});
    EXPECT_EQ(boxes, 0);
    EXPECT_TRUE(desktop.isOpen(widgets.form));
}

TEST_F(FormKeys, EscapeClosesAFormWithoutACancelButton) {
    int boxes = 0;
    widgets.form.CloseBox.connect([&] { ++boxes; });
    widgets.cancel.setCancel(false);
    key(VK_ESCAPE);
    EXPECT_EQ(boxes, 1);
    EXPECT_FALSE(desktop.isOpen(widgets.form));
}

TEST_F(FormKeys, EscapeAndEnterOfAnOpenListAreTheLists) {
    widgets.list.setFocus();
    pump();
    const HWND list = windowOf(widgets.list);
    key(VK_F4);
    EXPECT_TRUE(SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0));
    key(VK_ESCAPE);
    EXPECT_FALSE(SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0));
    key(VK_F4);
    key(VK_DOWN);
    key(VK_RETURN);
    EXPECT_FALSE(SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(pressed.empty());
    EXPECT_GE(widgets.list.listIndex(), 0);
    EXPECT_TRUE(desktop.isOpen(widgets.form));
}

TEST_F(FormKeys, AltF4IsTheCloseBox) {
    int boxes = 0;
    widgets.form.CloseBox.connect([&] { ++boxes; });
    key(VK_F4, {VK_MENU});
    EXPECT_EQ(boxes, 1);
    EXPECT_FALSE(desktop.isOpen(widgets.form));
}

TEST_F(FormKeys, ArrowsChooseRoundTheGroupAndPassOverWhatIsDisabled) {
    widgets.wide.setFocus();
    pump();
    widgets.narrow.setEnabled(false);
    key(VK_DOWN);
    EXPECT_TRUE(widgets.fixed.value());
    EXPECT_EQ(focused(), "optFixed");
    key(VK_RIGHT);
    EXPECT_TRUE(widgets.wide.value());
    key(VK_UP);
    EXPECT_TRUE(widgets.fixed.value());
}

TEST_F(FormKeys, SpaceTogglesACheckBoxAndPressesAButton) {
    widgets.locked.setFocus();
    pump();
    key(VK_SPACE);
    EXPECT_EQ(widgets.locked.value(), 1);
    key(VK_SPACE);
    EXPECT_EQ(widgets.locked.value(), 0);
    widgets.apply.setFocus();
    pump();
    key(VK_SPACE);
    EXPECT_EQ(pressed, std::vector<std::string>{"cmdApply"});
}

TEST_F(FormKeys, ASliderGoesUpToItsMinimumByTheUpKeys) {
    std::vector<int> values;
    widgets.level.Change.connect([&] { values.push_back(widgets.level.value()); });
    widgets.level.loadValue(-100);
    widgets.level.setFocus();
    pump();
    for (const WORD code : std::initializer_list<WORD>{VK_UP, VK_PRIOR, VK_DOWN, VK_NEXT, VK_HOME, VK_END}) {
        key(code);
    }
    EXPECT_EQ(values, (std::vector<int>{-101, -111, -110, -100, -255, 0}));
    EXPECT_EQ(focused(), "sldLevel");
}

TEST_F(FormKeys, AFieldTakesOnlyTheCharactersThatItsWidgetLetsThrough) {
    const auto digitsOnly = [](ui::KeyPressEvent& event) {
        if (event.code > ' ' && (event.code < '0' || event.code > '9')) {
            event.code = 0;
        }
    };
    widgets.name.KeyPress.connect(digitsOnly);
    widgets.tones.KeyPress.connect(digitsOnly);
    key('1');
    key('X');
    key('2');
    EXPECT_EQ(widgets.name.text(), "12");
    widgets.tones.setFocus();
    pump();
    key('8');
    key('X');
    key('8');
    EXPECT_EQ(widgets.tones.text(), "88");
}

TEST_F(FormKeys, AKeyInTheFieldOfAListIsRaisedOnce) {
    std::vector<int> codes;
    widgets.tones.KeyDown.connect([&](ui::KeyEvent& event) { codes.push_back(event.code); });
    widgets.tones.setFocus();
    pump();
    key(VK_DOWN);
    key('7');
    EXPECT_EQ(codes, (std::vector<int>{VK_DOWN, '7'}));
}

TEST_F(FormKeys, TheFocusLeavesAWidgetThatIsDisabledOrHidden) {
    widgets.apply.setFocus();
    pump();
    widgets.apply.setEnabled(false);
    EXPECT_EQ(focused(), "cmdCancel");
    widgets.wide.setFocus();
    widgets.band.setVisible(false);
    EXPECT_EQ(focused(), "ckLocked");
    key(VK_SPACE);
    EXPECT_EQ(widgets.locked.value(), 1);
}

// ---- in the loops of others

class ForeignLoops : public FormKeys {
protected:
    ForeignLoops() { accelerators_ = CreateAcceleratorTableW(table_.data(), static_cast<int>(table_.size())); }
    ~ForeignLoops() override { DestroyAcceleratorTable(accelerators_); }

    // The whole of a host's loop, until the queue is empty.
    void run(bool translates) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) != FALSE &&
               GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (translates && TranslateAcceleratorW(top.handle(), accelerators_, &message) != 0) {
                ++accelerated;
                continue;
            }
            DispatchMessageW(&message);
        }
    }
    void type(std::initializer_list<WORD> codes) {
        for (const WORD code : codes) {
            press(code);
        }
    }

    int accelerated = 0;

private:
    std::array<ACCEL, 3> table_{{{FVIRTKEY, VK_RETURN, 1}, {FVIRTKEY, VK_DELETE, 2}, {FVIRTKEY, 'X', 3}}};
    HACCEL accelerators_;
};

TEST_F(ForeignLoops, AFormNeedsOnlyThatItsMessagesAreDispatched) {
    type({'A', 'B', VK_TAB, 'C', VK_RETURN});
    run(false);
    EXPECT_EQ(widgets.name.text(), "ab");
    EXPECT_EQ(widgets.note.text(), "c");
    EXPECT_EQ(pressed, std::vector<std::string>{"cmdOk"});
    type({VK_ESCAPE});
    run(false);
    EXPECT_EQ(pressed.back(), "cmdCancel");
}

TEST_F(ForeignLoops, NoAcceleratorTakesAKeyThatIsMeantForAForm) {
    type({'X', 'Y', VK_HOME, VK_DELETE, VK_RETURN});
    run(true);
    EXPECT_EQ(widgets.name.text(), "y");
    EXPECT_EQ(pressed, std::vector<std::string>{"cmdOk"});
    EXPECT_EQ(accelerated, 0);
}

TEST_F(ForeignLoops, TheKeysOfOtherWindowsStayTheirs) {
    const HWND field = CreateWindowW(L"EDIT", L"", WS_CHILD | WS_VISIBLE, 5, 5, 100, 20, top.handle(), nullptr,
                                     GetModuleHandleW(nullptr), nullptr);
    SetFocus(field);
    type({'A', 'X'});
    MSG message{};
    std::vector<std::pair<HWND, UINT>> keys;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message == WM_KEYDOWN) {
            keys.emplace_back(message.hwnd, message.message);
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    EXPECT_EQ(keys, (std::vector<std::pair<HWND, UINT>>{{field, WM_KEYDOWN}, {field, WM_KEYDOWN}}));
    EXPECT_EQ(windowText(field), "ax");
    EXPECT_EQ(widgets.name.text(), "");
}

TEST_F(ForeignLoops, AKeyThatIsOnlyLookedAtStays) {
    press('A');
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_NOREMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_KEYDOWN));
    EXPECT_EQ(message.wParam, static_cast<WPARAM>('A'));
    run(false);
    EXPECT_EQ(widgets.name.text(), "a");
}

TEST_F(ForeignLoops, AKeyThatALoopDropsIsGone) {
    press('A');
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.hwnd != window()) {
            DispatchMessageW(&message);
        }
    }
    press('B');
    run(false);
    EXPECT_EQ(widgets.name.text(), "b");
}

}  // namespace
}  // namespace telvar::win32
