#include "transfer/live_levels.h"

#include <exception>
#include <optional>
#include <string>
#include <utility>

#include "transfer/quiet_link.h"

namespace telvar::transfer {

using model::StoreMember;

namespace {

class Updating {
public:
    explicit Updating(bool& flag) noexcept : flag_(flag) { flag_ = true; }
    Updating(const Updating&) = delete;
    Updating& operator=(const Updating&) = delete;
    Updating(Updating&&) = delete;
    Updating& operator=(Updating&&) = delete;
    ~Updating() { flag_ = false; }

private:
    bool& flag_;
};

}  // namespace

void LiveLevels::update(const LiveLevelValues& levels) {
    if (updating_) {
        return;
    }
    const Updating updating(updating_);
    learnOutcome();
    if (levels != sent_) {
        send(levels);
    }
}

// A link works in the background: that the radio did not answer is known only some time after the levels were handed
// over. Such levels count as not sent.
void LiveLevels::learnOutcome() {
    const auto link = outcomeOf_;
    if (!link) {
        return;
    }
    std::optional<bool> outcome;
    try {
        outcome = link->lastExchangeSucceeded();
    } catch (const std::exception&) {
        outcome = false;
    }
    if (outcome) {
        outcomeOf_.reset();
        if (!*outcome) {
            sent_ = {};
            throw RadioSilence();
        }
    }
}

void LiveLevels::send(const LiveLevelValues& levels) {
    const auto before = std::exchange(sent_, levels);
    bool sent = false;
    try {
        const auto store = surroundings_.store();
        for (std::size_t index = 0; index < stagedLevelCount; ++index) {
            store->SetPotValue(static_cast<std::int16_t>(index), static_cast<std::uint8_t>(levels[index]));
        }
        sent = handOver();
    } catch (const RadioSilence&) {
        sent_ = {};
        throw;
    } catch (...) {
        sent_ = before;
        throw;
    }
    if (!sent) {
        sent_ = before;
    }
}

// Answers whether the link has the levels.
bool LiveLevels::handOver() {
    const auto wanted = [this, beginnings = beginnings_] {
        return beginnings == beginnings_ && surroundings_.wanted();
    };
    surroundings_.pauseDiagnostics();
    if (!wanted() || !waitForQuietLink(surroundings_.desktop, surroundings_.store) || !wanted()) {
        return false;
    }
    learnOutcome();
    const auto store = surroundings_.store();
    store->put(StoreMember::CommsTask, potentiometerUpdate);
    store->put(StoreMember::ProgressCount, std::int16_t{0});
    try {
        const auto link = surroundings_.link();
        std::string text;
        link->SendPotValues(text);
        outcomeOf_ = link;
    } catch (const std::exception&) {
        throw RadioSilence();
    }
    return true;
}

}  // namespace telvar::transfer
