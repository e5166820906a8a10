// The table files opened or saved last, newest first, at most nine. Several running programs share the list: each reads
// it afresh before it changes it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "win/settings.h"

namespace telvar::host {

class RecentFiles {
public:
    static constexpr std::size_t limit = 9;

    explicit RecentFiles(win::Settings& settings) noexcept : settings_(settings) {}

    [[nodiscard]] std::vector<std::wstring> paths() const;
    // Letter case does not tell two paths apart.
    void add(const std::wstring& path);
    void remove(const std::wstring& path);

    // "&1 C:\...\tables\marine.telvar": numbered for the keyboard, ampersands doubled, long paths shortened in the
    // middle.
    [[nodiscard]] static std::wstring menuText(std::size_t index, const std::wstring& path);

private:
    win::Settings& settings_;
};

}  // namespace telvar::host
