#include "os/serial_port.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>

#include "os/posix/descriptor_stream.h"

namespace telvar::os {

namespace {

using Failed = std::unexpected<std::string>;

[[nodiscard]] long putToTerminal(int descriptor, const void* bytes, std::size_t count) {
    return ::write(descriptor, bytes, count);
}

[[nodiscard]] speed_t speedOf(int bitsPerSecond) {
    switch (bitsPerSecond) {
    case 1200:
        return B1200;
    case 2400:
        return B2400;
    case 4800:
        return B4800;
    case 9600:
        return B9600;
    case 19200:
        return B19200;
    case 38400:
        return B38400;
    case 57600:
        return B57600;
    case 115200:
        return B115200;
    default:
        return B0;
    }
}

}  // namespace

OpenedStream openSerialPort(const std::string& name, int bitsPerSecond, const Interrupt& interrupt) {
    if (!isSerialSpeed(bitsPerSecond)) {
        return Failed("That speed is not offered");
    }
    // Without O_NONBLOCK the system would wait for a carrier.
    Descriptor port(::open(name.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!port) {
        return Failed(errorText(errno));
    }
    termios settings{};
    if (::tcgetattr(port.get(), &settings) != 0) {
        return Failed(errno == ENOTTY ? "Is not a serial port" : errorText(errno));
    }
    ::cfmakeraw(&settings);
    settings.c_cflag |= CLOCAL | CREAD;
    settings.c_cflag &= ~(static_cast<tcflag_t>(CSTOPB) | CRTSCTS);
    ::cfsetispeed(&settings, speedOf(bitsPerSecond));
    ::cfsetospeed(&settings, speedOf(bitsPerSecond));
    if (::ioctl(port.get(), TIOCEXCL) != 0 || ::tcsetattr(port.get(), TCSANOW, &settings) != 0) {
        return Failed(errorText(errno));
    }
    ::tcflush(port.get(), TCIOFLUSH);
    return streamOver(std::move(port), &putToTerminal, interrupt);
}

}  // namespace telvar::os
