// A program of this build as a process of its own: started with arguments, watched and ended from outside.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace telvar::tests {

class RunningProgram {
public:
    explicit RunningProgram(const std::vector<std::wstring>& arguments, const std::string& file = "TelvarHost.exe");
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    RunningProgram(RunningProgram&&) = delete;
    RunningProgram& operator=(RunningProgram&&) = delete;
    // Ends it, however it stands.
    ~RunningProgram();

    // Waits for the main window with that title; null when it does not come in time or the program ends.
    [[nodiscard]] HWND waitForWindow(const std::wstring& title);
    // Waits for a message box and gives its text; empty when there is none in time.
    [[nodiscard]] std::wstring waitForMessage();
    // Presses the one button of the message box that stands open.
    void confirm();
    // Waits for its end; nothing when it does not end in time.
    [[nodiscard]] std::optional<DWORD> waitForEnd(DWORD milliseconds = 20'000);

private:
    [[nodiscard]] HWND find(const wchar_t* className) const;

    PROCESS_INFORMATION process_{};
};

}  // namespace telvar::tests
