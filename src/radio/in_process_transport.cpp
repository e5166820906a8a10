#include "radio/in_process_transport.h"

#include <algorithm>

namespace telvar::radio {

std::expected<void, std::string> InProcessTransport::send(ByteView bytes) {
    line_.send(bytes, clock_.now());
    return {};
}

std::expected<Bytes, std::string> InProcessTransport::receive(LinkTime until) {
    while (!interrupt_.raised()) {
        line_.advance(clock_.now());
        if (Bytes received = line_.takeReceived(); !received.empty()) {
            return received;
        }
        if (clock_.now() >= until) {
            break;
        }
        clock_.wait(std::min(until, line_.next().value_or(until)), interrupt_);
    }
    return Bytes();
}

}  // namespace telvar::radio
