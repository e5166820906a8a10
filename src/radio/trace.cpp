#include "radio/trace.h"

#include <array>
#include <cstdio>

#include "os/clock.h"
#include "radio/hexadecimal.h"

namespace telvar::radio {

std::string_view nameOf(Kind kind) {
    switch (static_cast<Kind>(static_cast<std::uint8_t>(kind) & ~unsigned{answerBit})) {
    case Kind::Hello:
        return "hello";
    case Kind::Status:
        return "status";
    case Kind::SelectChannel:
        return "select channel";
    case Kind::SetLevels:
        return "set levels";
    case Kind::ReadRecords:
        return "read records";
    case Kind::BeginWrite:
        return "begin write";
    case Kind::WriteRecords:
        return "write records";
    case Kind::CommitWrite:
        return "commit write";
    default:
        return kind == Kind::Refusal ? "refusal" : "unknown";
    }
}

std::expected<Trace, os::FileError> Trace::open(const std::string& path, LinkTime now) {
    auto file = os::AppendFile::open(path);
    if (!file) {
        return std::unexpected(file.error());
    }
    Trace trace(*std::move(file), now);
    trace.note(os::isoText(os::localTime()), now);
    return trace;
}

std::string Trace::describe(const Frame& frame) {
    std::array<char, 64> numbers{};
    std::snprintf(numbers.data(), numbers.size(), " %04X %u: ", unsigned{frame.session}, unsigned{frame.sequence});
    return std::string(nameOf(frame.kind)) + (isAnswer(frame.kind) ? " answered" : "") + numbers.data() +
           hexadecimal(frame.payload);
}

void Trace::line(std::string_view direction, std::string_view text, LinkTime now) {
    if (!writable_) {
        return;
    }
    const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(now - began_).count();
    std::array<char, 32> time{};
    std::snprintf(time.data(), time.size(), "%9lld.%03lld ", static_cast<long long>(elapsed / 1000),
                  static_cast<long long>(elapsed % 1000));
    writable_ = file_.write(std::string(time.data()) + std::string(direction) + std::string(text) + "\n");
}

}  // namespace telvar::radio
