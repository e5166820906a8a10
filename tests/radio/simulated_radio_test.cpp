// The radio's side of the protocol, frame by frame.
#include "radio/simulated_radio.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "radio/image_file.h"
#include "support/temporary_folder.h"
#include "tables.h"

namespace telvar::tests {
namespace {

using radio::Bytes;
using radio::Frame;
using radio::Kind;
using radio::Refusal;
using radio::Refused;

constexpr std::uint16_t session = 0x0101;

struct SimulatedRadio : testing::Test {
    [[nodiscard]] std::optional<Frame> ask(Kind kind, std::uint16_t at, const Bytes& payload = {},
                                           std::uint16_t number = session) {
        return theRadio->answer({kind, number, at, payload});
    }
    // In the session's next frame; the payload of the answer, nothing where there is none or a refusal.
    [[nodiscard]] std::optional<Bytes> said(Kind kind, const Bytes& payload = {}) {
        const auto answer = ask(kind, ++sequence, payload);
        return answer && answer->kind == radio::answerTo(kind) ? std::optional(answer->payload) : std::nullopt;
    }
    [[nodiscard]] std::optional<Refused> refused(Kind kind, const Bytes& payload = {}) {
        const auto answer = ask(kind, ++sequence, payload);
        const auto refusal = answer && answer->kind == Kind::Refusal ? radio::refusalIn(answer->payload) : std::nullopt;
        return refusal && refusal->request == kind ? std::optional(refusal->reason) : std::nullopt;
    }
    void greet() {
        ASSERT_TRUE(ask(Kind::Hello, 0, radio::helloPayload()));
        sequence = 0;
    }
    [[nodiscard]] static Bytes beginning(const radio::TableImage& image) {
        Bytes payload;
        radio::ByteWriter(payload).u8(255).u32(radio::checksumOf(image));
        return payload;
    }
    void sendRecords(const radio::TableImage& image, int upTo = 255) {
        for (int first = 1; first <= upTo; ++first) {
            const radio::Run run{static_cast<std::uint8_t>(first), 1};
            ASSERT_EQ(said(Kind::WriteRecords, radio::payloadOf(run, image)), radio::payloadOf(run));
        }
    }

    TemporaryFolder folder;
    std::unique_ptr<radio::SimulatedRadio> theRadio = std::make_unique<radio::SimulatedRadio>();
    std::uint16_t sequence = 0;
};

TEST_F(SimulatedRadio, SaysWhoItIs) {
    const auto answer = ask(Kind::Hello, 0, radio::helloPayload());
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->kind, radio::answerTo(Kind::Hello));
    EXPECT_EQ(answer->session, session);
    const auto identity = radio::identityIn(answer->payload);
    ASSERT_TRUE(identity);
    EXPECT_EQ(identity->family, "TELVAR");
    EXPECT_EQ(identity->version, 1);
    EXPECT_EQ(identity->channels, 255);
    EXPECT_EQ(identity->bytesPerRecord, 71);
}

TEST_F(SimulatedRadio, KnowsNobodyWhoHasNotGreeted) {
    EXPECT_EQ(refused(Kind::Status), Refused::NoSession);
    greet();
    const auto answer = ask(Kind::Status, 1, {}, 0x0202);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->session, 0x0202);
    EXPECT_EQ(radio::refusalIn(answer->payload), (Refusal{Kind::Status, Refused::NoSession}));
}

TEST_F(SimulatedRadio, SaysNothingToWhatIsNoRequest) {
    EXPECT_FALSE(ask(Kind::Hello, 0, radio::helloPayload(), 0));
    greet();
    EXPECT_FALSE(ask(radio::answerTo(Kind::Status), 1));
    EXPECT_FALSE(ask(Kind::Refusal, 1));
}

TEST_F(SimulatedRadio, RepeatsAnAnswerInsteadOfDoingThingsTwice) {
    greet();
    ASSERT_EQ(ask(Kind::SelectChannel, 1, {9}), (Frame{radio::answerTo(Kind::SelectChannel), session, 1, {9}}));
    // The same sequence number once more, whatever it carries.
    EXPECT_EQ(ask(Kind::SelectChannel, 1, {11}), (Frame{radio::answerTo(Kind::SelectChannel), session, 1, {9}}));
    EXPECT_EQ(theRadio->selected(), 9);
}

