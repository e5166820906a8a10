// `telvar radio` as a process of its own, on a free port of this machine.
#pragma once

#include <windows.h>

#include <string>

#include "win/handle.h"

namespace telvar::tests {

class RadioProgram {
public:
    // Returns when it listens. Its input is held open, since it ends with it.
    explicit RadioProgram(const std::string& options = {});
    RadioProgram(const RadioProgram&) = delete;
    RadioProgram& operator=(const RadioProgram&) = delete;
    RadioProgram(RadioProgram&&) = delete;
    RadioProgram& operator=(RadioProgram&&) = delete;
    ~RadioProgram() { pullTheCable(); }

    // As a link is told it: "tcp:127.0.0.1:40123".
    [[nodiscard]] const std::string& address() const noexcept { return address_; }
    // Asks it to end, and waits for its exit code.
    void closeInput() { in_.reset(); }
    [[nodiscard]] DWORD waitForEnd() const;
    // It is gone from one moment to the next, without a word to its partner.
    void pullTheCable();

private:
    struct Pipe {
        Pipe();
        win::Handle read;
        win::Handle write;
    };

    [[nodiscard]] std::string firstLine() const;

    win::Handle process_;
    win::Handle in_;
    win::Handle out_;
    std::string address_;
};

}  // namespace telvar::tests
