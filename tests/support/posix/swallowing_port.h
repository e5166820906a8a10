// A TCP port of this machine that neither takes nor refuses a connection: its queue is full, and what the system cannot
// put there it drops.
#pragma once

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <vector>

#include "os/posix/descriptor.h"
#include "radio/address.h"

namespace telvar::tests {

class SwallowingPort {
public:
    SwallowingPort() {
        place_.sin_family = AF_INET;
        place_.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(::bind(listener_.get(), place(), sizeof place_), 0);
        EXPECT_EQ(::listen(listener_.get(), 0), 0);
        socklen_t size = sizeof place_;
        EXPECT_EQ(::getsockname(listener_.get(), place(), &size), 0);
        while (connects()) {
            if (partners_.size() > 100) {
                ADD_FAILURE() << "the queue takes every partner";
                return;
            }
        }
    }

    [[nodiscard]] radio::Address address() const {
        return {.way = radio::Address::Way::Tcp, .place = "127.0.0.1", .port = ntohs(place_.sin_port)};
    }

private:
    [[nodiscard]] static os::Descriptor newSocket() {
        return os::Descriptor(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    }
    [[nodiscard]] sockaddr* place() noexcept { return reinterpret_cast<sockaddr*>(&place_); }
    // Whether one more partner finds room in the queue.
    [[nodiscard]] bool connects() {
        partners_.push_back(newSocket());
        ::connect(partners_.back().get(), place(), sizeof place_);
        pollfd partner{.fd = partners_.back().get(), .events = POLLOUT, .revents = 0};
        return ::poll(&partner, 1, 100) > 0;
    }

    sockaddr_in place_{};
    os::Descriptor listener_ = newSocket();
    std::vector<os::Descriptor> partners_;
};

}  // namespace telvar::tests
