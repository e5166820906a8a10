// The control's grid with its editing, for commands: one table, a selection, undo and redo, and no window.
#pragma once

#include <memory>
#include <string>

#include "cli/console_desktop.h"
#include "cli/json.h"
#include "cli/table_edit.h"
#include "editing/grid_rows.h"
#include "editing/undo.h"
#include "store/reference_data_store.h"

namespace telvar::cli {

class WindowlessGrid {
public:
    // `file` as ConsoleDesktop has it.
    WindowlessGrid(const Console& console, const std::string& file, const store::TableContents& contents);

    // What editing works with; they live as long as this does.
    [[nodiscard]] ui::Grid& grid() noexcept { return grid_; }
    [[nodiscard]] ConsoleDesktop& desktop() noexcept { return desktop_; }
    [[nodiscard]] editing::GridRows& rows() noexcept { return rows_; }
    [[nodiscard]] editing::UndoHistory& history() noexcept { return history_; }
    [[nodiscard]] model::DataStorePointer store() const noexcept { return store_; }

    // The table as it was edited; title and unknown members as they were given.
    [[nodiscard]] store::TableContents contents() { return store_->snapshot(); }

private:
    ConsoleDesktop desktop_;
    std::shared_ptr<store::ReferenceDataStore> store_ = std::make_shared<store::ReferenceDataStore>();
    ui::Grid grid_;
    ui::MenuItem undo_{"mnuPopUpMenuUndo", "Undo"};
    ui::MenuItem redo_{"mnuPopUpMenuRedo", "Redo"};
    session::Session session_;
    editing::GridRows rows_;
    editing::UndoHistory history_;
};

// The end of a command that edits by the grid: keeps the edit where no message was shown, and answers what came of it.
// `also` are further members of the JSON result.
[[nodiscard]] Outcome keepEdit(const Console& console, const std::string& file, TableEdit& edit, WindowlessGrid& grid,
                               const Json& also = {});

}  // namespace telvar::cli
