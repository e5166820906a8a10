// The grid's editing commands as the user and the host start them: by key, by pop-up menu, by the host's command
// target. What each does to the table is the business of editing; here is what all of them share: who may start one,
// the locked table, where the user stands afterwards, and the flags of a changed table.
#include <array>
#include <cstddef>

#include "base/conversion.h"
#include "base/skip.h"
#include "control/channel_information.h"

namespace telvar::control {

using model::StoreMember;
using session::Activity;
using session::Refusal;

namespace {

// By GridCommand; as failures name them.
constexpr std::array<std::string_view, 5> commandRoutines{"CopySelection", "PasteToCells", "DeleteSelectedCells",
                                                          "UndoChanges", "RedoChanges"};

// Keys that only accompany others or move the current cell.
[[nodiscard]] constexpr bool keepsSelectionExtent(int code) noexcept {
    switch (code) {
    case ui::key::tab:
    case ui::key::shift:
    case ui::key::control:
    case ui::key::alt:
    case ui::key::capsLock:
        return true;
    default:
        return code >= ui::key::pageUp && code <= ui::key::down;
    }
}

}  // namespace

bool ChannelInformation::commandEnabled(GridCommand command) const noexcept {
    if (session_.closed()) {
        return false;
    }
    const bool changes = session_.activities().refusalOf(Activity::Editing) != Refusal::Ignored;
    switch (command) {
    case GridCommand::Copy:
        return true;
    case GridCommand::Paste:
    case GridCommand::Delete:
        return changes;
    case GridCommand::Undo:
        return changes && frmCE.mnuPopUpMenuUndo.enabled();
    case GridCommand::Redo:
        return changes && frmCE.mnuPopUpMenuRedo.enabled();
    }
    return false;
}

void ChannelInformation::run(GridCommand command) {
    if (!commandEnabled(command)) {
        return;
    }
    session_.trap(commandRoutines[static_cast<std::size_t>(command)], [&] {
        if (command == GridCommand::Copy) {
            clipboardEditing_.CopySelection();
        } else if (!refused(Activity::Editing)) {
            changeTable([&] { return editTable(command); }, [this] { markChanged(session_.store()); });
        }
    });
}

bool ChannelInformation::refused(Activity wanted) {
    auto refusal = session_.activities().refusalOf(wanted);
    if (refusal == Refusal::Ignored) {
        return true;
    }
    if (ckLockData.value() != 0) {
        session_.refuse("Data is locked. Clear 'Lock Data' to make changes.");
        return true;
    }
    // A load's own sequence is known as long as it stands below this call; the exchange itself, whoever began it, is
    // the store's to tell.
    if (refusal == Refusal::None && wanted != Activity::Loading) {
        const auto table = session_.presentStore();
        refusal = table && transfer::loadRuns(*table) ? Refusal::TableIsReplaced : Refusal::None;
        session_.throwIfClosed();
    }
    // Of another transfer the one that is refused tells itself.
    if (refusal == Refusal::None || refusal == Refusal::TransferWaits) {
        return false;
    }
    session_.refuse(session::sentenceOf(refusal));
    return true;
}

void ChannelInformation::changeTable(const std::function<bool()>& edit, const std::function<void()>& mark) {
    const auto before = valuesInEditForm();
    bool changed = false;
    {
        const session::UnderWay editing(session_.activities(), Activity::Editing);
        // Rendering a row makes it current; the next command has to land where the user was.
        const ui::Cell current{fgdDatabase.row(), fgdDatabase.column()};
        const ui::Cell end{fgdDatabase.rowSel(), fgdDatabase.columnSel()};
        changed = edit();
        session_.throwIfClosed();
        base::skip([&] { fgdDatabase.select(current, end); });
        if (changed) {
            mark();
        }
    }
    // The form asks about its edits, which may be applied now that the command has ended.
    if (changed && before != valuesInEditForm()) {
        showRowInEditForm();
    }
}

// Answers whether anything of the table was written.
bool ChannelInformation::editTable(GridCommand command) {
    switch (command) {
    case GridCommand::Paste:
        return clipboardEditing_.PasteToCells();
    case GridCommand::Delete:
        return clipboardEditing_.DeleteSelectedCells();
    case GridCommand::Undo:
        return history_.UndoChanges();
    case GridCommand::Redo:
        return history_.RedoChanges();
    case GridCommand::Copy:
        break;
    }
    return false;
}

void ChannelInformation::markChanged(const model::DataStorePointer& table) const {
    table->put(StoreMember::DataModified, true);
    session_.throwIfClosed();
    table->put(StoreMember::ChannelDataModified, true);
}

void ChannelInformation::selectAll() {
    session_.trap("selectAll",
                  [&] { fgdDatabase.select({1, 1}, {fgdDatabase.rows() - 1, fgdDatabase.columns() - 1}); });
    followRowSoon();
}

void ChannelInformation::fgdDatabase_KeyDown(ui::KeyEvent& event) {
    followRowSoon();
    const bool control = (event.shift & ui::shift::control) != 0;
    if (control && event.code == ui::key::c) {
        run(GridCommand::Copy);
    } else if (control && event.code == ui::key::v) {
        run(GridCommand::Paste);
    } else if (!keepsSelectionExtent(event.code)) {
        session_.trap("ClearSelection", [&] { clipboardEditing_.ClearSelection(); });
    }
}

// The Delete key arrives here as 46, which is the full stop as well: both ask.
void ChannelInformation::fgdDatabase_KeyPress(ui::KeyPressEvent& event) {
    if (event.code == ui::key::backspace || event.code == ui::key::deleteKey) {
        run(GridCommand::Delete);
    }
}

void ChannelInformation::fgdDatabase_MouseDown(const ui::MouseEvent& event) {
    session_.trap("fgdDatabase_MouseDown", [&] {
        if (event.button == ui::MouseButton::Right) {
            session_.desktop().popUp(frmCE.mnuPopUpMenu, fgdDatabase, event.at);
        }
    });
    // Not while the menu is open: its command is meant for the row that was clicked.
    followRowSoon();
}

}  // namespace telvar::control
