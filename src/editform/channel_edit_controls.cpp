#include "editform/channel_edit_controls.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace telvar::editform {

namespace {

constexpr const char* designSpacing = "0.0 kHz Channel Spacing";
constexpr int highestLevel = 255;

// In digits of the font.
constexpr int frequencyWidth = 10;
constexpr int shortWidth = 4;
constexpr int noteWidth = 34;

// The longest sentence, in the narrow form of the lowest access level.
constexpr int hintLines = 2;

// For a widget whose caption is not seen: what a screen reader calls it.
void nameAfter(const ui::Label& label, std::initializer_list<ui::Widget*> widgets) {
    for (ui::Widget* const widget : widgets) {
        widget->setCaption(ui::shownText(label.caption()));
    }
}

// Two that stand below the headings of their columns.
void nameAfter(const ui::Label& label, ui::Widget& transmit, ui::Widget& receive) {
    transmit.setCaption("Transmit " + ui::shownText(label.caption()));
    receive.setCaption("Receive " + ui::shownText(label.caption()));
}

void surround(ui::Frame& frame, std::initializer_list<ui::Widget*> widgets) {
    for (ui::Widget* const widget : widgets) {
        frame.surround(*widget);
    }
}

}  // namespace

ChannelEditControls::ChannelEditControls(ui::Desktop& desktop) : Form("frmChannelEdit") {
    setCaptions();
    setSubtoneCaptions();
    setSynthesizerCaptions();
    setLevelCaptions();
    setFieldProperties();
    fillGroups();
    fillFrames();
    addChildren();
    arrange(desktop);
}

void ChannelEditControls::setCaptions() {
    setCaption("Channel Edit");
    lblEditChannel.setCaption("Edit Channel Number");
    frChannelSpacing.setCaption(designSpacing);
    optWideBand.setCaption("&Wide Band");
    optNarrowBand.setCaption("&Narrow Band");
    frFreqencySettings.setCaption("Frequency Settings");
    lblTxFrequency.setCaption("&Tx Frequency (MHz)");
    lblRxFrequency.setCaption("&Rx Frequency (MHz)");
    lblRxLocalOscFreq.setCaption("Rx Local Osc Freq (MHz)");
    frRfMode.setCaption("RF Mode");
    optRFMode[0].setCaption("S&implex");
    optRFMode[1].setCaption("Duple&x");
    optRFMode[2].setCaption("Analo&g Repeater (TTR)");
    optRFMode[3].setCaption("&P25 Digital Repeater (TTR)");
    optRFMode[4].setCaption("&Mixed P25/Analog Repeater (TTR)");
    ckSimplexChannel.setCaption("Simplex Channel");
    ckTtrChannel.setCaption("TTR (Repeater) Channel");
    ckScanChannel.setCaption("&Scan Channel");
    ckDataMode.setCaption("&Data Mode");
    frP25ChannelSettings.setCaption("APCO P25 Channel Settings");
    frP25TransmitMode.setCaption("External PTT Transmit Mode");
    optP25TransmitMode[0].setCaption("Analogue");
    optP25TransmitMode[1].setCaption("P25 Digital");
    chkP25RepeaterEnable.setCaption("P25 Repeater");
    chkTTRAnalogDataMode.setCaption("TTR Analog Data Mode");
    lblTTRAnalogDataMode.setCaption("Note: enable for FleetSync, Analog GPS data, etc.");
    lblP25TalkgroupID.setCaption("P&25 Talkgroup ID");
    lblP25TxNetworkAccessCode.setCaption("P2&5 TX Network Access Code");
    lblP25RxNetworkAccessCode.setCaption("P25 RX Networ&k Access Code");
    lblP25Bandwidth.setCaption("Note: P25 requires Narrow Band configuration");
    cmdAdvanced.setCaption("A&ccess");
    cmdOk.setCaption("&OK");
    cmdCancel.setCaption("Cancel");
    cmdApply.setCaption("&Apply");
    nameAfter(lblEditChannel, {&txtEditChannel});
    nameAfter(lblTxFrequency, {&txtTxFrequency});
    nameAfter(lblRxFrequency, {&txtRxFrequency});
    nameAfter(lblRxLocalOscFreq, {&txtRxLocalOscFreq});
    nameAfter(lblP25TalkgroupID, {&txtP25TalkgroupID});
    nameAfter(lblP25TxNetworkAccessCode, {&txtP25TxNetworkAccessCode});
    nameAfter(lblP25RxNetworkAccessCode, {&txtP25RxNetworkAccessCode});
}

