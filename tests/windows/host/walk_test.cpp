#include "walk/walk.h"

#include <gtest/gtest.h>

#include "com/kit/failure.h"
#include "support/temporary_folder.h"
#include "test_settings.h"
#include "walk/table_reading.h"
#include "win/text.h"

namespace telvar::tests {

using host::MainWindow;
using walk::Transcript;
using walk::Walk;
using walk::WalkStep;

namespace {

void CALLBACK showBox(HWND, UINT, UINT_PTR timer, DWORD) noexcept {
    KillTimer(nullptr, timer);
    MessageBoxW(nullptr, L"Something", L"Box", MB_OK);
}

}  // namespace

// A walk without the program: its window does not exist, and the steps ask nothing of it.
class WalkTest : public testing::Test {
protected:
    bool take(std::vector<WalkStep> steps) {
        Transcript transcript(win::wide(folder / "transcript.txt"));
        Walk walk(window, transcript, win::wide(folder.name()));
        steps.push_back({.text = L"ends", .act = [] { PostQuitMessage(0); }, .done = [] { return true; }});
        walk.start(std::move(steps));
        MSG message{};
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
        return walk.conclude();
    }
    [[nodiscard]] std::string transcript() { return TemporaryFolder::read(folder / "transcript.txt"); }

    const TestSettings settings;
    TemporaryFolder folder;
    MainWindow window{TestSettings::key};
};

TEST_F(WalkTest, StepsAreTakenInOrderAndWaitForWhatTheyExpect) {
    int asked = 0;
    EXPECT_TRUE(take({{.text = L"first \u00e9", .done = [&] { return ++asked == 3; }}, {.text = L"second"}}));
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(transcript(), "ok    first \xC3\xA9\nok    second\nok    ends\n3 steps, everything as expected.\n");
}

TEST_F(WalkTest, WhatCameOutOfAStepStandsBehindIt) {
    EXPECT_TRUE(take({{.text = L"counts", .result = [] { return L"three"; }}}));
    EXPECT_TRUE(transcript().starts_with("ok    counts: three\n")) << transcript();
}

TEST_F(WalkTest, ADifferenceEndsTheWalk) {
    EXPECT_FALSE(
        take({{.text = L"looks", .check = [] { return std::vector<std::wstring>{L"a is not b", L"c is not d"}; }},
              {.text = L"never"}}));
    EXPECT_EQ(transcript(),
              "      a is not b\n      c is not d\nFAIL  looks: 2 differences\nThe walk failed at step 1 of 3.\n");
}

TEST_F(WalkTest, AnUnexpectedMessageBoxEndsTheWalk) {
    EXPECT_FALSE(
        take({{.text = L"asks", .act = [] { SetTimer(nullptr, 0, 1, showBox); }, .done = [] { return false; }}}));
    EXPECT_EQ(transcript(),
              "FAIL  asks: a dialog stands in the way (Box: Something)\nThe walk failed at step 1 of 2.\n");
}

TEST_F(WalkTest, AFailureInsideAStepEndsTheWalk) {
    EXPECT_FALSE(take({{.text = L"breaks", .act = [] { throw com::ComFailure(E_FAIL, "No radio"); }}}));
    EXPECT_EQ(transcript(), "FAIL  breaks: No radio.\nThe walk failed at step 1 of 2.\n");
}

TEST(TableCopy, EveryDifferenceIsNamed) {
    walk::TableCopy one{.keys = {L"TxFreq"}, .values = {{L"1"}, {L"2"}}, .cells = {{L"", L"a"}, {L"1", L"b"}}};
    walk::TableCopy other = one;
    EXPECT_TRUE(walk::differences(one, other).empty());
    other.value(2, L"TxFreq") = L"3";
    other.cell(1, 1) = L"c";
    EXPECT_EQ(walk::differences(one, other),
              (std::vector<std::wstring>{L"channel 2, TxFreq: expected \"2\", found \"3\"",
                                         L"cell (1, 1): expected \"b\", found \"c\""}));
}

TEST(TableCopy, FrequenciesAreWrittenInMegahertz) {
    EXPECT_EQ(walk::megahertz(145'000'000), L"145.000000");
    EXPECT_EQ(walk::megahertz(446'006'250), L"446.006250");
    EXPECT_EQ(walk::megahertz(12), L"0.000012");
}

}  // namespace telvar::tests
