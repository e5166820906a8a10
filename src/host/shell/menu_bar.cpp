#include "host/shell/menu_bar.h"

#include <vector>

#include "win/text.h"

namespace telvar::host {

namespace {

using desk::Command;

UINT numberOf(Command command) noexcept { return static_cast<UINT>(command); }

Command commandAt(HMENU menu, int position) noexcept { return static_cast<Command>(GetMenuItemID(menu, position)); }

std::size_t indexOf(Command recent) noexcept { return numberOf(recent) - numberOf(Command::RecentFirst); }

void showRecentFiles(HMENU menu, const desk::Desk& desk) {
    int position = 0;
    while (position < GetMenuItemCount(menu) && !isRecent(commandAt(menu, position))) {
        ++position;
    }
    if (position == GetMenuItemCount(menu)) {
        return;
    }
    while (isRecent(commandAt(menu, position))) {
        DeleteMenu(menu, static_cast<UINT>(position), MF_BYPOSITION);
    }
    const std::vector<std::string> paths = desk.recentFiles().paths();
    const UINT first = numberOf(Command::RecentFirst);
    for (std::size_t index = 0; index < paths.size(); ++index) {
        InsertMenuW(menu, static_cast<UINT>(position) + static_cast<UINT>(index), MF_BYPOSITION | MF_STRING,
                    first + index, win::wide(desk::RecentFiles::menuText(index, paths[index])).c_str());
    }
    if (paths.empty()) {
        const std::wstring none = win::wide(desk::rowOf(Command::RecentFirst)->name);
        InsertMenuW(menu, static_cast<UINT>(position), MF_BYPOSITION | MF_STRING | MF_GRAYED, first, none.c_str());
    }
}

HMENU makeMenu(desk::Menu which) {
    const HMENU menu = CreatePopupMenu();
    for (const desk::CommandRow& row : desk::commands()) {
        if (row.menu != which) {
            continue;
        }
        if (row.separated) {
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        }
        AppendMenuW(menu, MF_STRING, numberOf(row.command), win::wide(desk::menuText(row)).c_str());
    }
    return menu;
}

}  // namespace

HMENU makeMenuBar() {
    const HMENU bar = CreateMenu();
    for (std::size_t index = 0; index < std::size(desk::menuTitles); ++index) {
        const HMENU menu = makeMenu(static_cast<desk::Menu>(index));
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(menu), win::wide(desk::menuTitles[index]).c_str());
    }
    return bar;
}

HACCEL makeAccelerators(desk::Reach where) {
    std::vector<ACCEL> keys;
    for (const desk::CommandRow& row : desk::commands()) {
        if (row.shortcut.code == 0 || (where == desk::Reach::WindowAndForms && row.reach != where)) {
            continue;
        }
        const int modifiers = (row.shortcut.control ? FCONTROL : 0) | (row.shortcut.shift ? FSHIFT : 0);
        keys.push_back({.fVirt = static_cast<BYTE>(FVIRTKEY | modifiers),
                        .key = static_cast<WORD>(row.shortcut.code),
                        .cmd = static_cast<WORD>(row.command)});
    }
    return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

void showMenu(HMENU menu, const desk::Desk& desk) {
    showRecentFiles(menu, desk);
    for (int position = 0; position < GetMenuItemCount(menu); ++position) {
        const Command command = commandAt(menu, position);
        if (desk::rowOf(command) == nullptr || isRecent(command)) {
            continue;
        }
        const auto at = static_cast<UINT>(position);
        EnableMenuItem(menu, at, MF_BYPOSITION | (desk.allowed(command) ? UINT{MF_ENABLED} : UINT{MF_GRAYED}));
        CheckMenuItem(menu, at, MF_BYPOSITION | (desk.ticked(command) ? UINT{MF_CHECKED} : UINT{MF_UNCHECKED}));
    }
}

std::string hintOf(Command command, const desk::Desk& desk) {
    if (isRecent(command)) {
        const std::vector<std::string> paths = desk.recentFiles().paths();
        return indexOf(command) < paths.size() ? paths[indexOf(command)] : std::string();
    }
    const desk::CommandRow* const row = desk::rowOf(command);
    return row == nullptr ? std::string() : std::string(row->hint);
}

}  // namespace telvar::host
