#include "interchange/csv_records.h"

#include <gtest/gtest.h>

namespace telvar::interchange {
namespace {

using Texts = std::vector<std::string>;

[[nodiscard]] std::vector<Texts> records(std::string_view text) {
    std::vector<Texts> all;
    CsvRecords source(text);
    auto record = source.next(100);
    for (; record && *record; record = source.next(100)) {
        all.emplace_back();
        for (const auto& field : (*record)->fields) {
            all.back().push_back(field.text);
        }
    }
    EXPECT_TRUE(record) << record.error();
    return all;
}

[[nodiscard]] std::string refusal(std::string_view text) {
    CsvRecords source(text);
    while (true) {
        const auto record = source.next(3);
        if (!record) {
            return record.error();
        }
        if (!*record) {
            return "nothing";
        }
    }
}

TEST(CsvRecords, EndsLinesInAnyWay) {
    const std::vector<Texts> expected{{"a", "b"}, {"c", ""}, {"", "d"}};
    EXPECT_EQ(records("a,b\r\nc,\r\n,d\r\n"), expected);
    EXPECT_EQ(records("a,b\nc,\n,d\n"), expected);
    EXPECT_EQ(records("a,b\rc,\r,d\r"), expected);
    EXPECT_EQ(records("\xEF\xBB\xBF"
                      "a,b\nc,\r\n,d"),
              expected);
    EXPECT_EQ(records(""), std::vector<Texts>{});
    EXPECT_EQ(records("\xEF\xBB\xBF"), std::vector<Texts>{});
    EXPECT_EQ(records("a\n\nb"), (std::vector<Texts>{{"a"}, {""}, {"b"}}));
}

TEST(CsvRecords, TakesQuotedFieldsAsTheyAre) {
    EXPECT_EQ(records("\"a,b\",\" c \",\"say \"\"x\"\"\"\n\"\",\"\"\"\",\"1\r\n2\"\n"),
              (std::vector<Texts>{{"a,b", " c ", "say \"x\""}, {"", "\"", "1\r\n2"}}));
    EXPECT_EQ(records(" a , b\n"), (std::vector<Texts>{{" a ", " b"}}));
}

TEST(CsvRecords, TellAMissingFieldFromAnEmptyText) {
    CsvRecords source(",\"\"");
    const auto fields = source.next(2).value().value().fields;
    ASSERT_EQ(fields.size(), 2U);
    EXPECT_TRUE(fields[0].missing());
    EXPECT_FALSE(fields[1].missing());
}

TEST(CsvRecords, AreSeparatedAsTheFirstLineIs) {
    EXPECT_EQ(records("a;b\n1,5;2\n"), (std::vector<Texts>{{"a", "b"}, {"1,5", "2"}}));
    EXPECT_EQ(records("a\tb\n1,5\t2;3\n"), (std::vector<Texts>{{"a", "b"}, {"1,5", "2;3"}}));
    EXPECT_EQ(records("\"a;b\",c\n"), (std::vector<Texts>{{"a;b", "c"}}));
    EXPECT_EQ(records("a\n1;2\n"), (std::vector<Texts>{{"a"}, {"1;2"}}));
}

TEST(CsvRecords, KnowTheLineOnWhichTheyBegin) {
    CsvRecords source("a\n\"b\r\nc\rd\"\ne");
    EXPECT_EQ(source.next(1).value().value().line, 1);
    EXPECT_EQ(source.next(1).value().value().line, 2);
    EXPECT_EQ(source.next(1).value().value().line, 5);
    EXPECT_EQ(source.next(1).value(), std::nullopt);
}

TEST(CsvRecords, RefuseWhatIsNotWellFormed) {
    EXPECT_EQ(refusal("a,b\nc,\"d\n"), "line 2: field 2: the closing quotation mark is missing");
    EXPECT_EQ(refusal("a,\""), "line 1: field 2: the closing quotation mark is missing");
    EXPECT_EQ(refusal("a\nb\"c\""),
              "line 2: field 1: a quotation mark stands inside a field that does not begin with one");
    EXPECT_EQ(refusal("\"a\" ,b"), "line 1: field 1: something stands behind the closing quotation mark");
    EXPECT_EQ(refusal("a,b,c\n1,2,3,4\n"), "line 2: has more than 3 fields");
    EXPECT_EQ(refusal("a,b,c\n1,2,3\n"), "nothing");
}

TEST(CsvRecords, RefuseBytesThatAreNoText) {
    EXPECT_EQ(refusedBytes("a,\xC3\xBC\r\nb\rc\n"), std::nullopt);
    EXPECT_EQ(refusedBytes("a\r\n\xFC\n"), "line 2: is not text in UTF-8");
    EXPECT_EQ(refusedBytes(std::string("a\rb\n\0", 5)), "line 3: holds a zero byte");
    EXPECT_EQ(refusedBytes("\xFF\xFE"
                           "C"),
              "line 1: is not text in UTF-8");
    EXPECT_EQ(refusedBytes(""), std::nullopt);
}

}  // namespace
}  // namespace telvar::interchange
