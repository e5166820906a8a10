// Exchanges with a simulated radio in the same thread on virtual time, held to what they say of the radio.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "radio/radio_client.h"
#include "tables.h"
#include "virtual_clock.h"

namespace telvar::tests {

using namespace std::chrono_literals;
using radio::Outcome;
using radio::TableImage;

// Hello, 32 runs of records and a checksum; the same twice with a beginning, 32 runs and a commit between.
inline constexpr int framesOfALoad = 2 * (1 + 32 + 1);
inline constexpr int framesOfASend = 2 * (1 + 33 + 1 + 32 + 1 + 33);

inline const radio::Percent nobodyLooks = [](int) {};

class Exchange : public testing::Test {
protected:
    Exchange() { EXPECT_TRUE(client.status().succeeded); }

    [[nodiscard]] radio::SimulatedRadio& theRadio() { return *client.connection().simulatedRadio(); }
    [[nodiscard]] radio::SimulatedLine& line() { return *client.connection().simulatedLine(); }

    void misbehave(const std::string& faults) {
        const auto plan = radio::parseFaults(faults);
        ASSERT_TRUE(plan) << plan.error();
        client.configure({.faults = *plan, .backupFolder = "another"});
        client.configure({.faults = *plan});
    }

    [[nodiscard]] Outcome send() {
        interrupt.reset();
        theRadio().setTable(former);
        kept = 0;
        const auto began = clock.now();
        const Outcome outcome = client.sendTable(wanted, nobodyLooks);
        EXPECT_LT(clock.now() - began, longest);
        expectTheTruth(outcome);
        return outcome;
    }

    // What the sentence says is so.
    void expectTheTruth(const Outcome& outcome) {
        const std::string& said = outcome.sentence;
        EXPECT_TRUE(said.ends_with('.')) << said;
        const TableImage& held = theRadio().table();
        if (outcome.succeeded) {
            EXPECT_EQ(held, wanted);
            EXPECT_EQ(kept, 1);
            return;
        }
        const auto claims = [&said](const char* what) { return said.find(what) != std::string::npos; };
        if (claims("took the new table, which could not be verified")) {
            EXPECT_EQ(held, wanted) << said;
        } else if (claims("keeps its former table") || claims("nothing was written to the radio")) {
            EXPECT_EQ(held, former) << said;
        } else {
            EXPECT_TRUE(claims("whether the radio took the new table is not known")) << said;
        }
    }

    // A load that fails hands nothing over, one that succeeds what the radio holds.
    [[nodiscard]] Outcome load() {
        interrupt.reset();
        theRadio().setTable(former);
        const auto began = clock.now();
        const auto [outcome, image] = client.loadTable(nobodyLooks);
        EXPECT_LT(clock.now() - began, longest);
        EXPECT_TRUE(outcome.sentence.ends_with('.')) << outcome.sentence;
        EXPECT_EQ(image.has_value(), outcome.succeeded);
        if (image) {
            EXPECT_EQ(*image, former);
        }
        return outcome;
    }

    std::chrono::seconds longest = 60s;
    VirtualClock clock;
    os::Interrupt interrupt;
    int kept = 0;
    const TableImage& former = sampleImage(1);
    const TableImage& wanted = sampleImage(2);
    radio::RadioClient client{clock, interrupt, [this](const std::string&, const TableImage& image) {
                                  EXPECT_EQ(image, former);
                                  ++kept;
                                  return std::expected<std::string, os::FileError>("kept");
                              }};
};

}  // namespace telvar::tests
