// Work that comes to a thread by its window.
#include "win/work_window.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "win/module.h"

namespace telvar::win {
namespace {

void runMessages() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        DispatchMessageW(&message);
    }
}

bool classIsRegistered() {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    return GetClassInfoExW(moduleHandle(), classNameOf(WorkWindow::kind).c_str(), &description) != FALSE;
}

TEST(PostedWork, RunsOnceInOrderOnTheThreadOfTheWindow) {
    WindowDispatcher dispatcher;
    std::vector<int> done;
    std::thread::id where;
    std::thread([&] {
        for (int number = 1; number <= 3; ++number) {
            dispatcher.post([&done, &where, number] {
                done.push_back(number);
                where = std::this_thread::get_id();
            });
        }
    }).join();
    EXPECT_TRUE(done.empty());
    runMessages();
    EXPECT_EQ(done, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(where, std::this_thread::get_id());
    runMessages();
    EXPECT_EQ(done.size(), 3U);
}

TEST(PostedWork, TakesOneMessageHoweverMuchOfItWaits) {
    WindowDispatcher dispatcher;
    int done = 0;
    for (int count = 0; count < 20'000; ++count) {
        dispatcher.post([&done] { ++done; });
    }
    runMessages();
    EXPECT_EQ(done, 20'000) << "the system's queue of messages is shorter";
}

TEST(PostedWork, ThatRunsMessagesItselfLetsTheNextOneRun) {
    WindowDispatcher dispatcher;
    std::vector<int> done;
    dispatcher.post([&] {
        runMessages();
        done.push_back(1);
    });
    dispatcher.post([&] { done.push_back(2); });
    runMessages();
    EXPECT_EQ(done, (std::vector<int>{2, 1}));
}

TEST(PostedWork, ThatFailsDoesNotStopTheNext) {
    WindowDispatcher dispatcher;
    bool done = false;
    dispatcher.post([] { throw std::runtime_error("failed"); });
    dispatcher.post([&] { done = true; });
    runMessages();
    EXPECT_TRUE(done);
}

TEST(PostedWork, MayEndItsDispatcherAndTheRestIsDropped) {
    auto dispatcher = std::make_unique<WindowDispatcher>();
    bool late = false;
    const auto held = std::make_shared<int>(7);
    dispatcher->post([&] { dispatcher.reset(); });
    dispatcher->post([&late, held] { late = true; });
    runMessages();
    EXPECT_EQ(dispatcher, nullptr);
    EXPECT_FALSE(late);
    EXPECT_EQ(held.use_count(), 1) << "what was dropped is let go";
}

TEST(PostedWork, KeepsTheModuleLoadedAndItsClassOnlyWhileThereIsAWindow) {
    const long before = uses();
    {
        const WindowDispatcher first;
        {
            const WindowDispatcher second;
            EXPECT_EQ(uses(), before + 2);
        }
        EXPECT_TRUE(classIsRegistered()) << "of the other window";
    }
    EXPECT_EQ(uses(), before);
    EXPECT_FALSE(classIsRegistered());
}

// The last window of one thread takes the class back while another thread is about to make one of it.
TEST(PostedWork, WindowsOfSeveralThreadsComeAndGo) {
    std::atomic<int> made = 0;
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&made] {
            for (int round = 0; round < 200; ++round) {
                const WindowDispatcher dispatcher;
                ++made;
            }
        });
    }
    threads.clear();
    EXPECT_EQ(made, 800);
}

}  // namespace
}  // namespace telvar::win
