#include "host/shell/backup_dialog.h"

#include "host/shell/dialog.h"
#include "host/shell/dialogs.h"
#include "host/shell/resource.h"
#include "win/text.h"

namespace telvar::host {

namespace {

class BackupDialog final : public Dialog {
public:
    BackupDialog(const desk::System& system, std::span<const desk::Backup> backups, const std::string& folder)
        : system_(system), backups_(backups), folder_(folder) {}

    desk::RestoreChoice choice;

private:
    HWND begin() override {
        for (const desk::Backup& backup : backups_) {
            SendMessageW(item(BACKUP_LIST), LB_ADDSTRING, 0,
                         reinterpret_cast<LPARAM>(win::wide(desk::backupText(system_, backup)).c_str()));
        }
        SendMessageW(item(BACKUP_LIST), LB_SETCURSEL, 0, 0);
        SendMessageW(item(BACKUP_LOAD), BM_SETCHECK, BST_CHECKED, 0);
        if (backups_.empty()) {
            EnableWindow(item(IDOK), FALSE);
            EnableWindow(item(BACKUP_LIST), FALSE);
            EnableWindow(item(BACKUP_LOAD), FALSE);
            note("No send has kept anything yet in " + folder_ + ".");
            return item(IDCANCEL);
        }
        return item(BACKUP_LIST);
    }

    bool accept() override {
        const auto chosen = static_cast<std::size_t>(SendMessageW(item(BACKUP_LIST), LB_GETCURSEL, 0, 0));
        if (chosen >= backups_.size()) {
            refuse(BACKUP_LIST, "Choose one of the tables.");
            return false;
        }
        choice.backup = backups_[chosen];
        choice.load = SendMessageW(item(BACKUP_LOAD), BM_GETCHECK, 0, 0) == BST_CHECKED;
        return true;
    }

    const desk::System& system_;
    std::span<const desk::Backup> backups_;
    const std::string& folder_;
};

}  // namespace

std::optional<desk::RestoreChoice> askBackup(HWND owner, const desk::System& system,
                                             std::span<const desk::Backup> backups, const std::string& folder) {
    BackupDialog dialog(system, backups, folder);
    return dialog.run(owner, RESOURCE_BACKUPS) ? std::optional(dialog.choice) : std::nullopt;
}

bool askRestore(HWND owner, const desk::System& system, const desk::Backup& backup) {
    const std::string question = "The table in the radio will be overwritten by the one of " +
                                 desk::backupText(system, backup) +
                                 ". What it holds now is kept as another backup. Restore it?";
    return MessageBoxW(owner, win::wide(question).c_str(), programTitle, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) ==
           IDYES;
}

}  // namespace telvar::host
