// The message log at its fixed place, byte by byte; and where it cannot be written: the caller of logMessage hears why,
// and the user of the routine that logs by the way is told.
#include <fstream>
#include <iterator>

#include "world.h"

namespace telvar::tests {
namespace {

constexpr wchar_t logFile[] = L"C:\\msglog.txt";

// Whatever an earlier run left is gone before and after.
struct WrittenLog : ControlWorld {
    void SetUp() override {
        setUp();
        DeleteFileW(logFile);
    }
    void TearDown() override {
        EXPECT_NE(DeleteFileW(logFile), FALSE);
        ControlWorld::TearDown();
    }
    [[nodiscard]] static std::string bytes() {
        std::ifstream file("C:\\msglog.txt", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
};

TEST_F(WrittenLog, HasOneLineForEachMessageEndedByCarriageReturnAndLineFeed) {
    call(*control, "logMessage", {Variant("one")});
    EXPECT_EQ(bytes(), "one\r\n");
    call(*control, "logMessage", {Variant("")});
    call(*control, "logMessage", {Variant("two\tthree")});
    EXPECT_EQ(bytes(), "one\r\n\r\ntwo\tthree\r\n");
}

TEST_F(WrittenLog, GrowsFromOneRunToTheNext) {
    std::ofstream("C:\\msglog.txt", std::ios::binary) << "of an earlier run\r\n";
    call(*control, "logMessage", {Variant("now")});
    EXPECT_EQ(bytes(), "of an earlier run\r\nnow\r\n");
}

// A folder of that name stands where the log would be.
struct MessageLog : ControlWorld {
    void SetUp() override {
        setUp();
        DeleteFileW(logFile);
        ASSERT_NE(CreateDirectoryW(logFile, nullptr), FALSE);
        boxes.forget();
    }
    void TearDown() override {
        EXPECT_NE(RemoveDirectoryW(logFile), FALSE);
        ControlWorld::TearDown();
    }
};

TEST_F(MessageLog, TheCallerHearsWhyNothingWasLogged) {
    try {
        call(*control, "logMessage", {Variant("lost")});
        FAIL() << "nothing was said";
    } catch (const base::Failure& failure) {
        EXPECT_EQ(failure.description(), "The message log cannot be written: c:\\msglog.txt");
    }
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(MessageLog, ATypedCallFailsAsWell) {
    Bstr text("lost");
    EXPECT_TRUE(FAILED(control->logMessage(text.address())));
    EXPECT_EQ(text.text(), "lost");
}

TEST_F(MessageLog, ARowThatIsToBePaintedIsNotAndTheUserIsTold) {
    call(*control, "SetRowBackColour", {Variant(std::int16_t{1}), Variant(std::int32_t{255})});
    EXPECT_EQ(boxes.texts(), Texts{"Error in SetRowBackColour()"});
}

TEST_F(MessageLog, WorksAgainWhenItCanBeWritten) {
    ASSERT_NE(RemoveDirectoryW(logFile), FALSE);
    call(*control, "logMessage", {Variant("kept")});
    EXPECT_NE(DeleteFileW(logFile), FALSE);
    ASSERT_NE(CreateDirectoryW(logFile, nullptr), FALSE);
}

}  // namespace
}  // namespace telvar::tests
