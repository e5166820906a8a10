// Pictures for people to look at.
#pragma once

#include <windows.h>

#include <string>

namespace telvar::win32 {

// What the screen shows of a window, frame included, as a PNG file of the build folder; answers its path.
std::string savePicture(HWND window, const std::string& name);

}  // namespace telvar::win32
