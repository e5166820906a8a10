// Serial ports, opened for bytes as they are: 8 data bits, no parity, 1 stop bit, no flow control.
#pragma once

#include <string>

#include "os/byte_stream.h"
#include "os/interrupt.h"

namespace telvar::os {

// "COM3" on Windows, "/dev/ttyUSB0" elsewhere; nobody else may have it open. Bits per second must be one of 1200, 2400,
// 4800, 9600, 19200, 38400, 57600 and 115200. The interrupt outlives the stream.
[[nodiscard]] OpenedStream openSerialPort(const std::string& name, int bitsPerSecond, const Interrupt& interrupt);

[[nodiscard]] constexpr bool isSerialSpeed(int bitsPerSecond) noexcept {
    for (const int speed : {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200}) {
        if (speed == bitsPerSecond) {
            return true;
        }
    }
    return false;
}

}  // namespace telvar::os
