// Selecting everything works; the refresh of the edit form is not built and does nothing.
#include "control/channel_information.h"

namespace telvar::control {

void ChannelInformation::selectAll() {
    routine("selectAll", [&] { fgdDatabase.select({1, 1}, {fgdDatabase.rows() - 1, fgdDatabase.columns() - 1}); });
}

void ChannelInformation::RefreshEditForm() {}

}  // namespace telvar::control
