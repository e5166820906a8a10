// How the user wants pages: paper, orientation, margins, and which channels are printed. Remembered between runs.
#pragma once

#include "desk/page_layout.h"
#include "win/settings.h"

namespace telvar::host {

// Lengths are in hundredths of a millimetre.
struct PageSetup {
    // The sheet held upright.
    desk::Size sheet{21'000, 29'700};
    // The system's number of that sheet (DMPAPER_...); 0 where it has none.
    int sheetCode = 9;
    bool landscape = false;
    // Of the page as it is read, whichever way the sheet is turned.
    desk::Margins margins{1'500, 1'500, 1'500, 1'500};
    bool onlyInUse = false;
    bool operator==(const PageSetup&) const = default;
};

// A sheet that the fallback dialog offers.
struct KnownSheet {
    const wchar_t* name;
    int code;
    desk::Size size;
};
inline constexpr KnownSheet knownSheets[] = {{L"A4", 9, {21'000, 29'700}},
                                             {L"A3", 8, {29'700, 42'000}},
                                             {L"A5", 11, {14'800, 21'000}},
                                             {L"Letter", 1, {21'590, 27'940}},
                                             {L"Legal", 5, {21'590, 35'560}}};

// The usual sheet of the user's country.
[[nodiscard]] PageSetup usualPageSetup();

// What was remembered and makes sense; the usual set-up for the rest.
[[nodiscard]] PageSetup loadPageSetup(const win::Settings& settings);
void savePageSetup(win::Settings& settings, const PageSetup& setup);

// Whether margins leave at least an inch of the paper in both directions.
[[nodiscard]] bool leavesRoom(const PageSetup& setup) noexcept;

// In twips, turned as it is read.
[[nodiscard]] desk::Paper paperOf(const PageSetup& setup) noexcept;

}  // namespace telvar::host
