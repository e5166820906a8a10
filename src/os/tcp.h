// TCP connections. Hosts are numeric addresses or "localhost": looking a name up could neither be bounded nor
// interrupted. What is listened for comes from this machine only.
#pragma once

#include <chrono>
#include <cstdint>
#include <expected>
#include <memory>
#include <string>

#include "os/byte_stream.h"
#include "os/interrupt.h"

namespace telvar::os {

// Small writes leave at once. The interrupt outlives the stream.
[[nodiscard]] OpenedStream connectTcp(const std::string& host, std::uint16_t port, std::chrono::milliseconds wait,
                                      const Interrupt& interrupt);

class TcpListener {
public:
    // On the loopback address; port 0 takes any free one.
    [[nodiscard]] static std::expected<TcpListener, std::string> open(std::uint16_t port);

    TcpListener(TcpListener&&) noexcept;
    TcpListener& operator=(TcpListener&&) noexcept;
    TcpListener(const TcpListener&) = delete;
    TcpListener& operator=(const TcpListener&) = delete;
    ~TcpListener();

    [[nodiscard]] std::uint16_t port() const noexcept { return port_; }
    // Waits for a partner; null where the interrupt was raised.
    [[nodiscard]] OpenedStream accept(const Interrupt& interrupt);

private:
    struct Handle;
    TcpListener(std::unique_ptr<Handle> handle, std::uint16_t port);

    std::unique_ptr<Handle> handle_;
    std::uint16_t port_;
};

}  // namespace telvar::os
