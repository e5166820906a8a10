#include "editform/channel_storing.h"

#include <limits>
#include <utility>

#include "base/conversion.h"
#include "base/rounding.h"
#include "base/text.h"
#include "editform/lists.h"
#include "editing/cell_storing.h"
#include "editing/columns.h"
#include "editing/validators.h"
#include "model/mode_bits.h"
#include "model/subtones.h"

namespace telvar::editform {

using model::ChannelKey;
using model::StoreMember;
namespace mode = model::mode;

namespace {

constexpr double lowestFrequency = 10.0;     // MHz
constexpr double highestFrequency = 1000.0;  // MHz
constexpr double hertzPerMegahertz = 1e6;
constexpr float highestStep = 25.5F;  // kHz
constexpr float hertzPerKilohertz = 1000.0F;
constexpr float highestLevel = 255.0F;
constexpr float unbounded = -std::numeric_limits<float>::infinity();
constexpr std::size_t codeLength = 4;

// Of the last column that an unconfigured channel shows without a value.
constexpr int lastVoidedColumn = 5;

[[nodiscard]] base::Value wholeValue(double number) {
    const auto whole = base::roundTo<std::int32_t>(number);
    if (std::in_range<std::int16_t>(whole)) {
        return static_cast<std::int16_t>(whole);
    }
    return whole;
}

[[nodiscard]] std::string yesOrNo(bool yes) { return yes ? "Yes" : "No"; }

// Without trimming: a blank is a character that is no hexadecimal digit.
[[nodiscard]] std::string padded(std::string code) {
    return code.size() < codeLength ? code.insert(0, codeLength - code.size(), '0') : code;
}

}  // namespace

// One direction's subtone.
struct ChannelStoring::SideKeys {
    ChannelKey isDcs;
    ChannelKey dcsIndex;
    ChannelKey tone;
    int column;
    const char* message;
};

// A whole number; the bounds are held against the value as it is typed.
struct ChannelStoring::NumberField {
    ui::TextBox& box;
    ChannelKey key{};
    float lowest = 0.0F;
    float highest = 0.0F;
    const char* message = nullptr;
    bool inverted = false;  // 255 minus the entry is tested and stored
};

ChannelStoring::ChannelStoring(ChannelEditControls& controls, const session::Session& session, EditedChannel channel,
                               const ChannelTicket& stillEdited, StoringRequest request)
    : controls_(controls),
      session_(session),
      channel_(std::move(channel)),
      stillEdited_(stillEdited),
      request_(std::move(request)) {}

bool ChannelStoring::StoreControlsToMemory() {
    try {
        step([&] { channel_.cells().setRow(channel_.number); });
        frequency(controls_.txtTxFrequency, ChannelKey::TxFreq, 1,
                  "Transmit frequency must be between 10 and 1000 MHz or 0 to disable.", transmits_);
        frequency(controls_.txtRxFrequency, ChannelKey::RxFreq, 2, "Receive frequency must be between 10 and 1000 MHz.",
                  receives_);
        transmitSubtone();
        receiveSubtone();
        channelMode();
        scan();
        bandwidth();
        dataMode();
        numbers();
        lists();
        levels();
        p25();
        conclude();
    } catch (const Abandoned&) {
        failed_ = true;
    }
    return !failed_;
}

// A refused frequency reaches the store all the same; only its cell stays.
void ChannelStoring::frequency(ui::TextBox& box, ChannelKey key, int column, const char* message,
                               std::optional<double>& read) {
    const auto megahertz = noted(box, box.text(), base::readDouble(box.text(), channel_.format));
    if (!megahertz) {
        return;
    }
    read = megahertz;
    if ((*megahertz < lowestFrequency || *megahertz > highestFrequency) && *megahertz != 0.0) {
        refuse(box, message);
    } else {
        show(column, box.text());
    }
    put(key, *megahertz * hertzPerMegahertz);
}

void ChannelStoring::transmitSubtone() {
    constexpr SideKeys keys{ChannelKey::TxCTCSSDCS, ChannelKey::TxDCSIndex, ChannelKey::TxSub, 3,
                            "Transmit subtone must be between 65 and 257 Hz or 0 to disable."};
    if (controls_.optTxDcs.value()) {
        if (storeDcs(controls_.cmbTxDcs, keys)) {
            changeModeBits(mode::transmitDcs, 0);
        }
    } else if (storeTone(controls_.cmbTxSubtone, keys)) {
        changeModeBits(0, mode::transmitDcs);
    }
}

// The receive side's flag goes with its bit, whatever becomes of the tone.
void ChannelStoring::receiveSubtone() {
    constexpr SideKeys keys{ChannelKey::RxCTCSSDCS, ChannelKey::RxDCSIndex, ChannelKey::RxSub, 4,
                            "Receive subtone must be between 65 and 257 Hz or 0 to disable."};
    if (controls_.optRxDcs.value()) {
        if (storeDcs(controls_.cmbRxDcs, keys)) {
            changeModeBits(mode::receiveDcs, mode::multipleReceiveSubtones);
        }
        return;
    }
    changeModeBits(0, mode::receiveDcs);
    put(keys.isDcs, false);
    if (base::equalIgnoringCase(base::trimmed(controls_.cmbRxSubtone.text()), multipleTones)) {
        changeModeBits(mode::multipleReceiveSubtones, 0);
    } else if (storeTone(controls_.cmbRxSubtone, keys)) {
        changeModeBits(0, mode::multipleReceiveSubtones);
    }
}

// Answers whether a code is selected.
bool ChannelStoring::storeDcs(const ui::ComboBox& list, const SideKeys& keys) {
    if (list.listIndex() < 0) {
        return false;
    }
    put(keys.isDcs, true);
    putIndex(list, keys.dcsIndex);
    show(keys.column, list.text());
    return true;
}

// Answers whether the tone was accepted.
bool ChannelStoring::storeTone(ui::ComboBox& list, const SideKeys& keys) {
    const bool disabled = base::equalIgnoringCase(base::trimmed(list.text()), disabledTone);
    const std::expected<float, base::NumberError> tone =
        disabled ? 0.0F : base::readSingle(list.text(), channel_.format);
    if (!tone) {
        notes_.push_back({.field = &list, .kind = whyNoTone(list.text(), tone.error())});
        return false;
    }
    if (*tone != 0.0F && (*tone < model::lowestTone || *tone > model::highestTone)) {
        refuse(list, keys.message);
        return false;
    }
    put(keys.tone, *tone);
    put(keys.isDcs, false);
    put(keys.dcsIndex, std::int16_t{0});
    show(keys.column, base::toFixedText(*tone, 1, channel_.format) + " Hz");
    return true;
}

void ChannelStoring::channelMode() {
    constexpr int column = 5;
    if (controls_.ckTtrChannel.checked()) {
        show(column, "Repeater");
        changeModeBits(mode::repeater, mode::simplex);
    } else if (controls_.ckSimplexChannel.checked()) {
        show(column, "Simplex");
        changeModeBits(mode::simplex, mode::repeater);
    } else {
        show(column, "Duplex");
        changeModeBits(0, mode::simplex | mode::repeater);
    }
}

void ChannelStoring::scan() {
    const bool scans = controls_.ckScanChannel.checked();
    show(6, yesOrNo(scans));
    put(ChannelKey::scan, scans);
}

void ChannelStoring::bandwidth() {
    constexpr int column = 7;
    const auto switchable = bandwidthSwitchable();
    if (!switchable) {
        return;
    }
    if (!*switchable) {
        show(column, "N/A");
    } else if (controls_.optNarrowBand.value()) {
        show(column, "Narrow");
        changeModeBits(mode::narrowBand, 0);
    } else {
        show(column, "Wide");
        changeModeBits(0, mode::narrowBand);
    }
}

void ChannelStoring::dataMode() {
    const bool data = controls_.ckDataMode.checked();
    show(8, yesOrNo(data));
    changeModeBits(data ? mode::dataMode : 0, data ? 0 : mode::dataMode);
}

// Of the subtone level and the accelerator integrals only the upper bound is tested.
void ChannelStoring::numbers() {
    constexpr auto integral = "Binary accelerator for integral charge pump must be between 0 and 15.";
    constexpr auto main = "Binary accelerator main must be between 0 and 255.";
    store({controls_.txtTxSubtoneLevel, ChannelKey::TxLevel, unbounded, 6.0F,
           "Transmitter subtone level must be between 0 and 6."});
    stepSize(controls_.txtTxSynthStepSize, ChannelKey::SynthStep);
    stepSize(controls_.txtRxSynthStepSize, ChannelKey::RxSynthStep);
    store({controls_.txtTxAccelIntegral, ChannelKey::AccelInt, unbounded, 15.0F, integral});
    store({controls_.txtRxAccelIntegral, ChannelKey::RxAccelInt, unbounded, 15.0F, integral});
    store({controls_.txtTxBinaryMain, ChannelKey::BinMain, 0.0F, 255.0F, main});
    store({controls_.txtRxBinaryMain, ChannelKey::RxBinMain, 0.0F, 255.0F, main});
}

void ChannelStoring::store(const NumberField& field) {
    const auto entered = noted(field.box, field.box.text(), base::readSingle(field.box.text(), channel_.format));
    if (!entered) {
        return;
    }
    const float number = field.inverted ? highestLevel - *entered : *entered;
    if (number < field.lowest || number > field.highest) {
        refuse(field.box, field.message);
        return;
    }
    std::optional<base::Value> whole;
    step([&] { whole = wholeValue(static_cast<double>(number)); });
    if (whole) {
        put(field.key, *whole);
    } else {
        notes_.push_back({.field = &field.box, .kind = NoteKind::TooLarge});
    }
}

// Whole hertz. "Synthesiser" is spelled so here and nowhere else.
void ChannelStoring::stepSize(ui::TextBox& box, ChannelKey key) {
    const auto kilohertz = noted(box, box.text(), base::readSingle(box.text(), channel_.format));
    if (!kilohertz) {
        return;
    }
    if (*kilohertz < 0.0F || *kilohertz > highestStep) {
        refuse(box, "Synthesiser step size must be between 0 and 25.5 kHz.");
        return;
    }
    step([&] { put(key, wholeValue(static_cast<double>(*kilohertz * hertzPerKilohertz))); });
}

void ChannelStoring::lists() {
    putIndex(controls_.cmbTxModulo, ChannelKey::Modulo);
    putIndex(controls_.cmbRxModulo, ChannelKey::RxModulo);
    putIndex(controls_.cmbTxAccelProportion, ChannelKey::AccelProp);
    putIndex(controls_.cmbRxAccelProportion, ChannelKey::RxAccelProp);
}

// The levels of the band in use; of a store that cannot say which one that is, none but the power.
void ChannelStoring::levels() {
    constexpr auto bias = "Reference bias setting must be between 0 and 255.";
    constexpr auto vco = "VCO deviation setting must be between 0 and 255.";
    constexpr auto reference = "Reference level setting must be between 0 and 255.";
    store({controls_.txtTransmitPower, ChannelKey::TxPower, 0.0F, highestLevel,
           "Transmit power setting must be between 0 and 255."});
    const auto switchable = bandwidthSwitchable();
    if (!switchable) {
        return;
    }
    const bool narrow = *switchable && controls_.optNarrowBand.value();
    store({.box = narrow ? controls_.txtNBRefOscFreq : controls_.txtRefOscFreq,
           .key = narrow ? ChannelKey::NBRefOscFreq : ChannelKey::RefOscFreq,
           .lowest = 0.0F,
           .highest = highestLevel,
           .message = bias,
           .inverted = true});
    store({narrow ? controls_.txtNBVcoDeviation : controls_.txtVcoDeviation,
           narrow ? ChannelKey::NBVCODev : ChannelKey::VCODev, 0.0F, highestLevel, vco});
    store({narrow ? controls_.txtNBRefOscDev : controls_.txtRefOscDev,
           narrow ? ChannelKey::NBRefOscDev : ChannelKey::RefOscDev, 0.0F, highestLevel, reference});
}

void ChannelStoring::p25() {
    put(ChannelKey::P25TransmitMode, controls_.optP25TransmitMode[1].value());
    put(ChannelKey::p25RepeaterEnable, controls_.chkP25RepeaterEnable.checked());
    put(ChannelKey::TTRAnalogDataMode, controls_.chkTTRAnalogDataMode.checked());
    code(controls_.txtP25TxNetworkAccessCode, ChannelKey::P25TxNetworkAccessCode,
         "P25 TX Network Access Code must be 4 chars long and in hexadecimal format");
    code(controls_.txtP25RxNetworkAccessCode, ChannelKey::P25RxNetworkAccessCode,
         "P25 RX Network Access Code must be 4 chars long and in hexadecimal format");
    code(controls_.txtP25TalkgroupID, ChannelKey::P25TalkgroupID,
         "P25 Talkgroup ID must be 4 chars long and in hexadecimal format");
}

void ChannelStoring::code(ui::TextBox& box, ChannelKey key, const char* message) {
    const auto text = padded(box.text());
    if (text.size() == codeLength && editing::isHexadecimal(text)) {
        put(key, base::textValue(text));
    } else {
        refuse(box, message);
    }
}

void ChannelStoring::conclude() {
    if (failed_) {
        return;
    }
    if (transmits_ == 0.0 && receives_ == 0.0) {
        for (int column = 1; column <= lastVoidedColumn; ++column) {
            show(column, std::string(editing::noValue));
        }
    }
    if (!request_.potentiometersOnly) {
        CopyToSelectedChannels();
    } else {
        step([&] {
            session_.inform("Pot values have been altered.\r\nTo permanently save changes 'Send Data to Telvar'.");
        });
    }
}

// -- single statements -----------------------------------------------------------------------------------------------

void ChannelStoring::put(ChannelKey key, const base::Value& value) {
    step([&] { channel_.record().put(key, value); });
}

void ChannelStoring::putIndex(const ui::ComboBox& list, ChannelKey key) {
    if (list.listIndex() >= 0) {
        put(key, static_cast<std::int16_t>(list.listIndex()));
    }
}

void ChannelStoring::changeModeBits(std::int64_t set, std::int64_t clear) {
    step([&] {
        editing::changeModeBits({.store = channel_.dataStore(), .channel = channel_.number, .format = channel_.format},
                                set, clear);
    });
}

void ChannelStoring::show(int column, const std::string& text) {
    step([&] { channel_.cells().setText(channel_.number, column, text); });
}

void ChannelStoring::refuse(ui::Widget& field, const std::string& message) {
    failed_ = true;
    notes_.push_back({.field = &field, .kind = NoteKind::Refused});
    field.setForeColor(ui::red);
    step([&] { session_.refuse(message); });
}

std::optional<bool> ChannelStoring::bandwidthSwitchable() {
    std::optional<bool> switchable;
    step([&] { switchable = base::isTrue(channel_.dataStore().get(StoreMember::BandwidthSwitchable)); });
    return switchable;
}

template <class Number>
std::optional<Number> ChannelStoring::noted(ui::Widget& field, const std::string& text,
                                            const std::expected<Number, base::NumberError>& number) {
    if (!number) {
        notes_.push_back({.field = &field, .kind = whyNoNumber(text, number.error())});
        return std::nullopt;
    }
    return *number;
}

}  // namespace telvar::editform
