#include "os/program.h"

#include <unistd.h>

namespace telvar::os {

std::vector<std::string> programArguments(int count, char** arguments) {
    return count > 0 ? std::vector<std::string>(arguments + 1, arguments + count) : std::vector<std::string>{};
}

void prepareStandardStreams() {}

bool standardErrorIsTerminal() noexcept { return ::isatty(STDERR_FILENO) != 0; }

}  // namespace telvar::os
