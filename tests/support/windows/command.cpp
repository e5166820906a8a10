#include "support/windows/command.h"
#include "support/build_paths.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>
#include <thread>

#include <windows.h>

#include "win/handle.h"
#include "win/text.h"

namespace telvar::tests {

namespace {

[[nodiscard]] std::wstring quoted(const std::string& argument) { return L"\"" + win::wide(argument) + L"\""; }

[[nodiscard]] std::string readAll(HANDLE pipe) {
    std::string text;
    std::array<char, 4096> part{};
    DWORD count = 0;
    while (ReadFile(pipe, part.data(), part.size(), &count, nullptr) != 0 && count > 0) {
        text.append(part.data(), count);
    }
    std::erase(text, '\r');
    return text;
}

// The read end of a pipe whose write end the child inherits.
struct Pipe {
    Pipe() {
        SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        HANDLE in = nullptr;
        HANDLE out = nullptr;
        if (CreatePipe(&in, &out, &inherited, 0) == 0) {
            throw std::runtime_error("no pipe");
        }
        read.reset(in);
        write.reset(out);
        SetHandleInformation(in, HANDLE_FLAG_INHERIT, 0);
    }
    win::Handle read;
    win::Handle write;
};

[[nodiscard]] win::Handle start(std::wstring line, const Pipe& pipe) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = pipe.write.get();
    startup.hStdError = pipe.write.get();
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process) == 0) {
        throw std::runtime_error("cannot start " + win::narrow(line));
    }
    CloseHandle(process.hThread);
    return win::Handle(process.hProcess);
}

[[nodiscard]] std::string backslashed(std::string path) {
    std::ranges::replace(path, '/', '\\');
    return path;
}

[[nodiscard]] std::string builtPath(const std::string& file) { return backslashed(TELVAR_BIN_DIR "/" + file); }

}  // namespace

CommandOutcome runCommand(const std::vector<std::string>& arguments, std::chrono::seconds limit) {
    std::wstring line;
    for (const auto& argument : arguments) {
        line += (line.empty() ? L"" : L" ") + quoted(argument);
    }
    Pipe pipe;
    const win::Handle process = start(line, pipe);
    pipe.write.reset();

    CommandOutcome outcome;
    std::thread reader([&] { outcome.output = readAll(pipe.read.get()); });
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(limit).count();
    outcome.timedOut = WaitForSingleObject(process.get(), static_cast<DWORD>(milliseconds)) != WAIT_OBJECT_0;
    if (outcome.timedOut) {
        TerminateProcess(process.get(), 255);
        WaitForSingleObject(process.get(), INFINITE);
    }
    reader.join();
    DWORD code = 0;
    GetExitCodeProcess(process.get(), &code);
    outcome.exitCode = code;
    return outcome;
}

CommandOutcome runScript(const std::string& script, const std::vector<std::string>& arguments) {
    std::vector<std::string> all{"cscript.exe", "//nologo", backslashed(TELVAR_SOURCE_DIR "/tests/" + script)};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return runCommand(all);
}

CommandOutcome registerServer(const std::string& file) { return runCommand({"regsvr32.exe", "/s", builtPath(file)}); }

CommandOutcome unregisterServer(const std::string& file) {
    return runCommand({"regsvr32.exe", "/s", "/u", builtPath(file)});
}

std::wstring builtFile(const std::string& file) { return win::wide(builtPath(file)); }

}  // namespace telvar::tests
