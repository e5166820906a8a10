// How the user wants pages, and what of it is remembered.
#include "desk/page_setup.h"

#include <gtest/gtest.h>

#include "fakes.h"

namespace telvar::desk {

void PrintTo(const PageSetup& setup, std::ostream* out) {
    const Margins& margins = setup.margins;
    *out << setup.sheetCode << ": " << setup.sheet.width << " by " << setup.sheet.height
         << (setup.landscape ? " turned" : "") << (setup.onlyInUse ? " in use" : "") << ", " << margins.left << ' '
         << margins.top << ' ' << margins.right << ' ' << margins.bottom;
}

void PrintTo(const Paper& paper, std::ostream* out) {
    *out << paper.size.width << " by " << paper.size.height << ", " << paper.margins.left << ' ' << paper.margins.top
         << ' ' << paper.margins.right << ' ' << paper.margins.bottom;
}

}  // namespace telvar::desk

namespace telvar::tests {

using namespace desk;

namespace {

constexpr PageSetup a5Turned{.sheet = {14'800, 21'000},
                             .sheetCode = 11,
                             .landscape = true,
                             .margins = {1'000, 1'100, 1'200, 1'300},
                             .onlyInUse = true};

}  // namespace

TEST(UsualPages, AreA4Upright) {
    const PageSetup usual;
    EXPECT_EQ(usual.sheet, (Size{21'000, 29'700}));
    EXPECT_EQ(usual.sheetCode, 9);
    EXPECT_FALSE(usual.landscape);
    EXPECT_FALSE(usual.onlyInUse);
    EXPECT_EQ(usual.margins, (Margins{1'500, 1'500, 1'500, 1'500}));
}

TEST(UsualPages, AreOnTheKnownSheetOfTheCode) {
    for (const auto& [code, size] : std::map<int, Size>{{9, {21'000, 29'700}},
                                                        {8, {29'700, 42'000}},
                                                        {11, {14'800, 21'000}},
                                                        {1, {21'590, 27'940}},
                                                        {5, {21'590, 35'560}}}) {
        EXPECT_EQ(usualPageSetup(code).sheet, size) << code;
        EXPECT_EQ(usualPageSetup(code).sheetCode, code);
    }
    for (const int unknown : {0, -1, 2, 256}) {
        EXPECT_EQ(usualPageSetup(unknown), PageSetup{}) << unknown;
    }
}

struct RememberedPages : testing::Test {
    FakeSettings settings;

