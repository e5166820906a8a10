// The program `telvar`, apart from main().
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace telvar::cli {

// `arguments` are UTF-8, without the program's name. Returns the exit status: 0 fine, 1 findings, 2 unusable input or
// arguments, or results that could not be written.
[[nodiscard]] int run(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
                      std::ostream& err);

}  // namespace telvar::cli
