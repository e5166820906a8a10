// The program's own surroundings: its arguments as UTF-8 and standard streams that carry bytes.
#pragma once

#include <string>
#include <vector>

namespace telvar::os {

// Without the program's name. On Windows the wide command line is read, whatever main() was given.
[[nodiscard]] std::vector<std::string> programArguments(int count, char** arguments);

// No line ends are converted in any direction, and a console shows UTF-8. To be called once, before the first use.
void prepareStandardStreams();

// Somebody may be looking at the diagnostics as they come.
[[nodiscard]] bool standardErrorIsTerminal() noexcept;

}  // namespace telvar::os
