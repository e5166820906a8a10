// The channel edit form as a window over a host's: what is usable while it is open, while it stores, and when it ends.
#include "edit_form_world.h"

#include <chrono>
#include <iostream>

#include "ui/menu.h"
#include "win32/convert.h"

namespace telvar::win32 {
namespace {

using Names = std::vector<std::string>;

class EditFormWindow : public EditFormWorld {
protected:
    [[nodiscard]] bool isIn(HWND child, HWND parent) const {
        RECT at{};
        RECT room{};
        GetWindowRect(child, &at);
        GetClientRect(parent, &room);
        MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&at), 2);
        return rectOf(at).intersected(rectOf(room)) == rectOf(at);
    }
};

TEST_F(EditFormWindow, LeavesItsOwnerInUse) {
    open();
    const HWND field = CreateWindowW(L"EDIT", L"", WS_CHILD | WS_VISIBLE, 5, 5, 100, 20, top.handle(), nullptr,
                                     GetModuleHandleW(nullptr), nullptr);
    EXPECT_EQ(GetWindow(window(), GW_OWNER), top.handle());
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
    const HWND before = window();
    SetActiveWindow(top.handle());
    SetFocus(field);
    for (const WORD code : std::initializer_list<WORD>{'A', VK_TAB, VK_ESCAPE}) {
        key(code);
    }
    EXPECT_EQ(windowText(field).substr(0, 1), "a");
    EXPECT_EQ(window(), before);
    EXPECT_TRUE(events.empty());
    EXPECT_TRUE(modeless.empty());
}

TEST_F(EditFormWindow, EndsWithItsOwnerAndLivesOn) {
    open();
    focus(form->txtTxFrequency);
    key('1');
    DestroyWindow(top.handle());
    pump();
    EXPECT_EQ(window(), nullptr);
    EXPECT_FALSE(desktop.isOpen(*form));
    EXPECT_FALSE(form->attached());
    EXPECT_FALSE(form->txtTxFrequency.attached());
    form->refresh();
    form->cmdApply.userPress();
    EXPECT_EQ(events, (Names{"DataChanged", "NeedToUpdateFlexGrid 7"}));
}

