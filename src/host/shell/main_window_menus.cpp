// The menus: what each offers at the moment it opens, and what the status bar says of a command.
#include <array>

#include "host/shell/main_window.h"
#include "host/shell/resource.h"

namespace telvar::host {

namespace {

bool isRecent(int command) noexcept { return command >= COMMAND_RECENT_FIRST && command <= COMMAND_RECENT_LAST; }

// Does nothing in a menu that does not have the command.
void enable(HMENU menu, int command, bool enabled) {
    EnableMenuItem(menu, static_cast<UINT>(command), MF_BYCOMMAND | (enabled ? UINT{MF_ENABLED} : UINT{MF_GRAYED}));
}

std::wstring hintOf(int command) {
    std::array<wchar_t, 128> text{};
    LoadStringW(GetModuleHandleW(nullptr), static_cast<UINT>(command), text.data(), static_cast<int>(text.size()));
    return text.data();
}

}  // namespace

void MainWindow::showMenu(HMENU menu) {
    if (GetMenuState(menu, COMMAND_NEW, MF_BYCOMMAND) != static_cast<UINT>(-1)) {
        showRecentFiles(menu);
    }
    for (const int command : {COMMAND_NEW, COMMAND_OPEN, COMMAND_SAVE, COMMAND_SAVE_AS, COMMAND_SAVE_HTML,
                              COMMAND_PAGE_SETUP, COMMAND_PRINT_PREVIEW, COMMAND_PRINT, COMMAND_REFRESH}) {
        enable(menu, command, mayAct());
    }
    showEditMenu(menu);
    showAccessMenu(menu);
    showRadioMenu(menu);
    CheckMenuItem(menu, COMMAND_STATUS_BAR,
                  MF_BYCOMMAND | (statusBar_.visible() ? UINT{MF_CHECKED} : UINT{MF_UNCHECKED}));
}

void MainWindow::showEditMenu(HMENU menu) {
    for (const EditCommand& each : editCommands()) {
        const bool enabled =
            mayAct() && control_ && (focusedTextBox() != nullptr || control_->commandEnabled(each.standard));
        enable(menu, each.command, enabled);
    }
    // A fill changes the table, as a deletion does.
    const bool fills = mayAct() && control_ && control_->commandEnabled(OLECMDID_DELETE);
    enable(menu, COMMAND_FILL_DOWN, fills);
    enable(menu, COMMAND_FILL_SERIES, fills);
    enable(menu, COMMAND_EDIT_CHANNEL, mayAct());
    enable(menu, COMMAND_GO_TO, mayAct());
}

void MainWindow::showAccessMenu(HMENU menu) {
    enable(menu, COMMAND_LOG_IN, mayAct());
    enable(menu, COMMAND_LOG_OUT, mayAct() && access_.level() != AccessLevel::View);
    enable(menu, COMMAND_SET_PASSWORDS, mayAct() && access_.level() == AccessLevel::Everything);
}

void MainWindow::showRadioMenu(HMENU menu) {
    const bool acts = mayAct() && radio_.link() != nullptr;
    for (const int command :
         {COMMAND_RADIO_SEND, COMMAND_RADIO_LOAD, COMMAND_RADIO_RESTORE, COMMAND_RADIO_CONNECTION}) {
        enable(menu, command, acts);
    }
    enable(menu, COMMAND_RADIO_CANCEL, mayCancel());
    enable(menu, COMMAND_RADIO_FAULTS, acts && radio_.simulated());
}

void MainWindow::showRecentFiles(HMENU menu) {
    int position = 0;
    while (position < GetMenuItemCount(menu) && !isRecent(static_cast<int>(GetMenuItemID(menu, position)))) {
        ++position;
    }
    while (isRecent(static_cast<int>(GetMenuItemID(menu, position)))) {
        DeleteMenu(menu, static_cast<UINT>(position), MF_BYPOSITION);
    }
    const std::vector<std::wstring> paths = recent_.paths();
    for (std::size_t index = 0; index < paths.size(); ++index) {
        InsertMenuW(menu, static_cast<UINT>(position) + static_cast<UINT>(index), MF_BYPOSITION | MF_STRING,
                    COMMAND_RECENT_FIRST + index, RecentFiles::menuText(index, paths[index]).c_str());
    }
    if (paths.empty()) {
        InsertMenuW(menu, static_cast<UINT>(position), MF_BYPOSITION | MF_STRING | MF_GRAYED, COMMAND_RECENT_FIRST,
                    L"No recent files");
    }
}

// A menu that closes says so with no menu and all flags set.
void MainWindow::showHint(WPARAM wparam, LPARAM lparam) {
    const UINT flags = HIWORD(wparam);
    const int command = LOWORD(wparam);
    if (flags == 0xFFFF && lparam == 0) {
        statusBar_.endHint();
    } else if ((flags & (MF_POPUP | MF_SEPARATOR | MF_SYSMENU)) != 0) {
        statusBar_.showHint({});
    } else if (isRecent(command)) {
        const std::vector<std::wstring> paths = recent_.paths();
        const auto index = static_cast<std::size_t>(command - COMMAND_RECENT_FIRST);
        statusBar_.showHint(index < paths.size() ? paths[index] : std::wstring());
    } else {
        statusBar_.showHint(hintOf(command));
    }
}

}  // namespace telvar::host
