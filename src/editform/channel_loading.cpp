#include "editform/channel_loading.h"

#include <algorithm>

#include "base/conversion.h"
#include "base/rounding.h"
#include "base/text.h"
#include "editform/lists.h"
#include "editing/columns.h"
#include "model/mode_bits.h"
#include "model/readings.h"

namespace telvar::editform {

using model::ChannelKey;
using model::StoreMember;

namespace {

constexpr double hertzPerMegahertz = 1e6;
constexpr double hertzPerKilohertz = 1e3;
constexpr int megahertzDecimals = 6;
constexpr double highestLevel = 255.0;
constexpr int receiveSubtoneColumn = 4;

class Loading {
public:
    Loading(ChannelEditControls& controls, Levels& levels, ModeRules& rules, const EditedChannel& channel)
        : controls_(controls), levels_(levels), rules_(rules), channel_(channel) {}

    void run() {
        frequencies();
        transmitSubtone();
        receiveSubtone();
        rules_.showSubtoneKinds();
        mode();
        synthesizers();
        potentiometers();
        p25();
        rules_.applyLoadedMode();
    }

private:
    void frequencies();
    void transmitSubtone();
    void receiveSubtone();
    void mode();
    void synthesizers();
    void potentiometers();
    void narrowBias();
    void p25();

    [[nodiscard]] base::Value value(ChannelKey key) const { return channel_.record().get(key); }
    [[nodiscard]] base::Value member(StoreMember member) const { return channel_.dataStore().get(member); }
    [[nodiscard]] double number(ChannelKey key) const { return base::toDouble(value(key)); }
    [[nodiscard]] bool flag(ChannelKey key) const { return base::isTrue(value(key)); }
    [[nodiscard]] bool modeBit(std::int64_t bit) const {
        return (base::toBits(value(ChannelKey::ModeBits)) & bit) != 0;
    }
    [[nodiscard]] std::string plain(double value) const { return base::numberText(value, channel_.format); }

    void load(ui::TextBox& box, ChannelKey key) { box.loadText(plain(number(key))); }
    void loadMegahertz(ui::TextBox& box, ChannelKey key) {
        box.loadText(base::fixedText(number(key) / hertzPerMegahertz, megahertzDecimals, channel_.format));
    }
    void loadKilohertz(ui::TextBox& box, ChannelKey key) { box.loadText(plain(number(key) / hertzPerKilohertz)); }
    void loadTone(ui::ComboBox& list, ChannelKey key) {
        list.loadText(base::toFixedText(value(key), 1, channel_.format));
    }
    // An index that the list does not have leaves its selection.
    void loadIndex(ui::ComboBox& list, ChannelKey key) {
        const double index = base::roundHalfEven(number(key));
        if (index >= 0.0 && index < list.listCount()) {
            list.loadListIndex(static_cast<int>(index));
        }
    }
    // Every selector but 1 means 5.
    void loadModulo(ui::ComboBox& list, ChannelKey key) {
        list.loadListIndex(model::moduloReading(value(key)) == 8 ? 1 : 0);
    }
    [[nodiscard]] bool readsMultiple() const { return base::equalIgnoringCase(receiveSubtoneCell(), multipleTones); }
    [[nodiscard]] std::string receiveSubtoneCell() const;

