// The program that is walked: the host's own window, and the components it was given, which the walk looks at beside
// it.
#pragma once

#include <string>

#include "com/kit/pointer.h"
#include "host/shell/components.h"
#include "host/shell/main_window.h"

namespace telvar::walk {

class WalkedProgram {
public:
    // The window outlives this.
    WalkedProgram(host::MainWindow& window, host::Components components) noexcept
        : window_(window), components_(std::move(components)) {}

    // Null once it is closed.
    [[nodiscard]] HWND window() const noexcept { return window_.window(); }
    [[nodiscard]] const host::Components& components() const noexcept { return components_; }

    // Of the open table: its full path, empty for a table that was never saved; whether it has unsaved changes; the
    // record of channel 1 to 255. Each throws com::ComFailure.
    [[nodiscard]] std::wstring path() const;
    [[nodiscard]] bool modified() const;
    [[nodiscard]] com::ComPointer<IChannelRecord> record(int channel) const;
    // The access level, as the line at the window's foot names it.
    [[nodiscard]] std::wstring level() const { return statusText(2); }
    // One part of that line, counted from 0.
    [[nodiscard]] std::wstring statusText(int part) const;

private:
    host::MainWindow& window_;
    host::Components components_;
};

}  // namespace telvar::walk
