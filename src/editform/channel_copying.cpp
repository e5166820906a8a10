// The part of storing that gives the shared settings to the other selected channels. Frequencies and subtones are never
// among them.
#include <array>

#include "base/conversion.h"
#include "editform/channel_storing.h"

namespace telvar::editform {

using model::ChannelKey;

namespace {

constexpr std::array<ChannelKey, 25> sharedKeys{
    ChannelKey::scan,
    ChannelKey::ModeBits,
    ChannelKey::P25TransmitMode,
    ChannelKey::p25RepeaterEnable,
    ChannelKey::P25TalkgroupID,
    ChannelKey::P25TxNetworkAccessCode,
    ChannelKey::P25RxNetworkAccessCode,
    ChannelKey::TxLevel,
    ChannelKey::SynthStep,
    ChannelKey::AccelInt,
    ChannelKey::BinMain,
    ChannelKey::Modulo,
    ChannelKey::AccelProp,
    ChannelKey::TxPower,
    ChannelKey::VCODev,
    ChannelKey::RefOscFreq,
    ChannelKey::RefOscDev,
    ChannelKey::NBVCODev,
    ChannelKey::NBRefOscDev,
    ChannelKey::NBRefOscFreq,
    ChannelKey::RxBinMain,
    ChannelKey::RxSynthStep,
    ChannelKey::RxAccelInt,
    ChannelKey::RxModulo,
    ChannelKey::RxAccelProp,
};

[[nodiscard]] const char* modeText(const ChannelEditControls& controls) {
    if (controls.ckTtrChannel.checked()) {
        return "Repeater";
    }
    if (controls.chkP25RepeaterEnable.checked()) {
        return "P25 Repeater";
    }
    return controls.ckSimplexChannel.checked() ? "Simplex" : "Duplex";
}

}  // namespace

void ChannelStoring::CopyToSelectedChannels() {
    for (const auto channel : request_.alsoTo) {
        if (channel != channel_.number) {
            copiedTo_.push_back(channel);
            copyKeys(channel);
            copyTexts(channel);
        }
    }
}

void ChannelStoring::copyKeys(std::int16_t channel) {
    for (const auto key : sharedKeys) {
        step([&] { channel_.dataStore().channel(channel).put(key, channel_.record().get(key)); });
    }
}

void ChannelStoring::copyTexts(std::int16_t channel) {
    const auto text = [&](int column, const std::string& shown) {
        step([&] { channel_.cells().setText(channel, column, shown); });
    };
    text(5, modeText(controls_));
    text(6, controls_.ckScanChannel.checked() ? "Yes" : "No");
    if (const auto switchable = bandwidthSwitchable()) {
        const char* const bandwidth = controls_.optNarrowBand.value() ? "Narrow" : "Wide";
        text(7, *switchable ? bandwidth : "N/A");
    }
    text(8, controls_.optP25TransmitMode[1].value() ? "P25 Digital" : "Analogue");
}

}  // namespace telvar::editform
