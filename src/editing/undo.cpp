#include "editing/undo.h"

#include <exception>
#include <utility>

#include "base/failure.h"
#include "ui/redraw_off.h"

namespace telvar::editing {

namespace {

using BackupTablePointer = std::shared_ptr<BackupTable>;

[[nodiscard]] BackupTablePointer copyIn(model::DataStorePointer table) {
    return table ? std::make_shared<BackupTable>(std::move(table)) : nullptr;
}

[[nodiscard]] BackupTablePointer present(const BackupTablePointer& copy) {
    if (!copy) {
        throw base::Failure("There is no table to go back to");
    }
    return copy;
}

}  // namespace

// The former ones are let go when nothing points to them any more: what a table does in its end may come back here.
void UndoHistory::setTables(model::DataStorePointer backup, model::DataStorePointer redo) {
    const auto formerBackup = std::exchange(backup_, copyIn(std::move(backup)));
    const auto formerRedone = std::exchange(redone_, copyIn(std::move(redo)));
}

void UndoHistory::UpdateBackUpFrequencyMemory() {
    session_.trap("UpdateBackUpFrequencyMemory", [&] {
        undo_.setEnabled(true);
        try {
            const auto backup = present(backup_);
            backup->takeFrom(*session_.store());
        } catch (const std::exception&) {
            // Going back would mix two states of the table, and redo would put one back that is older than this edit.
            forget();
            throw;
        }
    });
}

bool UndoHistory::UndoChanges() {
    bool wrote = false;
    session_.trap("UndoChanges", [&] {
        undo_.setEnabled(false);
        redo_.setEnabled(true);
        const auto live = session_.store();
        const auto backup = present(backup_);
        const auto redone = present(redone_);
        redone->takeFrom(*live);
        wrote = true;
        backup->giveTo(*live);
        UpdateAllRowData();
    });
    return wrote;
}

// The backup is not refreshed: a further undo goes back to before the last edit, not to before the redo.
bool UndoHistory::RedoChanges() {
    bool wrote = false;
    session_.trap("RedoChanges", [&] {
        redo_.setEnabled(false);
        undo_.setEnabled(true);
        const auto live = session_.store();
        const auto redone = present(redone_);
        wrote = true;
        redone->giveTo(*live);
        UpdateAllRowData();
    });
    return wrote;
}

bool UndoHistory::UpdateAllRowData() {
    return session_.trap("UpdateAllRowData", [&] {
        // Ends before the box: what the user sees behind it is the table as far as it was rendered.
        const ui::RedrawOff off(rows_.grid());
        for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
            rows_.render(channel);
        }
    });
}

void UndoHistory::forget() noexcept {
    undo_.setEnabled(false);
    redo_.setEnabled(false);
}

}  // namespace telvar::editing
