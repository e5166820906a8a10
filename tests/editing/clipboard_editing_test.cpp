// Copy, paste and delete on a grid's selection: what reaches the clipboard and the table, what is refused in which
// words, and what stands afterwards.
#include "editing/clipboard_editing.h"

#include <algorithm>
#include <array>
#include <utility>

#include "editing_world.h"

namespace telvar::tests {
namespace {

using base::Value;

constexpr double megahertz = 1e6;

class ClipboardEditing : public EditingWorld {
protected:
    ClipboardEditing() {
        for (std::int16_t channel = 1; channel <= 12; ++channel) {
            fillDistinct(*table, channel);
        }
        renderAll();
        history.forget();
        before = tableText(*table);
    }

    [[nodiscard]] std::string now() { return tableText(*table); }
    [[nodiscard]] static ui::MessageBox refusal(const std::string& error) {
        return {.text = "Error during pasting data. " + error + ". Unable to continue."};
    }
    void expectUntouched() {
        EXPECT_EQ(now(), before);
        EXPECT_EQ(boxes(), Boxes{});
    }

    std::string before;
};

// -- line breaks -----------------------------------------------------------------------------------------------------

TEST(ClipboardText, HasOneKindOfLineBreak) {
    using editing::withUnifiedBreaks;
    EXPECT_EQ(withUnifiedBreaks("a\r\nb\nc\rd"), "a\rb\rc\rd");
    EXPECT_EQ(withUnifiedBreaks("a\n\rb"), "a\r\rb");
    EXPECT_EQ(withUnifiedBreaks("a\r\r\nb"), "a\r\rb");
    EXPECT_EQ(withUnifiedBreaks("a\r\n"), "a\r");
    EXPECT_EQ(withUnifiedBreaks("a"), "a");
    EXPECT_EQ(withUnifiedBreaks(""), "");
}

// Notes what the grid is asked to do on the screen, and what the clipboard held at that moment.
class NotingPeer : public ui::GridPeer {
public:
    explicit NotingPeer(const TestDesktop& desktop) noexcept : desktop_(desktop) {}
    void show(ui::Aspect changed) noexcept override {
        if (changed == ui::Aspect::Everything) {
            note("refresh");
        }
    }
    void takeFocus() noexcept override { note("focus"); }
    void widgetEnds() noexcept override {}
    void cellsChanged(const ui::CellRange& /*cells*/) noexcept override {}
    void layoutChanged() noexcept override {}
    void highlightChanged() noexcept override {}
    std::vector<std::string> notes;

private:
    void note(const std::string& what) { notes.push_back(what + desktop_.clipboard.value_or("")); }
    const TestDesktop& desktop_;
};

// A grid that is on the screen.
template <class World>
class Shown : public World {
protected:
    Shown() {
        this->grid.attach(peer);
        peer.notes.clear();
    }
    ~Shown() override { this->grid.detach(); }
    NotingPeer peer{this->desktop};
};

// -- copy ------------------------------------------------------------------------------------------------------------

class Copy : public ClipboardEditing {
protected:
    Copy() {
        const std::array<std::array<const char*, 3>, 2> cells{{{"a", "b", "c"}, {"d", "", "f"}}};
        for (int row = 0; row < 2; ++row) {
            for (int column = 0; column < 3; ++column) {
                grid.setText(5 + row, 2 + column,
                             cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)));
            }
        }
    }
};

TEST_F(Copy, JoinsCellsByTabsAndRowsByACarriageReturn) {
    select({5, 2}, {6, 4});
    commands.CopySelection();
    EXPECT_EQ(desktop.clipboard, "a\tb\tc\rd\t\tf");
    EXPECT_EQ(commands.extentRows(), 2);
    expectUntouched();
}

using CopyOnScreen = Shown<Copy>;

TEST_F(CopyOnScreen, RefreshesTheGridBeforeItFillsTheClipboard) {
    grid.setCurrent({6, 4});
    commands.CopySelection();
    EXPECT_EQ(peer.notes, std::vector<std::string>{"refresh"});
    EXPECT_EQ(desktop.clipboard, "f");
}

TEST_F(Copy, TakesASelectionThatWasMadeInAnyDirection) {
    for (const auto& [current, end] :
         {std::pair<ui::Cell, ui::Cell>{{6, 4}, {5, 2}}, {{6, 2}, {5, 4}}, {{5, 4}, {6, 2}}}) {
        select(current, end);
        commands.CopySelection();
        EXPECT_EQ(desktop.clipboard, "a\tb\tc\rd\t\tf");
    }
}

