// The checks of the table and the exchanges of the whole table with the radio, as the host calls them: the sequences
// and the findings are made elsewhere, here they meet the control's events and message boxes.
#include "base/skip.h"
#include "control/channel_information.h"
#include "synth/table_check.h"

namespace telvar::control {

bool ChannelInformation::checkFrequencies() {
    const bool good = check_Frequencies();
    session_.throwIfClosed();
    return good;
}

bool ChannelInformation::check_Frequencies() {
    bool good = false;
    session_.trap("check_Frequencies", [&] {
        const auto verdict = synth::checkFrequencies(*session_.store());
        for (const synth::Finding& finding : verdict.findings) {
            session_.show({.text = finding.text,
                           .title = finding.title.value_or(ui::defaultTitle),
                           .icon = ui::Icon::Exclamation});
        }
        good = verdict.good;
    });
    return good;
}

// Whatever goes wrong is told by the text alone.
std::string ChannelInformation::CheckTotalNoOfChannelScan() {
    if (closed()) {
        return {};
    }
    std::string text = synth::scanCountFault;
    base::skip([&] { text = synth::checkScanCount(*session_.store()); });
    return text;
}

void ChannelInformation::SendToTelvar() { SendChannelInfoToTelvar(); }

void ChannelInformation::LoadFromTelvar() { LoadChannelInfoFromTelvar(); }

void ChannelInformation::SendChannelInfoToTelvar() {
    session_.trap("SendChannelInfoToTelvar", [&] { tableTransfer_.send(); });
}

// A load replaces the table when it has arrived, so locked data refuses it here.
void ChannelInformation::LoadChannelInfoFromTelvar() {
    session_.trap("LoadChannelInfoFromTelvar", [&] {
        if (!refused(session::Activity::Loading)) {
            tableTransfer_.load();
        }
    });
}

}  // namespace telvar::control
