// The wall clock in the user's time zone.
#pragma once

#include <string>

namespace telvar::os {

struct LocalTime {
    int year;
    int month;  // 1 to 12
    int day;    // 1 to 31
    int hour;   // 0 to 23
    int minute;
    int second;  // 60 in a leap second
    bool operator==(const LocalTime&) const = default;
};

[[nodiscard]] LocalTime localTime();

// "2024-03-01 14:05:09"
[[nodiscard]] std::string isoText(const LocalTime& time);

}  // namespace telvar::os
