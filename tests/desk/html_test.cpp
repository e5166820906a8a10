// The table as an HTML page.
#include "desk/html.h"

#include <gtest/gtest.h>

namespace telvar::tests {

using namespace desk;

namespace {

PrintedTable table() {
    return {.title = "Küste & <Hafen>",
            .made = "21/11/2026 14:05",
            .columns = {{.header = "Channel"}, {.header = "Tx Frequency (MHz)"}, {.header = "TX Pwr", .centred = true}},
            .rows = {{.inUse = true, .cells = {"1", "160.650000", "200"}},
                     {.inUse = false, .cells = {"2", "X", "\"'\x01"}}}};
}

std::size_t countOf(const std::string& text, const std::string& what) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + what.size())) {
        ++count;
    }
    return count;
}

bool holds(const std::string& text, const std::string& what) { return text.find(what) != std::string::npos; }

}  // namespace

TEST(Html, IsOnePageInUtf8ThatNeedsNothingElse) {
    const std::string html = htmlOf(table());
    EXPECT_TRUE(html.starts_with("<!DOCTYPE html>\n<html"));
    EXPECT_TRUE(html.ends_with("</html>\n"));
    EXPECT_LT(html.find("<meta charset=\"utf-8\">"), html.find("<title>"));
    for (const char* elsewhere : {"http", "src=", "href=", "url(", "@import"}) {
        EXPECT_FALSE(holds(html, elsewhere)) << elsewhere;
    }
}

TEST(Html, HasTitleAndDateWithEscapedTexts) {
    const std::string html = htmlOf(table());
    EXPECT_TRUE(holds(html, "<title>Küste &amp; &lt;Hafen&gt;</title>"));
    EXPECT_TRUE(holds(html, "<h1>Küste &amp; &lt;Hafen&gt;</h1>"));
    EXPECT_TRUE(holds(html, "<p>21/11/2026 14:05</p>"));
    EXPECT_FALSE(holds(html, "<Hafen>"));
}

TEST(Html, HasTheHeadersInAHeadThatIsRepeatedOnPaper) {
    const std::string html = htmlOf(table());
    EXPECT_TRUE(holds(html, "<thead>\n<tr><th scope=\"col\">Channel</th><th scope=\"col\">Tx Frequency (MHz)</th>"
                            "<th scope=\"col\" class=\"centred\">TX Pwr</th></tr>\n</thead>"));
    EXPECT_TRUE(holds(html, "thead { display: table-header-group; }"));
    EXPECT_TRUE(holds(html, "@media print"));
}

TEST(Html, HasOneLineForEachRow) {
    const std::string html = htmlOf(table());
    EXPECT_TRUE(holds(html, "<tr><th scope=\"row\">1</th><td>160.650000</td><td class=\"centred\">200</td></tr>\n"));
    EXPECT_TRUE(holds(html, "<tr><th scope=\"row\">2</th><td>X</td>"
                            "<td class=\"centred\">&quot;&#39;\xEF\xBF\xBD</td></tr>\n"));
    EXPECT_EQ(countOf(html, "<tr>"), 3U);
}

TEST(Html, KeepsTabsAndLineBreaksAndReplacesOtherControlCharacters) {
    const std::string html = htmlOf({.title = "a\tb\r\nc\x1F\x7F"});
    EXPECT_TRUE(holds(html, "<h1>a\tb\r\nc\xEF\xBF\xBD\xEF\xBF\xBD</h1>"));
}

TEST(Html, HasNoCellWithoutAColumn) {
    const std::string html = htmlOf({.columns = {{.header = "Channel"}}, .rows = {{.cells = {"1", "lost"}}, {}}});
    EXPECT_TRUE(holds(html, "<tr><th scope=\"row\">1</th></tr>\n<tr></tr>\n"));
}

TEST(Html, RowsThatAreNotInUseCanBeLeftOut) {
    PrintedTable used = table();
    keepRowsInUse(used);
    ASSERT_EQ(used.rows.size(), 1U);
    EXPECT_EQ(used.rows.front().cells.front(), "1");
    EXPECT_EQ(countOf(htmlOf(used), "<tr>"), 2U);
}

TEST(Html, AnEmptyTableIsAWholePageAllTheSame) {
    const std::string html = htmlOf({});
    EXPECT_TRUE(holds(html, "<tbody>\n</tbody>\n</table>"));
}

}  // namespace telvar::tests
