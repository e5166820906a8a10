#include "host/shell/backup_dialog.h"

#include "host/shell/dialog.h"
#include "host/shell/dialogs.h"
#include "host/shell/resource.h"

namespace telvar::host {

namespace {

class BackupDialog final : public Dialog {
public:
    BackupDialog(std::span<const Backup> backups, const std::wstring& folder) : backups_(backups), folder_(folder) {}

    RestoreChoice choice;

private:
    HWND begin() override {
        for (const Backup& backup : backups_) {
            SendMessageW(item(BACKUP_LIST), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(backupText(backup).c_str()));
        }
        SendMessageW(item(BACKUP_LIST), LB_SETCURSEL, 0, 0);
        SendMessageW(item(BACKUP_LOAD), BM_SETCHECK, BST_CHECKED, 0);
        if (backups_.empty()) {
            EnableWindow(item(IDOK), FALSE);
            EnableWindow(item(BACKUP_LIST), FALSE);
            EnableWindow(item(BACKUP_LOAD), FALSE);
            note(L"No send has kept anything yet in " + folder_ + L".");
            return item(IDCANCEL);
        }
        return item(BACKUP_LIST);
    }

    bool accept() override {
        const auto chosen = static_cast<std::size_t>(SendMessageW(item(BACKUP_LIST), LB_GETCURSEL, 0, 0));
        if (chosen >= backups_.size()) {
            refuse(BACKUP_LIST, L"Choose one of the tables.");
            return false;
        }
        choice.backup = backups_[chosen];
        choice.load = SendMessageW(item(BACKUP_LOAD), BM_GETCHECK, 0, 0) == BST_CHECKED;
        return true;
    }

    std::span<const Backup> backups_;
    const std::wstring& folder_;
};

}  // namespace

std::optional<RestoreChoice> askBackup(HWND owner, std::span<const Backup> backups, const std::wstring& folder) {
    BackupDialog dialog(backups, folder);
    return dialog.run(owner, RESOURCE_BACKUPS) ? std::optional(dialog.choice) : std::nullopt;
}

bool askRestore(HWND owner, const Backup& backup) {
    const std::wstring question = L"The table in the radio will be overwritten by the one of " + backupText(backup) +
                                  L". What it holds now is kept as another backup. Restore it?";
    return MessageBoxW(owner, question.c_str(), programTitle, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

}  // namespace telvar::host
