// What a host chooses for its link; every exchange runs with the settings of its beginning.
#pragma once

#include <string>

#include "radio/address.h"
#include "radio/faults.h"

namespace telvar::radio {

struct LinkSettings {
    Address address;
    // Of the simulated radio: how its line misbehaves, and where it keeps its table (empty: nowhere, it forgets).
    FaultPlan faults;
    std::string stateFile;
    // Empty for none.
    std::string traceFile;
    // Where tables that are overwritten are kept; empty for "radio-backups" in the user's state folder.
    std::string backupFolder;
    bool operator==(const LinkSettings&) const = default;
};

}  // namespace telvar::radio
