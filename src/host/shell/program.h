// The program from its start to its end.
#pragma once

namespace telvar::host {

// What the program's exit status says.
enum class ExitStatus : int {
    Fine = 0,
    BadArguments = 2,
    // The store, the control or a display is missing.
    CannotStart = 3,
};

class MainWindow;

// Serves the thread's messages until the window is gone.
void pumpMessages(MainWindow& window);

// `command` is how the window is to be shown first. Answers an ExitStatus.
[[nodiscard]] int runProgram(int command) noexcept;

}  // namespace telvar::host
