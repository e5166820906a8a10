// How the user wants pages: paper, orientation, margins, and which channels are printed. Remembered between runs.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "desk/page_layout.h"
#include "desk/settings.h"

namespace telvar::desk {

// Lengths are in hundredths of a millimetre.
struct PageSetup {
    // The sheet held upright.
    Size sheet{21'000, 29'700};
    // The system's number of that sheet; 0 where it has none.
    int sheetCode = 9;
    bool landscape = false;
    // Of the page as it is read, whichever way the sheet is turned.
    Margins margins{1'500, 1'500, 1'500, 1'500};
    bool onlyInUse = false;
    bool operator==(const PageSetup&) const = default;
};

// A sheet that is known by name, where no printer tells any.
struct KnownSheet {
    std::string_view name;
    int code;
    Size size;
};
inline constexpr std::array<KnownSheet, 5> knownSheets{{{"A4", 9, {21'000, 29'700}},
                                                        {"A3", 8, {29'700, 42'000}},
                                                        {"A5", 11, {14'800, 21'000}},
                                                        {"Letter", 1, {21'590, 27'940}},
                                                        {"Legal", 5, {21'590, 35'560}}}};

// On the known sheet of that code, A4 where it is not known.
[[nodiscard]] PageSetup usualPageSetup(int sheetCode) noexcept;

// What was remembered and makes sense; the usual set-up for the rest.
[[nodiscard]] PageSetup loadPageSetup(const SettingsStore& settings, const PageSetup& usual);
void savePageSetup(SettingsStore& settings, const PageSetup& setup);

// Whether margins leave at least an inch of the paper in both directions.
[[nodiscard]] bool leavesRoom(const PageSetup& setup) noexcept;

// In twips, turned as it is read.
[[nodiscard]] Paper paperOf(const PageSetup& setup) noexcept;

// Millimetres with at most two decimals, behind a point or a comma; hundredths of them.
[[nodiscard]] std::optional<int> readMillimetres(std::string_view text) noexcept;
[[nodiscard]] std::string millimetresText(int hundredths);

}  // namespace telvar::desk
