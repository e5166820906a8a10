// What the control and the radio link tell, as the desk hears it.
#pragma once

#include "desk/desk.h"
#include "host/embed/control_events.h"
#include "host/embed/link_events.h"

namespace telvar::host {

class DeskEvents final : public ControlListener, public LinkListener {
public:
    // Both outlive this.
    DeskEvents(desk::Desk& desk, desk::Window& window) noexcept : desk_(desk), window_(window) {}

    // ControlListener
    void RestoreButtons() override { desk_.commandsAllowed(true); }
    void DisableCommands() override { desk_.commandsAllowed(false); }
    void EnableCommands(const std::wstring& /*commands*/) override { desk_.commandsAllowed(true); }
    void PauseDiagnostics() override { desk_.diagnosticsPaused(); }
    void OpenLoginWithChannelFill() override { desk_.loginWanted(desk::Logins::Reason::Fill); }
    void OpenLoginWithChannelEdit() override { desk_.loginWanted(desk::Logins::Reason::Edit); }
    void DefaultOverWindow() override { window_.setHourglass(false); }
    void HourglassOverWindow() override { window_.setHourglass(true); }
    void NewWindowCaption(const std::wstring& caption) override;
    void PrintChannelData() override { desk_.printRequested(); }
    void EditWindowClosed() override { desk_.editWindowClosed(); }
    void IncrementProgressBar() override { window_.status().stepProgress(); }

    // LinkListener
    void linkProgressed(long percent) override { desk_.linkProgressed(percent); }
    void exchangeEnded(long task, bool succeeded, const std::wstring& message) override;
    void statusReported(bool answered, const std::wstring& message) override;

private:
    desk::Desk& desk_;
    desk::Window& window_;
};

}  // namespace telvar::host
