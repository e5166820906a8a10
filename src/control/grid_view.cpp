// The grid as a view of the channel table: its set-up, the rendering of one row and of all, and the colour of a row.
#include "base/conversion.h"
#include "control/channel_information.h"
#include "editing/columns.h"
#include "ui/redraw_off.h"

namespace telvar::control {

using model::StoreMember;

void ChannelInformation::Prepare() {
    session_.trap("Prepare", [&] { setUpGrid(); });
}

void ChannelInformation::setUpGrid() {
    const ui::RedrawOff off(fgdDatabase);
    fgdDatabase.setColumn(0);
    for (std::int16_t row = 1; row <= model::channelCount; ++row) {
        fgdDatabase.setRow(row);
        fgdDatabase.setText(row, 0, std::to_string(row));
        fgdDatabase.setCellAlignment(row, 0, ui::Alignment::LeftCentre);
    }
    for (std::int16_t column = 0; column < editing::firstHiddenColumn; ++column) {
        fgdDatabase.setColumnWidth(column, editing::columns[static_cast<std::size_t>(column)].width);
    }
    fgdDatabase.setRow(0);
    for (std::int16_t column = 1; column <= editing::lastColumn; ++column) {
        fgdDatabase.setText(0, column, editing::columns[static_cast<std::size_t>(column)].header);
    }
    for (std::int16_t column = editing::firstHiddenColumn; column <= editing::lastColumn; ++column) {
        fgdDatabase.setColumnWidth(column, editing::columns[static_cast<std::size_t>(column)].width);
    }
}

void ChannelInformation::UpdateRowData(std::int16_t i) { rows_.UpdateRowData(i); }

void ChannelInformation::UpdateControlsFromMemory() {
    session_.trap("UpdateControlsFromMemory", [&] {
        history_.forget();
        frmCE.noteTableReadAnew();
        txtChannelSelect.loadText(selectedChannelText());
        followSelectedChannel();
        std::string caption = "Channel Information - " +
                              base::toText(session_.store()->get(StoreMember::DatabaseTitle), session_.format());
        raise(NewWindowCaption, caption);
        fgdDatabase.setRow(0);
        renderAllChannels();
        session_.store()->put(StoreMember::GridLoaded, true);
        fgdDatabase.setCurrent({1, 1});
        showRowInEditForm("The channel table has been read anew. ");
    });
}

void ChannelInformation::renderAllChannels() {
    const ui::RedrawOff off(fgdDatabase);
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        rows_.render(channel);
        raise(IncrementProgressBar);
    }
}

void ChannelInformation::SetRowBackColour(std::int16_t index, std::int32_t rgbBackColour) {
    session_.trap("SetRowBackColour", [&] {
        checkChannel(index);
        if (fgdDatabase.row() != index) {
            fgdDatabase.setRow(index);
        }
        logMessage("Row to change: " + std::to_string(index) + "\r\nRow colour: " + std::to_string(rgbBackColour));
        const auto wanted = static_cast<ui::Colour>(rgbBackColour);
        const auto present = fgdDatabase.cellBackColor(index, fgdDatabase.column());
        // A cell that was never painted counts as white.
        const bool unpaintedAndWhite = present == 0 && wanted == ui::white;
        if (present != wanted && !unpaintedAndWhite) {
            paintRow(index, wanted);
        }
    });
}

void ChannelInformation::paintRow(std::int16_t row, ui::Colour colour) {
    for (int column = 1; column < fgdDatabase.columns(); ++column) {
        fgdDatabase.setColumn(column);
        fgdDatabase.setCellBackColor(row, column, colour);
    }
}

}  // namespace telvar::control
