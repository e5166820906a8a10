// The life of the open table: new, open, save, and what becomes of unsaved changes. Everything is asked of the store
// each time, so that nothing is missed that somebody else did.
#pragma once

#include <string>

#include "base/pinned.h"
#include "desk/bench.h"
#include "desk/recent_files.h"

namespace telvar::desk {

// Shows another table in the window.
class TableView : private base::Pinned {
public:
    virtual void showOther() = 0;
    virtual void showName() = 0;

protected:
    ~TableView() = default;
};

class Document {
public:
    // All outlive this.
    Document(Bench& bench, RecentFiles& recent, TableView& view) noexcept
        : bench_(bench), recent_(recent), view_(view) {}

    // Each asks about unsaved changes first; does nothing when the user stays with the present table.
    void create();
    void open();
    void openRecent(std::size_t index);
    void openDropped(const std::string& path);
    // Without that question. What cannot be opened leaves the present table, and the list of recent files if it is
    // gone.
    void openPath(const std::string& path);

    // Edits in the edit form are part of what is saved. Each answers whether the table is saved.
    bool save();
    bool saveAs();

    // Whether the open table may go: nothing to save, saved now, or not wanted.
    [[nodiscard]] bool mayGo();
    // As the line at the window's foot names it.
    [[nodiscard]] std::string shownName() const;

private:
    [[nodiscard]] bool leaveEdits();
    [[nodiscard]] bool write();
    [[nodiscard]] bool writeAs();

    Bench& bench_;
    RecentFiles& recent_;
    TableView& view_;
};

}  // namespace telvar::desk
