// The commands of the menu, and the life of the open table: new, open, save, and what becomes of unsaved changes.
#include <algorithm>

#include "com/kit/failure.h"
#include "host/shell/channel_dialog.h"
#include "host/shell/command_line.h"
#include "host/shell/dialogs.h"
#include "host/shell/main_window.h"
#include "host/shell/main_window_scopes.h"
#include "host/shell/resource.h"
#include "host/shell/sentences.h"

namespace telvar::host {

namespace {

// Rows that stay in view above a channel that is gone to; few enough for the smallest window.
constexpr int rowsAbove = 3;

}  // namespace

void MainWindow::run(int command) {
    if (command == COMMAND_EXIT) {
        SendMessageW(window_, WM_CLOSE, 0, 0);
        return;
    }
    if (command == COMMAND_RADIO_CANCEL && mayCancel()) {
        cancelExchange();
    }
    if (!mayAct() || runForRadio(command) || runForPrinting(command)) {
        return;
    }
    switch (command) {
    case COMMAND_NEW:
        newTable();
        break;
    case COMMAND_OPEN:
        openTable();
        break;
    case COMMAND_SAVE:
        if (mayLeaveEdits()) {
            save();
        }
        break;
    case COMMAND_SAVE_AS:
        if (mayLeaveEdits()) {
            saveAs();
        }
        break;
    case COMMAND_REFRESH:
        refreshTable();
        break;
    case COMMAND_STATUS_BAR:
        toggleStatusBar();
        break;
    case COMMAND_FOCUS_TABLE:
        focusTable();
        break;
    case COMMAND_FILL_DOWN:
        callControl(&_ChannelInformation::ChannelFillDown);
        break;
    case COMMAND_FILL_SERIES:
        callControl(&_ChannelInformation::ChannelFillSeries);
        break;
    case COMMAND_EDIT_CHANNEL:
        editChannel();
        break;
    case COMMAND_GO_TO:
        goToChannel();
        break;
    case COMMAND_LOG_IN:
        logInByMenu();
        break;
    case COMMAND_LOG_OUT:
        logOut();
        break;
    case COMMAND_SET_PASSWORDS:
        if (access_.level() == AccessLevel::Everything) {
            setPasswords();
        }
        break;
    case COMMAND_ABOUT: {
        const Modal modal(*this);
        showAbout(window_);
        break;
    }
    default:
        for (const EditCommand& each : editCommands()) {
            if (each.command == command) {
                edit(each);
            }
        }
        if (command >= COMMAND_RECENT_FIRST && command <= COMMAND_RECENT_LAST) {
            openRecent(static_cast<std::size_t>(command - COMMAND_RECENT_FIRST));
        }
        break;
    }
}

void MainWindow::newTable() {
    if (mayDiscard() && attempt([this] { document_->create(); })) {
        showTable();
    }
}

void MainWindow::openTable() {
    if (!mayDiscard()) {
        return;
    }
    std::optional<std::wstring> path;
    {
        const Modal modal(*this);
        path = askOpenPath(window_, document_->path());
    }
    if (path) {
        openPath(*path);
    }
}

void MainWindow::openRecent(std::size_t index) {
    const std::vector<std::wstring> paths = recent_.paths();
    if (index < paths.size() && mayDiscard()) {
        openPath(paths[index]);
    }
}

void MainWindow::openPath(const std::wstring& path) {
    if (attempt([&] { document_->open(path); })) {
        recent_.add(document_->path());
        showTable();
    } else if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
        recent_.remove(path);
    }
}

void MainWindow::openDropped(HDROP files) {
    std::wstring path(DragQueryFileW(files, 0, nullptr, 0), L'\0');
    DragQueryFileW(files, 0, path.data(), static_cast<UINT>(path.size() + 1));
    DragFinish(files);
    if (!path.empty() && mayAct() && mayDiscard()) {
        openPath(path);
    }
}

bool MainWindow::save() {
    if (document_->path().empty()) {
        return saveAs();
    }
    return attempt([this] { document_->save(); });
}

bool MainWindow::saveAs() {
    std::optional<std::wstring> path;
    {
        const Modal modal(*this);
        path = askSavePath(window_, document_->path());
    }
    if (!path || !attempt([&] { document_->saveAs(*path); })) {
        return false;
    }
    recent_.add(document_->path());
    showTableName();
    return true;
}

