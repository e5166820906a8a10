// How the channel edit form looks in every state that a user meets, at three resolutions.
#include "edit_form_world.h"
#include "form_pictures.h"
#include "model/mode_bits.h"

namespace telvar::win32 {
namespace {

class EditFormPictures : public EditFormWorld {
protected:
    EditFormPictures() {
        load({{ChannelKey::TxSub, 88.5F},
              {ChannelKey::RxSub, 123.0F},
              {ChannelKey::TxPower, 200},
              {ChannelKey::RefOscFreq, 90},
              {ChannelKey::VCODev, 40},
              {ChannelKey::RefOscDev, 255}});
        form->UpdateAccess(5);
    }
    void expectReadableForm(const std::string& name) { expectReadable(desktop, *form, "frmChannelEdit-" + name); }
};

TEST_F(EditFormPictures, AnAnalogueWideChannel) { expectReadableForm("wide"); }

TEST_F(EditFormPictures, ANarrowChannel) {
    load({{ChannelKey::ModeBits, static_cast<int>(model::mode::narrowBand)}, {ChannelKey::NBVCODev, 100}});
    expectReadableForm("narrow");
}

TEST_F(EditFormPictures, AP25Repeater) {
    load({{ChannelKey::ModeBits, static_cast<int>(model::mode::narrowBand)},
          {ChannelKey::p25RepeaterEnable, true},
          {ChannelKey::P25TransmitMode, true}});
    expectReadableForm("p25");
}

TEST_F(EditFormPictures, CodesOnBothSides) {
    load({{ChannelKey::TxCTCSSDCS, true},
          {ChannelKey::TxDCSIndex, 5},
          {ChannelKey::RxCTCSSDCS, true},
          {ChannelKey::RxDCSIndex, 82}});
    expectReadableForm("dcs");
}

TEST_F(EditFormPictures, TheLowestAccess) {
    form->UpdateAccess(0);
    expectReadableForm("access-0");
}

TEST_F(EditFormPictures, TheMiddleAccessWithABoardAndWithout) {
    form->UpdateAccess(3);
    expectReadableForm("access-3-board");
    table->put(StoreMember::P25BoardFitted, false);
    form->UpdateAccess(3);
    expectReadableForm("access-3");
}

TEST_F(EditFormPictures, SeveralSelectedChannels) {
    form->setSelectedChannels(5, 10);
    expectReadableForm("selected");
    EXPECT_TRUE(form->lblSelectedChannels.isShown());
}

TEST_F(EditFormPictures, ErrorsInRed) {
    for (ui::Widget* const field : form->markableFields()) {
        field->setForeColor(ui::red);
    }
    expectReadableForm("errors");
}

TEST_F(EditFormPictures, AHintAtTheFoot) {
    form->txtTxFrequency.setText("145.5 MHz and more than that");
    form->txtRxFrequency.setText("none");
    form->txtTxFrequency.LostFocus();
    form->txtRxFrequency.LostFocus();
    form->txtTxFrequency.GotFocus();
    expectReadableForm("hint");
    form->txtTxSynthStepSize.setText("12345678901234567890kHz");
    form->txtTxSynthStepSize.LostFocus();
    form->UpdateAccess(0);
    EXPECT_EQ(form->lblHint.caption(),
              "\"12345678901234567890...\" in \"Transmit Synth Step Size (kHz)\" is not a number and is not stored; "
              "access level 5 shows it (and 2 more).");
    expectReadableForm("hint-access-0");
}

TEST_F(EditFormPictures, LockedLevelsAndLockedSettings) {
    form->setLockDataMode(1);
    expectReadableForm("lock-1");
    form->setLockDataMode(2);
    expectReadableForm("lock-2");
}

TEST_F(EditFormPictures, ABandwidthThatCannotBeSwitched) {
    table->put(StoreMember::BandwidthSwitchable, false);
    table->put(StoreMember::ChannelSpacing, 50'000);
    load();
    expectReadableForm("one-bandwidth");
}

}  // namespace
}  // namespace telvar::win32
