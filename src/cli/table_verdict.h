// What the checks before a send say about a table, as commands tell it.
#pragma once

#include <string>

#include "cli/console.h"
#include "cli/json.h"
#include "store/table_contents.h"
#include "synth/table_check.h"

namespace telvar::cli {

struct TableVerdict {
    synth::TableVerdict table;
    std::string scan;
    // A warning alone is good.
    [[nodiscard]] bool good() const { return table.good && scan.empty(); }
};

[[nodiscard]] TableVerdict verdictOn(const store::TableContents& contents);

// To the diagnostics, each message behind the file's name.
void tell(const Console& console, const std::string& name, const TableVerdict& verdict);

// "scan" and "messages", with the texts exactly as the control shows them.
[[nodiscard]] Json jsonOf(const TableVerdict& verdict);

}  // namespace telvar::cli
