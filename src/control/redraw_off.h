// Keeps a grid from drawing while it is filled, and switches drawing on again however the filling ends.
#pragma once

#include "ui/grid.h"
#include "ui/trapped.h"

namespace telvar::control {

class RedrawOff {
public:
    explicit RedrawOff(ui::Grid& grid) : grid_(grid) { grid_.setRedraw(false); }
    RedrawOff(const RedrawOff&) = delete;
    RedrawOff& operator=(const RedrawOff&) = delete;
    RedrawOff(RedrawOff&&) = delete;
    RedrawOff& operator=(RedrawOff&&) = delete;
    ~RedrawOff() {
        ui::resumed([this] { grid_.setRedraw(true); });
    }

private:
    ui::Grid& grid_;
};

}  // namespace telvar::control
