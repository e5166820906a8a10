// The question once a second how the radio is, which the status line shows.
#pragma once

#include <string>

#include "desk/bench.h"

namespace telvar::desk {

class RadioStatus {
public:
    // The bench outlives this.
    explicit RadioStatus(Bench& bench) noexcept : bench_(bench) {}

    // To be called once a second. Asks how the radio is, unless that is paused, still being answered, or an exchange is
    // under way, of this link or of somebody else who has marked the store busy: the question's end would take that
    // mark away.
    void poll();
    // Until the exchange that needs the link has ended. A pause that none follows ends by itself.
    void pause() noexcept { pausedPolls_ = longestPause; }
    void resume() noexcept { pausedPolls_ = 0; }

    // The link's answer: who answered, or why nobody did.
    void answered(bool answers, const std::string& sentence);

    // From the question to its answer.
    [[nodiscard]] bool asking() const noexcept { return asking_; }
    // Between the start of an exchange and its end; questions how the radio is do not count.
    [[nodiscard]] bool exchanging() const noexcept { return bench_.link.installed() && !asking_ && bench_.link.busy(); }
    // The last answer; empty before the first.
    [[nodiscard]] const std::string& sentence() const noexcept { return sentence_; }

private:
    // In polls, which is in seconds. The control pauses the polling right before it uses the link.
    static constexpr int longestPause = 5;

    Bench& bench_;
    bool asking_ = false;
    int pausedPolls_ = 0;
    std::string sentence_;
};

}  // namespace telvar::desk
