// The radio link behind its published operations. It has no transport, so that no radio is ever connected and no
// exchange ever runs; it says so instead of pretending.
#pragma once

#include <cstdint>
#include <string>

#include "base/event.h"
#include "model/radio_link.h"

namespace telvar::radio {

class RadioLinkCore : public model::RadioLink {
public:
    [[nodiscard]] bool connected() const noexcept { return false; }
    // Between the start of an exchange and its ExchangeEnded.
    [[nodiscard]] bool exchangeRunning() const noexcept { return false; }

    // Each needs the radio and is a base::Failure without one; texts and flag stay as they were passed.
    void SendChannelTable() override;
    void LoadChannelTable(std::string& text, bool& flag) override;
    void SendPotValues(std::string& text) override;
    void SelectChannel(std::string& channel) override;

    // Reports the end once also when nothing is running, so that a host re-enables its commands after a refused send.
    void AbortTransfer() override;

    // The task's code (0 where none was running), whether all of it went through, and one sentence for the user,
    // empty where there is nothing to tell.
    base::Event<std::int16_t, bool, const std::string&> ExchangeEnded;
};

}  // namespace telvar::radio
