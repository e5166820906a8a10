#include "transfer/quiet_link.h"

#include "base/conversion.h"

namespace telvar::transfer {

bool waitForQuietLink(ui::Desktop& desktop, const std::function<model::DataStorePointer()>& store) {
    const auto quiet = [&] { return !base::isTrue(store()->get(model::StoreMember::CommsBusy)); };
    // What is pending runs before each look that counts: a program that ends leaves its quit message behind other ones.
    while (desktop.doEvents()) {
        if (quiet()) {
            return true;
        }
        if (!desktop.pumpUntil(quiet)) {
            return false;
        }
    }
    return false;
}

}  // namespace telvar::transfer
