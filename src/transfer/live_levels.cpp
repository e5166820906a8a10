#include "transfer/live_levels.h"

#include <exception>
#include <string>

#include "transfer/quiet_link.h"
#include "ui/trapped.h"

namespace telvar::transfer {

using model::ExchangeOutcome;
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

void LiveLevels::begin() noexcept {
    if (handedOver_) {
        handedOver_->before = true;
    }
    ++beginnings_;
}

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

// A link works in the background: how the levels fared is known only some time after they were handed over, when other
// exchanges may have ended since. Whatever kept them from the radio, they are not there; but only their own failure is
// a radio that does not answer, and only where it was not aborted.
void LiveLevels::learnOutcome() {
    if (!handedOver_) {
        return;
    }
    const HandedOver asked = *handedOver_;
    const auto link = asked.link.lock();
    auto outcome = ExchangeOutcome::Unknown;
    try {
        outcome = link ? link->exchangeOutcome(asked.number) : outcome;
    } catch (const std::exception&) {
        outcome = ExchangeOutcome::Failed;
    }
    if (outcome == ExchangeOutcome::Running) {
        return;
    }
    handedOver_.reset();
    if (outcome == ExchangeOutcome::Failed || outcome == ExchangeOutcome::Aborted) {
        sent_.reset();
    }
    if (outcome == ExchangeOutcome::Failed && !asked.before) {
        throw RadioSilence();
    }
}

void LiveLevels::send(const LiveLevelValues& levels) {
    const auto wanted = [this, beginnings = beginnings_] {
        return beginnings == beginnings_ && surroundings_.wanted();
    };
    const auto staging = surroundings_.store();
    for (std::size_t index = 0; index < stagedLevelCount; ++index) {
        staging->SetPotValue(static_cast<std::int16_t>(index), static_cast<std::uint8_t>(levels[index]));
    }
    surroundings_.pauseDiagnostics();
    if (!wanted() || !waitForQuietLink(surroundings_.desktop, surroundings_.store) || !wanted()) {
        return;
    }
    learnOutcome();
    const auto store = surroundings_.store();
    store->put(StoreMember::CommsTask, potentiometerUpdate);
    store->put(StoreMember::ProgressCount, std::int16_t{0});
    if (handOver()) {
        sent_ = levels;
    }
}

// Answers whether the link has the levels.
bool LiveLevels::handOver() {
    model::RadioLinkPointer link;
    try {
        link = surroundings_.link();
        std::string text;
        link->SendPotValues(text);
    } catch (const std::exception&) {
        if (link && busyWithAnother(*link)) {
            return false;
        }
        sent_.reset();
        throw RadioSilence();
    }
    handedOver_.reset();
    ui::resumed([&] {
        if (const auto number = link->exchangeNumber()) {
            handedOver_ = HandedOver{.link = link, .number = *number};
        }
    });
    return true;
}

// Somebody was faster: the levels go with a later tick.
bool LiveLevels::busyWithAnother(model::RadioLink& link) {
    bool busy = false;
    ui::resumed([&] {
        const auto number = link.exchangeNumber();
        busy = number && link.exchangeOutcome(*number) == ExchangeOutcome::Running;
    });
    return busy;
}

}  // namespace telvar::transfer
