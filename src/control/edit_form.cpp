// The edit form as the control opens it, keeps it in step with the grid and answers what it tells. What the form does
// with a channel is the business of editform.
#include <algorithm>

#include "base/conversion.h"
#include "base/skip.h"
#include "control/channel_information.h"
#include "control/copy_question.h"
#include "ui/beside.h"

namespace telvar::control {

using model::StoreMember;

namespace {

constexpr std::size_t potentiometersOnlyMode = 2;

[[nodiscard]] ui::Point cornerOf(const ui::Rect& window) noexcept { return {window.left, window.top}; }

}  // namespace

void ChannelInformation::wireEditForm() {
    frmCE.setGrid(&fgdDatabase);
    frmCE.setFocusAfter(&fgdDatabase);
    frmCE.setPotentiometersOnly(&optLockMode[potentiometersOnlyMode]);
    // A message box inside may end the control, and the form must not fail for it.
    frmCE.setChangesRefused([this] {
        bool stays = true;
        session_.trap("changesRefused", [&] { stays = refused(session::Activity::Storing); });
        return stays;
    });
    ui::on(frmCE.Load, this, &ChannelInformation::frmCE_Load);
    ui::on(frmCE.DataChanged, this, &ChannelInformation::frmCE_DataChanged);
    ui::on(frmCE.EditClosed, this, &ChannelInformation::frmCE_EditClosed);
    ui::on(frmCE.OpenLoginWithChannelEdit, this, &ChannelInformation::frmCE_OpenLoginWithChannelEdit);
    ui::on(frmCE.PauseDiagnosticsIfRunning, this, &ChannelInformation::frmCE_PauseDiagnosticsIfRunning);
    ui::on(frmCE.PopUpMenuClick, this, &ChannelInformation::frmCE_PopUpMenuClick);
    ui::on(frmCE.NeedToUpdateFlexGrid, this, &ChannelInformation::frmCE_NeedToUpdateFlexGrid);
}

// -- opening ---------------------------------------------------------------------------------------------------------

// The grid has made the clicked row the current one. A header is no channel.
void ChannelInformation::fgdDatabase_DblClick(const ui::DoubleClick& click) {
    session_.trap("fgdDatabase_DblClick", [&] {
        if (click.at.row >= 1) {
            openCurrentRow(click.selected);
        }
    });
}

// `selected` is what the user had selected when the opening was asked for.
void ChannelInformation::openCurrentRow(const ui::CellRange& selected) {
    const ui::Cell current{fgdDatabase.row(), fgdDatabase.column()};
    const ui::Cell end{fgdDatabase.rowSel(), fgdDatabase.columnSel()};
    if (current.row < 1) {
        return;
    }
    const bool leaves = !editFormShown() || frmCE.mayLeaveChannel();
    session_.throwIfClosed();
    if (!leaves) {
        if (editFormShown()) {
            session_.desktop().showModeless(frmCE);
            returnToEditedRow(current.column);
        }
        return;
    }
    // Applying made another row current.
    fgdDatabase.select(current, end);
    clipboardEditing_.ClearSelection();
    markSelected(current.row);
    openEditForm(static_cast<std::int16_t>(current.row), selected);
}

void ChannelInformation::editChannel() {
    session_.trap("EditChannel", [&] {
        const auto selected = fgdDatabase.selection();
        if (!editFormShown() || fgdDatabase.row() != frmCE.channel()) {
            openCurrentRow(selected);
            return;
        }
        if (selected.rowCount() > 1) {
            const session::Ticket opening(formClosing_);
            const Rows rows = rowsToCopyTo(frmCE.channel(), selected);
            if (!opening.valid()) {
                return;
            }
            copyTo(rows);
        }
        if (editFormShown()) {
            base::skip([this] { session_.desktop().showModeless(frmCE); });
        }
    });
}

void ChannelInformation::markSelected(int row) {
    session_.store()->put(StoreMember::SelectedChannel, static_cast<std::int16_t>(row));
    txtChannelSelect.setText(selectedChannelText());
}

void ChannelInformation::openEditForm(std::int16_t channel, const ui::CellRange& selection) {
    const session::Ticket opening(formClosing_);
    const Rows rows = rowsToCopyTo(channel, selection);
    if (!opening.valid()) {
        return;
    }
    const bool wasShown = editFormShown();
    placeChosen_ = placeChosen_ || (!wasShown && placeGiven_ && *placeGiven_ != cornerOf(frmCE.bounds()));
    frmCE.setChannel(channel);
    copyTo(rows);
    base::skip([this] { session_.desktop().showModeless(frmCE); });
    session_.throwIfClosed();
    frmCE.refresh();
    if (!wasShown && editFormShown()) {
        // Its size is that of this channel and level only now.
        placeEditForm();
        frmCE.firstField().setFocus();
    }
}

// The selected rows, when they are several, the channel is among them and the user agrees. No edits the one channel
// only.
ChannelInformation::Rows ChannelInformation::rowsToCopyTo(std::int16_t channel, const ui::CellRange& selection) {
    const Rows rows{static_cast<std::int16_t>(std::max(selection.firstRow, 1)),
                    static_cast<std::int16_t>(selection.lastRow)};
    if (rows.first >= rows.last || channel < rows.first || channel > rows.last) {
        return {};
    }
    const session::Ticket sameTable(frmCE.centralDataStore());
    bool agreed = false;
    base::skip([&] { agreed = confirmation.ask(copyQuestion(rows.first, rows.last, channel), session_.title()); });
    session_.throwIfClosed();
    // The answer was about that table's channels.
    return agreed && sameTable.valid() ? rows : Rows{};
}

// What the form stores goes to these rows, too, for as long as the user leaves the grid's selection as it is now.
void ChannelInformation::copyTo(Rows rows) {
    frmCE.setSelectedChannels(rows.first, rows.last);
    copyingWhile_.reset();
    if (rows.last != 0) {
        copyingWhile_ = selectedRows();
    }
}

ChannelInformation::Rows ChannelInformation::selectedRows() const {
    const auto selection = fgdDatabase.selection();
    return {static_cast<std::int16_t>(selection.firstRow), static_cast<std::int16_t>(selection.lastRow)};
}

// Rendering and a stay with the edited channel moved the selection, not the user.
void ChannelInformation::keepCopying() {
    if (copyingWhile_) {
        copyingWhile_ = selectedRows();
    }
}

// -- the form's place ------------------------------------------------------------------------------------------------

void ChannelInformation::frmCE_Load() {
    session_.trap("frmCE_Load", [&] { placeEditForm(); });
}

// Beside the row that it is about. Where the form was last it stays, unless it was put there by this and hides the row.
void ChannelInformation::placeEditForm() {
    const auto row = fgdDatabase.currentRowOnScreen();
    const ui::Rect now = frmCE.bounds();
    if (row && !placeChosen_ && (!placeGiven_ || !now.intersected(*row).empty())) {
        if (const auto at = ui::besideRow(*row, {now.width(), now.height()}, session_.desktop().workArea(*row))) {
            frmCE.setBounds({at->x, at->y, at->x + now.width(), at->y + now.height()});
        }
    }
    placeGiven_ = cornerOf(frmCE.bounds());
}

// -- following -------------------------------------------------------------------------------------------------------

// Mouse and keys only: rows that become current while they are rendered are not the user's choice. Later, because the
// grid moves after its key-down rule, and because a question must not come in the middle of a press; when nothing else
// waits, because a key that is held moves the grid faster than the form is loaded.
void ChannelInformation::followRowSoon() {
    if (following_ || session_.closed() || !editFormShown()) {
        return;
    }
    following_ = true;
    session_.whenIdle([this] {
        following_ = false;
        fgdDatabase_SelChange();
    });
}

void ChannelInformation::fgdDatabase_SelChange() {
    session_.trap("fgdDatabase_SelChange", [&] {
        if (fgdDatabase.row() != frmCE.channel()) {
            showRowInEditForm();
        } else if (copyingWhile_ && *copyingWhile_ != selectedRows()) {
            copyTo({});
        }
    });
}

// The current row becomes the selected channel and the one in the open form, unless the user wants to stay.
void ChannelInformation::showRowInEditForm(const std::string& news) {
    if (!editFormShown()) {
        return;
    }
    const ui::Cell current{fgdDatabase.row(), fgdDatabase.column()};
    const ui::Cell end{fgdDatabase.rowSel(), fgdDatabase.columnSel()};
    const bool leaves = frmCE.mayLeaveChannel(news);
    session_.throwIfClosed();
    if (!editFormShown()) {
        return;
    }
    if (!leaves || current.row < 1) {
        returnToEditedRow(current.column);
        keepCopying();
        return;
    }
    fgdDatabase.select(current, end);
    markSelected(current.row);
    const auto channel = static_cast<std::int16_t>(current.row);
    if (channel != frmCE.channel()) {
        frmCE.setChannel(channel);
        // What the user agreed to was about another one.
        copyTo({});
    }
    frmCE.refresh();
}

void ChannelInformation::returnToEditedRow(int column) {
    if (fgdDatabase.row() != frmCE.channel()) {
        fgdDatabase.setCurrent({frmCE.channel(), column});
    }
}

void ChannelInformation::RefreshEditForm() {
    session_.trap("RefreshEditForm", [&] {
        if (session_.activities().underWay(session::Activity::Storing)) {
            frmCE.refresh();
        } else {
            showRowInEditForm();
        }
    });
}

bool ChannelInformation::leaveEdits() {
    bool left = true;
    session_.trap("LeaveEdits", [&] {
        left = !editFormShown() || frmCE.mayLeaveChannel();
        session_.throwIfClosed();
        if (left && editFormShown() && frmCE.hasUnappliedEdits()) {
            frmCE.refresh();
        }
    });
    return left;
}

// Edits that the user keeps belong to the table that they were made in.
void ChannelInformation::distributeStoreToEditForm() {
    const bool exchanged = frmCE.centralDataStore() != session_.presentStore();
    if (exchanged && editFormShown()) {
        frmCE.offerToApply();
        session_.throwIfClosed();
    }
    frmCE.setCentralDataStore(session_.presentStore());
    if (exchanged) {
        // What the user agreed to was about the other table.
        copyTo({});
    }
    if (!session_.presentStore()) {
        base::skip([this] { frmCE.close(); });
    } else if (exchanged) {
        showRowInEditForm();
    }
}

// What the store has of the channel in the open form; nothing where that cannot be read.
std::vector<base::Value> ChannelInformation::valuesInEditForm() const {
    std::vector<base::Value> values;
    if (editFormShown()) {
        base::skip([&] {
            const auto record = session_.store()->channel(frmCE.channel());
            for (const auto& info : model::channelKeys) {
                values.push_back(record.get(info.key));
            }
        });
    }
    return values;
}

// -- what the form tells ---------------------------------------------------------------------------------------------

void ChannelInformation::frmCE_DataChanged() {
    session_.trap("frmCE_DataChanged",
                  [&] { markChanged(frmCE.centralDataStore() ? frmCE.centralDataStore() : session_.store()); });
}

void ChannelInformation::frmCE_EditClosed() {
    session_.trap("frmCE_EditClosed", [&] { raise(EditWindowClosed); });
}

// Rendering makes a row current, and the edited one has the last word.
void ChannelInformation::frmCE_NeedToUpdateFlexGrid(std::int16_t& intRowNo) {
    session_.trap("UpdateRowData", [&] {
        const auto copied = frmCE.copiedChannels();
        for (const auto channel : copied) {
            rows_.render(channel);
        }
    });
    UpdateRowData(intRowNo);
    keepCopying();
}

void ChannelInformation::frmCE_OpenLoginWithChannelEdit() {
    session_.trap("frmCE_OpenLoginWithChannelEdit", [&] { raise(OpenLoginWithChannelEdit); });
}

void ChannelInformation::frmCE_PauseDiagnosticsIfRunning() {
    session_.trap("frmCE_PauseDiagnosticsIfRunning", [&] { raise(PauseDiagnostics); });
}

void ChannelInformation::frmCE_PopUpMenuClick(std::int16_t& intButton) {
    constexpr auto last = static_cast<std::int16_t>(GridCommand::Redo);
    if (intButton >= 0 && intButton <= last) {
        run(static_cast<GridCommand>(intButton));
    }
}

}  // namespace telvar::control
