// The checks of the table and the exchanges of the whole table with the radio, as the host calls them: the sequences
// and the findings are made elsewhere, here they meet the control's events and message boxes.
#include <exception>

#include "control/channel_information.h"
#include "synth/table_check.h"

namespace telvar::control {

transfer::TransferSurroundings ChannelInformation::transferSurroundings() {
    return {.desktop = desktop_,
            .store = [this] { return store(); },
            .link = [this] { return link(); },
            .show = [this](const ui::MessageBox& box) { return show(box); },
            .disableCommands = [this] { raise(DisableCommands); },
            .hourglassOverWindow = [this] { raise(HourglassOverWindow); },
            .pauseDiagnostics = [this] { raise(PauseDiagnostics); },
            .restoreButtons = [this] { raise(RestoreButtons); },
            .enableCommands =
                [this](const std::string& commands) {
                    std::string text = commands;
                    raise(EnableCommands, text);
                },
            .disableChannelSelect = [this] { cmdChannelSelect.setEnabled(false); },
            .checkFrequencies =
                [this] {
                    const bool good = check_Frequencies();
                    endIfClosed();
                    return good;
                },
            .checkScanCount = [this] { return CheckTotalNoOfChannelScan(); }};
}

bool ChannelInformation::check_Frequencies() {
    bool good = false;
    routine("check_Frequencies", [&] {
        const auto verdict = synth::checkFrequencies(*store());
        for (const synth::Finding& finding : verdict.findings) {
            show({.text = finding.text,
                  .title = finding.title.value_or(ui::defaultTitle),
                  .icon = ui::Icon::Exclamation});
        }
        good = verdict.good;
    });
    return good;
}

// Whatever goes wrong is told by the text alone.
std::string ChannelInformation::CheckTotalNoOfChannelScan() {
    try {
        return synth::checkScanCount(*store());
    } catch (const Ended&) {
        return {};
    } catch (const std::exception&) {
        return synth::scanCountFault;
    }
}

void ChannelInformation::SendToTelvar() { SendChannelInfoToTelvar(); }

void ChannelInformation::LoadFromTelvar() { LoadChannelInfoFromTelvar(); }

void ChannelInformation::SendChannelInfoToTelvar() {
    routine("SendChannelInfoToTelvar", [&] { tableTransfer_.send(); });
}

// A load replaces the table when it has arrived, so locked data refuses it here. So does an edit that is under way and
// has asked the user something: it would go on in a table that is about to be overwritten.
void ChannelInformation::LoadChannelInfoFromTelvar() {
    routine("LoadChannelInfoFromTelvar", [&] {
        if (dataLocked()) {
            return;
        }
        if (editing_ || frmCE.storing()) {
            show({.text = "The channel table is being edited. Please end that before it is loaded from the radio.",
                  .title = messageTitle(),
                  .icon = ui::Icon::Exclamation});
            return;
        }
        tableTransfer_.load();
    });
}

}  // namespace telvar::control
