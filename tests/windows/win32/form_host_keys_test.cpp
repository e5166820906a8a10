// Keys of a modeless form that no field of it uses are offered to the host; and where the focus goes when it closes.
#include "form_world.h"
#include "ui/grid.h"
#include "win32/panel_window.h"

namespace telvar::win32 {
namespace {

using Codes = std::vector<int>;

class HostKeys : public FormWorld, public testing::WithParamInterface<bool> {
protected:
    HostKeys() {
        inForeignLoop = GetParam();
        desktop.setSite({.owner = [this] { return top.handle(); },
                         .hostKey =
                             [this](MSG& message) {
                                 offered.push_back(static_cast<int>(message.wParam));
                                 if (whenOffered) {
                                     whenOffered();
                                 }
                                 return uses;
                             }});
        widgets.name.KeyDown.connect([this](ui::KeyEvent& event) { raised.push_back(event.code); });
        openModeless();
        widgets.name.setFocus();
        pump();
        raised.clear();
    }

    bool uses = true;
    std::function<void()> whenOffered;
    Codes offered;
    Codes raised;  // of the field
};

TEST_P(HostKeys, ShortcutsAndFunctionKeysAreOfferedOnce) {
    key('S', {VK_CONTROL});
    key(VK_F6);
    EXPECT_EQ(offered, (Codes{'S', VK_F6}));
    EXPECT_EQ(raised, Codes{VK_CONTROL});
    EXPECT_EQ(widgets.name.text(), "");
}

TEST_P(HostKeys, WhatTheHostDoesNotUseGoesOnToTheField) {
    uses = false;
    key('S', {VK_CONTROL});
    key(VK_F6);
    EXPECT_EQ(offered, (Codes{'S', VK_F6}));
    EXPECT_EQ(raised, (Codes{VK_CONTROL, 'S', VK_F6}));
}

TEST_P(HostKeys, WhatTheFieldOrTheFormUsesIsNotOffered) {
    for (const WORD code : std::initializer_list<WORD>{'A', 'C', 'V', 'X', 'Z'}) {
        key(code, {VK_CONTROL});
    }
    key('S');
    key('S', {VK_SHIFT});
    key(VK_RIGHT, {VK_CONTROL});
    key(VK_TAB);
    key(VK_TAB, {VK_SHIFT});
    key(VK_RETURN);
    EXPECT_EQ(offered, Codes{});
    // With Alt it is AltGr.
    key('Q', {VK_CONTROL, VK_MENU});
    EXPECT_EQ(offered, Codes{});
    widgets.list.setFocus();
    pump();
    key(VK_F4);
    EXPECT_EQ(offered, Codes{});
}

TEST_P(HostKeys, TheHostMayCloseTheFormInside) {
    whenOffered = [this] { desktop.hide(widgets.form); };
    key('N', {VK_CONTROL});
    EXPECT_EQ(offered, Codes{'N'});
    EXPECT_FALSE(desktop.isOpen(widgets.form));
}

INSTANTIATE_TEST_SUITE_P(Loops, HostKeys, testing::Bool(),
                         [](const auto& tested) { return tested.param ? "Foreign" : "Own"; });

class ModalHostKeys : public FormWorld {};

TEST_F(ModalHostKeys, AreNotOffered) {
    Codes offered;
    desktop.setSite({.owner = [this] { return top.handle(); },
                     .hostKey =
                         [&](MSG& message) {
                             offered.push_back(static_cast<int>(message.wParam));
                             return true;
                         }});
    whenOpen([this] {
        key('S', {VK_CONTROL});
        key(VK_F6);
        desktop.hide(widgets.form);
    });
    desktop.showModal(widgets.form);
    EXPECT_EQ(offered, Codes{});
}

class FocusAfter : public FormWorld {
protected:
    FocusAfter() {
        for (ui::TextBox* const box : {&first, &second}) {
            box->setBounds({10, box == &first ? 10 : 40, 100, box == &first ? 30 : 60});
            panel.add(*box);
        }
        shown.emplace(desktop, panel, top.handle(), RECT{0, 0, 400, 300});
    }

    ui::Panel panel{"panel"};
    ui::TextBox first{"txtFirst"};
    ui::TextBox second{"txtSecond"};
    std::optional<PanelWindow> shown;
};

TEST_F(FocusAfter, GoesToTheWidgetThatTheFormNames) {
    first.setFocus();
    openModeless();
    widgets.form.setFocusAfter(&second);
    desktop.hide(widgets.form);
    EXPECT_EQ(GetFocus(), childThatShows(shown->hwnd(), second));
}

TEST_F(FocusAfter, GoesThereAfterTheCloseBoxToo) {
    first.setFocus();
    openModeless();
    widgets.form.setFocusAfter(&second);
    SendMessageW(window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(GetFocus(), childThatShows(shown->hwnd(), second));
}

TEST_F(FocusAfter, GoesBackWhereItWasOtherwise) {
    first.setFocus();
    openModeless();
    desktop.hide(widgets.form);
    EXPECT_EQ(GetFocus(), childThatShows(shown->hwnd(), first));
    openModeless();
    widgets.form.setFocusAfter(&widgets.note);
    desktop.hide(widgets.form);
    EXPECT_EQ(GetFocus(), childThatShows(shown->hwnd(), first));
}

TEST_F(FocusAfter, StaysOnAnotherWindowThatTheUserIsIn) {
    openModeless();
    widgets.form.setFocusAfter(&second);
    SetActiveWindow(top.handle());
    first.setFocus();
    desktop.hide(widgets.form);
    EXPECT_EQ(GetFocus(), childThatShows(shown->hwnd(), first));
}

}  // namespace
}  // namespace telvar::win32
