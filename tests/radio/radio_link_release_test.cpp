// A link that is let go from inside its own work: by the owner of the data store that it writes, by a listener, or
// while the radio has gone silent.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <utility>
#include <vector>

#include "link_core.h"
#include "radio/image_file.h"
#include "support/served_radio.h"
#include "support/store_decorator.h"
#include "tables.h"

namespace telvar::tests {
namespace {

using model::StoreMember;

// Does something at one of its writes, counted from 1.
class ActingStore final : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;

    int writes = 0;
    int actingWrite = 0;
    std::function<void()> act;

private:
    void onCall(const StoreCall& call) override {
        if (call.kind != StoreCall::Kind::Put && call.kind != StoreCall::Kind::WriteChannel) {
            return;
        }
        if (++writes == actingWrite) {
            std::exchange(act, nullptr)();
        }
    }
};

struct ReleasedLink : LinkCore {
    // A new link to a radio that holds the first table, over a store that holds the second one and lets the link go at
    // that write.
    void startLoading(int write) {
        ends.clear();
        fill(*store, 2);
        acting = std::make_shared<ActingStore>(*store);
        acting->actingWrite = write;
        acting->act = [this] {
            link.reset();
            reported = progress.size();
        };
        link = made(std::make_unique<VirtualClock>());
        link->setDataStore(acting);
        std::string text;
        bool flag = true;
        link->LoadChannelTable(text, flag);
    }
    void expectSilence() {
        EXPECT_TRUE(dispatcher.runUntil([this] { return dispatcher.idle(); }));
        EXPECT_EQ(progress.size(), reported);
        EXPECT_TRUE(ends.empty());
        EXPECT_EQ(shared(StoreMember::CommsBusy), base::Value{false});
    }

    std::shared_ptr<ActingStore> acting;
    std::size_t reported = 0;
};

TEST_F(ReleasedLink, SaysNothingMoreWhicheverWriteOfALoadLetItGo) {
    settings.stateFile = folder / "radio.telvar-radio";
    ASSERT_TRUE(radio::saveImage(settings.stateFile, sampleImage(1)));
    startLoading(0);
    ASSERT_TRUE(std::get<1>(ended()));
    const int writes = acting->writes;
    // The busy flag, the progress, some channels, the flags of a change, the end of the progress, the busy flag again.
    constexpr int progressWrites = 110;
    ASSERT_GT(writes, progressWrites);
    std::vector<int> walked{1, 2, 3, writes - 3, writes - 2, writes - 1, writes};
    for (int write = 4; write < writes; write += write < progressWrites ? 9 : 997) {
        walked.push_back(write);
    }
    for (const int write : walked) {
        startLoading(write);
        ASSERT_TRUE(dispatcher.runUntil([this] { return link == nullptr; })) << write;
        expectSilence();
    }
}

TEST_F(ReleasedLink, SaysNothingMoreWhenTheSelectedChannelLetItGo) {
    acting = std::make_shared<ActingStore>(*store);
    // Behind the busy flag.
    acting->actingWrite = 2;
    acting->act = [this] { link.reset(); };
    link->setDataStore(acting);
    std::string channel = "7";
    link->SelectChannel(channel);
    ASSERT_TRUE(dispatcher.runUntil([this] { return link == nullptr; }));
    expectSilence();
}

TEST_F(ReleasedLink, SaysNothingMoreWhenTheReportOfAnAbortedStatusLetItGo) {
    SilentRadio silent;
    link = onSystemTime(silent.address());
    link->StatusReported.connect([this](bool, const std::string&) { link.reset(); });
    link->queryStatus();
    link->AbortTransfer();
    ASSERT_TRUE(dispatcher.runUntil([this] { return link == nullptr; }));
    EXPECT_EQ(reports.size(), 1U);
    expectSilence();
}

// Only the link keeps the store, and the store lets the link go while it is read.
TEST_F(ReleasedLink, OutlivesTheReadingOfAStoreThatOnlyItKeeps) {
    class LevelsStore final : public StoreDecorator {
    public:
        using StoreDecorator::StoreDecorator;
        std::function<void()> act;

    private:
        void onCall(const StoreCall& call) override {
            if (call.kind == StoreCall::Kind::PotValue && act) {
                std::exchange(act, nullptr)();
            }
        }
    };
    auto levels = std::make_shared<LevelsStore>(*store);
    levels->act = [this] { link.reset(); };
    link->setDataStore(std::exchange(levels, nullptr));
    std::string text;
    link->SendPotValues(text);
    EXPECT_EQ(link, nullptr);
    expectSilence();
}

// Whoever lets the link go waits for its thread.
TEST_F(ReleasedLink, GoesAtOnceWhenTheRadioFallsSilentWhileATableIsWritten) {
    ServedRadio served;
    std::promise<void> wakesUp;
    served.line().onAnswer = [&, fallenSilent = false](const radio::Frame& request, const radio::Frame&) mutable {
        if (request.kind == radio::Kind::WriteRecords && !std::exchange(fallenSilent, true)) {
            dispatcher.post([this] { link.reset(); });
            wakesUp.get_future().wait();
        }
    };
    link = onSystemTime(served.address());
    link->SendChannelTable();
    const auto began = std::chrono::steady_clock::now();
    ASSERT_TRUE(dispatcher.runUntil([this] { return link == nullptr; }));
    // Asking twice which table the radio holds would take two seconds.
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::milliseconds(1500));
    wakesUp.set_value();
    reported = progress.size();
    expectSilence();
}

}  // namespace
}  // namespace telvar::tests
