#include "os/tcp.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <cerrno>

#include "os/posix/descriptor_stream.h"
#include "os/posix/interrupt_handle.h"

namespace telvar::os {

namespace {

using Failed = std::unexpected<std::string>;
using Clock = std::chrono::steady_clock;

[[nodiscard]] long putToSocket(int descriptor, const void* bytes, std::size_t count) {
    return ::send(descriptor, bytes, count, MSG_NOSIGNAL);
}

[[nodiscard]] Descriptor newSocket() {
    return Descriptor(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

[[nodiscard]] std::unique_ptr<ByteStream> streamOverSocket(Descriptor socket, const Interrupt& interrupt) {
    const int on = 1;
    ::setsockopt(socket.get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return streamOver(std::move(socket), &putToSocket, interrupt);
}

[[nodiscard]] sockaddr* general(sockaddr_in& address) noexcept { return reinterpret_cast<sockaddr*>(&address); }

}  // namespace

OpenedStream connectTcp(const std::string& host, std::uint16_t port, std::chrono::milliseconds wait,
                        const Interrupt& interrupt) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    if (::inet_pton(AF_INET, host == "localhost" ? "127.0.0.1" : host.c_str(), &address.sin_addr) != 1) {
        return Failed("\"" + host + "\" is not a numeric address");
    }
    Descriptor socket = newSocket();
    if (!socket) {
        return Failed(errorText(errno));
    }
    if (::connect(socket.get(), general(address), sizeof address) != 0) {
        if (errno != EINPROGRESS) {
            return Failed(errorText(errno));
        }
        if (waitForDescriptor(socket.get(), POLLOUT, interrupt, Clock::now() + wait) != Waited::Ready) {
            return Failed("The other side does not answer");
        }
        int error = 0;
        socklen_t length = sizeof error;
        ::getsockopt(socket.get(), SOL_SOCKET, SO_ERROR, &error, &length);
        if (error != 0) {
            return Failed(errorText(error));
        }
    }
    return streamOverSocket(std::move(socket), interrupt);
}

struct TcpListener::Handle {
    Descriptor socket;
};

TcpListener::TcpListener(std::unique_ptr<Handle> handle, std::uint16_t port)
    : handle_(std::move(handle)), port_(port) {}
TcpListener::TcpListener(TcpListener&&) noexcept = default;
TcpListener& TcpListener::operator=(TcpListener&&) noexcept = default;
TcpListener::~TcpListener() = default;

std::expected<TcpListener, std::string> TcpListener::open(std::uint16_t port) {
    Descriptor socket = newSocket();
    const int on = 1;
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    if (!socket || ::setsockopt(socket.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) != 0 ||
        ::bind(socket.get(), general(address), length) != 0 || ::listen(socket.get(), 1) != 0 ||
        ::getsockname(socket.get(), general(address), &length) != 0) {
        return Failed(errorText(errno));
    }
    return TcpListener(std::make_unique<Handle>(Handle{std::move(socket)}), ntohs(address.sin_port));
}

OpenedStream TcpListener::accept(const Interrupt& interrupt) {
    for (;;) {
        const int socket = handle_->socket.get();
        if (waitForDescriptor(socket, POLLIN, interrupt, Clock::now() + std::chrono::hours(1)) == Waited::Interrupted) {
            return nullptr;
        }
        Descriptor partner(::accept4(socket, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (partner) {
            return streamOverSocket(std::move(partner), interrupt);
        }
        // A partner that went away while it waited is none.
        if (errno != EAGAIN && errno != EINTR && errno != ECONNABORTED) {
            return Failed(errorText(errno));
        }
    }
}

}  // namespace telvar::os
