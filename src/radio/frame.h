// One frame of the link protocol and its way onto the line and off it. A frame stands between two flag bytes, which
// occur nowhere inside it, so that a reader finds the next frame after any noise. What frames mean is message.h's.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>

#include "radio/bytes.h"

namespace telvar::radio {

enum class Kind : std::uint8_t {
    Hello = 0x01,
    Status = 0x02,
    SelectChannel = 0x03,
    SetLevels = 0x04,
    ReadRecords = 0x05,
    BeginWrite = 0x06,
    WriteRecords = 0x07,
    CommitWrite = 0x08,
    Refusal = 0xFF,
};

// Set in the kind of what the radio says, clear in what it is asked.
inline constexpr std::uint8_t answerBit = 0x80;

[[nodiscard]] constexpr Kind answerTo(Kind request) noexcept {
    return static_cast<Kind>(static_cast<std::uint8_t>(request) | answerBit);
}
[[nodiscard]] constexpr bool isAnswer(Kind kind) noexcept { return (static_cast<std::uint8_t>(kind) & answerBit) != 0; }

struct Frame {
    Kind kind{};
    std::uint16_t session = 0;
    std::uint16_t sequence = 0;
    Bytes payload;
    bool operator==(const Frame&) const = default;
};

inline constexpr std::uint8_t frameFlag = 0x7E;
inline constexpr std::uint8_t frameEscape = 0x7D;
inline constexpr std::uint8_t escapeMask = 0x20;

inline constexpr std::size_t headerSize = 5;
inline constexpr std::size_t checksumSize = 4;
// Between the flags, before escaping.
inline constexpr std::size_t largestContent = 1024;

// With both flags.
[[nodiscard]] Bytes encoded(const Frame& frame);

// Takes bytes as they come and gives the frames that arrived whole.
class FrameDecoder {
public:
    void push(ByteView bytes);
    // In the order of arrival.
    [[nodiscard]] std::optional<Frame> next();
    // Frames that were cut, too long or did not match their checksum, noise between flags included.
    [[nodiscard]] std::size_t damaged() const noexcept { return damaged_; }

private:
    void end();
    void take(ByteView bytes);

    Bytes content_;
    bool escaped_ = false;
    // Until the next flag, whatever comes belongs to nothing.
    bool lost_ = false;
    std::deque<Frame> frames_;
    std::size_t damaged_ = 0;
};

}  // namespace telvar::radio
