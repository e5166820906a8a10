#include "host/program.h"

#include <windows.h>

#include <ole2.h>

#include <exception>
#include <memory>

#include "host/command_line.h"
#include "host/dialogs.h"
#include "host/main_window.h"
#include "host/sentences.h"
#include "host/transcript.h"
#include "host/walk.h"
#include "host/walk_steps.h"
#include "host/watchdog.h"

namespace telvar::host {

namespace {

constexpr wchar_t walkSettings[] = L"Software\\Telvar\\HostWalk";
constexpr DWORD longestWalk = 180'000;  // milliseconds

class Ole {
public:
    Ole() noexcept : started_(SUCCEEDED(OleInitialize(nullptr))) {}
    Ole(const Ole&) = delete;
    Ole& operator=(const Ole&) = delete;
    Ole(Ole&&) = delete;
    Ole& operator=(Ole&&) = delete;
    ~Ole() {
        if (started_) {
            CoFreeUnusedLibraries();
            OleUninitialize();
        }
    }

private:
    bool started_;
};

// Until the window is gone.
void pumpMessages(MainWindow& window) {
    for (;;) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {
                return;
            }
            if (!window.translate(message)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
        }
        window.refreshState();
        WaitMessage();
    }
}

ExitStatus runNormally(const CommandLine& options, int command) {
    MainWindow window(options.settingsKey);
    try {
        window.open(options.file);
    } catch (const std::exception& failure) {
        tellFailure(window.window(), sentenceFor(failure));
        return ExitStatus::CannotStart;
    }
    window.show(command);
    pumpMessages(window);
    return ExitStatus::Fine;
}

// With settings of its own, which begin empty each time.
ExitStatus runWalk(const CommandLine& options) {
    CreateDirectoryW(options.walkFolder.c_str(), nullptr);
    Transcript transcript(options.walkFolder + L"\\transcript.txt");
    const Watchdog watchdog(longestWalk, static_cast<UINT>(ExitStatus::WalkHung),
                            [&] { transcript.line(L"FAIL  the program hangs"); });
    RegDeleteTreeW(HKEY_CURRENT_USER, walkSettings);
    MainWindow window(walkSettings);
    Walk walk(window, transcript, options.walkFolder);
    // Before the window opens, so that a message box on the way there is noticed.
    walk.start(mainJob(window, options.file, options.walkFolder));
    try {
        window.open({});
    } catch (const std::exception& failure) {
        transcript.line(L"FAIL  " + sentenceFor(failure));
        return ExitStatus::CannotStart;
    }
    window.show(SW_SHOWNORMAL);
    pumpMessages(window);
    return walk.conclude() ? ExitStatus::Fine : ExitStatus::WalkDiffered;
}

ExitStatus run(int command) {
    const auto options = readCommandLine(processArguments());
    if (!options) {
        tellFailure(nullptr, options.error());
        return ExitStatus::BadArguments;
    }
    const Ole ole;
    return options->walks() ? runWalk(*options) : runNormally(*options, command);
}

}  // namespace

int runProgram(int command) noexcept {
    try {
        return static_cast<int>(run(command));
    } catch (const std::exception&) {
        return static_cast<int>(ExitStatus::CannotStart);
    }
}

}  // namespace telvar::host
