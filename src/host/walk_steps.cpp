#include "host/walk_steps.h"

#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>

#include "com/kit/failure.h"
#include "com/kit/pointer.h"
#include "com/kit/variant.h"
#include "host/keyboard.h"
#include "host/table_copy.h"

namespace telvar::host {

namespace {

constexpr int transmitColumn = 1;
// What the walk pastes and takes back. The next column is the transmit mode, which undo leaves as it is.
constexpr int lastPastedColumn = 7;
// What the walk adds to a transmit frequency, in hertz.
constexpr long change = 12'500;
// The file name's box in the system's dialogs for files: a combo box or a plain text box.
constexpr int nameCombo = 0x047C;
constexpr int nameBox = 0x0480;

// What the steps share: the program and what they have seen so far.
class Job {
public:
    Job(MainWindow& window, std::wstring sample, const std::wstring& folder)
        : window_(window), sample_(std::move(sample)), copy_(folder + L"\\walk-copy.telvar") {
        DeleteFileW(copy_.c_str());
    }

    [[nodiscard]] std::vector<WalkStep> steps();

private:
    using Lines = std::vector<std::wstring>;

    WalkStep startStep();
    void addOpening(std::vector<WalkStep>& steps);
    void addScrolling(std::vector<WalkStep>& steps);
    void addChange(std::vector<WalkStep>& steps);
    void addEditing(std::vector<WalkStep>& steps);
    void addSaving(std::vector<WalkStep>& steps);
    void addReopening(std::vector<WalkStep>& steps);
    WalkStep endStep();

    [[nodiscard]] com::ComPointer<IChannelGrid> grid() const;
    [[nodiscard]] std::wstring cell(int row, int column) const;
    [[nodiscard]] long gridNumber(HRESULT (STDMETHODCALLTYPE IChannelGrid::*property)(long*)) const;
    [[nodiscard]] long currentRow() const { return gridNumber(&IChannelGrid::get_CurrentRow); }
    [[nodiscard]] long topRow() const { return gridNumber(&IChannelGrid::get_TopRow); }
    [[nodiscard]] std::wstring title() const;
    [[nodiscard]] bool opened(const std::wstring& path) const;
    [[nodiscard]] bool idle() const { return Walk::dialog() == nullptr; }

    Lines checkOpened();
    Lines checkCells();
    Lines checkPasted();
    void changeFrequency();
    static void enterFileName(const std::wstring& path);

    MainWindow& window_;
    std::wstring sample_;
    std::wstring copy_;
    std::string sampleBytes_;
    TableCopy expected_;
    int changedChannel_ = 0;
    std::wstring changedText_;
};

void setClipboard(HWND owner, std::wstring_view text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes);
    if (memory == nullptr || !OpenClipboard(owner)) {
        GlobalFree(memory);
        throw com::ComFailure(E_FAIL, "The clipboard cannot be used");
    }
    std::memcpy(GlobalLock(memory), text.data(), text.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    EmptyClipboard();
    // The clipboard owns the memory from now on.
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

std::string contentsOf(const std::wstring& path) {
    std::ifstream file(path.c_str(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

long numberOf(com::Variant value) {
    value.convertTo(VT_I4);
    return V_I4(&value.get());
}

std::vector<std::wstring> expectEqual(const std::wstring& what, const std::wstring& expected,
                                      const std::wstring& found) {
    if (expected == found) {
        return {};
    }
    return {what + L": expected \"" + expected + L"\", found \"" + found + L"\""};
}

com::ComPointer<IChannelGrid> Job::grid() const {
    auto grid = com::ComPointer<IChannelGrid>::from(window_.channels());
    if (!grid) {
        throw com::ComFailure(E_NOINTERFACE, "The control does not show its grid to its host");
    }
    return grid;
}

std::wstring Job::cell(int row, int column) const {
    com::Bstr text;
    com::checkCall(grid()->get_Cell(row, column, text.put()));
    return std::wstring(text.view());
}

long Job::gridNumber(HRESULT (STDMETHODCALLTYPE IChannelGrid::*property)(long*)) const {
    long number = 0;
    com::checkCall((grid().get()->*property)(&number));
    return number;
}

std::wstring Job::title() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_.window())) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window_.window(), text.data(), static_cast<int>(text.size()))));
    return text;
}

