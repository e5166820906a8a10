// The channel that the form shows, with everything that loading and storing need to reach it.
#pragma once

#include <cstdint>

#include "base/failure.h"
#include "base/number_text.h"
#include "model/data_store.h"
#include "session/session.h"
#include "ui/grid.h"

namespace telvar::editform {

struct EditedChannel {
    std::int16_t number = 1;  // 1 to 255
    model::DataStorePointer store;
    ui::Grid* grid = nullptr;
    base::NumberFormat format{};
    bool gridShowsStore = true;  // else its cells are those of another table, or of the channel as it was

    // Both fail where there is none.
    [[nodiscard]] model::DataStore& dataStore() const {
        if (!store) {
            throw base::Failure("There is no data store");
        }
        return *store;
    }
    [[nodiscard]] ui::Grid& cells() const {
        if (grid == nullptr) {
            throw base::Failure("There is no grid");
        }
        return *grid;
    }
    [[nodiscard]] model::ChannelRecord record() const { return dataStore().channel(number); }
};

// Whether it is still the one that is edited.
using ChannelTicket = session::Ticket<model::DataStorePointer, std::int16_t>;

}  // namespace telvar::editform
