#include "os/program.h"

namespace telvar::os {

std::vector<std::string> programArguments(int count, char** arguments) {
    return count > 0 ? std::vector<std::string>(arguments + 1, arguments + count) : std::vector<std::string>{};
}

void prepareStandardStreams() {}

}  // namespace telvar::os
