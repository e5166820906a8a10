// The kinds of windows that this folder makes.
#pragma once

#include "win/window_class.h"

namespace telvar::win32 {

inline constexpr win::WindowKind panelKind{.name = L"Panel"};
inline constexpr win::WindowKind gridKind{.name = L"Grid", .style = CS_DBLCLKS};
inline constexpr win::WindowKind formKind{.name = L"Form"};

// Takes every class back of which no window exists. To be called before the module may be unloaded.
inline void unregisterWindowClasses() noexcept {
    for (const win::WindowKind& kind : {panelKind, gridKind, formKind}) {
        win::unregisterClass(kind);
    }
}

}  // namespace telvar::win32
