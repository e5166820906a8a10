#include "radio/radio_client.h"

#include <utility>

namespace telvar::radio {

namespace {

using Cause = LinkFailure::Cause;

// Shares of a send, in percent.
constexpr int readUntil = 30;
constexpr int writtenUntil = 65;
constexpr int whole = 100;

// Enough for a radio that has just got its power back, and no trial of patience.
constexpr Patience recoveryPatience{.attempts = 2, .wait = std::chrono::milliseconds(1000)};

[[nodiscard]] Outcome failed(const LinkFailure& failure, const std::string& consequence = {}) {
    return {.succeeded = false, .sentence = failure.what + (consequence.empty() ? "" : "; " + consequence) + "."};
}

[[nodiscard]] Outcome failed(const std::string& what) { return {.succeeded = false, .sentence = what + "."}; }

[[nodiscard]] PartDone share(const Percent& percent, int from, int to) {
    return [&percent, from, to](double part) { percent(from + static_cast<int>(part * (to - from))); };
}

constexpr const char* nothingWritten = "nothing was written to the radio";
constexpr const char* formerTable = "the radio keeps its former table";
constexpr const char* notVerified = "the radio took the new table, which could not be verified";
constexpr const char* unknownTable = "whether the radio took the new table is not known";
constexpr const char* hereUnchanged = "the table here was not changed";

}  // namespace

RadioClient::RadioClient(LinkClock& clock, os::Interrupt& interrupt, KeepTable keep)
    : interrupt_(interrupt), keep_(std::move(keep)), connection_(clock, interrupt) {}

void RadioClient::end() noexcept {
    ending_ = true;
    interrupt_.raise();
}

Outcome RadioClient::sendTable(const TableImage& image, const Percent& percent) {
    percent(0);
    const auto session = connection_.fresh();
    if (!session) {
        return failed(session.error(), nothingWritten);
    }
    const auto former = readTable(**session, share(percent, 0, readUntil));
    if (!former) {
        return failed(former.error(), nothingWritten);
    }
    const auto backup = keep_(connection_.settings().backupFolder, *former);
    if (!backup) {
        return failed("What the radio holds cannot be kept (" + backup.error().path + ": " + backup.error().what +
                      "); " + nothingWritten);
    }
    lastBackup_ = *backup;
    WriteStage stage = WriteStage::NotBegun;
    const auto written = writeTable(**session, image, share(percent, readUntil, writtenUntil), stage);
    return written ? readBack(**session, image, percent) : writeFailed(written.error(), stage, *former, image, percent);
}

Outcome RadioClient::readBack(LinkSession& session, const TableImage& image, const Percent& percent) {
    const auto held = readTable(session, share(percent, writtenUntil, whole));
    if (!held) {
        return failed(held.error(), notVerified);
    }
    if (const auto channels = differences(image, *held); !channels.empty()) {
        return failed("The radio holds something else than was sent in " + channelsText(channels));
    }
    return {.succeeded = true, .sentence = "The radio holds the table; its former one is kept in " + lastBackup_ + "."};
}

// Before the commit no doubt is possible; a new session only makes the radio forget what it was sent.
Outcome RadioClient::writeFailed(const LinkFailure& failure, WriteStage stage, const TableImage& former,
                                 const TableImage& image, const Percent& percent) {
    // An abort has had its effect; one that comes now is a new one.
    if (failure.cause == Cause::Aborted) {
        interrupt_.reset();
        // Looked at behind the reset, which may have taken the raise of end() away.
        if (ending_) {
            interrupt_.raise();
        }
    }
    const auto session = connection_.fresh(recoveryPatience);
    if (stage != WriteStage::Committing) {
        return failed(failure, formerTable);
    }
    const auto state = session ? readState(**session, recoveryPatience) : std::unexpected(session.error());
    if (!state) {
        return failed(failure, unknownTable);
    }
    if (state->checksum == checksumOf(image)) {
        return failure.cause == Cause::Aborted ? failed(failure, notVerified) : readBack(**session, image, percent);
    }
    return failed(failure, state->checksum == checksumOf(former) ? formerTable : unknownTable);
}

Outcome RadioClient::restore(const std::string& file, const Percent& percent) {
    const auto image = loadImage(file);
    return image ? sendTable(*image, percent) : Outcome{.succeeded = false, .sentence = image.error().sentence()};
}

RadioClient::Loaded RadioClient::loadTable(const Percent& percent) {
    percent(0);
    const auto session = connection_.fresh();
    if (!session) {
        return {.outcome = failed(session.error(), hereUnchanged)};
    }
    auto image = readTable(**session, share(percent, 0, whole));
    if (!image) {
        return {.outcome = failed(image.error(), hereUnchanged)};
    }
    for (std::size_t at = 0; at < imageCount; ++at) {
        if (const auto defect = defectOf((*image)[at]); !defect.empty()) {
            return {.outcome = failed("The radio holds something unusable in channel " + std::to_string(at + 1) + " (" +
                                      defect + "); " + hereUnchanged)};
        }
    }
    return {.outcome = {.succeeded = true, .sentence = "The table was loaded from the radio."},
            .image = *std::move(image)};
}

Outcome RadioClient::selectChannel(std::uint8_t channel) {
    const auto answer = ask(Kind::SelectChannel, {channel}, usualPatience);
    if (!answer) {
        return failed(answer.error());
    }
    return *answer == Bytes{channel} ? Outcome{.succeeded = true}
                                     : failed("The radio selected another channel than it was asked for");
}

Outcome RadioClient::setLevels(const Levels& levels) {
    const Bytes payload(levels.begin(), levels.end());
    const auto answer = ask(Kind::SetLevels, payload, usualPatience);
    if (!answer) {
        return failed(answer.error());
    }
    return *answer == payload ? Outcome{.succeeded = true} : failed("The radio set other levels than it was asked for");
}

Outcome RadioClient::status() {
    const auto answer = ask(Kind::Status, {}, shortPatience);
    if (!answer) {
        return failed(answer.error());
    }
    const auto state = stateIn(*answer);
    if (!state) {
        return failed("What answers does not keep to the protocol");
    }
    const Identity& identity = connection_.identity();
    return {.succeeded = true,
            .sentence = identity.model + ", serial number " + identity.serialNumber + ", on channel " +
                        std::to_string(state->selected) + "."};
}

// A radio that was switched off and on since the last exchange is greeted again.
LinkResult<Bytes> RadioClient::ask(Kind kind, const Bytes& payload, const Patience& patience) {
    const bool wasOpen = connection_.isOpen();
    const auto session = connection_.ready(patience);
    if (!session) {
        return std::unexpected(session.error());
    }
    auto answer = (*session)->request(kind, payload, patience);
    const bool stale =
        !answer && (answer.error().cause == Cause::Restarted || answer.error().cause == Cause::Unreachable);
    if (!wasOpen || !stale) {
        return answer;
    }
    const auto again = connection_.fresh(patience);
    return again ? (*again)->request(kind, payload, patience) : std::unexpected(again.error());
}

}  // namespace telvar::radio
