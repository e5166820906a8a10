#include "radio/stream_transport.h"

#include <algorithm>

namespace telvar::radio {

namespace {

// A partner that takes nothing for so long will not take anything.
constexpr std::chrono::milliseconds writeWait{5000};
constexpr std::size_t readSize = 4096;

}  // namespace

std::expected<void, std::string> StreamTransport::send(ByteView bytes) { return stream_->write(bytes, writeWait); }

std::expected<Bytes, std::string> StreamTransport::receive(LinkTime until) {
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(until - clock_.now());
    Bytes received(readSize);
    const auto got = stream_->read(received, std::max(wait, std::chrono::milliseconds(0)));
    if (!got) {
        return std::unexpected(got.error());
    }
    received.resize(*got);
    return received;
}

}  // namespace telvar::radio
