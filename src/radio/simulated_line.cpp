#include "radio/simulated_line.h"

#include <algorithm>
#include <utility>

namespace telvar::radio {

namespace {

[[nodiscard]] bool isGreeting(const Bytes& frame) {
    constexpr std::size_t longestGreeting = 64;
    if (frame.size() > longestGreeting) {
        return false;
    }
    FrameDecoder decoder;
    decoder.push(frame);
    const auto decoded = decoder.next();
    return decoded && decoded->kind == Kind::Hello;
}

}  // namespace

SimulatedLine::SimulatedLine(SimulatedRadio& radio, const FaultPlan& faults) : radio_(radio) {
    for (const Fault& fault : faults) {
        faults_.push_back({.fault = fault});
    }
}

void SimulatedLine::send(ByteView bytes, LinkTime now) {
    while (!bytes.empty()) {
        const auto flag = std::ranges::find(bytes, frameFlag);
        const auto length = static_cast<std::size_t>(flag - bytes.begin()) + (flag == bytes.end() ? 0 : 1);
        unfinished_.insert(unfinished_.end(), bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
        bytes = bytes.subspan(length);
        if (unfinished_.back() != frameFlag || unfinished_.size() == 1) {
            continue;
        }
        if (unfinished_.size() == 2 && unfinished_.front() == frameFlag) {
            // One frame's end and the next one's beginning.
            unfinished_.pop_back();
            continue;
        }
        pass(Direction::ToRadio, std::exchange(unfinished_, {}), now);
    }
}

void SimulatedLine::advance(LinkTime now) {
    while (!passing_.empty() && passing_.begin()->first <= now) {
        const auto arrived = passing_.extract(passing_.begin());
        if (arrived.mapped().direction == Direction::ToRadio) {
            reachRadio(arrived.mapped().bytes, arrived.key());
        } else {
            received_.insert(received_.end(), arrived.mapped().bytes.begin(), arrived.mapped().bytes.end());
        }
    }
}

std::optional<LinkTime> SimulatedLine::next() const {
    return passing_.empty() ? std::nullopt : std::optional(passing_.begin()->first);
}

Bytes SimulatedLine::takeReceived() { return std::exchange(received_, {}); }

void SimulatedLine::pass(Direction direction, const Bytes& frame, LinkTime now) {
    count(direction, frame);
    if (powerReturns_ && now < *powerReturns_) {
        return;
    }
    if (hit(FaultKind::Power) != nullptr) {
        failPower(now);
        return;
    }
    if (direction == Direction::ToRadio && hit(FaultKind::Echo) != nullptr) {
        passing_.emplace(now, Passing{Direction::FromRadio, frame});
    }
    if (hit(FaultKind::Silence) != nullptr || hit(FaultKind::Drop) != nullptr) {
        return;
    }
    auto& held = held_[static_cast<std::size_t>(direction)];
    if (!held && hit(FaultKind::Reorder) != nullptr) {
        held = frame;
        return;
    }
    Bytes passed = frame;
    if (hit(FaultKind::Noise) != nullptr) {
        damage(passed);
    }
    if (hit(FaultKind::Cut) != nullptr) {
        passed.resize(passed.size() / 2);
    }
    const Fault* const late = hit(FaultKind::Delay);
    const LinkTime due = late == nullptr ? now : now + late->delay;
    const int copies = hit(FaultKind::Repeat) == nullptr ? 1 : 2;
    for (int copy = 0; copy < copies; ++copy) {
        passing_.emplace(due, Passing{direction, passed});
    }
    if (held) {
        passing_.emplace(due, Passing{direction, *std::exchange(held, std::nullopt)});
    }
}

void SimulatedLine::count(Direction direction, const Bytes& frame) {
    const bool greeting = direction == Direction::ToRadio && isGreeting(frame);
    frames_ = greeting ? 1 : frames_ + 1;
    if (onFrame) {
        onFrame(frames_);
    }
    if (greeting) {
        radio_.pretendToBeAnother(hit(FaultKind::Identity) != nullptr);
    }
}

const Fault* SimulatedLine::hit(FaultKind kind) {
    for (Planned& planned : faults_) {
        const Fault& fault = planned.fault;
        if (fault.kind != kind || planned.reached == Reached::Over) {
            continue;
        }
        const bool now = fault.span == FaultSpan::Every ? frames_ % fault.frame == 0
                                                        : frames_ == fault.frame || planned.reached == Reached::Lasting;
        if (now) {
            planned.reached = fault.span == FaultSpan::Once          ? Reached::Over
                              : fault.span == FaultSpan::FromThereOn ? Reached::Lasting
                                                                     : Reached::NotYet;
            return &fault;
        }
    }
    return nullptr;
}

void SimulatedLine::failPower(LinkTime now) {
    radio_.losePower();
    radioDecoder_ = FrameDecoder();
    passing_.clear();
    held_ = {};
    powerReturns_ = now + bootTime;
}

void SimulatedLine::damage(Bytes& frame) {
    constexpr std::size_t bentBytes = 3;
    for (std::size_t bent = 0; bent < bentBytes; ++bent) {
        frame[random_() % frame.size()] ^= static_cast<std::uint8_t>(1 + random_() % 255);
    }
    Bytes noise(1 + random_() % 16);
    for (std::uint8_t& byte : noise) {
        byte = static_cast<std::uint8_t>(random_());
    }
    frame.insert(frame.begin(), noise.begin(), noise.end());
}

void SimulatedLine::reachRadio(const Bytes& bytes, LinkTime now) {
    radioDecoder_.push(bytes);
    while (const auto request = radioDecoder_.next()) {
        if (const auto answer = radio_.answer(*request)) {
            if (onAnswer) {
                onAnswer(*request, *answer);
            }
            pass(Direction::FromRadio, encoded(*answer), now);
        }
    }
}

}  // namespace telvar::radio
