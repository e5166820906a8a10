#include "desk/radio_status.h"

namespace telvar::desk {

void RadioStatus::poll() {
    if (!bench_.link.installed() || asking_ || exchanging()) {
        return;
    }
    if (pausedPolls_ > 0) {
        --pausedPolls_;
        return;
    }
    // A link that refuses is asked again a second later.
    asking_ = !bench_.store.commsBusy() && bench_.link.askStatus();
}

void RadioStatus::answered(bool answers, const std::string& sentence) {
    asking_ = false;
    sentence_ = sentence;
    bench_.window.status().setRadio(answers ? "Radio ready" : "No radio answers", sentence);
}

}  // namespace telvar::desk
