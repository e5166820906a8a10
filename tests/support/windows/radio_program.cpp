#include "support/windows/radio_program.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/build_paths.h"
#include "win/text.h"

namespace telvar::tests {

namespace {

constexpr DWORD patience = 30'000;  // milliseconds

}  // namespace

RadioProgram::Pipe::Pipe() {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    HANDLE in = nullptr;
    HANDLE out = nullptr;
    if (CreatePipe(&in, &out, &inherited, 0) == 0) {
        throw std::runtime_error("no pipe");
    }
    read.reset(in);
    write.reset(out);
}

RadioProgram::RadioProgram(const std::string& options) {
    Pipe in;
    Pipe out;
    SetHandleInformation(in.write.get(), HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(out.read.get(), HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = in.read.get();
    startup.hStdOutput = out.write.get();
    startup.hStdError = out.write.get();
    auto line = win::wide("\"" TELVAR_BIN_DIR "/telvar.exe\" radio --listen 0 " + options);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process) == 0) {
        throw std::runtime_error("the radio does not start");
    }
    CloseHandle(process.hThread);
    process_.reset(process.hProcess);
    in_ = std::move(in.write);
    out_ = std::move(out.read);
    // Otherwise the end of a radio that does not start would never be noticed.
    out.write.reset();
    address_ = firstLine();
}

std::string RadioProgram::firstLine() const {
    std::string text;
    char c = 0;
    for (DWORD got = 0; ReadFile(out_.get(), &c, 1, &got, nullptr) != 0 && got == 1 && c != '\n';) {
        if (c != '\r') {
            text += c;
        }
    }
    return text;
}

DWORD RadioProgram::waitForEnd() const {
    DWORD code = STILL_ACTIVE;
    EXPECT_EQ(WaitForSingleObject(process_.get(), patience), WAIT_OBJECT_0);
    GetExitCodeProcess(process_.get(), &code);
    return code;
}

void RadioProgram::pullTheCable() {
    TerminateProcess(process_.get(), 1);
    WaitForSingleObject(process_.get(), patience);
}

}  // namespace telvar::tests
