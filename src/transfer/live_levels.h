// One tick of the live update: levels that differ from those sent last are staged in the data store and handed to the
// radio link. What changes while the link is waited for goes with the next tick, so that a slow radio gets the last
// value and not every one between.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "base/failure.h"
#include "model/data_store.h"
#include "model/radio_link.h"
#include "ui/desktop.h"

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

struct LiveLevelsSurroundings {
    ui::Desktop& desktop;
    // Fail where there is none.
    std::function<model::DataStorePointer()> store;
    std::function<model::RadioLinkPointer()> link;
    std::function<void()> pauseDiagnostics;
    // Whether the update is still wanted after a wait.
    std::function<bool()> wanted;
};

class LiveLevels {
public:
    explicit LiveLevels(LiveLevelsSurroundings surroundings) : surroundings_(std::move(surroundings)) {}

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

    LiveLevelsSurroundings surroundings_;
    // Nothing where the radio may hold anything: whatever the levels are now, they have to be sent.
    std::optional<LiveLevelValues> sent_ = LiveLevelValues{};
    std::optional<HandedOver> handedOver_;
    bool updating_ = false;
    int beginnings_ = 0;
};

}  // namespace telvar::transfer
