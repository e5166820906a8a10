#include "transfer/table_transfer.h"

#include <exception>
#include <utility>

#include "base/conversion.h"
#include "base/skip.h"
#include "transfer/quiet_link.h"

namespace telvar::transfer {

using model::StoreMember;
using session::Activity;

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
    base::skip([&] {
        runs = base::isTrue(store.get(StoreMember::CommsBusy)) &&
               base::toInt16(store.get(StoreMember::CommsTask)) == channelTableLoad;
    });
    return runs;
}

void TableTransfer::load() {
    if (refused(Activity::Loading)) {
        return;
    }
    const session::UnderWay loading(session_.activities(), Activity::Loading);
    abortingOnFailure([&] {
        prepareHost();
        if (!waitForLink()) {
            return;
        }
        announce(session_, channelTableLoad);
        std::string text;
        bool flag = true;
        session_.link()->LoadChannelTable(text, flag);
    });
}

void TableTransfer::send() {
    if (refused(Activity::Sending)) {
        return;
    }
    const session::UnderWay sending(session_.activities(), Activity::Sending);
    if (!tableIsOpen()) {
        return;
    }
    if (!overwriteConfirmed()) {
        owner_.restoreButtons();
        owner_.enableCommands("All");
        return;
    }
    session_.store()->put(StoreMember::SendInProgress, false);
    abortingOnFailure([&] {
        prepareHost();
        if (!mayBeSent() || !waitForLink()) {
            return;
        }
        announce(session_, channelTableSend);
        session_.link()->SendChannelTable();
    });
}

bool TableTransfer::refused(Activity wanted) {
    const char* const why = session::sentenceOf(session_.activities().refusalOf(wanted));
    if (why != nullptr) {
        refuse(why);
    }
    return why != nullptr;
}

bool TableTransfer::tableIsOpen() {
    if (base::isTrue(session_.store()->get(StoreMember::TableOpen))) {
        return true;
    }
    refuse("No channel information open to send. Please open a channel database.");
    return false;
}

bool TableTransfer::overwriteConfirmed() {
    if (!base::isTrue(session_.store()->get(StoreMember::ShowSendWarning))) {
        return true;
    }
    return show({.text = overwriteWarning, .icon = ui::Icon::Information, .buttons = ui::Buttons::OkCancel},
                ": Communicating with Telvar") == ui::Answer::Ok;
}

// Each stage that is passed over because an earlier one refused aborts the transfer once more, and so does the end: the
// host hears of a refused permission three times, of failed checks twice, of too many scanned channels once.
bool TableTransfer::mayBeSent() {
    bool goAhead = owner_.makePermission(session_.store())->mayGoAhead();
    if (goAhead) {
        goAhead = owner_.checkFrequencies();
    } else {
        session_.link()->AbortTransfer();
    }
    if (goAhead) {
        const std::string message = owner_.checkScanCount();
        if (!message.empty()) {
            owner_.pauseDiagnostics();
            refuse(message);
            goAhead = false;
        }
    } else {
        session_.link()->AbortTransfer();
    }
    if (!goAhead) {
        session_.link()->AbortTransfer();
    }
    return goAhead;
}

void TableTransfer::prepareHost() {
    owner_.disableCommands();
    owner_.disableChannelSelect();
    owner_.hourglassOverWindow();
}

bool TableTransfer::waitForLink() {
    owner_.pauseDiagnostics();
    return waitForQuietLink(session_);
}

template <class Body>
void TableTransfer::abortingOnFailure(Body&& sequence) {
    try {
        sequence();
    } catch (const std::exception&) {
        // No exchange was begun, so without this no end of one would ever give the host its commands back.
        base::skip([&] {
            if (linkIsKnownToBeFree()) {
                session_.link()->AbortTransfer();
            }
        });
        throw;
    }
}

// A link that tells how its last exchange ended runs none; of others only the store knows.
bool TableTransfer::linkIsKnownToBeFree() {
    return session_.link()->lastExchangeSucceeded() || !base::isTrue(session_.store()->get(StoreMember::CommsBusy));
}

ui::Answer TableTransfer::show(ui::MessageBox box, const char* behindTitle) {
    box.title = session_.storesTitle() + behindTitle;
    return session_.show(box);
}

}  // namespace telvar::transfer
