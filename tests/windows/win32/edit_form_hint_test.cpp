// The hint at the foot of the channel edit form as screen readers hear it, marked fields when the focus comes back to
// them from a box or another window, and RF modes that Tab has to reach.
#include "edit_form_world.h"

// clang-format off
#include <ole2.h>
#include <oleacc.h>
// clang-format on

#include <algorithm>

#include "win/text.h"
#include "win32/convert.h"

namespace telvar::win32 {
namespace {

using Names = std::vector<std::string>;

class EditFormHint : public EditFormWorld {
protected:
    EditFormHint() {
        open();
        field = CreateWindowW(L"EDIT", L"", WS_CHILD | WS_VISIBLE, 5, 5, 100, 20, top.handle(), nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    }
    // The user goes to the host's window, and what marks a field happens meanwhile.
    void goElsewhere() {
        SetActiveWindow(top.handle());
        SetFocus(field);
        pump();
        ASSERT_EQ(GetFocus(), field);
    }
    [[nodiscard]] static bool isRed(const ui::Widget& widget) { return widget.foreColor() == ui::red; }
    // What a screen reader finds under a window.
    [[nodiscard]] static std::string accessibleName(HWND window) {
        IAccessible* object = nullptr;
        if (AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                       reinterpret_cast<void**>(&object)) != S_OK) {
            return "(none)";
        }
        VARIANT self;
        VariantInit(&self);
        self.vt = VT_I4;
        self.lVal = CHILDID_SELF;
        BSTR text = nullptr;
        object->get_accName(self, &text);
        object->Release();
        const std::string name = text != nullptr ? win::narrow({text, SysStringLen(text)}) : "";
        SysFreeString(text);
        return name;
    }

