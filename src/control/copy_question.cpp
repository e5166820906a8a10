#include "control/copy_question.h"

namespace telvar::control {

namespace {

constexpr const char* question =
    "Changes will also be copied to the other selected channels. Would you like to proceed?";

// "5", "5 to 8", or nothing where there is no channel.
[[nodiscard]] std::string run(int first, int last) {
    if (first > last) {
        return {};
    }
    return first == last ? std::to_string(first) : std::to_string(first) + " to " + std::to_string(last);
}

}  // namespace

std::string copyQuestion(std::int16_t first, std::int16_t last, std::int16_t edited) {
    const auto before = run(first, edited - 1);
    const auto after = run(edited + 1, last);
    const char* const between = before.empty() || after.empty() ? "" : " and ";
    const char* const others = last - first == 1 ? "The other channel is " : "The other channels are ";
    return std::string(question) + "\n" + others + before + between + after + ".";
}

}  // namespace telvar::control
