// The world of one control: a desktop, a table in memory, a radio link that records, a message log of its own, and a
// list of everything that the control raised.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "control/channel_information.h"
#include "support/table_builder.h"
#include "support/temporary_folder.h"
#include "support/test_desktop.h"
#include "ui/grid_input.h"
#include "ui/grid_layout.h"

namespace telvar::tests {

using control::ChannelInformation;
using model::ChannelKey;
using model::StoreMember;
using Log = std::vector<std::string>;

class RecordingLink : public model::RadioLink {
public:
    void SendChannelTable() override { calls.emplace_back("SendChannelTable"); }
    void LoadChannelTable(std::string& text, bool& /*flag*/) override { calls.push_back("LoadChannelTable " + text); }
    void AbortTransfer() override { calls.emplace_back("AbortTransfer"); }
    void SendPotValues(std::string& text) override { calls.push_back("SendPotValues " + text); }
    void SelectChannel(std::string& channel) override { calls.push_back("SelectChannel " + channel); }
    Log calls;
};

class ControlWorld : public testing::Test {
protected:
    ControlWorld() {
        listen();
        control->setCentralDataStore(store);
        control->setRadioComms(link);
    }

    void listen() {
        const auto note = [this](const char* name) { return [this, name] { happened(name); }; };
        control->RestoreButtons.connect(note("RestoreButtons"));
        control->DisableCommands.connect(note("DisableCommands"));
        control->EnableCommands.connect([this](std::string& commands) { happened("EnableCommands " + commands); });
        control->PauseDiagnostics.connect(note("PauseDiagnostics"));
        control->OpenLoginWithChannelFill.connect(note("OpenLoginWithChannelFill"));
        control->OpenLoginWithChannelEdit.connect(note("OpenLoginWithChannelEdit"));
        control->DefaultOverWindow.connect(note("DefaultOverWindow"));
        control->HourglassOverWindow.connect(note("HourglassOverWindow"));
        control->NewWindowCaption.connect([this](std::string& caption) { happened("NewWindowCaption " + caption); });
        control->PrintChannelData.connect(note("PrintChannelData"));
        control->EditWindowClosed.connect(note("EditWindowClosed"));
        control->IncrementProgressBar.connect(note("IncrementProgressBar"));
    }
    void happened(const std::string& what) { events.push_back(what); }

    [[nodiscard]] ui::Grid& grid() const { return control->fgdDatabase; }
    // On the current cell, with what is selected now.
    void doubleClickCurrent() {
        grid().DblClick({.at = {grid().row(), grid().column()}, .selected = grid().selection()});
    }
    // The user at the grid: keys and the left button as its window hands them in, each with what the message loop runs
    // afterwards. The view has room for every channel.
    void press(int code, unsigned shift = ui::shift::none) {
        ui::GridInput(grid()).keyDown({.code = code, .shift = shift}, gridLayout());
        desktop.doEvents();
    }
    void click(ui::Cell cell) {
        ui::GridInput mouse(grid());
        click(mouse, cell);
    }
    void doubleClickOn(ui::Cell cell) {
        ui::GridInput mouse(grid());
        click(mouse, cell);
        mouse.doubleClick(pressAt(cell), gridLayout());
        mouse.mouseUp(pressAt(cell), gridLayout());
        desktop.doEvents();
    }
    [[nodiscard]] ui::GridLayout gridLayout() const { return {grid(), {4000, 5000}, {}}; }

    [[nodiscard]] Boxes boxes() { return desktop.takeBoxes(); }
    [[nodiscard]] ui::CellRange selection() const { return grid().selection(); }
    // Columns 0 to 26 of one row.
    [[nodiscard]] Log row(int number) const {
        Log cells;
        for (int column = 0; column < grid().columns(); ++column) {
            cells.push_back(grid().text(number, column));
        }
        return cells;
    }
    [[nodiscard]] Log gridTexts() const {
        Log all;
        for (int number = 0; number < grid().rows(); ++number) {
            const auto cells = row(number);
            all.insert(all.end(), cells.begin(), cells.end());
        }
        return all;
    }
    // The control's store is the table behind another one, which is answered.
    template <class Decorator>
    std::shared_ptr<Decorator> decorate() {
        auto decorator = std::make_shared<Decorator>(*store);
        control->setCentralDataStore(decorator);
        return decorator;
    }
    [[nodiscard]] std::int16_t selectedChannel() { return base::toInt16(store->get(StoreMember::SelectedChannel)); }

private:
    [[nodiscard]] ui::MouseEvent pressAt(ui::Cell cell) const {
        const ui::Rect at = gridLayout().cellRect(cell);
        return {.button = ui::MouseButton::Left, .shift = ui::shift::none, .at = {at.left + 1, at.top + 1}};
    }
    void click(ui::GridInput& mouse, ui::Cell cell) {
        mouse.mouseDown(pressAt(cell), gridLayout());
        mouse.mouseUp(pressAt(cell), gridLayout());
        desktop.doEvents();
    }

protected:
    TemporaryFolder folder;
    TestDesktop desktop;
    std::shared_ptr<model::MemoryDataStore> store = std::make_shared<model::MemoryDataStore>();
    std::shared_ptr<RecordingLink> link = std::make_shared<RecordingLink>();
    std::string logPath = folder / "msglog.txt";
    std::unique_ptr<ChannelInformation> control = std::make_unique<ChannelInformation>(
        control::Surroundings{.desktop = desktop, .makeTable = nullptr, .logPath = logPath});
    Log events;
};

}  // namespace telvar::tests

namespace telvar::ui {

inline void PrintTo(const CellRange& range, std::ostream* stream) {
    *stream << range.firstRow << ',' << range.firstColumn << " to " << range.lastRow << ',' << range.lastColumn;
}
inline void PrintTo(const Point& point, std::ostream* stream) { *stream << point.x << ',' << point.y; }
inline void PrintTo(const Rect& rect, std::ostream* stream) {
    *stream << rect.left << ',' << rect.top << " to " << rect.right << ',' << rect.bottom;
}

}  // namespace telvar::ui
