// Where the controls of the channel edit form stand: general settings above, what needs full access below.
#include "editform/channel_edit_controls.h"
#include "ui/layout.h"

namespace telvar::editform {

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

// Label above slider above box; the sliders of both bands at the same place, and so the boxes.
[[nodiscard]] Layout level(ui::Label& label, ui::Slider& slider, ui::TextBox& box) {
    return column({widget(label), widget(slider), widget(box)});
}

[[nodiscard]] Layout level(ui::Label& label, ui::Slider& wide, ui::TextBox& wideBox, ui::Slider& narrow,
                           ui::TextBox& narrowBox) {
    return column(
        {widget(label), overlaid({widget(wide), widget(narrow)}), overlaid({widget(wideBox), widget(narrowBox)})});
}

[[nodiscard]] Layout channelPart(ChannelEditControls& c) {
    return row({column({row({widget(c.lblEditChannel), widget(c.txtEditChannel)}, Distance::Usual),
                        widget(c.lblSelectedChannels)}),
                ui::spring(),
                framed(c.frChannelSpacing, row({widget(c.optWideBand), widget(c.optNarrowBand)}, Distance::Usual))},
               Distance::Usual);
}

[[nodiscard]] Layout signalPart(ChannelEditControls& c) {
    const auto kinds = [](ui::OptionButton& ctcss, ui::OptionButton& dcs) {
        return row({widget(ctcss), widget(dcs)}, Distance::Usual);
    };
    return column(
        {framed(c.frFreqencySettings, table(2, {widget(c.lblTxFrequency), field(c.txtTxFrequency),  //
                                                widget(c.lblRxFrequency), field(c.txtRxFrequency),  //
                                                widget(c.lblRxLocalOscFreq), field(c.txtRxLocalOscFreq)})),
         framed(c.frTxSubtone,
                column({kinds(c.optTxCtcss, c.optTxDcs),
                        table(2, {widget(c.lblTxDcsSubtone), overlaid({field(c.cmbTxSubtone), field(c.cmbTxDcs)}),  //
                                  widget(c.lblTxSubtoneLevel), field(c.txtTxSubtoneLevel)})})),
         framed(c.frRxSubtone,
                column({kinds(c.optRxCtcss, c.optRxDcs),
                        table(2, {widget(c.lblRxDcsSubtone), overlaid({field(c.cmbRxSubtone), field(c.cmbRxDcs)})})}))},
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
        column({row({level(c.lblTransmitPower, c.sldTransmitPower, c.txtTransmitPower),
                     level(c.lblRefOscFreq, c.sldRefOscFreq, c.txtRefOscFreq, c.sldNBRefOscFreq, c.txtNBRefOscFreq),
                     level(c.lblVcoDeviation, c.sldVcoDeviation, c.txtVcoDeviation, c.sldNBVcoDeviation,
                           c.txtNBVcoDeviation),
                     level(c.lblRefOscDev, c.sldRefOscDev, c.txtRefOscDev, c.sldNBRefOscDev, c.txtNBRefOscDev)},
                    Distance::Usual),
                row({widget(c.ckContinuousUpdateEnabled), widget(c.ckLockVcoRefOscDev)}, Distance::Usual)},
               Distance::Usual));
}

}  // namespace

void ChannelEditControls::arrange(ui::Desktop& desktop) {
    setLayout(desktop,
              ui::withMargin(column({channelPart(*this),
                                     row({signalPart(*this), modePart(*this), p25Part(*this)}, Distance::Usual),
                                     row({synthesizerPart(*this), levelPart(*this)}, Distance::Usual),
                                     ui::buttonRow({&cmdAdvanced, &cmdOk, &cmdCancel, &cmdApply})},
                                    Distance::Usual)));
}

}  // namespace telvar::editform
