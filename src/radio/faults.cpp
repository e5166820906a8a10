#include "radio/faults.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "base/text.h"

namespace telvar::radio {

namespace {

constexpr int furthestFrame = 1'000'000;

[[nodiscard]] std::optional<int> wholeNumber(std::string_view text, int smallest, int largest) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < smallest || number > largest) {
        return std::nullopt;
    }
    return number;
}

// "@12", "@12+" or "/5".
[[nodiscard]] bool readSpan(std::string_view text, Fault& fault) {
    const bool every = text.starts_with('/');
    if (!every && !text.starts_with('@')) {
        return false;
    }
    text.remove_prefix(1);
    const bool on = !every && text.ends_with('+');
    if (on) {
        text.remove_suffix(1);
    }
    fault.span = every ? FaultSpan::Every : (on ? FaultSpan::FromThereOn : FaultSpan::Once);
    const auto frame = wholeNumber(text, 1, furthestFrame);
    fault.frame = frame.value_or(0);
    return frame.has_value();
}

[[nodiscard]] std::optional<Fault> readFault(std::string_view text) {
    const auto name = text.substr(0, text.find_first_of("@/:"));
    const auto info = std::ranges::find(faultKinds, name, &FaultInfo::name);
    if (info == faultKinds.end()) {
        return std::nullopt;
    }
    auto rest = text.substr(name.size());
    Fault fault{.kind = info->kind};
    if (fault.kind == FaultKind::Delay) {
        fault.delay = usualDelay;
    }
    if (rest.starts_with(':')) {
        const auto end = std::min(rest.find_first_of("@/"), rest.size());
        const auto delay = wholeNumber(rest.substr(1, end - 1), 1, static_cast<int>(longestDelay.count()));
        if (fault.kind != FaultKind::Delay || !delay) {
            return std::nullopt;
        }
        fault.delay = std::chrono::milliseconds(*delay);
        rest = rest.substr(end);
    }
    return readSpan(rest.empty() ? info->usual : rest, fault) ? std::optional(fault) : std::nullopt;
}

}  // namespace

std::string faultNames() {
    std::string names;
    for (const FaultInfo& each : faultKinds) {
        names += (names.empty() ? "" : ",") + std::string(each.name);
    }
    return names;
}

std::expected<FaultPlan, std::string> parseFaults(std::string_view text) {
    FaultPlan plan;
    if (base::trimmed(text).empty() || base::trimmed(text) == "none") {
        return plan;
    }
    for (const auto part : base::splitAt(text, ',')) {
        const auto fault = readFault(base::trimmed(part));
        if (!fault) {
            return std::unexpected("\"" + std::string(base::trimmed(part)) +
                                   "\" is not a fault of the simulated radio");
        }
        plan.push_back(*fault);
    }
    return plan;
}

}  // namespace telvar::radio
