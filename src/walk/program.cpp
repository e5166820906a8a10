#include "walk/program.h"

#include <windows.h>

#include <exception>
#include <string>

#include "desk/sentences.h"
#include "host/shell/command_line.h"
#include "host/shell/dialogs.h"
#include "host/shell/main_window.h"
#include "host/shell/ole.h"
#include "host/shell/program.h"
#include "walk/transcript.h"
#include "walk/walk.h"
#include "walk/walk_steps.h"
#include "walk/walked_program.h"
#include "walk/watchdog.h"
#include "win/text.h"

namespace telvar::walk {

namespace {

constexpr wchar_t settingsKey[] = L"Software\\Telvar\\HostWalk";
constexpr DWORD longestWalk = 180'000;  // milliseconds

// With settings of its own, which begin empty each time.
ExitStatus walk(const std::wstring& folder, const std::wstring& file) {
    CreateDirectoryW(folder.c_str(), nullptr);
    Transcript transcript(folder + L"\\transcript.txt");
    const Watchdog watchdog(longestWalk, static_cast<UINT>(ExitStatus::Hung),
                            [&] { transcript.line(L"FAIL  the program hangs"); });
    RegDeleteTreeW(HKEY_CURRENT_USER, settingsKey);
    host::MainWindow window(settingsKey);
    Walk walk(window, transcript, folder);
    try {
        WalkedProgram program(window, host::installedComponents());
        // Before the window opens, so that a message box on the way there is noticed.
        walk.start(mainJob(program, file, folder));
        window.open({}, program.components());
        window.show(SW_SHOWNORMAL);
        host::pumpMessages(window);
    } catch (const std::exception& failure) {
        transcript.line(L"FAIL  " + win::wide(desk::sentenceFor(failure)));
        return ExitStatus::CannotStart;
    }
    return walk.conclude() ? ExitStatus::Fine : ExitStatus::Differed;
}

ExitStatus run() {
    const std::vector<std::wstring> arguments = host::processArguments();
    if (arguments.size() != 2) {
        host::tellFailure(nullptr, "The walk needs a folder for what it writes, and a channel table to open.");
        return ExitStatus::BadArguments;
    }
    const host::Ole ole;
    return walk(host::absolutePath(arguments[0]), host::absolutePath(arguments[1]));
}

}  // namespace

int runProgram() noexcept {
    try {
        return static_cast<int>(run());
    } catch (const std::exception&) {
        return static_cast<int>(ExitStatus::CannotStart);
    }
}

}  // namespace telvar::walk