TEST_F(Copy, OfOneCellHasNoSeparatorAndReplacesWhatWasThere) {
    desktop.clipboard = "before";
    grid.setCurrent({6, 4});
    commands.CopySelection();
    EXPECT_EQ(desktop.clipboard, "f");
}

TEST_F(Copy, CarriesColumnsThatAreHidden) {
    grid.setColumnWidth(3, 0);
    select({5, 2}, {5, 4});
    commands.CopySelection();
    EXPECT_EQ(desktop.clipboard, "a\tb\tc");
}

TEST_F(Copy, ToAClipboardThatCannotBeOpenedIsTold) {
    desktop.clipboardLocked = true;
    commands.CopySelection();
    EXPECT_EQ(boxes(), (Boxes{errorIn("CopySelection")}));
}

TEST_F(Copy, IsFollowedByAClearedSelectionWithoutExtent) {
    commands.CopySelection();
    EXPECT_EQ(commands.extentRows(), 1);
    commands.ClearSelection();
    EXPECT_EQ(commands.extentRows(), 0);
}

// -- paste -----------------------------------------------------------------------------------------------------------

class Paste : public ClipboardEditing {};

TEST_F(Paste, OfACopiedBlockReproducesItElsewhere) {
    select({5, 1}, {6, 3});
    commands.CopySelection();
    const std::string copied = desktop.clipboard.value_or("");
    EXPECT_EQ(std::ranges::count(copied, '\t'), 4);
    EXPECT_EQ(std::ranges::count(copied, '\r'), 1);
    EXPECT_EQ(std::ranges::count(copied, '\n'), 0);
    EXPECT_TRUE(pasteAt({20, 1}, copied));
    EXPECT_EQ(boxes(), Boxes{});
    select({20, 1}, {21, 3});
    commands.CopySelection();
    EXPECT_EQ(desktop.clipboard, copied);
    for (const auto key : {ChannelKey::TxFreq, ChannelKey::RxFreq, ChannelKey::TxCTCSSDCS}) {
        EXPECT_EQ(base::toDouble(at(20, key)), base::toDouble(at(5, key)));
        EXPECT_EQ(base::toDouble(at(21, key)), base::toDouble(at(6, key)));
    }
    EXPECT_EQ(rendered, (std::vector<std::int16_t>{20, 20, 20, 21, 21, 21}));
    EXPECT_TRUE(undo.enabled());
}

TEST_F(Paste, StoresTrimmedCells) {
    EXPECT_TRUE(pasteAt({20, 1}, "  145.5 \t 146 "));
    EXPECT_EQ(at(20, ChannelKey::TxFreq), Value{145.5 * megahertz});
    EXPECT_EQ(at(20, ChannelKey::RxFreq), Value{146 * megahertz});
    EXPECT_EQ(grid.text(20, 1), "145.500000");
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Paste, OfOneLineFillsEverySelectedRow) {
    for (const auto& [current, end] : {std::pair<ui::Cell, ui::Cell>{{20, 1}, {24, 3}}, {{34, 1}, {30, 3}}}) {
        select(current, end);
        EXPECT_TRUE(pasteHere("145.5\t146.5"));
        const int first = std::min(current.row, end.row);
        for (int row = first; row < first + 5; ++row) {
            EXPECT_EQ(transmits(static_cast<std::int16_t>(row)), 145.5 * megahertz);
        }
        EXPECT_EQ(transmits(static_cast<std::int16_t>(first - 1)), 0.0);
        EXPECT_EQ(transmits(static_cast<std::int16_t>(first + 5)), 0.0);
    }
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Paste, OfOneLineWithATrailingBreakFillsOneRow) {
    select({20, 1}, {24, 1});
    EXPECT_TRUE(pasteHere("145.5\r\n"));
    EXPECT_EQ(transmits(20), 145.5 * megahertz);
    EXPECT_EQ(transmits(21), 0.0);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Paste, OfSeveralLinesIsNotLimitedByTheSelection) {
    select({20, 1}, {21, 1});
    EXPECT_TRUE(pasteHere("145\r146\r147\r148"));
    EXPECT_EQ(transmits(20), 145 * megahertz);
    EXPECT_EQ(transmits(23), 148 * megahertz);
    EXPECT_EQ(transmits(24), 0.0);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Paste, OfFewerLinesThanSelectedRowsIsNotRepeated) {
    select({20, 1}, {24, 1});
    EXPECT_TRUE(pasteHere("145\r146"));
    EXPECT_EQ(transmits(21), 146 * megahertz);
    EXPECT_EQ(transmits(22), 0.0);
}

class LineBreaks : public Paste, public testing::WithParamInterface<std::string> {};

