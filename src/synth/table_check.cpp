#include "synth/table_check.h"

#include <cmath>
#include <exception>
#include <limits>
#include <string_view>
#include <utility>

#include "base/checked.h"
#include "base/conversion.h"
#include "base/rounding.h"
#include "model/readings.h"
#include "synth/divider.h"

namespace telvar::synth {

namespace {

using model::ChannelKey;
using model::StoreMember;

constexpr std::int32_t smallestReceiveMain = 14;  // the receive check keeps a margin that the calculator does not
constexpr std::int32_t smallestTransmitMain = 0;
constexpr std::int32_t smallestChipStep = 5000;  // Hz, for the older synthesizer chip
constexpr std::string_view olderChip = "N.A.";   // what the store says when that chip is fitted
constexpr float revisionWithDcs = 2.4F;
constexpr int mostCounted = 16;
constexpr const char* lineBreak = "\r\n";

struct Direction {
    std::string_view name;
    ChannelKey step;
    ChannelKey modulo;
    StoreMember reference;
    StoreMember chip;
    std::int32_t smallestMain;
};

constexpr Direction receive{"RX",
                            ChannelKey::RxSynthStep,
                            ChannelKey::RxModulo,
                            StoreMember::RxReferenceFrequency,
                            StoreMember::RxSynthChipInfo,
                            smallestReceiveMain};
constexpr Direction transmit{"TX",
                             ChannelKey::SynthStep,
                             ChannelKey::Modulo,
                             StoreMember::TxReferenceFrequency,
                             StoreMember::TxSynthChipInfo,
                             smallestTransmitMain};

struct Faults {
    bool referenceOverflow = false;
    bool divide = false;
};

// One pass over the table.
class TableCheck {
public:
    explicit TableCheck(model::DataStore& store) : store_(store) {}

    [[nodiscard]] TableVerdict run() {
        try {
            for (index_ = 0; index_ < model::channelCount; ++index_) {
                checkChannel();
            }
            // A fault from here on names the last channel.
            index_ = model::channelCount - 1;
            conclude();
        } catch (const std::exception& fault) {
            tell("Error in channel " + number() + ".  Please check information entered." + lineBreak + fault.what());
        }
        return verdict_;
    }

private:
    [[nodiscard]] std::string number() const { return std::to_string(index_ + 1); }

    [[nodiscard]] base::Value read(ChannelKey key) { return store_.ChannelTable()[index_].get(key); }

    // A frequency that cannot be read counts as 0.
    [[nodiscard]] base::Value readFrequency(ChannelKey key) {
        try {
            auto value = read(key);
            static_cast<void>(base::toDouble(value));
            return value;
        } catch (const std::exception&) {
            return std::int32_t{0};
        }
    }

    void checkChannel() {
        // Whole hertz from here on: less than half of one is no frequency, in the grid neither.
        const auto txFreq = base::toInt32(readFrequency(ChannelKey::TxFreq));
        const auto rxFreq = base::toInt32(readFrequency(ChannelKey::RxFreq));
        const bool transmits = txFreq != 0;
        const bool receives = rxFreq != 0;
        if (!transmits && !receives) {
            return;
        }
        // Both are read for every channel: a read that fails ends the check.
        const bool transmitsDcs = base::isTrue(read(ChannelKey::TxCTCSSDCS));
        const bool receivesDcs = base::isTrue(read(ChannelKey::RxCTCSSDCS));
        usesDcs_ = usesDcs_ || transmitsDcs || receivesDcs;
        Faults faults;
        if (receives) {
            const auto offset = base::toInt32(store_.get(StoreMember::LocalOscOffset));
            checkDirection(receive, base::checkedAdd(rxFreq, offset), faults);
        }
        if (transmits) {
            checkDirection(transmit, txFreq, faults);
        }
        count(faults);
    }

    void checkDirection(const Direction& direction, std::int32_t vco, Faults& faults) {
        const auto step = base::toInt32(read(direction.step));
        const std::int32_t modulo = model::moduloReading(read(direction.modulo));
        const auto comparison = base::checkedMultiply(step, modulo);
        const auto reference = base::toInt32(store_.get(direction.reference));
        const bool divides =
            base::checkedRemainder(reference, comparison) == 0 && base::checkedRemainder(vco, step) == 0;
        const auto split = splitDivider(floorQuotient(vco, comparison));
        if (!divides || !fitsCounters(split, direction.smallestMain)) {
            faults.divide = true;
        }
        if (referenceDivider(reference, comparison) > largestReferenceDivider) {
            faults.referenceOverflow = true;
            overflows_ += overflows_.empty() ? "NR overflows in channel " : ", ";
            overflows_ += number() + " " + std::string(direction.name);
        }
        if (base::toText(store_.get(direction.chip)) == olderChip && step < smallestChipStep) {
            smallSteps_ += smallSteps_.empty() ? "" : ", ";
            smallSteps_ += number() + " (" + std::string(direction.name) + ")";
        }
    }

