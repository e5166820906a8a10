// The controls of the channel edit form: which there are, their captions, groups, frames and order, and how they are
// arranged. What they do is the business of frmChannelEdit and its helpers.
//
// Children stand in reading order, which is the tab order; a label stands right before what its access key leads to.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/combo_box.h"
#include "ui/form.h"
#include "ui/frame.h"
#include "ui/label.h"
#include "ui/option_button.h"
#include "ui/slider.h"
#include "ui/text_box.h"

namespace telvar::editform {

// Positions in optRFMode.
enum class RfMode : std::uint8_t { Simplex, Duplex, AnalogRepeater, P25Repeater, MixedRepeater };
inline constexpr std::size_t rfModeCount = 5;

class ChannelEditControls : public ui::Form {
public:
    // The desktop must outlive the form.
    explicit ChannelEditControls(ui::Desktop& desktop);

    // Everything that the user can enter into a channel, to see whether something of it was changed.
    [[nodiscard]] std::vector<std::string> entries() const;
    // Every field that can turn red is black again.
    void clearMarks();
    [[nodiscard]] RfMode rfMode() const noexcept;

    ui::Label lblEditChannel{"lblEditChannel"};
    ui::TextBox txtEditChannel{"txtEditChannel"};  // read-only
    ui::Label lblSelectedChannels{"lblSelectedChannels"};

    ui::Frame frChannelSpacing{"frChannelSpacing"};
    ui::OptionGroup bandwidths;
    ui::OptionButton optWideBand{"optWideBand"};
    ui::OptionButton optNarrowBand{"optNarrowBand"};

    ui::Frame frFreqencySettings{"frFreqencySettings"};
    ui::Label lblTxFrequency{"lblTxFrequency"};
    ui::TextBox txtTxFrequency{"txtTxFrequency"};  // MHz
    ui::Label lblRxFrequency{"lblRxFrequency"};
    ui::TextBox txtRxFrequency{"txtRxFrequency"};  // MHz
    ui::Label lblRxLocalOscFreq{"lblRxLocalOscFreq"};
    ui::TextBox txtRxLocalOscFreq{"txtRxLocalOscFreq"};  // MHz; read-only

    ui::Frame frTxSubtone{"frTxSubtone"};
    ui::OptionGroup txSubtoneKinds;
    ui::OptionButton optTxCtcss{"optTxCtcss"};
    ui::OptionButton optTxDcs{"optTxDcs"};
    ui::Label lblTxDcsSubtone{"lblTxDcsSubtone"};
    ui::ComboBox cmbTxSubtone{"cmbTxSubtone", ui::ComboBox::Style::DropDown};  // Hz
    ui::ComboBox cmbTxDcs{"cmbTxDcs"};
    ui::Label lblTxSubtoneLevel{"lblTxSubtoneLevel"};
    ui::TextBox txtTxSubtoneLevel{"txtTxSubtoneLevel"};

    ui::Frame frRxSubtone{"frRxSubtone"};
    ui::OptionGroup rxSubtoneKinds;
    ui::OptionButton optRxCtcss{"optRxCtcss"};
    ui::OptionButton optRxDcs{"optRxDcs"};
    ui::Label lblRxDcsSubtone{"lblRxDcsSubtone"};
    ui::ComboBox cmbRxSubtone{"cmbRxSubtone", ui::ComboBox::Style::DropDown};  // Hz
    ui::ComboBox cmbRxDcs{"cmbRxDcs"};

    ui::Frame frRfMode{"frRfMode"};
    ui::OptionGroup rfModes;
    std::array<ui::OptionButton, rfModeCount> optRFMode{
        {ui::OptionButton{"optRFMode(0)"}, ui::OptionButton{"optRFMode(1)"}, ui::OptionButton{"optRFMode(2)"},
         ui::OptionButton{"optRFMode(3)"}, ui::OptionButton{"optRFMode(4)"}}};
    ui::CheckBox ckSimplexChannel{"ckSimplexChannel"};
    ui::CheckBox ckTtrChannel{"ckTtrChannel"};
    ui::CheckBox ckScanChannel{"ckScanChannel"};
    ui::CheckBox ckDataMode{"ckDataMode"};
    ui::ComboBox cboRFMode{"cboRFMode"};  // filled, hidden and unused; not on the form

    ui::Frame frP25ChannelSettings{"frP25ChannelSettings"};
    ui::Frame frP25TransmitMode{"frP25TransmitMode"};
    ui::OptionGroup p25TransmitModes;
    std::array<ui::OptionButton, 2> optP25TransmitMode{
        {ui::OptionButton{"optP25TransmitMode(0)"}, ui::OptionButton{"optP25TransmitMode(1)"}}};
    ui::CheckBox chkP25RepeaterEnable{"chkP25RepeaterEnable"};
    ui::CheckBox chkTTRAnalogDataMode{"chkTTRAnalogDataMode"};
    ui::Label lblTTRAnalogDataMode{"lblTTRAnalogDataMode"};
    ui::Label lblP25TalkgroupID{"lblP25TalkgroupID"};
    ui::TextBox txtP25TalkgroupID{"txtP25TalkgroupID"};
    ui::Label lblP25TxNetworkAccessCode{"lblP25TxNetworkAccessCode"};
    ui::TextBox txtP25TxNetworkAccessCode{"txtP25TxNetworkAccessCode"};
    ui::Label lblP25RxNetworkAccessCode{"lblP25RxNetworkAccessCode"};
    ui::TextBox txtP25RxNetworkAccessCode{"txtP25RxNetworkAccessCode"};
    ui::Label lblP25Bandwidth{"lblP25Bandwidth"};

