#include "host/shell/status_bar.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <string>

#include "host/shell/resource.h"
#include "win/scaling.h"
#include "win/text.h"

namespace telvar::host {

namespace {

// Widths in pixels at 96 dpi of the parts behind the message.
constexpr int progressWidth = 110;
constexpr int levelWidth = 100;
constexpr int channelsWidth = 100;
constexpr int modifiedWidth = 90;
constexpr int progressPart = 1;
// A repaint costs more than the row it announces.
constexpr int stepsPerPaint = 8;
constexpr int whole = 100;  // percent
// Of a full refresh: one for each channel.
constexpr int refreshSteps = 255;

std::wstring partText(HWND bar, WPARAM part) {
    const auto length = static_cast<std::size_t>(LOWORD(SendMessageW(bar, SB_GETTEXTLENGTHW, part, 0)));
    std::wstring text(length + 1, L'\0');
    SendMessageW(bar, SB_GETTEXTW, part, reinterpret_cast<LPARAM>(text.data()));
    text.resize(length);
    return text;
}

}  // namespace

void StatusBar::create(HWND parent, bool visible) {
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
    visible_ = visible;
    const auto instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrW(parent, GWLP_HINSTANCE));
    bar_ = CreateWindowExW(0, STATUSCLASSNAMEW, nullptr,
                           WS_CHILD | SBARS_SIZEGRIP | SBARS_TOOLTIPS | (visible ? WS_VISIBLE : 0U), 0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(CHILD_STATUS_BAR), instance, nullptr);
    if (bar_ != nullptr) {
        progress_ = CreateWindowExW(0, PROGRESS_CLASSW, nullptr, WS_CHILD | PBS_SMOOTH, 0, 0, 0, 0, bar_,
                                    reinterpret_cast<HMENU>(CHILD_PROGRESS), instance, nullptr);
    }
    layout();
}

void StatusBar::layout() {
    if (bar_ == nullptr) {
        return;
    }
    SendMessageW(bar_, WM_SIZE, 0, 0);
    RECT client{};
    GetClientRect(bar_, &client);
    const int dpi = win::dpiOf(bar_);
    const int channelsEnd = client.right - win::scaled(modifiedWidth, dpi);
    const int levelEnd = channelsEnd - win::scaled(channelsWidth, dpi);
    const int progressEnd = levelEnd - win::scaled(levelWidth, dpi);
    const int messageEnd = progressEnd - win::scaled(progressWidth, dpi);
    std::array<int, 5> ends{std::max(messageEnd, 0), std::max(progressEnd, 0), std::max(levelEnd, 0),
                            std::max(channelsEnd, 0), -1};
    SendMessageW(bar_, SB_SETPARTS, ends.size(), reinterpret_cast<LPARAM>(ends.data()));
    placeProgress();
}

void StatusBar::placeProgress() {
    RECT part{};
    if (progress_ != nullptr && SendMessageW(bar_, SB_GETRECT, progressPart, reinterpret_cast<LPARAM>(&part)) != 0) {
        const int margin = win::scaled(2, win::dpiOf(bar_));
        InflateRect(&part, -margin, -margin);
        MoveWindow(progress_, part.left, part.top, std::max<int>(part.right - part.left, 0),
                   std::max<int>(part.bottom - part.top, 0), TRUE);
    }
}

int StatusBar::height() const {
    RECT rectangle{};
    if (bar_ == nullptr || !visible_ || !GetWindowRect(bar_, &rectangle)) {
        return 0;
    }
    return rectangle.bottom - rectangle.top;
}

void StatusBar::setVisible(bool visible) {
    visible_ = visible;
    ShowWindow(bar_, visible ? SW_SHOW : SW_HIDE);
}

void StatusBar::setText(int part, const std::string& narrow) {
    const std::wstring text = win::wide(narrow);
    if (bar_ != nullptr && partText(bar_, static_cast<WPARAM>(part)) != text) {
        SendMessageW(bar_, SB_SETTEXTW, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(text.c_str()));
    }
}

void StatusBar::setRadio(std::string_view text, const std::string& sentence) {
    setText(progressPart, std::string(text));
    SendMessageW(bar_, SB_SETTIPTEXTW, progressPart, reinterpret_cast<LPARAM>(win::wide(sentence).c_str()));
}

void StatusBar::setMessage(const std::string& text) {
    message_ = text;
    if (!hinting_) {
        setText(0, text);
    }
}

void StatusBar::showHint(const std::string& text) {
    hinting_ = true;
    setText(0, text);
}

void StatusBar::endHint() {
    hinting_ = false;
    setText(0, message_);
}

void StatusBar::startProgress(int steps) {
    steps_ = steps;
    done_ = 0;
    SendMessageW(progress_, PBM_SETRANGE32, 0, steps);
    SendMessageW(progress_, PBM_SETPOS, 0, 0);
    ShowWindow(progress_, SW_SHOWNA);
}

// The control also refreshes itself, after a load for instance, so that nobody announces the first step.
void StatusBar::stepProgress() {
    if (steps_ == 0) {
        startProgress(refreshSteps);
    }
    ++done_;
    if (done_ >= steps_) {
        endProgress();
    } else if (done_ % stepsPerPaint == 0) {
        SendMessageW(progress_, PBM_SETPOS, static_cast<WPARAM>(done_), 0);
        UpdateWindow(progress_);
    }
}

void StatusBar::showPercent(int percent) {
    if (steps_ != whole) {
        startProgress(whole);
    }
    done_ = percent;
    SendMessageW(progress_, PBM_SETPOS, static_cast<WPARAM>(done_), 0);
}

void StatusBar::endProgress() {
    steps_ = 0;
    ShowWindow(progress_, SW_HIDE);
}

}  // namespace telvar::host
