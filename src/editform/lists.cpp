#include "editform/lists.h"

#include <string>
#include <vector>

#include "model/subtones.h"

namespace telvar::editform {

void fillFixedLists(ChannelEditControls& controls) {
    for (ui::ComboBox* const list : {&controls.cmbTxModulo, &controls.cmbRxModulo}) {
        for (const char* const modulo : {"5", "8"}) {
            list->addItem(modulo);
        }
    }
    for (ui::ComboBox* const list : {&controls.cmbTxAccelProportion, &controls.cmbRxAccelProportion}) {
        for (const char* const proportion : {"0", "1", "2", "3"}) {
            list->addItem(proportion);
        }
    }
    for (const auto code : model::dcsCodes) {
        controls.cmbTxDcs.addItem(std::string(code));
        controls.cmbRxDcs.addItem(std::string(code));
    }
    for (const char* const mode : {"Duplex", "P25 Digital Repeater (TTR) Only", "Analog Repeater (TTR) Only",
                                   "Mixed Mode Repeater (TTR)", "Simplex"}) {
        controls.cboRFMode.addItem(mode);
    }
}

void fillToneLists(ChannelEditControls& controls, model::DataStore& store, const base::NumberFormat& format) {
    std::vector<std::string> tones;
    for (auto index = static_cast<std::int16_t>(model::ctcssToneCount - 1); index >= 0; --index) {
        tones.push_back(base::numberText(store.CtcssTone(index), format));
    }
    controls.cmbTxSubtone.addItem(disabledTone);
    controls.cmbRxSubtone.addItem(disabledTone);
    controls.cmbRxSubtone.addItem(multipleTones);
    for (const auto& tone : tones) {
        controls.cmbTxSubtone.addItem(tone);
        controls.cmbRxSubtone.addItem(tone);
    }
}

}  // namespace telvar::editform
