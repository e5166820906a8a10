#include "os/posix/descriptor_stream.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

#include "os/posix/interrupt_handle.h"

namespace telvar::os {

namespace {

using Clock = std::chrono::steady_clock;

[[nodiscard]] bool mustWait(int error) noexcept { return error == EAGAIN; }

class DescriptorStream final : public ByteStream {
public:
    DescriptorStream(Descriptor descriptor, PutBytes put, const Interrupt& interrupt)
        : descriptor_(std::move(descriptor)), put_(put), interrupt_(interrupt) {}

    [[nodiscard]] std::expected<std::size_t, std::string> read(std::span<std::uint8_t> buffer,
                                                               std::chrono::milliseconds wait) override {
        if (waitForDescriptor(descriptor_.get(), POLLIN, interrupt_, Clock::now() + wait) != Waited::Ready) {
            return 0;
        }
        const auto got = ::read(descriptor_.get(), buffer.data(), buffer.size());
        if (got > 0) {
            return static_cast<std::size_t>(got);
        }
        if (got == 0) {
            return std::unexpected("The other side has closed the connection");
        }
        if (mustWait(errno) || errno == EINTR) {
            return 0;
        }
        return std::unexpected(errorText(errno));
    }

    [[nodiscard]] std::expected<void, std::string> write(std::span<const std::uint8_t> bytes,
                                                         std::chrono::milliseconds wait) override {
        const auto until = Clock::now() + wait;
        while (!bytes.empty()) {
            const auto written = put_(descriptor_.get(), bytes.data(), bytes.size());
            if (written >= 0) {
                bytes = bytes.subspan(static_cast<std::size_t>(written));
                continue;
            }
            if (errno == EINTR) {
                continue;
            }
            if (!mustWait(errno)) {
                return std::unexpected(errorText(errno));
            }
            switch (waitForDescriptor(descriptor_.get(), POLLOUT, interrupt_, until)) {
            case Waited::Ready:
                break;
            case Waited::Interrupted:
                return {};
            case Waited::TimedOut:
                return std::unexpected("The other side takes no data");
            }
        }
        return {};
    }

private:
    Descriptor descriptor_;
    PutBytes put_;
    const Interrupt& interrupt_;
};

}  // namespace

std::unique_ptr<ByteStream> streamOver(Descriptor descriptor, PutBytes put, const Interrupt& interrupt) {
    return std::make_unique<DescriptorStream>(std::move(descriptor), put, interrupt);
}

}  // namespace telvar::os
