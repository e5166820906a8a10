// UTF-8 to and from UTF-16.
#include "win/text.h"

#include <gtest/gtest.h>

namespace telvar::win {
namespace {

TEST(Text, GoesThereAndBack) {
    EXPECT_EQ(narrow(wide("Küste \xe6\xb5\xb7 \xf0\x9f\x93\xbb")), "Küste \xe6\xb5\xb7 \xf0\x9f\x93\xbb");
    EXPECT_EQ(wide("\xf0\x9f\x93\xbb").size(), 2U) << "beyond the first plane";
    EXPECT_EQ(wide(""), L"");
    EXPECT_EQ(narrow(L""), "");
}

TEST(Text, WhatIsNotWellFormedIsReplaced) {
    EXPECT_EQ(narrow(L"a\xD800z"), "a\xEF\xBF\xBDz") << "a lone surrogate";
    EXPECT_EQ(narrow(L"\xDC00"), "\xEF\xBF\xBD");
    EXPECT_EQ(wide("a\xFFz"), L"a\xFFFDz");
}

TEST(Text, NullsInsideStay) {
    using namespace std::string_view_literals;
    EXPECT_EQ(wide("a\0b\0"sv), L"a\0b\0"sv);
    EXPECT_EQ(narrow(L"\0\u00E9"sv), "\0\xC3\xA9"sv);
}

}  // namespace
}  // namespace telvar::win
