#include "radio/radio_link_core.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "base/failure.h"

namespace telvar::tests {
namespace {

using End = std::tuple<std::int16_t, bool, std::string>;

struct RadioLinkCore : testing::Test {
    RadioLinkCore() {
        link.ExchangeEnded.connect([this](std::int16_t task, bool succeeded, const std::string& message) {
            ends.emplace_back(task, succeeded, message);
        });
    }

    [[nodiscard]] static std::string failureOf(const std::function<void()>& operation) {
        try {
            operation();
        } catch (const base::Failure& failure) {
            return failure.description();
        }
        return "no failure";
    }

    radio::RadioLinkCore link;
    std::vector<End> ends;
};

TEST_F(RadioLinkCore, IsNeitherConnectedNorBusy) {
    EXPECT_FALSE(link.connected());
    EXPECT_FALSE(link.exchangeRunning());
}

TEST_F(RadioLinkCore, SaysOfEveryOperationThatNeedsTheRadioThatItIsNotConnected) {
    std::string text = "as passed";
    bool flag = true;
    const std::string expected = "The radio is not connected";
    EXPECT_EQ(failureOf([&] { link.SendChannelTable(); }), expected);
    EXPECT_EQ(failureOf([&] { link.LoadChannelTable(text, flag); }), expected);
    EXPECT_EQ(failureOf([&] { link.SendPotValues(text); }), expected);
    EXPECT_EQ(failureOf([&] { link.SelectChannel(text); }), expected);
    EXPECT_EQ(text, "as passed");
    EXPECT_TRUE(flag);
    EXPECT_TRUE(ends.empty());
}

TEST_F(RadioLinkCore, ReportsTheEndOncePerAbort) {
    link.AbortTransfer();
    EXPECT_EQ(ends, (std::vector<End>{{std::int16_t{0}, false, ""}}));
    link.AbortTransfer();
    EXPECT_EQ(ends.size(), 2U);
}

}  // namespace
}  // namespace telvar::tests
