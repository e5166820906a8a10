// A refused paste's cell, which the box does not name.
#include "control_world.h"

namespace telvar::tests {
namespace {

using control::GridCommand;
using editing::RefusedCell;

class RefusedPaste : public ControlWorld {
protected:
    RefusedPaste() {
        control->Prepare();
        control->UpdateControlsFromMemory();
    }
    void paste(int row, int column, const std::string& text) {
        desktop.clipboard = text;
        grid().setCurrent({row, column});
        control->run(GridCommand::Paste);
    }
};

TEST_F(RefusedPaste, NamesTheChannelAndTheColumnOfTheCell) {
    EXPECT_EQ(control->lastRefusal(), std::nullopt);
    paste(11, 1, "145.5\t145.5\r\n145.5\t145.5\tnonsense");
    ASSERT_EQ(control->lastRefusal(), (RefusedCell{.row = 12, .column = 3}));
    EXPECT_EQ(editing::placeOf(*control->lastRefusal()), "channel 12, Tx Subtone");
    EXPECT_EQ(boxes().size(), 1U);
}

TEST_F(RefusedPaste, IsKnownWhileItsBoxIsShown) {
    std::optional<RefusedCell> known;
    int counted = 0;
    desktop.duringBox = [&](const ui::MessageBox&) {
        known = control->lastRefusal();
        counted = control->refusedPastes();
    };
    paste(3, 6, "perhaps");
    EXPECT_EQ(known, (RefusedCell{.row = 3, .column = 6}));
    EXPECT_EQ(counted, 1);
}

TEST_F(RefusedPaste, IsForgottenByOneThatGoesThroughAndCountedAgainAtTheSameCell) {
    paste(3, 6, "perhaps");
    paste(3, 6, "perhaps");
    EXPECT_EQ(control->refusedPastes(), 2);
    paste(3, 6, "Yes");
    EXPECT_EQ(control->lastRefusal(), std::nullopt);
    EXPECT_EQ(control->refusedPastes(), 2);
}

TEST_F(RefusedPaste, NamesAColumnBehindTheLastByItsNumber) {
    paste(3, 26, "0293\tmore");
    ASSERT_EQ(control->lastRefusal(), (RefusedCell{.row = 3, .column = 27}));
    EXPECT_EQ(editing::placeOf(*control->lastRefusal()), "channel 3, column 27");
}

}  // namespace
}  // namespace telvar::tests