bool Job::opened(const std::wstring& path) const {
    return idle() && CompareStringOrdinal(window_.document().path().c_str(), -1, path.c_str(), -1, TRUE) == CSTR_EQUAL;
}

void Job::enterFileName(const std::wstring& path) {
    const HWND dialog = Walk::dialog();
    const int box = GetDlgItem(dialog, nameCombo) != nullptr ? nameCombo : nameBox;
    SetDlgItemTextW(dialog, box, path.c_str());
    SetFocus(GetDlgItem(dialog, box));
    press({VK_RETURN});
}

// The caption, and every frequency cell as the store's own value would be written.
Job::Lines Job::checkOpened() {
    com::Bstr title;
    com::checkCall(window_.document().store()->get_DatabaseTitle(title.put()));
    Lines wrong =
        expectEqual(L"the window's title", L"Channel Information - " + std::wstring(title.view()), Job::title());
    const Lines cells = checkCells();
    wrong.insert(wrong.end(), cells.begin(), cells.end());
    expected_ = copyTable(window_.document(), *grid());
    return wrong;
}

Job::Lines Job::checkCells() {
    Lines wrong;
    for (int channel = 1; channel <= TableCopy::channels; ++channel) {
        com::Variant frequency;
        com::checkCall(window_.document().record(channel)->get_TxFreq(frequency.put()));
        const long hertz = numberOf(std::move(frequency));
        const Lines lines = expectEqual(L"transmit frequency of channel " + std::to_wstring(channel),
                                        hertz == 0 ? L"X" : megahertz(hertz), cell(channel, transmitColumn));
        wrong.insert(wrong.end(), lines.begin(), lines.end());
    }
    return wrong;
}

// The last channel now shows what the first one does.
Job::Lines Job::checkPasted() {
    Lines wrong;
    for (int column = transmitColumn; column <= lastPastedColumn; ++column) {
        const Lines lines = expectEqual(L"pasted column " + std::to_wstring(column), cell(1, column),
                                        cell(TableCopy::channels, column));
        wrong.insert(wrong.end(), lines.begin(), lines.end());
    }
    return wrong;
}

// Of the first channel that has one.
void Job::changeFrequency() {
    const Document& document = window_.document();
    for (int channel = 1; channel <= TableCopy::channels; ++channel) {
        const auto record = document.record(channel);
        com::Variant frequency;
        com::checkCall(record->get_TxFreq(frequency.put()));
        const long hertz = numberOf(std::move(frequency));
        if (hertz != 0) {
            com::checkCall(record->put_TxFreq(com::Variant(std::int32_t{hertz + change}).get()));
            changedChannel_ = channel;
            changedText_ = megahertz(hertz + change);
            expected_.value(channel, L"TxFreq") = std::to_wstring(hertz + change);
            expected_.cell(channel, transmitColumn) = changedText_;
            return;
        }
    }
    throw com::ComFailure(E_FAIL, "The table has no channel with a transmit frequency");
}

WalkStep Job::startStep() {
    return {.text = L"the program starts with an empty table",
            .act = [this] { SetForegroundWindow(window_.window()); },
            .done = [this] { return GetForegroundWindow() == window_.window() && GetFocus() != window_.window(); },
            .check =
                [this] {
                    Lines wrong = expectEqual(L"the file of the new table", L"", window_.document().path());
                    const Lines cells = checkCells();
                    wrong.insert(wrong.end(), cells.begin(), cells.end());
                    return wrong;
                },
            .picture = L"01-new"};
}

