// Sends the radio a table that it held before, and shows it here if that is wanted.
#include <utility>

#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "host/shell/backup_dialog.h"
#include "host/shell/main_window.h"
#include "host/shell/main_window_scopes.h"

namespace telvar::host {

namespace {

constexpr wchar_t lockedSentence[] =
    L"Data is locked, so the restored table could not be shown here. Clear 'Lock Data', or restore without showing it.";

}  // namespace

void MainWindow::restoreBackup() {
    std::optional<RestoreChoice> choice;
    const bool asked = attempt([&] {
        const Modal modal(*this);
        const std::wstring folder = radio_.backupFolder();
        const std::vector<Backup> backups = backupsIn(folder);
        choice = askBackup(window_, backups, folder);
        if (choice && choice->load && dataLocked()) {
            tell(lockedSentence);
            choice.reset();
        }
        if (choice && !askRestore(window_, choice->backup)) {
            choice.reset();
        }
    });
    // What arrives takes the place of the open table, as another file would.
    if (!asked || !choice || window_ == nullptr || (choice->load && !mayDiscard())) {
        return;
    }
    exchangeText_ = L"Restoring the radio's table";
    cancelWanted_ = false;
    restoreWanted_ = choice->backup.path;
    loadRestored_ = choice->load;
    radio_.pausePolling();
    commandsEnabled_ = false;
    HourglassOverWindow();
    com::Bstr commands(std::wstring_view(L"RS232"));
    channels_->DisableMyCommands(commands.address());
    beginRestore();
}

// The link refuses while it still asks how the radio is, which takes a few seconds at
// most.
void MainWindow::beginRestore() {
    if (!restoreWanted_ || radio_.asking()) {
        return;
    }
    const std::wstring path = *std::exchange(restoreWanted_, std::nullopt);
    if (!attempt([&] { radio_.restore(path); })) {
        loadRestored_ = false;
        releaseCommands();
    }
}

// While it waits.
void MainWindow::giveRestoreUp() {
    restoreWanted_.reset();
    loadRestored_ = false;
    showStatus(cancelledSentence);
    releaseCommands();
}

}  // namespace telvar::host