TEST_F(SimulatedRadio, PassesOverLateAndEarlyFrames) {
    greet();
    ASSERT_TRUE(ask(Kind::SelectChannel, 1, {7}));
    ASSERT_TRUE(ask(Kind::SelectChannel, 2, {8}));
    EXPECT_FALSE(ask(Kind::SelectChannel, 1, {7}));
    EXPECT_FALSE(ask(Kind::SelectChannel, 4, {9}));
    EXPECT_EQ(theRadio->selected(), 8);
}

TEST_F(SimulatedRadio, CountsOnBeyondTheLastSequenceNumber) {
    greet();
    for (int round = 0; round <= 0xFFFF; ++round) {
        ASSERT_TRUE(said(Kind::SelectChannel, {5})) << round;
    }
    EXPECT_EQ(sequence, 0);
    EXPECT_TRUE(said(Kind::SelectChannel, {6}));
}

TEST_F(SimulatedRadio, ALateGreetingOfTheSameSessionEndsNothing) {
    greet();
    EXPECT_TRUE(ask(Kind::Hello, 0, radio::helloPayload()));
    ASSERT_TRUE(said(Kind::BeginWrite, beginning(sampleImage(1))));
    EXPECT_FALSE(ask(Kind::Hello, 0, radio::helloPayload()));
    EXPECT_TRUE(theRadio->writing());
    EXPECT_TRUE(ask(Kind::Hello, 0, radio::helloPayload(), 0x0202));
    EXPECT_FALSE(theRadio->writing());
}

TEST_F(SimulatedRadio, RefusesRequestsThatAreMalformed) {
    greet();
    EXPECT_EQ(refused(Kind::SelectChannel, {0}), Refused::BadRequest);
    EXPECT_EQ(refused(Kind::SelectChannel, {}), Refused::BadRequest);
    EXPECT_EQ(refused(Kind::SetLevels, {1, 2, 3}), Refused::BadRequest);
    EXPECT_EQ(refused(Kind::ReadRecords, {0, 1}), Refused::BadRequest);
    EXPECT_EQ(refused(Kind::ReadRecords, {1, 0}), Refused::BadRequest);
    EXPECT_EQ(refused(Kind::ReadRecords, {1, 9}), Refused::BadRequest);
    EXPECT_EQ(refused(Kind::ReadRecords, {255, 2}), Refused::BadRequest);
    EXPECT_EQ(refused(Kind::ReadRecords, {1, 1, 1}), Refused::BadRequest);
    EXPECT_EQ(refused(Kind::BeginWrite, {254, 0, 0, 0, 0}), Refused::BadRequest);
    EXPECT_EQ(refused(static_cast<Kind>(0x55)), Refused::UnknownRequest);
    EXPECT_EQ(refused(Kind::WriteRecords, {1, 1}), Refused::NotWriting);
    EXPECT_EQ(refused(Kind::CommitWrite), Refused::NotWriting);
    ASSERT_TRUE(said(Kind::BeginWrite, beginning(sampleImage(1))));
    EXPECT_EQ(refused(Kind::WriteRecords, {1, 1, 0}), Refused::BadRequest);
    EXPECT_EQ(refused(Kind::SelectChannel, {1}), Refused::Writing);
}

TEST_F(SimulatedRadio, TakesATableAtItsCommitOnly) {
    theRadio->setTable(sampleImage(1));
    greet();
    ASSERT_TRUE(said(Kind::BeginWrite, beginning(sampleImage(2))));
    sendRecords(sampleImage(2));
    EXPECT_EQ(theRadio->table(), sampleImage(1));
    EXPECT_TRUE(said(Kind::CommitWrite));
    EXPECT_EQ(theRadio->table(), sampleImage(2));
}

