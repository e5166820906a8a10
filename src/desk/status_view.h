// What the window shows of the state of things at any moment: its title, how many channels are in use, whether the
// table has unsaved changes, and where a paste was refused.
#pragma once

#include <optional>
#include <string>

#include "desk/bench.h"
#include "desk/document.h"

namespace telvar::desk {

class StatusView {
public:
    // Both outlive this.
    StatusView(Bench& bench, TableView& view) noexcept : bench_(bench), view_(view) {}

    // What has changed since the last time. A store that does not answer leaves what was shown last; whoever needs its
    // answer reports the failure.
    void refresh();
    // The title without the mark of unsaved changes.
    void setCaption(const std::string& caption);

private:
    void showChannels();
    void showRefusedPaste();

    Bench& bench_;
    TableView& view_;
    std::string caption_ = "Telvar";
    std::optional<long> shownRevision_;
    long refusedPastes_ = 0;      // as they were last counted
    std::string refusalMessage_;  // of the last paste, while it was refused
};

}  // namespace telvar::desk
