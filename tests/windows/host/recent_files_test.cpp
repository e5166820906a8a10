#include "desk/recent_files.h"

#include <gtest/gtest.h>

#include "host/shell/host_system.h"
#include "host/shell/registry_settings.h"
#include "test_settings.h"

namespace telvar::tests {

using desk::RecentFiles;
using Paths = std::vector<std::string>;

class RecentFilesTest : public testing::Test {
protected:
    TestSettings own;
    host::RegistrySettings settings{TestSettings::key};
    const host::HostSystem system;
    RecentFiles recent{settings, system};
};

TEST_F(RecentFilesTest, AFreshListIsEmpty) { EXPECT_EQ(recent.paths(), Paths{}); }

TEST_F(RecentFilesTest, TheNewestIsFirst) {
    recent.add("C:\\a.telvar");
    recent.add("C:\\b.telvar");
    EXPECT_EQ(recent.paths(), (Paths{"C:\\b.telvar", "C:\\a.telvar"}));
}

TEST_F(RecentFilesTest, AFileIsListedOnceWhateverItsLetterCase) {
    recent.add("C:\\Größe.telvar");
    recent.add("C:\\b.telvar");
    recent.add("C:\\GRÖSSE.telvar");
    recent.add("C:\\GRÖßE.telvar");
    EXPECT_EQ(recent.paths(), (Paths{"C:\\GRÖßE.telvar", "C:\\GRÖSSE.telvar", "C:\\b.telvar"}));
}

TEST_F(RecentFilesTest, TheTenthPushesTheOldestOut) {
    for (int file = 1; file <= 10; ++file) {
        recent.add("C:\\" + std::to_string(file) + ".telvar");
    }
    const Paths paths = recent.paths();
    ASSERT_EQ(paths.size(), 9U);
    EXPECT_EQ(paths.front(), "C:\\10.telvar");
    EXPECT_EQ(paths.back(), "C:\\2.telvar");
}

TEST_F(RecentFilesTest, AFileCanBeTakenOut) {
    recent.add("C:\\a.telvar");
    recent.add("C:\\b.telvar");
    recent.remove("c:\\B.telvar");
    EXPECT_EQ(recent.paths(), Paths{"C:\\a.telvar"});
}

TEST_F(RecentFilesTest, AnotherProgramsAdditionsAreKept) {
    host::RegistrySettings others(TestSettings::key);
    RecentFiles(others, system).add("C:\\theirs.telvar");
    recent.add("C:\\ours.telvar");
    EXPECT_EQ(recent.paths(), (Paths{"C:\\ours.telvar", "C:\\theirs.telvar"}));
}

TEST_F(RecentFilesTest, MenuTextsAreNumberedAndKeepTheirAmpersands) {
    EXPECT_EQ(RecentFiles::menuText(0, "C:\\R&D.telvar"), "&1 C:\\R&&D.telvar");
    const std::string longText = RecentFiles::menuText(8, "C:\\" + std::string(200, 'x') + "\\end.telvar");
    EXPECT_TRUE(longText.starts_with("&9 "));
    EXPECT_LE(longText.size(), 64U);
    EXPECT_TRUE(longText.ends_with("end.telvar"));
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
    EXPECT_EQ(settings.list(L"RecentFiles"), std::vector<std::wstring>{});
    EXPECT_EQ(settings.number(L"Left"), std::nullopt);
}

TEST(Settings, AKeyThatCannotBeMadeKeepsNothing) {
    win::Settings settings(std::wstring(300, L'k'));
    settings.setNumber(L"Left", 1);
    EXPECT_EQ(settings.number(L"Left"), std::nullopt);
}

}  // namespace telvar::tests
