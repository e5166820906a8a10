#include "os/tcp.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <optional>
#include <utility>

#include "base/pinned.h"
#include "os/windows/interrupt_handle.h"
#include "win/failure.h"
#include "win/text.h"

namespace telvar::os {

namespace {

using Failed = std::unexpected<std::string>;
using Clock = std::chrono::steady_clock;

[[nodiscard]] std::string lastError() { return win::errorText(static_cast<unsigned long>(::WSAGetLastError())); }

// The system counts its users, so that nothing of it lives longer than the sockets.
class Library : private base::Pinned {
public:
    Library() noexcept {
        WSADATA data{};
        started_ = ::WSAStartup(MAKEWORD(2, 2), &data) == 0;
    }
    ~Library() {
        if (started_) {
            ::WSACleanup();
        }
    }

private:
    bool started_ = false;
};

// With the event that network events set; such a socket does not block.
class Socket : private base::Pinned {
public:
    explicit Socket(SOCKET socket) : event_(newEvent()), socket_(socket) {}
    ~Socket() {
        if (socket_ != INVALID_SOCKET) {
            ::closesocket(socket_);
        }
    }

    [[nodiscard]] static std::unique_ptr<Socket> make() {
        // The library must be running before the first socket.
        auto made = std::make_unique<Socket>(INVALID_SOCKET);
        made->socket_ = ::WSASocketW(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0, WSA_FLAG_NO_HANDLE_INHERIT);
        return made;
    }

    [[nodiscard]] SOCKET get() const noexcept { return socket_; }
    [[nodiscard]] bool watch(long events) const noexcept {
        return socket_ != INVALID_SOCKET && ::WSAEventSelect(socket_, event_.get(), events) == 0;
    }

    // Until something is reported; the report itself is told by the next operation.
    [[nodiscard]] Waited wait(const Interrupt& interrupt, Clock::time_point until) const {
        const Waited waited = waitForEvent(event_.get(), interrupt, until);
        if (waited == Waited::Ready) {
            (void)reported();
        }
        return waited;
    }
    [[nodiscard]] WSANETWORKEVENTS reported() const noexcept {
        WSANETWORKEVENTS events{};
        ::WSAEnumNetworkEvents(socket_, event_.get(), &events);
        return events;
    }
    [[nodiscard]] Waited waitUnread(const Interrupt& interrupt, Clock::time_point until) const {
        return waitForEvent(event_.get(), interrupt, until);
    }

private:
    Library library_;
    win::Handle event_;
    SOCKET socket_;
};

class SocketStream final : public ByteStream {
public:
    SocketStream(std::unique_ptr<Socket> socket, const Interrupt& interrupt)
        : socket_(std::move(socket)), interrupt_(interrupt) {}

    [[nodiscard]] std::expected<std::size_t, std::string> read(std::span<std::uint8_t> buffer,
                                                               std::chrono::milliseconds wait) override {
        const auto until = Clock::now() + wait;
        while (!interrupt_.raised()) {
            const int got =
                ::recv(socket_->get(), reinterpret_cast<char*>(buffer.data()), static_cast<int>(buffer.size()), 0);
            if (got > 0) {
                return static_cast<std::size_t>(got);
            }
            if (got == 0) {
                return Failed("The other side has closed the connection");
            }
            if (::WSAGetLastError() != WSAEWOULDBLOCK) {
                return Failed(lastError());
            }
            if (socket_->wait(interrupt_, until) != Waited::Ready) {
                break;
            }
        }
        return 0;
    }

