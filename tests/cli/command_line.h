// Calls the command line inside the test's own process.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli/run.h"

namespace telvar::tests {

struct Ran {
    int status;
    std::string out;
    std::string err;
};

[[nodiscard]] inline Ran telvar(const std::vector<std::string>& arguments, const std::string& input = {}) {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    const int status = cli::run(arguments, in, out, err);
    return {.status = status, .out = out.str(), .err = err.str()};
}

}  // namespace telvar::tests
