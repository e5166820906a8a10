#include "transfer/quiet_link.h"

#include "base/conversion.h"

namespace telvar::transfer {

bool waitForQuietLink(ui::Desktop& desktop, const std::function<model::DataStorePointer()>& store) {
    desktop.doEvents();
    return desktop.pumpUntil([&] { return !base::isTrue(store()->get(model::StoreMember::CommsBusy)); });
}

}  // namespace telvar::transfer