    [[nodiscard]] std::expected<void, std::string> write(std::span<const std::uint8_t> bytes,
                                                         std::chrono::milliseconds wait) override {
        const auto until = Clock::now() + wait;
        while (!bytes.empty()) {
            const int written =
                ::send(socket_->get(), reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()), 0);
            if (written >= 0) {
                bytes = bytes.subspan(static_cast<std::size_t>(written));
                continue;
            }
            if (::WSAGetLastError() != WSAEWOULDBLOCK) {
                return Failed(lastError());
            }
            switch (socket_->wait(interrupt_, until)) {
            case Waited::Ready:
                break;
            case Waited::Interrupted:
                return {};
            case Waited::TimedOut:
                return Failed("The other side takes no data");
            }
        }
        return {};
    }

private:
    std::unique_ptr<Socket> socket_;
    const Interrupt& interrupt_;
};

[[nodiscard]] OpenedStream streamOver(std::unique_ptr<Socket> socket, const Interrupt& interrupt) {
    const int on = 1;
    ::setsockopt(socket->get(), IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&on), sizeof on);
    if (!socket->watch(FD_READ | FD_WRITE | FD_CLOSE)) {
        return Failed(lastError());
    }
    return std::make_unique<SocketStream>(std::move(socket), interrupt);
}

[[nodiscard]] sockaddr* general(sockaddr_in& address) noexcept { return reinterpret_cast<sockaddr*>(&address); }

}  // namespace

OpenedStream connectTcp(const std::string& host, std::uint16_t port, std::chrono::milliseconds wait,
                        const Interrupt& interrupt) {
    auto socket = Socket::make();
    if (!socket->watch(FD_CONNECT)) {
        return Failed(lastError());
    }
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = ::htons(port);
    const std::wstring numeric = host == "localhost" ? L"127.0.0.1" : win::wide(host);
    if (::InetPtonW(AF_INET, numeric.c_str(), &address.sin_addr) != 1) {
        return Failed("\"" + host + "\" is not a numeric address");
    }
    if (::connect(socket->get(), general(address), sizeof address) != 0) {
        if (::WSAGetLastError() != WSAEWOULDBLOCK) {
            return Failed(lastError());
        }
        if (socket->waitUnread(interrupt, Clock::now() + wait) != Waited::Ready) {
            return Failed("The other side does not answer");
        }
        if (const int error = socket->reported().iErrorCode[FD_CONNECT_BIT]; error != 0) {
            return Failed(win::errorText(static_cast<unsigned long>(error)));
        }
    }
    return streamOver(std::move(socket), interrupt);
}

struct TcpListener::Handle {
    std::unique_ptr<Socket> socket;
};

TcpListener::TcpListener(std::unique_ptr<Handle> handle, std::uint16_t port)
    : handle_(std::move(handle)), port_(port) {}
TcpListener::TcpListener(TcpListener&&) noexcept = default;
TcpListener& TcpListener::operator=(TcpListener&&) noexcept = default;
TcpListener::~TcpListener() = default;

std::expected<TcpListener, std::string> TcpListener::open(std::uint16_t port) {
    auto socket = Socket::make();
    const int on = 1;
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = ::htons(port);
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    int length = sizeof address;
    // Another program may not take the port over.
    if (!socket->watch(FD_ACCEPT) ||
        ::setsockopt(socket->get(), SOL_SOCKET, SO_EXCLUSIVEADDRUSE, reinterpret_cast<const char*>(&on), sizeof on) !=
            0 ||
        ::bind(socket->get(), general(address), length) != 0 || ::listen(socket->get(), 1) != 0 ||
        ::getsockname(socket->get(), general(address), &length) != 0) {
        return Failed(lastError());
    }
    return TcpListener(std::make_unique<Handle>(Handle{std::move(socket)}), ::ntohs(address.sin_port));
}

OpenedStream TcpListener::accept(const Interrupt& interrupt) {
    const Socket& listening = *handle_->socket;
    while (!interrupt.raised()) {
        const SOCKET partner = ::accept(listening.get(), nullptr, nullptr);
        if (partner != INVALID_SOCKET) {
            return streamOver(std::make_unique<Socket>(partner), interrupt);
        }
        if (const int error = ::WSAGetLastError(); error != WSAEWOULDBLOCK && error != WSAECONNRESET) {
            return Failed(lastError());
        }
        (void)listening.wait(interrupt, Clock::now() + std::chrono::hours(1));
    }
    return nullptr;
}

}  // namespace telvar::os
