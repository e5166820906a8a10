#include "os/clock.h"

#include <array>
#include <cstdio>

namespace telvar::os {

std::string isoText(const LocalTime& time) {
    std::array<char, 96> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%04d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day,
                  time.hour, time.minute, time.second);
    return buffer.data();
}

}  // namespace telvar::os
