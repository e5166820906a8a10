#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <iterator>

#include "control_world.h"
#include "support/answering_store.h"
#include "support/failing_store.h"
#include "support/recording_store.h"

namespace telvar::tests {
namespace {

using ui::Alignment;
using ui::CellRange;

class GridView : public ControlWorld {
protected:
    // A table with unconfigured channels, partly configured ones and full ones.
    void fillMixed() {
        fillDistinct(*store, 1);
        fill(*store, 2, {{ChannelKey::RxFreq, 145'000'000}});
        fillDistinct(*store, 200);
        store->put(StoreMember::DatabaseTitle, std::string("Harbour"));
        store->put(StoreMember::SelectedChannel, std::int16_t{200});
    }
    [[nodiscard]] Log logLines() const { return {TemporaryFolder::read(logPath)}; }
    [[nodiscard]] std::vector<ui::Colour> colours(int number) const {
        std::vector<ui::Colour> all;
        for (int column = 0; column < grid().columns(); ++column) {
            all.push_back(grid().cellBackColor(number, column));
        }
        return all;
    }
};

class CellsChanged : public ui::GridPeer {
public:
    void show(ui::Aspect /*changed*/) noexcept override {}
    void takeFocus() noexcept override {}
    void widgetEnds() noexcept override {}
    void cellsChanged(const CellRange& range) noexcept override { cells.push_back(range); }
    void layoutChanged() noexcept override { ++layouts; }
    void highlightChanged() noexcept override {}
    std::vector<CellRange> cells;
    int layouts = 0;
};

const Log unconfigured = [] {
    Log cells(27, "X");
    cells[0].clear();
    return cells;
}();

// -- Prepare ---------------------------------------------------------------------------------------------------------

TEST_F(GridView, PrepareLabelsTheRows) {
    control->Prepare();
    EXPECT_EQ(grid().text(1, 0), "1");
    EXPECT_EQ(grid().text(99, 0), "99");
    EXPECT_EQ(grid().text(255, 0), "255");
    EXPECT_EQ(grid().cellAlignment(1, 0), Alignment::LeftCentre);
    EXPECT_EQ(grid().cellAlignment(255, 0), Alignment::LeftCentre);
}

TEST_F(GridView, PrepareWritesTheHeaders) {
    control->Prepare();
    EXPECT_EQ(row(0), (Log{"",
                           "Tx Frequency (MHz)",
                           "Rx Frequency (MHz)",
                           "Tx Subtone",
                           "Rx Subtone",
                           "RF Mode",
                           "Scan",
                           "WB/NB Selection",
                           "Ext PTT Tx Mode",
                           "TX Pwr",
                           "RefOscFreq WB",
                           "VCOLvlWB",
                           "RefOscLvlWB",
                           "RefOscFreqNB",
                           "VCOLvlNB",
                           "RefOscLvlNB",
                           "SubtoneLvl",
                           "SynthStepTX",
                           "BinTX",
                           "ModTX",
                           "SynthStepRX",
                           "BinRX",
                           "ModRX",
                           "P25Repeater",
                           "P25TalkgroupID",
                           "P25TxNAC",
                           "P25RxNAC"}));
}

TEST_F(GridView, PrepareSetsTheWidths) {
    control->Prepare();
    std::vector<int> widths;
    for (int column = 0; column < grid().columns(); ++column) {
        widths.push_back(grid().columnWidth(column));
    }
    std::vector<int> expected{400, 1100, 1100, 950, 950, 1100, 700, 1370, 1350};
    expected.resize(27, 0);
    EXPECT_EQ(widths, expected);
}

TEST_F(GridView, PrepareLeavesTheCornerCurrentAndDrawingOn) {
    control->Prepare();
    EXPECT_EQ(selection(), (CellRange{0, 0, 0, 0}));
    EXPECT_TRUE(grid().redraw());
    EXPECT_EQ(boxes(), Boxes{});
}

// Each change that the grid's window hears of while drawing is on would be a change of its own.
TEST_F(GridView, PrepareSwitchesDrawingOffBeforeItsFirstStepAndOnAfterItsLast) {
    CellsChanged peer;
    grid().attach(peer);
    int moves = 0;
    grid().SelectionChanged.connect([&] { ++moves; });
    control->Prepare();
    EXPECT_EQ(peer.cells, (std::vector<CellRange>{{0, 0, 255, 26}}));
    EXPECT_EQ(peer.layouts, 1);
    EXPECT_EQ(moves, 1);
    EXPECT_TRUE(grid().redraw());
    grid().detach();
}

TEST_F(GridView, PrepareNeedsNoStore) {
    control->setCentralDataStore(nullptr);
    control->Prepare();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(grid().text(255, 0), "255");
}

TEST_F(GridView, ASecondPrepareGivesTheSameGridAndHidesTheAdvancedColumnsAgain) {
    control->Prepare();
    const auto texts = gridTexts();
    control->UpdateAccess(5);
    control->Prepare();
    EXPECT_EQ(gridTexts(), texts);
    EXPECT_EQ(grid().columnWidth(9), 0);
    EXPECT_EQ(grid().columnWidth(26), 0);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(GridView, PrepareKeepsTheCellsOfTheChannels) {
    fillMixed();
    control->Prepare();
    control->UpdateControlsFromMemory();
    const auto texts = gridTexts();
    control->Prepare();
    EXPECT_EQ(gridTexts(), texts);
}

// -- UpdateRowData ---------------------------------------------------------------------------------------------------

TEST_F(GridView, ARowIsRenderedFromTheStoreAndMadeCurrent) {
    fill(*store, 7,
         {{ChannelKey::TxFreq, 145'500'000},
          {ChannelKey::RxFreq, 144'900'000},
          {ChannelKey::TxSub, 67.0F},
          {ChannelKey::ModeBits, 0x01},
          {ChannelKey::scan, true},
          {ChannelKey::RefOscFreq, 0},
          {ChannelKey::SynthStep, 6'250},
          {ChannelKey::P25TalkgroupID, std::string("00FF")}});
    control->UpdateRowData(7);
    EXPECT_EQ(row(7),
              (Log{"",    "145.500000", "144.900000", "67.0 Hz", "Disabled", "Simplex", "Yes",  "Wide", "Analogue",
                   "128", "255",        "128",        "128",     "127",      "128",     "128",  "0",    "6.25",
                   "0",   "8",          "12.5",       "0",       "8",        "No",      "00FF", "0000", "0000"}));
    EXPECT_EQ(grid().row(), 7);
}

TEST_F(GridView, ARowsSelectionCollapses) {
    grid().select({3, 2}, {9, 5});
    control->UpdateRowData(7);
    EXPECT_EQ(selection(), (CellRange{7, 2, 7, 2}));
}

TEST_F(GridView, AnUnconfiguredRowIsFullOfX) {
    control->UpdateRowData(255);
    EXPECT_EQ(row(255), unconfigured);
}

TEST_F(GridView, OneFrequencyIsEnoughToBeConfigured) {
    fill(*store, 1, {{ChannelKey::RxFreq, 145'000'000}});
    control->UpdateRowData(1);
    EXPECT_EQ(grid().text(1, 1), "X");
    EXPECT_EQ(grid().text(1, 2), "145.000000");
    EXPECT_EQ(grid().text(1, 5), "Duplex");
}

TEST_F(GridView, EqualCellsAreNotRewritten) {
    fillDistinct(*store, 2);
    control->UpdateRowData(1);
    control->UpdateRowData(2);
    control->UpdateRowData(1);
    CellsChanged peer;
    grid().attach(peer);
    control->UpdateRowData(1);
    EXPECT_EQ(peer.cells, std::vector<CellRange>{});
    fill(*store, 1, {{ChannelKey::TxFreq, 1}});
    store->channel(1).put(ChannelKey::TxFreq, 0);
    control->UpdateRowData(1);
    EXPECT_EQ(peer.cells, std::vector<CellRange>{});
    grid().detach();
}

TEST_F(GridView, AFullRefreshOfAnUnchangedTableRepaintsAtMostTheSelection) {
    fillMixed();
    store->put(StoreMember::SelectedChannel, std::int16_t{0});
    control->Prepare();
    control->UpdateControlsFromMemory();
    CellsChanged peer;
    grid().attach(peer);
    control->UpdateControlsFromMemory();
    for (const auto& range : peer.cells) {
        EXPECT_LE(range.columnCount(), 1);
    }
    grid().detach();
}

class OutsideChannel : public GridView, public testing::WithParamInterface<std::int16_t> {};

TEST_P(OutsideChannel, IsAFailureOfTheRoutineThatChangesNothing) {
    control->Prepare();
    grid().select({3, 2}, {9, 5});
    const auto texts = gridTexts();
    control->UpdateRowData(GetParam());
    control->HighLightChannel(GetParam());
    control->SetRowBackColour(GetParam(), 255);
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateRowData"), errorIn("HighLightChannel"), errorIn("SetRowBackColour")}));
    EXPECT_EQ(gridTexts(), texts);
    EXPECT_EQ(selection(), (CellRange{3, 2, 9, 5}));
    EXPECT_FALSE(std::filesystem::exists(logPath));
}

INSTANTIATE_TEST_SUITE_P(All, OutsideChannel, testing::Values(0, -1, 256, 32767, -32768));

TEST_F(GridView, WithoutAStoreARowFails) {
    control->setCentralDataStore(nullptr);
    control->UpdateRowData(1);
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateRowData")}));
    EXPECT_EQ(grid().text(1, 1), "");
}

TEST_F(GridView, AFailingStoreCutsTheRowAndIsToldOnce) {
    fillDistinct(*store, 3);
    const auto failing = decorate<FailingStore>();
    failing->failAt(0);
    control->UpdateRowData(3);
    const int calls = failing->calls();
    EXPECT_GT(calls, 26);
    for (int call = 1; call <= calls; ++call) {
        failing->failAt(call);
        control->UpdateRowData(3);
        EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateRowData")})) << "call " << call;
        EXPECT_TRUE(grid().redraw());
    }
}

TEST_F(GridView, EveryValueIsAskedAfresh) {
    fillDistinct(*store, 3);
    const auto recording = decorate<RecordingStore>();
    control->UpdateRowData(3);
    const auto first = recording->calls();
    recording->forget();
    control->UpdateRowData(3);
    EXPECT_EQ(recording->calls(), first);
    EXPECT_EQ(first.front(), "ChannelTable(2).TxFreq");
}

TEST_F(GridView, NumbersAreWrittenInTheUsersFormat) {
    fill(*store, 1, {{ChannelKey::TxFreq, 145'500'000}});
    ChannelInformation comma(
        control::Surroundings{.desktop = desktop, .makeTable = nullptr, .numberFormat = {','}, .logPath = logPath});
    comma.setCentralDataStore(store);
    comma.UpdateRowData(1);
    EXPECT_EQ(comma.fgdDatabase.text(1, 1), "145,500000");
}

// -- UpdateControlsFromMemory ----------------------------------------------------------------------------------------

TEST_F(GridView, AFullRefreshRaisesTheCaptionAndThen255Steps) {
    fillMixed();
    control->UpdateControlsFromMemory();
    Log expected{"NewWindowCaption Channel Information - Harbour"};
    expected.resize(256, "IncrementProgressBar");
    EXPECT_EQ(events, expected);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(GridView, AFullRefreshRendersEveryRow) {
    fillMixed();
    control->Prepare();
    control->UpdateControlsFromMemory();
    for (std::int16_t channel = 1; channel <= 255; ++channel) {
        const auto expected = renderedRow(*store, channel);
        for (int column = 1; column <= 26; ++column) {
            ASSERT_EQ(grid().text(channel, column), expected.at(static_cast<std::size_t>(column)))
                << "channel " << channel << " column " << column;
        }
    }
    EXPECT_EQ(grid().text(200, 0), "200");
}

TEST_F(GridView, AFullRefreshShowsTheSelectedChannelsNumber) {
    fillMixed();
    control->UpdateControlsFromMemory();
    EXPECT_EQ(control->txtChannelSelect.text(), "200");
    store->put(StoreMember::SelectedChannel, std::int16_t{0});
    control->UpdateControlsFromMemory();
    EXPECT_EQ(control->txtChannelSelect.text(), "");
}

TEST_F(GridView, AFullRefreshEndsWithTheFirstCellCurrentThoughAChannelWasHighlighted) {
    fillMixed();
    std::vector<CellRange> selections;
    control->NewWindowCaption.connect([&](std::string&) { selections.push_back(selection()); });
    control->UpdateControlsFromMemory();
    EXPECT_EQ(selections, (std::vector<CellRange>{{200, 1, 200, 26}}));
    EXPECT_EQ(selection(), (CellRange{1, 1, 1, 1}));
    EXPECT_EQ(store->get(StoreMember::GridLoaded), base::Value{true});
}

TEST_F(GridView, DrawingIsOffOnlyWhileTheRowsAreRendered) {
    bool atCaption = false;
    int off = 0;
    control->NewWindowCaption.connect([&](std::string&) { atCaption = grid().redraw(); });
    control->IncrementProgressBar.connect([&] { off += grid().redraw() ? 0 : 1; });
    control->UpdateControlsFromMemory();
    EXPECT_TRUE(atCaption);
    EXPECT_EQ(off, 255);
    EXPECT_TRUE(grid().redraw());
}

class PutStore : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    std::function<void(const std::string&)> onPut;

protected:
    void onCall(const StoreCall& call) override {
        if (call.kind == StoreCall::Kind::Put) {
            onPut(describe(call));
        }
    }
};

TEST_F(GridView, ARefreshMakesTheHeaderRowCurrentThenSwitchesDrawingOffAndOnAgainBeforeItsLastSteps) {
    Log steps;
    const auto note = [&](const std::string& what) {
        const std::string step = what + (grid().redraw() ? "" : ", drawing off");
        if (steps.empty() || steps.back() != step) {
            steps.push_back(step);
        }
    };
    decorate<PutStore>()->onPut = note;
    control->Prepare();
    store->put(StoreMember::SelectedChannel, std::int16_t{7});
    grid().SelectionChanged.connect([&] { note("row " + std::to_string(grid().row())); });
    control->NewWindowCaption.connect([&](std::string&) { note("caption"); });
    control->IncrementProgressBar.connect([&] { note("step"); });
    control->UpdateControlsFromMemory();
    EXPECT_EQ(steps, (Log{"row 7", "caption", "row 0", "step, drawing off", "row 255", "GridLoaded=", "row 1"}));
}

TEST_F(GridView, ARefreshWritesNothingButThatTheGridIsLoaded) {
    fillMixed();
    const auto recording = decorate<RecordingStore>();
    control->UpdateControlsFromMemory();
    Log writes;
    std::ranges::copy_if(recording->calls(), std::back_inserter(writes),
                         [](const std::string& call) { return call.ends_with('='); });
    EXPECT_EQ(writes, Log{"GridLoaded="});
}

TEST_F(GridView, TheRowIsFinishedBeforeItsStepIsRaised) {
    fillMixed();
    control->Prepare();
    int step = 0;
    control->IncrementProgressBar.connect([&] {
        EXPECT_EQ(grid().row(), ++step);
        const auto rendered = renderedRow(*store, static_cast<std::int16_t>(step));
        const auto shown = row(step);
        EXPECT_EQ(Log(shown.begin() + 1, shown.end()), Log(rendered.begin() + 1, rendered.end())) << step;
    });
    control->UpdateControlsFromMemory();
    EXPECT_EQ(step, 255);
}

TEST_F(GridView, AFullRefreshForgetsUndoAndRedo) {
    control->frmCE.mnuPopUpMenuUndo.setEnabled(true);
    control->frmCE.mnuPopUpMenuRedo.setEnabled(true);
    control->UpdateControlsFromMemory();
    EXPECT_FALSE(control->frmCE.mnuPopUpMenuUndo.enabled());
    EXPECT_FALSE(control->frmCE.mnuPopUpMenuRedo.enabled());
}

TEST_F(GridView, ARefreshAsksTheStoreInOrder) {
    const auto recording = decorate<RecordingStore>();
    control->UpdateControlsFromMemory();
    const auto& calls = recording->calls();
    ASSERT_GT(calls.size(), 4U);
    EXPECT_EQ(Log(calls.begin(), calls.begin() + 5), (Log{"SelectedChannel", "SelectedChannel", "DatabaseTitle",
                                                          "ChannelTable(0).TxFreq", "ChannelTable(0).RxFreq"}));
    EXPECT_EQ(calls.back(), "GridLoaded=");
}

TEST_F(GridView, EveryCallOfARefreshMayFailAndIsToldOnceUnderItsName) {
    fillMixed();
    const auto failing = decorate<FailingStore>();
    control->UpdateControlsFromMemory();
    const int calls = failing->calls();
    EXPECT_GT(calls, 500);
    bool drawing = true;
    desktop.duringBox = [&](const ui::MessageBox&) { drawing = drawing && grid().redraw(); };
    for (int call = 1; call <= calls; ++call) {
        failing->failAt(call);
        control->UpdateControlsFromMemory();
        ASSERT_EQ(boxes(), (Boxes{errorIn("UpdateControlsFromMemory")})) << "call " << call;
        ASSERT_EQ(failing->calls(), call) << "the refresh went on";
        ASSERT_TRUE(grid().redraw());
    }
    EXPECT_TRUE(drawing);
    failing->failAt(0);
    control->UpdateControlsFromMemory();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(grid().text(200, 1), renderedRow(*store, 200)[1]);
}

TEST_F(GridView, AStoreThatStopsAnsweringForGoodIsToldOnce) {
    const auto failing = decorate<FailingStore>();
    for (const int call : {1, 3, 4, 100, 500}) {
        failing->failAt(call, FailureSpan::FromThereOn);
        control->UpdateControlsFromMemory();
        EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateControlsFromMemory")}));
    }
}

TEST_F(GridView, WithoutAStoreARefreshFails) {
    control->setCentralDataStore(nullptr);
    control->UpdateControlsFromMemory();
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateControlsFromMemory")}));
    EXPECT_EQ(events, Log{});
}

TEST_F(GridView, AStoreExchangedInsideARefreshIsAskedFromTheNextRowOn) {
    fillDistinct(*store, 3);
    const auto other = fullStore();
    control->IncrementProgressBar.connect([&] {
        if (grid().row() == 3) {
            control->setCentralDataStore(other);
        }
    });
    control->UpdateControlsFromMemory();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(grid().text(2, 1), "X");
    EXPECT_EQ(grid().text(3, 1), renderedRow(*store, 3)[1]);
    EXPECT_EQ(grid().text(4, 1), renderedRow(*other, 4)[1]);
    EXPECT_EQ(other->get(StoreMember::GridLoaded), base::Value{true});
    EXPECT_EQ(store->get(StoreMember::GridLoaded), base::Value{false});
}

TEST_F(GridView, AStoreTakenAwayInsideARefreshIsAFailure) {
    control->NewWindowCaption.connect([&](std::string&) { control->setCentralDataStore(nullptr); });
    control->UpdateControlsFromMemory();
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateControlsFromMemory")}));
    EXPECT_TRUE(grid().redraw());
}

TEST_F(GridView, TheHostMayCallBackInsideARefresh) {
    fillMixed();
    int depth = 0;
    control->IncrementProgressBar.connect([&] {
        if (depth == 0 && grid().row() == 10) {
            ++depth;
            control->UpdateControlsFromMemory();
            control->SetRowBackColour(200, 255);
            control->UpdateRowData(0);
        }
    });
    control->UpdateControlsFromMemory();
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateRowData")}));
    EXPECT_EQ(events.size(), 2U * 256U);
    EXPECT_TRUE(grid().redraw());
    EXPECT_EQ(selection(), (CellRange{1, 1, 1, 1}));
}

TEST_F(GridView, ATitleOfNoUseIsAFailureOfTheRefresh) {
    decorate<AnsweringStore>()->answer(StoreMember::DatabaseTitle, base::Unusable{});
    control->UpdateControlsFromMemory();
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateControlsFromMemory")}));
    EXPECT_TRUE(grid().redraw());
}

TEST_F(GridView, NumbersOfAnyTypeServeAsSelectedChannelAndTitle) {
    const auto answering = decorate<AnsweringStore>();
    for (const auto& value : {base::Value{7.0}, base::Value{std::int32_t{7}}, base::Value{std::string("7")}}) {
        answering->answer(StoreMember::SelectedChannel, value);
        answering->answer(StoreMember::DatabaseTitle, std::int32_t{12});
        events.clear();
        control->UpdateControlsFromMemory();
        EXPECT_EQ(boxes(), Boxes{});
        EXPECT_EQ(control->txtChannelSelect.text(), "7");
        EXPECT_EQ(events.front(), "NewWindowCaption Channel Information - 12");
    }
}

TEST_F(GridView, AValueOfNoUseInARowIsAFailure) {
    fillDistinct(*store, 9);
    const auto answering = decorate<AnsweringStore>();
    answering->answer(ChannelKey::TxSub, base::Unusable{});
    answering->answer(ChannelKey::TxCTCSSDCS, false);
    control->UpdateRowData(9);
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateRowData")}));
    control->UpdateControlsFromMemory();
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateControlsFromMemory")}));
}

// -- SetRowBackColour ------------------------------------------------------------------------------------------------

TEST_F(GridView, ARowIsPaintedExceptItsLabel) {
    control->SetRowBackColour(5, 0x00FF00);
    std::vector<ui::Colour> expected(27, 0x00FF00U);
    expected[0] = 0;
    EXPECT_EQ(colours(5), expected);
    EXPECT_EQ(colours(4), std::vector<ui::Colour>(27, 0U));
    EXPECT_EQ(grid().row(), 5);
    EXPECT_EQ(grid().column(), 26);
}

TEST_F(GridView, TheLogGetsRowAndColourAsDecimalNumbers) {
    control->SetRowBackColour(5, 65'280);
    EXPECT_EQ(TemporaryFolder::read(logPath), "Row to change: 5\r\nRow colour: 65280\r\n");
    control->SetRowBackColour(255, -1);
    EXPECT_EQ(TemporaryFolder::read(logPath),
              "Row to change: 5\r\nRow colour: 65280\r\nRow to change: 255\r\nRow colour: -1\r\n");
}

TEST_F(GridView, WhiteOnAnUnpaintedRowOnlyLogs) {
    grid().setCurrent({5, 3});
    control->SetRowBackColour(5, 0xFFFFFF);
    EXPECT_EQ(colours(5), std::vector<ui::Colour>(27, 0U));
    EXPECT_EQ(selection(), (CellRange{5, 3, 5, 3}));
    EXPECT_EQ(TemporaryFolder::read(logPath), "Row to change: 5\r\nRow colour: 16777215\r\n");
}

TEST_F(GridView, SeveralSelectedRowsStaySelectedWhereTheCurrentOneNeedsNoPaint) {
    grid().select({5, 3}, {9, 6});
    control->SetRowBackColour(5, 0xFFFFFF);
    EXPECT_EQ(selection(), (CellRange{5, 3, 9, 6}));
    EXPECT_EQ(grid().row(), 5);
    control->SetRowBackColour(6, 0xFFFFFF);
    EXPECT_EQ(selection(), (CellRange{6, 3, 6, 3}));
}

TEST_F(GridView, WhiteOnAPaintedRowPaintsIt) {
    control->SetRowBackColour(5, 0x00FF00);
    control->SetRowBackColour(5, 0xFFFFFF);
    std::vector<ui::Colour> expected(27, 0xFFFFFFU);
    expected[0] = 0;
    EXPECT_EQ(colours(5), expected);
}

TEST_F(GridView, OnlyTheCurrentCellIsLookedAt) {
    grid().setCellBackColor(5, 3, ui::red);
    grid().setCurrent({5, 3});
    control->SetRowBackColour(5, static_cast<std::int32_t>(ui::red));
    EXPECT_EQ(grid().cellBackColor(5, 4), 0U);
    EXPECT_EQ(grid().column(), 3);
    grid().setCurrent({5, 4});
    control->SetRowBackColour(5, static_cast<std::int32_t>(ui::red));
    EXPECT_EQ(grid().cellBackColor(5, 4), ui::red);
}

TEST_F(GridView, ASystemColourIsKeptAsItIs) {
    control->SetRowBackColour(5, static_cast<std::int32_t>(ui::windowBackground));
    EXPECT_EQ(grid().cellBackColor(5, 1), ui::windowBackground);
}

TEST_F(GridView, ALogThatCannotBeWrittenIsToldAndNothingIsPainted) {
    ChannelInformation logless(
        control::Surroundings{.desktop = desktop, .makeTable = nullptr, .logPath = folder / "missing/msglog.txt"});
    logless.SetRowBackColour(5, 255);
    EXPECT_EQ(boxes(), (Boxes{errorIn("SetRowBackColour")}));
    EXPECT_EQ(logless.fgdDatabase.cellBackColor(5, 1), 0U);
    EXPECT_EQ(logless.fgdDatabase.row(), 5);
}

}  // namespace
}  // namespace telvar::tests