    [[nodiscard]] PageSetup loaded(const PageSetup& usual = {}) const { return loadPageSetup(settings, usual); }
    // What is loaded where one value is another.
    [[nodiscard]] PageSetup loadedWith(const char* name, std::int32_t value) {
        settings.values.clear();
        savePageSetup(settings, a5Turned);
        settings.setNumber(name, value);
        return loaded();
    }
};

TEST_F(RememberedPages, AreTheUsualOnesAtFirst) {
    EXPECT_EQ(loaded(), PageSetup{});
    EXPECT_EQ(loaded(usualPageSetup(1)), usualPageSetup(1));
}

TEST_F(RememberedPages, ComeBackWhole) {
    savePageSetup(settings, a5Turned);
    EXPECT_EQ(loaded(), a5Turned);
    savePageSetup(settings, {});
    EXPECT_EQ(loaded(usualPageSetup(1)), PageSetup{});
}

TEST_F(RememberedPages, AreKeptUnderTheirNames) {
    savePageSetup(settings, a5Turned);
    EXPECT_EQ(settings.values, (std::map<std::string, FakeSettings::Value, std::less<>>{{"PrintSheet", 11},
                                                                                        {"PrintSheetWidth", 14'800},
                                                                                        {"PrintSheetHeight", 21'000},
                                                                                        {"PrintLandscape", 1},
                                                                                        {"PrintOnlyInUse", 1},
                                                                                        {"PrintMarginLeft", 1'000},
                                                                                        {"PrintMarginTop", 1'100},
                                                                                        {"PrintMarginRight", 1'200},
                                                                                        {"PrintMarginBottom", 1'300}}));
}

TEST_F(RememberedPages, ASheetThatIsNoneIsTheUsualOne) {
    PageSetup expected = a5Turned;
    expected.sheet = PageSetup{}.sheet;
    expected.sheetCode = PageSetup{}.sheetCode;
    for (const int nonsense : {0, -1, 2'999, 200'001, 2'147'483'647, -2'147'483'647 - 1}) {
        EXPECT_EQ(loadedWith("PrintSheetWidth", nonsense), expected) << nonsense;
        EXPECT_EQ(loadedWith("PrintSheetHeight", nonsense), expected) << nonsense;
    }
    EXPECT_EQ(loadedWith("PrintSheetWidth", 200'000).sheet, (Size{200'000, 21'000}));
    EXPECT_EQ(loadedWith("PrintSheetHeight", 200'000).sheet, (Size{14'800, 200'000}));
}

// From a matchbox on.
TEST_F(RememberedPages, TheSmallestSheetIsOne) {
    PageSetup small{.sheet = {3'000, 3'000}, .sheetCode = 0, .margins = {100, 100, 100, 100}};
    savePageSetup(settings, small);
    EXPECT_EQ(loaded(), small);
}

TEST_F(RememberedPages, MarginsThatLeaveNoRoomAreTheUsualOnes) {
    PageSetup expected = a5Turned;
    expected.margins = PageSetup{}.margins;
    for (const char* name : {"PrintMarginLeft", "PrintMarginTop", "PrintMarginRight", "PrintMarginBottom"}) {
        for (const int nonsense : {-1, 21'001, 2'147'483'647, -2'147'483'647 - 1}) {
            EXPECT_EQ(loadedWith(name, nonsense), expected) << name << ' ' << nonsense;
        }
    }
}

TEST_F(RememberedPages, ValuesOfAnotherKindAreNone) {
    savePageSetup(settings, a5Turned);
    settings.setText("PrintSheet", "A5");
    settings.setText("PrintLandscape", "yes");
    settings.setText("PrintMarginTop", "12");
    PageSetup expected = a5Turned;
    expected.sheetCode = 9;
    expected.landscape = false;
    expected.margins.top = 1'500;
    EXPECT_EQ(loaded(), expected);
}

TEST(PageRoom, IsAtLeastAnInchBothWays) {
    struct Case {
        const char* what;
        PageSetup setup;
        bool leaves;
    };
    constexpr Size sheet{10'000, 20'000};
    for (const Case& each : {
             Case{"none at all", {.sheet = sheet, .margins = {0, 0, 0, 0}}, true},
             Case{"an inch across", {.sheet = sheet, .margins = {3'730, 0, 3'730, 0}}, true},
             Case{"less across", {.sheet = sheet, .margins = {3'730, 0, 3'731, 0}}, false},
             Case{"an inch down", {.sheet = sheet, .margins = {0, 8'730, 0, 8'730}}, true},
             Case{"less down", {.sheet = sheet, .margins = {0, 8'731, 0, 8'730}}, false},
             Case{"turned, an inch across", {.sheet = sheet, .landscape = true, .margins = {8'730, 0, 8'730, 0}}, true},
             Case{"turned, less down", {.sheet = sheet, .landscape = true, .margins = {0, 3'731, 0, 3'730}}, false},
             Case{"before the left edge", {.sheet = sheet, .margins = {-1, 0, 0, 0}}, false},
             Case{"above the top", {.sheet = sheet, .margins = {0, -1, 0, 0}}, false},
             Case{"behind the right edge", {.sheet = sheet, .margins = {0, 0, -1, 0}}, false},
             Case{"below the bottom", {.sheet = sheet, .margins = {0, 0, 0, -1}}, false},
             Case{"so much that the sum would overflow",
                  {.sheet = sheet, .margins = {2'147'483'647, 0, 2'147'483'647, 0}},
                  false},
         }) {
        EXPECT_EQ(leavesRoom(each.setup), each.leaves) << each.what;
    }
}

TEST(PagePaper, IsInTwipsToTheNearest) {
    EXPECT_EQ(paperOf({}), (Paper{{11'906, 16'838}, {850, 850, 850, 850}}));
    EXPECT_EQ(paperOf({.sheet = {21'590, 27'940}, .margins = {2'540, 1'270, 1, 0}}),
              (Paper{{12'240, 15'840}, {1'440, 720, 1, 0}}));
    // 0.567 twips each.
    EXPECT_EQ(paperOf({.sheet = {100'000, 100'000}, .margins = {2, 3, 4, 6}}), (Paper{{56'693, 56'693}, {1, 2, 2, 3}}));
    // The longest sheet does not overflow.
    EXPECT_EQ(paperOf({.sheet = {2'000'000'000, 200'000}}).size, (Size{1'133'858'268, 113'386}));
}

TEST(PagePaper, IsTurnedAsItIsReadAndItsMarginsStay) {
    EXPECT_EQ(paperOf(a5Turned), (Paper{{11'906, 8'391}, {567, 624, 680, 737}}));
}

}  // namespace telvar::tests
