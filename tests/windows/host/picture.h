// Pictures for people to look at, in the build folder, named after the resolution of this screen.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <string>

#include "support/build_paths.h"
#include "walk/screenshot.h"
#include "win/scaling.h"

namespace telvar::tests {

inline void takePicture(HWND window, const std::string& name) {
    const std::filesystem::path pictures = std::filesystem::path(TELVAR_BIN_DIR).parent_path() / "pictures";
    std::filesystem::create_directories(pictures);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    GdiFlush();
    const auto file = pictures / (name + "_" + std::to_string(win::dpiOf(window)) + ".png");
    walk::savePicture(window, file.wstring());
    EXPECT_GT(std::filesystem::file_size(file), 1'000U);
}

}  // namespace telvar::tests
