// What a command works with besides its own arguments: streams, the number format, and the form of its results.
#pragma once

#include <istream>
#include <ostream>
#include <string>

#include "base/number_text.h"
#include "os/file_error.h"

namespace telvar::cli {

enum class Outcome { Fine = 0, Findings = 1, Unusable = 2 };

struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    base::NumberFormat format{};
    bool json = false;

    // Says why a file cannot be used: a sentence to the diagnostics, and an object with "file" and "error" where
    // results are JSON.
    [[nodiscard]] Outcome refuse(const os::FileError& error) const;
    // The same for arguments that mean nothing.
    [[nodiscard]] Outcome refuse(const std::string& what) const;
};

}  // namespace telvar::cli
