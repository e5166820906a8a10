#include "host/shell/window_questions.h"

#include "host/shell/backup_dialog.h"
#include "host/shell/channel_dialog.h"
#include "host/shell/dialogs.h"
#include "host/shell/login_dialog.h"
#include "host/shell/radio_dialogs.h"

namespace telvar::host {

void WindowQuestions::tell(const std::string& sentence) { tellFailure(owner_, sentence); }

desk::SaveAnswer WindowQuestions::askSave(const std::string& tableName) { return host::askSave(owner_, tableName); }

bool WindowQuestions::askCancelExchange() { return host::askCancelExchange(owner_); }

std::optional<std::string> WindowQuestions::askOpenPath(const std::string& besides) {
    return host::askOpenPath(owner_, besides);
}

std::optional<std::string> WindowQuestions::askSavePath(const std::string& suggested) {
    return host::askSavePath(owner_, suggested);
}

std::optional<std::string> WindowQuestions::askHtmlPath(const std::string& suggested) {
    return host::askHtmlPath(owner_, suggested);
}

std::optional<int> WindowQuestions::askChannel(int suggested) { return host::askChannel(owner_, suggested); }

std::optional<desk::AccessLevel> WindowQuestions::askLogin(const desk::Access& access, const std::string& why,
                                                           desk::AccessLevel suggested) {
    return host::askLogin(owner_, access, why, suggested);
}

std::optional<desk::AccessLevel> WindowQuestions::askNewPassword(desk::Access& access) {
    return host::askNewPassword(owner_, access);
}

bool WindowQuestions::askConnection(const desk::Connection& present, const std::string& note,
                                    const std::function<void(const desk::Connection&)>& take) {
    return host::askConnection(owner_, present, note, take);
}

bool WindowQuestions::askFaults(std::span<const std::string> known, const std::string& present,
                                const std::function<void(const std::string&)>& take) {
    return host::askFaults(owner_, known, present, take);
}

std::optional<desk::RestoreChoice> WindowQuestions::askBackup(std::span<const desk::Backup> backups,
                                                              const std::string& folder) {
    return host::askBackup(owner_, system_, backups, folder);
}

bool WindowQuestions::askRestore(const desk::Backup& backup) { return host::askRestore(owner_, system_, backup); }

void WindowQuestions::showAbout() { host::showAbout(owner_); }

void WindowQuestions::previewPages(const ReadTable& read, desk::PageSetup& setup) {
    printing_.preview(owner_, read, setup);
}

bool WindowQuestions::print(const ReadTable& read, desk::PageSetup& setup) {
    return printing_.print(owner_, read, setup);
}

void WindowQuestions::setUpPage(desk::PageSetup& setup) { printing_.setUpPage(owner_, setup); }

}  // namespace telvar::host
