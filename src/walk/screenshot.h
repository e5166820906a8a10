// A picture of what the screen shows of a window.
#pragma once

#include <windows.h>

#include <string>

namespace telvar::walk {

// Writes a PNG file of the rectangle on the screen that the window and what it owns take (forms, message boxes), with
// whatever lies over it, such as menus. COM is initialised. Throws com::ComFailure where the picture cannot be taken or
// written.
void savePicture(HWND window, const std::wstring& path);

}  // namespace telvar::walk
