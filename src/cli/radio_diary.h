// What a radio tells whoever looks at its standard output: a line for each exchange, where a table that is read or
// written counts as one and not as its many frames. Status questions, which programs ask all the time, are passed over.
#pragma once

#include <cstdint>
#include <string>

#include "cli/console.h"
#include "radio/frame.h"

namespace telvar::cli {

class RadioDiary {
public:
    explicit RadioDiary(const Console& console) : console_(console) {}

    void note(const radio::Frame& request, const radio::Frame& answer);

private:
    // Empty where the frame is no exchange's end.
    [[nodiscard]] static std::string describe(const radio::Frame& request, const radio::Frame& answer);

    const Console& console_;
    // Of the last request: a repeated one is told once.
    std::uint16_t session_ = 0;
    std::uint16_t sequence_ = 0;
};

}  // namespace telvar::cli
