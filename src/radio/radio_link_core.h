// The radio link behind its published operations, on the user-interface thread: it reads the data store and writes it,
// owns CommsBusy and ProgressCount, and reports. The conversation with the radio runs on a thread of its own
// (radio_client), which touches neither the store nor a listener.
//
// Idle --operation--> Running --its report, posted by the worker--> Idle, ExchangeEnded
// An operation that cannot begin ends in the same way, by a posted report; only one that meets a running exchange is
// refused by a base::Failure, because the end that will be reported is not its own.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/dispatcher.h"
#include "base/event.h"
#include "model/data_store.h"
#include "model/radio_link.h"
#include "radio/link_worker.h"
#include "radio/radio_client.h"

namespace telvar::radio {

// As events name an exchange, and CommsTask from its beginning on. Loads, sends and level updates have the codes that
// the control writes, and the question how the radio is none of those: whoever asks a dead radio over and over must not
// look like a load.
enum class Task : std::int16_t {
    None = 0,
    SelectChannel = 11,
    Status = 12,
    LoadTable = 22,
    SendTable = 30,
    RestoreBackup = 31,
    SetLevels = 33,
};

class RadioLinkCore final : public model::RadioLink {
public:
    // The dispatcher's thread is the one that calls everything here; it outlives the link. Tests bring a clock of
    // their own.
    explicit RadioLinkCore(base::Dispatcher& dispatcher, std::unique_ptr<LinkClock> clock = nullptr);
    // Aborts what is running, waits for its thread, and reports nothing any more.
    ~RadioLinkCore() override;

    // Both for the exchanges that begin from now on. The store may be null.
    void setDataStore(model::DataStorePointer store) { store_ = std::move(store); }
    void setSettings(LinkSettings settings) { settings_ = std::move(settings); }
    [[nodiscard]] const LinkSettings& settings() const noexcept { return settings_; }

    void SendChannelTable() override;
    // Text and flag stay as they were passed.
    void LoadChannelTable(std::string& text, bool& flag) override;
    void SendPotValues(std::string& text) override;
    // Decimal text of 1 to 255. When the radio has followed, the store's SelectedChannel is that channel.
    void SelectChannel(std::string& channel) override;
    // Ends the running exchange at its next frame; its end is reported as always. With nothing running the end is
    // reported once, so that a host re-enables its commands after a refused send.
    void AbortTransfer() override;

    // Status queries apart.
    [[nodiscard]] std::optional<bool> lastExchangeSucceeded() override;
    // From 1 on, status queries counted; 0 before the first. An operation that is refused has none.
    [[nodiscard]] std::optional<std::int32_t> exchangeNumber() override { return number_; }
    // Of the last 64.
    [[nodiscard]] model::ExchangeOutcome exchangeOutcome(std::int32_t number) override;

    // Sends a table that was kept before a send.
    void restoreBackup(const std::string& file);
    // Asks the radio how it is, once and as briefly as RadioClient::status; StatusReported tells, not ExchangeEnded.
    void queryStatus();

    // A session with a radio is open, as of the last report.
    [[nodiscard]] bool connected() const noexcept { return connected_; }
    [[nodiscard]] bool exchangeRunning() const noexcept { return task_ != Task::None; }
    // Of the exchange that ended last, status queries apart.
    [[nodiscard]] const Outcome& lastOutcome() const noexcept { return lastOutcome_; }
    [[nodiscard]] const std::string& lastBackup() const noexcept { return lastBackup_; }

    // 0 to 100.
    base::Event<std::int16_t> Progress;
    // The task's code (0 where none was running), whether all of it went through, and one sentence for the user,
    // empty where there is nothing to tell.
    base::Event<std::int16_t, bool, const std::string&> ExchangeEnded;
    // Whether the radio answered, and who it is or why not.
    base::Event<bool, const std::string&> StatusReported;

private:
    // What the worker hands over at the end.
    struct Report {
        Outcome outcome;
        std::optional<TableImage> loaded;
        bool connected = false;
        std::string backup;
    };
    // How posted work finds out that the link is gone; looked at on the user-interface thread only. Nothing holds the
    // link itself: whatever runs inside its work may let it go, and must be seen to have done so.
    using Alive = std::weak_ptr<RadioLinkCore*>;
    // Null once the link is gone.
    [[nodiscard]] static RadioLinkCore* linkOf(const Alive& alive) noexcept {
        const auto link = alive.lock();
        return link ? *link : nullptr;
    }
    using Job = std::function<Report(RadioClient&, const Percent&)>;
    // What the store is read for; made on the user-interface thread.
    using Preparation = std::function<Job()>;

    void start(Task task, const Preparation& prepare);
    void runOnWorker(const Job& job);
    void postReport(const Alive& alive, Report report);
    void showProgress(int percent);
    void finish(Report report);
    [[nodiscard]] model::ExchangeOutcome& outcomeAt(std::int32_t number) noexcept {
        return outcomes_[static_cast<std::size_t>(number) % outcomes_.size()];
    }
    [[nodiscard]] Outcome applied(Report& report);
    bool putShared(model::StoreMember member, const base::Value& value) noexcept;
    [[nodiscard]] model::DataStore& requiredStore() const;

    base::Dispatcher& dispatcher_;
    std::unique_ptr<LinkClock> clock_;
    os::Interrupt interrupt_;
    LinkSettings settings_;
    model::DataStorePointer store_;

    Task task_ = Task::None;
    model::DataStorePointer taskStore_;  // as it was when the exchange began
    std::uint8_t wantedChannel_ = 0;
    bool abortWanted_ = false;
    bool connected_ = false;
    std::int32_t number_ = 0;
    std::array<model::ExchangeOutcome, 64> outcomes_{};  // by the last digits of the number
    Outcome lastOutcome_;
    std::string lastBackup_;

    std::shared_ptr<RadioLinkCore*> alive_ = std::make_shared<RadioLinkCore*>(this);
    RadioClient client_;  // the worker's own while a task runs
    LinkWorker worker_;
};

}  // namespace telvar::radio
