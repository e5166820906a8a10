// What went wrong with a file, told so that a person can act on it.
#pragma once

#include <string>

namespace telvar::os {

struct FileError {
    std::string path;  // UTF-8, as the caller named it
    std::string what;  // without a final full stop

    // One sentence: "marine.telvar: No such file or directory."
    [[nodiscard]] std::string sentence() const {
        const bool ended = what.ends_with('.') || what.ends_with('?');
        return path + ": " + what + (ended ? "" : ".");
    }
};

}  // namespace telvar::os