TEST_P(LineBreaks, AllPasteAlike) {
    EXPECT_TRUE(pasteAt({20, 1}, GetParam()));
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(transmits(20), 145 * megahertz);
    EXPECT_EQ(transmits(21), 146 * megahertz);
    EXPECT_EQ(transmits(22), 147 * megahertz);
    EXPECT_EQ(transmits(23), 0.0);
}

INSTANTIATE_TEST_SUITE_P(All, LineBreaks,
                         testing::Values("145\r\n146\r\n147", "145\n146\n147", "145\r146\r147", "145\r\n146\n147",
                                         "145\n146\r147\r\n", "145\r146\r147\r", "145\n146\n147\n"));

TEST_F(Paste, SkipsTheRowOfAnEmptyLine) {
    EXPECT_TRUE(pasteAt({20, 1}, "145\r\r147"));
    EXPECT_EQ(transmits(20), 145 * megahertz);
    EXPECT_EQ(transmits(21), 0.0);
    EXPECT_EQ(transmits(22), 147 * megahertz);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Paste, StartsAtTheCurrentColumnAndTheUpperRow) {
    select({22, 2}, {20, 1});
    EXPECT_TRUE(pasteHere("145\r146"));
    EXPECT_EQ(at(20, ChannelKey::RxFreq), Value{145 * megahertz});
    EXPECT_EQ(at(21, ChannelKey::RxFreq), Value{146 * megahertz});
    EXPECT_EQ(transmits(20), 0.0);
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Paste, RefusedAtItsThirdCellLeavesTheTableAsBefore) {
    EXPECT_TRUE(pasteAt({7, 1}, "145.5\t145.5\tnonsense"));
    EXPECT_EQ(boxes(), (Boxes{refusal("Invalid DCS value (not found in the table) TX Subtone")}));
    EXPECT_EQ(now(), before);
    EXPECT_FALSE(undo.enabled());
    EXPECT_TRUE(redo.enabled());
    EXPECT_NE(grid.text(7, 1), "145.500000");
    history.RedoChanges();
    EXPECT_EQ(transmits(7), 145.5 * megahertz);
    EXPECT_EQ(at(7, ChannelKey::RxFreq), Value{145.5 * megahertz});
}

TEST_F(Paste, RefusedAtItsFirstCellWroteNothing) {
    EXPECT_FALSE(pasteAt({7, 1}, "nonsense\t145.5"));
    EXPECT_EQ(boxes(), (Boxes{refusal("Error in validating channel frequency (Type mismatch) RX Freq")}));
    EXPECT_EQ(now(), before);
}

