// A two-way stream of bytes: a socket or a serial port. One thread at a time uses it; another one ends its waits with
// the interrupt that it was made with.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <memory>
#include <span>
#include <string>

#include "base/pinned.h"
#include "os/interrupt.h"

namespace telvar::os {

class ByteStream : private base::Pinned {
public:
    virtual ~ByteStream() = default;

    // Reads what is there, waiting at most that long for the first byte. 0 where nothing came or the interrupt was
    // raised; a failure, described without a final full stop, where the stream is of no more use.
    [[nodiscard]] virtual std::expected<std::size_t, std::string> read(std::span<std::uint8_t> buffer,
                                                                       std::chrono::milliseconds wait) = 0;

    // Hands everything to the system. A partner that takes nothing for that long is a failure; a raised interrupt ends
    // it early and is none.
    [[nodiscard]] virtual std::expected<void, std::string> write(std::span<const std::uint8_t> bytes,
                                                                 std::chrono::milliseconds wait) = 0;
};

using OpenedStream = std::expected<std::unique_ptr<ByteStream>, std::string>;

}  // namespace telvar::os
