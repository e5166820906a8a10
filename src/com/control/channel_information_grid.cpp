// IChannelGrid: the grid for hosts. Rows and columns outside the grid are a "Subscript out of range".
#include "com/control/channel_information_object.h"

#include "com/kit/bstr.h"

namespace telvar::com {

namespace {

[[nodiscard]] VARIANT_BOOL truth(bool value) noexcept { return value ? VARIANT_TRUE : VARIANT_FALSE; }

}  // namespace

HRESULT ChannelInformationObject::get_RowCount(LONG* rows) noexcept {
    return call([&] { deref(rows) = control_.fgdDatabase.rows(); });
}

HRESULT ChannelInformationObject::get_ColumnCount(LONG* columns) noexcept {
    return call([&] { deref(columns) = control_.fgdDatabase.columns(); });
}

HRESULT ChannelInformationObject::get_Cell(LONG row, LONG column, BSTR* text) noexcept {
    return call([&] {
        deref(text) = nullptr;
        *text = Bstr(control_.fgdDatabase.text(row, column)).detach();
    });
}

HRESULT ChannelInformationObject::get_Header(LONG column, BSTR* text) noexcept { return get_Cell(0, column, text); }

HRESULT ChannelInformationObject::get_ColumnVisible(LONG column, VARIANT_BOOL* visible) noexcept {
    return call([&] { deref(visible) = truth(control_.fgdDatabase.columnWidth(column) > 0); });
}

HRESULT ChannelInformationObject::get_ColumnWidth(LONG column, LONG* twips) noexcept {
    return call([&] { deref(twips) = control_.fgdDatabase.columnWidth(column); });
}

HRESULT ChannelInformationObject::get_CurrentRow(LONG* row) noexcept {
    return call([&] { deref(row) = control_.fgdDatabase.row(); });
}

HRESULT ChannelInformationObject::get_CurrentColumn(LONG* column) noexcept {
    return call([&] { deref(column) = control_.fgdDatabase.column(); });
}

HRESULT ChannelInformationObject::get_SelectionEndRow(LONG* row) noexcept {
    return call([&] { deref(row) = control_.fgdDatabase.rowSel(); });
}

HRESULT ChannelInformationObject::get_SelectionEndColumn(LONG* column) noexcept {
    return call([&] { deref(column) = control_.fgdDatabase.columnSel(); });
}

HRESULT ChannelInformationObject::Select(LONG row, LONG column, LONG endRow, LONG endColumn) noexcept {
    return method([&] { control_.fgdDatabase.select({row, column}, {endRow, endColumn}); });
}

HRESULT ChannelInformationObject::get_TopRow(LONG* row) noexcept {
    return call([&] { deref(row) = control_.fgdDatabase.topRow(); });
}

HRESULT ChannelInformationObject::put_TopRow(LONG row) noexcept {
    return method([&] { control_.fgdDatabase.setTopRow(row); });
}

HRESULT ChannelInformationObject::get_CellBackColour(LONG row, LONG column, LONG* rgb) noexcept {
    return call([&] { deref(rgb) = static_cast<LONG>(control_.fgdDatabase.cellBackColor(row, column)); });
}

HRESULT ChannelInformationObject::get_LeftColumn(LONG* column) noexcept {
    return call([&] { deref(column) = control_.fgdDatabase.leftColumn(); });
}

HRESULT ChannelInformationObject::put_LeftColumn(LONG column) noexcept {
    return method([&] { control_.fgdDatabase.setLeftColumn(column); });
}

HRESULT ChannelInformationObject::get_Redraw(VARIANT_BOOL* redraw) noexcept {
    return call([&] { deref(redraw) = truth(control_.fgdDatabase.redraw()); });
}

HRESULT ChannelInformationObject::LeaveEdits(VARIANT_BOOL* left) noexcept {
    return method([&] {
        deref(left) = VARIANT_FALSE;
        *left = truth(control_.leaveEdits());
    });
}

HRESULT ChannelInformationObject::EditChannel() noexcept {
    return method([&] { control_.editChannel(); });
}

HRESULT ChannelInformationObject::FocusGrid() noexcept {
    return call([&] { control_.focusGrid(); });
}

HRESULT ChannelInformationObject::get_RefusedRow(LONG* row) noexcept {
    return call([&] { deref(row) = control_.lastRefusal().value_or(editing::RefusedCell{}).row; });
}

HRESULT ChannelInformationObject::get_RefusedColumn(LONG* column) noexcept {
    return call([&] { deref(column) = control_.lastRefusal().value_or(editing::RefusedCell{}).column; });
}

HRESULT ChannelInformationObject::get_RefusedPastes(LONG* count) noexcept {
    return call([&] { deref(count) = control_.refusedPastes(); });
}

HRESULT ChannelInformationObject::get_DataLocked(VARIANT_BOOL* locked) noexcept {
    return call([&] { deref(locked) = truth(control_.ckLockData.value() != 0); });
}

}  // namespace telvar::com
