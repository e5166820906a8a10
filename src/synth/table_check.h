// The checks of a whole channel table before it is sent: every channel's receive and transmit synthesizer settings, the
// use of DCS subtones against what the radio has, and the number of scanned channels. Findings are messages; who shows
// them decides where.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/data_store.h"

namespace telvar::synth {

// One message of the check. All of them carry the exclamation icon and an OK button.
struct Finding {
    std::string text;
    std::optional<std::string> title;  // none: the default title of the program that shows it
    bool operator==(const Finding&) const = default;
};

struct TableVerdict {
    bool good = false;  // the table may be sent
    std::vector<Finding> findings;
    bool operator==(const TableVerdict&) const = default;
};

// Reads everything from the store; never fails: a fault ends the check with a finding of its own. A warning about the
// synthesizer chip alone leaves the verdict good.
[[nodiscard]] TableVerdict checkFrequencies(model::DataStore& store);

inline constexpr int largestScanCount = 40;

// What an uncountable table gives.
inline constexpr const char* scanCountFault = "Error in calculating Total number of channel scan.";

// Empty where at most 40 configured channels are scanned, else the message. Never fails.
[[nodiscard]] std::string checkScanCount(model::DataStore& store);

}  // namespace telvar::synth
