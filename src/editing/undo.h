// One level of undo and one of redo for edits that touch many cells: a backup taken before the edit, and the table as
// it stood when it was undone. The two menu items show what is available; the operations themselves do not look at
// them.
#pragma once

#include <utility>

#include "editing/grid_surroundings.h"
#include "ui/menu.h"

namespace telvar::editing {

class UndoHistory {
public:
    UndoHistory(const GridSurroundings& surroundings, ui::MenuItem& undo, ui::MenuItem& redo) noexcept
        : surroundings_(surroundings), undo_(undo), redo_(redo) {}

    // Private tables of the control, kept apart from the central one; null where there is none any more.
    void setTables(model::DataStorePointer backup, model::DataStorePointer redo) noexcept {
        // Let go when nothing points to them any more: what a table does in its end may come back here.
        const auto formerBackup = std::exchange(backupTable_, std::move(backup));
        const auto formerRedo = std::exchange(redoTable_, std::move(redo));
    }
    [[nodiscard]] const model::DataStorePointer& backupTable() const noexcept { return backupTable_; }
    [[nodiscard]] const model::DataStorePointer& redoTable() const noexcept { return redoTable_; }

    // Each traps its failures and tells them under its name.
    // Answers whether it ran to its end.
    bool UpdateBackUpFrequencyMemory();
    bool UpdateAllRowData();
    // Answer whether the central table was written to, even if only in part.
    bool UndoChanges();
    bool RedoChanges();

    // Whether a backup was taken since the table was last replaced or an undo used it.
    [[nodiscard]] bool undoAvailable() const noexcept { return undo_.enabled(); }

    // Nothing to undo or redo any more: the table was replaced.
    void forget() noexcept;

private:
    const GridSurroundings& surroundings_;
    ui::MenuItem& undo_;
    ui::MenuItem& redo_;
    model::DataStorePointer backupTable_;
    model::DataStorePointer redoTable_;
};

}  // namespace telvar::editing
