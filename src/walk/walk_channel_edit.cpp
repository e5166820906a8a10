// The steps with the control's edit form: a channel is opened by the keyboard, its level of access is raised, a change
// applied, a level moved while the radio listens, and everything put back.
#include <windows.h>

#include <array>
#include <sstream>

#include "VexloRadioLink.h"
#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "walk/keyboard.h"
#include "walk/walk_input.h"
#include "walk/walk_job.h"
#include "win/text.h"

namespace telvar::walk {

namespace {

constexpr wchar_t editForm[] = L"Channel Edit";
constexpr int levelSteps = 3;
constexpr int transmitStepColumn = 17;
constexpr int transmitModuloColumn = 19;
constexpr int receiveStepColumn = 20;
constexpr int receiveModuloColumn = 22;

long otherFrequency(const Transmitting& channel) { return channel.hertz + channel.step; }

BOOL CALLBACK findEditForm(HWND window, LPARAM found) noexcept {
    std::array<wchar_t, 32> title{};
    GetWindowTextW(window, title.data(), static_cast<int>(title.size()));
    if (title.data() == std::wstring_view(editForm) && IsWindowVisible(window) != FALSE) {
        *reinterpret_cast<HWND*>(found) = window;
    }
    return TRUE;
}

HWND shownEditForm() noexcept {
    HWND form = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), findEditForm, reinterpret_cast<LPARAM>(&form));
    return form;
}

bool showsSliders() noexcept {
    const HWND slider = FindWindowExW(shownEditForm(), nullptr, L"msctls_trackbar32", nullptr);
    return slider != nullptr && IsWindowVisible(slider) != FALSE;
}

// The requests to set levels, as the trace of the line has them.
std::vector<std::string> levelRequests(const std::wstring& trace) {
    std::istringstream lines(contentsOf(trace));
    std::vector<std::string> requests;
    for (std::string line; std::getline(lines, line);) {
        if (line.contains("> set levels")) {
            requests.push_back(line);
        }
    }
    return requests;
}

}  // namespace

void WalkJob::traceRadio() {
    const auto control = com::ComPointer<_ChannelInformation>::from(program_.components().control);
    com::ComPointer<IRadioLink> link;
    com::checkCall(control->get_plibRadioComms(link.put()));
    if (!link) {
        throw com::ComFailure(E_NOINTERFACE, "The control has no radio link");
    }
    com::checkCall(link->put_TraceFile(com::Bstr(std::wstring_view(trace_)).get()));
    expected_ = copyTable(program_, *grid());
    sent_ = firstTransmitting();
}

void WalkJob::addChannelEdit(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"what goes over the line is traced from now on", .act = [this] { traceRadio(); }});
    addEditFormOpening(steps);
    addApply(steps);
    addLiveLevel(steps);
    addEditFormOk(steps);
}

void WalkJob::addEditFormOpening(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"F2 opens a channel in the edit form",
                     .act =
                         [this] {
                             goToTransmitting();
                             press({VK_F2});
                         },
                     .done = [] { return shownEditForm() != nullptr && GetForegroundWindow() == shownEditForm(); },
                     .picture = L"24-edit-form"});
    steps.push_back({.text = L"Alt+C asks for the level that its lower half needs",
                     .act = [] { press({VK_MENU, 'C'}); },
                     .done = [] { return dialogTitled(L"Log In"); },
                     .dialog = true});
    steps.push_back({.text = L"the password is typed, and the form shows everything",
                     .act =
                         [] {
                             type(L"walk");
                             press({VK_RETURN});
                         },
                     .done =
                         [this] {
                             return idle() && program_.level() == L"Everything" && showsSliders() &&
                                    GetForegroundWindow() == shownEditForm();
                         },
                     .picture = L"25-everything",
                     .dialog = true});
}

