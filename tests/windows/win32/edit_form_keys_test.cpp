// The channel edit form under the keyboard, in the project's own message loop and in a host's that only translates and
// dispatches.
#include "edit_form_world.h"

#include <algorithm>
#include <cctype>
#include <map>

#include "win32/convert.h"

namespace telvar::win32 {
namespace {

using Names = std::vector<std::string>;
using editform::RfMode;

class EditFormKeys : public EditFormWorld, public testing::WithParamInterface<bool> {
protected:
    EditFormKeys() { inForeignLoop = GetParam(); }
    void type(std::initializer_list<WORD> codes) {
        for (const WORD code : codes) {
            key(code);
        }
    }
    [[nodiscard]] ui::OptionButton& mode(RfMode mode) { return form->optRFMode[static_cast<std::size_t>(mode)]; }
};

INSTANTIATE_TEST_SUITE_P(Loops, EditFormKeys, testing::Bool(),
                         [](const auto& loop) { return loop.param ? "Foreign" : "Own"; });

const Names settings{"txtEditChannel", "optWideBand",      "txtTxFrequency",    "txtRxFrequency", "txtRxLocalOscFreq",
                     "optTxCtcss",     "cmbTxSubtone",     "txtTxSubtoneLevel", "optRxCtcss",     "cmbRxSubtone",
                     "optRFMode(1)",   "ckSimplexChannel", "ckTtrChannel",      "ckScanChannel",  "ckDataMode"};
const Names p25{"optP25TransmitMode(0)", "chkP25RepeaterEnable",      "chkTTRAnalogDataMode",
                "txtP25TalkgroupID",     "txtP25TxNetworkAccessCode", "txtP25RxNetworkAccessCode"};
const Names synthesizers{"txtTxSynthStepSize",   "cmbTxModulo",        "txtTxAccelIntegral", "cmbTxAccelProportion",
                         "txtTxBinaryMain",      "txtRxSynthStepSize", "cmbRxModulo",        "txtRxAccelIntegral",
                         "cmbRxAccelProportion", "txtRxBinaryMain"};
const Names levels{"sldTransmitPower",          "txtTransmitPower",  "sldRefOscFreq", "txtRefOscFreq",
                   "sldVcoDeviation",           "txtVcoDeviation",   "sldRefOscDev",  "txtRefOscDev",
                   "ckContinuousUpdateEnabled", "ckLockVcoRefOscDev"};
const Names buttons{"cmdAdvanced", "cmdOk", "cmdCancel", "cmdApply"};

// From the first one round to the first one.
Names round(std::initializer_list<Names> parts) {
    Names all;
    for (const Names& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    all.push_back(all.front());
    return all;
}

Names backwards(Names names) {
    std::ranges::reverse(names);
    return names;
}

TEST_P(EditFormKeys, TabPassesEveryFieldInReadingOrderAtFullAccess) {
    open(5);
    const Names all = round({settings, p25, synthesizers, levels, buttons});
    EXPECT_EQ(stops({}), all);
    EXPECT_EQ(stops({VK_SHIFT}), backwards(all));
}

TEST_P(EditFormKeys, TabPassesWhatIsShownAtTheLowestAccess) {
    open(0);
    const Names all = round({settings, buttons});
    EXPECT_EQ(stops({}), all);
    EXPECT_EQ(stops({VK_SHIFT}), backwards(all));
}

TEST_P(EditFormKeys, TabPassesTheCodesAndTheNarrowLevelsWhereTheyAreShown) {
    open(5);
    form->optTxDcs.setValue(true);
    form->optNarrowBand.setValue(true);
    const Names names = stops({});
    for (const char* const name : {"cmbTxDcs", "optTxDcs", "sldNBRefOscFreq", "txtNBRefOscDev"}) {
        EXPECT_TRUE(std::ranges::find(names, name) != names.end()) << name;
    }
    for (const char* const name : {"cmbTxSubtone", "optTxCtcss", "sldRefOscFreq", "txtRefOscDev"}) {
        EXPECT_TRUE(std::ranges::find(names, name) == names.end()) << name;
    }
}

// What an access key leads to: the widget itself, or what a label or a frame stands before.
ui::Widget& targetOf(const editform::frmChannelEdit& form, std::size_t position) {
    const auto& children = form.children();
    const auto leads = [](const ui::Widget* widget) {
        return widget->isShown() && dynamic_cast<const ui::Label*>(widget) == nullptr &&
               dynamic_cast<const ui::Frame*>(widget) == nullptr;
    };
    return **std::find_if(children.begin() + static_cast<std::ptrdiff_t>(position), children.end(), leads);
}

TEST_P(EditFormKeys, EveryAccessKeyIsOfOneWidgetAndLeadsToIt) {
    for (const bool narrow : {false, true}) {
        open(5);
        (narrow ? form->optNarrowBand : form->optWideBand).setValue(true);
        std::map<char, std::string> keys;
        for (std::size_t at = 0; at < form->children().size(); ++at) {
            const ui::Widget& widget = *form->children()[at];
            const auto mark = widget.caption().find('&');
            const bool ends = dynamic_cast<const ui::Button*>(&widget) != nullptr;
            const bool changesBand = widget.frame() == &form->frChannelSpacing || widget.frame() == &form->frRfMode;
            if (!widget.isShown() || mark == std::string::npos) {
                continue;
            }
            const auto letter = static_cast<char>(std::toupper(static_cast<unsigned char>(widget.caption()[mark + 1])));
            EXPECT_TRUE(keys.emplace(letter, widget.name()).second) << letter << ": " << keys[letter];
            if (ends || changesBand) {
                continue;
            }
            key(static_cast<WORD>(letter), {VK_MENU});
            EXPECT_EQ(focusedField(), targetOf(*form, at).name()) << letter;
        }
        EXPECT_GT(keys.size(), 25U);
        desktop.hide(*form);
    }
}

TEST_P(EditFormKeys, AnAccessKeyChoosesAnOptionAndPressesAButton) {
    open(5);
    key('G', {VK_MENU});
    EXPECT_TRUE(mode(RfMode::AnalogRepeater).value());
    EXPECT_TRUE(form->ckTtrChannel.checked());
    key('N', {VK_MENU});
    EXPECT_TRUE(form->optNarrowBand.value());
    key('C', {VK_MENU});
    EXPECT_EQ(events, Names{"OpenLoginWithChannelEdit"});
    events.clear();
    key('A', {VK_MENU});
    EXPECT_EQ(events, (Names{"DataChanged", "NeedToUpdateFlexGrid 7"}));
    EXPECT_TRUE(desktop.isOpen(*form));
    events.clear();
    key('O', {VK_MENU});
    EXPECT_EQ(events, (Names{"DataChanged", "NeedToUpdateFlexGrid 7", "EditClosed"}));
    EXPECT_FALSE(desktop.isOpen(*form));
}

TEST_P(EditFormKeys, EscapeIsCancel) {
    open(5);
    focus(form->txtTxFrequency);
    type({'1', VK_ESCAPE});
    EXPECT_EQ(events, Names{"EditClosed"});
    EXPECT_TRUE(form->cancelled());
    EXPECT_FALSE(desktop.isOpen(*form));
    EXPECT_EQ(table->channelValue(number - 1, ChannelKey::TxFreq), base::Value{145'000'000});
}

TEST_P(EditFormKeys, EnterInAFrequencyBoxMovesToOkWhichTheNextPresses) {
    for (ui::TextBox* const box : {&form->txtTxFrequency, &form->txtRxFrequency}) {
        open(5);
        events.clear();
        focus(*box);
        key(VK_RETURN);
        EXPECT_EQ(focusedField(), "cmdOk");
        EXPECT_TRUE(events.empty());
        key(VK_RETURN);
        EXPECT_EQ(events, (Names{"DataChanged", "NeedToUpdateFlexGrid 7", "EditClosed"}));
        EXPECT_FALSE(desktop.isOpen(*form));
    }
}

TEST_P(EditFormKeys, EnterInAnyOtherFieldDoesNothing) {
    open(5);
    for (ui::Widget* const field : std::initializer_list<ui::Widget*>{&form->txtTxSubtoneLevel, &form->cmbTxSubtone,
                                                                      &form->ckScanChannel, &form->txtTransmitPower}) {
        focus(*field);
        key(VK_RETURN);
        EXPECT_EQ(focusedField(), field->name());
    }
    EXPECT_TRUE(events.empty());
    EXPECT_TRUE(desktop.isOpen(*form));
}

TEST_P(EditFormKeys, EnterPressesTheFocusedButton) {
    open(5);
    for (ui::Button* const button : {&form->cmdAdvanced, &form->cmdApply, &form->cmdCancel}) {
        focus(*button);
        key(VK_RETURN);
    }
    EXPECT_EQ(events, (Names{"OpenLoginWithChannelEdit", "DataChanged", "NeedToUpdateFlexGrid 7", "EditClosed"}));
}

TEST_P(EditFormKeys, ArrowsChooseTheModeAndItsRuleFollows) {
    open(5);
    focus(mode(RfMode::Duplex));
    key(VK_DOWN);
    EXPECT_TRUE(mode(RfMode::AnalogRepeater).value());
    EXPECT_TRUE(form->ckTtrChannel.checked());
    key(VK_DOWN);
    EXPECT_TRUE(mode(RfMode::P25Repeater).value());
    EXPECT_TRUE(form->optNarrowBand.value());
    EXPECT_EQ(focusedField(), "optRFMode(3)");
    table->put(StoreMember::P25BoardFitted, false);
    form->UpdateAccess(5);
    focus(mode(RfMode::AnalogRepeater));
    key(VK_RIGHT);
    EXPECT_TRUE(mode(RfMode::Simplex).value()) << "passes over what is disabled";
    key(VK_LEFT);
    EXPECT_TRUE(mode(RfMode::AnalogRepeater).value());
}

TEST_P(EditFormKeys, ArrowsChooseTheKindOfSubtone) {
    open(0);
    focus(form->optTxCtcss);
    key(VK_RIGHT);
    EXPECT_TRUE(form->optTxDcs.value());
    EXPECT_EQ(form->lblTxDcsSubtone.caption(), "Tx DCS Code");
    key(VK_TAB);
    EXPECT_EQ(focusedField(), "cmbTxDcs");
}

TEST_P(EditFormKeys, ALevelRisesAndFallsByTheKeysOfItsSlider) {
    load({{ChannelKey::TxPower, 100}});
    open(5);
    focus(form->sldTransmitPower);
    Names shown;
    for (const WORD code : std::initializer_list<WORD>{VK_UP, VK_PRIOR, VK_DOWN, VK_NEXT, VK_HOME, VK_END}) {
        key(code);
        shown.push_back(windowText(windowOf(form->txtTransmitPower)));
    }
    EXPECT_EQ(shown, (Names{"101", "111", "110", "100", "255", "0"}));
    EXPECT_EQ(focusedField(), "sldTransmitPower");
}

TEST_P(EditFormKeys, ALevelThatIsTypedMovesItsSlider) {
    open(5);
    focus(form->txtVcoDeviation);
    form->txtVcoDeviation.selectAll();
    type({'7', '7', VK_TAB});
    EXPECT_EQ(form->sldVcoDeviation.value(), -77);
    EXPECT_EQ(SendMessageW(windowOf(form->sldVcoDeviation), WM_USER, 0, 0), -77) << "the position of the control";
}

TEST_P(EditFormKeys, ATonesListIsTypedInto) {
    open(0);
    focus(form->optTxCtcss);
    key(VK_TAB);
    ASSERT_EQ(focusedField(), "cmbTxSubtone");
    type({'8', '8', VK_OEM_PERIOD, '5'});
    EXPECT_EQ(form->cmbTxSubtone.text(), "88.5");
    key(VK_TAB);
    EXPECT_EQ(textColour(form->cmbTxSubtone), RGB(0, 0, 0));
    key('A', {VK_MENU});
    EXPECT_EQ(table->channelValue(number - 1, ChannelKey::TxSub), base::Value{88.5F});
}

TEST_P(EditFormKeys, WhatIsNoToneTurnsRedAndBlackAgain) {
    open(0);
    focus(form->optRxCtcss);
    key(VK_TAB);
    ASSERT_EQ(focusedField(), "cmbRxSubtone");
    type({'X', 'Y', VK_TAB});
    EXPECT_EQ(textColour(form->cmbRxSubtone), RGB(255, 0, 0));
    key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(focusedField(), "cmbRxSubtone");
    EXPECT_EQ(textColour(form->cmbRxSubtone), RGB(0, 0, 0));
}

TEST_P(EditFormKeys, AListIsUsedByTheKeyboard) {
    open(5);
    focus(form->cmbTxAccelProportion);
    type({VK_DOWN, VK_DOWN});
    EXPECT_EQ(form->cmbTxAccelProportion.text(), "2");
    key(VK_UP);
    EXPECT_EQ(form->cmbTxAccelProportion.text(), "1");
    key('3');
    EXPECT_EQ(form->cmbTxAccelProportion.text(), "3");
    const HWND list = windowOf(form->cmbTxAccelProportion);
    type({VK_F4});
    EXPECT_TRUE(SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0));
    type({VK_UP, VK_RETURN});
    EXPECT_FALSE(SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_EQ(form->cmbTxAccelProportion.text(), "2");
    type({VK_F4, VK_ESCAPE});
    EXPECT_FALSE(SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(desktop.isOpen(*form));
    EXPECT_TRUE(events.empty());
}

TEST_P(EditFormKeys, AMarkedBoxTurnsBlackAndIsSelectedWhollyOnFocus) {
    open(5);
    for (ui::TextBox* const box :
         {&form->txtEditChannel, &form->txtTxFrequency, &form->txtRxFrequency, &form->txtTxSubtoneLevel,
          &form->txtTxSynthStepSize, &form->txtRxSynthStepSize, &form->txtTxAccelIntegral, &form->txtRxAccelIntegral,
          &form->txtTxBinaryMain, &form->txtRxBinaryMain}) {
        focus(form->cmdApply);
        box->setForeColor(ui::red);
        EXPECT_EQ(textColour(*box), RGB(255, 0, 0)) << box->name();
        focus(*box);
        EXPECT_EQ(textColour(*box), RGB(0, 0, 0)) << box->name();
        EXPECT_EQ(selectedText(*box), box->text()) << box->name();
        EXPECT_FALSE(box->text().empty()) << box->name();
    }
}

TEST_P(EditFormKeys, TypingReplacesTheSelectedFrequency) {
    open(0);
    focus(form->optWideBand);
    type({VK_TAB, '4', '5', '0', VK_OEM_PERIOD, '1', VK_TAB});
    EXPECT_EQ(windowText(windowOf(form->txtTxFrequency)), "450.100000");
    EXPECT_EQ(focusedField(), "txtRxFrequency");
}

}  // namespace
}  // namespace telvar::win32
