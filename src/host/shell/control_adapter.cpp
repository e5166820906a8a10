#include "host/shell/control_adapter.h"

#include <algorithm>
#include <utility>

#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "host/shell/print_source.h"

namespace telvar::host {

namespace {

// Rows that stay in view above a channel that is gone to; few enough for the smallest window.
constexpr int rowsAbove = 3;
// What the control calls the commands that an exchange takes away.
constexpr std::wstring_view radioCommands = L"RS232";

OLECMDID standardOf(desk::EditAction action) noexcept {
    switch (action) {
    case desk::EditAction::Undo:
        return OLECMDID_UNDO;
    case desk::EditAction::Redo:
        return OLECMDID_REDO;
    case desk::EditAction::Copy:
        return OLECMDID_COPY;
    case desk::EditAction::Paste:
        return OLECMDID_PASTE;
    case desk::EditAction::Delete:
        return OLECMDID_DELETE;
    case desk::EditAction::SelectAll:
        break;
    }
    return OLECMDID_SELECTALL;
}

}  // namespace

void ControlAdapter::attach(com::ComPointer<_ChannelInformation> control, EmbeddedControl& container) {
    control_ = std::move(control);
    grid_ = com::ComPointer<IChannelGrid>::from(control_);
    container_ = &container;
}

void ControlAdapter::detach() noexcept {
    grid_.reset();
    control_.reset();
    container_ = nullptr;
}

// A method may end in the control being let go.
void ControlAdapter::run(Method method) {
    if (const auto control = control_) {
        com::checkCall((control.get()->*method)());
    }
}

void ControlAdapter::refresh() { run(&_ChannelInformation::UpdateControlsFromMemory); }

void ControlAdapter::showTop() {
    if (grid_) {
        grid_->put_TopRow(1);
        grid_->put_LeftColumn(1);
    }
}

void ControlAdapter::updateAccess(desk::AccessLevel level) {
    if (const auto control = control_) {
        auto number = static_cast<short>(level);
        com::checkCall(control->UpdateAccess(&number));
    }
}

void ControlAdapter::followRadioChannel() {
    run(&_ChannelInformation::UpdateChannelSelection);
    // An open edit form follows moves of the user's by itself, but this one is the program's.
    run(&_ChannelInformation::RefreshEditForm);
}

void ControlAdapter::focus() {
    if (const auto grid = grid_) {
        grid->FocusGrid();
    }
}

bool ControlAdapter::enabled(desk::EditAction action) const {
    return container_ != nullptr && container_->commandEnabled(standardOf(action));
}

void ControlAdapter::edit(desk::EditAction action) {
    if (enabled(action)) {
        container_->execute(standardOf(action));
    }
}

void ControlAdapter::editChannel() {
    if (const auto grid = grid_) {
        com::checkCall(grid->EditChannel());
    }
}

int ControlAdapter::currentChannel() const {
    long row = 1;
    if (grid_) {
        grid_->get_CurrentRow(&row);
    }
    return static_cast<int>(std::max(row, 1L));
}

void ControlAdapter::goTo(int channel) {
    const auto grid = grid_;
    long columns = 0;
    if (!grid || FAILED(grid->get_ColumnCount(&columns))) {
        return;
    }
    grid->put_TopRow(std::max(channel - rowsAbove, 1));
    grid->Select(channel, 1, channel, columns - 1);
    run(&_ChannelInformation::RefreshEditForm);
    focus();
}

bool ControlAdapter::leaveEdits() {
    VARIANT_BOOL left = VARIANT_TRUE;
    const auto grid = grid_;
    return !grid || FAILED(grid->LeaveEdits(&left)) || left != VARIANT_FALSE;
}

bool ControlAdapter::dataLocked() const {
    VARIANT_BOOL locked = VARIANT_FALSE;
    return grid_ && SUCCEEDED(grid_->get_DataLocked(&locked)) && locked != VARIANT_FALSE;
}

desk::PasteRefusal ControlAdapter::refusedPaste() const {
    desk::PasteRefusal refusal;
    if (!grid_) {
        return refusal;
    }
    long column = 0;
    com::check(grid_->get_RefusedPastes(&refusal.pastes));
    com::check(grid_->get_RefusedRow(&refusal.row));
    com::check(grid_->get_RefusedColumn(&column));
    com::Bstr heading;
    const bool known = refusal.row != 0 && SUCCEEDED(grid_->get_Header(column, heading.put()));
    refusal.column = known ? heading.text() : "column " + std::to_string(column);
    return refusal;
}

void ControlAdapter::disableCommands() {
    if (const auto control = control_) {
        com::Bstr commands(radioCommands);
        control->DisableMyCommands(commands.address());
    }
}

void ControlAdapter::enableCommands() {
    if (const auto control = control_) {
        com::Bstr commands(radioCommands);
        control->EnableMyCommands(commands.address());
    }
}

desk::PrintedTable ControlAdapter::shownTable() const {
    if (!grid_) {
        throw com::ComFailure(E_NOINTERFACE, "The channel table control does not tell what it shows");
    }
    return readShownTable(*grid_);
}

}  // namespace telvar::host
