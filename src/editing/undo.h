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

    // Private tables of the control, kept apart from the central one.
    void setTables(model::DataStorePointer backup, model::DataStorePointer redo) noexcept {
        backupTable_ = std::move(backup);
        redoTable_ = std::move(redo);
    }

    // Each traps its failures, tells them under its name and answers whether it ran to its end.
    bool UpdateBackUpFrequencyMemory();
    bool UndoChanges();
    bool RedoChanges();
    bool UpdateAllRowData();

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
