#include "editing/undo.h"

#include "base/failure.h"
#include "editing/table_copy.h"
#include "ui/redraw_off.h"

namespace telvar::editing {

namespace {

// Shared for as long as it is copied: a foreign store may end the control inside any call.
[[nodiscard]] model::DataStorePointer present(const model::DataStorePointer& table) {
    if (!table) {
        throw base::Failure("There is no table to go back to");
    }
    return table;
}

}  // namespace

bool UndoHistory::UpdateBackUpFrequencyMemory() {
    return trapped(surroundings_, "UpdateBackUpFrequencyMemory", [&] {
        undo_.setEnabled(true);
        const auto backup = present(backupTable_);
        copyTable(*surroundings_.store(), *backup);
    });
}

bool UndoHistory::UndoChanges() {
    bool wrote = false;
    trapped(surroundings_, "UndoChanges", [&] {
        undo_.setEnabled(false);
        redo_.setEnabled(true);
        const auto live = surroundings_.store();
        const auto backup = present(backupTable_);
        const auto redo = present(redoTable_);
        copyTable(*live, *redo);
        wrote = true;
        copyTable(*backup, *live);
        UpdateAllRowData();
    });
    return wrote;
}

// The backup is not refreshed: a further undo goes back to before the last edit, not to before the redo.
bool UndoHistory::RedoChanges() {
    bool wrote = false;
    trapped(surroundings_, "RedoChanges", [&] {
        redo_.setEnabled(false);
        undo_.setEnabled(true);
        const auto live = surroundings_.store();
        const auto redo = present(redoTable_);
        wrote = true;
        copyTable(*redo, *live);
        UpdateAllRowData();
    });
    return wrote;
}

bool UndoHistory::UpdateAllRowData() {
    return trapped(surroundings_, "UpdateAllRowData", [&] {
        // Ends before the box: what the user sees behind it is the table as far as it was rendered.
        const ui::RedrawOff off(surroundings_.grid);
        for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
            surroundings_.renderRow(channel);
        }
    });
}

void UndoHistory::forget() noexcept {
    undo_.setEnabled(false);
    redo_.setEnabled(false);
}

}  // namespace telvar::editing