void ChannelEditControls::setSubtoneCaptions() {
    frTxSubtone.setCaption("Tx CTCSS/DCS");
    frRxSubtone.setCaption("Rx CTCSS/DCS");
    for (ui::OptionButton* const option : {&optTxCtcss, &optRxCtcss}) {
        option->setCaption("CTCSS");
    }
    for (ui::OptionButton* const option : {&optTxDcs, &optRxDcs}) {
        option->setCaption("DCS");
    }
    lblTxDcsSubtone.setCaption("Tx Subtone (Hz)");
    lblRxDcsSubtone.setCaption("Rx Subtone (Hz)");
    lblTxSubtoneLevel.setCaption("Tx Subtone &Level (0-6)");
    nameAfter(lblTxDcsSubtone, {&cmbTxSubtone});
    nameAfter(lblRxDcsSubtone, {&cmbRxSubtone});
    cmbTxDcs.setCaption("Tx DCS Code");
    cmbRxDcs.setCaption("Rx DCS Code");
    nameAfter(lblTxSubtoneLevel, {&txtTxSubtoneLevel});
}

void ChannelEditControls::setSynthesizerCaptions() {
    frSynthesizer.setCaption("Synthesizer Settings");
    lblTransmitSynthesizer.setCaption("Transmit");
    lblReceiveSynthesizer.setCaption("Receive");
    lblTxSynthStepSize.setCaption("Synth Step Si&ze (kHz)");
    lblRxSynthStepSize.setCaption("Synth Step Size (k&Hz)");
    lblTxModulo.setCaption("Modulo (5,&8)");
    lblRxModulo.setCaption("Modulo (5,8)");
    lblTxAccelIntegral.setCaption("Accel Integral (&0-15)");
    lblRxAccelIntegral.setCaption("Accel Integral (0-&15)");
    lblTxAccelProportion.setCaption("Accel Proportion (0-&3)");
    lblRxAccelProportion.setCaption("Accel Proportion (0-3)");
    lblTxBinaryMain.setCaption("Binar&y Main (0-255)");
    lblRxBinaryMain.setCaption("Binary Main (0-255)");
    nameAfter(lblTxSynthStepSize, txtTxSynthStepSize, txtRxSynthStepSize);
    nameAfter(lblTxModulo, cmbTxModulo, cmbRxModulo);
    nameAfter(lblTxAccelIntegral, txtTxAccelIntegral, txtRxAccelIntegral);
    nameAfter(lblTxAccelProportion, cmbTxAccelProportion, cmbRxAccelProportion);
    nameAfter(lblTxBinaryMain, txtTxBinaryMain, txtRxBinaryMain);
}

void ChannelEditControls::setLevelCaptions() {
    frDigitalPotentiometer.setCaption("Digital Potentiometer Settings");
    lblTransmitPower.setCaption("Transmit Pow&er");
    lblRefOscFreq.setCaption("Reference &Bias");
    lblVcoDeviation.setCaption("&VCO Deviation");
    lblRefOscDev.setCaption("Re&ference Level");
    ckContinuousUpdateEnabled.setCaption("Contin&uous Update");
    ckLockVcoRefOscDev.setCaption("Lock VCO / Ref Osc Dev");
    nameAfter(lblTransmitPower, {&sldTransmitPower, &txtTransmitPower});
    nameAfter(lblRefOscFreq, {&sldRefOscFreq, &txtRefOscFreq, &sldNBRefOscFreq, &txtNBRefOscFreq});
    nameAfter(lblVcoDeviation, {&sldVcoDeviation, &txtVcoDeviation, &sldNBVcoDeviation, &txtNBVcoDeviation});
    nameAfter(lblRefOscDev, {&sldRefOscDev, &txtRefOscDev, &sldNBRefOscDev, &txtNBRefOscDev});
}

