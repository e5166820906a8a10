// What the system refused, in words.
#include "win/failure.h"

#include <gtest/gtest.h>

namespace telvar::win {
namespace {

TEST(ErrorText, IsOnePhraseWithoutItsStop) {
    const std::string text = errorText(ERROR_FILE_NOT_FOUND);
    ASSERT_FALSE(text.empty());
    EXPECT_FALSE(text.starts_with("Error ")) << text;
    EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos) << text;
    EXPECT_FALSE(text.ends_with('.')) << text;
}

TEST(ErrorText, OfACodeThatTheSystemDoesNotKnowIsItsNumber) {
    EXPECT_EQ(errorText(0x20000007), "Error 536870919");
    EXPECT_EQ(errorText(0xA0BC00DE), "Error 0xA0BC00DE");
}

TEST(ErrorText, StopsAndLineEndsOfOthersGoAsWell) {
    EXPECT_EQ(withoutFinalStop("It is gone. \r\n"), "It is gone");
    EXPECT_EQ(withoutFinalStop("3.5 volts"), "3.5 volts");
    EXPECT_EQ(withoutFinalStop("...\n"), "");
}

TEST(SystemFailure, IsTheLastErrorInTheSystemsWords) {
    SetLastError(ERROR_ACCESS_DENIED);
    const SystemFailure failure;
    EXPECT_EQ(failure.code(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(failure.description(), errorText(ERROR_ACCESS_DENIED));
}

}  // namespace
}  // namespace telvar::win
