#include "transfer/table_transfer.h"

#include <exception>
#include <utility>

#include "base/conversion.h"
#include "transfer/quiet_link.h"
#include "ui/trapped.h"

namespace telvar::transfer {

using model::StoreMember;

// Names a sequence as the one under way for as long as it goes on, however it ends.
class TableTransfer::Running {
public:
    Running(Sequence& underWay, Sequence which) noexcept : underWay_(underWay) { underWay_ = which; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    Running(Running&&) = delete;
    Running& operator=(Running&&) = delete;
    ~Running() { underWay_ = Sequence::None; }

private:
    Sequence& underWay_;
};

namespace {

constexpr const char* overwriteWarning = "Warning: Sending data to the Telvar will overwrite the\r\n"
                                         "current memory contents within the Telvar.\r\n"
                                         "\r\n"
                                         "Recommendation: Save Telvar channel/configuration\r\n"
                                         "information to disk first.\r\n"
                                         "\r\n"
                                         "Proceed with overwrite?";

class StorePermission final : public SendPermission {
public:
    explicit StorePermission(model::DataStorePointer store) noexcept : store_(std::move(store)) {}
    [[nodiscard]] bool mayGoAhead() override { return store_->SendPermitted(); }

private:
    model::DataStorePointer store_;
};

}  // namespace

std::unique_ptr<SendPermission> storePermission(model::DataStorePointer store) {
    return std::make_unique<StorePermission>(std::move(store));
}

bool loadRuns(model::DataStore& store) {
    bool runs = false;
    ui::resumed([&] {
        runs = base::isTrue(store.get(StoreMember::CommsBusy)) &&
               base::toInt16(store.get(StoreMember::CommsTask)) == channelTableLoad;
    });
    return runs;
}

void TableTransfer::load() {
    if (refusedInsideAnother()) {
        return;
    }
    const Running running(underWay_, Sequence::Load);
    abortingOnFailure([&] {
        surroundings_.disableCommands();
        surroundings_.disableChannelSelect();
        surroundings_.hourglassOverWindow();
        if (!waitForLink()) {
            return;
        }
        announce(channelTableLoad);
        std::string text;
        bool flag = true;
        surroundings_.link()->LoadChannelTable(text, flag);
    });
}

void TableTransfer::send() {
    if (refusedInsideAnother()) {
        return;
    }
    const Running running(underWay_, Sequence::Send);
    if (!tableIsOpen()) {
        return;
    }
    if (!overwriteConfirmed()) {
        surroundings_.restoreButtons();
        surroundings_.enableCommands("All");
        return;
    }
    surroundings_.store()->put(StoreMember::SendInProgress, false);
    abortingOnFailure([&] {
        surroundings_.disableCommands();
        surroundings_.disableChannelSelect();
        surroundings_.hourglassOverWindow();
        if (!mayBeSent() || !waitForLink()) {
            return;
        }
        announce(channelTableSend);
        surroundings_.link()->SendChannelTable();
    });
}

bool TableTransfer::refusedInsideAnother() {
    if (underWay()) {
        surroundings_.show({.text = "Another transfer is waiting for the Telvar. Please wait until it has ended.",
                            .title = title(),
                            .icon = ui::Icon::Exclamation});
    }
    return underWay();
}

bool TableTransfer::tableIsOpen() {
    if (base::isTrue(surroundings_.store()->get(StoreMember::TableOpen))) {
        return true;
    }
    surroundings_.show({.text = "No channel information open to send. Please open a channel database.",
                        .title = title(),
                        .icon = ui::Icon::Exclamation});
    return false;
}

bool TableTransfer::overwriteConfirmed() {
    if (!base::isTrue(surroundings_.store()->get(StoreMember::ShowSendWarning))) {
        return true;
    }
    return surroundings_.show({.text = overwriteWarning,
                               .title = title() + ": Communicating with Telvar",
                               .icon = ui::Icon::Information,
                               .buttons = ui::Buttons::OkCancel}) == ui::Answer::Ok;
}

// Each stage that is passed over because an earlier one refused aborts the transfer once more, and so does the end: the
// host hears of a refused permission three times, of failed checks twice, of too many scanned channels once.
bool TableTransfer::mayBeSent() {
    bool goAhead = surroundings_.makePermission(surroundings_.store())->mayGoAhead();
    if (goAhead) {
        goAhead = surroundings_.checkFrequencies();
    } else {
        surroundings_.link()->AbortTransfer();
    }
    if (goAhead) {
        const std::string message = surroundings_.checkScanCount();
        if (!message.empty()) {
            surroundings_.pauseDiagnostics();
            surroundings_.show({.text = message, .title = title(), .icon = ui::Icon::Exclamation});
            goAhead = false;
        }
    } else {
        surroundings_.link()->AbortTransfer();
    }
    if (!goAhead) {
        surroundings_.link()->AbortTransfer();
    }
    return goAhead;
}

bool TableTransfer::waitForLink() {
    surroundings_.pauseDiagnostics();
    return waitForQuietLink(surroundings_.desktop, surroundings_.store);
}

void TableTransfer::announce(std::int16_t task) {
    const auto store = surroundings_.store();
    store->put(StoreMember::CommsTask, task);
    store->put(StoreMember::ProgressCount, std::int16_t{0});
}

template <class Body>
void TableTransfer::abortingOnFailure(Body&& sequence) {
    try {
        sequence();
    } catch (const std::exception&) {
        // No exchange was begun, so without this no end of one would ever give the host its commands back.
        ui::resumed([&] {
            if (linkIsKnownToBeFree()) {
                surroundings_.link()->AbortTransfer();
            }
        });
        throw;
    }
}

// A link that tells how its last exchange ended runs none; of others only the store knows.
bool TableTransfer::linkIsKnownToBeFree() {
    return surroundings_.link()->lastExchangeSucceeded() ||
           !base::isTrue(surroundings_.store()->get(StoreMember::CommsBusy));
}

std::string TableTransfer::title() { return base::toText(surroundings_.store()->get(StoreMember::MessageTitle)); }

}  // namespace telvar::transfer
