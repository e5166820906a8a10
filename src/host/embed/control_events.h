// The control's twelve events as calls of the host's own.
#pragma once

#include <string>

#include "base/pinned.h"
#include "host/embed/event_sink.h"

namespace telvar::host {

class ControlListener : private base::Pinned {
public:
    virtual void RestoreButtons() = 0;
    virtual void DisableCommands() = 0;
    virtual void EnableCommands(const std::wstring& commands) = 0;
    virtual void PauseDiagnostics() = 0;
    virtual void OpenLoginWithChannelFill() = 0;
    virtual void OpenLoginWithChannelEdit() = 0;
    virtual void DefaultOverWindow() = 0;
    virtual void HourglassOverWindow() = 0;
    virtual void NewWindowCaption(const std::wstring& caption) = 0;
    virtual void PrintChannelData() = 0;
    virtual void EditWindowClosed() = 0;
    virtual void IncrementProgressBar() = 0;

protected:
    ~ControlListener() = default;
};

// `listener` outlives the connection. Throws com::ComFailure where `control` does not have these events.
[[nodiscard]] EventConnection connectControl(IUnknown* control, ControlListener& listener);

}  // namespace telvar::host
