#include "editing/undo.h"

#include "editing/table_copy.h"
#include "ui/trapped.h"

namespace telvar::editing {

bool UndoHistory::UpdateBackUpFrequencyMemory() {
    return ui::trapped(surroundings_.desktop, "UpdateBackUpFrequencyMemory", [&] {
        undo_.setEnabled(true);
        copyTable(*surroundings_.store(), *backupTable_);
    });
}

bool UndoHistory::UndoChanges() {
    return ui::trapped(surroundings_.desktop, "UndoChanges", [&] {
        undo_.setEnabled(false);
        redo_.setEnabled(true);
        const auto live = surroundings_.store();
        copyTable(*live, *redoTable_);
        copyTable(*backupTable_, *live);
        UpdateAllRowData();
    });
}

// The backup is not refreshed: a further undo goes back to before the last edit, not to before the redo.
bool UndoHistory::RedoChanges() {
    return ui::trapped(surroundings_.desktop, "RedoChanges", [&] {
        redo_.setEnabled(false);
        undo_.setEnabled(true);
        copyTable(*redoTable_, *surroundings_.store());
        UpdateAllRowData();
    });
}

bool UndoHistory::UpdateAllRowData() {
    auto& grid = surroundings_.grid;
    const bool redraw = grid.redraw();
    grid.setRedraw(false);
    bool failed = false;
    try {
        for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
            surroundings_.renderRow(channel);
        }
    } catch (const std::exception&) {
        failed = true;
    }
    // Before the box: what the user sees behind it is the table as far as it was rendered.
    grid.setRedraw(redraw);
    if (failed) {
        ui::tellFailureOf(surroundings_.desktop, "UpdateAllRowData");
    }
    return !failed;
}

void UndoHistory::forget() noexcept {
    undo_.setEnabled(false);
    redo_.setEnabled(false);
}

}  // namespace telvar::editing
