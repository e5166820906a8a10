// The seven levels of the form: transmit power, and bias, VCO deviation and reference level for each band. Shows the
// band in use and couples the sliders that the user has locked together.
#pragma once

#include <optional>

#include "editform/channel_edit_controls.h"
#include "editform/level_pair.h"
#include "transfer/live_levels.h"

namespace telvar::editform {

class Levels {
public:
    // The controls must outlive the levels.
    Levels(ChannelEditControls& controls, base::NumberFormat format);

    void showBand(bool narrow);
    // As displayed, the bias uninverted. Nothing where a text is no number or not 0 to 255.
    [[nodiscard]] std::optional<transfer::LiveLevelValues> displayed(bool narrow) const;

    LevelPair transmitPower;
    LevelPair wideBias;
    LevelPair wideVco;
    LevelPair wideReference;
    LevelPair narrowBias;
    LevelPair narrowVco;
    LevelPair narrowReference;

private:
    void wideVco_Moved(int amount) { couple(wideReference, amount); }
    void wideReference_Moved(int amount) { couple(wideVco, amount); }
    void narrowVco_Moved(int amount) { couple(narrowReference, amount); }
    void narrowReference_Moved(int amount) { couple(narrowVco, amount); }
    void couple(LevelPair& other, int amount);

    ChannelEditControls& controls_;
    base::NumberFormat format_;
    bool coupling_ = false;
};

}  // namespace telvar::editform
