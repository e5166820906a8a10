// Where the controls of the channel edit form stand: general settings above, what needs full access below.
#include <utility>

#include "editform/channel_edit_controls.h"
#include "editform/channel_spacing.h"
#include "ui/layout.h"

namespace telvar::editform {

using ui::centred;
using ui::column;
using ui::Distance;
using ui::framed;
using ui::Grow;
using ui::Layout;
using ui::overlaid;
using ui::row;
using ui::table;
using ui::widget;

namespace {

[[nodiscard]] Layout field(ui::Widget& box) { return widget(box, Grow::Wide); }

// Label above slider above box, one in the middle of the other.
[[nodiscard]] Layout level(ui::Label& label, Layout slider, Layout box) {
    return column({centred(widget(label)), centred(std::move(slider)), centred(std::move(box))});
}

// The sliders of both bands at the same place, and so the boxes.
[[nodiscard]] Layout level(ui::Label& label, ui::Slider& wide, ui::TextBox& wideBox, ui::Slider& narrow,
                           ui::TextBox& narrowBox) {
    return level(label, overlaid({widget(wide), widget(narrow)}), overlaid({widget(wideBox), widget(narrowBox)}));
}

// The frame of the spacing stands at the right edge and changes its caption with each channel and band: its own edge
// must stay where it is.
[[nodiscard]] Layout channelPart(ChannelEditControls& c) {
    c.frChannelSpacing.reserveFor(channelSpacingCaptions());
    return row({column({row({widget(c.lblEditChannel), widget(c.txtEditChannel)}, Distance::Usual),
                        widget(c.lblSelectedChannels)}),
                ui::spring(),
                framed(c.frChannelSpacing, row({widget(c.optWideBand), widget(c.optNarrowBand)}, Distance::Usual))},
               Distance::Usual);
}

// Three frames, one below the other, whose fields begin at the same place.
[[nodiscard]] Layout signalPart(ChannelEditControls& c) {
    const auto labels =
        ui::equallyWide({widget(c.lblTxFrequency), widget(c.lblRxFrequency), widget(c.lblRxLocalOscFreq),
                         widget(c.lblTxDcsSubtone), widget(c.lblTxSubtoneLevel), widget(c.lblRxDcsSubtone)});
    const auto kinds = [](ui::OptionButton& ctcss, ui::OptionButton& dcs) {
        return row({widget(ctcss), widget(dcs)}, Distance::Usual);
    };
    return column(
        {framed(c.frFreqencySettings, table(2, {labels[0], field(c.txtTxFrequency),  //
                                                labels[1], field(c.txtRxFrequency),  //
                                                labels[2], field(c.txtRxLocalOscFreq)})),
         framed(c.frTxSubtone, column({kinds(c.optTxCtcss, c.optTxDcs),
                                       table(2, {labels[3], overlaid({field(c.cmbTxSubtone), field(c.cmbTxDcs)}),  //
                                                 labels[4], field(c.txtTxSubtoneLevel)})})),
         framed(c.frRxSubtone, column({kinds(c.optRxCtcss, c.optRxDcs),
                                       table(2, {labels[5], overlaid({field(c.cmbRxSubtone), field(c.cmbRxDcs)})})}))},
        Distance::Usual);
}

[[nodiscard]] Layout modePart(ChannelEditControls& c) {
    ui::LayoutParts modes;
    for (auto& option : c.optRFMode) {
        modes.push_back(widget(option));
    }
    return framed(c.frRfMode, column({column(modes), column({widget(c.ckSimplexChannel), widget(c.ckTtrChannel),
                                                             widget(c.ckScanChannel), widget(c.ckDataMode)})},
                                     Distance::Usual));
}

[[nodiscard]] Layout p25Part(ChannelEditControls& c) {
    return framed(
        c.frP25ChannelSettings,
        column(
            {framed(c.frP25TransmitMode,
                    row({widget(c.optP25TransmitMode[0]), widget(c.optP25TransmitMode[1])}, Distance::Usual)),
             column({widget(c.chkP25RepeaterEnable), widget(c.chkTTRAnalogDataMode), widget(c.lblTTRAnalogDataMode)}),
             table(2, {widget(c.lblP25TalkgroupID), field(c.txtP25TalkgroupID),                  //
                       widget(c.lblP25TxNetworkAccessCode), field(c.txtP25TxNetworkAccessCode),  //
                       widget(c.lblP25RxNetworkAccessCode), field(c.txtP25RxNetworkAccessCode)}),
             widget(c.lblP25Bandwidth)},
            Distance::Usual));
}

[[nodiscard]] Layout synthesizerPart(ChannelEditControls& c) {
    return framed(c.frSynthesizer,
                  row({column({widget(c.lblTransmitSynthesizer),
                               table(2, {widget(c.lblTxSynthStepSize), field(c.txtTxSynthStepSize),      //
                                         widget(c.lblTxModulo), field(c.cmbTxModulo),                    //
                                         widget(c.lblTxAccelIntegral), field(c.txtTxAccelIntegral),      //
                                         widget(c.lblTxAccelProportion), field(c.cmbTxAccelProportion),  //
                                         widget(c.lblTxBinaryMain), field(c.txtTxBinaryMain)})}),
                       column({widget(c.lblReceiveSynthesizer),
                               table(2, {widget(c.lblRxSynthStepSize), field(c.txtRxSynthStepSize),      //
                                         widget(c.lblRxModulo), field(c.cmbRxModulo),                    //
                                         widget(c.lblRxAccelIntegral), field(c.txtRxAccelIntegral),      //
                                         widget(c.lblRxAccelProportion), field(c.cmbRxAccelProportion),  //
                                         widget(c.lblRxBinaryMain), field(c.txtRxBinaryMain)})})},
                      Distance::Usual));
}

[[nodiscard]] Layout levelPart(ChannelEditControls& c) {
    return framed(
        c.frDigitalPotentiometer,
        column({row(ui::equallyWide(
                        {level(c.lblTransmitPower, widget(c.sldTransmitPower), widget(c.txtTransmitPower)),
                         level(c.lblRefOscFreq, c.sldRefOscFreq, c.txtRefOscFreq, c.sldNBRefOscFreq, c.txtNBRefOscFreq),
                         level(c.lblVcoDeviation, c.sldVcoDeviation, c.txtVcoDeviation, c.sldNBVcoDeviation,
                               c.txtNBVcoDeviation),
                         level(c.lblRefOscDev, c.sldRefOscDev, c.txtRefOscDev, c.sldNBRefOscDev, c.txtNBRefOscDev)}),
                    Distance::Usual),
                row({widget(c.ckContinuousUpdateEnabled), widget(c.ckLockVcoRefOscDev)}, Distance::Usual)},
               Distance::Usual));
}

}  // namespace

void ChannelEditControls::arrange(ui::Desktop& desktop) {
    setLayout(desktop,
              ui::withMargin(column(
                  {channelPart(*this), row({signalPart(*this), modePart(*this), p25Part(*this)}, Distance::Usual),
                   row({synthesizerPart(*this), levelPart(*this)}, Distance::Usual), widget(lblHint, Grow::Wide),
                   row({widget(cmdAdvanced), ui::spring(), ui::buttonRow({&cmdOk, &cmdCancel, &cmdApply})})},
                  Distance::Usual)));
}

}  // namespace telvar::editform
