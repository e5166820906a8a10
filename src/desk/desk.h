// The program without its window: what each command does and when it may, and what becomes of everything that the
// control and the radio link tell. The window shows it, asks what it wants to know, and hands on what the system sends.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "desk/access.h"
#include "desk/bench.h"
#include "desk/command.h"
#include "desk/document.h"
#include "desk/exchange.h"
#include "desk/logins.h"
#include "desk/prints.h"
#include "desk/radio_status.h"
#include "desk/recent_files.h"
#include "desk/settings.h"
#include "desk/status_view.h"

namespace telvar::desk {

class Desk final : private TableView, private ExchangeSurroundings {
public:
    // All outlive this.
    Desk(const World& world, SettingsStore& settings, const PasswordHasher& hasher);

    // Joins control, store and link by `join`, whose failures go through; then a new table, and `file` if it is not
    // empty. What cannot be done of that is told.
    void begin(const std::function<void()>& join, const std::string& file);

    // Does nothing where the command is not allowed now. A failure is told.
    void run(Command command);
    [[nodiscard]] bool allowed(Command command) const;
    [[nodiscard]] bool ticked(Command command) const;
    [[nodiscard]] const RecentFiles& recentFiles() const noexcept { return recent_; }
    void openDropped(const std::string& path);

    // Whether the window may be closed now; asks the user. Where something modal stands open, nothing is asked.
    [[nodiscard]] bool mayClose();
    // The same for the end of the user's session.
    [[nodiscard]] bool mayEndSession() { return document_.mayGo(); }

    // Shows what has changed since; for whenever the queue has run empty.
    void refreshState() override { status_.refresh(); }
    // What waited until nothing else is under way.
    void goOn();
    // Once a second.
    void poll() { radio_.poll(); }

    // ---- what the control tells
    void commandsAllowed(bool allowed) noexcept { bench_.setCommands(allowed); }
    void windowEnabled(bool enabled) noexcept { bench_.setWindowEnabled(enabled); }
    void diagnosticsPaused() noexcept { radio_.pause(); }
    void loginWanted(Logins::Reason reason) { logins_.want(reason); }
    void captionChanged(const std::string& caption) { status_.setCaption(caption); }
    void printRequested() { prints_.requested(); }
    void editWindowClosed() { focusTable(); }

    // ---- what the link tells
    void linkProgressed(long percent) { exchange_.progressed(percent); }
    void exchangeEnded(Task task, bool succeeded, const std::string& message) {
        exchange_.ended(task, succeeded, message);
    }
    void statusReported(bool answers, const std::string& sentence);

private:
    friend std::span<const CommandRow> commands() noexcept;
    static constexpr std::size_t commandCount = 33;
    static const std::array<CommandRow, commandCount> rows_;

    // ---- when a command is allowed
    [[nodiscard]] bool always() const noexcept { return true; }
    [[nodiscard]] bool mayAct() const { return bench_.free(); }
    template <EditAction action>
    [[nodiscard]] bool mayEdit() const {
        return mayEdit(action);
    }
    [[nodiscard]] bool mayEdit(EditAction action) const;
    [[nodiscard]] bool mayFill() const;
    [[nodiscard]] bool mayUseRadio() const { return mayAct() && bench_.link.installed(); }
    [[nodiscard]] bool mayChooseFaults() const;
    [[nodiscard]] bool mayCancel() const { return exchange_.mayCancel(); }
    [[nodiscard]] bool mayLogOut() const { return mayAct() && logins_.level() != AccessLevel::View; }
    [[nodiscard]] bool maySetPasswords() const { return mayAct() && logins_.level() == AccessLevel::Everything; }
    [[nodiscard]] bool showsStatusBar() const { return bench_.window.status().visible(); }

    // ---- what a command does
    void newTable() { document_.create(); }
    void open() { document_.open(); }
    void save() { document_.save(); }
    void saveAs() { document_.saveAs(); }
    void saveHtml() { prints_.ask(Prints::Wish::Html); }
    void setUpPage() { prints_.setUpPage(); }
    void preview() { prints_.ask(Prints::Wish::Preview); }
    void print() { prints_.ask(Prints::Wish::Print); }
    void exit() { bench_.window.closeLater(); }
    template <EditAction action>
    void edit() {
        edit(action);
    }
    void edit(EditAction action);
    void fillDown();
    void fillSeries();
    void editChannel();
    void goToChannel();
    void refreshTable() override;
    void focusTable();
    void toggleStatusBar();
    void sendToRadio() { exchange_.send(); }
    void loadFromRadio() { exchange_.load(); }
    void cancelExchange() { exchange_.cancel(); }
    void restoreBackup() { exchange_.restore(); }
    void chooseConnection();
    void chooseFaults();
    void logIn() { logins_.logIn(); }
    void logOut() { logins_.logOut(); }
    void setPasswords() { logins_.setPasswords(); }
    void showAbout();

    void rememberRadio();
    void showOther() override;
    void showName() override;
    [[nodiscard]] bool mayReplaceTable() override { return document_.mayGo(); }

    Bench bench_;
    SettingsStore& settings_;
    RecentFiles recent_;
    Access access_;
    StatusView status_;
    Document document_;
    Logins logins_;
    Prints prints_;
    RadioStatus radio_;
    Exchange exchange_;
};

}  // namespace telvar::desk