    ChannelEditControls& controls_;
    Levels& levels_;
    ModeRules& rules_;
    const EditedChannel& channel_;
};

void Loading::frequencies() {
    loadMegahertz(controls_.txtTxFrequency, ChannelKey::TxFreq);
    loadMegahertz(controls_.txtRxFrequency, ChannelKey::RxFreq);
    const double receive = base::readDouble(controls_.txtRxFrequency.text(), channel_.format).value_or(0.0);
    const double offset = base::toDouble(member(StoreMember::LocalOscOffset)) / hertzPerMegahertz;
    controls_.txtRxLocalOscFreq.loadText(plain(receive + offset));
}

// As the grid shows the channel, or as it would show it.
std::string Loading::receiveSubtoneCell() const {
    if (channel_.gridShowsStore) {
        return channel_.grid != nullptr ? channel_.grid->text(channel_.number, receiveSubtoneColumn) : std::string();
    }
    if (model::isUnconfigured(value(ChannelKey::TxFreq), value(ChannelKey::RxFreq))) {
        return std::string(editing::noValue);
    }
    return editing::columns[receiveSubtoneColumn].render(
        {.store = channel_.dataStore(), .channel = channel_.number, .format = channel_.format});
}

// Both lists, of which one is hidden: the user may choose the other kind.
void Loading::transmitSubtone() {
    (flag(ChannelKey::TxCTCSSDCS) ? controls_.optTxDcs : controls_.optTxCtcss).loadValue(true);
    loadIndex(controls_.cmbTxDcs, ChannelKey::TxDCSIndex);
    loadTone(controls_.cmbTxSubtone, ChannelKey::TxSub);
}

void Loading::receiveSubtone() {
    (flag(ChannelKey::RxCTCSSDCS) ? controls_.optRxDcs : controls_.optRxCtcss).loadValue(true);
    loadIndex(controls_.cmbRxDcs, ChannelKey::RxDCSIndex);
    if (readsMultiple()) {
        controls_.cmbRxSubtone.loadText(multipleTones);
    } else {
        loadTone(controls_.cmbRxSubtone, ChannelKey::RxSub);
    }
}

void Loading::mode() {
    controls_.ckTtrChannel.loadValue(modeBit(model::mode::repeater) ? 1 : 0);
    controls_.ckSimplexChannel.loadValue(modeBit(model::mode::simplex) ? 1 : 0);
    controls_.ckScanChannel.loadValue(flag(ChannelKey::scan) ? 1 : 0);
    controls_.ckDataMode.loadValue(modeBit(model::mode::dataMode) ? 1 : 0);
}

void Loading::synthesizers() {
    load(controls_.txtTxSubtoneLevel, ChannelKey::TxLevel);
    loadKilohertz(controls_.txtTxSynthStepSize, ChannelKey::SynthStep);
    loadKilohertz(controls_.txtRxSynthStepSize, ChannelKey::RxSynthStep);
    load(controls_.txtTxAccelIntegral, ChannelKey::AccelInt);
    load(controls_.txtRxAccelIntegral, ChannelKey::RxAccelInt);
    load(controls_.txtTxBinaryMain, ChannelKey::BinMain);
    load(controls_.txtRxBinaryMain, ChannelKey::RxBinMain);
    loadModulo(controls_.cmbTxModulo, ChannelKey::Modulo);
    loadModulo(controls_.cmbRxModulo, ChannelKey::RxModulo);
    loadIndex(controls_.cmbTxAccelProportion, ChannelKey::AccelProp);
    loadIndex(controls_.cmbRxAccelProportion, ChannelKey::RxAccelProp);
}

// The bias is shown inverted: 255 is the lowest level of the instrument's scale.
void Loading::potentiometers() {
    levels_.transmitPower.load(number(ChannelKey::TxPower));
    levels_.wideBias.load(highestLevel - number(ChannelKey::RefOscFreq));
    narrowBias();
    levels_.wideVco.load(number(ChannelKey::VCODev));
    levels_.narrowVco.load(number(ChannelKey::NBVCODev));
    levels_.wideReference.load(number(ChannelKey::RefOscDev));
    levels_.narrowReference.load(number(ChannelKey::NBRefOscDev));
    const bool narrow = modeBit(model::mode::narrowBand);
    (narrow ? controls_.optNarrowBand : controls_.optWideBand).loadValue(true);
}

// Older hardware has one bias for both bands, which it keeps under the wide band's key.
void Loading::narrowBias() {
    const bool switchable = base::isTrue(member(StoreMember::BandwidthSwitchable));
    rules_.setBandwidthSwitchable(switchable);
    if (switchable) {
        const bool own = base::toSingle(member(StoreMember::HardwareRevision)) >= model::narrowBandBiasRevision;
        levels_.narrowBias.load(highestLevel - number(own ? ChannelKey::NBRefOscFreq : ChannelKey::RefOscFreq));
    }
}

void Loading::p25() {
    controls_.optP25TransmitMode[flag(ChannelKey::P25TransmitMode) ? 1 : 0].loadValue(true);
    controls_.chkP25RepeaterEnable.loadValue(flag(ChannelKey::p25RepeaterEnable) ? 1 : 0);
    controls_.chkTTRAnalogDataMode.loadValue(flag(ChannelKey::TTRAnalogDataMode) ? 1 : 0);
    controls_.txtP25TxNetworkAccessCode.loadText(base::toText(value(ChannelKey::P25TxNetworkAccessCode)));
    controls_.txtP25RxNetworkAccessCode.loadText(base::toText(value(ChannelKey::P25RxNetworkAccessCode)));
    controls_.txtP25TalkgroupID.loadText(base::toText(value(ChannelKey::P25TalkgroupID)));
}

}  // namespace

void loadControls(ChannelEditControls& controls, Levels& levels, ModeRules& rules, const EditedChannel& channel) {
    Loading(controls, levels, rules, channel).run();
}

}  // namespace telvar::editform