void Job::addOpening(std::vector<WalkStep>& steps) {
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

void Job::addScrolling(std::vector<WalkStep>& steps) {
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

void Job::addChange(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"a transmit frequency is changed in the store and F5 shows it",
                     .act =
                         [this] {
                             changeFrequency();
                             press({VK_F5});
                         },
                     .done = [this] { return cell(changedChannel_, transmitColumn) == changedText_; },
                     .check = [this] { return differences(expected_, copyTable(window_.document(), *grid())); }});
    steps.push_back({.text = L"the title marks the table as modified",
                     .done = [this] { return window_.document().modified() && title().starts_with(L'*'); },
                     .picture = L"06-changed"});
    steps.push_back({.text = L"Ctrl+N asks whether to save the changes",
                     .act = [] { press({VK_CONTROL, 'N'}); },
                     .done = [] { return Walk::dialog() != nullptr; },
                     .picture = L"07-question",
                     .dialog = true});
    steps.push_back({.text = L"Esc keeps the table as it is",
                     .act = [] { press({VK_ESCAPE}); },
                     .done = [this] { return idle(); },
                     .check = [this] { return differences(expected_, copyTable(window_.document(), *grid())); },
                     .dialog = true});
}

void Job::addEditing(std::vector<WalkStep>& steps) {
    const auto unchanged = [this] { return differences(expected_, copyTable(window_.document(), *grid())); };
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
                             setClipboard(window_.window(), L"nonsense");
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

void Job::addSaving(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"Ctrl+Shift+S asks where to save",
                     .act = [] { press({VK_CONTROL, VK_SHIFT, 'S'}); },
                     .done = [] { return Walk::dialog() != nullptr; },
                     .dialog = true});
    steps.push_back({.text = L"the table is saved as " + copy_,
                     .act = [this] { enterFileName(copy_); },
                     .done = [this] { return opened(copy_) && !title().starts_with(L'*'); },
                     .check =
                         [this] {
                             Lines wrong = expectEqual(L"modified after saving", L"no",
                                                       window_.document().modified() ? L"yes" : L"no");
                             if (contentsOf(sample_) != sampleBytes_) {
                                 wrong.emplace_back(L"the file that was opened first has changed");
                             }
                             return wrong;
                         },
                     .picture = L"10-saved",
                     .dialog = true});
}

void Job::addReopening(std::vector<WalkStep>& steps) {
    steps.push_back({.text = L"Ctrl+N empties the table",
                     .act = [] { press({VK_CONTROL, 'N'}); },
                     .done = [this] { return opened(L""); },
                     .check = [this] { return checkCells(); }});
    steps.push_back({.text = L"Alt+F shows the recent files",
                     .act = [] { press({VK_MENU, 'F'}); },
                     .done = [] { return Walk::menuShows(); },
                     .picture = L"11-recent"});
    steps.push_back({.text = L"the copy is reopened and holds what was saved",
                     .act = [] { press({'1'}); },
                     .done = [this] { return opened(copy_); },
                     .check = [this] { return differences(expected_, copyTable(window_.document(), *grid())); },
                     .picture = L"12-reopened"});
}

WalkStep Job::endStep() {
    return {.text = L"Alt+F4 ends the program",
            .act = [] { press({VK_MENU, VK_F4}); },
            .done = [this] { return window_.window() == nullptr; }};
}

std::vector<WalkStep> Job::steps() {
    std::vector<WalkStep> steps{startStep()};
    addOpening(steps);
    addScrolling(steps);
    addChange(steps);
    addEditing(steps);
    addSaving(steps);
    addReopening(steps);
    steps.push_back(endStep());
    return steps;
}

}  // namespace

std::vector<WalkStep> mainJob(MainWindow& window, const std::wstring& sample, const std::wstring& folder) {
    const auto job = std::make_shared<Job>(window, sample, folder);
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

}  // namespace telvar::host
