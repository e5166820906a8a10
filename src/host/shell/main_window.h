// The program's window: menu, status line and the channel-table control between them. It shows what the desk decides
// and hands on what the system sends; what becomes of it is in src/desk. The start and the end are in
// main_window_life.cpp.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desk/desk.h"
#include "host/embed/embedded_control.h"
#include "host/embed/site_owner.h"
#include "host/shell/components.h"
#include "host/shell/control_adapter.h"
#include "host/shell/desk_events.h"
#include "host/shell/host_system.h"
#include "host/shell/link_adapter.h"
#include "host/shell/password_hash.h"
#include "host/shell/registry_settings.h"
#include "host/shell/status_bar.h"
#include "host/shell/store_adapter.h"
#include "host/shell/window_questions.h"

namespace telvar::host {

class MainWindow final : public SiteOwner, public desk::Window {
public:
    static constexpr wchar_t className[] = L"TelvarHostWindow";

    explicit MainWindow(const std::wstring& settingsKey);
    ~MainWindow() override;

    // Others than the system's.
    void setPrinters(std::unique_ptr<Printers> printers) { questions_.printing().setPrinters(std::move(printers)); }

    // Makes the window with the control in it, joins control, store and link, and opens `file`, or a new table when it
    // is empty or unusable. Throws com::ComFailure where a component is not what it should be.
    void open(const std::string& file, Components components);
    void show(int command);

    // A message of the queue: whether the control or an accelerator used it up.
    [[nodiscard]] bool translate(MSG& message);
    // Shows what has changed since; for whenever the queue has run empty.
    void refreshState();

    // Null once it is closed.
    [[nodiscard]] HWND window() const noexcept { return window_; }

private:
    static constexpr UINT_PTR stateTimer = 1;
    static constexpr UINT_PTR pollTimer = 2;
    static constexpr UINT goOnMessage = WM_APP;

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept;
    LRESULT handle(UINT message, WPARAM wparam, LPARAM lparam);
    bool handleFocus(UINT message, WPARAM wparam);
    bool handleCommand(UINT message, WPARAM wparam, LPARAM lparam);
    void tick(UINT_PTR timer);
    void saveFocus();
    void restoreFocus();
    void moveToDpi(const RECT& suggested);
    void showHint(WPARAM wparam, LPARAM lparam);
    void openDropped(HDROP files);

    void createWindow();
    void embed(const com::ComPointer<IUnknown>& control);
    void attachLink(Components& components);
    void join();
    void closeComponents() noexcept;

    // SiteOwner
    [[nodiscard]] HWND siteWindow() const override { return window_; }
    [[nodiscard]] RECT sitePlace() const override;
    [[nodiscard]] HACCEL accelerators() const override { return accelerators_; }
    [[nodiscard]] HACCEL formAccelerators() const override { return formAccelerators_; }
    void showStatus(const std::wstring& text) override;
    void enableWindow(bool enabled) override;

    // desk::Window
    [[nodiscard]] desk::StatusLine& status() override { return statusBar_; }
    [[nodiscard]] desk::Questions& questions() override { return questions_; }
    [[nodiscard]] bool open() const override { return window_ != nullptr; }
    void setTitle(const std::string& title) override;
    void setHourglass(bool hourglass) override;
    void layout() override;
    void beginModal() override;
    void endModal() override;
    void later() override { PostMessageW(window_, goOnMessage, 0, 0); }
    void closeLater() override { PostMessageW(window_, WM_CLOSE, 0, 0); }
    void showModal() override;
    [[nodiscard]] bool textBoxHasFocus() const override;
    void editText(desk::EditAction action) override;

    HWND window_ = nullptr;
    HACCEL accelerators_ = nullptr;
    HACCEL formAccelerators_ = nullptr;
    RegistrySettings settings_;
    const HostSystem system_;
    const SystemPasswordHasher hasher_;
    StatusBar statusBar_;
    WindowQuestions questions_{window_, system_};
    com::ComPointer<_ChannelInformation> channels_;
    std::optional<StoreAdapter> store_;
    ControlAdapter controlAdapter_;
    LinkAdapter link_;
    std::optional<desk::Desk> desk_;
    std::optional<DeskEvents> events_;
    std::unique_ptr<EmbeddedControl> control_;
    EventConnection controlEvents_;

    HWND focused_ = nullptr;
    // The window that was active when each modal one opened.
    std::vector<HWND> activeBefore_;
    bool hourglass_ = false;
    bool placedMaximised_ = false;
};

}  // namespace telvar::host
