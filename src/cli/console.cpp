#include "cli/console.h"
#include "cli/json.h"

namespace telvar::cli {

Outcome Console::refuse(const os::FileError& error) const {
    const auto sentence = error.sentence();
    err << sentence << '\n';
    if (json) {
        out << Json().add("file", error.path).add("error", sentence).line();
    }
    return Outcome::Unusable;
}

Outcome Console::refuse(const std::string& what) const {
    const auto sentence = os::FileError{.path = "telvar", .what = what}.sentence();
    err << sentence << '\n';
    if (json) {
        out << Json().add("error", sentence).line();
    }
    return Outcome::Unusable;
}

}  // namespace telvar::cli
