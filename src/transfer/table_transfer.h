// Send and load of the whole channel table, up to the moment at which the radio link takes over: the host is prepared
// by events, the user is asked, the table is checked, and the link is waited for.
//
// Nothing is enabled again here: that is the host's task when the link reports the end of the exchange. A send that is
// refused, and a sequence that fails once the host's commands are disabled, therefore calls AbortTransfer, which makes
// the link report an end. One that fails while somebody else's exchange runs, or may run, leaves that one alone: its
// own end gives the commands back.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "base/pinned.h"
#include "model/data_store.h"
#include "session/session.h"

namespace telvar::transfer {

// What the store's task code says is under way. A link has codes of its own for what it does unasked (radio::Task).
inline constexpr std::int16_t channelTableSend = 30;
inline constexpr std::int16_t channelTableLoad = 22;

// Whether a send may go ahead; made for one send.
class SendPermission : base::Pinned {
public:
    virtual ~SendPermission() = default;

    [[nodiscard]] virtual bool mayGoAhead() = 0;
};

// The store says that a load runs: its link is busy, and with that. A store that does not say so, because it fails or
// has no such values, keeps nobody from anything.
[[nodiscard]] bool loadRuns(model::DataStore& store);

// Asks the data store, which permits the send where it has no opinion.
[[nodiscard]] std::unique_ptr<SendPermission> storePermission(model::DataStorePointer store);

// What a transfer asks of the control. Where one of these throws session::Closed, the transfer ends with it.
class TransferOwner : base::Pinned {
public:
    virtual ~TransferOwner() = default;

    // The host's events.
    virtual void disableCommands() = 0;
    virtual void hourglassOverWindow() = 0;
    virtual void pauseDiagnostics() = 0;
    virtual void restoreButtons() = 0;
    virtual void enableCommands(std::string commands) = 0;
    virtual void disableChannelSelect() = 0;
    // The control's table checks, with their messages.
    [[nodiscard]] virtual bool checkFrequencies() = 0;
    [[nodiscard]] virtual std::string checkScanCount() = 0;
    [[nodiscard]] virtual std::unique_ptr<SendPermission> makePermission(model::DataStorePointer store) {
        return storePermission(std::move(store));
    }
};

class TableTransfer {
public:
    // Both must outlive it.
    TableTransfer(session::Session& session, TransferOwner& owner) noexcept : session_(session), owner_(owner) {}

    // Let failures through. One that starts while another is under way is refused with a message. A sequence is under
    // way from its beginning to its end: while it asks, checks or waits for the link.
    void send();
    void load();

private:
    [[nodiscard]] bool refused(session::Activity wanted);
    [[nodiscard]] bool tableIsOpen();
    [[nodiscard]] bool overwriteConfirmed();
    [[nodiscard]] bool mayBeSent();
    void prepareHost();
    // False when the message loop is quitting.
    [[nodiscard]] bool waitForLink();
    template <class Body>
    void abortingOnFailure(Body&& sequence);
    [[nodiscard]] bool linkIsKnownToBeFree();
    // Under the store's own title: who cannot read that has failed.
    ui::Answer show(ui::MessageBox box, const char* behindTitle = "");
    void refuse(const std::string& text) { show({.text = text, .icon = ui::Icon::Exclamation}); }

    session::Session& session_;
    TransferOwner& owner_;
};

}  // namespace telvar::transfer