// Wherever in the control, or in its edit form, the keyboard is.
void MainWindow::focusTable() {
    if (const auto grid = com::ComPointer<IChannelGrid>::from(channels_)) {
        grid->FocusGrid();
    }
}

bool MainWindow::dataLocked() const {
    const auto grid = com::ComPointer<IChannelGrid>::from(channels_);
    VARIANT_BOOL locked = VARIANT_FALSE;
    return grid && SUCCEEDED(grid->get_DataLocked(&locked)) && locked != VARIANT_FALSE;
}

// Edits on the control's form belong to the table that is open now, and applied they are changes of it.
bool MainWindow::mayLeaveEdits() {
    const auto grid = com::ComPointer<IChannelGrid>::from(channels_);
    const ControlCall call(*this);
    VARIANT_BOOL left = VARIANT_TRUE;
    return !grid || FAILED(grid->LeaveEdits(&left)) || left != VARIANT_FALSE;
}

bool MainWindow::mayDiscard() {
    if (!mayLeaveEdits()) {
        return false;
    }
    if (!document_ || !document_->modified()) {
        return true;
    }
    SaveAnswer answer = SaveAnswer::Cancel;
    {
        const Modal modal(*this);
        answer = askSave(window_, document_->name());
    }
    switch (answer) {
    case SaveAnswer::Save:
        return save();
    case SaveAnswer::DontSave:
        return true;
    case SaveAnswer::Cancel:
        break;
    }
    return false;
}

// Another table begins at its top; a refresh stays where the user was.
void MainWindow::showTable() {
    refreshTable();
    if (const auto grid = com::ComPointer<IChannelGrid>::from(channels_)) {
        grid->put_TopRow(1);
        grid->put_LeftColumn(1);
    }
    showTableName();
}

void MainWindow::showTableName() {
    const std::wstring path = document_->path();
    showStatus(path.empty() ? L"New channel table" : path);
}

void MainWindow::refreshTable() {
    attempt([this] {
        const ControlCall call(*this);
        com::checkCall(channels_->UpdateControlsFromMemory());
    });
    followRadio();
    statusBar_.endProgress();
    refreshState();
}

void MainWindow::edit(const EditCommand& command) {
    if (const HWND box = focusedTextBox()) {
        SendMessageW(box, command.message, command.wparam, command.lparam);
    } else if (control_->commandEnabled(command.standard)) {
        const ControlCall call(*this);
        attempt([&] { control_->execute(command.standard); });
    }
    refreshState();
}

void MainWindow::callControl(ControlMethod method) {
    attempt([&] {
        const ControlCall call(*this);
        com::checkCall((channels_.get()->*method)());
    });
    refreshState();
}

void MainWindow::editChannel() {
    attempt([&] {
        const ControlCall call(*this);
        if (const auto grid = com::ComPointer<IChannelGrid>::from(channels_)) {
            com::checkCall(grid->EditChannel());
        }
    });
    refreshState();
}

void MainWindow::goToChannel() {
    const auto grid = com::ComPointer<IChannelGrid>::from(channels_);
    long current = 1;
    long columns = 0;
    if (!grid || FAILED(grid->get_CurrentRow(&current)) || FAILED(grid->get_ColumnCount(&columns))) {
        return;
    }
    std::optional<int> channel;
    {
        const Modal modal(*this);
        channel = askChannel(window_, static_cast<int>(std::max(current, 1L)));
    }
    if (channel) {
        grid->put_TopRow(std::max(*channel - rowsAbove, 1));
        grid->Select(*channel, 1, *channel, columns - 1);
        // An open edit form follows moves of the user's by itself, but this one is the program's.
        callControl(&_ChannelInformation::RefreshEditForm);
        focusTable();
    }
}

void MainWindow::toggleStatusBar() {
    statusBar_.setVisible(!statusBar_.visible());
    settings_.setNumber(L"StatusBar", statusBar_.visible() ? 1 : 0);
    layout();
}

bool MainWindow::attempt(const std::function<void()>& action) {
    try {
        action();
        return true;
    } catch (const std::exception& failure) {
        tell(sentenceFor(failure));
        return false;
    }
}

void MainWindow::tell(const std::wstring& sentence) {
    const Modal modal(*this);
    tellFailure(window_, sentence);
}

}  // namespace telvar::host
