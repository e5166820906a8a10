// The grid's editing commands as the user and the host start them: by key, by pop-up menu, by the host's command
// target. What each does to the table is the business of editing; here is what all of them share: who may start one,
// the locked table, where the user stands afterwards, and the flags of a changed table.
#include <array>
#include <cstddef>

#include "base/conversion.h"
#include "control/channel_information.h"
#include "control/raised.h"

namespace telvar::control {

using model::StoreMember;

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

editing::GridSurroundings ChannelInformation::gridSurroundings() {
    return {.grid = fgdDatabase,
            .desktop = desktop_,
            .format = numberFormat_,
            .store = [this] { return store(); },
            .updateRow = [this](std::int16_t row) { UpdateRowData(row); },
            .renderRow = [this](std::int16_t row) { renderChannel(row); },
            .stayOpen = [this] { endIfClosed(); }};
}

bool ChannelInformation::commandEnabled(GridCommand command) const noexcept {
    if (closed_) {
        return false;
    }
    switch (command) {
    case GridCommand::Copy:
        return true;
    case GridCommand::Paste:
    case GridCommand::Delete:
        return !editing_;
    case GridCommand::Undo:
        return !editing_ && frmCE.mnuPopUpMenuUndo.enabled();
    case GridCommand::Redo:
        return !editing_ && frmCE.mnuPopUpMenuRedo.enabled();
    }
    return false;
}

void ChannelInformation::run(GridCommand command) {
    if (!commandEnabled(command)) {
        return;
    }
    routine(commandRoutines[static_cast<std::size_t>(command)], [&] {
        if (command == GridCommand::Copy) {
            clipboardEditing_.CopySelection();
        } else if (!changesRefused()) {
            changeTable([&] { return editTable(command); }, [this] { markChanged(store()); });
        }
    });
}

bool ChannelInformation::dataLocked() {
    const bool locked = ckLockData.value() != 0;
    if (locked) {
        show({.text = "Data is locked. Clear 'Lock Data' to make changes.",
              .title = messageTitle(),
              .icon = ui::Icon::Exclamation});
    }
    return locked;
}

bool ChannelInformation::changesRefused() {
    if (dataLocked()) {
        return true;
    }
    // What is changed from the beginning of a load on would be overwritten unseen. Its sequence is known as long as it
    // stands below this call; the exchange itself, whoever began it, is the store's to tell.
    const auto table = pCentralDataStore_;
    const bool loading = tableTransfer_.loading() || (table && transfer::loadRuns(*table));
    endIfClosed();
    if (loading) {
        show({.text = "The channel table is being loaded from the radio. Please wait until it has ended.",
              .title = messageTitle(),
              .icon = ui::Icon::Exclamation});
    }
    return loading;
}

void ChannelInformation::changeTable(const std::function<bool()>& edit, const std::function<void()>& mark) {
    const auto before = valuesInEditForm();
    bool changed = false;
    {
        const Raised editing(editing_);
        // Rendering a row makes it current; the next command has to land where the user was.
        const ui::Cell current{fgdDatabase.row(), fgdDatabase.column()};
        const ui::Cell end{fgdDatabase.rowSel(), fgdDatabase.columnSel()};
        changed = edit();
        endIfClosed();
        ui::resumed([&] { fgdDatabase.select(current, end); });
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
    endIfClosed();
    table->put(StoreMember::ChannelDataModified, true);
}

void ChannelInformation::selectAll() {
    routine("selectAll", [&] { fgdDatabase.select({1, 1}, {fgdDatabase.rows() - 1, fgdDatabase.columns() - 1}); });
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
        routine("ClearSelection", [&] { clipboardEditing_.ClearSelection(); });
    }
}

// The Delete key arrives here as 46, which is the full stop as well: both ask.
void ChannelInformation::fgdDatabase_KeyPress(ui::KeyPressEvent& event) {
    if (event.code == ui::key::backspace || event.code == ui::key::deleteKey) {
        run(GridCommand::Delete);
    }
}

void ChannelInformation::fgdDatabase_MouseDown(const ui::MouseEvent& event) {
    routine("fgdDatabase_MouseDown", [&] {
        if (event.button == ui::MouseButton::Right) {
            desktop_.popUp(frmCE.mnuPopUpMenu, fgdDatabase, event.at);
        }
    });
    // Not while the menu is open: its command is meant for the row that was clicked.
    followRowSoon();
}

}  // namespace telvar::control
