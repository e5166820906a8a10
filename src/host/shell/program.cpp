#include "host/shell/program.h"

#include <exception>

#include "desk/sentences.h"
#include "host/shell/command_line.h"
#include "host/shell/dialogs.h"
#include "host/shell/main_window.h"
#include "host/shell/ole.h"
#include "win/text.h"

namespace telvar::host {

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

namespace {

ExitStatus show(const CommandLine& options, int command) {
    MainWindow window(options.settingsKey);
    try {
        window.open(win::narrow(options.file), installedComponents());
    } catch (const std::exception& failure) {
        tellFailure(window.window(), desk::sentenceFor(failure));
        return ExitStatus::CannotStart;
    }
    window.show(command);
    pumpMessages(window);
    return ExitStatus::Fine;
}

ExitStatus run(int command) {
    const auto options = readCommandLine(processArguments());
    if (!options) {
        tellFailure(nullptr, win::narrow(options.error()));
        return ExitStatus::BadArguments;
    }
    const Ole ole;
    return show(*options, command);
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
