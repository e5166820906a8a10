#include "radio/link_session.h"

#include <utility>

namespace telvar::radio {

namespace {

using Cause = LinkFailure::Cause;

[[nodiscard]] std::unexpected<LinkFailure> failed(Cause cause, std::string what) {
    return std::unexpected(LinkFailure{.cause = cause, .what = std::move(what)});
}

[[nodiscard]] std::unexpected<LinkFailure> aborted() { return failed(Cause::Aborted, "The exchange was aborted"); }

// What a stranger calls itself goes into a sentence for the user.
[[nodiscard]] std::string shown(const std::string& name) {
    std::string text;
    for (const char c : name.substr(0, 40)) {
        text += c >= ' ' && c <= '~' ? c : '?';
    }
    return text;
}

}  // namespace

LinkResult<Identity> LinkSession::greet(std::uint16_t number, const Patience& patience) {
    number_ = number;
    sequence_ = 0;
    const auto answer =
        ask({.kind = Kind::Hello, .session = number, .sequence = 0, .payload = helloPayload()}, patience);
    if (!answer) {
        return std::unexpected(answer.error());
    }
    const auto identity = identityIn(*answer);
    if (!identity || identity->family != radioFamily) {
        const auto name = identity ? ": it calls itself \"" + shown(identity->family) + "\"" : std::string();
        return failed(Cause::Foreign, "What answers is not a Telvar radio" + name);
    }
    if (identity->version != protocolVersion) {
        return failed(Cause::Foreign, "The radio speaks version " + std::to_string(identity->version) +
                                          " of the protocol, this program version " + std::to_string(protocolVersion));
    }
    if (identity->channels != imageCount || identity->bytesPerRecord != recordSize) {
        return failed(Cause::Foreign, "The radio's table has another form");
    }
    open_ = true;
    return *identity;
}

LinkResult<Bytes> LinkSession::request(Kind kind, Bytes payload, const Patience& patience) {
    ++sequence_;
    return ask({.kind = kind, .session = number_, .sequence = sequence_, .payload = std::move(payload)}, patience);
}

LinkResult<Bytes> LinkSession::ask(const Frame& request, const Patience& patience) {
    open_ = false;
    const Bytes line = encoded(request);
    Seen seen{.damagedBefore = decoder_.damaged()};
    for (int attempt = 0; attempt < patience.attempts; ++attempt) {
        if (interrupt_.raised()) {
            return aborted();
        }
        if (trace_ != nullptr) {
            trace_->sent(request, clock_.now());
        }
        if (const auto sent = transport_.send(line); !sent) {
            return failed(Cause::Unreachable, "The connection to the radio broke (" + sent.error() + ")");
        }
        const auto answer = awaitAnswer(request, clock_.now() + patience.wait, seen);
        if (!answer) {
            return std::unexpected(answer.error());
        }
        if (*answer) {
            auto judged = judge(request, **answer);
            open_ = judged.has_value();
            return judged;
        }
    }
    return std::unexpected(silence(seen));
}

// Frames of other requests are late copies; they are passed over.
LinkResult<std::optional<Frame>> LinkSession::awaitAnswer(const Frame& request, LinkTime until, Seen& seen) {
    for (;;) {
        while (auto frame = decoder_.next()) {
            if (trace_ != nullptr) {
                trace_->received(*frame, clock_.now());
            }
            if (frame->session != request.session || frame->sequence != request.sequence) {
                continue;
            }
            if (!isAnswer(frame->kind)) {
                seen.echo = true;
                continue;
            }
            return frame;
        }
        if (interrupt_.raised()) {
            return aborted();
        }
        if (clock_.now() >= until) {
            return std::nullopt;
        }
        const auto received = transport_.receive(until);
        if (!received) {
            return failed(Cause::Unreachable, "The connection to the radio broke (" + received.error() + ")");
        }
        decoder_.push(*received);
    }
}

LinkResult<Bytes> LinkSession::judge(const Frame& request, const Frame& answer) const {
    if (answer.kind == answerTo(request.kind)) {
        return answer.payload;
    }
    const auto refusal = answer.kind == Kind::Refusal ? refusalIn(answer.payload) : std::nullopt;
    if (!refusal) {
        return failed(Cause::Foreign, "What answers does not keep to the protocol");
    }
    const bool restarted = refusal->reason == Refused::NoSession;
    return failed(restarted ? Cause::Restarted : Cause::Refused, "The radio " + describe(refusal->reason));
}

LinkFailure LinkSession::silence(const Seen& seen) const {
    if (seen.echo) {
        return {Cause::Silent, "The line returns what is sent, and no radio answers"};
    }
    if (decoder_.damaged() != seen.damagedBefore) {
        return {Cause::Silent, "What the radio answers arrives damaged"};
    }
    return {Cause::Silent, "The radio does not answer"};
}

}  // namespace telvar::radio
