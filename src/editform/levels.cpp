#include "editform/levels.h"

#include <array>

#include "base/scoped_flag.h"

namespace telvar::editform {

namespace {

constexpr std::int16_t highestLevel = 255;

}  // namespace

Levels::Levels(ChannelEditControls& controls, base::NumberFormat format)
    : transmitPower(controls.sldTransmitPower, controls.txtTransmitPower, format),
      wideBias(controls.sldRefOscFreq, controls.txtRefOscFreq, format),
      wideVco(controls.sldVcoDeviation, controls.txtVcoDeviation, format),
      wideReference(controls.sldRefOscDev, controls.txtRefOscDev, format),
      narrowBias(controls.sldNBRefOscFreq, controls.txtNBRefOscFreq, format),
      narrowVco(controls.sldNBVcoDeviation, controls.txtNBVcoDeviation, format),
      narrowReference(controls.sldNBRefOscDev, controls.txtNBRefOscDev, format),
      controls_(controls),
      format_(format) {
    ui::on(wideVco.Moved, this, &Levels::wideVco_Moved);
    ui::on(wideReference.Moved, this, &Levels::wideReference_Moved);
    ui::on(narrowVco.Moved, this, &Levels::narrowVco_Moved);
    ui::on(narrowReference.Moved, this, &Levels::narrowReference_Moved);
}

void Levels::showBand(bool narrow) {
    for (LevelPair* const pair : {&wideBias, &wideVco, &wideReference}) {
        pair->setVisible(!narrow);
    }
    for (LevelPair* const pair : {&narrowBias, &narrowVco, &narrowReference}) {
        pair->setVisible(narrow);
    }
    transmitPower.setVisible(true);
}

std::optional<transfer::LiveLevelValues> Levels::displayed(bool narrow) const {
    const std::array<const ui::TextBox*, transfer::liveLevelCount> boxes{&transmitPower.box(),
                                                                         narrow ? &narrowBias.box() : &wideBias.box(),
                                                                         narrow ? &narrowVco.box() : &wideVco.box(),
                                                                         narrow ? &narrowReference.box()
                                                                                : &wideReference.box(),
                                                                         &controls_.potval[0],
                                                                         &controls_.potval[1]};
    transfer::LiveLevelValues levels{};
    for (std::size_t at = 0; at < boxes.size(); ++at) {
        const auto level = base::readInt16(boxes[at]->text(), format_);
        if (!level || *level < 0 || *level > highestLevel) {
            return std::nullopt;
        }
        levels[at] = *level;
    }
    return levels;
}

void Levels::couple(LevelPair& other, int amount) {
    if (!coupling_ && controls_.ckLockVcoRefOscDev.checked()) {
        // The other one must not move the first one again.
        const base::ScopedFlag coupling(coupling_);
        other.moveBy(amount);
    }
}

}  // namespace telvar::editform
