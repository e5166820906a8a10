#include "model/readings.h"

#include "base/conversion.h"
#include "model/mode_bits.h"

namespace telvar::model {

bool isUnconfigured(const base::Value& txFreq, const base::Value& rxFreq) {
    return (base::toBits(txFreq) | base::toBits(rxFreq)) == 0;
}

std::string_view rfModeReading(const base::Value& modeBits, const base::Value& p25RepeaterEnable) {
    const auto bits = base::toBits(modeBits);
    const auto p25 = base::toBits(p25RepeaterEnable);
    if (((bits & mode::repeater) & p25) != 0) {
        return "Mixed Mode";
    }
    if (((bits & mode::repeater) & ~p25) != 0) {
        return "Repeater";
    }
    if ((~(bits & mode::repeater) & p25) != 0) {
        return "P25 Repeater";
    }
    if ((bits & mode::simplex) != 0) {
        return "Simplex";
    }
    return "Duplex";
}

std::string_view bandwidthReading(const base::Value& modeBits, const base::Value& bandwidthSwitchable,
                                  const base::Value& fccNarrowBandRadio) {
    if (!base::isTrue(bandwidthSwitchable)) {
        return "N/A";
    }
    const auto narrowOnly = base::toBits(fccNarrowBandRadio) & base::toBits(bandwidthSwitchable);
    if (((base::toBits(modeBits) & mode::narrowBand) | narrowOnly) != 0) {
        return "Narrow";
    }
    return "Wide";
}

std::string_view transmitModeReading(const base::Value& modeBits, const base::Value& p25TransmitMode) {
    if (((base::toBits(modeBits) & mode::narrowBand) & base::toBits(p25TransmitMode)) != 0) {
        return "P25 Digital";
    }
    return "Analogue";
}

std::int16_t moduloReading(const base::Value& selector) { return base::toDouble(selector) == 1.0 ? 8 : 5; }

}  // namespace telvar::model