TEST_F(Paste, OfAStepIsJudgedByItsRange) {
    EXPECT_TRUE(pasteAt({7, 17}, "12"));
    EXPECT_EQ(at(7, ChannelKey::SynthStep), Value{12'000.0});
    before = now();
    pasteAt({7, 17}, "30");
    EXPECT_EQ(boxes(), (Boxes{refusal("Invalid Synthesizer Step size value (out of range) TX Synth Step Size")}));
    EXPECT_EQ(now(), before);
}

// The digital mode makes its channel narrow again, since the cells act from left to right.
TEST_F(Paste, OfP25DigitalBehindWideEndsNarrowAndDigital) {
    EXPECT_TRUE(pasteAt({7, 7}, "Wide\tP25 Digital"));
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(base::toBits(at(7, ChannelKey::ModeBits)) & 0x80, 0x80);
    EXPECT_EQ(at(7, ChannelKey::P25TransmitMode), Value{true});
    EXPECT_EQ(grid.text(7, 7), "Narrow");
    EXPECT_EQ(grid.text(7, 8), "P25 Digital");
}

TEST_F(Paste, BeyondTheLastChannelFailsWithoutRollBack) {
    EXPECT_TRUE(pasteAt({254, 1}, "145\r146\r147"));
    EXPECT_EQ(boxes(), (Boxes{errorIn("PasteToCells")}));
    EXPECT_EQ(transmits(254), 145 * megahertz);
    EXPECT_EQ(transmits(255), 146 * megahertz);
    EXPECT_TRUE(undo.enabled());
    EXPECT_FALSE(redo.enabled());
    history.UndoChanges();
    EXPECT_EQ(now(), before);
}

TEST_F(Paste, OfEmptyLinesBeyondTheLastChannelStoresNothing) {
    EXPECT_TRUE(pasteAt({255, 1}, "145\r\r\r"));
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(transmits(255), 145 * megahertz);
}

TEST_F(Paste, RightOfTheLastColumnIsRefused) {
    pasteAt({5, 26}, "1234\t1");
    EXPECT_EQ(boxes(), (Boxes{refusal("Unknown Column type")}));
    EXPECT_FALSE(undo.enabled());
    EXPECT_TRUE(redo.enabled());
}

TEST_F(Paste, IntoTheHeadersOrTheChannelNumbersIsRefused) {
    EXPECT_FALSE(pasteAt({5, 0}, "145"));
    EXPECT_EQ(boxes(), (Boxes{refusal("Unknown Column type")}));
    EXPECT_TRUE(pasteAt({0, 1}, "145"));
    EXPECT_EQ(boxes(), (Boxes{errorIn("PasteToCells")}));
    EXPECT_EQ(now(), before);
}

TEST_F(Paste, OfAnEmptyCellInALineIsJudged) {
    pasteAt({7, 1}, "145\t\t67.0 Hz");
    EXPECT_EQ(boxes(), (Boxes{refusal("Error in validating channel frequency (Type mismatch) RX Freq")}));
    EXPECT_EQ(now(), before);
}

TEST_F(Paste, OfNothingStoresNothingAndCanBeTakenBack) {
    desktop.clipboard = std::nullopt;
    EXPECT_FALSE(commands.PasteToCells());
    expectUntouched();
    EXPECT_TRUE(undo.enabled());
    EXPECT_FALSE(pasteAt({7, 1}, ""));
    expectUntouched();
    select({5, 1}, {7, 1});
    EXPECT_FALSE(pasteHere(""));
    expectUntouched();
}

TEST_F(Paste, FromAClipboardThatCannotBeOpenedIsTold) {
    desktop.clipboardLocked = true;
    EXPECT_FALSE(commands.PasteToCells());
    EXPECT_EQ(boxes(), (Boxes{errorIn("PasteToCells")}));
    EXPECT_EQ(now(), before);
    EXPECT_TRUE(undo.enabled());
}

TEST_F(Paste, WithoutAStoreHasNeitherBackupNorCell) {
    session.setStore(nullptr);
    EXPECT_FALSE(pasteAt({7, 1}, "145"));
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateBackUpFrequencyMemory"), errorIn("PasteToCells")}));
    EXPECT_EQ(now(), before);
    EXPECT_FALSE(undo.enabled());
}

constexpr std::size_t tenMegabytes = 10U << 20U;

TEST_F(Paste, OfTenMegabytesInOneCellIsRefusedLikeAnyOther) {
    EXPECT_FALSE(pasteAt({7, 1}, std::string(tenMegabytes, '1')));
    EXPECT_EQ(boxes(), (Boxes{refusal("Error in validating channel frequency (Overflow) RX Freq")}));
    EXPECT_EQ(now(), before);
}

TEST_F(Paste, OfTenMegabytesOfTabsIsRefused) {
    EXPECT_FALSE(pasteAt({7, 1}, std::string(tenMegabytes, '\t')));
    EXPECT_EQ(boxes(), (Boxes{refusal("Error in validating channel frequency (Type mismatch) RX Freq")}));
    EXPECT_EQ(now(), before);
}

TEST_F(Paste, OfTenMegabytesOfLinesEndsWithTheTable) {
    std::string text;
    while (text.size() < tenMegabytes) {
        text += "145\r\n";
    }
    EXPECT_TRUE(pasteAt({250, 1}, text));
    EXPECT_EQ(boxes(), (Boxes{errorIn("PasteToCells")}));
    EXPECT_EQ(transmits(255), 145 * megahertz);
    EXPECT_FALSE(pasteAt({7, 1}, std::string(tenMegabytes, '\n')));
    EXPECT_EQ(boxes(), (Boxes{errorIn("PasteToCells")}));
}

TEST_F(Paste, IntoAReplacedTableIsNotRolledBack) {
    desktop.duringBox = [this](const ui::MessageBox&) {
        table->channel(9).put(ChannelKey::TxFreq, 160'000'000);
        history.forget();
    };
    EXPECT_TRUE(pasteAt({7, 1}, "145\tnonsense"));
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(transmits(9), 160 * megahertz);
    EXPECT_EQ(transmits(7), 145 * megahertz);
    EXPECT_FALSE(redo.enabled());
}

TEST_F(Paste, EndsWhereTheControlIsClosedBehindTheRefusal) {
    desktop.duringBox = [this](const ui::MessageBox&) { session.close(); };
    EXPECT_TRUE(pasteAt({7, 1}, "145\tnonsense"));
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(transmits(7), 145 * megahertz);
}

// -- delete ----------------------------------------------------------------------------------------------------------

const ui::MessageBox question{.text = "This will delete selected channel(s). Would you like to proceed?",
                              .buttons = ui::Buttons::YesNo};

class Delete : public ClipboardEditing {
protected:
    Delete() {
        grid.GotFocus.connect([this] { ++focused; });
    }
    bool answered(ui::Answer answer) {
        desktop.answerWith(answer);
        return commands.DeleteSelectedCells();
    }
    int focused = 0;
};

TEST_F(Delete, DisablesTheSelectedChannelsAndNothingElse) {
    select({5, 3}, {7, 4});
    EXPECT_TRUE(answered(ui::Answer::Yes));
    EXPECT_EQ(boxes(), (Boxes{question}));
    for (std::int16_t channel = 5; channel <= 7; ++channel) {
        EXPECT_EQ(at(channel, ChannelKey::TxFreq), Value{std::int16_t{0}});
        EXPECT_EQ(at(channel, ChannelKey::RxFreq), Value{std::int16_t{0}});
        EXPECT_EQ(grid.text(channel, 1), "X");
    }
    EXPECT_EQ(rendered, (std::vector<std::int16_t>{5, 6, 7}));
    EXPECT_EQ(commands.extentRows(), 0);
    EXPECT_EQ(focused, 1);
    EXPECT_TRUE(undo.enabled());
    // The frequencies back, by hand: nothing else had changed.
    for (std::int16_t channel = 5; channel <= 7; ++channel) {
        model::MemoryDataStore other;
        fillDistinct(other, channel);
        for (const auto key : {ChannelKey::TxFreq, ChannelKey::RxFreq}) {
            table->channel(channel).put(key, other.channel(channel).get(key));
        }
    }
    EXPECT_EQ(now(), before);
}

TEST_F(Delete, IsTakenBackByUndo) {
    select({7, 1}, {5, 1});
    EXPECT_TRUE(answered(ui::Answer::Yes));
    EXPECT_NE(now(), before);
    history.UndoChanges();
    EXPECT_EQ(now(), before);
    EXPECT_NE(grid.text(6, 1), "X");
}

TEST_F(Delete, AnsweredWithNoOnlyClearsTheSelection) {
    select({5, 1}, {7, 1});
    commands.CopySelection();
    EXPECT_EQ(commands.extentRows(), 3);
    EXPECT_FALSE(answered(ui::Answer::No));
    EXPECT_EQ(boxes(), (Boxes{question}));
    EXPECT_EQ(now(), before);
    EXPECT_EQ(commands.extentRows(), 0);
    EXPECT_EQ(focused, 1);
    EXPECT_FALSE(undo.enabled());
    EXPECT_EQ(rendered, std::vector<std::int16_t>{});
}

TEST_F(Delete, TakesWhatIsSelectedWhenTheQuestionIsAnswered) {
    select({5, 1}, {7, 1});
    desktop.duringBox = [this](const ui::MessageBox&) { select({9, 1}, {10, 1}); };
    EXPECT_TRUE(answered(ui::Answer::Yes));
    for (std::int16_t channel = 5; channel <= 11; ++channel) {
        EXPECT_EQ(transmits(channel) == 0.0, channel == 9 || channel == 10) << channel;
    }
}

using DeleteOnScreen = Shown<Delete>;

TEST_F(DeleteOnScreen, ClearsTheSelectionBeforeTheGridGetsTheFocus) {
    for (const auto answer : {ui::Answer::Yes, ui::Answer::No}) {
        peer.notes.clear();
        select({5, 1}, {7, 1});
        answered(answer);
        EXPECT_EQ(peer.notes, (std::vector<std::string>{"refresh", "focus"}));
    }
}

TEST_F(Delete, OfTheHeaderRowIsTold) {
    select({0, 1}, {0, 1});
    answered(ui::Answer::Yes);
    EXPECT_EQ(boxes(), (Boxes{question, errorIn("DeleteSelectedCells")}));
    EXPECT_EQ(now(), before);
}

TEST_F(Delete, WithoutAStoreHasNeitherBackupNorChannel) {
    session.setStore(nullptr);
    EXPECT_FALSE(answered(ui::Answer::Yes));
    EXPECT_EQ(boxes(), (Boxes{question, errorIn("UpdateBackUpFrequencyMemory"), errorIn("DeleteSelectedCells")}));
    EXPECT_EQ(now(), before);
    EXPECT_FALSE(undo.enabled());
}

TEST_F(Delete, EndsWhereTheControlIsClosedBehindTheQuestion) {
    desktop.duringBox = [this](const ui::MessageBox&) { session.close(); };
    EXPECT_FALSE(answered(ui::Answer::Yes));
    EXPECT_EQ(now(), before);
    EXPECT_EQ(focused, 0);
}

}  // namespace
}  // namespace telvar::tests
