// The line at the window's foot: a message, the radio or the progress of something, the access level, the number of
// configured channels, and whether the table has unsaved changes. While a menu is open, what its command does takes the
// message's place.
#pragma once

#include <windows.h>

#include <string>

namespace telvar::host {

class StatusBar {
public:
    // Fails silently to no status bar at all; everything else then does nothing.
    void create(HWND parent, bool visible);

    // Follows the parent's new client size or DPI.
    void layout();
    // In pixels; 0 while hidden.
    [[nodiscard]] int height() const;

    [[nodiscard]] bool visible() const noexcept { return visible_; }
    void setVisible(bool visible);

    void setMessage(const std::wstring& text);
    [[nodiscard]] const std::wstring& message() const noexcept { return message_; }
    void setLevel(const std::wstring& text) { setText(2, text); }
    void setChannels(const std::wstring& text) { setText(3, text); }
    // What is known of the radio in two words, and as a sentence for the mouse that rests on it. A progress bar covers
    // it.
    void setRadio(const std::wstring& text, const std::wstring& sentence);
    void setModified(bool modified) { setText(4, modified ? L"Modified" : L""); }

    void showHint(const std::wstring& text);
    void endHint();

    // Shows the bar, empty; it is complete after that many steps.
    void startProgress(int steps);
    void stepProgress();
    void endProgress();
    // Shows the bar as an exchange stands, 0 to 100.
    void showPercent(int percent);
    [[nodiscard]] bool showsProgress() const noexcept { return steps_ > 0; }
    [[nodiscard]] bool progressComplete() const noexcept { return done_ >= steps_; }

private:
    void setText(int part, const std::wstring& text);
    void placeProgress();

    HWND bar_ = nullptr;
    HWND progress_ = nullptr;
    std::wstring message_;
    bool hinting_ = false;
    bool visible_ = true;
    int steps_ = 0;
    int done_ = 0;
};

}  // namespace telvar::host
