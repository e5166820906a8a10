// Catches the keys of our forms on their way out of the thread's message queue, whoever's message loop takes them out:
// a foreign one knows nothing of our forms' Tab and Enter, and would use its own accelerators on keys meant for a
// field. Acts only on removed messages for windows of our forms; each goes on to its form, and nothing is swallowed.
#pragma once

#include <windows.h>

#include "win/handle.h"
#include "win/module.h"

namespace telvar::win32 {

// While one lives on a thread. Where the system refuses, the keys take their usual way.
class KeyHook {
public:
    KeyHook() noexcept;

private:
    win::Hook hook_;
    win::Use use_;
};

}  // namespace telvar::win32