TEST_F(SimulatedRadio, TakesNoTableThatIsNotWholeOrNotTheOneAnnounced) {
    theRadio->setTable(sampleImage(1));
    greet();
    ASSERT_TRUE(said(Kind::BeginWrite, beginning(sampleImage(2))));
    sendRecords(sampleImage(2), 254);
    EXPECT_EQ(refused(Kind::CommitWrite), Refused::RecordsMissing);
    ASSERT_TRUE(said(Kind::BeginWrite, beginning(sampleImage(1))));
    sendRecords(sampleImage(2));
    EXPECT_EQ(refused(Kind::CommitWrite), Refused::WrongChecksum);
    EXPECT_EQ(theRadio->table(), sampleImage(1));
}

TEST_F(SimulatedRadio, KeepsItsTableInAFile) {
    const auto path = folder / "state";
    theRadio = *radio::SimulatedRadio::open(path);
    greet();
    ASSERT_TRUE(said(Kind::BeginWrite, beginning(sampleImage(2))));
    sendRecords(sampleImage(2));
    ASSERT_TRUE(said(Kind::CommitWrite));
    EXPECT_EQ(radio::loadImage(path), sampleImage(2));
    theRadio.reset();
    EXPECT_EQ((*radio::SimulatedRadio::open(path))->table(), sampleImage(2));
}

TEST_F(SimulatedRadio, HasItsFileForItself) {
    const auto path = folder / "state";
    theRadio = *radio::SimulatedRadio::open(path);
    const auto second = radio::SimulatedRadio::open(folder / "./state");
    ASSERT_FALSE(second);
    EXPECT_EQ(second.error().sentence(), folder / "./state: Is in use by another program.");
    theRadio.reset();
    EXPECT_TRUE(radio::SimulatedRadio::open(path));
}

TEST_F(SimulatedRadio, IsNotMadeWhereItsFileCannotBe) {
    const auto opened = radio::SimulatedRadio::open(folder / "missing/state");
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().sentence(), folder / "missing/state: No such file or directory.");
}

TEST_F(SimulatedRadio, SaysWhenItCannotStoreATable) {
    theRadio = *radio::SimulatedRadio::open(folder / "state");
    std::filesystem::create_directory(folder / "state");
    greet();
    ASSERT_TRUE(said(Kind::BeginWrite, beginning(sampleImage(2))));
    sendRecords(sampleImage(2));
    EXPECT_EQ(refused(Kind::CommitWrite), Refused::NotStored);
    EXPECT_EQ(theRadio->table(), radio::emptyImage());
}

TEST_F(SimulatedRadio, IsNotMadeFromAnotherFile) {
    TemporaryFolder::write(folder / "state", "telvar-radio-table 1\n");
    const auto opened = radio::SimulatedRadio::open(folder / "state");
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().what, "Does not hold 255 channels");
}

TEST_F(SimulatedRadio, HasTheLevelsOfItsChannelUntilOthersAreSet) {
    auto table = radio::emptyImage();
    radio::putInto(table[6], model::ChannelKey::TxPower, base::Value{std::int16_t{1}});
    radio::putInto(table[6], model::ChannelKey::RefOscFreq, base::Value{std::int16_t{2}});
    radio::putInto(table[6], model::ChannelKey::NBRefOscFreq, base::Value{std::int16_t{9}});
    theRadio->setTable(table);
    greet();
    EXPECT_EQ(said(Kind::SelectChannel, {7}), (Bytes{7}));
    EXPECT_EQ(theRadio->levels(), (radio::Levels{1, 2, 128, 128}));
    EXPECT_EQ(said(Kind::SetLevels, {4, 3, 2, 1}), (Bytes{4, 3, 2, 1}));
    const auto state = radio::stateIn(*said(Kind::Status));
    ASSERT_TRUE(state);
    EXPECT_EQ(*state, (radio::RadioState{.selected = 7, .levels = {4, 3, 2, 1}, .checksum = radio::checksumOf(table)}));
    radio::putInto(table[6], model::ChannelKey::ModeBits, base::Value{std::int16_t{0x80}});
    theRadio->setTable(table);
    EXPECT_TRUE(said(Kind::SelectChannel, {7}));
    EXPECT_EQ(theRadio->levels(), (radio::Levels{1, 9, 128, 128}));
}

}  // namespace
}  // namespace telvar::tests
