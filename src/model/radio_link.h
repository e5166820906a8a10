// The radio link as the control sees it: it starts an exchange and returns at once; progress and outcome reach the host
// by the link's own events and the data store's shared state. Every call may fail with a base::Failure.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "base/pinned.h"

namespace telvar::model {

// Links of any make answer these numbers.
enum class ExchangeOutcome : std::int16_t {
    Unknown = 0,  // no such exchange, or one too long ago, or the link does not tell
    Running = 1,
    Succeeded = 2,
    Failed = 3,
    Aborted = 4,  // because somebody wanted it so
};

class RadioLink : base::Pinned {
public:
    virtual ~RadioLink() = default;

    virtual void SendChannelTable() = 0;
    // The text is passed empty and the flag True; both by reference, as the published operation has them.
    virtual void LoadChannelTable(std::string& text, bool& flag) = 0;
    virtual void AbortTransfer() = 0;
    // Sends the levels staged in the data store; the text is passed empty.
    virtual void SendPotValues(std::string& text) = 0;
    // Switches the radio to a channel, given as decimal text.
    virtual void SelectChannel(std::string& channel) = 0;

    // Whether the exchange that ended last went through; nothing while one is running, and where the link cannot tell.
    [[nodiscard]] virtual std::optional<bool> lastExchangeSucceeded() { return std::nullopt; }

    // The number of the exchange, or question, that was begun last, so that its outcome can be told from others'.
    // Nothing where the link does not number them.
    [[nodiscard]] virtual std::optional<std::int32_t> exchangeNumber() { return std::nullopt; }
    [[nodiscard]] virtual ExchangeOutcome exchangeOutcome(std::int32_t /*number*/) { return ExchangeOutcome::Unknown; }
};

using RadioLinkPointer = std::shared_ptr<RadioLink>;

}  // namespace telvar::model
