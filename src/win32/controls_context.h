// The present look of the system's controls. A program that does not ask for it gets the old ones, and this module
// cannot know what program it is in, so it asks for itself while it makes its controls.
#pragma once

#include <windows.h>

#include "base/pinned.h"
#include "win/handle.h"

namespace telvar::win32 {

// Number of the manifest among the resources of a module that wants the present look; not one that the system looks for
// by itself.
inline constexpr WORD controlsManifest = 100;

// Where the module carries no manifest, or the system refuses, controls have the look of their program.
class ControlsContext {
public:
    ControlsContext();

    // In use on this thread for the life of this object.
    class Active : private base::Pinned {
    public:
        explicit Active(const ControlsContext& context) noexcept;
        ~Active();

    private:
        ULONG_PTR cookie_ = 0;
        bool active_;
    };

private:
    win::ActivationContext context_;
};

}  // namespace telvar::win32
