#include "radio/radio_link_core.h"

#include "base/failure.h"

namespace telvar::radio {

namespace {

constexpr std::int16_t noTask = 0;

[[noreturn]] void failNotConnected() { throw base::Failure("The radio is not connected"); }

}  // namespace

void RadioLinkCore::SendChannelTable() { failNotConnected(); }

void RadioLinkCore::LoadChannelTable(std::string& /*text*/, bool& /*flag*/) { failNotConnected(); }

void RadioLinkCore::SendPotValues(std::string& /*text*/) { failNotConnected(); }

void RadioLinkCore::SelectChannel(std::string& /*channel*/) { failNotConnected(); }

void RadioLinkCore::AbortTransfer() { ExchangeEnded(noTask, false, std::string()); }

}  // namespace telvar::radio
