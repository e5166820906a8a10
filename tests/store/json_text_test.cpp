#include "store/json_text.h"

#include <gtest/gtest.h>

namespace telvar::store {
namespace {

[[nodiscard]] std::string oneLine(std::string_view json) {
    JsonLine line;
    const auto problem = readJson(json, line);
    EXPECT_FALSE(problem) << problem->what;
    return line.complete() ? line.text() : "";
}

TEST(JsonText, IsQuotedWithAsFewEscapesAsPossible) {
    EXPECT_EQ(jsonQuoted("a\"b\\c/d"), R"("a\"b\\c/d")");
    EXPECT_EQ(jsonQuoted(std::string("\n\r\t\x01\x1f\0", 6)), R"("\n\r\t\u0001\u001f\u0000")");
    EXPECT_EQ(jsonQuoted("Küste \xf0\x9f\x93\xbb\x7f"), "\"Küste \xf0\x9f\x93\xbb\x7f\"");
    EXPECT_EQ(jsonQuoted(""), "\"\"");
}

TEST(JsonText, NeverHoldsAnythingButUtf8) {
    for (const std::string bad : {"\x80", "\xff", "\xc0\xaf", "\xc1\xbf", "\xe0\x80\x80", "\xed\xa0\x80",
                                  "\xf0\x80\x80\x80", "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\xc3", "\xe2\x82",
                                  "\xf0\x9f\x93", "\xc3(", "\xe2\x82(", "\xf0\x9f\x93("}) {
        EXPECT_FALSE(isUtf8("a" + bad)) << jsonQuoted(bad);
        EXPECT_TRUE(isUtf8(jsonQuoted(bad)));
    }
    for (const std::string good : {"", "abc", "\xc2\x80", "\xdf\xbf", "\xe0\xa0\x80", "\xed\x9f\xbf", "\xef\xbf\xbf",
                                   "\xf0\x90\x80\x80", "\xf4\x8f\xbf\xbf"}) {
        EXPECT_TRUE(isUtf8(good)) << jsonQuoted(good);
    }
}

TEST(JsonLine, StandsOnOneLine) {
    EXPECT_EQ(oneLine("{\n \"a\" : [ 1 ,\n2.50 , { } ], \"b\":{\"c\":null,\"d\":\"x\\ty\"}\n}"),
              R"({"a": [1, 2.50, {}], "b": {"c": null, "d": "x\ty"}})");
    EXPECT_EQ(oneLine("true"), "true");
    EXPECT_EQ(oneLine("[[],[[]],\"\"]"), R"([[], [[]], ""])");
}

TEST(JsonReader, SaysWhereAndWhat) {
    JsonLine line;
    const auto problem = readJson("[1, 2", line);
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->offset, 5U);
    EXPECT_EQ(problem->what, "a comma or ] is missing");
}

}  // namespace
}  // namespace telvar::store
