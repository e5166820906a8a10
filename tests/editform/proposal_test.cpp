// The step and modulo that the form proposes when a frequency is left: from which references and boxes, into which
// fields, and when.
#include "edit_form_world.h"
#include "synth/proposal.h"

namespace telvar::tests {
namespace {

class FormProposal : public EditFormWorld {
protected:
    FormProposal() { load(); }
    // A step and a modulo that no proposal makes.
    void unset() {
        for (ui::TextBox* const step : {&form.txtTxSynthStepSize, &form.txtRxSynthStepSize}) {
            step->setText("7");
        }
        for (ui::ComboBox* const modulo : {&form.cmbTxModulo, &form.cmbRxModulo}) {
            modulo->loadListIndex(-1);
        }
    }
    [[nodiscard]] std::string transmit() const {
        return form.txtTxSynthStepSize.text() + "/" + form.cmbTxModulo.text();
    }
    [[nodiscard]] std::string receive() const { return form.txtRxSynthStepSize.text() + "/" + form.cmbRxModulo.text(); }
};

TEST_F(FormProposal, OfOneDirectionWritesTheFieldsOfThatDirectionOnly) {
    unset();
    enter(form.txtRxFrequency, "450");
    EXPECT_EQ(receive(), "12.5/8");
    EXPECT_EQ(transmit(), "7/");
    unset();
    enter(form.txtTxFrequency, "450");
    EXPECT_EQ(transmit(), "12.5/8");
    EXPECT_EQ(receive(), "7/");
}

TEST_F(FormProposal, ReadsTwoAndAHalfFromItsOwnDirectionsBox) {
    unset();
    form.txtTxSynthStepSize.setText("2.5");
    enter(form.txtTxFrequency, "450.0025");
    EXPECT_EQ(form.txtTxSynthStepSize.text(), "2.5");
    unset();
    form.txtRxSynthStepSize.setText("2.5");
    enter(form.txtTxFrequency, "450.0025");
    EXPECT_EQ(form.txtTxSynthStepSize.text(), "7");
    EXPECT_EQ(boxes().size(), 1U);
    unset();
    form.txtRxSynthStepSize.setText("2.5");
    enter(form.txtRxFrequency, "450.0025");
    EXPECT_EQ(form.txtRxSynthStepSize.text(), "2.5");
    unset();
    form.txtTxSynthStepSize.setText("2.5");
    enter(form.txtRxFrequency, "450.0025");
    EXPECT_EQ(form.txtRxSynthStepSize.text(), "7");
    EXPECT_EQ(boxes().size(), 1U);
}

// With the offset the frequency would lie off the raster of 12.5 kHz, and the finer 2.5 kHz would be proposed.
TEST_F(FormProposal, OfTheReceiverDoesNotAddTheOscillatorsOffset) {
    table->put(StoreMember::LocalOscOffset, 21'402'500);
    form.txtRxSynthStepSize.setText("2.5");
    enter(form.txtRxFrequency, "450");
    EXPECT_EQ(form.txtRxSynthStepSize.text(), "12.5");
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(FormProposal, ComesAfterTheFrequencyIsWrittenOut) {
    Texts seen;
    desktop.duringBox = [&](const ui::MessageBox&) {
        seen.push_back(form.txtTxFrequency.text());
        seen.push_back(form.txtRxFrequency.text());
    };
    enter(form.txtTxFrequency, "450.0001");
    enter(form.txtRxFrequency, "460.0001");
    EXPECT_EQ(seen, (Texts{"450.000100", "145.600000", "450.000100", "460.000100"}));
}

TEST_F(FormProposal, WritesNothingIntoFieldsThatALockModeHasDisabled) {
    for (const std::int32_t mode : {1, 2}) {
        form.setLockDataMode(mode);
        unset();
        enter(form.txtTxFrequency, "450");
        enter(form.txtRxFrequency, "450");
        EXPECT_EQ(transmit(), "7/") << mode;
        EXPECT_EQ(receive(), "7/") << mode;
        EXPECT_EQ(boxes(), Boxes{});
    }
    form.setLockDataMode(0);
    enter(form.txtTxFrequency, "450");
    EXPECT_EQ(transmit(), "12.5/8");
}

TEST_F(FormProposal, WritesIntoFieldsThatTheAccessLevelHides) {
    form.UpdateAccess(0);
    unset();
    enter(form.txtTxFrequency, "450");
    EXPECT_EQ(transmit(), "12.5/8");
}

TEST_F(FormProposal, TheFocusBeginsWhereLeavingItChangesNothing) {
    unset();
    form.txtTxFrequency.setText("450.0001");
    const auto before = form.entries();
    ui::Widget& first = form.firstField();
    EXPECT_EQ(first.name(), "txtEditChannel");
    for (const std::int32_t mode : {0, 1, 2}) {
        form.setLockDataMode(mode);
        EXPECT_TRUE(first.isUsable() && first.isShown()) << mode;
    }
    first.GotFocus();
    first.LostFocus();
    EXPECT_EQ(form.entries(), before);
    EXPECT_EQ(first.foreColor(), ui::black);
    EXPECT_EQ(boxes(), Boxes{});
}

}  // namespace
}  // namespace telvar::tests
