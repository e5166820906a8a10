// Every short sequence of edits, and thousands of random ones of twenty, against a second, small model of what undo and
// redo bring back.
#include "editing/undo.h"

#include <array>
#include <random>
#include <string>
#include <utility>

#include "editing/frmFill.h"
#include "editing_world.h"

namespace telvar::tests {
namespace {

constexpr double megahertz = 1e6;
constexpr std::int16_t firstRow = 5;
constexpr std::size_t rowsOfModel = 4;

// A table of which only the model's rows hold anything, so that whole-table copies and new starts cost little.
class SmallTable : public model::MemoryDataStore {
public:
    SmallTable() { clearRows(); }
    [[nodiscard]] base::Value readChannel(std::int16_t index, ChannelKey key) override {
        return holds(index) ? at(index, key) : base::Value{};
    }
    void writeChannel(std::int16_t index, ChannelKey key, const base::Value& value) override {
        if (holds(index)) {
            at(index, key) = value;
        }
    }
    using Rows = std::array<std::array<base::Value, model::channelKeyCount>, rowsOfModel>;
    [[nodiscard]] const Rows& rows() const noexcept { return rows_; }
    void setRows(const Rows& rows) { rows_ = rows; }

private:
    void clearRows() {
        for (auto& row : rows_) {
            for (const auto& info : model::channelKeys) {
                row.at(static_cast<std::size_t>(info.key)) = model::emptyChannelValue(info.key);
            }
        }
    }
    [[nodiscard]] static bool holds(std::int16_t index) noexcept {
        return index >= firstRow - 1 && index < firstRow - 1 + static_cast<int>(rowsOfModel);
    }
    [[nodiscard]] base::Value& at(std::int16_t index, ChannelKey key) {
        return rows_.at(static_cast<std::size_t>(index - (firstRow - 1))).at(static_cast<std::size_t>(key));
    }

    Rows rows_{};
};

enum class Operation : std::uint8_t { Paste, RefusedPaste, Delete, Undo, Redo, ChangeP25Key, Fill };
constexpr int operationCount = 7;

// The rules once more, in whole megahertz: frequencies are backed up, talk groups are not.
struct Model {
    struct Frequencies {
        int transmit = 0;
        int receive = 0;
        bool operator==(const Frequencies&) const = default;
    };
    using Table = std::array<Frequencies, rowsOfModel>;
    Table live{};
    Table backup{};
    Table redone{};
    std::array<std::string, rowsOfModel> talkgroups{"0000", "0000", "0000", "0000"};
    // What the grid shows of them: a direct change shows with the next rendering of its row.
    std::array<std::string, rowsOfModel> shown = talkgroups;
    bool canUndo = false;
    bool canRedo = false;

    void takeBackup() {
        backup = live;
        canUndo = true;
    }
    void undo() {
        redone = std::exchange(live, backup);
        canUndo = false;
        canRedo = true;
        shown = talkgroups;
    }
    void redo() {
        live = redone;
        canUndo = true;
        canRedo = false;
        shown = talkgroups;
    }
};

class Sequences : public EditingWorld {
protected:
    Sequences() {
        session.setStore(live);
        history.setTables(backedUp, toRedo);
        dialog.setCentralDataStore(live);
        dialog.step_val.setText("1000");
        for (std::int16_t row = firstRow; row < firstRow + static_cast<std::int16_t>(rowsOfModel); ++row) {
            EditingWorld::render(row);
        }
        history.forget();
    }

    void render(std::int16_t row) override {
        if (row >= firstRow && row < firstRow + static_cast<int>(rowsOfModel)) {
            EditingWorld::render(row);
        }
        rendered.clear();
    }

    // Row, values and, by turns, the column of an edit follow from the step.
    void apply(Operation operation) {
        ++step;
        const auto at = static_cast<std::size_t>(step) % (rowsOfModel - 1);
        const int row = firstRow + static_cast<int>(at);
        const int value = 100 + step % 800;
        const bool frequencies = step % 3 != 0;
        switch (operation) {
        case Operation::Paste:
            paste(at, row, value, frequencies);
            break;
        case Operation::RefusedPaste:
            refusedPaste(at, row, value, frequencies);
            break;
        case Operation::Delete:
            select({row, 1}, {row + 1, 3});
            desktop.answerWith(ui::Answer::Yes);
            commands.DeleteSelectedCells();
            model.takeBackup();
            model.live[at] = model.live[at + 1] = {};
            renderedInModel(at);
            renderedInModel(at + 1);
            break;
        case Operation::Undo:
            history.UndoChanges();
            model.undo();
            break;
        case Operation::Redo:
            history.RedoChanges();
            model.redo();
            break;
        case Operation::ChangeP25Key:
            model.talkgroups[at] = "A" + std::to_string(value);
            live->channel(static_cast<std::int16_t>(row))
                .put(ChannelKey::P25TalkgroupID, base::textValue(model.talkgroups[at]));
            break;
        case Operation::Fill:
            fillTwo(at, row, value, frequencies);
            break;
        }
        trace += " " + std::to_string(static_cast<int>(operation));
    }

    void renderedInModel(std::size_t at) { model.shown[at] = model.talkgroups[at]; }

    void paste(std::size_t at, int row, int value, bool frequencies) {
        const std::string number = std::to_string(value);
        model.takeBackup();
        if (frequencies) {
            pasteAt({row, 1}, number + "\t" + number + "\r" + number);
            model.live[at] = {value, value};
            model.live[at + 1].transmit = value;
            renderedInModel(at + 1);
        } else {
            pasteAt({row, 24}, number);
            model.talkgroups[at] = "0" + number;
        }
        renderedInModel(at);
    }

