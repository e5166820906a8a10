// How bytes reach a radio and come back: in this process, over TCP, over a serial port.
#pragma once

#include <expected>
#include <memory>
#include <string>

#include "base/pinned.h"
#include "radio/bytes.h"
#include "radio/link_clock.h"

namespace telvar::radio {

class Transport : private base::Pinned {
public:
    virtual ~Transport() = default;

    // A failure, described without a final full stop, means that the way is of no more use.
    [[nodiscard]] virtual std::expected<void, std::string> send(ByteView bytes) = 0;
    // What has arrived, waiting for it until then; nothing where nothing came in time or the interrupt was raised.
    [[nodiscard]] virtual std::expected<Bytes, std::string> receive(LinkTime until) = 0;
};

using OpenedTransport = std::expected<std::unique_ptr<Transport>, std::string>;

}  // namespace telvar::radio
