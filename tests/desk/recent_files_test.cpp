// The files opened or saved last.
#include "desk/recent_files.h"

#include <gtest/gtest.h>

#include "fakes.h"

namespace telvar::tests {

using namespace desk;

struct RecentList : testing::Test {
    FakeSettings settings;
    FakeSystem system;
    RecentFiles recent{settings, system};
};

TEST_F(RecentList, IsEmptyAtFirst) { EXPECT_EQ(recent.paths(), Notes()); }

TEST_F(RecentList, HasTheNewestFirst) {
    recent.add("C:\\a.telvar");
    recent.add("C:\\b.telvar");
    EXPECT_EQ(recent.paths(), (Notes{"C:\\b.telvar", "C:\\a.telvar"}));
}

TEST_F(RecentList, HasAFileOnceAsItWasNamedLast) {
    recent.add("C:\\a.telvar");
    recent.add("C:\\b.telvar");
    recent.add("c:\\A.telvar");
    EXPECT_EQ(recent.paths(), (Notes{"c:\\A.telvar", "C:\\b.telvar"}));
}

TEST_F(RecentList, TheTenthPushesTheOldestOut) {
    for (int file = 1; file <= 10; ++file) {
        recent.add("C:\\" + std::to_string(file) + ".telvar");
    }
    const Notes paths = recent.paths();
    ASSERT_EQ(paths.size(), 9U);
    EXPECT_EQ(paths.front(), "C:\\10.telvar");
    EXPECT_EQ(paths.back(), "C:\\2.telvar");
    EXPECT_EQ(settings.list("RecentFiles"), paths);
}

TEST_F(RecentList, MoreThanNineThatWereRememberedAreNotShown) {
    Notes many(12, "C:\\x.telvar");
    settings.setList("RecentFiles", many);
    EXPECT_EQ(recent.paths().size(), 9U);
}

TEST_F(RecentList, AFileCanBeTakenOut) {
    recent.add("C:\\a.telvar");
    recent.add("C:\\b.telvar");
    recent.remove("c:\\B.TELVAR");
    EXPECT_EQ(recent.paths(), Notes{"C:\\a.telvar"});
    recent.remove("C:\\c.telvar");
    EXPECT_EQ(recent.paths(), Notes{"C:\\a.telvar"});
}

TEST_F(RecentList, AnotherProgramsAdditionsAreKept) {
    RecentFiles(settings, system).add("C:\\theirs.telvar");
    recent.add("C:\\ours.telvar");
    EXPECT_EQ(recent.paths(), (Notes{"C:\\ours.telvar", "C:\\theirs.telvar"}));
}

namespace {

std::string many(std::size_t count, const std::string& letter) {
    std::string text;
    for (std::size_t at = 0; at < count; ++at) {
        text += letter;
    }
    return text;
}

}  // namespace

TEST(RecentMenuTexts, AreNumberedAndKeepTheirAmpersands) {
    EXPECT_EQ(RecentFiles::menuText(0, "C:\\R&D.telvar"), "&1 C:\\R&&D.telvar");
    EXPECT_EQ(RecentFiles::menuText(8, "&&"), "&9 &&&&");
    EXPECT_EQ(RecentFiles::menuText(2, ""), "&3 ");
}

TEST(RecentMenuTexts, AreShortenedInFrontOfTheirLastPart) {
    struct Case {
        const char* what;
        std::string path;
        std::string shown;
    };
    for (const Case& each : {
             Case{"sixty stay whole", "C:\\" + many(46, "x") + "\\end.telvar", "C:\\" + many(46, "x") + "\\end.telvar"},
             Case{"sixty-one do not", "C:\\" + many(47, "x") + "\\end.telvar",
                  "C:\\" + many(43, "x") + "...\\end.telvar"},
             Case{"many", "C:\\" + many(200, "x") + "\\end.telvar", "C:\\" + many(43, "x") + "...\\end.telvar"},
             Case{"slashes", "/" + many(200, "x") + "/end.telvar", "/" + many(45, "x") + ".../end.telvar"},
             Case{"letters of two bytes are one", "C:\\" + many(46, "ö") + "\\end.telvar",
                  "C:\\" + many(46, "ö") + "\\end.telvar"},
             Case{"and are never parted", "C:\\" + many(47, "ö") + "\\ünd.telvar",
                  "C:\\" + many(43, "ö") + "...\\ünd.telvar"},
             Case{"letters of four bytes", "C:\\" + many(60, "😀") + "\\end.telvar",
                  "C:\\" + many(43, "😀") + "...\\end.telvar"},
             Case{"a last part that just leaves a beginning", "C:\\" + many(20, "x") + "\\" + many(55, "y"),
                  "C...\\" + many(55, "y")},
             Case{"a last part that leaves none", "C:\\x\\" + many(56, "y"), "...\\" + many(56, "y")},
             Case{"a last part that leaves no gap either", "C:\\x\\" + many(57, "y"), many(57, "y")},
             Case{"a last part of sixty", "C:\\x\\" + many(60, "ö"), many(60, "ö")},
             Case{"a last part of sixty-one", "C:\\x\\" + many(61, "ö"), many(57, "ö") + "..."},
             Case{"a last part that is too long itself", "C:\\x\\" + many(100, "ö"), many(57, "ö") + "..."},
         }) {
        EXPECT_EQ(RecentFiles::menuText(0, each.path), "&1 " + each.shown) << each.what;
    }
}

TEST(RecentMenuTexts, DoubleTheirAmpersandsAfterTheyAreShortened) {
    EXPECT_EQ(RecentFiles::menuText(0, "C:\\" + many(100, "&") + "\\e&d"), "&1 C:\\" + many(100, "&") + "...\\e&&d");
}

}  // namespace telvar::tests
