#include "radio/simulated_radio.h"

#include <algorithm>
#include <utility>

#include "base/conversion.h"
#include "model/mode_bits.h"
#include "os/files.h"
#include "os/folders.h"
#include "radio/image_file.h"

namespace telvar::radio {

namespace {

using model::ChannelKey;

[[nodiscard]] Identity identity(bool anotherRadio) {
    return {.family = anotherRadio ? "BASALT" : std::string(radioFamily),
            .model = "Simulated radio",
            .serialNumber = "000001",
            .channels = static_cast<std::uint8_t>(imageCount),
            .bytesPerRecord = static_cast<std::uint8_t>(recordSize)};
}

}  // namespace

SimulatedRadio::SimulatedRadio() { tuneTo(selected_); }

std::expected<std::unique_ptr<SimulatedRadio>, os::FileError> SimulatedRadio::open(const std::string& file) {
    auto radio = std::make_unique<SimulatedRadio>();
    if (!file.empty()) {
        auto lock = os::FileLock::tryAcquire(os::canonicalPath(file) + ".lock");
        if (!lock) {
            return std::unexpected(os::FileError{file, lock.error().what});
        }
        radio->lock_.emplace(*std::move(lock));
    }
    if (!file.empty() && os::fileExists(file)) {
        auto image = loadImage(file);
        if (!image) {
            return std::unexpected(image.error());
        }
        radio->table_ = *std::move(image);
        radio->tuneTo(radio->selected_);
    }
    radio->file_ = file;
    return radio;
}

void SimulatedRadio::losePower() {
    session_ = 0;
    staged_.reset();
    tuneTo(1);
}

std::optional<Frame> SimulatedRadio::answer(const Frame& request) {
    if (isAnswer(request.kind) || request.session == 0) {
        return std::nullopt;
    }
    if (request.kind == Kind::Hello) {
        return greet(request);
    }
    if (request.session != session_) {
        return Frame{Kind::Refusal, request.session, request.sequence,
                     payloadOf(Refusal{request.kind, Refused::NoSession})};
    }
    if (request.sequence == lastAnswer_.sequence) {
        return lastAnswer_;
    }
    if (request.sequence != static_cast<std::uint16_t>(lastAnswer_.sequence + 1U)) {
        return std::nullopt;
    }
    return say(request, carryOut(request));
}

// A greeting of the session that already runs is a late copy, unless nothing else was asked yet.
std::optional<Frame> SimulatedRadio::greet(const Frame& request) {
    if (request.session == session_) {
        return lastAnswer_.sequence == 0 ? std::optional(lastAnswer_) : std::nullopt;
    }
    if (request.sequence != 0) {
        return std::nullopt;
    }
    staged_.reset();
    session_ = request.session;
    return say(request, payloadOf(identity(pretending_)));
}

Frame SimulatedRadio::say(const Frame& request, const Answer& answer) {
    lastAnswer_ = answer ? Frame{answerTo(request.kind), request.session, request.sequence, *answer}
                         : Frame{Kind::Refusal, request.session, request.sequence,
                                 payloadOf(Refusal{request.kind, answer.error()})};
    return lastAnswer_;
}

SimulatedRadio::Answer SimulatedRadio::carryOut(const Frame& request) {
    switch (request.kind) {
    case Kind::Status:
        return state();
    case Kind::SelectChannel:
        return select(request.payload);
    case Kind::SetLevels:
        return setLevels(request.payload);
    case Kind::ReadRecords:
        return readRecords(request.payload);
    case Kind::BeginWrite:
        return beginWrite(request.payload);
    case Kind::WriteRecords:
        return writeRecords(request.payload);
    case Kind::CommitWrite:
        return commitWrite(request.payload);
    default:
        return std::unexpected(Refused::UnknownRequest);
    }
}

SimulatedRadio::Answer SimulatedRadio::state() const {
    return payloadOf(RadioState{
        .writing = staged_.has_value(), .selected = selected_, .levels = levels_, .checksum = checksumOf(table_)});
}

SimulatedRadio::Answer SimulatedRadio::select(ByteView payload) {
    if (payload.size() != 1 || payload.front() == 0) {
        return std::unexpected(Refused::BadRequest);
    }
    if (staged_) {
        return std::unexpected(Refused::Writing);
    }
    tuneTo(payload.front());
    return Bytes{selected_};
}

SimulatedRadio::Answer SimulatedRadio::setLevels(ByteView payload) {
    if (payload.size() != levels_.size()) {
        return std::unexpected(Refused::BadRequest);
    }
    std::ranges::copy(payload, levels_.begin());
    return Bytes(levels_.begin(), levels_.end());
}

SimulatedRadio::Answer SimulatedRadio::readRecords(ByteView payload) const {
    ByteReader reader(payload);
    const Run run{.first = reader.u8(), .count = reader.u8()};
    if (!reader.exact() || !isUsable(run)) {
        return std::unexpected(Refused::BadRequest);
    }
    return payloadOf(run, table_);
}

SimulatedRadio::Answer SimulatedRadio::beginWrite(ByteView payload) {
    ByteReader reader(payload);
    const auto count = reader.u8();
    const auto checksum = reader.u32();
    if (!reader.exact() || count != imageCount) {
        return std::unexpected(Refused::BadRequest);
    }
    staged_ = Staged{.checksum = checksum, .image = TableImage(imageCount), .arrived = {}};
    return Bytes();
}

SimulatedRadio::Answer SimulatedRadio::writeRecords(ByteView payload) {
    if (!staged_) {
        return std::unexpected(Refused::NotWriting);
    }
    ByteReader reader(payload);
    const Run run{.first = reader.u8(), .count = reader.u8()};
    if (!isUsable(run) || !takeRecords(payload, run, staged_->image)) {
        return std::unexpected(Refused::BadRequest);
    }
    for (std::size_t at = run.first - 1U; at < run.first - 1U + run.count; ++at) {
        staged_->arrived.set(at);
    }
    return payloadOf(run);
}

SimulatedRadio::Answer SimulatedRadio::commitWrite(ByteView payload) {
    if (!payload.empty()) {
        return std::unexpected(Refused::BadRequest);
    }
    if (!staged_) {
        return std::unexpected(Refused::NotWriting);
    }
    const Staged staged = *std::exchange(staged_, std::nullopt);
    if (!staged.arrived.all()) {
        return std::unexpected(Refused::RecordsMissing);
    }
    if (checksumOf(staged.image) != staged.checksum) {
        return std::unexpected(Refused::WrongChecksum);
    }
    if (!file_.empty() && !saveImage(file_, staged.image)) {
        return std::unexpected(Refused::NotStored);
    }
    table_ = staged.image;
    tuneTo(selected_);
    Bytes said;
    ByteWriter(said).u32(staged.checksum);
    return said;
}

// The levels of a channel are in force from its selection on, until others are set.
void SimulatedRadio::tuneTo(std::uint8_t channel) {
    selected_ = channel;
    const RecordImage& record = table_[channel - 1U];
    const bool narrow = (base::toBits(valueIn(record, ChannelKey::ModeBits)) & model::mode::narrowBand) != 0;
    const std::array keys =
        narrow
            ? std::array{ChannelKey::TxPower, ChannelKey::NBRefOscFreq, ChannelKey::NBVCODev, ChannelKey::NBRefOscDev}
            : std::array{ChannelKey::TxPower, ChannelKey::RefOscFreq, ChannelKey::VCODev, ChannelKey::RefOscDev};
    for (std::size_t at = 0; at < keys.size(); ++at) {
        const auto level = base::toInt16(valueIn(record, keys[at]));
        levels_[at] = static_cast<std::uint8_t>(std::clamp<int>(level, 0, 255));
    }
}

}  // namespace telvar::radio
