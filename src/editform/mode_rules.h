// Keeps the operating mode, the bandwidth and the subtone controls consistent while the user edits, and shows the
// controls that go with them. Whether a P25 mode may be chosen at all is a matter of access, which the form knows.
#pragma once

#include <cstdint>

#include "base/event.h"
#include "editform/channel_edit_controls.h"
#include "editform/levels.h"

namespace telvar::editform {

class ModeRules {
public:
    // Both must outlive the rules.
    ModeRules(ChannelEditControls& controls, Levels& levels);

    // On a radio that cannot switch, the choice is disabled and the wide set of levels is shown.
    void setBandwidthSwitchable(bool switchable);
    // Whether the narrow set of levels is the one in use.
    [[nodiscard]] bool narrowLevels() const noexcept { return switchable_ && controls_.optNarrowBand.value(); }

    // After loading: derives the RF mode from the check boxes and applies its rule, chosen before or not.
    void applyLoadedMode();
    // Shows what goes with the options, without changing any of them.
    void showSubtoneKinds();
    void showLevels();

    // A narrow band was chosen: the P25 controls' access is to be judged again.
    base::Event<> NarrowBandChosen;
    // Captions or shown controls changed.
    base::Event<> LayoutChanged;

private:
    void optRFMode_Click(RfMode Index);
    void ckSimplexChannel_Click();
    void ckTtrChannel_Click();
    void chkP25RepeaterEnable_Click();
    void optWideBand_Click();
    void optNarrowBand_Click();
    void optSubtoneKind_Click();

    [[nodiscard]] RfMode derivedMode() const noexcept;
    void choose(RfMode mode);
    void followBoxes();

    ChannelEditControls& controls_;
    Levels& levels_;
    bool switchable_ = true;
};

}  // namespace telvar::editform
