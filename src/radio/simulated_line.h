// The line in front of a simulated radio, with the faults of a plan. It knows no time of its own: whoever drives it
// says what time it is, and asks when something happens next.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <random>

#include "radio/faults.h"
#include "radio/frame.h"
#include "radio/link_clock.h"
#include "radio/simulated_radio.h"

namespace telvar::radio {

class SimulatedLine {
public:
    // How long the radio hears and says nothing after a power failure.
    static constexpr std::chrono::milliseconds bootTime{700};

    // The radio outlives the line.
    SimulatedLine(SimulatedRadio& radio, const FaultPlan& faults);

    // Bytes on their way to the radio.
    void send(ByteView bytes, LinkTime now);
    // Lets happen what is due.
    void advance(LinkTime now);
    // When something happens next; nothing where nothing is on its way.
    [[nodiscard]] std::optional<LinkTime> next() const;
    // What the radio has said since the last time.
    [[nodiscard]] Bytes takeReceived();

    // Frames seen since the last greeting, both directions.
    [[nodiscard]] int frames() const noexcept { return frames_; }
    // Told of each frame's number before anything happens to it.
    std::function<void(int)> onFrame;
    // Told of each request that reached the radio, and of what the radio says to it, before that sets out.
    std::function<void(const Frame& request, const Frame& answer)> onAnswer;

private:
    enum class Direction : std::uint8_t { ToRadio, FromRadio };
    struct Passing {
        Direction direction;
        Bytes bytes;
    };
    enum class Reached : std::uint8_t { NotYet, Lasting, Over };
    struct Planned {
        Fault fault;
        Reached reached = Reached::NotYet;
    };

    void pass(Direction direction, const Bytes& frame, LinkTime now);
    void count(Direction direction, const Bytes& frame);
    // The fault of that kind that hits the present frame, which is over then if it is for once.
    [[nodiscard]] const Fault* hit(FaultKind kind);
    void failPower(LinkTime now);
    void damage(Bytes& frame);
    void reachRadio(const Bytes& bytes, LinkTime now);

    SimulatedRadio& radio_;
    std::vector<Planned> faults_;
    int frames_ = 0;
    Bytes unfinished_;
    FrameDecoder radioDecoder_;
    // In order of time, and of sending where times are equal.
    std::multimap<LinkTime, Passing> passing_;
    std::array<std::optional<Bytes>, 2> held_;
    std::optional<LinkTime> powerReturns_;
    Bytes received_;
    // Always the same noise, so that what a test finds can be found again.
    std::minstd_rand random_{12345};
};

}  // namespace telvar::radio
