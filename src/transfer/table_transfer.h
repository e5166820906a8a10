// Send and load of the whole channel table, up to the moment at which the radio link takes over: the host is prepared
// by events, the user is asked, the table is checked, and the link is waited for.
//
// Nothing is enabled again here: that is the host's task when the link reports the end of the exchange. A send that is
// refused, and a sequence that fails once the host's commands are disabled, therefore calls AbortTransfer, which makes
// the link report an end. One that fails while somebody else's exchange runs, or may run, leaves that one alone: its
// own end gives the commands back.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "model/data_store.h"
#include "model/radio_link.h"
#include "ui/desktop.h"

namespace telvar::transfer {

// What the store's task code says is under way. A link has codes of its own for what it does unasked (radio::Task).
inline constexpr std::int16_t channelTableSend = 30;
inline constexpr std::int16_t channelTableLoad = 22;

// Whether a send may go ahead; made for one send.
class SendPermission {
public:
    SendPermission() = default;
    SendPermission(const SendPermission&) = delete;
    SendPermission& operator=(const SendPermission&) = delete;
    SendPermission(SendPermission&&) = delete;
    SendPermission& operator=(SendPermission&&) = delete;
    virtual ~SendPermission() = default;

    [[nodiscard]] virtual bool mayGoAhead() = 0;
};

// The store says that a load runs: its link is busy, and with that. A store that does not say so, because it fails or
// has no such values, keeps nobody from anything.
[[nodiscard]] bool loadRuns(model::DataStore& store);

// Asks the data store, which permits the send where it has no opinion.
[[nodiscard]] std::unique_ptr<SendPermission> storePermission(model::DataStorePointer store);

// What a transfer asks of the control. Where one of them ends the control's routine by an exception, the transfer ends
// with it.
struct TransferSurroundings {
    ui::Desktop& desktop;
    // Fail where there is none.
    std::function<model::DataStorePointer()> store;
    std::function<model::RadioLinkPointer()> link;
    std::function<ui::Answer(const ui::MessageBox&)> show;
    // The host's events.
    std::function<void()> disableCommands;
    std::function<void()> hourglassOverWindow;
    std::function<void()> pauseDiagnostics;
    std::function<void()> restoreButtons;
    std::function<void(const std::string&)> enableCommands;
    std::function<void()> disableChannelSelect;
    // The control's table checks, with their messages.
    std::function<bool()> checkFrequencies;
    std::function<std::string()> checkScanCount;
    std::function<std::unique_ptr<SendPermission>(model::DataStorePointer)> makePermission = storePermission;
};

class TableTransfer {
public:
    explicit TableTransfer(TransferSurroundings surroundings) : surroundings_(std::move(surroundings)) {}

    // From the beginning of a sequence to its end: it asks, checks or waits for the link.
    [[nodiscard]] bool underWay() const noexcept { return underWay_ != Sequence::None; }
    // The same of a load alone, which will replace the table.
    [[nodiscard]] bool loading() const noexcept { return underWay_ == Sequence::Load; }

    // Let failures through (base::Failure, or what the surroundings throw). One that starts while another is under way
    // is refused with a message.
    void send();
    void load();

private:
    enum class Sequence : std::uint8_t { None, Send, Load };
    class Running;

    [[nodiscard]] bool refusedInsideAnother();
    [[nodiscard]] bool tableIsOpen();
    [[nodiscard]] bool overwriteConfirmed();
    [[nodiscard]] bool mayBeSent();
    void prepareHost();
    // False when the message loop is quitting.
    [[nodiscard]] bool waitForLink();
    void announce(std::int16_t task);
    template <class Body>
    void abortingOnFailure(Body&& sequence);
    [[nodiscard]] bool linkIsKnownToBeFree();
    [[nodiscard]] std::string title();

    TransferSurroundings surroundings_;
    Sequence underWay_ = Sequence::None;
};

}  // namespace telvar::transfer
