// Keeps a grid from drawing while it is filled, and lets it draw again as before however the filling ends.
#pragma once

#include "base/pinned.h"
#include "base/skip.h"
#include "ui/grid.h"

namespace telvar::ui {

class RedrawOff : base::Pinned {
public:
    explicit RedrawOff(Grid& grid) : grid_(grid), before_(grid.redraw()) { grid_.setRedraw(false); }
    ~RedrawOff() {
        base::skip([this] { grid_.setRedraw(before_); });
    }

private:
    Grid& grid_;
    bool before_;
};

}  // namespace telvar::ui
