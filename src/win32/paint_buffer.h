// A bitmap behind a window, in which a picture grows before it is shown.
#pragma once

#include <windows.h>

#include <algorithm>

#include "ui/geometry.h"
#include "win/gdi.h"

namespace telvar::win32 {

class PaintBuffer {
public:
    // Grows when it must; null when there is no memory for it, so that the caller paints directly.
    [[nodiscard]] HBITMAP bitmap(HDC like, ui::Size size) {
        if (!bitmap_ || size.width > size_.width || size.height > size_.height) {
            size_ = {std::max({size.width, size_.width, 1}), std::max({size.height, size_.height, 1})};
            bitmap_ = win::Bitmap(CreateCompatibleBitmap(like, size_.width, size_.height));
        }
        return bitmap_.get();
    }

private:
    win::Bitmap bitmap_;
    ui::Size size_;
};

}  // namespace telvar::win32