TEST_F(EditFormWindow, IsDisabledUnderTheHourglassWhileItStores) {
    const HCURSOR hourglass = LoadCursorW(nullptr, IDC_WAIT);
    open();
    for (ui::Button* const button : {&form->cmdApply, &form->cmdOk}) {
        bool seen = false;
        const auto watching = form->DataChanged.connectScoped([&] {
            seen = true;
            EXPECT_FALSE(IsWindowEnabled(window()));
            EXPECT_EQ(GetCursor(), hourglass);
            // The pointer also stays so when it moves over the form.
            SendMessageW(window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(window()),
                         MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
            EXPECT_EQ(GetCursor(), hourglass);
            press(VK_ESCAPE);
            pump();
            EXPECT_TRUE(desktop.isOpen(*form));
        });
        focus(*button);
        key(VK_RETURN);
        EXPECT_TRUE(seen) << button->name();
        EXPECT_NE(GetCursor(), hourglass);
    }
    EXPECT_FALSE(desktop.isOpen(*form));
    EXPECT_TRUE(form->enabled());
    EXPECT_FALSE(form->cancelled());
}

TEST_F(EditFormWindow, HasTheFocusWhereItWasAfterItStored) {
    open();
    focus(form->txtRxFrequency);
    key('A', {VK_MENU});
    EXPECT_TRUE(IsWindowEnabled(window()));
    EXPECT_EQ(focusedField(), "cmdApply");
    key(VK_TAB);
    EXPECT_EQ(focusedField(), "txtEditChannel");
    focus(form->txtRxFrequency);
    form->cmdApply.userPress();
    pump();
    EXPECT_EQ(focusedField(), "txtRxFrequency");
    key(VK_END);
    key('5');
    EXPECT_EQ(windowText(windowOf(form->txtRxFrequency)), "145.6000005");
    EXPECT_EQ(events, (Names{"DataChanged", "NeedToUpdateFlexGrid 7", "DataChanged", "NeedToUpdateFlexGrid 7"}));
    // A system may take the focus from a disabled window.
    form->DataChanged.connect([] { SetFocus(nullptr); });
    focus(form->cmdApply);
    key(VK_RETURN);
    EXPECT_EQ(focusedField(), "cmdApply");
    EXPECT_EQ(events.size(), 6U);
}

TEST_F(EditFormWindow, StaysOpenWithARefusedFieldInRed) {
    const BoxAnswers answers(desktop, IDOK);
    open();
    focus(form->txtTxFrequency);
    for (const WORD code : std::initializer_list<WORD>{'5', VK_RETURN, VK_RETURN}) {
        key(code);
    }
    EXPECT_EQ(answers.texts(), Names{"Transmit frequency must be between 10 and 1000 MHz or 0 to disable."});
    EXPECT_EQ(answers.owner(), window());
    EXPECT_TRUE(IsWindowEnabled(window()));
    EXPECT_TRUE(IsWindowEnabled(top.handle()));
    EXPECT_EQ(textColour(form->txtTxFrequency), RGB(255, 0, 0));
    EXPECT_EQ(focusedField(), "cmdOk");
    EXPECT_EQ(GetActiveWindow(), window());
}

TEST_F(EditFormWindow, TheCloseBoxHidesItWithoutAnEvent) {
    open();
    SendMessageW(window(), WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_FALSE(desktop.isOpen(*form));
    EXPECT_TRUE(form->closing());
    EXPECT_TRUE(events.empty());
}

TEST_F(EditFormWindow, TheFocusLeavesWhatLessAccessHides) {
    open(5);
    focus(form->sldTransmitPower);
    form->UpdateAccess(0);
    pump();
    EXPECT_FALSE(focusedField().empty());
    EXPECT_TRUE(IsWindowVisible(GetFocus()));
    key(VK_TAB);
    EXPECT_TRUE(IsWindowVisible(GetFocus()));
}

TEST_F(EditFormWindow, TakesAsMuchRoomAsItsAccessNeedsAndStaysOnTheScreen) {
    SetWindowPos(top.handle(), nullptr, 700, 600, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    open(0);
    const ui::Size little = form->size();
    form->UpdateAccess(5);
    EXPECT_GT(form->size().width, little.width);
    EXPECT_GT(form->size().height, little.height);
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    EXPECT_EQ(form->bounds().intersected(rectOf(screen)), form->bounds());
}

TEST_F(EditFormWindow, EveryFieldCanBeReachedWhereTheScreenIsTooSmall) {
    open(5);
    constexpr UINT dpiChanged = 0x02E0;
    constexpr int dpi = 288;
    const RECT suggested{0, 0, 3000, 3000};
    SendMessageW(window(), dpiChanged, static_cast<WPARAM>(MAKELONG(dpi, dpi)), reinterpret_cast<LPARAM>(&suggested));
    pump();
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    EXPECT_EQ(form->bounds().intersected(rectOf(screen)), form->bounds());
    ASSERT_NE(GetWindowLongW(window(), GWL_STYLE) & WS_VSCROLL, 0);
    const std::string first = focusedField();
    int seen = 0;
    do {
        key(VK_TAB);
        ++seen;
        ASSERT_TRUE(isIn(GetFocus(), window())) << focusedField();
    } while (focusedField() != first && seen < 80);
    EXPECT_EQ(seen, 45);
}

// For people; the numbers depend on the machine.
TEST_F(EditFormWindow, IsPaintedWhenItsMessagesAreHandled) {
    using Clock = std::chrono::steady_clock;
    form->UpdateAccess(5);
    for (const char* const which : {"first", "second", "third"}) {
        const auto start = Clock::now();
        desktop.showModeless(*form);
        const auto shown = Clock::now();
        pump();
        GdiFlush();
        const auto painted = Clock::now();
        const auto ms = [](auto time) { return std::chrono::duration<double, std::milli>(time).count(); };
        std::cout << "edit form, " << which << " time: window " << ms(shown - start) << " ms, painted "
                  << ms(painted - start) << " ms\n";
        EXPECT_FALSE(GetUpdateRect(window(), nullptr, FALSE));
        for (const ui::Widget* const child : form->children()) {
            if (child->isShown()) {
                EXPECT_FALSE(GetUpdateRect(windowOf(*child), nullptr, FALSE)) << child->name();
            }
        }
        desktop.hide(*form);
    }
}

// ---- the end of the form inside its own events: its owner holds it to the end of the message

class QuietLink : public model::RadioLink {
public:
    void SendChannelTable() override {}
    void LoadChannelTable(std::string& /*text*/, bool& /*flag*/) override {}
    void AbortTransfer() override {}
    void SendPotValues(std::string& /*text*/) override {}
    void SelectChannel(std::string& /*channel*/) override {}
};

class EndingEditForm : public EditFormWorld {
protected:
    EndingEditForm() {
        form->setRadioComms(std::make_shared<QuietLink>());
        desktop.setSite({.owner = [this] { return top.handle(); }, .holder = [this] { return form; }});
        watched = form;
        open(5);
    }
    void end() { form.reset(); }
    void expectGone() {
        pump();
        EXPECT_TRUE(watched.expired());
        EXPECT_EQ(window(), nullptr);
    }

    std::weak_ptr<editform::frmChannelEdit> watched;
};

TEST_F(EndingEditForm, DataChanged) {
    form->DataChanged.connect([&] { end(); });
    key('A', {VK_MENU});
    expectGone();
}

TEST_F(EndingEditForm, NeedToUpdateFlexGrid) {
    form->NeedToUpdateFlexGrid.connect([&](std::int16_t& /*row*/) { end(); });
    key('O', {VK_MENU});
    expectGone();
}

TEST_F(EndingEditForm, EditClosedByOk) {
    form->EditClosed.connect([&] { end(); });
    key('O', {VK_MENU});
    expectGone();
}

TEST_F(EndingEditForm, EditClosedByEscape) {
    form->EditClosed.connect([&] { end(); });
    key(VK_ESCAPE);
    expectGone();
}

TEST_F(EndingEditForm, OpenLoginWithChannelEdit) {
    form->OpenLoginWithChannelEdit.connect([&] { end(); });
    key('C', {VK_MENU});
    expectGone();
}

TEST_F(EndingEditForm, PauseDiagnosticsIfRunning) {
    form->PauseDiagnosticsIfRunning.connect([&] { end(); });
    key('U', {VK_MENU});
    ASSERT_TRUE(form->tmrUpdate.enabled());
    until([&] { return watched.expired(); });
    expectGone();
}

TEST_F(EndingEditForm, PopUpMenuClick) {
    form->PopUpMenuClick.connect([&](std::int16_t& /*code*/) { end(); });
    desktop.dispatcher().post([&] { form->mnuPopUpMenuCopy.userChoose(); });
    expectGone();
}

TEST_F(EndingEditForm, TheCloseBox) {
    form->CloseBox.connect([&] { end(); });
    key(VK_F4, {VK_MENU});
    expectGone();
}

TEST_F(EndingEditForm, TheChoiceOfAMode) {
    form->optRFMode[0].Click.connect([&] { end(); });
    key('I', {VK_MENU});
    expectGone();
}

TEST_F(EndingEditForm, TheMoveOfASlider) {
    form->sldTransmitPower.Change.connect([&] { end(); });
    focus(form->sldTransmitPower);
    key(VK_UP);
    expectGone();
}

TEST_F(EndingEditForm, TheLeavingOfAFrequency) {
    form->txtTxFrequency.LostFocus.connect([&] { end(); });
    focus(form->txtTxFrequency);
    key(VK_TAB);
    expectGone();
}

}  // namespace
}  // namespace telvar::win32
