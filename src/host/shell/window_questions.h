// What the desk asks the user: each question is a dialog over the program's window.
#pragma once

#include <windows.h>

#include "desk/window.h"
#include "host/shell/printing.h"

namespace telvar::host {

class WindowQuestions final : public desk::Questions {
public:
    // `owner` answers the window of the moment; both outlive this.
    WindowQuestions(const HWND& owner, const desk::System& system) noexcept : owner_(owner), system_(system) {}

    [[nodiscard]] Printing& printing() noexcept { return printing_; }

    void tell(const std::string& sentence) override;
    [[nodiscard]] desk::SaveAnswer askSave(const std::string& tableName) override;
    [[nodiscard]] bool askCancelExchange() override;
    [[nodiscard]] std::optional<std::string> askOpenPath(const std::string& besides) override;
    [[nodiscard]] std::optional<std::string> askSavePath(const std::string& suggested) override;
    [[nodiscard]] std::optional<std::string> askHtmlPath(const std::string& suggested) override;
    [[nodiscard]] std::optional<int> askChannel(int suggested) override;
    [[nodiscard]] std::optional<desk::AccessLevel> askLogin(const desk::Access& access, const std::string& why,
                                                            desk::AccessLevel suggested) override;
    [[nodiscard]] std::optional<desk::AccessLevel> askNewPassword(desk::Access& access) override;
    [[nodiscard]] bool askConnection(const desk::Connection& present, const std::string& note,
                                     const std::function<void(const desk::Connection&)>& take) override;
    [[nodiscard]] bool askFaults(std::span<const std::string> known, const std::string& present,
                                 const std::function<void(const std::string&)>& take) override;
    [[nodiscard]] std::optional<desk::RestoreChoice> askBackup(std::span<const desk::Backup> backups,
                                                               const std::string& folder) override;
    [[nodiscard]] bool askRestore(const desk::Backup& backup) override;
    void showAbout() override;
    void previewPages(const ReadTable& read, desk::PageSetup& setup) override;
    [[nodiscard]] bool print(const ReadTable& read, desk::PageSetup& setup) override;
    void setUpPage(desk::PageSetup& setup) override;

private:
    const HWND& owner_;
    const desk::System& system_;
    Printing printing_;
};

}  // namespace telvar::host
