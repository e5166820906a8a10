#include "desk/status_view.h"

#include "base/failure.h"

namespace telvar::desk {

void StatusView::refresh() {
    if (!bench_.window.open()) {
        return;
    }
    try {
        showChannels();
        const bool modified = bench_.store.modified();
        bench_.window.status().setModified(modified);
        bench_.window.setTitle((modified ? "*" : "") + caption_);
        showRefusedPaste();
    } catch (const base::Failure&) {
    }
}

void StatusView::setCaption(const std::string& caption) {
    caption_ = caption;
    refresh();
}

void StatusView::showChannels() {
    const long revision = bench_.store.revision();
    if (shownRevision_ != revision) {
        const int channels = bench_.store.configuredChannels();
        bench_.window.status().setChannels(std::to_string(channels) + (channels == 1 ? " channel" : " channels"));
        shownRevision_ = revision;
    }
}

// The control's box does not say where. Known while the box is open.
void StatusView::showRefusedPaste() {
    const PasteRefusal refusal = bench_.control.refusedPaste();
    if (refusal.pastes != refusedPastes_) {
        refusedPastes_ = refusal.pastes;
        refusalMessage_ = "Paste refused at channel " + std::to_string(refusal.row) + ", " + refusal.column;
        bench_.window.status().setMessage(refusalMessage_);
    } else if (refusal.row == 0 && !refusalMessage_.empty() && bench_.window.status().message() == refusalMessage_) {
        // A paste has gone through since.
        refusalMessage_.clear();
        view_.showName();
    }
}

}  // namespace telvar::desk
