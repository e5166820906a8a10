// What the form says at its foot about texts that did not reach the store, and when marked fields turn black again.
#include "edit_form_world.h"

namespace telvar::tests {
namespace {

using base::Value;

class FieldHint : public EditFormWorld {
protected:
    FieldHint() { open(); }
    [[nodiscard]] std::string hint() const { return form.lblHint.caption(); }
};

TEST_F(FieldHint, SaysNothingAtFirst) {
    EXPECT_EQ(hint(), "");
    EXPECT_TRUE(form.lblHint.isShown());
}

TEST_F(FieldHint, NamesAFieldThatIsLeftWithoutANumberAndWhy) {
    enter(form.txtTxFrequency, "145,5");
    EXPECT_EQ(hint(), "\"145,5\" in \"Tx Frequency (MHz)\" is not a number and is not stored.");
    enter(form.txtTxFrequency, "  ");
    EXPECT_EQ(hint(), "\"Tx Frequency (MHz)\" is empty and is not stored.");
    enter(form.txtTxFrequency, "1e999");
    EXPECT_EQ(hint(), "\"1e999\" in \"Tx Frequency (MHz)\" is too large and is not stored.");
    enter(form.txtTxFrequency, "145.5");
    EXPECT_EQ(hint(), "");
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(FieldHint, TellsTheTwoSynthesizersApart) {
    enter(form.txtTxSynthStepSize, "x");
    EXPECT_EQ(hint(), "\"x\" in \"Transmit Synth Step Size (kHz)\" is not a number and is not stored.");
    enter(form.txtTxSynthStepSize, "5");
    enter(form.txtRxBinaryMain, "y");
    EXPECT_EQ(hint(), "\"y\" in \"Receive Binary Main (0-255)\" is not a number and is not stored.");
}

TEST_F(FieldHint, NamesATextThatIsNoTone) {
    form.cmbRxSubtone.GotFocus();
    form.cmbRxSubtone.userTyped("100 Hz");
    form.cmbRxSubtone.LostFocus();
    EXPECT_EQ(hint(), "\"100 Hz\" in \"Rx Subtone (Hz)\" is not a tone and is not stored.");
    form.cmbRxSubtone.GotFocus();
    form.cmbRxSubtone.userTyped("multiple");
    form.cmbRxSubtone.LostFocus();
    EXPECT_EQ(hint(), "");
}

TEST_F(FieldHint, OfSeveralFieldsTellsTheOneThatWasLeftLastOrHasTheFocus) {
    enter(form.txtTxFrequency, "a");
    enter(form.txtRxFrequency, "b");
    enter(form.txtTxBinaryMain, "c");
    EXPECT_EQ(hint(), "\"c\" in \"Transmit Binary Main (0-255)\" is not a number and is not stored (and 2 more).");
    form.txtTxFrequency.GotFocus();
    EXPECT_EQ(hint(), "\"a\" in \"Tx Frequency (MHz)\" is not a number and is not stored (and 2 more).");
    form.txtTxFrequency.userTyped("145");
    form.txtTxFrequency.LostFocus();
    EXPECT_EQ(hint(), "\"c\" in \"Transmit Binary Main (0-255)\" is not a number and is not stored (and 1 more).");
}

TEST_F(FieldHint, CutsALongTextAndShowsWhatTheUserTypedWithoutAccessKeys) {
    enter(form.txtTxFrequency, "12345678901234567890x");
    EXPECT_EQ(hint(), "\"12345678901234567890...\" in \"Tx Frequency (MHz)\" is not a number and is not stored.");
    enter(form.txtTxFrequency, "1&5");
    EXPECT_EQ(hint(), "\"1&&5\" in \"Tx Frequency (MHz)\" is not a number and is not stored.");
    enter(form.txtTxFrequency, "\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4"
                               "\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4");
    EXPECT_EQ(hint(), "\"\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4"
                      "\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4...\" in \"Tx Frequency (MHz)\" is not a number and is not "
                      "stored.");
}

TEST_F(FieldHint, GoesWhenTheChannelIsLoadedAnew) {
    enter(form.txtTxFrequency, "a");
    form.refresh();
    EXPECT_EQ(hint(), "");
}

TEST_F(FieldHint, TakesItsRoomWhetherItSpeaksOrNot) {
    const auto before = form.size();
    const auto ok = form.cmdOk.bounds();
    EXPECT_GT(form.lblHint.bounds().height(), 0);
    enter(form.txtTxFrequency, "a");
    EXPECT_EQ(form.size(), before);
    EXPECT_EQ(form.cmdOk.bounds(), ok);
}

// What screen readers are told.
class SpokenPeer : public ui::WidgetPeer {
public:
    explicit SpokenPeer(const ui::Label& label) : label_(label) {}
    void show(ui::Aspect changed) noexcept override {
        if (changed == ui::Aspect::Announcement) {
            spoken.push_back(label_.caption());
        }
    }
    void takeFocus() noexcept override {}
    void widgetEnds() noexcept override {}

    Texts spoken;

private:
    const ui::Label& label_;
};

TEST_F(FieldHint, IsSpokenOnceForEachLeavingAndForEachComingBackAndNeverWhenItIsEmpty) {
    SpokenPeer peer(form.lblHint);
    form.lblHint.attach(peer);
    enter(form.txtTxFrequency, "a");
    const std::string sentence = "\"a\" in \"Tx Frequency (MHz)\" is not a number and is not stored.";
    EXPECT_EQ(peer.spoken, Texts{sentence});
    form.txtRxFrequency.GotFocus();
    form.txtRxFrequency.LostFocus();
    EXPECT_EQ(peer.spoken, Texts{sentence});
    form.txtTxFrequency.GotFocus();
    EXPECT_EQ(peer.spoken, (Texts{sentence, sentence}));
    form.txtTxFrequency.userTyped("145");
    form.txtTxFrequency.LostFocus();
    apply();
    EXPECT_EQ(peer.spoken, (Texts{sentence, sentence}));
    form.txtTxFrequency.setText("b");
    apply();
    EXPECT_EQ(peer.spoken.size(), 3U);
    form.lblHint.detach();
}

// -- Apply -----------------------------------------------------------------------------------------------------------

TEST_F(FieldHint, AnApplySaysWhatItPassedOverAndLeavesThatTextToTheUser) {
    form.txtRxBinaryMain.setText("many");
    form.cmbTxSubtone.userTyped("none");
    form.txtTxBinaryMain.setText("9");
    apply();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(numberAt(ChannelKey::BinMain), 9.0);
    EXPECT_EQ(hint(), "\"none\" in \"Tx Subtone (Hz)\" is not a tone and is not stored (and 1 more).");
    EXPECT_EQ(form.txtRxBinaryMain.text(), "many");
    EXPECT_EQ(form.cmbTxSubtone.text(), "none");
    EXPECT_TRUE(form.hasUnappliedEdits());
    form.txtRxBinaryMain.setText("1");
    form.cmbTxSubtone.userTyped("100");
    apply();
    EXPECT_EQ(hint(), "");
    EXPECT_FALSE(form.hasUnappliedEdits());
}

TEST_F(FieldHint, EveryFieldThatAnApplyPassesOverIsNamed) {
    struct Field {
        ui::Widget& widget;
        const char* name;
    };
    const std::vector<Field> fields{{form.txtTxFrequency, "Tx Frequency (MHz)"},
                                    {form.txtRxFrequency, "Rx Frequency (MHz)"},
                                    {form.txtTxSubtoneLevel, "Tx Subtone Level (0-6)"},
                                    {form.txtTxSynthStepSize, "Transmit Synth Step Size (kHz)"},
                                    {form.txtRxSynthStepSize, "Receive Synth Step Size (kHz)"},
                                    {form.txtTxAccelIntegral, "Transmit Accel Integral (0-15)"},
                                    {form.txtRxAccelIntegral, "Receive Accel Integral (0-15)"},
                                    {form.txtTxBinaryMain, "Transmit Binary Main (0-255)"},
                                    {form.txtRxBinaryMain, "Receive Binary Main (0-255)"},
                                    {form.txtTransmitPower, "Transmit Power"},
                                    {form.txtRefOscFreq, "Reference Bias"},
                                    {form.txtVcoDeviation, "VCO Deviation"},
                                    {form.txtRefOscDev, "Reference Level"}};
    for (const auto& [widget, name] : fields) {
        form.refresh();
        dynamic_cast<ui::TextBox&>(widget).setText("q");
        apply();
        EXPECT_EQ(hint(), "\"q\" in \"" + std::string(name) + "\" is not a number and is not stored.");
    }
}

TEST_F(FieldHint, ANumberThatNoStoreCanHoldIsNamedToo) {
    form.txtTxSubtoneLevel.setText("-1e20");
    apply();
    EXPECT_EQ(hint(), "\"-1e20\" in \"Tx Subtone Level (0-6)\" is too large and is not stored.");
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(FieldHint, ARefusedFieldThatIsShownSpeaksForItself) {
    form.txtTxBinaryMain.setText("256");
    apply();
    EXPECT_EQ(form.txtTxBinaryMain.foreColor(), ui::red);
    EXPECT_EQ(hint(), "");
}

TEST_F(FieldHint, ARefusedFieldThatTheLevelHidesIsNamedWithTheLevelThatShowsIt) {
    form.txtTxBinaryMain.setText("256");
    form.UpdateAccess(0);
    form.cmdOk.userPress();
    EXPECT_EQ(boxes(), Boxes{refusal("Binary accelerator main must be between 0 and 255.")});
    EXPECT_TRUE(desktop.isOpen(form));
    EXPECT_EQ(hint(), "\"Transmit Binary Main (0-255)\" was refused; access level 5 shows it.");
    form.UpdateAccess(5);
    EXPECT_EQ(hint(), "");
    form.UpdateAccess(4);
    EXPECT_EQ(hint(), "\"Transmit Binary Main (0-255)\" was refused; access level 5 shows it.");
}

TEST_F(FieldHint, P25CodesAreShownFromLevel3WithABoardAndFromLevel5Without) {
    form.UpdateAccess(0);
    form.txtP25TalkgroupID.setText("wrong");
    apply();
    EXPECT_EQ(hint(), "\"P25 Talkgroup ID\" was refused; access level 5 shows it.");
    table->put(StoreMember::P25BoardFitted, true);
    form.UpdateAccess(2);
    EXPECT_EQ(hint(), "\"P25 Talkgroup ID\" was refused; access level 3 shows it.");
    form.UpdateAccess(3);
    EXPECT_EQ(hint(), "");
}

TEST_F(FieldHint, AHiddenTextThatIsNoNumberIsNamedWithTheLevelThatShowsIt) {
    form.txtRxBinaryMain.setText("z");
    form.UpdateAccess(0);
    apply();
    EXPECT_EQ(hint(),
              "\"z\" in \"Receive Binary Main (0-255)\" is not a number and is not stored; access level 5 shows "
              "it.");
}

TEST_F(FieldHint, ALevelOfTheOtherBandIsNotNamed) {
    form.txtVcoDeviation.setText("q");
    apply();
    EXPECT_NE(hint(), "");
    form.optNarrowBand.userClick();
    form.UpdateAccess(5);
    EXPECT_EQ(hint(), "");
}

TEST_F(FieldHint, ALevelThatIsLeftHasOneAgain) {
    form.txtVcoDeviation.setText("q");
    apply();
    EXPECT_NE(hint(), "");
    form.txtVcoDeviation.GotFocus();
    form.txtVcoDeviation.LostFocus();
    EXPECT_EQ(form.txtVcoDeviation.text(), "128");
    EXPECT_EQ(hint(), "");
}

// -- what the form shows after an Apply ------------------------------------------------------------------------------

TEST_F(FieldHint, AnApplyShowsWhatTheStoreHolds) {
    form.txtP25TalkgroupID.setText("ABC");
    form.txtRxFrequency.setText("460.1");
    form.txtTxBinaryMain.setText("2.5");
    form.cmbTxSubtone.userTyped("100");
    form.cmbRxSubtone.userTyped("MULTIPLE");
    apply();
    EXPECT_EQ(form.txtP25TalkgroupID.text(), "0ABC");
    EXPECT_EQ(form.txtRxFrequency.text(), "460.100000");
    EXPECT_EQ(form.txtRxLocalOscFreq.text(), "481.5");
    EXPECT_EQ(form.txtTxBinaryMain.text(), "2");
    EXPECT_EQ(form.cmbTxSubtone.text(), "100.0");
    EXPECT_EQ(form.cmbRxSubtone.text(), "Multiple");
    EXPECT_FALSE(form.hasUnappliedEdits());
}

TEST_F(FieldHint, ARefusedApplyShowsWhatTheStoreHoldsOfTheOtherFields) {
    form.txtP25TalkgroupID.setText("ABC");
    form.txtTxBinaryMain.setText("256");
    apply();
    EXPECT_EQ(form.txtP25TalkgroupID.text(), "0ABC");
    EXPECT_EQ(form.txtTxBinaryMain.text(), "256");
    EXPECT_EQ(form.txtTxBinaryMain.foreColor(), ui::red);
    EXPECT_TRUE(form.hasUnappliedEdits());
}

TEST_F(FieldHint, AnApplyLeavesTheContinuousUpdateRunning) {
    form.ckContinuousUpdateEnabled.userClick();
    form.txtP25TalkgroupID.setText("ABC");
    apply();
    EXPECT_TRUE(form.ckContinuousUpdateEnabled.checked());
    EXPECT_TRUE(desktop.runs(form.tmrUpdate));
}

// -- the focus comes back --------------------------------------------------------------------------------------------

TEST_F(FieldHint, AMarkedFieldTurnsBlackWhenTheFocusComesBackToIt) {
    for (ui::Widget* const field : form.markableFields()) {
        field->GotFocus();
        field->setForeColor(ui::red);
        field->FocusReturned();
        EXPECT_EQ(field->foreColor(), ui::black) << field->name();
    }
}

TEST_F(FieldHint, AFocusThatComesBackLeavesWhatIsSelected) {
    form.txtTxFrequency.GotFocus();
    form.txtTxFrequency.userSelected(2, 1);
    form.txtTxFrequency.FocusReturned();
    EXPECT_EQ(form.txtTxFrequency.selStart(), 2);
    EXPECT_EQ(form.txtTxFrequency.selLength(), 1);
}

}  // namespace
}  // namespace telvar::tests
