#include "transfer/live_levels.h"

#include <exception>
#include <string>

#include "base/skip.h"
#include "transfer/quiet_link.h"

namespace telvar::transfer {

using model::ExchangeOutcome;
using session::Activity;

void LiveLevels::begin() noexcept {
    if (handedOver_) {
        handedOver_->before = true;
    }
    beginning_.happen();
}

void LiveLevels::update(const LiveLevelValues& levels) {
    auto& activities = session_.activities();
    if (!activities.mayBegin(Activity::Updating)) {
        return;
    }
    const session::UnderWay updating(activities, Activity::Updating);
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
    const session::Ticket sameUpdate(beginning_);
    const auto wanted = [&] { return sameUpdate.valid() && timer_.enabled(); };
    const auto staging = session_.store();
    for (std::size_t index = 0; index < stagedLevelCount; ++index) {
        staging->SetPotValue(static_cast<std::int16_t>(index), static_cast<std::uint8_t>(levels[index]));
    }
    pauseDiagnostics_();
    if (!wanted() || !waitForQuietLink(session_) || !wanted()) {
        return;
    }
    learnOutcome();
    announce(session_, potentiometerUpdate);
    if (handOver()) {
        sent_ = levels;
    }
}

// Answers whether the link has the levels.
bool LiveLevels::handOver() {
    model::RadioLinkPointer link;
    try {
        link = session_.link();
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
    base::skip([&] {
        if (const auto number = link->exchangeNumber()) {
            handedOver_ = HandedOver{.link = link, .number = *number};
        }
    });
    return true;
}

// Somebody was faster: the levels go with a later tick.
bool LiveLevels::busyWithAnother(model::RadioLink& link) {
    bool busy = false;
    base::skip([&] {
        const auto number = link.exchangeNumber();
        busy = number && link.exchangeOutcome(*number) == ExchangeOutcome::Running;
    });
    return busy;
}

}  // namespace telvar::transfer
