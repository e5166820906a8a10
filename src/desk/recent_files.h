// The table files opened or saved last, newest first, at most nine. Several running programs share the list: each reads
// it afresh before it changes it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "desk/settings.h"
#include "desk/system.h"

namespace telvar::desk {

class RecentFiles {
public:
    static constexpr std::size_t limit = 9;

    // Both outlive this.
    RecentFiles(SettingsStore& settings, const System& system) noexcept : settings_(settings), system_(system) {}

    [[nodiscard]] std::vector<std::string> paths() const;
    // A path that only names the same file otherwise takes the place of the former one.
    void add(const std::string& path);
    void remove(const std::string& path);

    // "&1 C:\...\tables\marine.telvar": numbered for the keyboard, ampersands doubled, a path of more than 60
    // characters shortened in front of its last part.
    [[nodiscard]] static std::string menuText(std::size_t index, const std::string& path);

private:
    [[nodiscard]] std::vector<std::string> without(const std::string& path) const;

    SettingsStore& settings_;
    const System& system_;
};

}  // namespace telvar::desk
