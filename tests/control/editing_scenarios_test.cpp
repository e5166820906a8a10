// A user's jobs at the grid, by keyboard, by pop-up menu and by the host alike: what lands where, in which words it is
// refused, and what can be taken back.
#include <algorithm>
#include <array>
#include <utility>

#include "control_world.h"
#include "ui/grid_input.h"

namespace telvar::tests {
namespace {

using control::GridCommand;

constexpr double megahertz = 1e6;

const ui::MessageBox question{.text = "This will delete selected channel(s). Would you like to proceed?",
                              .buttons = ui::Buttons::YesNo};

enum class Way : std::uint8_t { Keyboard, Menu, Host };

class Jobs : public ControlWorld, public testing::WithParamInterface<Way> {
protected:
    Jobs() {
        for (std::int16_t channel = 1; channel <= 6; ++channel) {
            const std::int32_t hertz = 145'000'000 + channel * 12'500;
            fill(*store, channel,
                 {{ChannelKey::TxFreq, hertz},
                  {ChannelKey::RxFreq, hertz + 600'000},
                  {ChannelKey::TxSub, 67.0F + static_cast<float>(channel)}});
        }
        control->Prepare();
        control->UpdateControlsFromMemory();
        before = tableText(*store);
    }

    void give(GridCommand command) {
        if (GetParam() == Way::Host || (GetParam() == Way::Keyboard && command >= GridCommand::Undo)) {
            control->run(command);
        } else if (GetParam() == Way::Menu) {
            constexpr std::array items{"mnuPopUpMenuCopy", "mnuPopUpMenuPaste", "mnuPopUpMenuDelete",
                                       "mnuPopUpMenuUndo", "mnuPopUpMenuRedo"};
            desktop.menuChoice = items.at(static_cast<std::size_t>(command));
            grid().MouseDown({.button = ui::MouseButton::Right, .shift = 0, .at = {30, 40}});
        } else {
            press(command);
        }
    }
    void press(GridCommand command) {
        const ui::GridLayout layout(grid(), {600, 400}, {});
        ui::GridInput input(grid());
        const bool remove = command == GridCommand::Delete;
        input.keyDown({remove                         ? ui::key::deleteKey
                       : command == GridCommand::Copy ? ui::key::c
                                                      : ui::key::v,
                       remove ? ui::shift::none : ui::shift::control},
                      layout);
    }
    void pasteAt(ui::Cell current, ui::Cell end, const std::string& text) {
        desktop.clipboard = text;
        grid().select(current, end);
        give(GridCommand::Paste);
    }
    void pasteAt(ui::Cell cell, const std::string& text) { pasteAt(cell, cell, text); }
    [[nodiscard]] static Boxes refusal(const std::string& error) {
        return {{.text = "Error during pasting data. " + error + ". Unable to continue."}};
    }
    [[nodiscard]] std::string now() { return tableText(*store); }
    [[nodiscard]] double transmits(std::int16_t channel) {
        return base::toDouble(store->channel(channel).get(ChannelKey::TxFreq));
    }

    std::string before;
};

TEST_P(Jobs, ABlockOfTwoByThreeGoesElsewhere) {
    grid().select({2, 1}, {3, 3});
    give(GridCommand::Copy);
    EXPECT_EQ(desktop.clipboard, "145.025000\t145.625000\t69.0 Hz\r145.037500\t145.637500\t70.0 Hz");
    grid().select({20, 1}, {20, 1});
    give(GridCommand::Paste);
    grid().select({20, 1}, {21, 3});
    give(GridCommand::Copy);
    EXPECT_EQ(desktop.clipboard, "145.025000\t145.625000\t69.0 Hz\r145.037500\t145.637500\t70.0 Hz");
    EXPECT_EQ(boxes(), Boxes{});
    give(GridCommand::Undo);
    EXPECT_EQ(now(), before);
    EXPECT_EQ(grid().text(20, 1), "X");
    give(GridCommand::Redo);
    EXPECT_EQ(grid().text(21, 3), "70.0 Hz");
}

TEST_P(Jobs, TheTextOfASpreadsheetIsPasted) {
    pasteAt({20, 1}, "145.5\t146.5\tDisabled\r\n147.5\t148.5\t023\r\n");
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(grid().text(20, 3), "Disabled");
    EXPECT_EQ(grid().text(21, 3), "023");
    EXPECT_EQ(grid().text(22, 1), "X");
}

TEST_P(Jobs, OneLineFillsFiveSelectedRows) {
    for (const auto& [current, end] : {std::pair<ui::Cell, ui::Cell>{{20, 1}, {24, 1}}, {{34, 1}, {30, 2}}}) {
        pasteAt(current, end, "145.5\t146.5");
        for (int row = std::min(current.row, end.row); row <= std::max(current.row, end.row); ++row) {
            EXPECT_EQ(grid().text(row, 2), "146.500000") << row;
        }
        EXPECT_EQ(grid().text(std::max(current.row, end.row) + 1, 1), "X");
    }
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_P(Jobs, ATextThatEndsWithALineBreakFillsItsLinesOnly) {
    pasteAt({20, 1}, {24, 1}, "145.5\r\n");
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(grid().text(20, 1), "145.500000");
    EXPECT_EQ(grid().text(21, 1), "X");
}

TEST_P(Jobs, APasteThatIsRefusedAtItsThirdCellLeavesTheTableAndCanBeRedone) {
    pasteAt({2, 1}, "145.5\t146.5\t64Hz");
    EXPECT_EQ(boxes(), refusal("Invalid CTCSS value (out of range, must be 65Hz to 257Hz) TX Subtone"));
    EXPECT_EQ(now(), before);
    EXPECT_EQ(grid().text(2, 1), "145.025000");
    EXPECT_FALSE(control->commandEnabled(GridCommand::Undo));
    EXPECT_TRUE(control->commandEnabled(GridCommand::Redo));
    give(GridCommand::Redo);
    EXPECT_EQ(grid().text(2, 1), "145.500000");
    EXPECT_EQ(grid().text(2, 2), "146.500000");
    EXPECT_EQ(grid().text(2, 3), "69.0 Hz");
}

TEST_P(Jobs, APasteBeyondTheLastChannelKeepsWhatFitted) {
    pasteAt({254, 1}, "145\r146\r147");
    EXPECT_EQ(boxes(), (Boxes{errorIn("PasteToCells")}));
    EXPECT_EQ(grid().text(255, 1), "146.000000");
    EXPECT_TRUE(control->commandEnabled(GridCommand::Undo));
    give(GridCommand::Undo);
    EXPECT_EQ(now(), before);
}

TEST_P(Jobs, APasteRightOfTheLastColumnIsRolledBack) {
    pasteAt({2, 26}, "1234\t1");
    EXPECT_EQ(boxes(), refusal("Unknown Column type"));
    EXPECT_TRUE(control->commandEnabled(GridCommand::Redo));
    EXPECT_FALSE(control->commandEnabled(GridCommand::Undo));
    // Codes are no part of what is put back.
    EXPECT_EQ(grid().text(2, 26), "1234");
}

TEST_P(Jobs, ADeletionAsksAndComesBack) {
    grid().select({2, 1}, {4, 3});
    desktop.answerWith(ui::Answer::No);
    give(GridCommand::Delete);
    EXPECT_EQ(boxes(), (Boxes{question}));
    EXPECT_EQ(now(), before);
    desktop.answerWith(ui::Answer::Yes);
    give(GridCommand::Delete);
    EXPECT_EQ(boxes(), (Boxes{question}));
    EXPECT_EQ(grid().text(2, 1), "X");
    EXPECT_EQ(grid().text(4, 8), "X");
    EXPECT_EQ(grid().text(5, 1), "145.062500");
    give(GridCommand::Undo);
    EXPECT_EQ(now(), before);
}

TEST_P(Jobs, AClipboardWithoutTextChangesNothing) {
    grid().select({2, 1}, {3, 1});
    desktop.clipboard = std::nullopt;
    give(GridCommand::Paste);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(now(), before);
}

TEST_P(Jobs, ALockedClipboardIsTold) {
    grid().select({2, 1}, {3, 1});
    desktop.clipboardLocked = true;
    give(GridCommand::Paste);
    give(GridCommand::Copy);
    EXPECT_EQ(boxes(), (Boxes{errorIn("PasteToCells"), errorIn("CopySelection")}));
    EXPECT_EQ(now(), before);
}

INSTANTIATE_TEST_SUITE_P(Ways, Jobs, testing::Values(Way::Keyboard, Way::Menu, Way::Host),
                         [](const testing::TestParamInfo<Way>& way) {
                             return way.param == Way::Keyboard ? "Keyboard" : way.param == Way::Menu ? "Menu" : "Host";
                         });

// -- the menu --------------------------------------------------------------------------------------------------------

class MenuStates : public Jobs {};

TEST_P(MenuStates, FollowWhatCanBeTakenBack) {
    const auto states = [this] {
        return std::pair(control->frmCE.mnuPopUpMenuUndo.enabled(), control->frmCE.mnuPopUpMenuRedo.enabled());
    };
    EXPECT_EQ(states(), std::pair(false, false));
    pasteAt({2, 1}, "145.5");
    EXPECT_EQ(states(), std::pair(true, false));
    give(GridCommand::Undo);
    EXPECT_EQ(states(), std::pair(false, true));
    give(GridCommand::Redo);
    EXPECT_EQ(states(), std::pair(true, false));
    pasteAt({2, 1}, "nonsense");
    EXPECT_EQ(states(), std::pair(false, true));
    EXPECT_EQ(boxes().size(), 1U);
    control->UpdateControlsFromMemory();
    EXPECT_EQ(states(), std::pair(false, false));
}

INSTANTIATE_TEST_SUITE_P(Ways, MenuStates, testing::Values(Way::Menu));

// -- while the message pump runs -------------------------------------------------------------------------------------

class Pumping : public Jobs {};

// The channel-select button waits for the radio and lets everything else happen meanwhile.
TEST_P(Pumping, APasteInsideAWaitIsWhole) {
    store->put(StoreMember::CommsBusy, true);
    store->put(StoreMember::ChannelChangeAllowed, true);
    control->txtChannelSelect.setText("4");
    std::size_t seen = 0;
    desktop.whenPumping([&] {
        pasteAt({20, 1}, "145.5\t146.5\r147.5\t148.5");
        ++seen;
    });
    desktop.whenPumping([&] {
        give(GridCommand::Undo);
        EXPECT_EQ(now(), before);
        give(GridCommand::Redo);
        ++seen;
    });
    desktop.whenPumping([&] { store->put(StoreMember::CommsBusy, false); });
    before = now();
    store->put(StoreMember::SelectedChannel, std::int16_t{0});
    control->cmdChannelSelect.setEnabled(true);
    control->cmdChannelSelect.userPress();
    EXPECT_EQ(seen, 2U);
    EXPECT_EQ(grid().text(21, 2), "148.500000");
    EXPECT_EQ(link->calls, (Log{"SelectChannel 4"}));
    EXPECT_EQ(boxes(), Boxes{});
}

INSTANTIATE_TEST_SUITE_P(Ways, Pumping, testing::Values(Way::Keyboard, Way::Menu, Way::Host));

}  // namespace
}  // namespace telvar::tests
