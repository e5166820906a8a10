// Where the main window was, and whether that place still exists: monitors come and go between runs.
#pragma once

#include <windows.h>

#include <optional>
#include <span>

#include "host/settings.h"

namespace telvar::host {

struct Placement {
    // In pixels of the virtual screen, of the window when it is not maximised.
    RECT rectangle{};
    bool maximised = false;
};

// `wanted` moved and shrunk so that it lies on the work area that shows most of it, or on the first one when none does.
// `workAreas` is not empty.
[[nodiscard]] RECT fitted(RECT wanted, std::span<const RECT> workAreas) noexcept;

// The remembered place, fitted to the present monitors; nothing when none is remembered or it has no extent.
[[nodiscard]] std::optional<Placement> loadPlacement(const Settings& settings);
void savePlacement(Settings& settings, HWND window);

// The work areas of all monitors, the main one first; never empty.
[[nodiscard]] std::vector<RECT> workAreas();

// Moves a window over its owner, on one monitor as a whole.
void centreOverOwner(HWND window);

}  // namespace telvar::host
