#include "os/end_requests.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <thread>

namespace telvar::os {

namespace {

std::atomic<Interrupt*> listening = nullptr;

// On a thread of the system's. When a console is closed, a session or the system ended, returning would end the program
// at once; the system gives it some seconds otherwise.
BOOL WINAPI handleRequest(DWORD request) noexcept {
    Interrupt* const interrupt = listening;
    if (interrupt == nullptr) {
        return FALSE;
    }
    interrupt->raise();
    if (request != CTRL_C_EVENT && request != CTRL_BREAK_EVENT) {
        ::Sleep(INFINITE);
    }
    return TRUE;
}

// A pipe whose other end was closed says so by an error.
void dropInput(Interrupt& interrupt) noexcept {
    const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
    std::array<char, 4096> part{};
    for (;;) {
        DWORD got = 0;
        const bool read = ::ReadFile(input, part.data(), static_cast<DWORD>(part.size()), &got, nullptr) != 0;
        const DWORD error = read ? ERROR_SUCCESS : ::GetLastError();
        if ((read && got == 0) || error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF) {
            interrupt.raise();
            return;
        }
        if (error == ERROR_OPERATION_ABORTED) {
            continue;  // Ctrl+C
        }
        if (!read) {
            return;
        }
    }
}

}  // namespace

struct EndRequests::Former {};

EndRequests::EndRequests(Interrupt& interrupt) {
    listening = &interrupt;
    ::SetConsoleCtrlHandler(handleRequest, TRUE);
}

EndRequests::~EndRequests() {
    ::SetConsoleCtrlHandler(handleRequest, FALSE);
    listening = nullptr;
}

void raiseAtEndOfInput(const std::shared_ptr<Interrupt>& interrupt) {
    std::thread([interrupt] { dropInput(*interrupt); }).detach();
}

}  // namespace telvar::os
