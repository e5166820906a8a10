// Editing commands whose store ends the control, or fails, or both, inside any of its calls: they end quietly where the
// control is gone, tell once where it is not, and change nothing afterwards.
#include <functional>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "control_world.h"
#include "support/failing_store.h"

namespace telvar::tests {
namespace {

using control::GridCommand;

constexpr int valuesOfATable = 255 * 28;
constexpr int guard = 1;  // the store is asked first whether a load runs

// Does something inside its n-th call, counted from 1, and may fail there as well.
class EventfulStore : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    void at(int call, bool fails, std::function<void()> happening) {
        calls_ = 0;
        call_ = call;
        fails_ = fails;
        happening_ = std::move(happening);
    }
    [[nodiscard]] int calls() const noexcept { return calls_; }
    [[nodiscard]] int writesSince() const noexcept { return writes_; }

protected:
    void onCall(const StoreCall& call) override {
        const bool now = ++calls_ == call_;
        writes_ += calls_ > call_ && (call.kind == StoreCall::Kind::WriteChannel || call.kind == StoreCall::Kind::Put);
        if (now) {
            writes_ = 0;
            happening_();
            if (fails_) {
                throw base::Failure(FailingStore::description);
            }
        }
    }

private:
    int calls_ = 0;
    int call_ = 0;
    int writes_ = 0;
    bool fails_ = false;
    std::function<void()> happening_ = [] {};
};

class EndsInside : public ControlWorld, public testing::WithParamInterface<GridCommand> {
protected:
    EndsInside() { desktop.clipboard = "145.5\t146.5\t67.0 Hz\t023\tDuplex\tYes\tWide\r147.5"; }
    // A new control over the table as it was, ready for the command.
    std::shared_ptr<EventfulStore> begin() {
        for (std::int16_t channel = 1; channel <= 6; ++channel) {
            fillDistinct(*store, channel);
        }
        control = std::make_unique<ChannelInformation>(
            control::Surroundings{.desktop = desktop, .makeTable = nullptr, .logPath = logPath});
        control->Prepare();
        auto eventful = std::make_shared<EventfulStore>(*store);
        control->setCentralDataStore(eventful);
        grid().select({2, 1}, {3, 2});
        if (GetParam() == GridCommand::Undo || GetParam() == GridCommand::Redo) {
            control->run(GridCommand::Paste);
        }
        if (GetParam() == GridCommand::Redo) {
            control->run(GridCommand::Undo);
        }
        return eventful;
    }
    int run(EventfulStore& eventful, int call, bool fails, const std::function<void()>& happening) {
        if (GetParam() == GridCommand::Delete) {
            desktop.answerWith(ui::Answer::Yes);
        }
        eventful.at(call, fails, happening);
        control->run(GetParam());
        return eventful.calls();
    }
    [[nodiscard]] Boxes questions() const {
        return GetParam() == GridCommand::Delete
                   ? Boxes{{.text = "This will delete selected channel(s). Would you like to proceed?",
                            .buttons = ui::Buttons::YesNo}}
                   : Boxes{};
    }
    // Copies of whole tables are sampled, the rest is walked call by call.
    [[nodiscard]] std::vector<int> callsWorthEnding() {
        const int total = run(*begin(), 0, false, [] {});
        static_cast<void>(boxes());
        constexpr int sample = 487;
        const int copies = guard + (GetParam() == GridCommand::Undo ? 2 * valuesOfATable : valuesOfATable);
        std::vector<int> calls{copies - 1, copies, copies + 1};
        for (int call = guard + 1; call <= total; call += call < copies ? sample : 1 + (total - copies) / 100) {
            calls.push_back(call);
        }
        for (int call = total - 3; call <= total; ++call) {
            calls.push_back(call);
        }
        return calls;
    }
};

TEST_P(EndsInside, AnyCallToTheStore) {
    for (const bool fails : {false, true}) {
        for (const int call : callsWorthEnding()) {
            const auto eventful = begin();
            run(*eventful, call, fails, [this] { control->close(); });
            EXPECT_TRUE(control->closed());
            EXPECT_EQ(boxes(), questions());
            // A copy that was under way may run out; the flags of a changed table are no longer set.
            EXPECT_TRUE(grid().redraw());
            ASSERT_FALSE(HasFailure()) << call << (fails ? " failing" : "");
        }
    }
}

TEST_P(EndsInside, TheCallBeforeAnythingIsAskedOrChanged) {
    const auto before = tableText(*store);
    const auto eventful = begin();
    const auto table = tableText(*store);
    EXPECT_EQ(run(*eventful, guard, false, [this] { control->close(); }), guard);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(tableText(*store), table);
    EXPECT_NE(before, table);
}

TEST_P(EndsInside, TheBoxOfAnyFailure) {
    for (const int call : callsWorthEnding()) {
        const auto eventful = begin();
        desktop.duringBox = [this](const ui::MessageBox& box) {
            if (box.buttons == ui::Buttons::Ok) {
                control->close();
            }
        };
        run(*eventful, call, true, [] {});
        desktop.duringBox = nullptr;
        EXPECT_TRUE(control->closed());
        const auto told = boxes();
        ASSERT_EQ(told.size(), questions().size() + 1) << call;
        EXPECT_NE(told.back().text.find("rror"), std::string::npos);
        EXPECT_EQ(eventful->writesSince(), 0);
        EXPECT_TRUE(grid().redraw());
        ASSERT_FALSE(HasFailure()) << call;
    }
}

INSTANTIATE_TEST_SUITE_P(Commands, EndsInside,
                         testing::Values(GridCommand::Paste, GridCommand::Delete, GridCommand::Undo,
                                         GridCommand::Redo));

}  // namespace
}  // namespace telvar::tests
