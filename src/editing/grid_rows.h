// The grid's rows as the editing commands and the control re-render them from the store of the moment.
#pragma once

#include <cstdint>

#include "base/failure.h"
#include "base/pinned.h"
#include "editing/columns.h"
#include "session/session.h"
#include "ui/grid.h"

namespace telvar::editing {

class GridRows : base::Pinned {
public:
    // Both must outlive it.
    GridRows(session::Session& session, ui::Grid& grid) noexcept : session_(session), grid_(grid) {}
    virtual ~GridRows() = default;

    [[nodiscard]] session::Session& session() const noexcept { return session_; }
    [[nodiscard]] ui::Grid& grid() const noexcept { return grid_; }

    // Makes the channel's row current, which collapses the selection, and renders it. Fails as the store fails; the
    // cells before the failure are written. A number outside 1 to 255 changes nothing.
    virtual void render(std::int16_t channel) {
        if (!model::isChannel(channel)) {
            throw base::SubscriptFailure();
        }
        grid_.setRow(channel);
        const auto store = session_.store();
        renderRow({.store = *store, .channel = channel, .format = session_.format()},
                  [&](std::int16_t column, const std::string& text) { grid_.setText(channel, column, text); });
    }
    // The same, telling its own failure.
    void UpdateRowData(std::int16_t channel) {
        session_.trap("UpdateRowData", [&] { render(channel); });
    }

private:
    session::Session& session_;
    ui::Grid& grid_;
};

}  // namespace telvar::editing