    void refusedPaste(std::size_t at, int row, int value, bool frequencies) {
        const std::string number = std::to_string(value);
        model.takeBackup();
        if (frequencies) {
            pasteAt({row, 1}, number + "\r" + number + "\tnonsense");
            model.live[at].transmit = value;
            model.live[at + 1].transmit = value;
        } else {
            pasteAt({row, 24}, number + "\tnonsense");
            model.talkgroups[at] = "0" + number;
        }
        model.undo();
    }

    // One channel after the other, a megahertz apart.
    void fillTwo(std::size_t at, int row, int value, bool transmitter) {
        dialog.setChannels(row, row + 1);
        dialog.start_freq_val.setText(std::to_string(value));
        dialog.module_sel[transmitter ? 0 : 1].setValue(true);
        dialog.fill();
        model.takeBackup();
        for (const std::size_t channel : {at, at + 1}) {
            auto& frequencies = model.live[channel];
            (transmitter ? frequencies.transmit : frequencies.receive) = value + static_cast<int>(channel - at);
            renderedInModel(channel);
        }
    }

    // One comparison, so that thousands of steps cost little.
    void expectModel() {
        static_cast<void>(boxes());
        bool same = undo.enabled() == model.canUndo && redo.enabled() == model.canRedo;
        for (std::size_t at = 0; at < rowsOfModel; ++at) {
            const auto row = static_cast<std::int16_t>(firstRow + static_cast<int>(at));
            const auto record = live->channel(row);
            const auto& wanted = model.live[at];
            same = same && base::toDouble(record.get(ChannelKey::TxFreq)) == wanted.transmit * megahertz &&
                   base::toDouble(record.get(ChannelKey::RxFreq)) == wanted.receive * megahertz &&
                   record.get(ChannelKey::P25TalkgroupID) == base::textValue(model.talkgroups[at]) &&
                   grid.text(row, 1) == (wanted.transmit == 0 ? "X" : std::to_string(wanted.transmit) + ".000000") &&
                   grid.text(row, 24) == (wanted == Model::Frequencies{} ? "X" : model.shown[at]);
        }
        ASSERT_TRUE(same) << "after" << trace;
    }

    // Everything that an operation may change.
    struct State {
        SmallTable::Rows live, backup, redone;
        std::array<std::array<std::string, editing::columnCount>, rowsOfModel> cells;
        Model model;
        bool canUndo = false;
        bool canRedo = false;
        int step = 0;
        std::string trace;
    };
    [[nodiscard]] State state() const {
        State now{.live = live->rows(),
                  .backup = backedUp->rows(),
                  .redone = toRedo->rows(),
                  .cells = {},
                  .model = model,
                  .canUndo = undo.enabled(),
                  .canRedo = redo.enabled(),
                  .step = step,
                  .trace = trace};
        for (std::size_t at = 0; at < rowsOfModel; ++at) {
            for (std::size_t column = 0; column < editing::columnCount; ++column) {
                now.cells.at(at).at(column) = grid.text(firstRow + static_cast<int>(at), static_cast<int>(column));
            }
        }
        return now;
    }
    void goBackTo(const State& former) {
        live->setRows(former.live);
        backedUp->setRows(former.backup);
        toRedo->setRows(former.redone);
        for (std::size_t at = 0; at < rowsOfModel; ++at) {
            for (std::size_t column = 0; column < editing::columnCount; ++column) {
                grid.setText(firstRow + static_cast<int>(at), static_cast<int>(column), former.cells.at(at).at(column));
            }
        }
        model = former.model;
        undo.setEnabled(former.canUndo);
        redo.setEnabled(former.canRedo);
        step = former.step;
        trace = former.trace;
    }

    // Every sequence that goes on from here, each common beginning once.
    void expectEverySequence(int length) {
        if (length == 0) {
            return;
        }
        const auto here = state();
        for (int operation = 0; operation < operationCount; ++operation) {
            apply(static_cast<Operation>(operation));
            ASSERT_NO_FATAL_FAILURE(expectModel());
            ++steps;
            ASSERT_NO_FATAL_FAILURE(expectEverySequence(length - 1));
            goBackTo(here);
        }
    }

    std::shared_ptr<SmallTable> live = std::make_shared<SmallTable>();
    std::shared_ptr<SmallTable> backedUp = std::make_shared<SmallTable>();
    std::shared_ptr<SmallTable> toRedo = std::make_shared<SmallTable>();
    editing::frmFill dialog{rows, history};
    Model model;
    int step = 0;
    int steps = 0;
    std::string trace;
};

TEST_F(Sequences, OfUpToFourOperationsFollowTheModel) {
    expectEverySequence(4);
    constexpr int n = operationCount;
    EXPECT_EQ(steps, n + n * n + n * n * n + n * n * n * n);
}

// One walk of random operations: any twenty in a row are a sequence, each of which begins at another state.
TEST_F(Sequences, OfTwentyInARandomWalkFollowTheModel) {
    constexpr int length = 20;
    constexpr int sequences = 4000;
    std::mt19937 random(20);
    std::uniform_int_distribution<int> any(0, operationCount - 1);
    for (int at = 0; at < sequences + length - 1; ++at) {
        apply(static_cast<Operation>(any(random)));
        ASSERT_NO_FATAL_FAILURE(expectModel());
        if (trace.size() > static_cast<std::size_t>(2 * length)) {
            trace.erase(0, 2);
        }
    }
}

}  // namespace
}  // namespace telvar::tests
