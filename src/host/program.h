// The program from its start to its end.
#pragma once

namespace telvar::host {

// What the program's exit status says.
enum class ExitStatus : int {
    Fine = 0,
    WalkDiffered = 1,
    BadArguments = 2,
    // The store, the control or a display is missing.
    CannotStart = 3,
    WalkHung = 4,
};

// `command` is how the window is to be shown first. Answers an ExitStatus.
[[nodiscard]] int runProgram(int command) noexcept;

}  // namespace telvar::host
