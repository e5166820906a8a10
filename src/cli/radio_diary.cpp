#include "cli/radio_diary.h"
#include "cli/json.h"

#include "radio/bytes.h"
#include "radio/hexadecimal.h"
#include "radio/message.h"
#include "radio/trace.h"
#include "store/json_text.h"

namespace telvar::cli {

namespace {

[[nodiscard]] std::string greeting(const radio::Frame& request) {
    radio::ByteReader reader(request.payload);
    (void)reader.u8();  // the version, which the radio has judged
    return "greeted by " + store::jsonQuoted(reader.text());
}

[[nodiscard]] std::string levels(radio::ByteView payload) {
    std::string text = "levels set to";
    for (const auto level : payload) {
        text += " " + std::to_string(level);
    }
    return text;
}

[[nodiscard]] bool reachesTheLastChannel(radio::ByteView payload) {
    radio::ByteReader reader(payload);
    const radio::Run run{.first = reader.u8(), .count = reader.u8()};
    return run.first + run.count - 1U == radio::imageCount;
}

}  // namespace

void RadioDiary::note(const radio::Frame& request, const radio::Frame& answer) {
    if (request.session == session_ && request.sequence == sequence_) {
        return;
    }
    session_ = request.session;
    sequence_ = request.sequence;
    const auto text = describe(request, answer);
    if (text.empty()) {
        return;
    }
    if (console_.json) {
        console_.out << Json().add("exchange", text).line() << std::flush;
    } else {
        console_.out << text << '\n' << std::flush;
    }
}

std::string RadioDiary::describe(const radio::Frame& request, const radio::Frame& answer) {
    if (const auto refusal = radio::refusalIn(answer.payload); answer.kind == radio::Kind::Refusal && refusal) {
        return std::string(radio::nameOf(request.kind)) + " refused: the radio " + radio::describe(refusal->reason);
    }
    switch (request.kind) {
    case radio::Kind::Hello:
        return greeting(request);
    case radio::Kind::SelectChannel:
        return "channel " + std::to_string(request.payload.front()) + " selected";
    case radio::Kind::SetLevels:
        return levels(request.payload);
    case radio::Kind::ReadRecords:
        return reachesTheLastChannel(request.payload) ? "table read" : "";
    case radio::Kind::CommitWrite:
        return "table taken, checksum " + radio::hexadecimal(answer.payload);
    default:
        return {};
    }
}

}  // namespace telvar::cli
