#include "editform/mode_rules.h"

#include <array>

#include "editform/channel_spacing.h"

namespace telvar::editform {

namespace {

struct ModeChoice {
    int simplex;
    int repeater;
    int p25Repeater;
    bool narrowBand;  // P25 cannot run on a wide channel
};

// By position in optRFMode.
constexpr std::array<ModeChoice, rfModeCount> modeChoices{
    {{1, 0, 0, false}, {0, 0, 0, false}, {0, 1, 0, false}, {0, 0, 1, true}, {0, 1, 1, true}}};

[[nodiscard]] const ModeChoice& choiceOf(RfMode mode) { return modeChoices[static_cast<std::size_t>(mode)]; }

}  // namespace

ModeRules::ModeRules(ChannelEditControls& controls, Levels& levels) : controls_(controls), levels_(levels) {
    for (std::size_t index = 0; index < rfModeCount; ++index) {
        const auto clicked = [this, index] { optRFMode_Click(static_cast<RfMode>(index)); };
        controls_.optRFMode[index].Click.connect(clicked);
        // The check boxes may say something else by now.
        controls_.optRFMode[index].ChosenAgain.connect(clicked);
    }
    ui::on(controls_.ckSimplexChannel.Click, this, &ModeRules::ckSimplexChannel_Click);
    ui::on(controls_.ckTtrChannel.Click, this, &ModeRules::ckTtrChannel_Click);
    ui::on(controls_.chkP25RepeaterEnable.Click, this, &ModeRules::chkP25RepeaterEnable_Click);
    ui::on(controls_.optWideBand.Click, this, &ModeRules::optWideBand_Click);
    ui::on(controls_.optNarrowBand.Click, this, &ModeRules::optNarrowBand_Click);
    for (ui::OptionButton* const option :
         {&controls_.optTxCtcss, &controls_.optTxDcs, &controls_.optRxCtcss, &controls_.optRxDcs}) {
        ui::on(option->Click, this, &ModeRules::optSubtoneKind_Click);
    }
}

void ModeRules::setBandwidthSwitchable(bool switchable) {
    switchable_ = switchable;
    controls_.optWideBand.setEnabled(switchable);
    controls_.optNarrowBand.setEnabled(switchable);
}

void ModeRules::applyLoadedMode() {
    choose(derivedMode());
    showLevels();
}

// The check boxes quietly: the entry decides all three of them.
void ModeRules::optRFMode_Click(RfMode Index) {
    const auto& choice = choiceOf(Index);
    controls_.ckSimplexChannel.loadValue(choice.simplex);
    controls_.ckTtrChannel.loadValue(choice.repeater);
    controls_.chkP25RepeaterEnable.loadValue(choice.p25Repeater);
    if (choice.narrowBand) {
        controls_.optNarrowBand.setValue(true);
    }
}

void ModeRules::ckSimplexChannel_Click() {
    if (controls_.ckSimplexChannel.checked()) {
        controls_.ckTtrChannel.setValue(0);
        controls_.chkP25RepeaterEnable.setValue(0);
        followBoxes();
    }
}

void ModeRules::ckTtrChannel_Click() {
    if (controls_.ckTtrChannel.checked()) {
        controls_.ckSimplexChannel.setValue(0);
        followBoxes();
    }
}

void ModeRules::chkP25RepeaterEnable_Click() {
    if (controls_.chkP25RepeaterEnable.checked()) {
        controls_.ckSimplexChannel.setValue(0);
        followBoxes();
    }
}

void ModeRules::optWideBand_Click() {
    controls_.frChannelSpacing.setCaption(wideBandCaption);
    showLevels();
    if (choiceOf(controls_.rfMode()).narrowBand) {
        controls_.optRFMode[static_cast<std::size_t>(RfMode::AnalogRepeater)].setValue(true);
    }
}

void ModeRules::optNarrowBand_Click() {
    controls_.frChannelSpacing.setCaption(narrowBandCaption);
    showLevels();
    NarrowBandChosen();
}

void ModeRules::optSubtoneKind_Click() { showSubtoneKinds(); }

void ModeRules::showLevels() {
    levels_.showBand(narrowLevels());
    LayoutChanged();
}

void ModeRules::showSubtoneKinds() {
    const bool txDcs = controls_.optTxDcs.value();
    controls_.lblTxDcsSubtone.setCaption(txDcs ? "Tx DCS Code" : "Tx Subtone (Hz)");
    controls_.cmbTxDcs.setVisible(txDcs);
    controls_.cmbTxSubtone.setVisible(!txDcs);
    const bool rxDcs = controls_.optRxDcs.value();
    controls_.lblRxDcsSubtone.setCaption(rxDcs ? "Rx DCS Code" : "Rx Subtone (Hz)");
    controls_.cmbRxDcs.setVisible(rxDcs);
    controls_.cmbRxSubtone.setVisible(!rxDcs);
    LayoutChanged();
}

RfMode ModeRules::derivedMode() const noexcept {
    const bool repeater = controls_.ckTtrChannel.checked();
    const bool p25Repeater = controls_.chkP25RepeaterEnable.checked();
    if (controls_.ckSimplexChannel.checked()) {
        return RfMode::Simplex;
    }
    if (!repeater && !p25Repeater) {
        return RfMode::Duplex;
    }
    if (!repeater) {
        return RfMode::P25Repeater;
    }
    return p25Repeater ? RfMode::MixedRepeater : RfMode::AnalogRepeater;
}

// As a click does, also on the entry that is chosen already.
void ModeRules::choose(RfMode mode) {
    controls_.optRFMode[static_cast<std::size_t>(mode)].loadValue(true);
    optRFMode_Click(mode);
}

// A radio that has no P25 runs what is left of a P25 mode without it.
void ModeRules::followBoxes() {
    const auto mode = derivedMode();
    const bool possible = controls_.optRFMode[static_cast<std::size_t>(mode)].enabled();
    choose(possible ? mode : RfMode::AnalogRepeater);
}

}  // namespace telvar::editform
