// The fill dialog as the host starts it: who may, with which rows, and what surrounds the fill itself. Its fields and
// its loop are the business of editing.
#include <algorithm>

#include "base/skip.h"
#include "control/channel_information.h"

namespace telvar::control {

using session::Activity;

namespace {

constexpr std::int16_t fillAccess = 3;

}  // namespace

void ChannelInformation::DisplayFill() {
    session_.trap("DisplayFill", [&] {
        if (!refused(Activity::FillDialog)) {
            showFill();
        }
    });
}

void ChannelInformation::ChannelFillDown() {
    session_.trap("ChannelFillDown", [&] { startFill(&editing::frmFill::offerFillDown); });
}

void ChannelInformation::ChannelFillSeries() {
    session_.trap("ChannelFillSeries", [&] { startFill(&editing::frmFill::offerSeries); });
}

// The dialog is made ready also where the user has to log in first: the host shows it by DisplayFill afterwards.
void ChannelInformation::startFill(void (editing::frmFill::*offer)()) {
    if (refused(Activity::FillDialog)) {
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

void ChannelInformation::showFill() {
    const session::UnderWay filling(session_.activities(), Activity::FillDialog);
    session_.desktop().showModal(frmFill());
}

// Every statement passes over its failure: what the backup and the rendering of the rows cannot do they tell
// themselves, and nothing else is told.
void ChannelInformation::frmFill_FillRequested() {
    session_.trap("ok_but_Click", [&] {
        bool stays = false;
        base::skip([&] { stays = refused(Activity::Editing); });
        if (!stays) {
            base::skip([&] { changeTable([this] { return frmFill().fill(); }, [this] { markTableFilled(); }); });
        }
    });
}

void ChannelInformation::markTableFilled() {
    for (const auto flag : {model::StoreMember::DataModified, model::StoreMember::ChannelDataModified}) {
        base::skip([&] { session_.store()->put(flag, true); });
    }
}

}  // namespace telvar::control
