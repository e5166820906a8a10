// What the control tells the program, and what the program shows of the store's state.
#include <string>

#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "host/shell/main_window.h"
#include "host/shell/main_window_scopes.h"

namespace telvar::host {

namespace {

// Steps of one full refresh: one for each channel.
constexpr int refreshSteps = 255;

std::wstring channelsText(int channels) {
    return std::to_wstring(channels) + (channels == 1 ? L" channel" : L" channels");
}

}  // namespace

void MainWindow::refreshState() {
    if (window_ == nullptr || !document_) {
        return;
    }
    try {
        const long revision = document_->revision();
        if (shownRevision_ != revision) {
            statusBar_.setChannels(channelsText(document_->configuredChannels()));
            shownRevision_ = revision;
        }
        const bool modified = document_->modified();
        statusBar_.setModified(modified);
        showTitle(modified);
        if (const auto grid = com::ComPointer<IChannelGrid>::from(channels_)) {
            showRefusal(*grid);
        }
    } catch (const com::ComFailure&) {
        // A store that does not answer leaves what was shown last; whoever needs its answer reports the failure.
    }
}

// The control's box does not say where. Known while the box is open.
void MainWindow::showRefusal(IChannelGrid& grid) {
    long pastes = 0;
    long row = 0;
    long column = 0;
    com::check(grid.get_RefusedPastes(&pastes));
    com::check(grid.get_RefusedRow(&row));
    com::check(grid.get_RefusedColumn(&column));
    if (pastes != refusedPastes_) {
        refusedPastes_ = pastes;
        com::Bstr heading;
        const bool known = SUCCEEDED(grid.get_Header(column, heading.put()));
        refusalMessage_ = L"Paste refused at channel " + std::to_wstring(row) + L", " +
                          (known ? std::wstring(heading.view()) : L"column " + std::to_wstring(column));
        showStatus(refusalMessage_);
    } else if (row == 0 && statusBar_.message() == refusalMessage_ && !refusalMessage_.empty()) {
        // A paste has gone through since.
        refusalMessage_.clear();
        showTableName();
    }
}

void MainWindow::showTitle(bool modified) {
    const std::wstring title = (modified ? L"*" : L"") + caption_;
    std::wstring shown(static_cast<std::size_t>(GetWindowTextLengthW(window_)) + 1, L'\0');
    shown.resize(static_cast<std::size_t>(GetWindowTextW(window_, shown.data(), static_cast<int>(shown.size()))));
    if (shown != title) {
        SetWindowTextW(window_, title.c_str());
    }
}

void MainWindow::showStatus(const std::wstring& text) { statusBar_.setMessage(text); }

void MainWindow::enableWindow(bool enabled) { windowEnabled_ = enabled; }

void MainWindow::RestoreButtons() { commandsEnabled_ = true; }

void MainWindow::DisableCommands() { commandsEnabled_ = false; }

void MainWindow::EnableCommands(const std::wstring&) { commandsEnabled_ = true; }

void MainWindow::DefaultOverWindow() {
    hourglass_ = false;
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

void MainWindow::HourglassOverWindow() {
    hourglass_ = true;
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
}

void MainWindow::NewWindowCaption(const std::wstring& caption) {
    caption_ = caption;
    refreshState();
}

void MainWindow::EditWindowClosed() { focusTable(); }

// The control also refreshes itself, after a load for instance.
void MainWindow::IncrementProgressBar() {
    if (!statusBar_.showsProgress()) {
        statusBar_.startProgress(refreshSteps);
    }
    statusBar_.stepProgress();
    if (statusBar_.progressComplete()) {
        statusBar_.endProgress();
    }
}

}  // namespace telvar::host
