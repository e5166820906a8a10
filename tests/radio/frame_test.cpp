#include "radio/frame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "radio/crc32.h"
#include "radio/hexadecimal.h"

namespace telvar::tests {
namespace {

using radio::Bytes;
using radio::Frame;
using radio::FrameDecoder;
using radio::Kind;

[[nodiscard]] std::vector<Frame> decoded(const Bytes& line) {
    FrameDecoder decoder;
    decoder.push(line);
    std::vector<Frame> frames;
    while (auto frame = decoder.next()) {
        frames.push_back(*std::move(frame));
    }
    return frames;
}

void append(Bytes& line, const Bytes& more) { line.insert(line.end(), more.begin(), more.end()); }

[[nodiscard]] Bytes bytesOf(std::string_view text) {
    Bytes bytes(text.size() / 2);
    EXPECT_TRUE(radio::readHexadecimal(text, bytes));
    return bytes;
}

[[nodiscard]] Bytes randomBytes(std::minstd_rand& random, std::size_t longest) {
    Bytes bytes(random() % (longest + 1));
    for (auto& byte : bytes) {
        // Flags and escapes far more often than by chance.
        constexpr std::array<std::uint8_t, 4> special{0x7E, 0x7D, 0x5E, 0x5D};
        byte = random() % 4 == 0 ? special[random() % special.size()] : static_cast<std::uint8_t>(random());
    }
    return bytes;
}

const Frame status{Kind::Status, 0x1234, 7, {}};

TEST(Frame, StandsBetweenFlagsWithItsChecksum) {
    Bytes content = bytesOf("0212340007");
    const auto checksum = radio::crc32(content);
    radio::ByteWriter(content).u32(checksum);
    EXPECT_EQ(radio::hexadecimal(radio::encoded(status)), "7E" + radio::hexadecimal(content) + "7E");
    EXPECT_EQ(decoded(radio::encoded(status)), std::vector{status});
}

TEST(Frame, EscapesFlagsAndEscapesEverywhere) {
    for (const unsigned session : {0x7E7DU, 0x7D7EU, 0x7E7EU, 0x7D5EU}) {
        const Frame frame{Kind::WriteRecords, static_cast<std::uint16_t>(session), 0x7D7E, bytesOf("7E7D5E5D007E")};
        const auto line = radio::encoded(frame);
        EXPECT_EQ(std::count(line.begin() + 1, line.end() - 1, radio::frameFlag), 0);
        EXPECT_EQ(decoded(line), std::vector{frame});
    }
}

TEST(Frame, EveryByteOfAPayloadComesThrough) {
    Frame frame{Kind::ReadRecords, 1, 2, {}};
    for (unsigned byte = 0; byte < 256; ++byte) {
        frame.payload.push_back(static_cast<std::uint8_t>(byte));
    }
    EXPECT_EQ(decoded(radio::encoded(frame)), std::vector{frame});
}

TEST(FrameDecoder, TakesBytesAsTheyCome) {
    Bytes line = radio::encoded(status);
    append(line, radio::encoded({Kind::SetLevels, 9, 8, bytesOf("007E7DFF")}));
    FrameDecoder decoder;
    std::size_t frames = 0;
    for (const std::uint8_t byte : line) {
        decoder.push(Bytes{byte});
        while (decoder.next()) {
            ++frames;
        }
    }
    EXPECT_EQ(frames, 2U);
    EXPECT_EQ(decoder.damaged(), 0U);
}

TEST(FrameDecoder, TwoFramesMayShareAFlag) {
    Bytes line = radio::encoded(status);
    const auto second = radio::encoded(status);
    line.insert(line.end(), second.begin() + 1, second.end());
    EXPECT_EQ(decoded(line), (std::vector{status, status}));
}

struct Broken {
    const char* what;
    const char* line;
};

class BrokenLine : public testing::TestWithParam<Broken> {};

TEST_P(BrokenLine, GivesNoFrameButTheNextOne) {
    Bytes line = bytesOf(GetParam().line);
    FrameDecoder decoder;
    decoder.push(line);
    EXPECT_FALSE(decoder.next());
    decoder.push(radio::encoded(status));
    EXPECT_EQ(decoder.next(), status);
    EXPECT_FALSE(decoder.next());
    EXPECT_EQ(decoder.damaged(), 1U);
}

INSTANTIATE_TEST_SUITE_P(All, BrokenLine,
                         testing::Values(Broken{"noise without a flag", "001122"},
                                         Broken{"noise with a flag", "0011227E"},
                                         Broken{"a frame without its end", "7E0212340007"},
                                         Broken{"a frame that is too short", "7E021234007E"},
                                         Broken{"a wrong checksum", "7E0212340007000000007E"},
                                         Broken{"an escape before the flag", "7E02127D7E"},
                                         Broken{"an escape at the end", "7E02127D"}),
                         [](const auto& tested) {
                             std::string name = tested.param.what;
                             std::ranges::replace(name, ' ', '_');
                             return name;
                         });

TEST(FrameDecoder, EveryBentBitIsFound) {
    const auto line = radio::encoded({Kind::WriteRecords, 0x1234, 0x5678, bytesOf("0102030405060708090A")});
    for (std::size_t bit = 8; bit < (line.size() - 1) * 8; ++bit) {
        Bytes bent = line;
        bent[bit / 8] ^= static_cast<std::uint8_t>(1U << bit % 8);
        EXPECT_TRUE(decoded(bent).empty()) << "bit " << bit;
    }
}

TEST(FrameDecoder, AFrameBeyondTheLongestIsPassedOver) {
    Frame longest{Kind::WriteRecords, 1, 1, {}};
    longest.payload.assign(radio::largestContent - radio::headerSize - radio::checksumSize, 0x55);
    EXPECT_EQ(decoded(radio::encoded(longest)), std::vector{longest});
    longest.payload.push_back(0x55);
    Bytes line = radio::encoded(longest);
    append(line, radio::encoded(status));
    EXPECT_EQ(decoded(line), std::vector{status});
}

TEST(FrameDecoder, FindsTheNextFrameAfterAnyNoise) {
    std::minstd_rand random(2024);
    FrameDecoder decoder;
    for (int round = 0; round < 20'000; ++round) {
        const Frame frame{static_cast<Kind>(random()), static_cast<std::uint16_t>(random()),
                          static_cast<std::uint16_t>(random()), randomBytes(random, 40)};
        decoder.push(randomBytes(random, 60));
        while (decoder.next()) {
        }
        decoder.push(radio::encoded(frame));
        ASSERT_EQ(decoder.next(), frame) << "round " << round;
        ASSERT_FALSE(decoder.next());
    }
}

TEST(FrameDecoder, NoiseAloneIsNoFrame) {
    std::minstd_rand random(77);
    FrameDecoder decoder;
    for (int round = 0; round < 2'000; ++round) {
        decoder.push(randomBytes(random, 1'000));
    }
    EXPECT_FALSE(decoder.next());
    EXPECT_GT(decoder.damaged(), 0U);
}

}  // namespace
}  // namespace telvar::tests