void ChannelEditControls::setFieldProperties() {
    txtEditChannel.setReadOnly(true);
    txtRxLocalOscFreq.setReadOnly(true);
    for (ui::TextBox* const box : {&txtTxFrequency, &txtRxFrequency, &txtRxLocalOscFreq}) {
        box->setWidth(frequencyWidth);
    }
    for (ui::TextBox* const box :
         {&txtEditChannel, &txtTransmitPower, &txtRefOscFreq, &txtNBRefOscFreq, &txtVcoDeviation, &txtNBVcoDeviation,
          &txtRefOscDev, &txtNBRefOscDev, &txtP25TalkgroupID, &txtP25TxNetworkAccessCode, &txtP25RxNetworkAccessCode}) {
        box->setWidth(shortWidth);
    }
    for (ui::Slider* const slider : {&sldTransmitPower, &sldRefOscFreq, &sldNBRefOscFreq, &sldVcoDeviation,
                                     &sldNBVcoDeviation, &sldRefOscDev, &sldNBRefOscDev}) {
        slider->setRange(-highestLevel, 0);
        slider->setChanges(1, 10);
    }
    for (ui::TextBox& box : potval) {
        box.loadText("0");
    }
    lblTTRAnalogDataMode.setWrapWidth(noteWidth);
    lblP25Bandwidth.setWrapWidth(noteWidth);
    lblSelectedChannels.setVisible(false);
    lblHint.setLines(hintLines);
    cmdCancel.setCancel(true);
}

void ChannelEditControls::fillGroups() {
    for (ui::OptionButton* const option : {&optWideBand, &optNarrowBand}) {
        bandwidths.add(*option);
    }
    for (ui::OptionButton* const option : {&optTxCtcss, &optTxDcs}) {
        txSubtoneKinds.add(*option);
    }
    for (ui::OptionButton* const option : {&optRxCtcss, &optRxDcs}) {
        rxSubtoneKinds.add(*option);
    }
    for (ui::OptionButton& option : optRFMode) {
        rfModes.add(option);
    }
    for (ui::OptionButton& option : optP25TransmitMode) {
        p25TransmitModes.add(option);
    }
    optWideBand.loadValue(true);
    optTxCtcss.loadValue(true);
    optRxCtcss.loadValue(true);
    optRFMode[static_cast<std::size_t>(RfMode::Duplex)].loadValue(true);
    optP25TransmitMode[0].loadValue(true);
    for (ui::Widget* const widget : std::initializer_list<ui::Widget*>{
             &cmbTxDcs, &cmbRxDcs, &sldNBRefOscFreq, &txtNBRefOscFreq, &sldNBVcoDeviation, &txtNBVcoDeviation,
             &sldNBRefOscDev, &txtNBRefOscDev, &cboRFMode}) {
        widget->setVisible(false);
    }
}

void ChannelEditControls::fillFrames() {
    surround(frChannelSpacing, {&optWideBand, &optNarrowBand});
    surround(frFreqencySettings, {&lblTxFrequency, &txtTxFrequency, &lblRxFrequency, &txtRxFrequency,
                                  &lblRxLocalOscFreq, &txtRxLocalOscFreq});
    surround(frTxSubtone, {&optTxCtcss, &optTxDcs, &lblTxDcsSubtone, &cmbTxSubtone, &cmbTxDcs, &lblTxSubtoneLevel,
                           &txtTxSubtoneLevel});
    surround(frRxSubtone, {&optRxCtcss, &optRxDcs, &lblRxDcsSubtone, &cmbRxSubtone, &cmbRxDcs});
    for (ui::OptionButton& option : optRFMode) {
        frRfMode.surround(option);
    }
    surround(frRfMode, {&ckSimplexChannel, &ckTtrChannel, &ckScanChannel, &ckDataMode});
    surround(frP25ChannelSettings,
             {&frP25TransmitMode, &chkP25RepeaterEnable, &chkTTRAnalogDataMode, &lblTTRAnalogDataMode,
              &lblP25TalkgroupID, &txtP25TalkgroupID, &lblP25TxNetworkAccessCode, &txtP25TxNetworkAccessCode,
              &lblP25RxNetworkAccessCode, &txtP25RxNetworkAccessCode, &lblP25Bandwidth});
    surround(frP25TransmitMode, {&optP25TransmitMode[0], &optP25TransmitMode[1]});
    surround(frSynthesizer, {&lblTransmitSynthesizer,
                             &lblTxSynthStepSize,
                             &txtTxSynthStepSize,
                             &lblTxModulo,
                             &cmbTxModulo,
                             &lblTxAccelIntegral,
                             &txtTxAccelIntegral,
                             &lblTxAccelProportion,
                             &cmbTxAccelProportion,
                             &lblTxBinaryMain,
                             &txtTxBinaryMain,
                             &lblReceiveSynthesizer,
                             &lblRxSynthStepSize,
                             &txtRxSynthStepSize,
                             &lblRxModulo,
                             &cmbRxModulo,
                             &lblRxAccelIntegral,
                             &txtRxAccelIntegral,
                             &lblRxAccelProportion,
                             &cmbRxAccelProportion,
                             &lblRxBinaryMain,
                             &txtRxBinaryMain});
    surround(frDigitalPotentiometer, {&lblTransmitPower,
                                      &sldTransmitPower,
                                      &txtTransmitPower,
                                      &lblRefOscFreq,
                                      &sldRefOscFreq,
                                      &txtRefOscFreq,
                                      &sldNBRefOscFreq,
                                      &txtNBRefOscFreq,
                                      &lblVcoDeviation,
                                      &sldVcoDeviation,
                                      &txtVcoDeviation,
                                      &sldNBVcoDeviation,
                                      &txtNBVcoDeviation,
                                      &lblRefOscDev,
                                      &sldRefOscDev,
                                      &txtRefOscDev,
                                      &sldNBRefOscDev,
                                      &txtNBRefOscDev,
                                      &ckContinuousUpdateEnabled,
                                      &ckLockVcoRefOscDev});
}

