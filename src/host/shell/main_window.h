// The program's window: menu, status bar and the channel-table control between them. It owns the open table's life
// (new, open, save, the question about unsaved changes) and answers the control's and the link's events. What the
// system sends it is in main_window.cpp, its menus in main_window_menus.cpp, the start and the end in
// main_window_life.cpp, the commands in main_window_commands.cpp, the control's side in main_window_events.cpp, the
// login in main_window_access.cpp, the radio in main_window_radio.cpp and main_window_restore.cpp, printing in
// main_window_print.cpp.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Tesslin.h"
#include "com/kit/pointer.h"
#include "host/embed/control_events.h"
#include "host/embed/embedded_control.h"
#include "host/embed/site_owner.h"
#include "host/shell/access.h"
#include "host/shell/document.h"
#include "host/shell/edit_commands.h"
#include "host/shell/printing.h"
#include "host/shell/radio.h"
#include "host/shell/recent_files.h"
#include "host/shell/status_bar.h"
#include "win/settings.h"

namespace telvar::host {

class MainWindow final : public SiteOwner, public ControlListener, public LinkListener {
public:
    static constexpr wchar_t className[] = L"TelvarHostWindow";

    explicit MainWindow(const std::wstring& settingsKey);
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    MainWindow(MainWindow&&) = delete;
    MainWindow& operator=(MainWindow&&) = delete;
    ~MainWindow();

    // Makes the window with the control in it, joins control, store and link, and opens `file`, or a new table when it
    // is empty or unusable. Throws com::ComFailure where the store or the control cannot be created.
    void open(const std::wstring& file);
    void show(int command);

    // A message of the queue: whether the control or an accelerator used it up.
    [[nodiscard]] bool translate(MSG& message);
    // Shows what has changed since; for whenever the queue has run empty.
    void refreshState();
    // The whole table afresh from the store.
    void refreshTable();

    [[nodiscard]] HWND window() const noexcept { return window_; }
    [[nodiscard]] const Document& document() const noexcept { return *document_; }
    [[nodiscard]] IUnknown* channels() const noexcept { return channels_.get(); }
    // Null without an installed link.
    [[nodiscard]] IRadioLink* radioLink() const noexcept { return radio_.link(); }
    [[nodiscard]] Printing& printing() noexcept { return printing_; }
    [[nodiscard]] AccessLevel accessLevel() const noexcept { return access_.level(); }

private:
    // Something modal of ours: the control's own windows are told, commands wait, and the focus comes back.
    class Modal;
    // A call of the control, which may raise events and pump messages before it returns.
    class ControlCall;
    using ControlMethod = HRESULT (STDMETHODCALLTYPE _ChannelInformation::*)();

    // For what the control wants a login.
    enum class LoginReason { Fill, Edit };
    // What the control is asked to check a table for.
    enum class PrintWish { Preview, Print, Html };
    static constexpr wchar_t cancelledSentence[] = L"The exchange with the radio was cancelled.";
    static constexpr UINT_PTR stateTimer = 1;
    static constexpr UINT_PTR pollTimer = 2;
    static constexpr UINT loginMessage = WM_APP;
    static constexpr UINT exchangeMessage = WM_APP + 1;
    static constexpr UINT printMessage = WM_APP + 2;

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    LRESULT handle(UINT message, WPARAM wparam, LPARAM lparam);
    bool handleFocus(UINT message, WPARAM wparam);
    void tick(UINT_PTR timer);
    void closeByUser();
    void layout();
    void saveFocus();
    void restoreFocus();
    void moveToDpi(const RECT& suggested);
    void showMenu(HMENU menu);
    void showRecentFiles(HMENU menu);
    void showAccessMenu(HMENU menu);
    void showRadioMenu(HMENU menu);
    void showHint(WPARAM wparam, LPARAM lparam);
    void showTitle(bool modified);

    void createWindow();
    void createComponents();
    void joinComponents();
    void closeComponents() noexcept;

