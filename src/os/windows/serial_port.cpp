#include "os/serial_port.h"

#include <windows.h>

#include <algorithm>

#include "base/text.h"
#include "os/windows/interrupt_handle.h"
#include "win/failure.h"
#include "win/text.h"

namespace telvar::os {

namespace {

using Failed = std::unexpected<std::string>;
using Clock = std::chrono::steady_clock;

[[nodiscard]] std::string lastError() { return win::errorText(::GetLastError()); }

class SerialStream final : public ByteStream {
public:
    SerialStream(win::Handle port, const Interrupt& interrupt) : port_(std::move(port)), interrupt_(interrupt) {}

    // Waits for one byte and takes what else is there: how a longer read would end depends on the driver.
    [[nodiscard]] std::expected<std::size_t, std::string> read(std::span<std::uint8_t> buffer,
                                                               std::chrono::milliseconds wait) override {
        const auto until = Clock::now() + wait;
        const auto first = readExactly(buffer.first(1), until);
        if (!first || *first == 0) {
            return first;
        }
        COMSTAT state{};
        DWORD errors = 0;
        if (::ClearCommError(port_.get(), &errors, &state) == 0 || state.cbInQue == 0) {
            return first;
        }
        const auto rest = buffer.subspan(1);
        const auto more = readExactly(rest.first(std::min<std::size_t>(rest.size(), state.cbInQue)), until);
        return 1 + more.value_or(0);
    }

    [[nodiscard]] std::expected<void, std::string> write(std::span<const std::uint8_t> bytes,
                                                         std::chrono::milliseconds wait) override {
        const auto until = Clock::now() + wait;
        while (!bytes.empty()) {
            OVERLAPPED operation{};
            operation.hEvent = event_.get();
            const bool done =
                ::WriteFile(port_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), nullptr, &operation) != 0;
            const auto written = finished(operation, done, until);
            if (!written) {
                return Failed(written.error());
            }
            if (interrupt_.raised()) {
                return {};
            }
            if (*written == 0) {
                return Failed("The other side takes no data");
            }
            bytes = bytes.subspan(*written);
        }
        return {};
    }

private:
    [[nodiscard]] std::expected<std::size_t, std::string> readExactly(std::span<std::uint8_t> bytes,
                                                                      Clock::time_point until) {
        OVERLAPPED operation{};
        operation.hEvent = event_.get();
        const bool done =
            ::ReadFile(port_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), nullptr, &operation) != 0;
        return finished(operation, done, until);
    }

    // Waits for an operation under way and takes it back when its time is over; the bytes that it moved.
    [[nodiscard]] std::expected<std::size_t, std::string> finished(OVERLAPPED& operation, bool done,
                                                                   Clock::time_point until) {
        if (!done) {
            if (::GetLastError() != ERROR_IO_PENDING) {
                return Failed(lastError());
            }
            if (waitForEvent(event_.get(), interrupt_, until) != Waited::Ready) {
                ::CancelIo(port_.get());
            }
        }
        DWORD moved = 0;
        if (::GetOverlappedResult(port_.get(), &operation, &moved, TRUE) == 0 &&
            ::GetLastError() != ERROR_OPERATION_ABORTED) {
            return Failed(lastError());
        }
        return moved;
    }

    win::Handle port_;
    win::Handle event_ = newEvent();
    const Interrupt& interrupt_;
};

[[nodiscard]] bool configure(HANDLE port, int bitsPerSecond) {
    DCB settings{};
    settings.DCBlength = sizeof settings;
    if (::GetCommState(port, &settings) == 0) {
        return false;
    }
    settings.BaudRate = static_cast<DWORD>(bitsPerSecond);
    settings.ByteSize = 8;
    settings.Parity = NOPARITY;
    settings.StopBits = ONESTOPBIT;
    settings.fBinary = TRUE;
    settings.fParity = FALSE;
    settings.fOutxCtsFlow = FALSE;
    settings.fOutxDsrFlow = FALSE;
    settings.fDtrControl = DTR_CONTROL_ENABLE;
    settings.fDsrSensitivity = FALSE;
    settings.fOutX = FALSE;
    settings.fInX = FALSE;
    settings.fNull = FALSE;
    settings.fRtsControl = RTS_CONTROL_ENABLE;
    settings.fAbortOnError = FALSE;
    // None: whoever waits decides how long.
    COMMTIMEOUTS timeouts{};
    return ::SetCommState(port, &settings) != 0 && ::SetCommTimeouts(port, &timeouts) != 0;
}

}  // namespace

OpenedStream openSerialPort(const std::string& name, int bitsPerSecond, const Interrupt& interrupt) {
    if (!isSerialSpeed(bitsPerSecond)) {
        return Failed("That speed is not offered");
    }
    // With the prefix, which is needed from COM10 on, other names would mean other devices, disks among them.
    if (name.size() < 4 || !base::equalIgnoringCase(name.substr(0, 3), "COM") ||
        name.find_first_not_of("0123456789", 3) != std::string::npos) {
        return Failed("Is not a serial port");
    }
    const std::wstring path = LR"(\\.\)" + win::wide(name);
    win::Handle port(::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                   FILE_FLAG_OVERLAPPED, nullptr));
    if (!port || !configure(port.get(), bitsPerSecond)) {
        return Failed(lastError());
    }
    ::PurgeComm(port.get(), PURGE_RXCLEAR | PURGE_TXCLEAR);
    return std::make_unique<SerialStream>(std::move(port), interrupt);
}

}  // namespace telvar::os
