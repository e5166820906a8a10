// What the grid's editing commands work on, as the control hands it to them.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <string_view>

#include "base/number_text.h"
#include "model/data_store.h"
#include "ui/desktop.h"
#include "ui/grid.h"
#include "ui/trapped.h"

namespace telvar::editing {

struct GridSurroundings {
    ui::Grid& grid;
    ui::Desktop& desktop;
    base::NumberFormat format;
    // The central data store; fails where there is none.
    std::function<model::DataStorePointer()> store;
    // UpdateRowData: re-renders one row and tells its own failure.
    std::function<void(std::int16_t)> updateRow;
    // Re-renders one row and lets the failure through.
    std::function<void(std::int16_t)> renderRow;
    // Ends the command, by an exception of the control's own, when the control was closed meanwhile.
    std::function<void()> stayOpen;
};

// Trap and tell, but nothing is told any more once the control was closed: a foreign store may end it inside a call
// that fails. Answers whether the body ran to its end.
template <class Body>
bool trapped(const GridSurroundings& surroundings, std::string_view routine, Body&& body) {
    try {
        body();
        return true;
    } catch (const std::exception&) {
        surroundings.stayOpen();
        ui::tellFailureOf(surroundings.desktop, routine);
        return false;
    }
}

}  // namespace telvar::editing
