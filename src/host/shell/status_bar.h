// The line at the window's foot: a message, the radio or the progress of something, the access level, the number of
// configured channels, and whether the table has unsaved changes. While a menu is open, what its command does takes the
// message's place.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "desk/window.h"

namespace telvar::host {

class StatusBar final : public desk::StatusLine {
public:
    // Fails silently to no status bar at all; everything else then does nothing.
    void create(HWND parent, bool visible);

    // Follows the parent's new client size or DPI.
    void layout();
    // In pixels; 0 while hidden.
    [[nodiscard]] int height() const;

    // In the message's place while a menu is open.
    void showHint(const std::string& text);
    void endHint();

    void setMessage(const std::string& text) override;
    [[nodiscard]] std::string message() const override { return message_; }
    void setLevel(std::string_view text) override { setText(2, std::string(text)); }
    void setChannels(const std::string& text) override { setText(3, text); }
    // A progress bar covers it.
    void setRadio(std::string_view text, const std::string& sentence) override;
    void setModified(bool modified) override { setText(4, modified ? "Modified" : ""); }
    void stepProgress() override;
    void showPercent(int percent) override;
    void endProgress() override;
    [[nodiscard]] bool visible() const override { return visible_; }
    void setVisible(bool visible) override;

private:
    void setText(int part, const std::string& text);
    // Empty; it is complete after that many steps.
    void startProgress(int steps);
    void placeProgress();

    HWND bar_ = nullptr;
    HWND progress_ = nullptr;
    std::string message_;
    bool hinting_ = false;
    bool visible_ = true;
    int steps_ = 0;
    int done_ = 0;
};

}  // namespace telvar::host
