// A picture of a panel that has no window, for containers that want one before they show the control, or for printing.
#pragma once

#include <windows.h>

#include "ui/form.h"

namespace telvar::win32 {

// Fills `at`, in logical units of `dc`, which may be a metafile's. A panel that no window shows is first given the size
// of `at` in pixels and `dpi` dots per inch, so that it arranges its widgets; a picture of a panel with a window is
// scaled to fit. Throws base::Failure when there is no memory for the picture.
void drawPanel(ui::Panel& panel, HDC dc, const RECT& at, int dpi);

}  // namespace telvar::win32
