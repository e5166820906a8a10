// Where the main window was, and whether that place still exists.
#pragma once

#include <windows.h>

#include <optional>

#include "desk/settings.h"

namespace telvar::host {

struct Placement {
    // In pixels of the virtual screen, of the window when it is not maximised.
    RECT rectangle{};
    bool maximised = false;
};

// The remembered place, fitted to the present monitors; nothing when none is remembered or it has no extent.
[[nodiscard]] std::optional<Placement> loadPlacement(const desk::SettingsStore& settings);
void savePlacement(desk::SettingsStore& settings, HWND window);

}  // namespace telvar::host
