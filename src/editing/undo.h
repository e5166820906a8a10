// One level of undo and one of redo for edits that touch many cells: a backup taken before the edit, and the table as
// it stood when it was undone. The two menu items show what is available; the operations themselves do not look at
// them.
#pragma once

#include <memory>

#include "editing/backup_table.h"
#include "editing/grid_rows.h"
#include "ui/menu.h"

namespace telvar::editing {

class UndoHistory {
public:
    UndoHistory(GridRows& rows, ui::MenuItem& undo, ui::MenuItem& redo) noexcept
        : rows_(rows), session_(rows.session()), undo_(undo), redo_(redo) {}

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
    using BackupTablePointer = std::shared_ptr<BackupTable>;
    [[nodiscard]] static model::DataStorePointer tableOf(const BackupTablePointer& copy) noexcept {
        return copy ? copy->table() : nullptr;
    }

    GridRows& rows_;
    session::Session& session_;
    ui::MenuItem& undo_;
    ui::MenuItem& redo_;
    BackupTablePointer backup_;
    BackupTablePointer redone_;
};

}  // namespace telvar::editing
