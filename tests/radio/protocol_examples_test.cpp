// The examples of docs/link-protocol.md are what this program sends and what the simulated radio answers.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "radio/hexadecimal.h"
#include "radio/message.h"
#include "radio/simulated_radio.h"
#include "support/build_paths.h"
#include "support/temporary_folder.h"

namespace telvar::tests {
namespace {

using model::ChannelKey;
using radio::Bytes;
using radio::Frame;
using radio::Kind;

constexpr std::uint16_t session = 0x1A2B;

[[nodiscard]] std::vector<std::string> documented() {
    const auto page = TemporaryFolder::read(std::string(TELVAR_SOURCE_DIR) + "/docs/link-protocol.md");
    const std::string opening = "```hex\n";
    std::vector<std::string> examples;
    for (auto at = page.find(opening); at != std::string::npos; at = page.find(opening, at)) {
        at += opening.size();
        const auto end = page.find("```", at);
        const auto text = page.substr(at, end - at);
        examples.push_back(base::replacedAll(base::replacedAll(text, "\n", ""), " ", ""));
        at = end + 3;
    }
    return examples;
}

[[nodiscard]] std::string line(Kind kind, std::uint16_t sequence, const Bytes& payload = {}) {
    return radio::hexadecimal(radio::encoded({kind, session, sequence, payload}));
}

[[nodiscard]] std::string answerOf(radio::SimulatedRadio& theRadio, Kind kind, std::uint16_t sequence,
                                   const Bytes& payload = {}) {
    const auto answer = theRadio.answer({kind, session, sequence, payload});
    return answer ? radio::hexadecimal(radio::encoded(*answer)) : "nothing";
}

[[nodiscard]] Bytes channelSeven() {
    auto image = radio::emptyImage();
    auto& record = image[6];
    radio::putInto(record, ChannelKey::TxFreq, base::Value{156'400'000.0});
    radio::putInto(record, ChannelKey::RxFreq, base::Value{161'000'000.0});
    radio::putInto(record, ChannelKey::TxSub, base::Value{88.5});
    radio::putInto(record, ChannelKey::ModeBits, base::Value{std::int16_t{0x81}});
    radio::putInto(record, ChannelKey::scan, base::Value{true});
    return radio::payloadOf({7, 1}, image);
}

TEST(ProtocolExamples, AreWhatIsSentAndAnswered) {
    radio::SimulatedRadio theRadio;
    const auto identity = answerOf(theRadio, Kind::Hello, 0, radio::helloPayload());
    (void)answerOf(theRadio, Kind::Status, 1);
    const auto selected = answerOf(theRadio, Kind::SelectChannel, 2, {126});
    for (std::uint16_t sequence = 3; sequence < 5; ++sequence) {
        (void)answerOf(theRadio, Kind::Status, sequence);
    }
    const Bytes beginning{0xFF, 0xCB, 0xF4, 0x39, 0x26};
    (void)answerOf(theRadio, Kind::BeginWrite, 5, beginning);
    EXPECT_EQ(documented(),
              (std::vector{line(Kind::Hello, 0, radio::helloPayload()), identity, line(Kind::Status, 1),
                           line(Kind::SelectChannel, 2, {126}), selected, line(Kind::SetLevels, 3, {128, 125, 255, 0}),
                           line(Kind::ReadRecords, 4, radio::payloadOf(radio::Run{1, 8})),
                           line(Kind::BeginWrite, 5, beginning), line(Kind::WriteRecords, 7, channelSeven()),
                           line(Kind::CommitWrite, 6), answerOf(theRadio, Kind::CommitWrite, 6)}));
}

}  // namespace
}  // namespace telvar::tests
