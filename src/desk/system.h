// What the desk asks of the computer: files by their names, and how the user writes a date.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "base/pinned.h"

namespace telvar::desk {

class System : private base::Pinned {
public:
    virtual ~System() = default;

    [[nodiscard]] virtual bool exists(const std::string& path) const = 0;
    // Whether the file system takes the two for one, letter case included; no file needs to be there.
    [[nodiscard]] virtual bool samePath(const std::string& left, const std::string& right) const = 0;
    // Of the files in a folder, without the folders; none where there is no such folder.
    [[nodiscard]] virtual std::vector<std::string> fileNamesIn(const std::string& folder) const = 0;
    // Where the program keeps files for the user; empty where the user has no folder for such things.
    [[nodiscard]] virtual std::string userFolder() const = 0;
    // "1 March 2024, 14:05:09", as the user writes it.
    [[nodiscard]] virtual std::string dateAndTime(std::chrono::local_seconds at) const = 0;
    // The present one, to the minute.
    [[nodiscard]] virtual std::string now() const = 0;
    // The number of the sheet that the user's country prints on, 0 where it does not tell.
    [[nodiscard]] virtual int usualSheet() const = 0;
    // Writes a file so that it is the old or the new one, whatever happens. Throws base::Failure.
    virtual void replaceFile(const std::string& path, const std::string& contents) const = 0;
};

}  // namespace telvar::desk
