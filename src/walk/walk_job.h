// What the steps of the main job share: the program, what they have seen of it so far, and how they look at it. The
// steps themselves are in walk_steps.cpp, those that edit the table in walk_editing.cpp, those with the radio in
// walk_radio.cpp, those with the edit form in walk_channel_edit.cpp.
#pragma once

#include <string>
#include <vector>

#include "Tesslin.h"
#include "com/kit/pointer.h"
#include "walk/table_reading.h"
#include "walk/walk.h"

namespace telvar::walk {

// The frequency that the steps look at and change.
inline constexpr int transmitColumn = 1;
inline constexpr int receiveColumn = 2;

// A channel with a transmit frequency. One step more is a frequency that its synthesizer makes as well.
struct Transmitting {
    int channel = 0;
    long hertz = 0;
    long step = 0;
};

class WalkJob {
public:
    WalkJob(WalkedProgram& program, std::wstring sample, const std::wstring& folder)
        : program_(program),
          sample_(std::move(sample)),
          copy_(folder + L"\\walk-copy.telvar"),
          radioFile_(folder + L"\\walk-radio.telvar-radio"),
          backups_(folder + L"\\radio-backups"),
          trace_(folder + L"\\walk-radio-trace.txt") {
        DeleteFileW(copy_.c_str());
        DeleteFileW(radioFile_.c_str());
        DeleteFileW(trace_.c_str());
    }

    [[nodiscard]] std::vector<WalkStep> steps();

private:
    using Lines = std::vector<std::wstring>;

    WalkStep startStep();
    void addOpening(std::vector<WalkStep>& steps);
    void addScrolling(std::vector<WalkStep>& steps);
    void addChange(std::vector<WalkStep>& steps);
    void addEditing(std::vector<WalkStep>& steps);
    void addPasswords(std::vector<WalkStep>& steps);
    void addLogin(std::vector<WalkStep>& steps);
    void addFill(std::vector<WalkStep>& steps);
    void addSaving(std::vector<WalkStep>& steps);
    void addReopening(std::vector<WalkStep>& steps);
    void addRadio(std::vector<WalkStep>& steps);
    void addRefusedSend(std::vector<WalkStep>& steps);
    void addSlowSend(std::vector<WalkStep>& steps);
    void addLoad(std::vector<WalkStep>& steps);
    void addCutSend(std::vector<WalkStep>& steps);
    void addChannelEdit(std::vector<WalkStep>& steps);
    void addEditFormOpening(std::vector<WalkStep>& steps);
    void addApply(std::vector<WalkStep>& steps);
    void addLiveLevel(std::vector<WalkStep>& steps);
    void addEditFormOk(std::vector<WalkStep>& steps);
    void addFault(std::vector<WalkStep>& steps, const std::wstring& plan, const std::wstring& what);
    WalkStep pasteStep(const std::wstring& what, long (*from)(const Transmitting&));
    WalkStep sendStep(const std::wstring& what, const std::wstring& picture);
    WalkStep moveStep(const std::wstring& what, WORD key, const std::wstring& picture);
    WalkStep saveStep(const std::wstring& what);
    WalkStep endStep();

    [[nodiscard]] com::ComPointer<IChannelGrid> grid() const;
    [[nodiscard]] std::wstring cell(int row, int column) const;
    [[nodiscard]] long gridNumber(HRESULT (STDMETHODCALLTYPE IChannelGrid::*property)(long*)) const;
    [[nodiscard]] long currentRow() const { return gridNumber(&IChannelGrid::get_CurrentRow); }
    [[nodiscard]] long topRow() const { return gridNumber(&IChannelGrid::get_TopRow); }
    [[nodiscard]] std::wstring title() const;
    [[nodiscard]] bool opened(const std::wstring& path) const;
    [[nodiscard]] bool idle() const { return Walk::dialog() == nullptr; }
    // The line at the window's foot.
    [[nodiscard]] std::wstring statusText() const;
    // Whether the program's menu has the command enabled.
    [[nodiscard]] bool offered(desk::Command command) const;
    // Of the exchange under way, as the line at the foot says; -1 where it says none.
    [[nodiscard]] int shownPercent() const;

    Lines checkOpened();
    Lines checkCells();
    Lines checkPasted();
    Lines checkFilled();
    Lines checkUnchanged();
    Lines checkCommands();
    Lines checkRadioFile(bool changed);
    Lines checkLoaded();
    Lines checkEdited();
    [[nodiscard]] Transmitting firstTransmitting() const;
    void changeFrequency();
    void useOwnRadio();
    void traceRadio();
    void goToTransmitting();
    [[nodiscard]] bool movedLevel(int by) const;
    void pasteFrequency(long hertz);
    [[nodiscard]] bool frequencyBack() const { return cell(sent_.channel, transmitColumn) == megahertz(sent_.hertz); }
    static void enterFileName(const std::wstring& path);

    WalkedProgram& program_;
    std::wstring sample_;
    std::wstring copy_;
    std::wstring radioFile_;  // what the simulated radio holds
    std::wstring backups_;
    std::wstring trace_;  // what goes over the line to the radio
    std::string sampleBytes_;
    std::string tableBytes_;   // of the table's file when the exchanges begin
    std::string radioBytes_;   // what the radio held last
    std::string levelBefore_;  // the request with the levels before they are moved
    Transmitting sent_;        // the channel that is changed between the exchanges, as it was before them
    TableCopy expected_;
    int changedChannel_ = 0;
    std::wstring changedText_;
};

[[nodiscard]] std::string contentsOf(const std::wstring& path);
// One sentence where the two differ.
[[nodiscard]] std::vector<std::wstring> expectEqual(const std::wstring& what, const std::wstring& expected,
                                                    const std::wstring& found);

}  // namespace telvar::walk
