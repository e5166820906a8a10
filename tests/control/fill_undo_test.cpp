// Fill among the other commands that change the table, as the user and the host run them: random sequences against a
// second, small model of the transmit frequencies and of what undo and redo bring back.
#include <array>
#include <random>
#include <string>
#include <utility>

#include "control_world.h"

namespace telvar::tests {
namespace {

using control::GridCommand;

constexpr int megahertz = 1'000'000;
constexpr std::size_t channelsOfModel = 6;

// Transmit frequencies in hertz.
struct FrequencyModel {
    using Table = std::array<int, channelsOfModel>;
    Table live{};
    Table backup{};
    Table redone{};
    bool canUndo = false;
    bool canRedo = false;

    void takeBackup() {
        backup = live;
        canUndo = true;
    }
    void undo() {
        if (std::exchange(canUndo, false)) {
            redone = std::exchange(live, backup);
            canRedo = true;
        }
    }
    void redo() {
        if (std::exchange(canRedo, false)) {
            live = redone;
            canUndo = true;
        }
    }
};

class FillAndUndo : public ControlWorld {
protected:
    FillAndUndo() {
        control->DistributeDataStoreLink();
        control->UpdateAccess(5);
        control->Prepare();
        control->UpdateControlsFromMemory();
    }

    void fillDown(int first, int last, int frequency) {
        control->fgdDatabase.select({first, 1}, {last, 1});
        desktop.duringModal = [&](ui::Form&) {
            control->frmFill().start_freq_val.setText(std::to_string(frequency));
            control->frmFill().ok_but.userPress();
        };
        control->ChannelFillDown();
    }
    void cancelledFill() {
        desktop.duringModal = [&](ui::Form&) { control->frmFill().cancel_but.userPress(); };
        control->ChannelFillSeries();
    }
    void paste(int row, int frequency) {
        grid().setCurrent({row, 1});
        desktop.clipboard = std::to_string(frequency);
        control->run(GridCommand::Paste);
    }
    void remove(int row) {
        grid().setCurrent({row, 1});
        desktop.answerWith(ui::Answer::Yes);
        control->run(GridCommand::Delete);
    }

    // Rows and values follow from the step.
    void apply(int operation, int step) {
        const int row = 1 + step % 3;
        const int frequency = 100 + step % 800;
        const auto at = static_cast<std::size_t>(row - 1);
        switch (operation) {
        case 0:
            fillDown(row, row + 2, frequency);
            model.takeBackup();
            model.live.at(at) = model.live.at(at + 1) = model.live.at(at + 2) = frequency * megahertz;
            break;
        case 1:
            paste(row, frequency);
            model.takeBackup();
            model.live.at(at) = frequency * megahertz;
            break;
        case 2:
            remove(row);
            model.takeBackup();
            model.live.at(at) = 0;
            break;
        case 3:
            control->run(GridCommand::Undo);
            model.undo();
            break;
        case 4:
            control->run(GridCommand::Redo);
            model.redo();
            break;
        default:
            cancelledFill();
            break;
        }
    }
    static constexpr int operations = 6;

    [[nodiscard]] std::string present() {
        std::string text;
        for (std::int16_t channel = 1; channel <= static_cast<std::int16_t>(channelsOfModel); ++channel) {
            text += std::to_string(base::toInt32(store->channel(channel).get(ChannelKey::TxFreq))) + " ";
        }
        return text + (control->commandEnabled(GridCommand::Undo) ? "undo " : "") +
               (control->commandEnabled(GridCommand::Redo) ? "redo" : "");
    }
    [[nodiscard]] std::string modelled() const {
        std::string text;
        for (const int frequency : model.live) {
            text += std::to_string(frequency) + " ";
        }
        return text + (model.canUndo ? "undo " : "") + (model.canRedo ? "redo" : "");
    }

    FrequencyModel model;
};

TEST_F(FillAndUndo, AFillIsTakenBackAndDoneAgain) {
    fillDown(1, 3, 450);
    EXPECT_EQ(present(), "450000000 450000000 450000000 0 0 0 undo ");
    control->run(GridCommand::Undo);
    EXPECT_EQ(present(), "0 0 0 0 0 0 redo");
    EXPECT_EQ(grid().text(2, 1), "X");
    control->run(GridCommand::Redo);
    EXPECT_EQ(present(), "450000000 450000000 450000000 0 0 0 undo ");
    EXPECT_EQ(grid().text(2, 1), "450.000000");
    control->run(GridCommand::Undo);
    EXPECT_EQ(present(), "0 0 0 0 0 0 redo");
}

TEST_F(FillAndUndo, ACancelledFillTakesNoBackup) {
    fillDown(1, 3, 450);
    cancelledFill();
    control->run(GridCommand::Undo);
    EXPECT_EQ(present(), "0 0 0 0 0 0 redo");
    cancelledFill();
    EXPECT_EQ(present(), "0 0 0 0 0 0 redo");
}

TEST_F(FillAndUndo, RandomSequencesFollowTheModel) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> any(0, operations - 1);
    for (int step = 0; step < 600; ++step) {
        const int operation = any(random);
        apply(operation, step);
        ASSERT_EQ(present(), modelled()) << "operation " << operation << " at step " << step;
    }
    static_cast<void>(boxes());
}

}  // namespace
}  // namespace telvar::tests
