// What the user does on the form: its buttons, its fields, the live update and the pop-up menu.
#include <algorithm>
#include <utility>

#include "base/conversion.h"
#include "base/pinned.h"
#include "base/rounding.h"
#include "base/skip.h"
#include "base/text.h"
#include "editform/channel_loading.h"
#include "editform/channel_storing.h"
#include "editform/frmChannelEdit.h"
#include "editform/lists.h"
#include "synth/proposal.h"

namespace telvar::editform {

using model::StoreMember;
using session::Activity;

namespace {

constexpr double hertzPerMegahertz = 1e6;
constexpr double hertzPerKilohertz = 1e3;

// As the proposal compares it, whatever separates decimals here.
[[nodiscard]] std::string withPoint(std::string text, base::NumberFormat format) {
    std::ranges::replace(text, format.decimalSeparator, '.');
    return text;
}

// The texts of fields that were not stored, put back at the end.
class KeptTexts : base::Pinned {
public:
    explicit KeptTexts(const FieldNotesList& notes) {
        for (const FieldNote& note : notes) {
            texts_.emplace_back(note.field, enteredText(*note.field));
        }
    }
    ~KeptTexts() {
        for (const auto& [field, text] : texts_) {
            base::skip([&] {
                if (auto* const box = dynamic_cast<ui::TextBox*>(field)) {
                    box->loadText(text);
                } else if (auto* const list = dynamic_cast<ui::ComboBox*>(field)) {
                    list->loadText(text);
                }
            });
        }
    }

private:
    std::vector<std::pair<ui::Widget*, std::string>> texts_;
};

// The hourglass over a disabled form, for as long as the form stores.
class BusyForm : base::Pinned {
public:
    BusyForm(ui::Desktop& desktop, ui::Form& form) : desktop_(desktop), form_(form) {
        desktop_.setPointer(ui::Pointer::Hourglass);
        form_.setEnabled(false);
    }
    ~BusyForm() {
        form_.setEnabled(true);
        desktop_.setPointer(ui::Pointer::Default);
    }

private:
    ui::Desktop& desktop_;
    ui::Form& form_;
};

}  // namespace

// -- buttons ---------------------------------------------------------------------------------------------------------

void frmChannelEdit::cmdApply_Click() { static_cast<void>(apply()); }

void frmChannelEdit::cmdOk_Click() {
    static_cast<void>(storeEdits([this] {
        if (closing_) {
            return;
        }
        closing_ = true;
        session_.desktop().hide(*this);
        endContinuousUpdate();
        EditClosed();
    }));
}

void frmChannelEdit::cmdCancel_Click() {
    if (!session_.activities().mayBegin(Activity::Cancelling)) {
        return;
    }
    cancelled_ = true;
    closing_ = true;
    session_.desktop().hide(*this);
    endContinuousUpdate();
    EditClosed();
}

void frmChannelEdit::Form_CloseBox() {
    closing_ = true;
    endContinuousUpdate();
}

void frmChannelEdit::close() {
    closing_ = true;
    endContinuousUpdate();
    session_.desktop().hide(*this);
}

void frmChannelEdit::cmdAdvanced_Click() { OpenLoginWithChannelEdit(); }

bool frmChannelEdit::apply() {
    return storeEdits([] {});
}

// Answers whether every field was accepted.
bool frmChannelEdit::storeEdits(const std::function<void()>& whenStored) {
    auto& activities = session_.activities();
    if (!loaded_ || activities.refusalOf(Activity::Storing) == session::Refusal::Ignored ||
        (changesRefused_ && changesRefused_())) {
        return false;
    }
    bool stored = false;
    {
        const session::UnderWay storing(activities, Activity::Storing);
        const BusyForm busy(session_.desktop(), *this);
        stored = storeChannel();
        if (stored) {
            whenStored();
        }
        showStored(stored);
    }
    if (!activities.underWay(Activity::AskingToLeave)) {
        refreshIfAsked(stored);
    }
    return stored;
}

// What was put off while the form stored: a refresh that somebody wished, and the loading of a store that came
// meanwhile. Entries that were refused go only when the user lets them.
void frmChannelEdit::refreshIfAsked(bool mayDiscard) {
    const bool open = session_.desktop().isOpen(*this);
    const bool asked = std::exchange(refreshAsked_, false) && (open || !closing_);
    if (loaded_ ? asked && (mayDiscard || mayLeaveChannel()) : session_.presentStore() && (asked || open)) {
        refresh();
    }
}

bool frmChannelEdit::storeChannel() {
    const auto channel = edited();
    const ChannelTicket stillEdited(session_.presentStore(), channel_);
    DataChanged();
    mnuPopUpMenuUndo.setEnabled(false);
    mnuPopUpMenuRedo.setEnabled(false);
    ChannelStoring storing(*this, session_, channel, stillEdited,
                           {.alsoTo = channelsToCopyTo(),
                            .potentiometersOnly = potentiometersOnly_ != nullptr && potentiometersOnly_->value()});
    const bool stored = storing.StoreControlsToMemory();
    copiedChannels_ = storing.copiedTo();
    notes_.replace(storing.notes());
    showHint(Speak::Yes);
    if (stored) {
        loadedEntries_ = entries();
    }
    std::int16_t intRowNo = channel.number;
    NeedToUpdateFlexGrid(intRowNo);
    return stored;
}

// What the store holds now: codes are padded, numbers are rounded, the local oscillator follows the frequency. A text
// that did not get there stays for the user to mend, and counts as an edit that was not applied.
void frmChannelEdit::showStored(bool stored) {
    if (!loaded_ || closing_) {
        return;
    }
    const FitHeld held(*this);
    const KeptTexts kept(notes_.all());
    auto channel = edited();
    // The row may not have been rendered since.
    channel.gridShowsStore = false;
    base::skip([&] { loadControls(*this, levels_, rules_, channel); });
    if (stored) {
        loadedEntries_ = entries();
    }
}

// -- fields ----------------------------------------------------------------------------------------------------------

void frmChannelEdit::txtTxFrequency_KeyPress(ui::KeyPressEvent& event) { enterMovesToOk(event); }
void frmChannelEdit::txtRxFrequency_KeyPress(ui::KeyPressEvent& event) { enterMovesToOk(event); }
void frmChannelEdit::txtTxFrequency_LostFocus() { leaveFrequency(txtTxFrequency, true); }
void frmChannelEdit::txtRxFrequency_LostFocus() { leaveFrequency(txtRxFrequency, false); }
void frmChannelEdit::cmbTxSubtone_LostFocus() { markUnlessTone(cmbTxSubtone, false); }
void frmChannelEdit::cmbRxSubtone_LostFocus() { markUnlessTone(cmbRxSubtone, true); }

void frmChannelEdit::number_LostFocus(ui::TextBox& box) {
    const auto number = base::readSingle(box.text(), session_.format());
    number ? accept(box) : note(box, whyNoNumber(box.text(), number.error()));
}

// By then the box has a level again, its slider's where the text was none.
void frmChannelEdit::level_LostFocus(ui::TextBox& box) { accept(box); }

void frmChannelEdit::field_GotFocus(ui::TextBox& box) { box.selectAll(); }

void frmChannelEdit::mark_GotFocus(ui::Widget& field) {
    field.setForeColor(ui::black);
    focusedField_ = &field;
    showHint(notes_.has(field) ? Speak::Yes : Speak::No);
}

void frmChannelEdit::mark_LostFocus() { focusedField_ = nullptr; }

// A text that is passed over in silence: red, and named at the foot of the form.
void frmChannelEdit::note(ui::Widget& field, NoteKind kind) {
    field.setForeColor(ui::red);
    notes_.add({.field = &field, .kind = kind});
    showHint(Speak::Yes);
}

void frmChannelEdit::accept(const ui::Widget& field) {
    notes_.remove(field);
    showHint(Speak::No);
}

void frmChannelEdit::showHint(Speak speak) {
    const auto sentence = notes_.sentence(focusedField_, [this](const ui::Widget& f) { return levelShowing(f); });
    // What the user typed has no access keys.
    const auto caption = base::replacedAll(sentence, "&", "&&");
    if (speak == Speak::Yes && !caption.empty()) {
        lblHint.announce(caption);
    } else {
        lblHint.setCaption(caption);
    }
}

void frmChannelEdit::enterMovesToOk(ui::KeyPressEvent& event) {
    if (event.code == ui::key::enter) {
        event.code = 0;
        cmdOk.setFocus();
    }
}

void frmChannelEdit::leaveFrequency(ui::TextBox& box, bool transmit) {
    const auto megahertz = base::readDouble(box.text(), session_.format());
    if (!megahertz) {
        note(box, whyNoNumber(box.text(), megahertz.error()));
        return;
    }
    accept(box);
    if (*megahertz != 0.0) {
        box.setText(base::fixedText(*megahertz, 6, 7, session_.format()));
        propose(transmit, *megahertz * hertzPerMegahertz);
    }
}

// A fault on the way to a proposal changes nothing and is not told.
void frmChannelEdit::propose(bool transmit, double hertz) {
    ui::TextBox& step = transmit ? txtTxSynthStepSize : txtRxSynthStepSize;
    ui::ComboBox& modulo = transmit ? cmbTxModulo : cmbRxModulo;
    base::skip([&] {
        const auto channel = edited();
        const auto reference = base::toInt32(
            channel.dataStore().get(transmit ? StoreMember::TxReferenceFrequency : StoreMember::RxReferenceFrequency));
        const auto proposal = synth::proposeSetting(base::roundTo<std::int32_t>(hertz), reference,
                                                    withPoint(step.text(), session_.format()));
        if (!proposal) {
            session_.inform(synth::noProposalText(transmit ? "TX" : "RX"));
            return;
        }
        // A lock mode may have taken both from the user.
        if (step.isUsable()) {
            step.setText(base::numberText(proposal->step / hertzPerKilohertz, session_.format()));
        }
        if (modulo.isUsable()) {
            modulo.setListIndex(proposal->modulo == 5 ? 0 : 1);
        }
    });
}

void frmChannelEdit::markUnlessTone(ui::ComboBox& list, bool multipleAllowed) {
    const auto text = base::trimmed(list.text());
    const bool word = base::equalIgnoringCase(text, disabledTone) ||
                      (multipleAllowed && base::equalIgnoringCase(text, multipleTones));
    const auto tone = base::readSingle(text, session_.format());
    word || tone ? accept(list) : note(list, whyNoTone(text, tone.error()));
}

// -- live update -----------------------------------------------------------------------------------------------------

void frmChannelEdit::ckContinuousUpdateEnabled_Click() {
    liveLevels_.begin();
    tmrUpdate.setEnabled(ckContinuousUpdateEnabled.checked());
}

void frmChannelEdit::endContinuousUpdate() noexcept {
    liveLevels_.begin();
    tmrUpdate.setEnabled(false);
    ckContinuousUpdateEnabled.loadValue(0);
}

// Whatever fails, the timer stops first: a message box lets it tick on. A form whose window went with the host's is not
// adjusted by anybody any more.
void frmChannelEdit::tmrUpdate_Timer() {
    if (!ckContinuousUpdateEnabled.checked()) {
        tmrUpdate.setEnabled(false);
        return;
    }
    if (!session_.desktop().isOpen(*this)) {
        endContinuousUpdate();
        return;
    }
    const auto levels = levels_.displayed(rules_.narrowLevels());
    if (!levels) {
        return;
    }
    const session::Ticket sameStore(session_.presentStore());
    const auto update = [&] {
        try {
            liveLevels_.update(*levels);
        } catch (const transfer::RadioSilence&) {
            endContinuousUpdate();
            if (sameStore.valid()) {
                session_.refuse("The radio does not answer. Continuous update has been switched off.");
            }
        } catch (...) {
            endContinuousUpdate();
            throw;
        }
    };
    session_.trap("tmrUpdate_Timer", update, sameStore);
}

// -- pop-up menu -----------------------------------------------------------------------------------------------------

void frmChannelEdit::mnuPopUpMenuCopy_Click() { raisePopUpMenuClick(0); }
void frmChannelEdit::mnuPopUpMenuPaste_Click() { raisePopUpMenuClick(1); }
void frmChannelEdit::mnuPopUpMenuDelete_Click() { raisePopUpMenuClick(2); }
void frmChannelEdit::mnuPopUpMenuUndo_Click() { raisePopUpMenuClick(3); }
void frmChannelEdit::mnuPopUpMenuRedo_Click() { raisePopUpMenuClick(4); }

// By value: a listener that writes the argument must not change the code of the next click.
void frmChannelEdit::raisePopUpMenuClick(std::int16_t code) { PopUpMenuClick(code); }

}  // namespace telvar::editform
