// The steps with the simulated radio: a send that the checks refuse, a send over a slow line, a load that brings back
// what was sent, a send that a fault cuts, and one after it.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "VexloRadioLink.h"
#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "host/shell/resource.h"
#include "walk/keyboard.h"
#include "walk/walk_input.h"
#include "walk/walk_job.h"

namespace telvar::walk {

namespace {

// The line's delay for each frame, in milliseconds: the whole send takes some seconds, and its progress can be seen.
constexpr wchar_t slowLine[] = L"delay:30";
// The hundredth frame of a send carries records, long before the commit.
constexpr wchar_t lostPower[] = L"power";
constexpr wchar_t noFault[] = L"none";
// In percent; the radio's own table has then been read, and ours is being written.
constexpr int wellUnderWay = 40;

constexpr wchar_t overwriteQuestion[] = L"Telvar: Communicating with Telvar";
constexpr wchar_t sent[] = L"The radio holds the table; its former one is kept in ";
constexpr wchar_t loaded[] = L"The table was loaded from the radio.";

bool isThere(const std::wstring& path) { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

void append(std::vector<std::wstring>& to, const std::vector<std::wstring>& lines) {
    to.insert(to.end(), lines.begin(), lines.end());
}

std::wstring yesOrNo(bool value) { return value ? L"yes" : L"no"; }

// No step of a synthesizer divides it.
long impossibleFrequency(const Transmitting& channel) { return channel.hertz + 1; }
long otherFrequency(const Transmitting& channel) { return channel.hertz + channel.step; }

}  // namespace

std::wstring WalkJob::statusText() const { return program_.statusText(0); }

bool WalkJob::offered(desk::Command command) const {
    const HMENU bar = GetMenu(program_.window());
    constexpr auto missing = static_cast<UINT>(-1);
    for (int index = 0; index < GetMenuItemCount(bar); ++index) {
        const HMENU menu = GetSubMenu(bar, index);
        if (GetMenuState(menu, static_cast<UINT>(command), MF_BYCOMMAND) == missing) {
            continue;
        }
        SendMessageW(program_.window(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), index);
        return (GetMenuState(menu, static_cast<UINT>(command), MF_BYCOMMAND) & MF_GRAYED) == 0;
    }
    return false;
}

int WalkJob::shownPercent() const {
    constexpr std::wstring_view before = L"Sending to the radio: ";
    const std::wstring text = statusText();
    const bool shows = IsWindowVisible(GetDlgItem(GetDlgItem(program_.window(), CHILD_STATUS_BAR), CHILD_PROGRESS));
    return shows && text.starts_with(before) ? std::stoi(text.substr(before.size())) : -1;
}

// Everything that an exchange takes away is there again.
WalkJob::Lines WalkJob::checkCommands() {
    Lines wrong;
    for (const desk::Command command :
         {desk::Command::RadioSend, desk::Command::RadioLoad, desk::Command::RadioConnection, desk::Command::Open,
          desk::Command::Save, desk::Command::Paste}) {
        append(wrong, expectEqual(L"command " + std::to_wstring(static_cast<int>(command)) + L" is offered", L"yes",
                                  yesOrNo(offered(command))));
    }
    append(wrong, expectEqual(L"cancelling is offered", L"no", yesOrNo(offered(desk::Command::RadioCancel))));
    return wrong;
}

WalkJob::Lines WalkJob::checkRadioFile(bool changed) {
    const std::string bytes = contentsOf(radioFile_);
    Lines wrong = expectEqual(L"what the radio holds has changed", yesOrNo(changed), yesOrNo(bytes != radioBytes_));
    radioBytes_ = bytes;
    return wrong;
}

// What came back is what was sent: every key of every channel, and every cell.
WalkJob::Lines WalkJob::checkLoaded() {
    const TableCopy found = copyTable(program_, *grid());
    Lines wrong = differences(expected_, found);
    append(wrong, expectEqual(L"channels", std::to_wstring(TableCopy::channels), std::to_wstring(found.values.size())));
    append(wrong, expectEqual(L"there are keys", L"yes", yesOrNo(!found.keys.empty())));
    return wrong;
}

// A radio that is empty at first and has its files in the walk's own folder. The menu does not offer that.
void WalkJob::useOwnRadio() {
    const auto control = com::ComPointer<_ChannelInformation>::from(program_.components().control);
    com::ComPointer<IRadioLink> link;
    com::checkCall(control->get_plibRadioComms(link.put()));
    if (!link) {
        throw com::ComFailure(E_NOINTERFACE, "The control has no radio link");
    }
    com::checkCall(link->put_StateFile(com::Bstr(std::wstring_view(radioFile_)).get()));
    com::checkCall(link->put_BackupFolder(com::Bstr(std::wstring_view(backups_)).get()));
    tableBytes_ = contentsOf(program_.path());
    sent_ = firstTransmitting();
}

void WalkJob::pasteFrequency(long hertz) {
    setClipboard(program_.window(), megahertz(hertz));
    goToTransmitting();
    press({VK_CONTROL, 'V'});
}

// To the frequency of the channel that is changed.
void WalkJob::goToTransmitting() {
    press({VK_CONTROL, VK_HOME});
    press({VK_HOME});
    for (int channel = 1; channel < sent_.channel; ++channel) {
        press({VK_DOWN});
    }
}

WalkStep WalkJob::pasteStep(const std::wstring& what, long (*from)(const Transmitting&)) {
    return {.text = what,
            .act = [this, from] { pasteFrequency(from(sent_)); },
            .done = [this, from] { return cell(sent_.channel, transmitColumn) == megahertz(from(sent_)); }};
}

WalkStep WalkJob::sendStep(const std::wstring& what, const std::wstring& picture) {
    return {.text = what,
            .act =
                [] {
                    press({VK_MENU, 'R'});
                    press({'S'});
                },
            .done = [] { return dialogTitled(overwriteQuestion); },
            .picture = picture,
            .dialog = true};
}

WalkStep WalkJob::saveStep(const std::wstring& what) {
    return {.text = what,
            .act = [] { press({VK_CONTROL, 'S'}); },
            .done = [this] { return idle() && !program_.modified(); }};
}

void WalkJob::addFault(std::vector<WalkStep>& steps, const std::wstring& plan, const std::wstring& what) {
    steps.push_back({.text = L"Alt+R, F asks how the simulated radio is to misbehave",
                     .act =
                         [] {
                             press({VK_MENU, 'R'});
                             press({'F'});
                         },
                     .done = [] { return dialogTitled(L"Fault of the Simulated Radio"); },
                     .dialog = true});
    steps.push_back(
        {.text = what,
         .act =
             [plan] {
                 typeOver(plan);
                 press({VK_RETURN});
             },
         .done = [this, plan] { return idle() && statusText() == L"Fault of the simulated radio: " + plan; },
         .dialog = true});
}

void WalkJob::addRefusedSend(std::vector<WalkStep>& steps) {
    steps.push_back(pasteStep(L"a frequency that no synthesizer step divides is pasted", impossibleFrequency));
    steps.push_back(sendStep(L"Alt+R, S wants to send, for which the control asks", L"18-overwrite"));
    steps.push_back({.text = L"Enter lets the table be checked, and the checks name the channel",
                     .act = [] { press({VK_RETURN}); },
                     .done =
                         [this] {
                             return dialogSays(L"Reference frequency divide error or main frequency divide error in "
                                               L"channels " +
                                               std::to_wstring(sent_.channel) + L".");
                         },
                     .picture = L"19-findings",
                     .dialog = true});
    steps.push_back({.text = L"nothing was sent, and the commands are back",
                     .act = [] { press({VK_RETURN}); },
                     .done = [this] { return idle() && offered(desk::Command::RadioSend); },
                     .check =
                         [this] {
                             Lines wrong = checkCommands();
                             append(wrong,
                                    expectEqual(L"the radio holds a table", L"no", yesOrNo(isThere(radioFile_))));
                             return wrong;
                         },
                     .dialog = true});
    steps.push_back({.text = L"Ctrl+Z takes the frequency back",
                     .act = [] { press({VK_CONTROL, 'Z'}); },
                     .done = [this] { return frequencyBack(); },
                     .check = [this] { return checkUnchanged(); }});
}

void WalkJob::addSlowSend(std::vector<WalkStep>& steps) {
    addFault(steps, slowLine, L"a slow line is typed in");
    steps.push_back(sendStep(L"Alt+R, S sends the table", L""));
    steps.push_back({.text = L"after Enter the checks pass, and the progress can be seen",
                     .act = [] { press({VK_RETURN}); },
                     .done = [this] { return shownPercent() >= wellUnderWay; },
                     .picture = L"20-sending",
                     .dialog = true});
    steps.push_back({.text = L"the radio holds the table, and the commands are back",
                     .done = [this] { return statusText().starts_with(sent); },
                     .check =
                         [this] {
                             Lines wrong = checkCommands();
                             append(wrong, checkUnchanged());
                             append(wrong, checkRadioFile(true));
                             return wrong;
                         }});
    addFault(steps, noFault, L"the line is good again");
}

void WalkJob::addLoad(std::vector<WalkStep>& steps) {
    steps.push_back(pasteStep(L"a channel gets another frequency", otherFrequency));
    steps.push_back({.text = L"Alt+R, L wants to load, and asks whether to save that",
                     .act =
                         [] {
                             press({VK_MENU, 'R'});
                             press({'L'});
                         },
                     .done = [] { return dialogTitled(L"Telvar"); },
                     .dialog = true});
    steps.push_back({.text = L"Alt+N does not, and the table is loaded from the radio",
                     .act = [] { press({VK_MENU, 'N'}); },
                     .done = [this] { return idle() && statusText() == loaded && frequencyBack(); },
                     .check = [this] { return checkCommands(); },
                     .picture = L"21-loaded",
                     .dialog = true});
    steps.push_back({.text = L"what came back is compared with what was sent",
                     .check = [this] { return checkLoaded(); },
                     .result =
                         [this] {
                             return std::to_wstring(expected_.values.size()) + L" channels, " +
                                    std::to_wstring(expected_.keys.size()) + L" keys equal";
                         }});
    WalkStep save = saveStep(L"Ctrl+S saves it, byte by byte as it was");
    save.check = [this] {
        return expectEqual(L"the saved file is the same", L"yes", yesOrNo(contentsOf(program_.path()) == tableBytes_));
    };
    steps.push_back(std::move(save));
}

void WalkJob::addCutSend(std::vector<WalkStep>& steps) {
    WalkStep paste = pasteStep(L"a channel gets another frequency again", otherFrequency);
    paste.check = [this] {
        expected_ = copyTable(program_, *grid());
        return Lines();
    };
    steps.push_back(std::move(paste));
    addFault(steps, lostPower, L"a radio that loses its power in the middle is typed in");
    steps.push_back(sendStep(L"Alt+R, S sends the table", L""));
    steps.push_back({.text = L"the send ends in one sentence",
                     .act = [] { press({VK_RETURN}); },
                     .done = [] { return dialogSays(L"; the radio keeps its former table."); },
                     .picture = L"22-cut",
                     .result = [] { return Walk::textOf(Walk::dialog()); },
                     .dialog = true});
    steps.push_back({.text = L"both tables are as they were, and the commands are back",
                     .act = [] { press({VK_RETURN}); },
                     .done = [this] { return idle(); },
                     .check =
                         [this] {
                             Lines wrong = checkCommands();
                             append(wrong, checkUnchanged());
                             append(wrong, checkRadioFile(false));
                             return wrong;
                         },
                     .dialog = true});
    addFault(steps, noFault, L"the radio keeps its power from now on");
    steps.push_back(sendStep(L"Alt+R, S sends the table again", L""));
    steps.push_back({.text = L"and now the radio holds it",
                     .act = [] { press({VK_RETURN}); },
                     .done = [this] { return idle() && statusText().starts_with(sent); },
                     .check =
                         [this] {
                             Lines wrong = checkCommands();
                             append(wrong, checkUnchanged());
                             append(wrong, checkRadioFile(true));
                             return wrong;
                         },
                     .picture = L"23-sent",
                     .dialog = true});
    steps.push_back(saveStep(L"Ctrl+S saves the table"));
}

void WalkJob::addRadio(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"the simulated radio is empty and has its files in the walk's folder",
                     .act = [this] { useOwnRadio(); }});
    addRefusedSend(steps);
    addSlowSend(steps);
    addLoad(steps);
    addCutSend(steps);
}

}  // namespace telvar::walk
