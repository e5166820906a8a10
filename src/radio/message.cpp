#include "radio/message.h"

#include <algorithm>

namespace telvar::radio {

Bytes helloPayload() {
    Bytes payload;
    ByteWriter(payload).u8(protocolVersion).text(programName);
    return payload;
}

Bytes payloadOf(const Identity& identity) {
    Bytes payload;
    ByteWriter(payload)
        .u8(identity.version)
        .text(identity.family)
        .text(identity.model)
        .text(identity.serialNumber)
        .u8(identity.channels)
        .u8(identity.bytesPerRecord);
    return payload;
}

std::optional<Identity> identityIn(ByteView payload) {
    ByteReader reader(payload);
    Identity identity;
    identity.version = reader.u8();
    identity.family = reader.text();
    identity.model = reader.text();
    identity.serialNumber = reader.text();
    identity.channels = reader.u8();
    identity.bytesPerRecord = reader.u8();
    return reader.exact() ? std::optional(identity) : std::nullopt;
}

Bytes payloadOf(const RadioState& state) {
    Bytes payload;
    ByteWriter(payload).u8(state.writing ? 1 : 0).u8(state.selected).raw(state.levels).u32(state.checksum);
    return payload;
}

std::optional<RadioState> stateIn(ByteView payload) {
    ByteReader reader(payload);
    RadioState state;
    state.writing = reader.u8() != 0;
    state.selected = reader.u8();
    for (std::uint8_t& level : state.levels) {
        level = reader.u8();
    }
    state.checksum = reader.u32();
    return reader.exact() ? std::optional(state) : std::nullopt;
}

Bytes payloadOf(const Run& run) { return {run.first, run.count}; }

Bytes payloadOf(const Run& run, const TableImage& image) {
    Bytes payload = payloadOf(run);
    for (std::size_t at = run.first - 1U; at < run.first - 1U + run.count; ++at) {
        ByteWriter(payload).raw(image[at]);
    }
    return payload;
}

bool takeRecords(ByteView payload, const Run& wanted, TableImage& image) {
    if (payload.size() != 2 + wanted.count * recordSize) {
        return false;
    }
    ByteReader reader(payload);
    const Run run{.first = reader.u8(), .count = reader.u8()};
    if (run != wanted) {
        return false;
    }
    for (std::size_t at = run.first - 1U; at < run.first - 1U + run.count; ++at) {
        std::ranges::copy(reader.raw(recordSize), image[at].begin());
    }
    return true;
}

Bytes payloadOf(const Refusal& refusal) {
    return {static_cast<std::uint8_t>(refusal.request), static_cast<std::uint8_t>(refusal.reason)};
}

std::optional<Refusal> refusalIn(ByteView payload) {
    ByteReader reader(payload);
    const auto request = static_cast<Kind>(reader.u8());
    const auto reason = static_cast<Refused>(reader.u8());
    return reader.exact() ? std::optional(Refusal{request, reason}) : std::nullopt;
}

std::string describe(Refused reason) {
    switch (reason) {
    case Refused::UnknownRequest:
        return "does not know a request";
    case Refused::BadRequest:
        return "refuses a request as malformed";
    case Refused::NoSession:
        return "was switched off and on again, or talks to another program";
    case Refused::OtherVersion:
        return "speaks another version of the protocol";
    case Refused::NotWriting:
        return "was not told that a table would come";
    case Refused::RecordsMissing:
        return "did not get every channel";
    case Refused::WrongChecksum:
        return "got a table that does not match its checksum";
    case Refused::NotStored:
        return "could not store the table";
    case Refused::Writing:
        return "is busy receiving a table";
    }
    return "refuses a request for a reason of its own";
}

}  // namespace telvar::radio
