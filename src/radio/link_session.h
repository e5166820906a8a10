// One conversation with a radio: a request, its answer, and again, with repetitions where the line loses something. It
// knows nothing of tables.
//
// Closed --greet--> Open --request, answer--> Open
//   any --silence, refusal, broken line, abort--> Closed: what the last request did is unknown
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "os/interrupt.h"
#include "radio/frame.h"
#include "radio/link_clock.h"
#include "radio/link_failure.h"
#include "radio/message.h"
#include "radio/trace.h"
#include "radio/transport.h"

namespace telvar::radio {

// How long an answer is waited for, and how often the request is sent in all.
struct Patience {
    int attempts;
    std::chrono::milliseconds wait;
};

inline constexpr Patience usualPatience{.attempts = 4, .wait = std::chrono::milliseconds(1500)};
// The radio stores a whole table before it answers.
inline constexpr Patience commitPatience{.attempts = 4, .wait = std::chrono::milliseconds(5000)};
// For what is asked in passing.
inline constexpr Patience shortPatience{.attempts = 1, .wait = std::chrono::milliseconds(1000)};

class LinkSession {
public:
    // All of them outlive the session; `trace` may be null.
    LinkSession(Transport& transport, LinkClock& clock, const os::Interrupt& interrupt, Trace* trace) noexcept
        : transport_(transport), clock_(clock), interrupt_(interrupt), trace_(trace) {}

    // Opens the session under a number that no earlier one of the same radio had lately, not 0. Fails where somebody
    // else answers or another version of the protocol is spoken.
    [[nodiscard]] LinkResult<Identity> greet(std::uint16_t number, const Patience& patience);

    // The answer's payload. After a failure the session is closed.
    [[nodiscard]] LinkResult<Bytes> request(Kind kind, Bytes payload, const Patience& patience = usualPatience);

    [[nodiscard]] bool isOpen() const noexcept { return open_; }

private:
    // What came back instead of an answer.
    struct Seen {
        bool echo = false;
        std::size_t damagedBefore = 0;
    };

    [[nodiscard]] LinkResult<Bytes> ask(const Frame& request, const Patience& patience);
    [[nodiscard]] LinkResult<std::optional<Frame>> awaitAnswer(const Frame& request, LinkTime until, Seen& seen);
    [[nodiscard]] LinkResult<Bytes> judge(const Frame& request, const Frame& answer) const;
    [[nodiscard]] LinkFailure silence(const Seen& seen) const;

    Transport& transport_;
    LinkClock& clock_;
    const os::Interrupt& interrupt_;
    Trace* trace_;
    FrameDecoder decoder_;
    std::uint16_t number_ = 0;
    std::uint16_t sequence_ = 0;
    bool open_ = false;
};

}  // namespace telvar::radio
