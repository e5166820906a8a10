// A picture of what the screen shows of a window.
#pragma once

#include <windows.h>

#include <string>

namespace telvar::host {

// Writes a PNG file of the window's rectangle on the screen, with whatever lies over it (menus, message boxes). COM is
// initialised. Throws com::ComFailure where the picture cannot be taken or written.
void savePicture(HWND window, const std::wstring& path);

}  // namespace telvar::host