    // Rounded half to even; beyond 16 bits is a fault, not an entry, and so is a power of two beyond 32 bits. One below
    // 1 enlarges the divider.
    [[nodiscard]] std::int16_t referenceDivider(std::int32_t reference, std::int32_t comparison) {
        const double scaling = std::exp2(base::toDouble(store_.referenceDividerScaling()));
        if (scaling > static_cast<double>(std::numeric_limits<std::int32_t>::max())) {
            throw base::ArithmeticFault::overflow();
        }
        return base::roundTo<std::int16_t>(reference / (comparison * scaling));
    }

    void count(const Faults& faults) {
        // The list looks at the count as it stood before this channel.
        if (faults.divide && counted_ < mostCounted) {
            divides_ += number() + ", ";
        }
        for (const bool fault : {faults.referenceOverflow, faults.divide}) {
            if (fault) {
                allGood_ = false;
                counted_ += counted_ < mostCounted ? 1 : 0;
            }
        }
    }

    void conclude() {
        if (!smallSteps_.empty()) {
            verdict_.findings.push_back(
                {.text = "Phillips SA 7025 PLL chip detected, synthesizer step size 5kHZ or larger is recommended to "
                         "maintain RF performance in channel " +
                         smallSteps_,
                 .title = std::nullopt});
        }
        if (!allGood_) {
            tell(report());
            return;
        }
        if (usesDcs_ && !dcsFitted()) {
            tell("DCS option not present.  Please remove DCS subtones from channel/s.");
            return;
        }
        verdict_.good = true;
    }

    [[nodiscard]] bool dcsFitted() {
        return base::isTrue(store_.get(StoreMember::DCSOptionFitted)) &&
               base::toSingle(store_.get(StoreMember::HardwareRevision)) >= revisionWithDcs;
    }

    [[nodiscard]] std::string report() {
        if (counted_ >= mostCounted) {
            for (auto* list : {&overflows_, &divides_}) {
                *list += list->empty() ? "" : "..";
            }
        } else if (!divides_.empty()) {
            divides_.resize(divides_.size() - 2);
        }
        std::string text;
        if (!divides_.empty()) {
            // A carriage return alone in the middle: the report has always been written so.
            text += "Reference frequency divide error or main frequency divide error in channels " + divides_ +
                    ".\rHint: Correct frequency or alter modulus or step size." + lineBreak;
        }
        if (!overflows_.empty()) {
            text += overflows_ + "." + lineBreak + "Hint: Increase the step size.";
        }
        return text;
    }

    void tell(std::string text) { verdict_.findings.push_back({.text = std::move(text), .title = messageTitle()}); }

    // A title that cannot be read does not swallow the message.
    [[nodiscard]] std::optional<std::string> messageTitle() {
        try {
            return base::toText(store_.get(StoreMember::MessageTitle));
        } catch (const std::exception&) {
            return std::nullopt;
        }
    }

    model::DataStore& store_;
    std::int16_t index_ = 0;
    TableVerdict verdict_;
    std::string overflows_;
    std::string divides_;
    std::string smallSteps_;
    int counted_ = 0;
    bool allGood_ = true;
    bool usesDcs_ = false;
};

}  // namespace

TableVerdict checkFrequencies(model::DataStore& store) { return TableCheck(store).run(); }

std::string checkScanCount(model::DataStore& store) {
    try {
        int scanned = 0;
        for (std::int16_t index = 0; index < model::channelCount; ++index) {
            const auto record = store.ChannelTable()[index];
            if (base::isTrue(record.get(ChannelKey::scan)) &&
                !model::isUnconfigured(record.get(ChannelKey::TxFreq), record.get(ChannelKey::RxFreq))) {
                ++scanned;
            }
        }
        return scanned > largestScanCount ? "Total number of channel scan must not exceed 40." : "";
    } catch (const std::exception&) {
        return scanCountFault;
    }
}

}  // namespace telvar::synth
