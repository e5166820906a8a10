#include "host/shell/recent_files.h"

#include <gtest/gtest.h>

#include "test_settings.h"

namespace telvar::tests {

using host::RecentFiles;
using win::Settings;
using Paths = std::vector<std::wstring>;

class RecentFilesTest : public testing::Test {
protected:
    TestSettings own;
    win::Settings settings{TestSettings::key};
    RecentFiles recent{settings};
};

TEST_F(RecentFilesTest, AFreshListIsEmpty) { EXPECT_EQ(recent.paths(), Paths{}); }

TEST_F(RecentFilesTest, TheNewestIsFirst) {
    recent.add(L"C:\\a.telvar");
    recent.add(L"C:\\b.telvar");
    EXPECT_EQ(recent.paths(), (Paths{L"C:\\b.telvar", L"C:\\a.telvar"}));
}

TEST_F(RecentFilesTest, AFileIsListedOnceWhateverItsLetterCase) {
    recent.add(L"C:\\Größe.telvar");
    recent.add(L"C:\\b.telvar");
    recent.add(L"C:\\GRÖSSE.telvar");
    recent.add(L"C:\\GRÖßE.telvar");
    EXPECT_EQ(recent.paths(), (Paths{L"C:\\GRÖßE.telvar", L"C:\\GRÖSSE.telvar", L"C:\\b.telvar"}));
}

TEST_F(RecentFilesTest, TheTenthPushesTheOldestOut) {
    for (int file = 1; file <= 10; ++file) {
        recent.add(L"C:\\" + std::to_wstring(file) + L".telvar");
    }
    const Paths paths = recent.paths();
    ASSERT_EQ(paths.size(), 9U);
    EXPECT_EQ(paths.front(), L"C:\\10.telvar");
    EXPECT_EQ(paths.back(), L"C:\\2.telvar");
}

TEST_F(RecentFilesTest, AFileCanBeTakenOut) {
    recent.add(L"C:\\a.telvar");
    recent.add(L"C:\\b.telvar");
    recent.remove(L"c:\\B.telvar");
    EXPECT_EQ(recent.paths(), Paths{L"C:\\a.telvar"});
}

TEST_F(RecentFilesTest, AnotherProgramsAdditionsAreKept) {
    win::Settings others(TestSettings::key);
    RecentFiles(others).add(L"C:\\theirs.telvar");
    recent.add(L"C:\\ours.telvar");
    EXPECT_EQ(recent.paths(), (Paths{L"C:\\ours.telvar", L"C:\\theirs.telvar"}));
}

TEST_F(RecentFilesTest, MenuTextsAreNumberedAndKeepTheirAmpersands) {
    EXPECT_EQ(RecentFiles::menuText(0, L"C:\\R&D.telvar"), L"&1 C:\\R&&D.telvar");
    const std::wstring longText = RecentFiles::menuText(8, L"C:\\" + std::wstring(200, L'x') + L"\\end.telvar");
    EXPECT_TRUE(longText.starts_with(L"&9 "));
    EXPECT_LE(longText.size(), 64U);
    EXPECT_TRUE(longText.ends_with(L"end.telvar"));
}

TEST(Settings, NumbersAreKept) {
    const TestSettings own;
    win::Settings(TestSettings::key).setNumber(L"Left", -12);
    EXPECT_EQ(win::Settings(TestSettings::key).number(L"Left"), -12);
    EXPECT_EQ(win::Settings(TestSettings::key).number(L"Right"), std::nullopt);
}

TEST(Settings, AValueOfAnotherKindIsNoNumberAndNoList) {
    const TestSettings own;
    win::Settings settings(TestSettings::key);
    settings.setNumber(L"RecentFiles", 3);
    settings.setList(L"Left", {L"x"});
    EXPECT_EQ(settings.list(L"RecentFiles"), Paths{});
    EXPECT_EQ(settings.number(L"Left"), std::nullopt);
}

TEST(Settings, AKeyThatCannotBeMadeKeepsNothing) {
    win::Settings settings(std::wstring(300, L'k'));
    settings.setNumber(L"Left", 1);
    EXPECT_EQ(settings.number(L"Left"), std::nullopt);
}

}  // namespace telvar::tests
