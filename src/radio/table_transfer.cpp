#include "radio/table_transfer.h"

#include <algorithm>

namespace telvar::radio {

namespace {

using Cause = LinkFailure::Cause;

[[nodiscard]] std::unexpected<LinkFailure> malformed() {
    return std::unexpected(LinkFailure{.cause = Cause::Foreign, .what = "What answers does not keep to the protocol"});
}

// The runs of channels that frames carry, one after the other.
template <class Step>
[[nodiscard]] LinkResult<void> forEachRun(const PartDone& done, Step step) {
    for (std::size_t first = 0; first < imageCount; first += recordsPerFrame) {
        const std::size_t count = std::min(recordsPerFrame, imageCount - first);
        const Run run{.first = static_cast<std::uint8_t>(first + 1), .count = static_cast<std::uint8_t>(count)};
        if (LinkResult<void> stepped = step(run); !stepped) {
            return stepped;
        }
        done(static_cast<double>(first + count) / static_cast<double>(imageCount));
    }
    return {};
}

}  // namespace

LinkResult<RadioState> readState(LinkSession& session, const Patience& patience) {
    const auto answer = session.request(Kind::Status, {}, patience);
    if (!answer) {
        return std::unexpected(answer.error());
    }
    const auto state = stateIn(*answer);
    if (!state) {
        return malformed();
    }
    return *state;
}

LinkResult<TableImage> readTable(LinkSession& session, const PartDone& done) {
    TableImage image(imageCount);
    const auto read = forEachRun(done, [&](const Run& run) -> LinkResult<void> {
        const auto answer = session.request(Kind::ReadRecords, payloadOf(run));
        if (!answer) {
            return std::unexpected(answer.error());
        }
        if (!takeRecords(*answer, run, image)) {
            return malformed();
        }
        return {};
    });
    if (!read) {
        return std::unexpected(read.error());
    }
    const auto state = readState(session);
    if (!state) {
        return std::unexpected(state.error());
    }
    if (state->checksum != checksumOf(image)) {
        return std::unexpected(
            LinkFailure{.cause = Cause::Differs, .what = "The radio's table changed while it was read"});
    }
    return image;
}

LinkResult<void> writeTable(LinkSession& session, const TableImage& image, const PartDone& done, WriteStage& stage) {
    const std::uint32_t checksum = checksumOf(image);
    Bytes beginning;
    ByteWriter(beginning).u8(static_cast<std::uint8_t>(imageCount)).u32(checksum);
    stage = WriteStage::Sending;
    if (const auto begun = session.request(Kind::BeginWrite, beginning); !begun) {
        return std::unexpected(begun.error());
    }
    const auto sent = forEachRun(done, [&](const Run& run) -> LinkResult<void> {
        const auto answer = session.request(Kind::WriteRecords, payloadOf(run, image));
        if (!answer) {
            return std::unexpected(answer.error());
        }
        return {};
    });
    if (!sent) {
        return sent;
    }
    stage = WriteStage::Committing;
    const auto committed = session.request(Kind::CommitWrite, {}, commitPatience);
    if (!committed) {
        return std::unexpected(committed.error());
    }
    ByteReader said(*committed);
    if (said.u32() != checksum || !said.exact()) {
        return malformed();
    }
    return {};
}

}  // namespace telvar::radio
