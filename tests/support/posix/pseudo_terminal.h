// Two ends of a serial line that exists in the system only: one has a name and is opened as a port, the other one is
// the radio's.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <memory>
#include <string>

#include "os/posix/descriptor_stream.h"

namespace telvar::tests {

class PseudoTerminal {
public:
    PseudoTerminal() : radio_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
        EXPECT_EQ(::grantpt(radio_.get()), 0);
        EXPECT_EQ(::unlockpt(radio_.get()), 0);
        name_ = ::ptsname(radio_.get());
    }

    [[nodiscard]] const std::string& name() const noexcept { return name_; }
    // Once; the line ends with it.
    [[nodiscard]] std::unique_ptr<os::ByteStream> radioSide(const os::Interrupt& interrupt) {
        // Without anybody at the other end, reading would fail at once.
        keptOpen_ = os::Descriptor(::open(name_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
        return os::streamOver(
            std::move(radio_),
            [](int port, const void* bytes, std::size_t count) -> long { return ::write(port, bytes, count); },
            interrupt);
    }

private:
    os::Descriptor radio_;
    os::Descriptor keptOpen_;
    std::string name_;
};

}  // namespace telvar::tests
