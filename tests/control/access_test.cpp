#include <array>

#include "control_world.h"
#include "support/answering_store.h"
#include "support/failing_store.h"
#include "support/recording_store.h"

namespace telvar::tests {
namespace {

using ui::CellRange;
using Widths = std::vector<int>;

class Access : public ControlWorld {
protected:
    Access() { control->Prepare(); }
    // Of columns 9 to 26, and of the ones before them, which every level shows.
    [[nodiscard]] Widths widths() const { return widthsFrom(9, 26); }
    [[nodiscard]] Widths firstWidths() const { return widthsFrom(0, 8); }
    [[nodiscard]] Widths widthsFrom(int first, int last) const {
        Widths all;
        for (int column = first; column <= last; ++column) {
            all.push_back(grid().columnWidth(column));
        }
        return all;
    }
    [[nodiscard]] std::vector<int> greenHeaders() const {
        std::vector<int> columns;
        for (int column = 0; column < 27; ++column) {
            if (grid().cellBackColor(0, column) == 0x00FF00U) {
                columns.push_back(column);
            } else {
                EXPECT_EQ(grid().cellBackColor(0, column), 0U);
            }
        }
        return columns;
    }
    [[nodiscard]] static std::vector<int> from(int first, int last) {
        std::vector<int> columns;
        for (int column = first; column <= last; ++column) {
            columns.push_back(column);
        }
        return columns;
    }
};

const Widths fullWidths{700, 1300, 900,  1100, 1200, 900,  1100, 900, 1050,
                        650, 650,  1050, 650,  650,  1050, 1250, 900, 900};
const Widths noWidths(18, 0);
const Widths p25Widths = [] {
    Widths widths(18, 0);
    widths[14] = 1050;
    widths[15] = 1250;
    widths[16] = 900;
    widths[17] = 900;
    return widths;
}();

struct Level {
    std::int16_t level;
    bool board;
    const Widths& expected;
};
class Levels : public Access, public testing::WithParamInterface<Level> {};

TEST_P(Levels, ShowTheirColumns) {
    store->put(StoreMember::P25BoardFitted, GetParam().board);
    for (const std::int16_t before : std::array<std::int16_t, 3>{0, 4, 5}) {
        control->UpdateAccess(before);
        control->UpdateAccess(GetParam().level);
        EXPECT_EQ(widths(), GetParam().expected) << "after level " << before;
    }
    EXPECT_EQ(firstWidths(), (Widths{400, 1100, 1100, 950, 950, 1100, 700, 1370, 1350}));
    EXPECT_EQ(control->accessLevel(), GetParam().level);
    EXPECT_EQ(control->frmCE.accessLevel(), GetParam().level);
    EXPECT_EQ(boxes(), Boxes{});
}

INSTANTIATE_TEST_SUITE_P(All, Levels,
                         testing::Values(Level{-1, true, noWidths}, Level{0, true, noWidths}, Level{2, true, noWidths},
                                         Level{3, true, p25Widths}, Level{4, true, p25Widths},
                                         Level{3, false, noWidths}, Level{4, false, noWidths},
                                         Level{5, false, fullWidths}, Level{5, true, fullWidths},
                                         Level{32767, false, fullWidths}));

TEST_F(Access, TheAdvancedColumnsAreCentredAtEveryLevel) {
    for (const std::int16_t level : std::array<std::int16_t, 2>{5, 0}) {
        grid().setColumnAlignment(9, ui::Alignment::LeftCentre);
        control->UpdateAccess(level);
        for (int column = 9; column <= 26; ++column) {
            EXPECT_EQ(grid().cellAlignment(1, column), ui::Alignment::Centre);
            EXPECT_EQ(grid().cellAlignment(255, column), ui::Alignment::Centre);
        }
        EXPECT_EQ(grid().cellAlignment(1, 8), ui::Alignment::LeftCentre);
    }
}

TEST_F(Access, FullAccessAsksTheStoreNothing) {
    const auto recording = decorate<RecordingStore>();
    control->UpdateAccess(5);
    EXPECT_EQ(recording->calls(), Log{});
    control->UpdateAccess(2);
    EXPECT_EQ(recording->calls(), (Log{"P25BoardFitted"}));
}

TEST_F(Access, AFailingStoreIsToldAndTheLevelIsRemembered) {
    control->UpdateAccess(5);
    decorate<FailingStore>()->failAt(1);
    control->UpdateAccess(3);
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateAccess")}));
    EXPECT_EQ(control->accessLevel(), 3);
    EXPECT_EQ(grid().columnWidth(9), 0);
    control->setCentralDataStore(nullptr);
    control->UpdateAccess(3);
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateAccess")}));
}

struct Unreadable {
    const char* name;
    base::Value board;
};
class UnreadableBoard : public Access, public testing::WithParamInterface<Unreadable> {};

TEST_P(UnreadableBoard, CountsAsNotFittedAndIsToldOnce) {
    store->put(StoreMember::P25BoardFitted, true);
    control->DistributeDataStoreLink();
    for (const std::int16_t before : std::array<std::int16_t, 2>{5, 3}) {
        control->setCentralDataStore(store);
        control->UpdateAccess(before);
        ASSERT_EQ(grid().columnWidth(26), 900);
        decorate<AnsweringStore>()->answer(StoreMember::P25BoardFitted, GetParam().board);
        control->DistributeDataStoreLink();
        grid().setColumnAlignment(26, ui::Alignment::LeftCentre);
        control->UpdateAccess(4);
        EXPECT_EQ(widths(), noWidths) << "after level " << before;
        EXPECT_EQ(grid().cellAlignment(1, 26), ui::Alignment::Centre);
        EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateAccess")}));
    }
}

INSTANTIATE_TEST_SUITE_P(All, UnreadableBoard,
                         testing::Values(Unreadable{"NullOrObject", base::Unusable{}},
                                         Unreadable{"Text", std::string("fitted")}),
                         [](const auto& unreadable) { return std::string(unreadable.param.name); });

TEST_F(Access, ABoardThatTheStoreCannotTellOfCountsAsNotFittedAtEveryLevelBelowFullAccess) {
    store->put(StoreMember::P25BoardFitted, true);
    const auto failing = decorate<FailingStore>();
    for (std::int16_t level = 0; level < 5; ++level) {
        failing->failAt(0);
        control->UpdateAccess(5);
        failing->failAt(1);
        control->UpdateAccess(level);
        EXPECT_EQ(widths(), noWidths) << "level " << level;
        EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateAccess")}));
    }
    control->setCentralDataStore(nullptr);
    control->UpdateAccess(5);
    EXPECT_EQ(boxes(), Boxes{});
    control->UpdateAccess(4);
    EXPECT_EQ(widths(), noWidths);
    EXPECT_EQ(boxes(), (Boxes{errorIn("UpdateAccess")}));
}

// -- lock modes ------------------------------------------------------------------------------------------------------

TEST_F(Access, LockPotsMarksTheLevelsAndTheSynthesizer) {
    control->optLockMode[1].userClick();
    EXPECT_EQ(greenHeaders(), from(9, 22));
    EXPECT_EQ(control->frmCE.LockDataMode(), 1);
}

TEST_F(Access, LockChannelSettingsMarksEverythingBehindTheSubtones) {
    control->optLockMode[2].userClick();
    EXPECT_EQ(greenHeaders(), from(5, 26));
    EXPECT_EQ(control->frmCE.LockDataMode(), 2);
}

TEST_F(Access, AnEarlierMarkingIsClearedFirst) {
    control->optLockMode[2].userClick();
    control->optLockMode[1].userClick();
    EXPECT_EQ(greenHeaders(), from(9, 22));
    control->optLockMode[0].userClick();
    EXPECT_EQ(greenHeaders(), std::vector<int>{});
    EXPECT_EQ(control->frmCE.LockDataMode(), 0);
}

TEST_F(Access, TheMarkingPutsTheSelectionBack) {
    grid().select({9, 5}, {3, 2});
    int selections = 0;
    grid().SelectionChanged.connect([&] { ++selections; });
    control->optLockMode[2].userClick();
    EXPECT_EQ(grid().row(), 9);
    EXPECT_EQ(grid().column(), 5);
    EXPECT_EQ(grid().rowSel(), 3);
    EXPECT_EQ(grid().columnSel(), 2);
    EXPECT_EQ(selections, 0);
    EXPECT_TRUE(grid().redraw());
}

TEST_F(Access, TheMarkingNeedsNoStore) {
    control->setCentralDataStore(nullptr);
    control->optLockMode[1].userClick();
    EXPECT_EQ(greenHeaders(), from(9, 22));
    EXPECT_EQ(boxes(), Boxes{});
}

// -- the host's switch -----------------------------------------------------------------------------------------------

TEST_F(Access, TheHostSwitchesTheRadiosCommand) {
    control->DisableMyCommands("RS232");
    EXPECT_FALSE(control->cmdChannelSelect.enabled());
    control->EnableMyCommands("RS232");
    EXPECT_TRUE(control->cmdChannelSelect.enabled());
}

TEST_F(Access, TheHostsSwitchRaisesNothingAndAsksNobody) {
    const auto recording = decorate<RecordingStore>();
    for (const std::string name : {"RS232", "rs232", "All", ""}) {
        control->DisableMyCommands(name);
        control->EnableMyCommands(name);
    }
    EXPECT_EQ(events, Log{});
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(recording->calls(), Log{});
    EXPECT_EQ(link->calls, Log{});
}

TEST_F(Access, AnyOtherNameIsIgnored) {
    for (const std::string name : {"rs232", "RS232 ", " RS232", "RS23", "RS2322", "All", ""}) {
        control->DisableMyCommands(name);
        EXPECT_TRUE(control->cmdChannelSelect.enabled()) << name;
    }
    control->DisableMyCommands("RS232");
    control->EnableMyCommands("rs232");
    EXPECT_FALSE(control->cmdChannelSelect.enabled());
}

}  // namespace
}  // namespace telvar::tests
