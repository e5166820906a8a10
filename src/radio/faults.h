// How a simulated line misbehaves, as a plan that can be written as text. "drop@12" loses the twelfth frame once,
// "drop@12+" every frame from the twelfth on, for good, "drop/5" every fifth one. Frames of both directions are counted
// together, beginning anew with the greeting that opens a session.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <expected>
#include <string>
#include <string_view>
#include <vector>

namespace telvar::radio {

enum class FaultKind : std::uint8_t {
    Silence,   // frames vanish
    Delay,     // frames come late
    Noise,     // bytes are bent, others come along
    Drop,      // a frame vanishes
    Repeat,    // a frame comes twice
    Cut,       // a frame's second half is missing
    Reorder,   // a frame comes behind its successor
    Identity,  // another radio answers to the greeting
    Echo,      // what is sent comes back, as on a line with one pair of wires
    Power,     // the radio loses its power and is back after a while; a frame on its way is lost
};

struct FaultInfo {
    FaultKind kind;
    std::string_view name;
    std::string_view usual;  // what the name alone stands for
};

inline constexpr std::array<FaultInfo, 10> faultKinds{{
    {FaultKind::Silence, "silence", "@1+"},
    {FaultKind::Delay, "delay", "@1+"},
    {FaultKind::Noise, "noise", "/5"},
    {FaultKind::Drop, "drop", "/5"},
    {FaultKind::Repeat, "repeat", "/5"},
    {FaultKind::Cut, "cut", "/5"},
    {FaultKind::Reorder, "reorder", "/5"},
    {FaultKind::Identity, "identity", "@1+"},
    {FaultKind::Echo, "echo", "@1+"},
    {FaultKind::Power, "power", "@100"},
}};

enum class FaultSpan : std::uint8_t { Once, FromThereOn, Every };

struct Fault {
    FaultKind kind{};
    int frame = 1;  // from 1; for FaultSpan::Every the distance
    FaultSpan span = FaultSpan::Once;
    std::chrono::milliseconds delay{0};  // of FaultKind::Delay
    bool operator==(const Fault&) const = default;
};

using FaultPlan = std::vector<Fault>;

inline constexpr std::chrono::milliseconds usualDelay{200};
inline constexpr std::chrono::milliseconds longestDelay{60'000};

// All names, separated by commas.
[[nodiscard]] std::string faultNames();

// Names separated by commas; "delay:3000" gives the delay in milliseconds, empty or "none" means no fault. The error
// is one sentence without its full stop.
[[nodiscard]] std::expected<FaultPlan, std::string> parseFaults(std::string_view text);

}  // namespace telvar::radio