    void run(int command);
    void newTable();
    void openTable();
    void openRecent(std::size_t index);
    void openPath(const std::wstring& path);
    void openDropped(HDROP files);
    bool save();
    bool saveAs();
    // Whether the open table may go: nothing to save, saved now, or not wanted.
    [[nodiscard]] bool mayDiscard();
    [[nodiscard]] bool mayLeaveEdits();
    void toggleStatusBar();
    void edit(const EditCommand& command);
    void showEditMenu(HMENU menu);
    void showTable();
    void showTableName();
    void showRefusal(IChannelGrid& grid);
    void focusTable();
    // "Lock Data" is ticked: the control refuses every change, and tells the user.
    [[nodiscard]] bool dataLocked() const;
    // The control shows what the level in force and the radio of the present table allow.
    bool followRadio();
    void callControl(ControlMethod method);
    void editChannel();
    void goToChannel();
    // Asks for a level and its password, and enters it; false when the user cancels.
    [[nodiscard]] bool logIn(const std::wstring& why, AccessLevel suggested);
    void logInByMenu();
    void logOut();
    void setPasswords();
    bool enterLevel(AccessLevel level);
    void askForLogin(LoginReason reason);
    void answerLogin();
    bool runForPrinting(int command);
    void requestPrint(PrintWish wish);
    void answerPrint();
    void print();
    void saveHtml();
    void setUpPage();
    [[nodiscard]] desk::PrintedTable printedTable() const;
    bool runForRadio(int command);
    void sendToRadio();
    void loadFromRadio();
    void restoreBackup();
    void beginRestore();
    void giveRestoreUp();
    void exchange(ControlMethod method, const std::wstring& what);
    void cancelExchange();
    [[nodiscard]] bool mayCancel() const;
    void releaseCommands();
    void answerExchange();
    void chooseConnection();
    void chooseFaults();
    void rememberRadio();
    [[nodiscard]] bool mayLeaveRadio();
    // Runs an action of the store; a failure is told to the user.
    bool attempt(const std::function<void()>& action);
    void tell(const std::wstring& sentence);
    [[nodiscard]] bool mayAct() const noexcept {
        return commandsEnabled_ && windowEnabled_ && modal_ == 0 && calls_ == 0;
    }

    // SiteOwner
    [[nodiscard]] HWND siteWindow() const override { return window_; }
    [[nodiscard]] RECT sitePlace() const override;
    [[nodiscard]] HACCEL accelerators() const override { return accelerators_; }
    [[nodiscard]] HACCEL formAccelerators() const override { return formAccelerators_; }
    void showStatus(const std::wstring& text) override;
    void enableWindow(bool enabled) override;

    // ControlListener
    void RestoreButtons() override;
    void DisableCommands() override;
    void EnableCommands(const std::wstring& commands) override;
    void PauseDiagnostics() override;
    void OpenLoginWithChannelFill() override;
    void OpenLoginWithChannelEdit() override;
    void DefaultOverWindow() override;
    void HourglassOverWindow() override;
    void NewWindowCaption(const std::wstring& caption) override;
    void PrintChannelData() override;
    void EditWindowClosed() override;
    void IncrementProgressBar() override;
    void applyAccess();

    // LinkListener
    void linkProgressed(long percent) override;
    void exchangeEnded(long task, bool succeeded, const std::wstring& message) override;
    void statusReported(bool answered, const std::wstring& message) override;

    win::Settings settings_;
    RecentFiles recent_;
    Access access_;
    Printing printing_;
    HWND window_ = nullptr;
    HACCEL accelerators_ = nullptr;
    HACCEL formAccelerators_ = nullptr;
    StatusBar statusBar_;
    std::optional<Document> document_;
    com::ComPointer<_ChannelInformation> channels_;
    Radio radio_{*this};
    std::unique_ptr<EmbeddedControl> control_;
    EventConnection controlEvents_;

    HWND focused_ = nullptr;
    std::wstring caption_;
    std::optional<long> shownRevision_;
    long refusedPastes_ = 0;       // as they were last counted
    std::wstring refusalMessage_;  // of the last paste, while it was refused
    std::optional<LoginReason> loginReason_;
    // A script that asks gets the preview.
    PrintWish printWish_ = PrintWish::Preview;
    std::optional<PrintWish> printRequest_;
    // What the exchange under way is called; empty where it is not one of ours.
    std::wstring exchangeText_;
    std::wstring failedExchange_;  // what is still to be told of it
    std::wstring radioState_;
    bool preparing_ = false;  // the control checks, asks or waits before an exchange
    bool cancelWanted_ = false;
    bool loaded_ = false;                        // and not yet shown
    bool channelSelected_ = false;               // on the radio, and not yet shown
    std::optional<std::wstring> restoreWanted_;  // and not yet begun
    bool loadRestored_ = false;                  // once the radio holds what is being restored
    bool closeWanted_ = false;
    int modal_ = 0;
    int calls_ = 0;
    bool windowEnabled_ = true;
    bool commandsEnabled_ = true;
    bool hourglass_ = false;
    bool placedMaximised_ = false;
};

}  // namespace telvar::host
