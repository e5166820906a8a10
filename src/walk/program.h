// The walk as a program: TelvarWalk FOLDER FILE opens FILE in the host's own window and walks the main job with it;
// transcript and pictures go to FOLDER.
#pragma once

namespace telvar::walk {

// What the program's exit status says.
enum class ExitStatus : int {
    Fine = 0,
    Differed = 1,
    BadArguments = 2,
    // The store, the control or a display is missing.
    CannotStart = 3,
    Hung = 4,
};

// Answers an ExitStatus.
[[nodiscard]] int runProgram() noexcept;

}  // namespace telvar::walk
