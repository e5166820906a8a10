// A simulated radio that serves TCP on this machine, with a thread of its own, until the end of the test.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <utility>

#include "os/interrupt.h"
#include "os/tcp.h"
#include "radio/address.h"
#include "radio/radio_server.h"

namespace telvar::tests {

class ServedRadio {
public:
    using OnAnswer = std::function<void(const radio::Frame& request, const radio::Frame& answer)>;

    // `onAnswer` is called by the radio's thread.
    explicit ServedRadio(const std::string& faults = {}, OnAnswer onAnswer = {})
        : line_(radio, *radio::parseFaults(faults)) {
        line_.onAnswer = std::move(onAnswer);
        thread_ = std::thread([this] { EXPECT_TRUE(radio::serve(line_, listener_, interrupt_)); });
    }
    ServedRadio(const ServedRadio&) = delete;
    ServedRadio& operator=(const ServedRadio&) = delete;
    ServedRadio(ServedRadio&&) = delete;
    ServedRadio& operator=(ServedRadio&&) = delete;
    ~ServedRadio() { stop(); }

    void stop() {
        interrupt_.raise();
        if (thread_.joinable()) {
            thread_.join();
        }
    }
    [[nodiscard]] radio::Address address() const {
        return {.way = radio::Address::Way::Tcp, .place = "127.0.0.1", .port = listener_.port()};
    }

    // To be looked at or changed before anybody has connected.
    [[nodiscard]] radio::SimulatedLine& line() noexcept { return line_; }

    radio::SimulatedRadio radio;

private:
    radio::SimulatedLine line_;
    os::Interrupt interrupt_;
    os::TcpListener listener_ = *os::TcpListener::open(0);
    std::thread thread_;
};

}  // namespace telvar::tests
