// Forms as they look at several resolutions: pictures for people, and the checks that a machine can make.
#pragma once

#include <windows.h>

#include <string>

#include "ui/form.h"
#include "win32/windows_desktop.h"

namespace telvar::win32 {

// Shows the form at 96, 144 and 192 dots per inch one after the other, saves "<name>-<dpi>.png" of each, and fails the
// test where a text has less room than it needs, a widget leaves the form, or two widgets overlap. The form is hidden
// afterwards.
void expectReadable(WindowsDesktop& desktop, ui::Form& form, const std::string& name);

}  // namespace telvar::win32
