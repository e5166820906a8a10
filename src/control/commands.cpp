// The commands that check and transfer the table. Selecting everything works; the others are not built and do
// nothing.
#include "control/channel_information.h"

namespace telvar::control {

void ChannelInformation::selectAll() {
    routine("selectAll", [&] { fgdDatabase.select({1, 1}, {fgdDatabase.rows() - 1, fgdDatabase.columns() - 1}); });
}

bool ChannelInformation::check_Frequencies() { return false; }
std::string ChannelInformation::CheckTotalNoOfChannelScan() { return {}; }
void ChannelInformation::LoadFromTelvar() {}
void ChannelInformation::SendToTelvar() {}
void ChannelInformation::LoadChannelInfoFromTelvar() {}
void ChannelInformation::SendChannelInfoToTelvar() {}
void ChannelInformation::RefreshEditForm() {}

}  // namespace telvar::control
