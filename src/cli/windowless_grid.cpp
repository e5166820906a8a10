#include "cli/windowless_grid.h"

#include "editing/columns.h"
#include "store/json_text.h"
#include "ui/trapped.h"

namespace telvar::cli {

WindowlessGrid::WindowlessGrid(const Console& console, const std::string& file, const store::TableContents& contents)
    : desktop_(console, file),
      grid_("fgdDatabase", model::channelCount + 1, static_cast<int>(editing::columnCount)),
      surroundings_{
          .grid = grid_,
          .desktop = desktop_,
          .format = console.format,
          .store = [this] { return store(); },
          .updateRow = [this](std::int16_t row) { ui::trapped(desktop_, "UpdateRowData", [&] { renderRow(row); }); },
          .renderRow = [this](std::int16_t row) { renderRow(row); },
          .stayOpen = [] {}},
      history_(surroundings_, undo_, redo_) {
    store_->restore(contents);
    history_.setTables(std::make_shared<model::MemoryDataStore>(), std::make_shared<model::MemoryDataStore>());
    history_.forget();
}

// Makes the row current, as the control does.
void WindowlessGrid::renderRow(std::int16_t row) {
    grid_.setRow(row);
    editing::renderRow({.store = *store_, .channel = row, .format = surroundings_.format},
                       [&](std::int16_t column, const std::string& text) { grid_.setText(row, column, text); });
}

Outcome keepEdit(const Console& console, const std::string& file, TableEdit& edit, WindowlessGrid& grid,
                 const Json& also) {
    const bool wentThrough = grid.desktop().messages().empty();
    bool changed = false;
    if (wentThrough) {
        edit.contents = grid.contents();
        const auto done = edit.finish(console);
        if (!done) {
            return console.refuse(done.error());
        }
        changed = *done;
    }
    if (console.json) {
        console.out << Json()
                           .add("file", file)
                           .add("changed", changed)
                           .add(also)
                           .add("messages", grid.desktop().messagesAsJson())
                           .line();
    }
    return wentThrough ? Outcome::Fine : Outcome::Findings;
}

}  // namespace telvar::cli