    ui::Frame frSynthesizer{"frSynthesizer"};
    ui::Label lblTransmitSynthesizer{"lblTransmitSynthesizer"};
    ui::Label lblReceiveSynthesizer{"lblReceiveSynthesizer"};
    ui::Label lblTxSynthStepSize{"lblTxSynthStepSize"};
    ui::TextBox txtTxSynthStepSize{"txtTxSynthStepSize"};  // kHz
    ui::Label lblTxModulo{"lblTxModulo"};
    ui::ComboBox cmbTxModulo{"cmbTxModulo"};
    ui::Label lblTxAccelIntegral{"lblTxAccelIntegral"};
    ui::TextBox txtTxAccelIntegral{"txtTxAccelIntegral"};
    ui::Label lblTxAccelProportion{"lblTxAccelProportion"};
    ui::ComboBox cmbTxAccelProportion{"cmbTxAccelProportion"};
    ui::Label lblTxBinaryMain{"lblTxBinaryMain"};
    ui::TextBox txtTxBinaryMain{"txtTxBinaryMain"};
    ui::Label lblRxSynthStepSize{"lblRxSynthStepSize"};
    ui::TextBox txtRxSynthStepSize{"txtRxSynthStepSize"};  // kHz
    ui::Label lblRxModulo{"lblRxModulo"};
    ui::ComboBox cmbRxModulo{"cmbRxModulo"};
    ui::Label lblRxAccelIntegral{"lblRxAccelIntegral"};
    ui::TextBox txtRxAccelIntegral{"txtRxAccelIntegral"};
    ui::Label lblRxAccelProportion{"lblRxAccelProportion"};
    ui::ComboBox cmbRxAccelProportion{"cmbRxAccelProportion"};
    ui::Label lblRxBinaryMain{"lblRxBinaryMain"};
    ui::TextBox txtRxBinaryMain{"txtRxBinaryMain"};

    // A slider holds the negated level. Both bands' controls stand at the same place; the band in use is shown.
    ui::Frame frDigitalPotentiometer{"frDigitalPotentiometer"};
    ui::Label lblTransmitPower{"lblTransmitPower"};
    ui::Slider sldTransmitPower{"sldTransmitPower"};
    ui::TextBox txtTransmitPower{"txtTransmitPower"};
    ui::Label lblRefOscFreq{"lblRefOscFreq"};
    ui::Slider sldRefOscFreq{"sldRefOscFreq"};
    ui::TextBox txtRefOscFreq{"txtRefOscFreq"};
    ui::Slider sldNBRefOscFreq{"sldNBRefOscFreq"};
    ui::TextBox txtNBRefOscFreq{"txtNBRefOscFreq"};
    ui::Label lblVcoDeviation{"lblVcoDeviation"};
    ui::Slider sldVcoDeviation{"sldVcoDeviation"};
    ui::TextBox txtVcoDeviation{"txtVcoDeviation"};
    ui::Slider sldNBVcoDeviation{"sldNBVcoDeviation"};
    ui::TextBox txtNBVcoDeviation{"txtNBVcoDeviation"};
    ui::Label lblRefOscDev{"lblRefOscDev"};
    ui::Slider sldRefOscDev{"sldRefOscDev"};
    ui::TextBox txtRefOscDev{"txtRefOscDev"};
    ui::Slider sldNBRefOscDev{"sldNBRefOscDev"};
    ui::TextBox txtNBRefOscDev{"txtNBRefOscDev"};
    ui::CheckBox ckContinuousUpdateEnabled{"ckContinuousUpdateEnabled"};
    ui::CheckBox ckLockVcoRefOscDev{"ckLockVcoRefOscDev"};
    // Only the live update's change test looks at these two; not on the form.
    std::array<ui::TextBox, 2> potval{{ui::TextBox{"potval(4)"}, ui::TextBox{"potval(5)"}}};

    ui::Label lblHint{"lblHint"};  // what did not reach the store, and why
    ui::Button cmdAdvanced{"cmdAdvanced"};
    ui::Button cmdOk{"cmdOk"};
    ui::Button cmdCancel{"cmdCancel"};
    ui::Button cmdApply{"cmdApply"};

    // The text and tone fields that can turn red.
    [[nodiscard]] std::vector<ui::Widget*> markableFields();

private:
    void setCaptions();
    void setSubtoneCaptions();
    void setSynthesizerCaptions();
    void setLevelCaptions();
    void setFieldProperties();
    void fillGroups();
    void fillFrames();
    void addChildren();
    void arrange(ui::Desktop& desktop);
};

}  // namespace telvar::editform
