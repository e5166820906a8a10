// Runs a program and waits for it: what it printed and how it ended.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace telvar::tests {

struct CommandOutcome {
    std::uint32_t exitCode = 0;
    std::string output;  // standard output and standard error, in order; line ends as "\n"
    bool timedOut = false;
    bool operator==(const CommandOutcome&) const = default;
};

// Arguments are quoted as the C run-time reads them; the first is the program, searched for as usual.
[[nodiscard]] CommandOutcome runCommand(const std::vector<std::string>& arguments,
                                        std::chrono::seconds limit = std::chrono::seconds(60));

// A script of the source tree, relative to tests/, under the console script host. The host prints nothing and ends with
// 0 when a script does not parse or fails, so that a script must say by a last line and WScript.Quit that it got to its
// end.
[[nodiscard]] CommandOutcome runScript(const std::string& script, const std::vector<std::string>& arguments = {});

// Calls the server's registration entry through the system's tool, as an installer does. `file` lies with this build's
// programs.
[[nodiscard]] CommandOutcome registerServer(const std::string& file);
[[nodiscard]] CommandOutcome unregisterServer(const std::string& file);

// Absolute, with backslashes.
[[nodiscard]] std::wstring builtFile(const std::string& file);

}  // namespace telvar::tests
