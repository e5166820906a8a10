#include "desk/backups.h"

#include <algorithm>
#include <charconv>
#include <tuple>

namespace telvar::desk {

namespace {

constexpr std::string_view extension = ".telvar-radio";
// Of the calendar that the computer writes dates by.
constexpr int firstYear = 1601;

// Takes the text from the front, if it stands there.
bool take(std::string_view& text, std::string_view what) noexcept {
    if (!text.starts_with(what)) {
        return false;
    }
    text.remove_prefix(what.size());
    return true;
}

// Takes that many digits, then the text behind them.
bool takeNumber(std::string_view& text, std::size_t digits, int& number, std::string_view behind) noexcept {
    const std::string_view taken = text.substr(0, digits);
    const bool all = taken.size() == digits && !taken.empty() &&
                     std::ranges::all_of(taken, [](char digit) { return digit >= '0' && digit <= '9'; });
    if (!all) {
        return false;
    }
    std::from_chars(taken.data(), taken.data() + taken.size(), number);
    text.remove_prefix(digits);
    return take(text, behind);
}

// " (2)" and what follows it.
bool takeRepetition(std::string_view& text, int& number) noexcept {
    if (!take(text, " (")) {
        return true;
    }
    constexpr std::size_t most = 4;
    const std::size_t digits = text.find(')');
    return digits <= most && takeNumber(text, digits, number, ")");
}

}  // namespace

std::optional<Backup> readBackupName(std::string_view name) {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    Backup backup;
    const bool read = take(name, "radio ") && takeNumber(name, 4, year, "-") && takeNumber(name, 2, month, "-") &&
                      takeNumber(name, 2, day, " ") && takeNumber(name, 2, hour, ".") &&
                      takeNumber(name, 2, minute, ".") && takeNumber(name, 2, second, "") &&
                      takeRepetition(name, backup.number) && name == extension;
    const std::chrono::year_month_day date(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day)));
    if (!read || !date.ok() || year < firstYear || hour > 23 || minute > 59 || second > 59) {
        return std::nullopt;
    }
    backup.made = std::chrono::local_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
                  std::chrono::seconds(second);
    return backup;
}

std::vector<Backup> backupsIn(const System& system, const std::string& folder) {
    std::vector<Backup> backups;
    for (const std::string& name : folder.empty() ? std::vector<std::string>() : system.fileNamesIn(folder)) {
        if (auto backup = readBackupName(name)) {
            backup->path = std::string(folder).append("\\").append(name);
            backups.push_back(*std::move(backup));
        }
    }
    std::ranges::sort(backups, std::ranges::greater(),
                      [](const Backup& backup) { return std::tuple(backup.made, backup.number); });
    return backups;
}

std::string usualBackupFolder(const System& system) {
    const std::string folder = system.userFolder();
    return folder.empty() ? folder : folder + "\\radio-backups";
}

std::string backupText(const System& system, const Backup& backup) {
    const std::string text = system.dateAndTime(backup.made);
    return backup.number == 1 ? text : text + " (" + std::to_string(backup.number) + ")";
}

}  // namespace telvar::desk
