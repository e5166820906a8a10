// One tick of the live update: levels that differ from those sent last are staged in the data store and handed to the
// radio link. What changes while the link is waited for goes with the next tick, so that a slow radio gets the last
// value and not every one between.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "base/event.h"
#include "base/failure.h"
#include "model/radio_link.h"
#include "session/session.h"
#include "ui/timer.h"

namespace telvar::transfer {

// What the store's task code says is under way.
inline constexpr std::int16_t potentiometerUpdate = 33;

// Transmit power, reference oscillator, VCO level, reference level, and two spare ones that are compared but not
// staged; each 0 to 255.
inline constexpr std::size_t liveLevelCount = 6;
inline constexpr std::size_t stagedLevelCount = 4;
using LiveLevelValues = std::array<std::int16_t, liveLevelCount>;

// The link refused the levels or could not deliver those sent before, or there is no link.
class RadioSilence : public base::Failure {
public:
    RadioSilence() : Failure("The radio does not answer") {}
};

class LiveLevels {
public:
    // The event comes before the wait for the link; an update whose timer was stopped in the meantime is not wanted any
    // more. All of them must outlive the levels.
    LiveLevels(session::Session& session, const base::Event<>& pauseDiagnostics, const ui::Timer& timer) noexcept
        : session_(session), pauseDiagnostics_(pauseDiagnostics), timer_(timer) {}

    // What was handed over before now fails in silence, and an update that waits sends nothing any more.
    void begin() noexcept;
    // To be called at every tick, since that is when the outcome of the levels sent last is asked for. Inside its own
    // wait it does nothing. Fails as the store fails, and with RadioSilence; levels that are known not to have reached
    // the radio count as not sent. A link that does not number its exchanges is believed unless it refuses the levels.
    void update(const LiveLevelValues& levels);

private:
    // An exchange of levels whose outcome is not known yet.
    struct HandedOver {
        std::weak_ptr<model::RadioLink> link;
        std::int32_t number = 0;
        bool before = false;  // the update has begun anew since
    };

    void learnOutcome();
    void send(const LiveLevelValues& levels);
    [[nodiscard]] bool handOver();
    [[nodiscard]] static bool busyWithAnother(model::RadioLink& link);

    session::Session& session_;
    const base::Event<>& pauseDiagnostics_;
    const ui::Timer& timer_;
    // Nothing where the radio may hold anything: whatever the levels are now, they have to be sent.
    std::optional<LiveLevelValues> sent_ = LiveLevelValues{};
    std::optional<HandedOver> handedOver_;
    session::Occurrence beginning_;
};

}  // namespace telvar::transfer
