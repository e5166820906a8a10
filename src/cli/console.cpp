#include "cli/console.h"

#include "store/json_text.h"

namespace telvar::cli {

Outcome Console::refuse(const os::FileError& error) const {
    const auto sentence = error.sentence();
    err << sentence << '\n';
    if (json) {
        out << "{\"file\": " << store::jsonQuoted(error.path) << ", \"error\": " << store::jsonQuoted(sentence)
            << "}\n";
    }
    return Outcome::Unusable;
}

Outcome Console::refuse(const std::string& what) const {
    const auto sentence = os::FileError{.path = "telvar", .what = what}.sentence();
    err << sentence << '\n';
    if (json) {
        out << "{\"error\": " << store::jsonQuoted(sentence) << "}\n";
    }
    return Outcome::Unusable;
}

}  // namespace telvar::cli
