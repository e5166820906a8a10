// One level of undo and one of redo for edits that touch many cells: a backup taken before the edit, and the table as
// it stood when it was undone. The two menu items show what is available; the operations themselves do not look at
// them.
#pragma once

#include <memory>

#include "editing/grid_surroundings.h"
#include "editing/table_copy.h"
#include "ui/menu.h"

namespace telvar::editing {

class UndoHistory {
public:
    UndoHistory(const GridSurroundings& surroundings, ui::MenuItem& undo, ui::MenuItem& redo) noexcept
        : surroundings_(surroundings), undo_(undo), redo_(redo) {}

    // Private tables of the control, kept apart from the central one; null where there is none any more.
    void setTables(model::DataStorePointer backup, model::DataStorePointer redo);
    [[nodiscard]] model::DataStorePointer backupTable() const noexcept { return tableOf(backup_); }
    [[nodiscard]] model::DataStorePointer redoTable() const noexcept { return tableOf(redone_); }

    // Each traps its failures and tells them under its name.
    // Half a backup is none: after a failure neither undo nor redo is available.
    void UpdateBackUpFrequencyMemory();
    // Answers whether it ran to its end.
    bool UpdateAllRowData();
    // Answer whether the central table was written to, even if only in part.
    bool UndoChanges();
    bool RedoChanges();

    // Whether a whole backup was taken since the table was last replaced or an undo used it.
    [[nodiscard]] bool undoAvailable() const noexcept { return undo_.enabled(); }

    // Nothing to undo or redo any more: the table was replaced.
    void forget() noexcept;

private:
    // Shared for as long as it is copied: a foreign store may end the control inside any call.
    using TableCopyPointer = std::shared_ptr<TableCopy>;
    [[nodiscard]] static model::DataStorePointer tableOf(const TableCopyPointer& copy) noexcept {
        return copy ? copy->table() : nullptr;
    }

    const GridSurroundings& surroundings_;
    ui::MenuItem& undo_;
    ui::MenuItem& redo_;
    TableCopyPointer backup_;
    TableCopyPointer redone_;
};

}  // namespace telvar::editing
