#include "os/file_lock.h"

#include <gtest/gtest.h>

#include <future>
#include <optional>
#include <set>
#include <string>

#include "os/folders.h"
#include "support/temporary_folder.h"

namespace telvar::os {
namespace {

using tests::TemporaryFolder;

class Lock : public testing::Test {
protected:
    TemporaryFolder folder;
    std::string file = folder / "table.lock";
};

TEST_F(Lock, HasOneHolderAtATime) {
    const auto first = FileLock::tryAcquire(file);
    ASSERT_TRUE(first);
    const auto second = FileLock::tryAcquire(file);
    ASSERT_FALSE(second);
    EXPECT_EQ(second.error().sentence(), file + ": Is in use by another program.");
}

TEST_F(Lock, IsFreeAgainWhenItsHolderEnds) {
    {
        const auto first = FileLock::tryAcquire(file);
    }
    EXPECT_TRUE(FileLock::tryAcquire(file));
}

TEST_F(Lock, StaysWithTheHolderItWasMovedTo) {
    auto first = FileLock::tryAcquire(file);
    {
        const FileLock second = *std::move(first);
        EXPECT_FALSE(FileLock::tryAcquire(file));
    }
    EXPECT_TRUE(FileLock::tryAcquire(file));
}

TEST_F(Lock, IsWaitedForUntilItIsFree) {
    auto first = std::optional(FileLock::acquire(file));
    ASSERT_TRUE(*first);
    std::promise<void> started;
    auto second = std::async(std::launch::async, [&] {
        started.set_value();
        return FileLock::acquire(file).has_value();
    });
    started.get_future().wait();
    EXPECT_EQ(second.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    first.reset();
    EXPECT_TRUE(second.get());
}

TEST_F(Lock, InAMissingFolderIsAFailure) {
    const auto lock = FileLock::tryAcquire(folder / "missing/table.lock");
    ASSERT_FALSE(lock);
    EXPECT_EQ(lock.error().path, folder / "missing/table.lock");
}

TEST_F(Lock, IsTheSameForEverySpellingOfAPath) {
    const auto plain = lockFileFor(folder / "table.telvar");
    EXPECT_EQ(lockFileFor(folder / "./sub/../table.telvar"), plain);
    std::set<std::string> others;
    for (int at = 0; at < 100; ++at) {
        others.insert(lockFileFor(folder / (std::to_string(at) + ".telvar")));
    }
    EXPECT_GT(others.size(), 10U);
    EXPECT_TRUE(plain.starts_with(userStateFolder().value())) << plain;
    EXPECT_TRUE(FileLock::tryAcquire(plain));
}

}  // namespace
}  // namespace telvar::os
