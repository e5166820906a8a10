// The program's commands: one table, in the order of the menus. The menu bar, the keys, the hints in the status line,
// what is enabled and what is done all come from it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace telvar::desk {

class Desk;

// By the numbers that the window's messages carry. 1 and 2 stay free: the dialog manager sends them for Enter and Esc.
enum class Command : std::uint16_t {
    New = 200,
    Open = 201,
    Save = 202,
    SaveAs = 203,
    Exit = 204,
    Undo = 205,
    Redo = 206,
    Copy = 207,
    Paste = 208,
    Delete = 209,
    Refresh = 210,
    StatusBar = 211,
    FocusTable = 212,
    SelectAll = 213,
    FillDown = 214,
    FillSeries = 215,
    GoTo = 216,
    LogIn = 217,
    LogOut = 218,
    SetPasswords = 219,
    About = 220,
    RadioSend = 221,
    RadioLoad = 222,
    RadioCancel = 223,
    RadioConnection = 224,
    RadioFaults = 225,
    RadioRestore = 226,
    PageSetup = 227,
    PrintPreview = 228,
    Print = 229,
    SaveHtml = 230,
    EditChannel = 231,
    // One for each of the nine recent files, behind this one.
    RecentFirst = 300,
    RecentLast = 308,
};

[[nodiscard]] constexpr bool isRecent(Command command) noexcept {
    return command >= Command::RecentFirst && command <= Command::RecentLast;
}

enum class Menu : std::uint8_t { File, Edit, View, Radio, Access, Help };
inline constexpr std::string_view menuTitles[] = {"&File", "&Edit", "&View", "&Radio", "&Access", "&Help"};

// A key of the program's own; code 0 for none, otherwise a virtual key code (upper-case letters, 112 for F1).
struct Shortcut {
    int code = 0;
    bool control = false;
    bool shift = false;
    bool operator==(const Shortcut&) const = default;
};

// Where the keyboard is when a shortcut holds. From the control's edit form the program is reached as from its window,
// but for what acts on the grid's selection: whoever types in a form does not look there.
enum class Reach : std::uint8_t { Window, WindowAndForms };

struct CommandRow {
    Command command;
    Menu menu;
    std::string_view name;  // with its access key
    Shortcut shortcut{};
    // A key that somebody else takes, as the menu shows it.
    std::string_view shownKey{};
    std::string_view hint;
    Reach reach = Reach::Window;
    bool separated = false;  // from the one above
    bool (Desk::*allowed)() const;
    void (Desk::*run)();
    // Whether a tick stands before it; null where none ever does.
    bool (Desk::*ticked)() const = nullptr;
};

[[nodiscard]] std::span<const CommandRow> commands() noexcept;
// Null for a number that is no command; all recent files share the row of the first.
[[nodiscard]] const CommandRow* rowOf(Command command) noexcept;

// "&Save\tCtrl+S".
[[nodiscard]] std::string menuText(const CommandRow& row);

}  // namespace telvar::desk
