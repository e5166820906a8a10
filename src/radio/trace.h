// What went over the line, one line a frame, in a text file for whoever looks for a fault of the radio or the cable.
#pragma once

#include <expected>
#include <string>
#include <string_view>

#include "os/append_file.h"
#include "radio/frame.h"
#include "radio/link_clock.h"

namespace telvar::radio {

class Trace {
public:
    // Appends to the file, and begins with the date.
    [[nodiscard]] static std::expected<Trace, os::FileError> open(const std::string& path, LinkTime now);

    void sent(const Frame& frame, LinkTime now) { line("> ", describe(frame), now); }
    void received(const Frame& frame, LinkTime now) { line("< ", describe(frame), now); }
    void note(std::string_view text, LinkTime now) { line("* ", text, now); }

private:
    Trace(os::AppendFile file, LinkTime began) : file_(std::move(file)), began_(began) {}

    [[nodiscard]] static std::string describe(const Frame& frame);
    // A trace that cannot be written any more ends; the exchange does not.
    void line(std::string_view direction, std::string_view text, LinkTime now);

    os::AppendFile file_;
    LinkTime began_;
    bool writable_ = true;
};

[[nodiscard]] std::string_view nameOf(Kind kind);

}  // namespace telvar::radio
