// Keeps a grid from drawing while it is filled, and lets it draw again as before however the filling ends.
#pragma once

#include "ui/grid.h"
#include "ui/trapped.h"

namespace telvar::ui {

class RedrawOff {
public:
    explicit RedrawOff(Grid& grid) : grid_(grid), before_(grid.redraw()) { grid_.setRedraw(false); }
    RedrawOff(const RedrawOff&) = delete;
    RedrawOff& operator=(const RedrawOff&) = delete;
    RedrawOff(RedrawOff&&) = delete;
    RedrawOff& operator=(RedrawOff&&) = delete;
    ~RedrawOff() {
        resumed([this] { grid_.setRedraw(before_); });
    }

private:
    Grid& grid_;
    bool before_;
};

}  // namespace telvar::ui
