// The steps that edit the table: paste and undo, a refused paste, passwords, the login that a fill asks for, the fill.
#include "walk/keyboard.h"
#include "walk/walk_input.h"
#include "walk/walk_job.h"

namespace telvar::walk {

namespace {

// What the walk pastes and takes back. The next column is the transmit mode, which undo leaves as it is.
constexpr int lastPastedColumn = 7;
// The series: every channel of it is free in the sample.
constexpr int firstFilled = 240;
constexpr int lastFilled = 249;
constexpr long firstFrequency = 450'000'000;  // hertz
constexpr long fillStep = 25'000;             // hertz

}  // namespace

// The last channel now shows what the first one does.
WalkJob::Lines WalkJob::checkPasted() {
    Lines wrong;
    for (int column = transmitColumn; column <= lastPastedColumn; ++column) {
        const Lines lines = expectEqual(L"pasted column " + std::to_wstring(column), cell(1, column),
                                        cell(TableCopy::channels, column));
        wrong.insert(wrong.end(), lines.begin(), lines.end());
    }
    return wrong;
}

// A series in the transmit column, and nothing else.
WalkJob::Lines WalkJob::checkFilled() {
    TableCopy filled = expected_;
    for (int channel = firstFilled; channel <= lastFilled; ++channel) {
        const long hertz = firstFrequency + (channel - firstFilled) * fillStep;
        filled.value(channel, L"TxFreq") = std::to_wstring(hertz);
        // The other cells of a channel without frequencies begin to show, too.
        for (int column = 1; column < TableCopy::columns; ++column) {
            filled.cell(channel, column) = cell(channel, column);
        }
        filled.cell(channel, transmitColumn) = megahertz(hertz);
    }
    return differences(filled, copyTable(program_, *grid()));
}

void WalkJob::addEditing(std::vector<WalkStep>& steps) {
    const auto unchanged = [this] { return checkUnchanged(); };
    steps.push_back({.text = L"the first channel is copied and pasted over the last one",
                     .act =
                         [] {
                             press({VK_CONTROL, VK_HOME});
                             for (int column = transmitColumn; column < lastPastedColumn; ++column) {
                                 press({VK_SHIFT, VK_RIGHT});
                             }
                             press({VK_CONTROL, 'C'});
                             press({VK_CONTROL, VK_END});
                             press({VK_HOME});
                             press({VK_CONTROL, 'V'});
                         },
                     .done = [this] { return cell(TableCopy::channels, transmitColumn) == cell(1, transmitColumn); },
                     .check = [this] { return checkPasted(); },
                     .picture = L"08-pasted"});
    steps.push_back({.text = L"Ctrl+Z takes the paste back",
                     .act = [] { press({VK_CONTROL, 'Z'}); },
                     .done =
                         [this] {
                             return cell(TableCopy::channels, transmitColumn) ==
                                    expected_.cell(TableCopy::channels, transmitColumn);
                         },
                     .check = unchanged});
    steps.push_back({.text = L"a paste of something that is no frequency is refused",
                     .act =
                         [this] {
                             setClipboard(program_.window(), L"nonsense");
                             press({VK_CONTROL, 'V'});
                         },
                     .done = [] { return Walk::dialog() != nullptr; },
                     .picture = L"09-refused",
                     .dialog = true});
    steps.push_back({.text = L"and changes nothing",
                     .act = [] { press({VK_RETURN}); },
                     .done = [this] { return idle(); },
                     .check = unchanged,
                     .dialog = true});
}

void WalkJob::addPasswords(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"Alt+A shows who may do what",
                     .act = [] { press({VK_MENU, 'A'}); },
                     .done = [] { return Walk::menuShows(); },
                     .picture = L"10-access"});
    steps.push_back({.text = L"a password for the level Everything is typed twice",
                     .act = [] { press({'S'}); },
                     .done = [] { return dialogTitled(L"Set Passwords"); },
                     .dialog = true});
    steps.push_back({.text = L"and is not shown",
                     .act =
                         [] {
                             type(L"walk");
                             press({VK_TAB});
                             type(L"walk");
                         },
                     .done = [] { return focusedText() == L"walk"; },
                     .picture = L"11-passwords",
                     .dialog = true});
    steps.push_back({.text = L"Enter keeps it",
                     .act = [] { press({VK_RETURN}); },
                     .done = [this] { return idle(); },
                     .dialog = true});
    steps.push_back({.text = L"Alt+A, O logs out",
                     .act =
                         [] {
                             press({VK_MENU, 'A'});
                             press({'O'});
                         },
                     .done = [this] { return program_.level() == L"View"; }});
}

void WalkJob::addLogin(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"Ctrl+Shift+D wants to fill, for which the control asks for a login",
                     .act = [] { press({VK_CONTROL, VK_SHIFT, 'D'}); },
                     .done = [] { return dialogTitled(L"Log In"); },
                     .picture = L"12-login",
                     .dialog = true});
    steps.push_back({.text = L"Enter logs in for editing channels, and the fill dialog opens",
                     .act = [] { press({VK_RETURN}); },
                     .done = [this] { return program_.level() == L"Edit channels" && dialogTitled(L"Channel Fill"); },
                     .dialog = true});
}

void WalkJob::addFill(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"ten channels from 450 MHz in steps of 25 kHz are typed into its fields",
                     .act =
                         [] {
                             typeOver(std::to_wstring(firstFilled));
                             press({VK_TAB});
                             typeOver(std::to_wstring(lastFilled));
                             press({VK_TAB});
                             typeOver(L"450");
                             press({VK_TAB});
                             typeOver(L"25");
                         },
                     .done = [] { return focusedText() == L"25"; },
                     .picture = L"13-fill",
                     .dialog = true});
    steps.push_back({.text = L"Enter fills them",
                     .act = [] { press({VK_RETURN}); },
                     .done = [this] { return idle() && cell(lastFilled, transmitColumn) == L"450.225000"; },
                     .check = [this] { return checkFilled(); },
                     .dialog = true});
    steps.push_back({.text = L"Ctrl+G goes to the first of them",
                     .act = [] { press({VK_CONTROL, 'G'}); },
                     .done = [] { return dialogTitled(L"Go to Channel"); },
                     .dialog = true});
    steps.push_back({.text = L"by its number",
                     .act =
                         [] {
                             type(std::to_wstring(firstFilled));
                             press({VK_RETURN});
                         },
                     .done = [this] { return idle() && currentRow() == firstFilled; },
                     .picture = L"14-filled",
                     .dialog = true});
    steps.push_back(
        {.text = L"Ctrl+Z takes the fill back",
         .act = [] { press({VK_CONTROL, 'Z'}); },
         .done = [this] { return cell(lastFilled, transmitColumn) == expected_.cell(lastFilled, transmitColumn); },
         .check = [this] { return checkUnchanged(); }});
}

}  // namespace telvar::walk
