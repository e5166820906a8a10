#include "transfer/quiet_link.h"

#include "base/conversion.h"

namespace telvar::transfer {

bool waitForQuietLink(const session::Session& session) {
    const auto quiet = [&] { return !base::isTrue(session.store()->get(model::StoreMember::CommsBusy)); };
    // What is pending runs before each look that counts: a program that ends leaves its quit message behind other ones.
    while (session.desktop().doEvents()) {
        if (quiet()) {
            return true;
        }
        if (!session.desktop().pumpUntil(quiet)) {
            return false;
        }
    }
    return false;
}

void announce(const session::Session& session, std::int16_t task) {
    const auto store = session.store();
    store->put(model::StoreMember::CommsTask, task);
    session.throwIfClosed();
    store->put(model::StoreMember::ProgressCount, std::int16_t{0});
}

}  // namespace telvar::transfer
