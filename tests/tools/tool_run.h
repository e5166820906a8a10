// One run of a tool by the shell.
#pragma once

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>

namespace telvar::tests {

struct ToolRun {
    int status = 0;
    std::string output;  // of both streams
};

inline ToolRun runTool(const std::string& command) {
    ToolRun result;
    FILE* pipe = popen(("( " + command + " ) 2>&1").c_str(), "r");
    std::array<char, 4096> buffer{};
    while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
        result.output.append(buffer.data(), size);
    }
    result.status = WEXITSTATUS(pclose(pipe));
    return result;
}

}  // namespace telvar::tests
