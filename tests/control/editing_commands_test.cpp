// The grid's editing commands as the user and the host start them: pop-up menu, keys, command target; the locked
// table, the flags of a changed one, the selection afterwards, and hosts that do something behind every box.
#include "control_world.h"
#include "support/failing_store.h"
#include "support/recording_store.h"
#include "ui/grid_input.h"

namespace telvar::tests {
namespace {

using control::GridCommand;
using ui::CellRange;

constexpr double megahertz = 1e6;

const ui::MessageBox question{.text = "This will delete selected channel(s). Would you like to proceed?",
                              .buttons = ui::Buttons::YesNo};
const ui::MessageBox locked{
    .text = "Data is locked. Clear 'Lock Data' to make changes.", .title = "Bench 3", .icon = ui::Icon::Exclamation};
const ui::MessageBox refusedTone{
    .text = "Error during pasting data. Invalid DCS value (not found in the table) TX Subtone. Unable to continue."};

class EditingCommands : public ControlWorld {
protected:
    EditingCommands() {
        for (std::int16_t channel = 1; channel <= 6; ++channel) {
            fillDistinct(*store, channel);
        }
        store->put(StoreMember::MessageTitle, base::textValue("Bench 3"));
        control->Prepare();
        control->UpdateControlsFromMemory();
        before = tableText(*store);
        events.clear();
    }

    void popUp(std::int16_t code) { control->frmCE.PopUpMenuClick(code); }
    void select(ui::Cell current, ui::Cell end) { grid().select(current, end); }
    void paste(const std::string& text) {
        desktop.clipboard = text;
        control->run(GridCommand::Paste);
    }
    void remove() {
        desktop.answerWith(ui::Answer::Yes);
        control->run(GridCommand::Delete);
    }
    void keyDown(int code, unsigned shift = ui::shift::none) {
        ui::KeyEvent event{code, shift};
        grid().KeyDown(event);
    }
    void keyPress(int code) {
        ui::KeyPressEvent event{code};
        grid().KeyPress(event);
    }
    [[nodiscard]] std::string now() { return tableText(*store); }
    [[nodiscard]] double transmits(std::int16_t channel) {
        return base::toDouble(store->channel(channel).get(ChannelKey::TxFreq));
    }
    [[nodiscard]] bool marked() {
        return base::isTrue(store->get(StoreMember::DataModified)) &&
               base::isTrue(store->get(StoreMember::ChannelDataModified));
    }
    [[nodiscard]] bool markedAtAll() {
        return base::isTrue(store->get(StoreMember::DataModified)) ||
               base::isTrue(store->get(StoreMember::ChannelDataModified));
    }
    [[nodiscard]] bool enabled(GridCommand command) const { return control->commandEnabled(command); }

