// The fill dialog as the host starts it: who may, with which rows, and what surrounds the fill itself. Its fields and
// its loop are the business of editing.
#include <algorithm>

#include "control/channel_information.h"
#include "control/raised.h"

namespace telvar::control {

namespace {

constexpr std::int16_t fillAccess = 3;

}  // namespace

void ChannelInformation::DisplayFill() {
    routine("DisplayFill", [&] {
        if (!fillRefused()) {
            showFill();
        }
    });
}

void ChannelInformation::ChannelFillDown() {
    routine("ChannelFillDown", [&] { startFill(&editing::frmFill::offerFillDown); });
}

void ChannelInformation::ChannelFillSeries() {
    routine("ChannelFillSeries", [&] { startFill(&editing::frmFill::offerSeries); });
}

// The dialog is made ready also where the user has to log in first: the host shows it by DisplayFill afterwards.
void ChannelInformation::startFill(void (editing::frmFill::*offer)()) {
    if (fillRefused()) {
        return;
    }
    auto& form = frmFill();
    (form.*offer)();
    takeSelectedRows(form);
    if (accessLevel_ < fillAccess) {
        raise(OpenLoginWithChannelFill);
    } else {
        showFill();
    }
}

void ChannelInformation::takeSelectedRows(editing::frmFill& form) const {
    const auto rows = fgdDatabase.selection();
    const int first = std::max(rows.firstRow, 1);
    if (first < rows.lastRow) {
        form.setChannels(first, rows.lastRow);
    }
}

// There is one dialog, and it is not changed behind the user's back while it is shown.
bool ChannelInformation::fillRefused() { return editing_ || filling_ || changesRefused(); }

// The dialog being open is no change of the table: the host may paste meanwhile.
void ChannelInformation::showFill() {
    const Raised filling(filling_);
    desktop_.showModal(frmFill());
}

// Every statement passes over its failure: what the backup and the rendering of the rows cannot do they tell
// themselves, and nothing else is told.
void ChannelInformation::frmFill_FillRequested() {
    if (editing_) {
        return;
    }
    routine("ok_but_Click", [&] {
        bool refused = false;
        ui::resumed([&] { refused = changesRefused(); });
        if (!refused) {
            ui::resumed([&] { changeTable([this] { return frmFill().fill(); }, [this] { markTableFilled(); }); });
        }
    });
}

void ChannelInformation::markTableFilled() {
    for (const auto flag : {model::StoreMember::DataModified, model::StoreMember::ChannelDataModified}) {
        ui::resumed([&] { store()->put(flag, true); });
    }
}

}  // namespace telvar::control
