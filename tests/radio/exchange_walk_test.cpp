// Every fault at every frame of a send and of a load. Time is virtual and the radio in the same thread, so that what is
// walked here is walked the same way every time.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "exchange.h"

namespace telvar::tests {
namespace {

TEST_F(Exchange, HasAsManyFramesAsItsWalkGoesThrough) {
    misbehave("");
    EXPECT_TRUE(send().succeeded);
    EXPECT_EQ(line().frames(), framesOfASend);
    EXPECT_TRUE(load().succeeded);
    EXPECT_EQ(line().frames(), framesOfALoad);
}

// Single faults that repetitions make good.
class PassingFault : public Exchange, public testing::WithParamInterface<const char*> {};

TEST_P(PassingFault, AtAnyFrameOfASendIsMadeGood) {
    for (int frame = 1; frame <= framesOfASend; ++frame) {
        misbehave(GetParam() + std::string("@") + std::to_string(frame));
        const auto outcome = send();
        EXPECT_TRUE(outcome.succeeded) << "frame " << frame << ": " << outcome.sentence;
    }
}

TEST_P(PassingFault, AtAnyFrameOfALoadIsMadeGood) {
    for (int frame = 1; frame <= framesOfALoad; ++frame) {
        misbehave(GetParam() + std::string("@") + std::to_string(frame));
        const auto outcome = load();
        EXPECT_TRUE(outcome.succeeded) << "frame " << frame << ": " << outcome.sentence;
    }
}

INSTANTIATE_TEST_SUITE_P(Every, PassingFault,
                         testing::Values("drop", "repeat", "cut", "noise", "reorder", "echo", "delay:400",
                                         "delay:2000"),
                         [](const auto& tested) {
                             std::string name = tested.param;
                             std::erase(name, ':');
                             return name;
                         });

// Faults that come again and again, and still leave enough through.
class FrequentFault : public Exchange, public testing::WithParamInterface<const char*> {};

TEST_P(FrequentFault, IsMadeGood) {
    longest = 600s;
    misbehave(GetParam());
    const auto sent = send();
    EXPECT_TRUE(sent.succeeded) << sent.sentence;
    const auto loaded = load();
    EXPECT_TRUE(loaded.succeeded) << loaded.sentence;
}

INSTANTIATE_TEST_SUITE_P(Every, FrequentFault,
                         testing::Values("drop/5", "drop/3", "repeat/1", "cut/5", "noise/5", "noise/3", "reorder/5",
                                         "echo", "delay", "delay:1400", "drop/11,noise/13,repeat/3,cut/17,echo"),
                         [](const auto& tested) { return std::to_string(tested.index); });

TEST_F(Exchange, ASilenceFromAnyFrameOnEndsASendWithoutAFalseWord) {
    for (int frame = 1; frame <= framesOfASend; ++frame) {
        misbehave("silence@" + std::to_string(frame) + "+");
        const auto outcome = send();
        EXPECT_FALSE(outcome.succeeded);
        EXPECT_TRUE(outcome.sentence.starts_with("The radio does not answer; ")) << outcome.sentence;
    }
}

TEST_F(Exchange, ASilenceFromAnyFrameOnEndsALoadWithOneSentence) {
    for (int frame = 1; frame <= framesOfALoad; ++frame) {
        misbehave("silence@" + std::to_string(frame) + "+");
        EXPECT_EQ(load(), (Outcome{false, "The radio does not answer; the table here was not changed."}));
    }
}

// Faults that last and let nothing through; a load that fails says so whatever the frame was.
class LastingFault : public Exchange, public testing::WithParamInterface<const char*> {
protected:
    void misbehaveFrom(int frame) { misbehave(GetParam() + std::string("@") + std::to_string(frame) + "+"); }
};

TEST_P(LastingFault, FromAnyFrameOfASendOnEndsItWithoutAFalseWord) {
    for (int frame = 1; frame <= framesOfASend; ++frame) {
        misbehaveFrom(frame);
        EXPECT_FALSE(send().succeeded) << frame;
    }
}

TEST_P(LastingFault, FromAnyFrameOfALoadOnChangesNothing) {
    for (int frame = 1; frame <= framesOfALoad; ++frame) {
        misbehaveFrom(frame);
        const auto outcome = load();
        EXPECT_FALSE(outcome.succeeded) << frame;
        EXPECT_TRUE(outcome.sentence.ends_with("; the table here was not changed.")) << outcome.sentence;
    }
}

INSTANTIATE_TEST_SUITE_P(Every, LastingFault, testing::Values("noise", "cut", "delay:60000"),
                         [](const auto& tested) { return std::string(tested.param, 0, 5); });

// The sequence numbers make sense of copies and of frames in another order, however many there are. An answer that
// comes behind its successor costs the patience of a request each time.
class LastingDisorder : public LastingFault {
protected:
    LastingDisorder() { longest = 600s; }
};

// Every third frame is as often a request's as an answer's.
TEST_P(LastingDisorder, FromAnyThirdFrameOfASendOnIsMadeGood) {
    for (int frame = 1; frame <= framesOfASend; frame += 3) {
        misbehaveFrom(frame);
        const auto outcome = send();
        EXPECT_TRUE(outcome.succeeded) << frame << ": " << outcome.sentence;
    }
}

TEST_P(LastingDisorder, FromAnyFrameOfALoadOnIsMadeGood) {
    for (int frame = 1; frame <= framesOfALoad; ++frame) {
        misbehaveFrom(frame);
        const auto outcome = load();
        EXPECT_TRUE(outcome.succeeded) << frame << ": " << outcome.sentence;
    }
}

INSTANTIATE_TEST_SUITE_P(Every, LastingDisorder, testing::Values("repeat", "reorder"),
                         [](const auto& tested) { return std::string(tested.param); });

// The radio comes back within the patience of the next question; what it holds is then known.
TEST_F(Exchange, APowerFailureAtAnyFrameOfASendLeavesNoDoubt) {
    for (int frame = 1; frame <= framesOfASend; ++frame) {
        misbehave("power@" + std::to_string(frame));
        const auto outcome = send();
        EXPECT_EQ(outcome.sentence.find("not known"), std::string::npos) << frame << ": " << outcome.sentence;
        EXPECT_FALSE(theRadio().writing());
    }
}

TEST_F(Exchange, APowerFailureAtAnyFrameOfALoadChangesNothing) {
    for (int frame = 1; frame <= framesOfALoad; ++frame) {
        misbehave("power@" + std::to_string(frame));
        const auto outcome = load();
        EXPECT_TRUE(outcome.succeeded || outcome.sentence.ends_with("; the table here was not changed."))
            << outcome.sentence;
    }
}

TEST_F(Exchange, APowerFailureAfterTheCommitIsOvercome) {
    // The answer to the commit is frame 136: the radio has the table, and nobody was told.
    misbehave("power@136");
    const auto outcome = send();
    EXPECT_TRUE(outcome.succeeded) << outcome.sentence;
}

TEST_F(Exchange, AnotherRadioIsNotWrittenTo) {
    misbehave("identity");
    EXPECT_EQ(send(), (Outcome{false, "What answers is not a Telvar radio: it calls itself \"BASALT\"; nothing was "
                                      "written to the radio."}));
    EXPECT_EQ(kept, 0);
    EXPECT_EQ(load(), (Outcome{false, "What answers is not a Telvar radio: it calls itself \"BASALT\"; the table here "
                                      "was not changed."}));
}

TEST_F(Exchange, ALineThatOnlyEchoesIsTold) {
    misbehave("echo,silence");
    EXPECT_EQ(load(), (Outcome{false, "The line returns what is sent, and no radio answers; the table here was not "
                                      "changed."}));
}

// With the last frame everything is said; an abort comes too late then.
TEST_F(Exchange, AnAbortAtAnyFrameOfASendEndsItWithoutAFalseWord) {
    for (int frame = 1; frame < framesOfASend; ++frame) {
        interrupt.reset();
        misbehave("");
        ASSERT_TRUE(client.status().succeeded);
        line().onFrame = [&](int now) {
            if (now == frame) {
                line().onFrame = nullptr;
                interrupt.raise();
            }
        };
        const auto outcome = send();
        EXPECT_TRUE(outcome.sentence.starts_with("The exchange was aborted; ")) << frame << ": " << outcome.sentence;
        EXPECT_EQ(outcome.sentence.find("not known"), std::string::npos) << frame << ": " << outcome.sentence;
        EXPECT_FALSE(theRadio().writing());
    }
}

TEST_F(Exchange, AnAbortAtAnyFrameOfALoadEndsIt) {
    for (int frame = 1; frame < framesOfALoad; ++frame) {
        interrupt.reset();
        misbehave("");
        ASSERT_TRUE(client.status().succeeded);
        line().onFrame = [&](int now) {
            if (now == frame) {
                line().onFrame = nullptr;
                interrupt.raise();
            }
        };
        EXPECT_EQ(load(), (Outcome{false, "The exchange was aborted; the table here was not changed."}));
    }
}

// Nobody waits for the outcome: the radio is not asked which table it holds.
TEST_F(Exchange, AfterTheEndOfTheClientAtAnyFrameOfASendNothingIsAsked) {
    const auto keep = [](const std::string&, const TableImage&) {
        return std::expected<std::string, os::FileError>("kept");
    };
    for (int frame = 1; frame < framesOfASend; ++frame) {
        interrupt.reset();
        radio::RadioClient ending(clock, interrupt, keep);
        ASSERT_TRUE(ending.status().succeeded);
        bool ended = false;
        int framesAfterwards = 0;
        ending.connection().simulatedLine()->onFrame = [&](int now) {
            framesAfterwards += ended ? 1 : 0;
            if (now == frame && !ended) {
                ended = true;
                ending.end();
            }
        };
        EXPECT_FALSE(ending.sendTable(wanted, nobodyLooks).succeeded) << frame;
        // The answer to what was asked already.
        EXPECT_LE(framesAfterwards, 1) << frame;
    }
}

TEST_F(Exchange, ARadioThatHoldsSomethingElseIsTold) {
    misbehave("");
    ASSERT_TRUE(client.status().succeeded);
    line().onFrame = [&](int now) {
        // The commit is confirmed; somebody else changes the table before it is read back.
        if (now == framesOfALoad + 2 + 64 + 2) {
            TableImage changed = wanted;
            changed[6][0] ^= 1;
            changed[7][0] ^= 1;
            theRadio().setTable(changed);
        }
    };
    theRadio().setTable(former);
    EXPECT_EQ(client.sendTable(wanted, nobodyLooks),
              (Outcome{false, "The radio holds something else than was sent in channels 7 and 8."}));
}

TEST_F(Exchange, ATableThatChangesWhileItIsReadIsTold) {
    misbehave("");
    ASSERT_TRUE(client.status().succeeded);
    line().onFrame = [&](int now) {
        if (now == 20) {
            theRadio().setTable(wanted);
        }
    };
    EXPECT_EQ(load(), (Outcome{false, "The radio's table changed while it was read; the table here was not changed."}));
}

TEST_F(Exchange, WhatCannotBeKeptIsNotOverwritten) {
    radio::RadioClient refusing(clock, interrupt, [](const std::string&, const TableImage&) {
        return std::expected<std::string, os::FileError>(std::unexpect, os::FileError{"place", "No space left"});
    });
    ASSERT_TRUE(refusing.status().succeeded);
    const auto before = refusing.connection().simulatedRadio()->table();
    EXPECT_EQ(refusing.sendTable(wanted, nobodyLooks),
              (Outcome{false, "What the radio holds cannot be kept (place: No space left); nothing was written to the "
                              "radio."}));
    EXPECT_EQ(refusing.connection().simulatedRadio()->table(), before);
}

TEST_F(Exchange, ARecordWithoutMeaningIsNotLoaded) {
    TableImage bent = former;
    bent[8][59] = 0xFF;
    misbehave("");
    theRadio().setTable(bent);
    const auto [outcome, image] = client.loadTable(nobodyLooks);
    EXPECT_EQ(outcome, (Outcome{false, "The radio holds something unusable in channel 9 (P25TxNetworkAccessCode); the "
                                       "table here was not changed."}));
    EXPECT_FALSE(image);
}

TEST_F(Exchange, ProgressGrowsToTheEnd) {
    misbehave("");
    std::vector<int> seen;
    theRadio().setTable(former);
    ASSERT_TRUE(client.sendTable(wanted, [&](int percent) { seen.push_back(percent); }).succeeded);
    EXPECT_TRUE(std::ranges::is_sorted(seen));
    EXPECT_EQ(seen.front(), 0);
    EXPECT_EQ(seen.back(), 100);
    EXPECT_GT(seen.size(), 90U);
}

TEST_F(Exchange, AStatusIsAskedOnceAndBriefly) {
    misbehave("");
    EXPECT_EQ(client.status(), (Outcome{true, "Simulated radio, serial number 000001, on channel 1."}));
    misbehave("silence");
    const auto began = clock.now();
    EXPECT_EQ(client.status(), (Outcome{false, "The radio does not answer."}));
    EXPECT_EQ(clock.now() - began, 1s);
}

TEST_F(Exchange, ARadioThatWasSwitchedOffBetweenTwoExchangesIsGreetedAgain) {
    misbehave("");
    ASSERT_TRUE(client.selectChannel(7).succeeded);
    EXPECT_EQ(theRadio().selected(), 7);
    theRadio().losePower();
    EXPECT_TRUE(client.selectChannel(255).succeeded);
    EXPECT_EQ(theRadio().selected(), 255);
    EXPECT_TRUE(client.setLevels({1, 2, 254, 255}).succeeded);
    EXPECT_EQ(theRadio().levels(), (radio::Levels{1, 2, 254, 255}));
}

}  // namespace
}  // namespace telvar::tests
