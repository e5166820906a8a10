#include "running_program.h"

#include <array>
#include <stdexcept>

#include "host/shell/main_window.h"
#include "support/windows/command.h"

namespace telvar::tests {

namespace {

constexpr DWORD pace = 20;          // milliseconds between two looks at the other process's windows
constexpr DWORD patience = 20'000;  // milliseconds

struct Search {
    DWORD process;
    std::wstring_view className;
    HWND found = nullptr;
};

BOOL CALLBACK inspect(HWND window, LPARAM data) noexcept {
    auto& search = *reinterpret_cast<Search*>(data);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    std::array<wchar_t, 64> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    if (process == search.process && IsWindowVisible(window) && search.className == name.data()) {
        search.found = window;
    }
    return search.found == nullptr;
}

std::wstring textOf(HWND window) {
    std::array<wchar_t, 1024> text{};
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::wstring quoted(const std::wstring& argument) { return L" \"" + argument + L"\""; }

}  // namespace

RunningProgram::RunningProgram(const std::vector<std::wstring>& arguments, const std::string& file) {
    std::wstring line = L"\"" + builtFile(file) + L"\"";
    for (const std::wstring& argument : arguments) {
        line += quoted(argument);
    }
    STARTUPINFOW start{};
    start.cb = sizeof start;
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process_)) {
        throw std::runtime_error(file + " does not start");
    }
}

RunningProgram::~RunningProgram() {
    if (WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT) {
        TerminateProcess(process_.hProcess, 99);
        WaitForSingleObject(process_.hProcess, patience);
    }
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
}

HWND RunningProgram::find(const wchar_t* className) const {
    Search search{.process = process_.dwProcessId, .className = className};
    EnumWindows(inspect, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND RunningProgram::waitForWindow(const std::wstring& title) {
    const ULONGLONG until = GetTickCount64() + patience;
    while (GetTickCount64() < until && WaitForSingleObject(process_.hProcess, pace) == WAIT_TIMEOUT) {
        const HWND window = find(host::MainWindow::className);
        if (window != nullptr && textOf(window) == title) {
            return window;
        }
    }
    return nullptr;
}

std::wstring RunningProgram::waitForMessage() {
    constexpr int messageText = 0xFFFF;
    const ULONGLONG until = GetTickCount64() + patience;
    while (GetTickCount64() < until && WaitForSingleObject(process_.hProcess, pace) == WAIT_TIMEOUT) {
        const HWND box = find(L"#32770");
        const HWND text = box == nullptr ? nullptr : GetDlgItem(box, messageText);
        if (text != nullptr && !textOf(text).empty()) {
            return textOf(text);
        }
    }
    return {};
}

void RunningProgram::confirm() { PostMessageW(find(L"#32770"), WM_COMMAND, IDOK, 0); }

std::optional<DWORD> RunningProgram::waitForEnd(DWORD milliseconds) {
    DWORD status = 0;
    if (WaitForSingleObject(process_.hProcess, milliseconds) != WAIT_OBJECT_0 ||
        !GetExitCodeProcess(process_.hProcess, &status)) {
        return std::nullopt;
    }
    return status;
}

}  // namespace telvar::tests
