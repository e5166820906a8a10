// The table of commands, restated by another hand: numbers, menus, keys and hints.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "desk/command.h"

namespace telvar::tests {

using namespace desk;

namespace {

struct Expected {
    Command command;
    int number;
    Menu menu;
    const char* text;
    const char* hint;
    bool separated = false;
    bool inForms = false;
};

constexpr Expected expected[] = {
    {Command::New, 200, Menu::File, "&New\tCtrl+N", "Begins an empty channel table", false, true},
    {Command::Open, 201, Menu::File, "&Open...\tCtrl+O", "Opens a channel table", false, true},
    {Command::Save, 202, Menu::File, "&Save\tCtrl+S", "Saves the channel table", false, true},
    {Command::SaveAs, 203, Menu::File, "Save &As...\tCtrl+Shift+S", "Saves the channel table under another name", false,
     true},
    {Command::SaveHtml, 230, Menu::File, "Save as &HTML...", "Writes the table as a page for a browser"},
    {Command::PageSetup, 227, Menu::File, "Page Set&up...", "Chooses paper, margins and which channels are printed",
     true},
    {Command::PrintPreview, 228, Menu::File, "Print Pre&view...", "Shows the pages as they will be printed"},
    {Command::Print, 229, Menu::File, "&Print...\tCtrl+P", "Prints the table", false, true},
    {Command::RecentFirst, 300, Menu::File, "No recent files", "", true},
    {Command::Exit, 204, Menu::File, "E&xit\tAlt+F4", "Ends the program", true},
    {Command::Undo, 205, Menu::Edit, "&Undo\tCtrl+Z", "Takes the last change of the table back"},
    {Command::Redo, 206, Menu::Edit, "&Redo\tCtrl+Y", "Does again what was taken back"},
    {Command::Copy, 207, Menu::Edit, "&Copy\tCtrl+C", "Copies the selected cells", true},
    {Command::Paste, 208, Menu::Edit, "&Paste\tCtrl+V", "Pastes cells at the selection"},
    {Command::Delete, 209, Menu::Edit, "&Delete\tDel", "Deletes the selected channels"},
    {Command::FillDown, 214, Menu::Edit, "&Fill Down...\tCtrl+D", "Writes one frequency into a run of channels", true},
    {Command::FillSeries, 215, Menu::Edit, "Fill &Series...\tCtrl+Shift+D",
     "Writes a series of frequencies into a run of channels"},
    {Command::EditChannel, 231, Menu::Edit, "&Edit Channel...\tF2", "Shows every setting of the current channel", true},
    {Command::SelectAll, 213, Menu::Edit, "Select &All\tCtrl+A", "Selects every channel", true},
    {Command::GoTo, 216, Menu::Edit, "&Go to Channel...\tCtrl+G", "Shows and selects a channel by its number", false,
     true},
    {Command::Refresh, 210, Menu::View, "&Refresh\tF5", "Shows the table afresh", false, true},
    {Command::FocusTable, 212, Menu::View, "Channel &Table\tF6", "Goes back to the table", false, true},
    {Command::StatusBar, 211, Menu::View, "&Status Bar", "Shows or hides this line", true},
    {Command::RadioSend, 221, Menu::Radio, "&Send to Radio", "Sends the table to the radio, and verifies it"},
    {Command::RadioLoad, 222, Menu::Radio, "&Load from Radio", "Replaces the table by the one in the radio"},
    {Command::RadioCancel, 223, Menu::Radio, "&Cancel Transfer", "Ends the exchange with the radio at once"},
    {Command::RadioRestore, 226, Menu::Radio, "&Restore Backup...", "Sends the radio a table that it held before"},
    {Command::RadioConnection, 224, Menu::Radio, "C&onnection...", "Chooses how the radio is reached", true},
    {Command::RadioFaults, 225, Menu::Radio, "&Fault of the Simulated Radio...", "Lets the simulated radio misbehave"},
    {Command::LogIn, 217, Menu::Access, "&Log In...\tCtrl+L", "Enters another access level", false, true},
    {Command::LogOut, 218, Menu::Access, "Log &Out", "Goes back to the level View"},
    {Command::SetPasswords, 219, Menu::Access, "&Set Passwords...", "Sets or removes the password of a level", true},
    {Command::About, 220, Menu::Help, "&About Telvar...", "Shows the version of the program"},
};

// The letter behind the ampersand; 0 for none.
char accessKeyOf(std::string_view name) {
    const std::size_t at = name.find('&');
    const char letter = at + 1 < name.size() && at != std::string_view::npos ? name[at + 1] : '\0';
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

}  // namespace

TEST(CommandTable, HasTheseRowsInTheOrderOfTheMenus) {
    ASSERT_EQ(commands().size(), std::size(expected));
    for (std::size_t at = 0; at < std::size(expected); ++at) {
        const CommandRow& row = commands()[at];
        const Expected& each = expected[at];
        EXPECT_EQ(static_cast<int>(row.command), each.number) << each.text;
        EXPECT_EQ(row.command, each.command) << each.text;
        EXPECT_EQ(row.menu, each.menu) << each.text;
        EXPECT_EQ(menuText(row), each.text);
        EXPECT_EQ(row.hint, each.hint) << each.text;
        EXPECT_EQ(row.separated, each.separated) << each.text;
        EXPECT_NE(row.allowed, nullptr) << each.text;
        EXPECT_EQ(row.run == nullptr, each.command == Command::RecentFirst) << each.text;
        EXPECT_EQ(row.ticked != nullptr, each.command == Command::StatusBar) << each.text;
    }
}

TEST(CommandTable, HasEveryCommandOnceAndLeavesTheNumbersOfEnterAndEscFree) {
    std::set<Command> seen;
    for (const CommandRow& row : commands()) {
        EXPECT_TRUE(seen.insert(row.command).second) << menuText(row);
        EXPECT_GT(static_cast<int>(row.command), 2) << menuText(row);
    }
}

TEST(CommandTable, GivesNoShortcutTwice) {
    std::set<std::tuple<int, bool, bool>> seen;
    for (const CommandRow& row : commands()) {
        if (row.shortcut != Shortcut{}) {
            EXPECT_TRUE(seen.emplace(row.shortcut.code, row.shortcut.control, row.shortcut.shift).second)
                << menuText(row);
        }
    }
    EXPECT_EQ(seen.size(), 17U);
}

TEST(CommandTable, HasUniqueAccessKeysInEachMenuAndInTheMenuBar) {
    std::map<Menu, std::set<char>> seen;
    for (const CommandRow& row : commands()) {
        if (row.command != Command::RecentFirst) {
            ASSERT_NE(accessKeyOf(row.name), '\0') << row.name;
            EXPECT_TRUE(seen[row.menu].insert(accessKeyOf(row.name)).second) << row.name;
        }
    }
    std::set<char> bar;
    for (const std::string_view title : menuTitles) {
        ASSERT_NE(accessKeyOf(title), '\0') << title;
        EXPECT_TRUE(bar.insert(accessKeyOf(title)).second) << title;
    }
    // A title for each menu that a row names.
    EXPECT_EQ(seen.size(), std::size(menuTitles));
}

TEST(CommandTable, LeavesFormsTheShortcutsThatDoNotActOnTheGrid) {
    for (std::size_t at = 0; at < std::size(expected); ++at) {
        EXPECT_EQ(commands()[at].reach == Reach::WindowAndForms, expected[at].inForms) << expected[at].text;
    }
}

TEST(CommandTable, KeysAreWhatTheMenuSays) {
    const auto keyOf = [](Command command) { return rowOf(command)->shortcut; };
    EXPECT_EQ(keyOf(Command::Save), (Shortcut{.code = 0x53, .control = true}));
    EXPECT_EQ(keyOf(Command::SaveAs), (Shortcut{.code = 0x53, .control = true, .shift = true}));
    EXPECT_EQ(keyOf(Command::FillSeries), (Shortcut{.code = 0x44, .control = true, .shift = true}));
    EXPECT_EQ(keyOf(Command::EditChannel), (Shortcut{.code = 113}));
    EXPECT_EQ(keyOf(Command::Refresh), (Shortcut{.code = 116}));
    EXPECT_EQ(keyOf(Command::FocusTable), (Shortcut{.code = 117}));
    // Windows and the grid take these.
    EXPECT_EQ(keyOf(Command::Exit), Shortcut{});
    EXPECT_EQ(keyOf(Command::Delete), Shortcut{});
}

TEST(CommandTable, FindsTheRowOfANumber) {
    for (const CommandRow& row : commands()) {
        EXPECT_EQ(rowOf(row.command), &row) << menuText(row);
    }
    for (int number = 300; number <= 308; ++number) {
        EXPECT_TRUE(isRecent(static_cast<Command>(number))) << number;
        EXPECT_EQ(rowOf(static_cast<Command>(number)), rowOf(Command::RecentFirst)) << number;
    }
    for (const int number : {0, 1, 2, 199, 232, 299, 309, 65'535}) {
        EXPECT_FALSE(isRecent(static_cast<Command>(number))) << number;
        EXPECT_EQ(rowOf(static_cast<Command>(number)), nullptr) << number;
    }
}

}  // namespace telvar::tests