void ChannelEditControls::addChildren() {
    const auto addWithContents = [this](ui::Frame& frame) {
        add(frame);
        for (ui::Widget* const widget : frame.inside()) {
            add(*widget);
            if (const auto* const inner = dynamic_cast<ui::Frame*>(widget)) {
                for (ui::Widget* const innermost : inner->inside()) {
                    add(*innermost);
                }
            }
        }
    };
    add(lblEditChannel);
    add(txtEditChannel);
    add(lblSelectedChannels);
    for (ui::Frame* const frame : {&frChannelSpacing, &frFreqencySettings, &frTxSubtone, &frRxSubtone, &frRfMode,
                                   &frP25ChannelSettings, &frSynthesizer, &frDigitalPotentiometer}) {
        addWithContents(*frame);
    }
    add(lblHint);
    for (ui::Button* const button : {&cmdAdvanced, &cmdOk, &cmdCancel, &cmdApply}) {
        add(*button);
    }
}

RfMode ChannelEditControls::rfMode() const noexcept { return static_cast<RfMode>(std::max(rfModes.selected(), 0)); }

std::vector<ui::Widget*> ChannelEditControls::markableFields() {
    return {&txtEditChannel,     &txtTxFrequency,
            &txtRxFrequency,     &cmbTxSubtone,
            &cmbRxSubtone,       &txtTxSubtoneLevel,
            &txtTxSynthStepSize, &txtRxSynthStepSize,
            &txtTxAccelIntegral, &txtRxAccelIntegral,
            &txtTxBinaryMain,    &txtRxBinaryMain,
            &txtTransmitPower,   &txtRefOscFreq,
            &txtNBRefOscFreq,    &txtVcoDeviation,
            &txtNBVcoDeviation,  &txtRefOscDev,
            &txtNBRefOscDev,     &txtP25TxNetworkAccessCode,
            &txtP25TalkgroupID,  &txtP25RxNetworkAccessCode};
}

void ChannelEditControls::clearMarks() {
    for (ui::Widget* const field : markableFields()) {
        field->setForeColor(ui::black);
    }
}

std::vector<std::string> ChannelEditControls::entries() const {
    std::vector<std::string> entries;
    for (const ui::Widget* const child : children()) {
        if (const auto* const box = dynamic_cast<const ui::TextBox*>(child)) {
            entries.push_back(box->text());
        } else if (const auto* const list = dynamic_cast<const ui::ComboBox*>(child)) {
            entries.push_back(list->text());
        } else if (const auto* const option = dynamic_cast<const ui::OptionButton*>(child)) {
            entries.emplace_back(option->value() ? "1" : "0");
        } else if (const auto* const check = dynamic_cast<const ui::CheckBox*>(child)) {
            // These two are about the adjusting, not about the channel.
            const bool ofChannel = check != &ckContinuousUpdateEnabled && check != &ckLockVcoRefOscDev;
            entries.push_back(ofChannel ? std::to_string(check->value()) : std::string());
        }
    }
    return entries;
}

}  // namespace telvar::editform
