// Levels that the user moves on the edit form, on their way through the real link to a simulated radio that serves a
// line of its own: a slow one, and one that falls silent.
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>

#include "VexloRadioLink.h"
#include "edit_form_world.h"
#include "support/served_radio.h"
#include "support/temporary_folder.h"

#include <commctrl.h>

namespace telvar::tests {
namespace {

using Clock = std::chrono::steady_clock;

// Asks a window from another thread, over and over, whether it reacts, and keeps the longest time that it took.
class Watch {
public:
    explicit Watch(HWND window) : thread_([this, window] { run(window); }) {}
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    Watch(Watch&&) = delete;
    Watch& operator=(Watch&&) = delete;
    ~Watch() { static_cast<void>(longest()); }

    [[nodiscard]] std::chrono::duration<double, std::milli> longest() {
        done_ = true;
        // Its last question is answered from here.
        while (!ended_) {
            MSG message;
            PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        }
        if (thread_.joinable()) {
            thread_.join();
        }
        return longest_;
    }
    [[nodiscard]] int answers() const noexcept { return answers_; }

private:
    void run(HWND window) {
        constexpr UINT patience = 5000;
        while (!done_) {
            const auto asked = Clock::now();
            DWORD_PTR answer = 0;
            if (SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, patience, &answer) != 0) {
                ++answers_;
            }
            longest_ = std::max(longest_, std::chrono::duration<double, std::milli>(Clock::now() - asked));
        }
        ended_ = true;
    }

