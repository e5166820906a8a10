#include "os/program.h"

#include <windows.h>
// Needs the types of windows.h.
#include <shellapi.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>

#include "win/handle.h"
#include "win/text.h"

namespace telvar::os {

std::vector<std::string> programArguments(int /*count*/, char** /*arguments*/) {
    int count = 0;
    const win::LocalMemory owned(::CommandLineToArgvW(::GetCommandLineW(), &count));
    auto* const parts = static_cast<LPWSTR*>(owned.get());
    std::vector<std::string> arguments;
    for (int at = 1; parts != nullptr && at < count; ++at) {
        arguments.push_back(win::narrow(parts[at]));
    }
    return arguments;
}

void prepareStandardStreams() {
    for (auto* stream : {stdin, stdout, stderr}) {
        ::_setmode(::_fileno(stream), _O_BINARY);
    }
    ::SetConsoleOutputCP(CP_UTF8);
}

bool standardErrorIsTerminal() noexcept { return ::_isatty(::_fileno(stderr)) != 0; }

}  // namespace telvar::os