    HWND field = nullptr;  // of the host
};

// -- the focus comes back --------------------------------------------------------------------------------------------

TEST_F(EditFormHint, AMarkedFieldTurnsBlackWhenTheFocusComesBackFromAnotherWindow) {
    for (ui::Widget* const marked :
         std::initializer_list<ui::Widget*>{&form->txtTxFrequency, &form->cmbTxSubtone, &form->txtTransmitPower}) {
        focus(*marked);
        goElsewhere();
        marked->setForeColor(ui::red);
        SetActiveWindow(window());
        pump();
        EXPECT_EQ(focusedField(), marked->name());
        EXPECT_EQ(textColour(*marked), RGB(0, 0, 0)) << marked->name();
    }
}

TEST_F(EditFormHint, AMarkedFieldTurnsBlackWhenTheFocusComesBackFromABox) {
    focus(form->txtTxFrequency);
    {
        const BoxAnswers answers(desktop, IDOK);
        form->txtTxFrequency.setForeColor(ui::red);
        desktop.show({.text = "Something else.", .title = "Bench 3"});
        pump();
        EXPECT_EQ(answers.texts(), Names{"Something else."});
    }
    EXPECT_EQ(focusedField(), "txtTxFrequency");
    EXPECT_EQ(textColour(form->txtTxFrequency), RGB(0, 0, 0));
}

TEST_F(EditFormHint, ATextThatComesBackIntoUseKeepsItsSelection) {
    focus(form->txtTxFrequency);
    SendMessageW(windowOf(form->txtTxFrequency), EM_SETSEL, 2, 4);
    goElsewhere();
    SetActiveWindow(window());
    pump();
    EXPECT_EQ(selectedText(form->txtTxFrequency), windowText(windowOf(form->txtTxFrequency)).substr(2, 2));
}

TEST_F(EditFormHint, AClickFromElsewhereIntoAnotherFieldLeavesTheMarkedOneRed) {
    focus(form->txtTxFrequency);
    goElsewhere();
    form->txtTxFrequency.setForeColor(ui::red);
    SetActiveWindow(window());
    SetFocus(windowOf(form->txtRxFrequency));
    pump();
    EXPECT_EQ(focusedField(), "txtRxFrequency");
    EXPECT_TRUE(isRed(form->txtTxFrequency));
}

TEST_F(EditFormHint, NoFieldIsLeftBecauseAnotherWindowIsInFront) {
    Names told;
    form->txtTxFrequency.GotFocus.connect([&] { told.emplace_back("got"); });
    form->txtTxFrequency.LostFocus.connect([&] { told.emplace_back("lost"); });
    form->txtTxFrequency.FocusReturned.connect([&] { told.emplace_back("returned"); });
    focus(form->txtTxFrequency);
    goElsewhere();
    SetActiveWindow(window());
    pump();
    goElsewhere();
    SetActiveWindow(window());
    pump();
    focus(form->txtRxFrequency);
    EXPECT_EQ(told, (Names{"got", "returned", "returned", "lost"}));
}

// -- screen readers --------------------------------------------------------------------------------------------------

std::vector<HWND>* announced = nullptr;

void CALLBACK hear(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG, DWORD, DWORD) noexcept {
    if (object == OBJID_CLIENT) {
        announced->push_back(window);
    }
}

TEST_F(EditFormHint, IsSpokenWhenAFieldIsLeftWithoutANumberAndWhenTheUserComesBackToIt) {
    constexpr DWORD liveRegionChanged = 0x8019;
    std::vector<HWND> heard;
    announced = &heard;
    const HWINEVENTHOOK hook = SetWinEventHook(liveRegionChanged, liveRegionChanged, nullptr, hear,
                                               GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
    focus(form->txtTxFrequency);
    key('X');
    key(VK_TAB);
    until([&] { return !heard.empty(); });
    const HWND hint = windowOf(form->lblHint);
    EXPECT_EQ(heard, std::vector<HWND>{hint});
    EXPECT_EQ(accessibleName(hint), "\"x\" in \"Tx Frequency (MHz)\" is not a number and is not stored.");
    EXPECT_TRUE(IsWindowVisible(hint));
    key(VK_TAB, {VK_SHIFT});
    until([&] { return heard.size() == 2; });
    EXPECT_EQ(focusedField(), "txtTxFrequency");
    key('1');
    key(VK_TAB);
    pump();
    EXPECT_EQ(accessibleName(hint), "");
    EXPECT_EQ(heard.size(), 2U) << "silence is not spoken";
    UnhookWinEvent(hook);
}

TEST_F(EditFormHint, TheButtonsStayWhereTheyAreWhenItSpeaks) {
    RECT before{};
    GetWindowRect(windowOf(form->cmdApply), &before);
    focus(form->txtTxFrequency);
    key('X');
    key(VK_TAB);
    ASSERT_FALSE(form->lblHint.caption().empty());
    RECT after{};
    GetWindowRect(windowOf(form->cmdApply), &after);
    EXPECT_TRUE(EqualRect(&before, &after));
}

// -- RF modes --------------------------------------------------------------------------------------------------------

TEST_F(EditFormHint, TabReachesTheModesAlsoWhereTheMarkedOneIsDisabled) {
    table->put(StoreMember::P25BoardFitted, false);
    load({{ChannelKey::p25RepeaterEnable, true}});
    pump();
    ASSERT_TRUE(form->optRFMode[3].value());
    ASSERT_FALSE(form->optRFMode[3].enabled());
    focus(form->cmbRxSubtone);
    key(VK_TAB);
    EXPECT_EQ(focusedField(), "optRFMode(0)");
    EXPECT_TRUE(form->optRFMode[3].value()) << "reaching is not choosing";
    key(VK_TAB);
    EXPECT_EQ(focusedField(), "ckSimplexChannel");
    key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(focusedField(), "optRFMode(0)");
    key(VK_DOWN);
    EXPECT_TRUE(form->optRFMode[1].value());
}

TEST_F(EditFormHint, AClickOnTheMarkedModeAppliesItsRuleAgain) {
    form->optRFMode[2].setValue(true);
    pump();
    click(windowOf(form->ckTtrChannel));
    ASSERT_FALSE(form->ckTtrChannel.checked());
    click(windowOf(form->optRFMode[2]));
    pump();
    EXPECT_TRUE(form->ckTtrChannel.checked());
    form->ckTtrChannel.setValue(0);
    key('G', {VK_MENU});
    EXPECT_TRUE(form->ckTtrChannel.checked());
}

}  // namespace
}  // namespace telvar::win32