    std::atomic<bool> done_{false};
    std::atomic<bool> ended_{false};
    std::atomic<int> answers_{0};
    std::chrono::duration<double, std::milli> longest_{0};
    std::thread thread_;
};

class LiveLevelsInAHost : public EditFormWorld {
protected:
    void showWith(const ServedRadio& radio) {
        put(*link, "DataStore", Variant(store.get()));
        put(*link, "Connection", Variant(std::string_view(radio::textOf(radio.address()))));
        put(*link, "BackupFolder", Variant(std::string_view(folder.name())));
        put(*control, "plibRadioComms", Variant(link.get()));
        show();
        call(*control, "DistributeRadioCommsLink");
        doubleClick();
        ASSERT_NE(form(), nullptr);
    }
    void TearDown() override {
        // The link's worker ends with it; the control holds it, too.
        letGo();
        link.reset();
        pump();
        EXPECT_TRUE(linkServer.canUnload());
        EditFormWorld::TearDown();
    }
    // Runs the host's message loop until then; fails after a minute.
    void runUntil(const std::function<bool()>& condition) {
        const auto end = Clock::now() + std::chrono::minutes(1);
        while (!condition()) {
            ASSERT_LT(Clock::now(), end);
            MSG message;
            ASSERT_GT(GetMessageW(&message, nullptr, 0, 0), 0);
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    [[nodiscard]] bool truthOf(IDispatch& object, const char* member) {
        return base::isTrue(com::valueOf(get(object, member)));
    }
    [[nodiscard]] bool updating() {
        return SendMessageW(button("Continuous Update"), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
    [[nodiscard]] static HWND powerSlider() { return children(L"msctls_trackbar32").front(); }
    // Of the box beside the slider, which follows it.
    [[nodiscard]] static int power() { return 0 - static_cast<int>(SendMessageW(powerSlider(), TBM_GETPOS, 0, 0)); }
    [[nodiscard]] int sends() const { return sink->count("4"); }

    TemporaryFolder folder;
    LoadedServer linkServer{"VexloRadioLink.dll"};
    ComPointer<IRadioLink> link = linkServer.create<IRadioLink>(__uuidof(RadioLink));
};

TEST_F(LiveLevelsInAHost, TheLastOfManyMovesReachesASlowRadioAndTheWindowGoesOnReacting) {
    ServedRadio radio("delay");
    showWith(radio);
    press("Continuous Update");
    ASSERT_TRUE(updating());
    Watch watch(form());
    constexpr int moves = 60;
    const int before = power();
    for (int move = 0; move < moves; ++move) {
        PostMessageW(powerSlider(), WM_KEYDOWN, VK_UP, 0);
        PostMessageW(powerSlider(), WM_KEYUP, VK_UP, 0);
        const int sentBefore = sends();
        // The user takes as long as the update needs to begin a new exchange, every tenth move.
        if (move % 10 == 9) {
            runUntil([&] { return sends() > sentBefore; });
        }
    }
    runUntil([&] { return power() == before + moves; });
    const int afterMoves = sends();
    runUntil([&] { return sends() > afterMoves || !truthOf(*link, "Busy"); });
    // Until nothing is on its way and the store has the last level staged.
    runUntil([&] {
        return !truthOf(*link, "Busy") &&
               base::toInt32(com::valueOf(call(*store, "PotValue", {Variant(std::int16_t{0})}))) == before + moves;
    });
    runUntil([&] { return !truthOf(*link, "Busy"); });
    const auto longest = watch.longest();
    std::printf("live levels to a radio that takes 200 ms a frame: %d moves, %d exchanges, longest time without a "
                "reaction %.1f ms\n",
                moves, sends(), longest.count());
    EXPECT_TRUE(updating());
    EXPECT_LT(sends(), moves);
    EXPECT_GT(watch.answers(), moves);
    EXPECT_LT(longest.count(), 500);
    EXPECT_EQ(boxes.texts(), Texts{});
    radio.stop();
    EXPECT_EQ(radio.radio.levels()[0], before + moves);
}

TEST_F(LiveLevelsInAHost, ARadioThatFallsSilentSwitchesTheUpdateOffAndIsToldOnce) {
    ServedRadio radio("silence");
    showWith(radio);
    press("Continuous Update");
    runUntil([&] { return !boxes.texts().empty(); });
    EXPECT_EQ(boxes.texts(), Texts{"The radio does not answer. Continuous update has been switched off."});
    EXPECT_FALSE(updating());
    // Moves send nothing any more.
    const int sent = sends();
    key(powerSlider(), VK_UP);
    pump();
    EXPECT_EQ(sends(), sent);
    EXPECT_EQ(boxes.texts().size(), 1U);
    EXPECT_NE(form(), nullptr);
}

TEST_F(LiveLevelsInAHost, ASendThatIsCancelledBehindTheLevelsLeavesTheUpdateOn) {
    ServedRadio radio("delay");
    showWith(radio);
    put(*store, "TableOpen", Variant(true));
    put(*store, "ShowSendWarning", Variant(false));
    fill(12, 450'000'000);  // which is on no raster otherwise
    press("Continuous Update");
    runUntil([&] { return truthOf(*link, "Busy"); });
    // The send waits for the levels, and is cancelled once it has begun; only then a tick can ask for their outcome.
    call(*control, "SendToTelvar");
    ASSERT_TRUE(truthOf(*link, "Busy"));
    com::check(link->AbortTransfer());
    runUntil([&] { return !truthOf(*link, "Busy"); });
    EXPECT_FALSE(truthOf(*link, "Succeeded"));
    const auto end = Clock::now() + std::chrono::seconds(1);
    runUntil([&] { return Clock::now() > end; });
    EXPECT_TRUE(updating());
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(LiveLevelsInAHost, LevelsThatTheUserAbortsAreSentAgainInSilence) {
    ServedRadio radio("delay");
    showWith(radio);
    press("Continuous Update");
    runUntil([&] { return truthOf(*link, "Busy"); });
    const int sent = sends();
    com::check(link->AbortTransfer());
    runUntil([&] { return sends() > sent; });
    runUntil([&] { return !truthOf(*link, "Busy") && truthOf(*link, "Succeeded"); });
    EXPECT_TRUE(updating());
    EXPECT_EQ(boxes.texts(), Texts{});
    radio.stop();
    EXPECT_EQ(radio.radio.levels()[0], power());
}

TEST_F(LiveLevelsInAHost, TheHostMayGoWhileLevelsAreOnTheirWay) {
    ServedRadio radio("delay");
    showWith(radio);
    press("Continuous Update");
    runUntil([&] { return truthOf(*link, "Busy"); });
    letGo();
    pump();
    EXPECT_EQ(form(), nullptr);
}

}  // namespace
}  // namespace telvar::tests
