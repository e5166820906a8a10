// The walk's steps with the radio, in the real program: what it does when something comes back differently.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "com/kit/failure.h"
#include "com/kit/variant.h"
#include "installed_servers.h"
#include "support/build_paths.h"
#include "support/temporary_folder.h"
#include "test_settings.h"
#include "walk/table_reading.h"
#include "walk/walk_steps.h"
#include "walk/walked_program.h"
#include "win/text.h"

namespace telvar::tests {

using host::MainWindow;
using walk::Transcript;
using walk::Walk;
using walk::WalkedProgram;
using walk::WalkStep;

struct Apartment {
    Apartment() { com::check(OleInitialize(nullptr)); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    Apartment(Apartment&&) = delete;
    Apartment& operator=(Apartment&&) = delete;
    ~Apartment() { OleUninitialize(); }
};

struct WalkWithRadio : testing::Test {
    WalkWithRadio() {
        std::filesystem::copy_file(TELVAR_SOURCE_DIR "/samples/every-reading.telvar",
                                   TemporaryFolder::pathOf(folder / "table.telvar"));
    }
    ~WalkWithRadio() override {
        program.reset();
        // The message that ends a loop would end that of the next test.
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
    }
    // The opening of the table, and the steps from `first` up to `last`.
    [[nodiscard]] std::vector<WalkStep> stepsBetween(std::wstring_view first, std::wstring_view last) {
        std::vector<WalkStep> all = walk::mainJob(walked, win::wide(folder / "table.telvar"), win::wide(folder.name()));
        const auto opened = find(all, L"the table is opened and every channel is shown: ");
        const auto begin = find(all, first);
        const auto end = find(all, last);
        if (opened == all.end() || end == all.end() || !(opened < begin && begin < end)) {
            throw std::runtime_error("the walk has no such steps");
        }
        std::vector<WalkStep> some(all.begin(), opened + 1);
        some.insert(some.end(), begin, end + 1);
        return some;
    }
    [[nodiscard]] static std::vector<WalkStep>::iterator find(std::vector<WalkStep>& steps, std::wstring_view text) {
        return std::ranges::find_if(steps, [&](const WalkStep& step) { return step.text.starts_with(text); });
    }
    bool take(std::vector<WalkStep> steps) {
        Transcript log(win::wide(folder / "transcript.txt"));
        Walk walk(*program, log, win::wide(folder.name()));
        steps.push_back({.text = L"ends", .act = [] { PostQuitMessage(0); }, .done = [] { return true; }});
        walk.start(std::move(steps));
        program->open({}, walked.components());
        program->show(SW_SHOWNORMAL);
        MSG message{};
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (!program->translate(message)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
            program->refreshState();
        }
        return walk.conclude();
    }
    [[nodiscard]] std::string transcript() { return TemporaryFolder::read(folder / "transcript.txt"); }

    const TestSettings settings;
    const InstalledServers servers;
    TemporaryFolder folder;
    const Apartment apartment;
    std::optional<MainWindow> program{std::in_place, TestSettings::key};
    WalkedProgram walked{*program, host::installedComponents()};
};

constexpr wchar_t radioBegins[] = L"the simulated radio is empty";
constexpr wchar_t comparison[] = L"what came back is compared";

TEST_F(WalkWithRadio, WhatComesBackAsItWasSentIsCounted) {
    EXPECT_TRUE(take(stepsBetween(radioBegins, comparison))) << transcript();
    const std::size_t keys =
        walk::copyTable(walked, *com::ComPointer<IChannelGrid>::from(walked.components().control)).keys.size();
    EXPECT_NE(transcript().find("ok    what came back is compared with what was sent: 255 channels, " +
                                std::to_string(keys) + " keys equal\n"),
              std::string::npos)
        << transcript();
}

// The key is in no column that shows, so that only the comparison of the keys can find it.
TEST_F(WalkWithRadio, AKeyThatComesBackDifferentlyEndsTheWalk) {
    std::vector<WalkStep> steps = stepsBetween(radioBegins, comparison);
    const std::size_t last = steps.size() - 1;
    WalkStep tampering{.text = L"somebody changes a level", .act = [this] {
                           com::check(walked.record(200)->put_NBVCODev(com::Variant(std::int32_t{1}).get()));
                       }};
    steps.insert(steps.begin() + static_cast<std::ptrdiff_t>(last), std::move(tampering));
    EXPECT_FALSE(take(std::move(steps)));
    EXPECT_NE(transcript().find("      channel 200, NBVCODev: expected "), std::string::npos) << transcript();
    EXPECT_NE(transcript().find("FAIL  what came back is compared with what was sent: 1 difference\n"),
              std::string::npos)
        << transcript();
}

}  // namespace telvar::tests
