#include "cli/windowless_grid.h"

#include "editing/columns.h"
#include "store/json_text.h"

namespace telvar::cli {

WindowlessGrid::WindowlessGrid(const Console& console, const std::string& file, const store::TableContents& contents)
    : desktop_(console, file),
      grid_("fgdDatabase", model::channelCount + 1, static_cast<int>(editing::columnCount)),
      session_(desktop_, console.format),
      rows_(session_, grid_),
      history_(rows_, undo_, redo_) {
    session_.setStore(store_);
    store_->restore(contents);
    history_.setTables(std::make_shared<model::MemoryDataStore>(), std::make_shared<model::MemoryDataStore>());
    history_.forget();
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
