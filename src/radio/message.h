// What the payloads of frames say, beyond single bytes: the radio's identity, its state, runs of records, refusals.
// docs/link-protocol.md describes each byte.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "radio/bytes.h"
#include "radio/frame.h"
#include "radio/table_image.h"

namespace telvar::radio {

inline constexpr std::uint8_t protocolVersion = 1;
inline constexpr std::string_view radioFamily = "TELVAR";
inline constexpr std::string_view programName = "telvar";
// A frame of so many takes half a second at 9600 bits per second.
inline constexpr std::size_t recordsPerFrame = 8;
inline constexpr std::size_t levelCount = 4;

using Levels = std::array<std::uint8_t, levelCount>;

// The answer to Hello.
struct Identity {
    std::uint8_t version = protocolVersion;
    std::string family;
    std::string model;
    std::string serialNumber;
    std::uint8_t channels = 0;
    std::uint8_t bytesPerRecord = 0;
    bool operator==(const Identity&) const = default;
};

[[nodiscard]] Bytes helloPayload();
[[nodiscard]] Bytes payloadOf(const Identity& identity);
[[nodiscard]] std::optional<Identity> identityIn(ByteView payload);

// The answer to Status.
struct RadioState {
    bool writing = false;        // a table is being received; the former one is still in force
    std::uint8_t selected = 0;   // channel, 1 to 255
    Levels levels{};             // transmit power, reference bias, VCO deviation, reference level
    std::uint32_t checksum = 0;  // of the table in force
    bool operator==(const RadioState&) const = default;
};

[[nodiscard]] Bytes payloadOf(const RadioState& state);
[[nodiscard]] std::optional<RadioState> stateIn(ByteView payload);

// A run of channels, in requests to read and in front of records.
struct Run {
    std::uint8_t first = 0;  // channel, 1 to 255
    std::uint8_t count = 0;
    bool operator==(const Run&) const = default;
};

[[nodiscard]] constexpr bool isUsable(const Run& run) noexcept {
    return run.first >= 1 && run.count >= 1 && run.count <= recordsPerFrame && run.first + run.count <= 256;
}
[[nodiscard]] Bytes payloadOf(const Run& run);
[[nodiscard]] Bytes payloadOf(const Run& run, const TableImage& image);
// Copies the records behind a run into the image; false where the payload is not exactly the wanted run.
[[nodiscard]] bool takeRecords(ByteView payload, const Run& wanted, TableImage& image);

enum class Refused : std::uint8_t {
    UnknownRequest = 1,
    BadRequest = 2,
    NoSession = 3,
    OtherVersion = 4,
    NotWriting = 5,
    RecordsMissing = 6,
    WrongChecksum = 7,
    NotStored = 8,
    Writing = 9,
};

struct Refusal {
    Kind request{};
    Refused reason{};
    bool operator==(const Refusal&) const = default;
};

[[nodiscard]] Bytes payloadOf(const Refusal& refusal);
[[nodiscard]] std::optional<Refusal> refusalIn(ByteView payload);
// For a sentence that begins with "The radio ".
[[nodiscard]] std::string describe(Refused reason);

}  // namespace telvar::radio
