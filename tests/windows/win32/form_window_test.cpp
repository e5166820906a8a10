#include "form_world.h"

#include <memory>

#include "base/failure.h"
#include "win/module.h"
#include "win32/convert.h"
#include "win32/window_kinds.h"

namespace telvar::win32 {
namespace {

constexpr UINT dpiChanged = 0x02E0;

ui::Rect placeOf(HWND window) {
    RECT at{};
    GetWindowRect(window, &at);
    return rectOf(at);
}

class Forms : public FormWorld {
protected:
    ui::Form& form = widgets.form;
};

TEST_F(Forms, AModalFormReturnsWhenItIsHidden) {
    widgets.ok.Click.connect([&] { desktop.hide(form); });
    whenOpen([&] {
        EXPECT_TRUE(IsWindowVisible(window()));
        EXPECT_TRUE(desktop.isOpen(form));
        key(VK_RETURN);
    });
    desktop.showModal(form);
    EXPECT_FALSE(desktop.isOpen(form));
    EXPECT_EQ(window(), nullptr);
    EXPECT_FALSE(form.attached());
    EXPECT_FALSE(widgets.name.attached());
}

TEST_F(Forms, AModalFormDisablesItsOwnerAndTellsTheSite) {
    whenOpen([&] {
        EXPECT_EQ(GetWindow(window(), GW_OWNER), top.handle());
        EXPECT_FALSE(IsWindowEnabled(top.handle()));
        EXPECT_EQ(modeless, std::vector<bool>{false});
        desktop.hide(form);
        EXPECT_TRUE(IsWindowEnabled(top.handle()));
    });
    desktop.showModal(form);
    EXPECT_EQ(modeless, (std::vector<bool>{false, true}));
}

TEST_F(Forms, AModalFormGivesTheFocusBack) {
    const HWND field = CreateWindowW(L"EDIT", L"", WS_CHILD | WS_VISIBLE, 5, 5, 100, 20, top.handle(), nullptr,
                                     GetModuleHandleW(nullptr), nullptr);
    SetFocus(field);
    whenOpen([&] {
        EXPECT_EQ(focused(), "txtName");
        key(VK_F4, {VK_MENU});
    });
    desktop.showModal(form);
    EXPECT_EQ(GetActiveWindow(), top.handle());
    EXPECT_EQ(GetFocus(), field);
}

TEST_F(Forms, AnOwnerThatWasDisabledBeforeStaysSo) {
    EnableWindow(top.handle(), FALSE);
    whenOpen([&] { desktop.hide(form); });
    desktop.showModal(form);
    EXPECT_FALSE(IsWindowEnabled(top.handle()));
}

TEST_F(Forms, LoadComesBeforeTheFormIsVisible) {
    int loads = 0;
    form.Load.connect([&] {
        ++loads;
        EXPECT_FALSE(IsWindowVisible(window()));
        EXPECT_EQ(form.size(), form.wantedSize(ui::Metrics(desktop, 96)));
        EXPECT_EQ(form.dpi(), 96);
        EXPECT_EQ(form.bounds(), placeOf(window()));
        EXPECT_FALSE(widgets.name.bounds().empty());
    });
    openModeless();
    EXPECT_EQ(loads, 1);
    desktop.hide(form);
    openModeless();
    EXPECT_EQ(loads, 2);
}

TEST_F(Forms, ComeUpInTheMiddleOfTheirOwner) {
    openModeless();
    const ui::Rect owner = placeOf(top.handle());
    const ui::Rect at = placeOf(window());
    EXPECT_NEAR(at.left + at.right, owner.left + owner.right, 2);
    EXPECT_NEAR(at.top + at.bottom, owner.top + owner.bottom, 2);
    EXPECT_EQ(windowText(window()), "Everything");
    RECT client{};
    GetClientRect(window(), &client);
    EXPECT_EQ((ui::Size{client.right, client.bottom}), form.wantedSize(ui::Metrics(desktop, 96)));
}

TEST_F(Forms, StayOnTheScreenWhenTheirOwnerIsAtItsEdge) {
    SetWindowPos(top.handle(), nullptr, -700, -500, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    openModeless();
    EXPECT_EQ(placeOf(window()).left, 0);
    EXPECT_EQ(placeOf(window()).top, 0);
}

TEST_F(Forms, ComeUpWhereLoadPutsThem) {
    form.Load.connect([&] { form.setBounds({30, 40, 430, 440}); });
    openModeless();
    EXPECT_EQ(placeOf(window()), (ui::Rect{30, 40, 430, 440}));
}

TEST_F(Forms, TheFirstFocusIsWhereLoadPutsIt) {
    form.Load.connect([&] { widgets.note.setFocus(); });
    openModeless();
    EXPECT_EQ(focused(), "txtNote");
}

TEST_F(Forms, MayBeHiddenInTheirOwnLoad) {
    form.Load.connect([&] { desktop.hide(form); });
    desktop.showModal(form);
    EXPECT_FALSE(desktop.isOpen(form));
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
}

TEST_F(Forms, AModalFormThatIsOpenCannotBeShownAgain) {
    openModeless();
    EXPECT_THROW(desktop.showModal(form), base::Failure);
    EXPECT_TRUE(desktop.isOpen(form));
}

TEST_F(Forms, TheCloseBoxIsRaisedAndThenHidesTheForm) {
    bool wasOpen = false;
    form.CloseBox.connect([&] { wasOpen = desktop.isOpen(form); });
    openModeless();
    SendMessageW(window(), WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_TRUE(wasOpen);
    EXPECT_FALSE(desktop.isOpen(form));
}

TEST_F(Forms, AModelessFormLeavesItsOwnerInUse) {
    openModeless();
    EXPECT_EQ(GetWindow(window(), GW_OWNER), top.handle());
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
    EXPECT_TRUE(modeless.empty());
    EXPECT_EQ(GetActiveWindow(), window());
}

TEST_F(Forms, AModelessFormComesBackWhereItWas) {
    openModeless();
    SetWindowPos(window(), nullptr, 55, 66, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(form.bounds().left, 55);
    desktop.hide(form);
    EXPECT_EQ(window(), nullptr);
    widgets.name.setText("changed while hidden");
    openModeless();
    EXPECT_EQ(placeOf(window()).left, 55);
    EXPECT_EQ(placeOf(window()).top, 66);
    EXPECT_EQ(windowText(windowOf(widgets.name)), "changed while hidden");
}

TEST_F(Forms, AnOpenModelessFormComesToTheFrontInstead) {
    openModeless();
    const HWND first = window();
    widgets.note.setFocus();
    SetActiveWindow(top.handle());
    EXPECT_NE(GetActiveWindow(), first);
    openModeless();
    EXPECT_EQ(window(), first);
    EXPECT_EQ(GetActiveWindow(), first);
    EXPECT_EQ(focused(), "txtNote");
}

TEST_F(Forms, WithoutASiteTheyHaveNoOwner) {
    desktop.setSite({});
    whenOpen([&] {
        EXPECT_EQ(GetWindow(window(), GW_OWNER), nullptr);
        EXPECT_FALSE(IsWindowEnabled(top.handle()));
        desktop.hide(form);
    });
    desktop.showModal(form);
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
}

TEST_F(Forms, AModalFormOverAModelessOneDisablesBoth) {
    ui::Form edit("frmEdit");
    ui::TextBox field("txtField");
    edit.add(field);
    field.setBounds({5, 5, 100, 25});
    desktop.showModeless(edit);
    const HWND editWindow = window();
    HWND modal = nullptr;
    desktop.dispatcher().post([&] {
        modal = GetActiveWindow();
        EXPECT_NE(modal, editWindow);
        EXPECT_EQ(GetWindow(modal, GW_OWNER), editWindow);
        EXPECT_FALSE(IsWindowEnabled(editWindow));
        EXPECT_FALSE(IsWindowEnabled(top.handle()));
        desktop.hide(form);
    });
    desktop.showModal(form);
    EXPECT_TRUE(IsWindowEnabled(editWindow));
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
    EXPECT_EQ(GetActiveWindow(), editWindow);
}

TEST_F(Forms, AMessageBoxOverAModalFormBelongsToIt) {
    const BoxAnswers answers(desktop, IDOK);
    HWND owner = nullptr;
    widgets.ok.Click.connect([&] {
        owner = window();
        desktop.show({.text = "Invalid"});
        EXPECT_TRUE(IsWindowEnabled(owner));
        EXPECT_FALSE(IsWindowEnabled(top.handle()));
        EXPECT_EQ(focused(), "txtName");
        desktop.hide(form);
    });
    whenOpen([&] { key(VK_RETURN); });
    desktop.showModal(form);
    EXPECT_EQ(answers.texts(), std::vector<std::string>{"Invalid"});
    EXPECT_EQ(answers.owner(), owner);
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
    EXPECT_EQ(GetActiveWindow(), top.handle());
}

TEST_F(Forms, AQuitMessageEndsAModalFormAndIsPostedAgain) {
    whenOpen([] { PostQuitMessage(9); });
    desktop.showModal(form);
    EXPECT_FALSE(desktop.isOpen(form));
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 9U);
}

TEST_F(Forms, AModalFormEndsWithItsOwner) {
    auto owner = std::make_unique<TopWindow>(500, 400);
    desktop.setSite({.owner = [&] { return owner ? owner->handle() : nullptr; }});
    whenOpen([&] { owner.reset(); });
    desktop.showModal(form);
    EXPECT_FALSE(desktop.isOpen(form));
    EXPECT_FALSE(form.attached());
    openModeless();
    EXPECT_TRUE(desktop.isOpen(form));
}

TEST_F(Forms, FollowTheirLayout) {
    openModeless();
    const ui::Size before = form.size();
    widgets.explanation.setVisible(false);
    widgets.band.setVisible(false);
    form.fit();
    EXPECT_LT(form.size().height, before.height);
    EXPECT_EQ(form.bounds(), placeOf(window()));
    EXPECT_FALSE(IsWindowVisible(windowOf(widgets.wide)));
    EXPECT_EQ(form.size(), form.wantedSize(ui::Metrics(desktop, 96)));
}

TEST_F(Forms, AreArrangedAnewForOtherDotsPerInch) {
    openModeless();
    const RECT suggested{10, 10, 700, 700};
    SendMessageW(window(), dpiChanged, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested));
    EXPECT_EQ(form.dpi(), 192);
    EXPECT_EQ(form.size(), form.wantedSize(ui::Metrics(desktop, 192)));
    EXPECT_EQ(form.bounds().left, 10);
    EXPECT_EQ(GetWindow(windowOf(widgets.name), GW_OWNER), nullptr);
    EXPECT_EQ(placeOf(windowOf(widgets.name)).height(), widgets.name.bounds().height());
}

TEST_F(Forms, WhatIsInAFrameIsHiddenAndDisabledWithIt) {
    openModeless();
    widgets.band.setEnabled(false);
    EXPECT_FALSE(IsWindowEnabled(windowOf(widgets.wide)));
    widgets.band.setEnabled(true);
    EXPECT_TRUE(IsWindowEnabled(windowOf(widgets.wide)));
    widgets.band.setVisible(false);
    EXPECT_FALSE(IsWindowVisible(windowOf(widgets.wide)));
    EXPECT_TRUE(widgets.wide.visible());
}

TEST_F(Forms, AMessageBoxInLostFocusDoesNotSwallowTheClick) {
    const BoxAnswers answers(desktop, IDOK);
    std::vector<std::string> happened;
    widgets.name.LostFocus.connect([&] {
        happened.emplace_back("lost");
        desktop.show({.text = "Invalid"});
    });
    widgets.apply.Click.connect([&] { happened.emplace_back("click"); });
    openModeless();
    const LPARAM at = MAKELPARAM(5, 5);
    PostMessageW(windowOf(widgets.apply), WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(windowOf(widgets.apply), WM_LBUTTONUP, 0, at);
    until([&] { return happened.size() == 2; });
    EXPECT_EQ(happened, (std::vector<std::string>{"lost", "click"}));
    EXPECT_EQ(answers.texts(), std::vector<std::string>{"Invalid"});
}

TEST_F(Forms, EndWithTheirDesktop) {
    auto other = std::make_unique<WindowsDesktop>();
    FormWidgets own(*other);
    other->showModeless(own.form);
    ASSERT_NE(window(), nullptr);
    other.reset();
    EXPECT_EQ(window(), nullptr);
    EXPECT_FALSE(own.form.attached());
}

TEST_F(Forms, HoldTheirOwnerDuringAMessage) {
    int held = 0;
    int mostHeld = 0;
    desktop.setSite({.holder = [&]() -> std::shared_ptr<void> {
        ++held;
        return {static_cast<void*>(&held), [](void* count) { --*static_cast<int*>(count); }};
    }});
    const auto look = [&] { mostHeld = std::max(mostHeld, held); };
    openModeless();
    for (const auto& event : {&widgets.ok.Click, &widgets.note.GotFocus, &form.CloseBox}) {
        event->connect(look);
    }
    for (const auto& act : std::vector<std::function<void()>>{[&] { key(VK_RETURN); }, [&] { key(VK_TAB); },
                                                              [&] { key(VK_F4, {VK_MENU}); }}) {
        mostHeld = 0;
        act();
        EXPECT_GE(mostHeld, 1);
        EXPECT_EQ(held, 0);
    }
}

// ---- what keeps the module loaded

TEST(FormResources, CountWhileTheyAreOpen) {
    const long before = win::uses();
    {
        const TopWindow top(400, 300);
        WindowsDesktop desktop;
        FormWidgets widgets(desktop);
        const long bare = win::uses();
        desktop.showModeless(widgets.form);
        EXPECT_EQ(win::uses(), bare + 2) << "the window and its hook";
        desktop.hide(widgets.form);
        EXPECT_EQ(win::uses(), bare);
        desktop.doEvents();
    }
    EXPECT_EQ(win::uses(), before);
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    EXPECT_FALSE(GetClassInfoExW(win::moduleHandle(), win::classNameOf(formKind).c_str(), &description));
}

}  // namespace
}  // namespace telvar::win32