void WalkJob::addApply(std::vector<WalkStep>& steps) {
    steps.push_back(
        {.text = L"Alt+T, another transmit frequency, Tab: it is written out, and step and modulo are proposed",
         .act =
             [this] {
                 press({VK_MENU, 'T'});
                 typeOver(megahertz(otherFrequency(sent_)));
                 press({VK_TAB});
             },
         .done = [this] { return focusedText() == cell(sent_.channel, receiveColumn); },
         .check =
             [this] {
                 return expectEqual(L"the cell before Apply", megahertz(sent_.hertz),
                                    cell(sent_.channel, transmitColumn));
             },
         .picture = L"26-typed"});
    steps.push_back({.text = L"Alt+A applies it to the table",
                     .act = [] { press({VK_MENU, 'A'}); },
                     .done = [this] { return cell(sent_.channel, transmitColumn) == megahertz(otherFrequency(sent_)); },
                     .check = [this] { return checkCells(); },
                     .picture = L"27-applied"});
    steps.push_back({.text = L"and the table counts as modified",
                     .done = [this] { return program_.modified() && title().starts_with(L'*'); }});
}

void WalkJob::addLiveLevel(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"Alt+U sends the levels to the radio from now on",
                     .act = [] { press({VK_MENU, 'U'}); },
                     .done = [this] { return !levelRequests(trace_).empty(); },
                     .result = [this] { return win::wide(levelRequests(trace_).back()); }});
    steps.push_back(moveStep(L"Alt+E and the arrow keys move the transmit power up, and the radio hears the last level",
                             VK_UP, L"28-live"));
    steps.push_back(moveStep(L"and down again", VK_DOWN, L""));
}

WalkStep WalkJob::moveStep(const std::wstring& what, WORD key, const std::wstring& picture) {
    return {.text = what,
            .act =
                [this, key] {
                    levelBefore_ = levelRequests(trace_).back();
                    press({VK_MENU, 'E'});
                    for (int step = 0; step < levelSteps; ++step) {
                        press({key});
                    }
                },
            .done = [this, key] { return movedLevel(key == VK_UP ? levelSteps : -levelSteps); },
            .picture = picture,
            .result = [this] { return win::wide(levelRequests(trace_).back()); }};
}

// The last request's first byte against the one before the move.
bool WalkJob::movedLevel(int by) const {
    const auto power = [](const std::string& request) {
        return std::stoi(request.substr(request.rfind(' ') + 1, 2), nullptr, 16);
    };
    return power(levelRequests(trace_).back()) == power(levelBefore_) + by;
}

// What the synthesizers are set to is the form's own choice.
WalkJob::Lines WalkJob::checkEdited() {
    TableCopy found = copyTable(program_, *grid());
    for (const wchar_t* const key : {L"SynthStep", L"Modulo", L"RxSynthStep", L"RxModulo"}) {
        expected_.value(sent_.channel, key) = found.value(sent_.channel, key);
    }
    for (const int column : {transmitStepColumn, transmitModuloColumn, receiveStepColumn, receiveModuloColumn}) {
        expected_.cell(sent_.channel, column) = found.cell(sent_.channel, column);
    }
    return differences(expected_, found);
}

void WalkJob::addEditFormOk(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"Alt+T, the frequency from before, Enter: on to OK",
                     .act =
                         [this] {
                             press({VK_MENU, 'T'});
                             typeOver(megahertz(sent_.hertz));
                             press({VK_RETURN});
                         },
                     .done = [] { return focusedText().ends_with(L"OK"); }});
    steps.push_back(
        {.text = L"Enter stores it and closes the form; the table is as it was, but for the proposed settings",
         .act = [] { press({VK_RETURN}); },
         .done = [this] { return shownEditForm() == nullptr && frequencyBack(); },
         .check = [this] { return checkEdited(); },
         .picture = L"29-closed",
         .result =
             [this] {
                 return L"steps of " + expected_.value(sent_.channel, L"SynthStep") + L" and " +
                        expected_.value(sent_.channel, L"RxSynthStep") + L" Hz";
             }});
    steps.push_back(saveStep(L"Ctrl+S saves the table"));
}

}  // namespace telvar::walk
