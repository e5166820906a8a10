#include "walk/walk_steps.h"

#include <memory>
#include <utility>

#include "walk/keyboard.h"
#include "walk/walk_job.h"

namespace telvar::walk {

WalkStep WalkJob::startStep() {
    return {.text = L"the program starts with an empty table",
            .act = [this] { SetForegroundWindow(program_.window()); },
            .done = [this] { return GetForegroundWindow() == program_.window() && GetFocus() != program_.window(); },
            .check =
                [this] {
                    Lines wrong = expectEqual(L"the file of the new table", L"", program_.path());
                    const Lines cells = checkCells();
                    wrong.insert(wrong.end(), cells.begin(), cells.end());
                    return wrong;
                },
            .picture = L"01-new"};
}

void WalkJob::addOpening(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"Ctrl+O asks for a file",
                     .act =
                         [this] {
                             sampleBytes_ = contentsOf(sample_);
                             press({VK_CONTROL, 'O'});
                         },
                     .done = [] { return Walk::dialog() != nullptr; },
                     .picture = L"02-open",
                     .dialog = true});
    steps.push_back({.text = L"the table is opened and every channel is shown: " + sample_,
                     .act = [this] { enterFileName(sample_); },
                     .done = [this] { return opened(sample_); },
                     .check = [this] { return checkOpened(); },
                     .picture = L"03-table",
                     .dialog = true});
}

void WalkJob::addScrolling(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"Page Down scrolls",
                     .act =
                         [] {
                             press({VK_NEXT});
                             press({VK_NEXT});
                             press({VK_NEXT});
                         },
                     .done = [this] { return currentRow() > 1 && topRow() > 1; },
                     .picture = L"04-scrolled"});
    steps.push_back({.text = L"Ctrl+End goes to the last channel",
                     .act = [] { press({VK_CONTROL, VK_END}); },
                     .done = [this] { return currentRow() == TableCopy::channels; },
                     .picture = L"05-end"});
    steps.push_back({.text = L"Ctrl+Home goes back to the first",
                     .act = [] { press({VK_CONTROL, VK_HOME}); },
                     .done = [this] { return currentRow() == 1 && topRow() == 1; }});
}

void WalkJob::addChange(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"a transmit frequency is changed in the store and F5 shows it",
                     .act =
                         [this] {
                             changeFrequency();
                             press({VK_F5});
                         },
                     .done = [this] { return cell(changedChannel_, transmitColumn) == changedText_; },
                     .check = [this] { return checkUnchanged(); }});
    steps.push_back({.text = L"the title marks the table as modified",
                     .done = [this] { return program_.modified() && title().starts_with(L'*'); },
                     .picture = L"06-changed"});
    steps.push_back({.text = L"Ctrl+N asks whether to save the changes",
                     .act = [] { press({VK_CONTROL, 'N'}); },
                     .done = [] { return Walk::dialog() != nullptr; },
                     .picture = L"07-question",
                     .dialog = true});
    steps.push_back({.text = L"Esc keeps the table as it is",
                     .act = [] { press({VK_ESCAPE}); },
                     .done = [this] { return idle(); },
                     .check = [this] { return checkUnchanged(); },
                     .dialog = true});
}

void WalkJob::addSaving(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"Ctrl+Shift+S asks where to save",
                     .act = [] { press({VK_CONTROL, VK_SHIFT, 'S'}); },
                     .done = [] { return Walk::dialog() != nullptr; },
                     .dialog = true});
    steps.push_back({.text = L"the table is saved as " + copy_,
                     .act = [this] { enterFileName(copy_); },
                     .done = [this] { return opened(copy_) && !title().starts_with(L'*'); },
                     .check =
                         [this] {
                             Lines wrong =
                                 expectEqual(L"modified after saving", L"no", program_.modified() ? L"yes" : L"no");
                             if (contentsOf(sample_) != sampleBytes_) {
                                 wrong.emplace_back(L"the file that was opened first has changed");
                             }
                             return wrong;
                         },
                     .picture = L"15-saved",
                     .dialog = true});
}

void WalkJob::addReopening(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"Ctrl+N empties the table",
                     .act = [] { press({VK_CONTROL, 'N'}); },
                     .done = [this] { return opened(L""); },
                     .check = [this] { return checkCells(); }});
    steps.push_back({.text = L"Alt+F shows the recent files",
                     .act = [] { press({VK_MENU, 'F'}); },
                     .done = [] { return Walk::menuShows(); },
                     .picture = L"16-recent"});
    steps.push_back({.text = L"the copy is reopened and holds what was saved",
                     .act = [] { press({'1'}); },
                     .done = [this] { return opened(copy_); },
                     .check = [this] { return checkUnchanged(); },
                     .picture = L"17-reopened"});
}

WalkStep WalkJob::endStep() {
    return {.text = L"Alt+F4 ends the program",
            .act = [] { press({VK_MENU, VK_F4}); },
            .done = [this] { return program_.window() == nullptr; }};
}

std::vector<WalkStep> WalkJob::steps() {
    std::vector<WalkStep> steps{startStep()};
    addOpening(steps);
    addScrolling(steps);
    addChange(steps);
    addEditing(steps);
    addPasswords(steps);
    addLogin(steps);
    addFill(steps);
    addSaving(steps);
    addReopening(steps);
    addRadio(steps);
    addChannelEdit(steps);
    steps.push_back(endStep());
    return steps;
}

std::vector<WalkStep> mainJob(WalkedProgram& program, const std::wstring& sample, const std::wstring& folder) {
    const auto job = std::make_shared<WalkJob>(program, sample, folder);
    std::vector<WalkStep> steps = job->steps();
    // The steps refer to the job, so each keeps it.
    for (WalkStep& step : steps) {
        step.act = [job, act = std::move(step.act)] {
            if (act) {
                act();
            }
        };
    }
    return steps;
}

}  // namespace telvar::walk