    std::string before;
};

// -- who starts them -------------------------------------------------------------------------------------------------

TEST_F(EditingCommands, TheMenuStartsEveryCommandByItsCode) {
    select({2, 1}, {2, 2});
    popUp(0);
    EXPECT_EQ(desktop.clipboard, grid().text(2, 1) + "\t" + grid().text(2, 2));
    desktop.clipboard = "145.5";
    popUp(1);
    EXPECT_EQ(transmits(2), 145.5 * megahertz);
    popUp(3);
    EXPECT_EQ(now(), before);
    popUp(4);
    EXPECT_EQ(transmits(2), 145.5 * megahertz);
    desktop.answerWith(ui::Answer::Yes);
    popUp(2);
    EXPECT_EQ(transmits(2), 0.0);
    EXPECT_EQ(boxes(), (Boxes{question}));
    EXPECT_EQ(events, Log{});
}

TEST_F(EditingCommands, TheHostStartsThemToo) {
    select({2, 1}, {3, 1});
    control->run(GridCommand::Copy);
    EXPECT_EQ(desktop.clipboard, grid().text(2, 1) + "\r" + grid().text(3, 1));
    paste("145.5");
    EXPECT_EQ(transmits(3), 145.5 * megahertz);
    control->run(GridCommand::Undo);
    EXPECT_EQ(now(), before);
    control->run(GridCommand::Redo);
    EXPECT_EQ(transmits(3), 145.5 * megahertz);
    remove();
    EXPECT_EQ(transmits(3), 0.0);
}

TEST_F(EditingCommands, AreEnabledAsTheyAreAvailable) {
    EXPECT_TRUE(enabled(GridCommand::Copy));
    EXPECT_TRUE(enabled(GridCommand::Paste));
    EXPECT_TRUE(enabled(GridCommand::Delete));
    EXPECT_FALSE(enabled(GridCommand::Undo));
    EXPECT_FALSE(enabled(GridCommand::Redo));
    paste("145.5");
    EXPECT_TRUE(enabled(GridCommand::Undo));
    EXPECT_FALSE(enabled(GridCommand::Redo));
    control->run(GridCommand::Undo);
    EXPECT_FALSE(enabled(GridCommand::Undo));
    EXPECT_TRUE(enabled(GridCommand::Redo));
    control->close();
    for (const auto command :
         {GridCommand::Copy, GridCommand::Paste, GridCommand::Delete, GridCommand::Undo, GridCommand::Redo}) {
        EXPECT_FALSE(enabled(command));
        control->run(command);
    }
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(EditingCommands, UndoAndRedoAreRefusedWhileTheirItemsAreDisabled) {
    paste("145.5");
    const auto after = now();
    control->run(GridCommand::Redo);
    popUp(4);
    EXPECT_EQ(now(), after);
    control->run(GridCommand::Undo);
    control->run(GridCommand::Undo);
    popUp(3);
    EXPECT_EQ(now(), before);
    EXPECT_TRUE(enabled(GridCommand::Redo));
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(EditingCommands, AFullRefreshForgetsUndoAndRedo) {
    paste("145.5");
    control->UpdateControlsFromMemory();
    EXPECT_FALSE(enabled(GridCommand::Undo));
    control->run(GridCommand::Undo);
    EXPECT_EQ(transmits(1), 145.5 * megahertz);
}

TEST_F(EditingCommands, TheRightButtonShowsTheMenuOverTheGrid) {
    grid().MouseDown({.button = ui::MouseButton::Left, .shift = 0, .at = {30, 40}});
    EXPECT_EQ(desktop.popUps(), std::vector<TestDesktop::PopUp>{});
    desktop.menuChoice = "mnuPopUpMenuCopy";
    select({2, 1}, {2, 1});
    grid().MouseDown({.button = ui::MouseButton::Right, .shift = 0, .at = {30, 40}});
    EXPECT_EQ(desktop.popUps(), (std::vector<TestDesktop::PopUp>{{"mnuPopUpMenu", "fgdDatabase", {30, 40}}}));
    EXPECT_EQ(desktop.clipboard, grid().text(2, 1));
    desktop.menuChoice = "mnuPopUpMenuUndo";
    grid().MouseDown({.button = ui::MouseButton::Right, .shift = 0, .at = {30, 40}});
    EXPECT_EQ(now(), before);
}

// -- keys ------------------------------------------------------------------------------------------------------------

TEST_F(EditingCommands, ControlCAndControlVCopyAndPaste) {
    select({2, 1}, {2, 1});
    const auto text = grid().text(2, 1);
    keyDown(ui::key::c);
    keyDown(ui::key::c, ui::shift::shift);
    EXPECT_EQ(desktop.clipboard, std::nullopt);
    keyDown(ui::key::c, ui::shift::control);
    EXPECT_EQ(desktop.clipboard, text);
    desktop.clipboard = "145.5";
    keyDown(ui::key::v);
    EXPECT_EQ(now(), before);
    keyDown(ui::key::v, ui::shift::control | ui::shift::shift);
    EXPECT_EQ(transmits(2), 145.5 * megahertz);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(EditingCommands, BackspaceDeleteAndTheFullStopAskToDelete) {
    for (const int code : {8, 46}) {
        desktop.answerWith(ui::Answer::No);
        keyPress(code);
        EXPECT_EQ(boxes(), (Boxes{question}));
    }
    for (const int code : {7, 9, 13, 27, 32, 45, 47, 65, 127}) {
        keyPress(code);
    }
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(now(), before);
}

TEST_F(EditingCommands, TheDeleteKeyDeletesTheWholeSelection) {
    const ui::GridLayout layout(grid(), {600, 400}, {});
    ui::GridInput input(grid());
    select({2, 1}, {4, 3});
    desktop.answerWith(ui::Answer::Yes);
    EXPECT_TRUE(input.keyDown({ui::key::deleteKey, ui::shift::none}, layout));
    EXPECT_EQ(boxes(), (Boxes{question}));
    EXPECT_NE(transmits(1), 0.0);
    for (std::int16_t channel = 2; channel <= 4; ++channel) {
        EXPECT_EQ(transmits(channel), 0.0);
    }
    EXPECT_NE(transmits(5), 0.0);
}

// Counts repaint requests: what ClearSelection asks for.
class CountingPeer : public ui::GridPeer {
public:
    void show(ui::Aspect changed) noexcept override { repaints += changed == ui::Aspect::Everything ? 1 : 0; }
    void takeFocus() noexcept override {}
    void widgetEnds() noexcept override {}
    void cellsChanged(const CellRange& /*cells*/) noexcept override {}
    void layoutChanged() noexcept override {}
    void highlightChanged() noexcept override {}
    int repaints = 0;
};

class ClearingKeys : public EditingCommands {
protected:
    ClearingKeys() {
        grid().attach(peer);
        peer.repaints = 0;
    }
    ~ClearingKeys() override { grid().detach(); }
    [[nodiscard]] int repaintsOf(int code, unsigned shift = ui::shift::none) {
        peer.repaints = 0;
        keyDown(code, shift);
        return peer.repaints;
    }
    CountingPeer peer;
};

TEST_F(ClearingKeys, AreAllButThoseThatMoveOrAccompanyOthers) {
    const std::vector<int> others{9, 16, 17, 18, 20, 33, 34, 35, 36, 37, 38, 39, 40};
    for (int code = 1; code < 255; ++code) {
        const bool clears = std::ranges::find(others, code) == others.end();
        EXPECT_EQ(repaintsOf(code), clears ? 1 : 0) << code;
        EXPECT_EQ(repaintsOf(code, ui::shift::shift), clears ? 1 : 0) << code;
    }
    EXPECT_EQ(repaintsOf(65, ui::shift::control), 1);
    EXPECT_EQ(repaintsOf(37, ui::shift::control), 0);
    EXPECT_EQ(boxes(), Boxes{});
}

// Copying refreshes the grid once; clearing the extent would do it again.
TEST_F(ClearingKeys, AreNeitherControlCNorControlV) {
    EXPECT_EQ(repaintsOf(ui::key::c, ui::shift::control), 1);
    EXPECT_EQ(repaintsOf(ui::key::v, ui::shift::control), 0);
}

TEST_F(ClearingKeys, LeaveTheGridsSelectionAlone) {
    select({2, 1}, {4, 3});
    keyDown(ui::key::escape);
    EXPECT_EQ(selection(), (CellRange{2, 1, 4, 3}));
}

// -- where the user stands afterwards --------------------------------------------------------------------------------

class Position : public EditingCommands {
protected:
    Position() { select({4, 2}, {2, 5}); }
    void expectKept() {
        EXPECT_EQ(grid().row(), 4);
        EXPECT_EQ(grid().column(), 2);
        EXPECT_EQ(grid().rowSel(), 2);
        EXPECT_EQ(grid().columnSel(), 5);
    }
};

TEST_F(Position, IsKeptByEveryCommand) {
    control->run(GridCommand::Copy);
    expectKept();
    paste("145.5");
    EXPECT_EQ(base::toDouble(store->channel(3).get(ChannelKey::RxFreq)), 145.5 * megahertz);
    expectKept();
    control->run(GridCommand::Undo);
    expectKept();
    control->run(GridCommand::Redo);
    expectKept();
    remove();
    expectKept();
    desktop.answerWith(ui::Answer::No);
    control->run(GridCommand::Delete);
    expectKept();
}

TEST_F(Position, IsKeptByARefusedAndByAFailedPaste) {
    paste("145.5\tnonsense");
    expectKept();
    desktop.clipboardLocked = true;
    control->run(GridCommand::Paste);
    expectKept();
    EXPECT_EQ(boxes().size(), 2U);
}

// -- the flags of a changed table ------------------------------------------------------------------------------------

class Flags : public EditingCommands {
protected:
    void expectMarkedLast(GridCommand command) {
        recording->forget();
        control->run(command);
        const auto& calls = recording->calls();
        ASSERT_GT(calls.size(), 2U);
        EXPECT_EQ(calls[calls.size() - 2], "DataModified=");
        EXPECT_EQ(calls.back(), "ChannelDataModified=");
        EXPECT_EQ(std::ranges::count(calls, "DataModified="), 1);
        EXPECT_EQ(std::ranges::count(calls, "ChannelDataModified="), 1);
        EXPECT_TRUE(marked());
    }
    std::shared_ptr<RecordingStore> recording = decorate<RecordingStore>();
};

TEST_F(Flags, AreSetAtTheEndOfEveryCommandThatChangedTheTable) {
    desktop.clipboard = "145.5\t146.5";
    expectMarkedLast(GridCommand::Paste);
    expectMarkedLast(GridCommand::Undo);
    expectMarkedLast(GridCommand::Redo);
    desktop.answerWith(ui::Answer::Yes);
    expectMarkedLast(GridCommand::Delete);
    desktop.clipboard = "145.5\t146.5\tnonsense";
    expectMarkedLast(GridCommand::Paste);
    EXPECT_EQ(boxes(), (Boxes{question, refusedTone}));
}

TEST_F(Flags, AreLeftAloneWhereNothingWasWritten) {
    control->run(GridCommand::Copy);
    paste("");
    paste("nonsense");
    desktop.answerWith(ui::Answer::No);
    control->run(GridCommand::Delete);
    control->run(GridCommand::Undo);
    EXPECT_FALSE(markedAtAll());
}

TEST_F(Flags, ThatCannotBeSetAreToldUnderTheCommandsName) {
    const auto failing = decorate<FailingStore>();
    desktop.clipboard = "145.5";
    control->run(GridCommand::Paste);
    const int calls = failing->calls();
    failing->failAt(calls);
    control->run(GridCommand::Paste);
    EXPECT_EQ(boxes(), (Boxes{errorIn("PasteToCells")}));
    EXPECT_EQ(failing->calls(), calls);
}

TEST_F(EditingCommands, APasteThatFailsInTheMiddleHasChangedTheTable) {
    select({255, 1}, {255, 1});
    paste("145.5\r146.5");
    EXPECT_EQ(boxes(), (Boxes{errorIn("PasteToCells")}));
    EXPECT_TRUE(marked());
}

TEST_F(EditingCommands, WithoutAStoreTellThatTheyFailed) {
    control->setCentralDataStore(nullptr);
    control->run(GridCommand::Copy);
    EXPECT_EQ(boxes(), Boxes{});
    paste("145.5");
    remove();
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory"), errorIn("PasteToCells"), question,
                              errorIn("UpdateBackUpFrequencyMemory"), errorIn("DeleteSelectedCells")}));
    control->frmCE.mnuPopUpMenuUndo.setEnabled(true);
    control->run(GridCommand::Undo);
    EXPECT_EQ(boxes(), (Boxes{errorIn("UndoChanges")}));
}

// -- lock modes ------------------------------------------------------------------------------------------------------

// A lock mode marks columns for the form and for the eye; a paste stores into all of them.
TEST_F(EditingCommands, APasteStoresIntoEveryColumnUnderEveryLockMode) {
    const Log pasted{"145.500000", "146.500000", "67.0 Hz", "023", "Simplex", "No",   "Narrow", "P25 Digital", "10",
                     "20",         "30",         "40",      "50",  "60",      "70",   "3",      "12.5",        "80",
                     "8",          "6.25",       "90",      "5",   "No",      "1A2B", "0293",   "FFFF"};
    // Shown inverted.
    Log shown = pasted;
    shown.at(9) = "235";
    shown.at(12) = "205";
    std::string line;
    for (const auto& cell : pasted) {
        line += (line.empty() ? "" : "\t") + cell;
    }
    for (std::size_t mode = 0; mode < control->optLockMode.size(); ++mode) {
        control->optLockMode.at(mode).userClick();
        select({2, 1}, {2, 1});
        paste(line);
        auto cells = row(2);
        cells.erase(cells.begin());
        EXPECT_EQ(cells, shown) << mode;
        EXPECT_EQ(boxes(), Boxes{});
        control->run(GridCommand::Undo);
    }
}

// -- the locked table ------------------------------------------------------------------------------------------------

TEST_F(EditingCommands, OnLockedDataAreRefusedAtTheirEntry) {
    paste("145.5");
    control->run(GridCommand::Undo);
    paste("145.5");
    control->frmCE.mnuPopUpMenuRedo.setEnabled(true);
    store->put(StoreMember::DataModified, false);
    const auto present = now();
    control->ckLockData.setValue(1);
    for (const auto command : {GridCommand::Paste, GridCommand::Delete, GridCommand::Undo, GridCommand::Redo}) {
        control->run(command);
        EXPECT_EQ(boxes(), (Boxes{locked}));
    }
    EXPECT_EQ(now(), present);
    EXPECT_FALSE(base::isTrue(store->get(StoreMember::DataModified)));
    EXPECT_TRUE(enabled(GridCommand::Undo));
    control->run(GridCommand::Copy);
    EXPECT_EQ(desktop.clipboard, grid().text(1, 1));
    EXPECT_EQ(boxes(), Boxes{});
    control->ckLockData.setValue(0);
    control->run(GridCommand::Undo);
    EXPECT_EQ(now(), before);
}

TEST_F(EditingCommands, TheLockSpeaksUnderTheDefaultTitleWhereTheStoreHasNone) {
    control->setCentralDataStore(nullptr);
    control->ckLockData.setValue(1);
    control->run(GridCommand::Paste);
    auto untitled = locked;
    untitled.title = "Tesslin";
    EXPECT_EQ(boxes(), (Boxes{untitled}));
}

// -- anything may happen behind a box --------------------------------------------------------------------------------

TEST_F(EditingCommands, ACommandInsideAnotherIsRefusedButCopying) {
    select({2, 1}, {2, 1});
    desktop.duringBox = [this](const ui::MessageBox&) {
        desktop.duringBox = nullptr;
        EXPECT_TRUE(enabled(GridCommand::Copy));
        EXPECT_FALSE(enabled(GridCommand::Paste));
        EXPECT_FALSE(enabled(GridCommand::Delete));
        EXPECT_FALSE(enabled(GridCommand::Undo));
        EXPECT_FALSE(enabled(GridCommand::Redo));
        control->run(GridCommand::Undo);
        keyPress(8);
        control->run(GridCommand::Copy);
    };
    paste("145.5\t146.5\tnonsense");
    EXPECT_EQ(boxes(), (Boxes{refusedTone}));
    EXPECT_EQ(desktop.clipboard, "145.500000");
    EXPECT_EQ(now(), before);
    EXPECT_TRUE(enabled(GridCommand::Paste));
    EXPECT_TRUE(enabled(GridCommand::Redo));
}

TEST_F(EditingCommands, ARefusedPasteDoesNotRollBackAnotherTable) {
    const auto other = std::make_shared<model::MemoryDataStore>();
    fill(*other, 9, {{ChannelKey::TxFreq, 160'000'000}});
    const auto otherBefore = tableText(*other);
    desktop.duringBox = [&](const ui::MessageBox&) { control->setCentralDataStore(other); };
    paste("145.5\t146.5\tnonsense");
    EXPECT_EQ(boxes(), (Boxes{refusedTone}));
    EXPECT_EQ(tableText(*other), otherBefore);
    EXPECT_FALSE(enabled(GridCommand::Undo));
    EXPECT_FALSE(enabled(GridCommand::Redo));
}

TEST_F(EditingCommands, EndQuietlyWhereTheControlIsClosedBehindTheQuestion) {
    desktop.duringBox = [this](const ui::MessageBox&) { control->close(); };
    remove();
    EXPECT_EQ(boxes(), (Boxes{question}));
    EXPECT_EQ(now(), before);
    EXPECT_FALSE(markedAtAll());
}

TEST_F(EditingCommands, EndQuietlyWhereTheControlIsClosedBehindARefusal) {
    desktop.duringBox = [this](const ui::MessageBox&) { control->close(); };
    select({2, 1}, {2, 1});
    paste("145.5\t146.5\tnonsense");
    EXPECT_EQ(boxes(), (Boxes{refusedTone}));
    EXPECT_EQ(transmits(2), 145.5 * megahertz);
    EXPECT_FALSE(markedAtAll());
    EXPECT_TRUE(grid().redraw());
}

TEST_F(EditingCommands, EndQuietlyWhereTheControlIsClosedBehindTheLock) {
    control->ckLockData.setValue(1);
    desktop.duringBox = [this](const ui::MessageBox&) { control->close(); };
    control->run(GridCommand::Paste);
    EXPECT_EQ(boxes(), (Boxes{locked}));
}

TEST_F(EditingCommands, EndQuietlyWhereTheControlIsClosedBehindAFailure) {
    const auto failing = decorate<FailingStore>();
    desktop.duringBox = [this](const ui::MessageBox&) { control->close(); };
    failing->failAt(1 + 255 * 28 + 2);  // behind the guard and the backup, the first read of the first rendered row
    paste("145.5\t146.5");
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateRowData")}));
    EXPECT_EQ(transmits(1), 145.5 * megahertz);
    EXPECT_NE(base::toDouble(store->channel(1).get(ChannelKey::RxFreq)), 146.5 * megahertz);
}

class ClosedBySelection : public EditingCommands, public testing::WithParamInterface<GridCommand> {};

TEST_P(ClosedBySelection, EndsQuietly) {
    select({6, 1}, {6, 1});
    paste("145.5");
    select({5, 1}, {5, 2});
    grid().SelectionChanged.connect([this] { control->close(); });
    store->put(StoreMember::DataModified, false);
    control->run(GetParam());
    EXPECT_TRUE(control->closed());
    EXPECT_TRUE(grid().redraw());
    EXPECT_FALSE(base::isTrue(store->get(StoreMember::DataModified)));
    EXPECT_EQ(boxes(), Boxes{});
}

INSTANTIATE_TEST_SUITE_P(All, ClosedBySelection, testing::Values(GridCommand::Paste, GridCommand::Undo));

TEST_F(EditingCommands, TheControlMayBeClosedInsideItsMenu) {
    control->frmCE.mnuPopUpMenuPaste.Click.connect([this] { control->close(); });
    desktop.clipboard = "145.5";
    desktop.menuChoice = "mnuPopUpMenuPaste";
    grid().MouseDown({.button = ui::MouseButton::Right, .shift = 0, .at = {1, 1}});
    EXPECT_TRUE(control->closed());
    desktop.menuChoice = std::nullopt;
    grid().MouseDown({.button = ui::MouseButton::Right, .shift = 0, .at = {1, 1}});
    EXPECT_EQ(desktop.popUps().size(), 1U);
    EXPECT_EQ(boxes(), Boxes{});
}

}  // namespace
}  // namespace telvar::tests
