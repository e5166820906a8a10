// How operating mode, bandwidth, subtone kinds and levels act on one another while the user edits, and what leaving a
// field does.
#include "edit_form_world.h"
#include "editform/channel_spacing.h"
#include "synth/proposal.h"

namespace telvar::tests {
namespace {

class Rules : public EditFormWorld {
protected:
    Rules() {
        table->put(StoreMember::RadioConfigurationCode, 7);
        load();
    }
    [[nodiscard]] std::string modes() const {
        return std::to_string(form.ckSimplexChannel.value()) + std::to_string(form.ckTtrChannel.value()) +
               std::to_string(form.chkP25RepeaterEnable.value()) + " " + std::to_string(form.rfModes.selected()) +
               (form.optNarrowBand.value() ? " narrow" : " wide");
    }
};

TEST_F(Rules, ARfModeSetsTheThreeBoxesAndP25ForcesNarrowBand) {
    const std::vector<std::pair<std::size_t, std::string>> rules{
        {0, "100 0 wide"}, {2, "010 2 wide"}, {1, "000 1 wide"}, {3, "001 3 narrow"}, {4, "011 4 narrow"}};
    for (const auto& [mode, result] : rules) {
        form.optRFMode[mode].userClick();
        EXPECT_EQ(modes(), result);
    }
    EXPECT_EQ(form.frChannelSpacing.caption(), "12.5 kHz Narrow Band");
}

TEST_F(Rules, WideBandMovesBothP25ModesToTheAnalogRepeater) {
    for (const std::size_t mode : {3U, 4U}) {
        form.optRFMode[mode].userClick();
        form.optWideBand.userClick();
        EXPECT_EQ(modes(), "010 2 wide");
        EXPECT_EQ(form.frChannelSpacing.caption(), "25.0 kHz Wide Band");
    }
    form.optRFMode[0].userClick();
    form.optNarrowBand.userClick();
    form.optWideBand.userClick();
    EXPECT_EQ(modes(), "100 0 wide");
}

TEST_F(Rules, CheckingSimplexClearsBothRepeaters) {
    form.optRFMode[4].userClick();
    form.ckSimplexChannel.userClick();
    EXPECT_EQ(modes(), "100 0 narrow");
}

TEST_F(Rules, CheckingARepeaterClearsSimplexAndChoosesItsModeAsAClickDoes) {
    form.ckSimplexChannel.userClick();
    form.ckTtrChannel.userClick();
    EXPECT_EQ(modes(), "010 2 wide");
    form.chkP25RepeaterEnable.userClick();
    EXPECT_EQ(modes(), "011 4 narrow");
    form.ckSimplexChannel.userClick();
    form.optWideBand.userClick();
    form.chkP25RepeaterEnable.userClick();
    EXPECT_EQ(modes(), "001 3 narrow");
}

TEST_F(Rules, ChoosingTheMarkedModeAgainAppliesItsRule) {
    form.optRFMode[2].userClick();
    form.ckTtrChannel.userClick();
    EXPECT_EQ(modes(), "000 2 wide");
    form.optRFMode[2].userClick();
    EXPECT_EQ(modes(), "010 2 wide");
    form.optRFMode[4].userClick();
    form.chkP25RepeaterEnable.userClick();
    form.optRFMode[4].userClick();
    EXPECT_EQ(modes(), "011 4 narrow");
}

TEST_F(Rules, ABandOrASubtoneKindThatIsChosenAgainChangesNothing) {
    const auto caption = form.frChannelSpacing.caption();
    form.optWideBand.userClick();
    form.optTxCtcss.userClick();
    EXPECT_EQ(form.frChannelSpacing.caption(), caption);
    EXPECT_FALSE(form.hasUnappliedEdits());
}

TEST_F(Rules, WithoutP25TheBoxIsDisabledAndNoCheckBoxSelectsAGreyedMode) {
    table->put(StoreMember::RadioConfigurationCode, 0);
    load({{ChannelKey::p25RepeaterEnable, true}, {ChannelKey::ModeBits, 0x80}});
    EXPECT_EQ(modes(), "001 3 narrow");
    EXPECT_FALSE(form.chkP25RepeaterEnable.enabled());
    form.chkP25RepeaterEnable.userClick();
    EXPECT_EQ(modes(), "001 3 narrow");
    form.ckTtrChannel.userClick();
    EXPECT_EQ(modes(), "010 2 narrow");
    table->put(StoreMember::P25BoardFitted, true);
    form.UpdateAccess(5);
    EXPECT_TRUE(form.chkP25RepeaterEnable.enabled());
}

TEST_F(Rules, ClearingABoxChangesNothingElse) {
    form.optRFMode[4].userClick();
    form.ckTtrChannel.userClick();
    EXPECT_EQ(modes(), "001 4 narrow");
    form.chkP25RepeaterEnable.userClick();
    EXPECT_EQ(modes(), "000 4 narrow");
    form.ckSimplexChannel.userClick();
    form.ckSimplexChannel.userClick();
    EXPECT_EQ(modes(), "000 0 narrow");
}

TEST_F(Rules, TheBandShowsItsLevels) {
    const std::vector<ui::Widget*> wide{&form.txtRefOscFreq, &form.txtVcoDeviation, &form.txtRefOscDev,
                                        &form.sldRefOscFreq, &form.sldVcoDeviation, &form.sldRefOscDev};
    const std::vector<ui::Widget*> narrow{&form.txtNBRefOscFreq, &form.txtNBVcoDeviation, &form.txtNBRefOscDev,
                                          &form.sldNBRefOscFreq, &form.sldNBVcoDeviation, &form.sldNBRefOscDev};
    for (const bool isNarrow : {true, false}) {
        (isNarrow ? form.optNarrowBand : form.optWideBand).userClick();
        for (const auto* const widget : wide) {
            EXPECT_EQ(widget->visible(), !isNarrow) << widget->name();
        }
        for (const auto* const widget : narrow) {
            EXPECT_EQ(widget->visible(), isNarrow) << widget->name();
        }
        EXPECT_TRUE(form.txtTransmitPower.visible() && form.sldTransmitPower.visible());
    }
}

TEST_F(Rules, NarrowBandJudgesTheP25ControlsAgain) {
    table->put(StoreMember::RadioConfigurationCode, 0);
    EXPECT_TRUE(form.optRFMode[3].enabled());
    form.optNarrowBand.userClick();
    EXPECT_FALSE(form.optRFMode[3].enabled());
}

TEST_F(Rules, TheSubtoneKindShowsItsListAndLabel) {
    form.optTxDcs.userClick();
    form.optRxDcs.userClick();
    EXPECT_EQ(form.lblTxDcsSubtone.caption() + form.lblRxDcsSubtone.caption(), "Tx DCS CodeRx DCS Code");
    EXPECT_TRUE(form.cmbTxDcs.visible() && form.cmbRxDcs.visible());
    EXPECT_FALSE(form.cmbTxSubtone.visible() || form.cmbRxSubtone.visible());
    form.optTxCtcss.userClick();
    form.optRxCtcss.userClick();
    EXPECT_EQ(form.lblTxDcsSubtone.caption() + form.lblRxDcsSubtone.caption(), "Tx Subtone (Hz)Rx Subtone (Hz)");
    EXPECT_FALSE(form.cmbTxDcs.visible() || form.cmbRxDcs.visible());
    EXPECT_TRUE(form.cmbTxSubtone.visible() && form.cmbRxSubtone.visible());
}

// -- channel spacing -------------------------------------------------------------------------------------------------

TEST(ChannelSpacing, HasItsCaptions) {
    using editform::channelSpacingCaption;
    EXPECT_EQ(channelSpacingCaption({.spacing = 12'500}), "12.5 kHz  Narrow Band Channel Spacing");
    EXPECT_EQ(channelSpacingCaption({.spacing = 20'000}), "20.0 kHz  Medium Band Channel Spacing");
    EXPECT_EQ(channelSpacingCaption({.spacing = 30'000}), "30.0 kHz  Data Band Channel Spacing");
    EXPECT_EQ(channelSpacingCaption({.spacing = 50'000}), "50.0 kHz  Cellular Band Channel Spacing");
    EXPECT_EQ(channelSpacingCaption({.spacing = 40'000}), "40.0 kHz  Channel Spacing");
    EXPECT_EQ(channelSpacingCaption({.spacing = 0}), "0.0 kHz  Channel Spacing");
    EXPECT_EQ(channelSpacingCaption({.spacing = 6'250}), "6.3 kHz  Channel Spacing");
    EXPECT_EQ(channelSpacingCaption({.spacing = 24'999}), "25.0 kHz  Channel Spacing");
    EXPECT_EQ(channelSpacingCaption({.spacing = 12'500}, {.decimalSeparator = ','}),
              "12,5 kHz  Narrow Band Channel Spacing");
}

TEST(ChannelSpacing, OfTwentyFiveKilohertzFollowsTheBandwidth) {
    using editform::channelSpacingCaption;
    const auto caption = [](bool switchable, bool only, bool narrow) {
        return channelSpacingCaption(
            {.spacing = 25'000, .bandwidthSwitchable = switchable, .narrowBandOnly = only, .channelIsNarrow = narrow});
    };
    for (const bool narrow : {false, true}) {
        EXPECT_EQ(caption(false, false, narrow), "25.0 kHz  Wide Band Channel Spacing");
        EXPECT_EQ(caption(false, true, narrow), "25.0 kHz  Wide Band Channel Spacing");
        EXPECT_EQ(caption(true, true, narrow), "12.5 kHz Narrow Band Only Channel Spacing");
    }
    EXPECT_EQ(caption(true, false, false), "25.0 kHz  Wide Band Channel Spacing");
    EXPECT_EQ(caption(true, false, true), "12.5 kHz Narrow Band Channel Spacing");
}

// -- levels ----------------------------------------------------------------------------------------------------------

struct Pair {
    ui::Slider& slider;
    ui::TextBox& box;
};

class LevelRules : public Rules {
protected:
    std::vector<Pair> pairs() {
        return {{form.sldTransmitPower, form.txtTransmitPower}, {form.sldRefOscFreq, form.txtRefOscFreq},
                {form.sldVcoDeviation, form.txtVcoDeviation},   {form.sldRefOscDev, form.txtRefOscDev},
                {form.sldNBRefOscFreq, form.txtNBRefOscFreq},   {form.sldNBVcoDeviation, form.txtNBVcoDeviation},
                {form.sldNBRefOscDev, form.txtNBRefOscDev}};
    }
};

TEST_F(LevelRules, SlidersGoFromMinus255ToZero) {
    for (const auto& [slider, box] : pairs()) {
        EXPECT_EQ(slider.minimum(), -255);
        EXPECT_EQ(slider.maximum(), 0);
        EXPECT_EQ(slider.smallChange(), 1);
        EXPECT_EQ(slider.largeChange(), 10);
    }
}

TEST_F(LevelRules, AMovedSliderShowsItsLevelInItsBox) {
    for (const auto& [slider, box] : pairs()) {
        slider.userMoved(-17);
        EXPECT_EQ(box.text(), "17") << box.name();
        slider.userMoved(0);
        EXPECT_EQ(box.text(), "0") << box.name();
    }
    EXPECT_TRUE(link->sent.empty());
    EXPECT_FALSE(desktop.runs(form.tmrUpdate));
}

TEST_F(LevelRules, ALeftBoxMovesItsSliderOrIsReset) {
    struct Case {
        std::string typed;
        int slider;
        std::string shown;
    };
    for (const auto& entry :
         {Case{"1", -1, "1"}, Case{"255", -255, "255"}, Case{"0", 0, "0"}, Case{"256", -99, "99"}, Case{"", -99, "99"},
          Case{"abc", -99, "99"}, Case{"00", -99, "99"}, Case{" 0", -99, "99"}, Case{"-1", -99, "99"},
          Case{"0.4", -99, "99"}, Case{"12.5", -12, "12"}, Case{"13.5", -14, "14"}, Case{"12abc", -12, "12"},
          Case{"255.5", -99, "99"}, Case{"1e9", -99, "99"}, Case{"99 dB", -99, "99"}}) {
        for (const auto& [slider, box] : pairs()) {
            slider.setValue(-99);
            enter(box, entry.typed);
            EXPECT_EQ(slider.value(), entry.slider) << entry.typed;
            EXPECT_EQ(box.text(), entry.shown) << entry.typed;
        }
    }
}

TEST_F(LevelRules, WithoutTheLockASliderMovesAlone) {
    form.sldVcoDeviation.userMoved(-100);
    EXPECT_EQ(form.sldRefOscDev.value(), -128);
}

TEST_F(LevelRules, LockedSlidersOfABandMoveByTheSameAmountBothWays) {
    EXPECT_EQ(form.ckLockVcoRefOscDev.value(), 0);
    form.ckLockVcoRefOscDev.userClick();
    form.sldVcoDeviation.userMoved(-100);
    EXPECT_EQ(form.sldRefOscDev.value(), -100);
    EXPECT_EQ(form.txtRefOscDev.text(), "100");
    form.sldRefOscDev.userMoved(-120);
    EXPECT_EQ(form.sldVcoDeviation.value(), -120);
    form.sldNBVcoDeviation.userMoved(-127);
    EXPECT_EQ(form.sldNBRefOscDev.value(), -127);
    form.sldNBRefOscDev.userMoved(-130);
    EXPECT_EQ(form.sldNBVcoDeviation.value(), -130);
    EXPECT_EQ(form.sldVcoDeviation.value(), -120);
    EXPECT_EQ(form.sldTransmitPower.value(), -128);
}

TEST_F(LevelRules, ALockedSliderIsHeldToItsRange) {
    form.ckLockVcoRefOscDev.userClick();
    form.sldRefOscDev.loadValue(-10);
    form.sldVcoDeviation.userMoved(0);
    EXPECT_EQ(form.sldRefOscDev.value(), 0);
    form.sldVcoDeviation.userMoved(-200);
    EXPECT_EQ(form.sldRefOscDev.value(), -200);
    form.sldVcoDeviation.userMoved(-255);
    EXPECT_EQ(form.sldRefOscDev.value(), -255);
}

TEST_F(LevelRules, LoadingAnotherChannelMovesNothingEvenWithTheLock) {
    form.ckLockVcoRefOscDev.userClick();
    load({{ChannelKey::VCODev, 10}, {ChannelKey::RefOscDev, 20}});
    EXPECT_EQ(form.txtRefOscDev.text(), "20");
    form.sldVcoDeviation.userMoved(-11);
    EXPECT_EQ(form.txtRefOscDev.text(), "21");
}

// -- fields ----------------------------------------------------------------------------------------------------------

TEST_F(Rules, TheTenListedBoxesTurnBlackAndSelectTheirTextOnFocus) {
    for (ui::TextBox* const box :
         {&form.txtEditChannel, &form.txtTxFrequency, &form.txtRxFrequency, &form.txtTxSubtoneLevel,
          &form.txtTxSynthStepSize, &form.txtRxSynthStepSize, &form.txtTxAccelIntegral, &form.txtRxAccelIntegral,
          &form.txtTxBinaryMain, &form.txtRxBinaryMain}) {
        box->setForeColor(ui::red);
        box->GotFocus();
        EXPECT_EQ(box->foreColor(), ui::black) << box->name();
        EXPECT_EQ(box->selStart(), 0);
        EXPECT_EQ(box->selLength(), static_cast<int>(box->text().size())) << box->name();
    }
}

TEST_F(Rules, EveryFieldThatCanTurnRedTurnsBlackOnFocusAndOnLoading) {
    for (ui::Widget* const field : form.markableFields()) {
        field->setForeColor(ui::red);
        field->GotFocus();
        EXPECT_EQ(field->foreColor(), ui::black) << field->name();
        field->setForeColor(ui::red);
        form.refresh();
        EXPECT_EQ(field->foreColor(), ui::black) << field->name();
    }
}

TEST_F(Rules, AFieldThatIsNoNumberTurnsRedWithoutAMessageWhenItIsLeft) {
    for (ui::TextBox* const box : {&form.txtTxFrequency, &form.txtRxFrequency, &form.txtTxSubtoneLevel,
                                   &form.txtTxSynthStepSize, &form.txtRxSynthStepSize, &form.txtTxAccelIntegral,
                                   &form.txtRxAccelIntegral, &form.txtTxBinaryMain, &form.txtRxBinaryMain}) {
        for (const char* const text : {"", "abc", "1 kHz", "1,5"}) {
            enter(*box, text);
            EXPECT_EQ(box->foreColor(), ui::red) << box->name() << text;
            EXPECT_EQ(box->text(), text);
        }
        enter(*box, " 0 ");
        EXPECT_EQ(box->foreColor(), ui::black) << box->name();
    }
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Rules, AToneThatIsNoneTurnsRedWhenItIsLeft) {
    const auto colour = [](ui::ComboBox& list, const char* text) {
        list.GotFocus();
        list.userTyped(text);
        list.LostFocus();
        return list.foreColor();
    };
    for (ui::ComboBox* const list : {&form.cmbTxSubtone, &form.cmbRxSubtone}) {
        EXPECT_EQ(colour(*list, "100 Hz"), ui::red);
        EXPECT_EQ(colour(*list, "100"), ui::black);
        EXPECT_EQ(colour(*list, "Disabled"), ui::black);
        EXPECT_EQ(colour(*list, ""), ui::red);
    }
    EXPECT_EQ(colour(form.cmbTxSubtone, "Multiple"), ui::red);
    EXPECT_EQ(colour(form.cmbRxSubtone, "multiple"), ui::black);
}

TEST_F(Rules, EnterInAFrequencyBoxMovesToOkAndPressesNothing) {
    for (ui::TextBox* const box : {&form.txtTxFrequency, &form.txtRxFrequency}) {
        int focused = 0;
        const auto connection = form.cmdOk.GotFocus.connectScoped([&] { ++focused; });
        ui::KeyPressEvent key{ui::key::enter};
        box->KeyPress(key);
        EXPECT_EQ(key.code, 0);
        EXPECT_EQ(focused, 1);
        key.code = '5';
        box->KeyPress(key);
        EXPECT_EQ(key.code, '5');
        EXPECT_EQ(focused, 1);
    }
    EXPECT_FALSE(form.cmdOk.isDefault());
    EXPECT_FALSE(form.cmdApply.isDefault());
    EXPECT_TRUE(form.cmdCancel.isCancel());
    EXPECT_EQ(events, Texts{});
}

TEST_F(Rules, ALeftFrequencyIsWrittenWithSixDecimalsAndOneMoreWhereItIsNeeded) {
    const std::vector<std::pair<std::string, std::string>> texts{{"450.1", "450.100000"},
                                                                 {"450.1234567", "450.1234567"},
                                                                 {"450.12345678", "450.1234568"},
                                                                 {" 45e1 ", "450.000000"}};
    for (const auto& [typed, shown] : texts) {
        enter(form.txtTxFrequency, typed);
        EXPECT_EQ(form.txtTxFrequency.text(), shown);
    }
}

TEST_F(Rules, ALeftZeroIsLeftAsTypedAndProposesNothing) {
    form.txtTxSynthStepSize.setText("1");
    for (const char* const text : {"0", "0.0", "-0"}) {
        enter(form.txtTxFrequency, text);
        EXPECT_EQ(form.txtTxFrequency.text(), text);
    }
    EXPECT_EQ(form.txtTxSynthStepSize.text(), "1");
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Rules, ALeftFrequencyProposesStepAndModulo) {
    form.txtTxSynthStepSize.setText("1");
    form.cmbTxModulo.setListIndex(0);
    enter(form.txtTxFrequency, "450");
    EXPECT_EQ(form.txtTxSynthStepSize.text(), "12.5");
    EXPECT_EQ(form.cmbTxModulo.text(), "8");
    EXPECT_EQ(form.txtRxSynthStepSize.text(), "12.5");
    form.txtRxSynthStepSize.setText("1");
    enter(form.txtRxFrequency, "450.00625");
    EXPECT_EQ(form.txtRxSynthStepSize.text(), "6.25");
    EXPECT_EQ(form.txtTxSynthStepSize.text(), "12.5");
}

TEST_F(Rules, TheProposalUsesItsDirectionsReferenceAndThePresentStep) {
    table->put(StoreMember::TxReferenceFrequency, 12'800'000);
    table->put(StoreMember::RxReferenceFrequency, 10'000'000);
    for (const bool transmit : {true, false}) {
        auto& step = transmit ? form.txtTxSynthStepSize : form.txtRxSynthStepSize;
        auto& modulo = transmit ? form.cmbTxModulo : form.cmbRxModulo;
        for (const char* const present : {"2.5", "1"}) {
            for (const int hertz : {450'000'000, 450'002'500, 450'001'000, 450'003'250}) {
                step.setText(present);
                const auto proposal = synth::proposeSetting(hertz, transmit ? 12'800'000 : 10'000'000, present);
                enter(transmit ? form.txtTxFrequency : form.txtRxFrequency, base::numberText(hertz / 1e6));
                static_cast<void>(desktop.takeBoxes());
                EXPECT_EQ(step.text(), proposal ? base::numberText(proposal->step / 1e3) : std::string(present));
                if (proposal) {
                    EXPECT_EQ(modulo.text(), std::to_string(proposal->modulo));
                }
            }
        }
    }
}

TEST_F(Rules, AFrequencyWithoutAProposalIsToldInThreeLinesAndChangesNothing) {
    form.txtTxSynthStepSize.setText("7");
    const auto text = [](const std::string& direction) {
        return "Reference frequency divide error or main frequency divide error.\r\n"
               "Unable to calculate the Synthesizer Step Size and Modulo required for the specified " +
               direction +
               " VCO frequency automatically\r\n"
               "Hint: Correct frequency or alter modulus or step size.";
    };
    enter(form.txtTxFrequency, "450.0001");
    enter(form.txtRxFrequency, "450.0001");
    EXPECT_EQ(boxes(), (Boxes{{.text = text("TX"), .title = "Bench 3", .icon = ui::Icon::Information},
                              {.text = text("RX"), .title = "Bench 3", .icon = ui::Icon::Information}}));
    EXPECT_EQ(form.txtTxSynthStepSize.text(), "7");
    EXPECT_EQ(form.txtRxSynthStepSize.text(), "12.5");
    EXPECT_EQ(form.txtTxFrequency.text(), "450.000100");
}

TEST_F(Rules, AFaultInTheProposalIsSilent) {
    form.txtTxSynthStepSize.setText("7");
    enter(form.txtTxFrequency, "5000");
    EXPECT_EQ(form.txtTxFrequency.text(), "5000.000000");
    form.setCentralDataStore(nullptr);
    enter(form.txtTxFrequency, "450");
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(form.txtTxSynthStepSize.text(), "7");
}

}  // namespace
}  // namespace telvar::tests
