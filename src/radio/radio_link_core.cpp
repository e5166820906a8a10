#include "radio/radio_link_core.h"

#include <algorithm>
#include <utility>

#include "base/conversion.h"
#include "base/failure.h"
#include "radio/apply_image.h"

namespace telvar::radio {

namespace {

using model::StoreMember;

constexpr std::uint8_t noChannel = 0;

[[nodiscard]] std::uint8_t channelIn(const std::string& text) {
    const auto number = base::readInt16(text);
    if (!number || *number < 1 || *number > model::channelCount) {
        throw base::Failure("\"" + text + "\" is not a channel; channels are 1 to 255");
    }
    return static_cast<std::uint8_t>(*number);
}

// False where the store failed.
bool putQuietly(model::DataStore* store, StoreMember member, const base::Value& value) noexcept {
    try {
        if (store != nullptr) {
            store->put(member, value);
        }
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace

RadioLinkCore::RadioLinkCore(base::Dispatcher& dispatcher, std::unique_ptr<LinkClock> clock)
    : dispatcher_(dispatcher),
      clock_(clock ? std::move(clock) : std::make_unique<SystemClock>()),
      client_(*clock_, interrupt_) {}

RadioLinkCore::~RadioLinkCore() {
    alive_.reset();
    client_.end();
    worker_.stop();
    if (exchangeRunning()) {
        putShared(StoreMember::CommsBusy, false);
    }
}

void RadioLinkCore::SendChannelTable() {
    start(Task::SendTable, [this]() -> Job {
        auto image = std::make_shared<const TableImage>(imageOf(requiredStore()));
        return [image](RadioClient& client, const Percent& percent) -> Report {
            return {.outcome = client.sendTable(*image, percent)};
        };
    });
}

void RadioLinkCore::LoadChannelTable(std::string& /*text*/, bool& /*flag*/) {
    start(Task::LoadTable, [this]() -> Job {
        (void)requiredStore();
        return [](RadioClient& client, const Percent& percent) -> Report {
            auto loaded = client.loadTable(percent);
            return {.outcome = std::move(loaded.outcome), .loaded = std::move(loaded.image)};
        };
    });
}

void RadioLinkCore::SendPotValues(std::string& /*text*/) {
    start(Task::SetLevels, [this]() -> Job {
        Levels levels{};
        auto& store = requiredStore();
        for (std::size_t at = 0; at < levels.size(); ++at) {
            levels[at] = store.PotValue(static_cast<std::int16_t>(at));
        }
        return
            [levels](RadioClient& client, const Percent&) -> Report { return {.outcome = client.setLevels(levels)}; };
    });
}

void RadioLinkCore::SelectChannel(std::string& channel) {
    start(Task::SelectChannel, [this, &channel]() -> Job {
        const auto wanted = channelIn(channel);
        wantedChannel_ = wanted;
        return [wanted](RadioClient& client, const Percent&) -> Report {
            return {.outcome = client.selectChannel(wanted)};
        };
    });
}

std::optional<bool> RadioLinkCore::lastExchangeSucceeded() {
    return exchangeRunning() ? std::nullopt : std::optional(lastOutcome_.succeeded);
}

model::ExchangeOutcome RadioLinkCore::exchangeOutcome(std::int32_t number) {
    if (number < 1 || number > number_ || number_ - number >= static_cast<std::int32_t>(outcomes_.size())) {
        return model::ExchangeOutcome::Unknown;
    }
    return outcomeAt(number);
}

void RadioLinkCore::restoreBackup(const std::string& file) {
    start(Task::RestoreBackup, [&file]() -> Job {
        return [file](RadioClient& client, const Percent& percent) -> Report {
            return {.outcome = client.restore(file, percent)};
        };
    });
}

void RadioLinkCore::queryStatus() {
    start(Task::Status, []() -> Job {
        return [](RadioClient& client, const Percent&) -> Report { return {.outcome = client.status()}; };
    });
}

void RadioLinkCore::AbortTransfer() {
    if (exchangeRunning()) {
        abortWanted_ = true;
        interrupt_.raise();
        return;
    }
    ExchangeEnded(static_cast<std::int16_t>(Task::None), false, std::string());
}

// The store may let its owner run, which may drop the link or abort; a second operation finds the first one running.
void RadioLinkCore::start(Task task, const Preparation& prepare) {
    if (exchangeRunning()) {
        throw base::Failure("The radio link is busy with another exchange");
    }
    task_ = task;
    outcomeAt(++number_) = model::ExchangeOutcome::Running;
    taskStore_ = store_;
    wantedChannel_ = noChannel;
    abortWanted_ = false;
    interrupt_.reset();
    const std::weak_ptr alive(alive_);
    // Kept until all of it has been read, also where nobody else keeps it.
    const auto store = taskStore_;
    Report refused;
    try {
        if (store) {
            // Before the mark, which would else stand beside the task of the exchange before.
            putQuietly(store.get(), StoreMember::CommsTask, static_cast<std::int16_t>(task));
            store->put(StoreMember::CommsBusy, true);
        }
        if (alive.expired()) {
            // The mark came after the link had gone, which took away what was not there yet.
            putQuietly(store.get(), StoreMember::CommsBusy, false);
            return;
        }
        const Job job = prepare();
        if (!alive.expired()) {
            runOnWorker(job);
        }
        return;
    } catch (const base::Failure& failure) {
        refused.outcome.sentence = failure.description() + ".";
    } catch (const std::exception& failure) {
        refused.outcome.sentence = std::string("The exchange could not be started (") + failure.what() + ").";
    }
    if (!alive.expired()) {
        refused.connected = connected_;
        refused.backup = lastBackup_;
        postReport(alive, std::move(refused));
    }
}

void RadioLinkCore::runOnWorker(const Job& job) {
    worker_.run([this, job, settings = settings_, alive = std::weak_ptr(alive_)] {
        int shown = -1;
        const Percent percent = [&](int now) {
            if (now == shown) {
                return;
            }
            shown = now;
            dispatcher_.post([alive, now] {
                if (auto* const link = linkOf(alive)) {
                    link->showProgress(now);
                }
            });
        };
        Report report;
        try {
            client_.configure(settings);
            report = job(client_, percent);
        } catch (const std::exception& failure) {
            report = {.outcome = {.succeeded = false,
                                  .sentence = std::string("The exchange failed (") + failure.what() + ")."}};
        }
        report.connected = client_.connected();
        report.backup = client_.lastBackup();
        postReport(alive, std::move(report));
    });
}

void RadioLinkCore::postReport(const Alive& alive, Report report) {
    dispatcher_.post([alive, shared = std::make_shared<Report>(std::move(report))] {
        if (auto* const link = linkOf(alive)) {
            link->finish(std::move(*shared));
        }
    });
}

void RadioLinkCore::showProgress(int percent) {
    const std::weak_ptr alive(alive_);
    putShared(StoreMember::ProgressCount, static_cast<std::int16_t>(percent));
    if (!alive.expired()) {
        Progress(static_cast<std::int16_t>(percent));
    }
}

void RadioLinkCore::finish(Report report) {
    const std::weak_ptr alive(alive_);
    connected_ = report.connected;
    lastBackup_ = report.backup;
    Outcome outcome = applied(report);
    // Whoever waits for it would wait for ever.
    if (!alive.expired() && !putShared(StoreMember::CommsBusy, false) && !alive.expired() &&
        !putShared(StoreMember::CommsBusy, false)) {
        outcome.sentence += outcome.sentence.empty() ? "" : " ";
        outcome.sentence += "The data store could not be told that the link is free.";
    }
    if (alive.expired()) {
        return;
    }
    const Task ended = std::exchange(task_, Task::None);
    const bool aborted = std::exchange(abortWanted_, false);
    taskStore_.reset();
    using model::ExchangeOutcome;
    outcomeAt(number_) = outcome.succeeded ? ExchangeOutcome::Succeeded
                         : aborted         ? ExchangeOutcome::Aborted
                                           : ExchangeOutcome::Failed;
    if (ended != Task::Status) {
        lastOutcome_ = outcome;
        ExchangeEnded(static_cast<std::int16_t>(ended), outcome.succeeded, outcome.sentence);
        return;
    }
    StatusReported(outcome.succeeded, outcome.sentence);
    if (aborted && !alive.expired()) {
        ExchangeEnded(static_cast<std::int16_t>(Task::None), false, std::string());
    }
}

// What an exchange that went through changes in the store.
Outcome RadioLinkCore::applied(Report& report) {
    if (!report.outcome.succeeded || !taskStore_) {
        return report.outcome;
    }
    const auto store = taskStore_;
    try {
        if (report.loaded) {
            applyImage(*store, *report.loaded);
        } else if (wantedChannel_ != noChannel) {
            store->put(StoreMember::SelectedChannel, std::int16_t{wantedChannel_});
        }
    } catch (const base::Failure& failure) {
        return {.succeeded = false, .sentence = failure.description() + "."};
    }
    return report.outcome;
}

bool RadioLinkCore::putShared(StoreMember member, const base::Value& value) noexcept {
    // The put may let the link go, and its pointer to the store with it.
    const auto store = taskStore_;
    return putQuietly(store.get(), member, value);
}

model::DataStore& RadioLinkCore::requiredStore() const {
    if (!taskStore_) {
        throw base::Failure("The radio link has no data store");
    }
    return *taskStore_;
}

}  // namespace telvar::radio
