#include "editform/frmChannelEdit.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "base/conversion.h"
#include "base/skip.h"
#include "editform/channel_loading.h"
#include "editform/channel_spacing.h"
#include "editform/lists.h"
#include "model/mode_bits.h"

namespace telvar::editform {

using model::StoreMember;
using session::Activity;

namespace {

constexpr auto updateInterval = std::chrono::milliseconds(250);
constexpr std::int16_t fullAccess = 5;
constexpr std::int16_t p25Access = 3;
constexpr std::int32_t configurationWithP25 = 7;  // permits P25 modes without a board

[[nodiscard]] std::string applyQuestion(std::int16_t channel) {
    return "Channel " + std::to_string(channel) + " has changes that have not been applied. Apply them now?";
}

enum LockMode : std::int32_t { levelsLocked = 1, settingsLocked = 2 };

}  // namespace

frmChannelEdit::frmChannelEdit(ui::Desktop& desktop, base::NumberFormat format)
    : frmChannelEdit(session::Session(desktop, format)) {}

frmChannelEdit::frmChannelEdit(const session::Session& owner)
    : ChannelEditControls(owner.desktop()),
      tmrUpdate(owner.desktop()),
      session_(owner.branch()),
      levels_(*this, owner.format()),
      rules_(*this, levels_),
      liveLevels_(session_, PauseDiagnosticsIfRunning, tmrUpdate) {
    fillFixedLists(*this);
    tmrUpdate.setEnabled(false);
    tmrUpdate.setInterval(updateInterval);
    wireMenu();
    wire();
    wireFocus();
    setLoaded(false);
    showAccess();
}

void frmChannelEdit::wireMenu() {
    for (auto* item :
         {&mnuPopUpMenuCopy, &mnuPopUpMenuPaste, &mnuPopUpMenuDelete, &mnuPopUpMenuUndo, &mnuPopUpMenuRedo}) {
        mnuPopUpMenu.add(*item);
    }
    mnuPopUpMenuUndo.setEnabled(false);
    mnuPopUpMenuRedo.setEnabled(false);
    ui::on(mnuPopUpMenuCopy.Click, this, &frmChannelEdit::mnuPopUpMenuCopy_Click);
    ui::on(mnuPopUpMenuPaste.Click, this, &frmChannelEdit::mnuPopUpMenuPaste_Click);
    ui::on(mnuPopUpMenuDelete.Click, this, &frmChannelEdit::mnuPopUpMenuDelete_Click);
    ui::on(mnuPopUpMenuUndo.Click, this, &frmChannelEdit::mnuPopUpMenuUndo_Click);
    ui::on(mnuPopUpMenuRedo.Click, this, &frmChannelEdit::mnuPopUpMenuRedo_Click);
}

void frmChannelEdit::wire() {
    ui::on(CloseBox, this, &frmChannelEdit::Form_CloseBox);
    ui::on(txtTxFrequency.KeyPress, this, &frmChannelEdit::txtTxFrequency_KeyPress);
    ui::on(txtRxFrequency.KeyPress, this, &frmChannelEdit::txtRxFrequency_KeyPress);
    ui::on(ckContinuousUpdateEnabled.Click, this, &frmChannelEdit::ckContinuousUpdateEnabled_Click);
    ui::on(cmdAdvanced.Click, this, &frmChannelEdit::cmdAdvanced_Click);
    ui::on(cmdOk.Click, this, &frmChannelEdit::cmdOk_Click);
    ui::on(cmdCancel.Click, this, &frmChannelEdit::cmdCancel_Click);
    ui::on(cmdApply.Click, this, &frmChannelEdit::cmdApply_Click);
    ui::on(tmrUpdate.Tick, this, &frmChannelEdit::tmrUpdate_Timer);
    ui::on(rules_.NarrowBandChosen, this, &frmChannelEdit::rules_NarrowBandChosen);
    ui::on(rules_.LayoutChanged, this, &frmChannelEdit::rules_LayoutChanged);
}

void frmChannelEdit::wireFocus() {
    for (ui::TextBox* const box :
         {&txtEditChannel, &txtTxFrequency, &txtRxFrequency, &txtTxSubtoneLevel, &txtTxSynthStepSize,
          &txtRxSynthStepSize, &txtTxAccelIntegral, &txtRxAccelIntegral, &txtTxBinaryMain, &txtRxBinaryMain}) {
        box->GotFocus.connect([this, box] { field_GotFocus(*box); });
    }
    for (ui::Widget* const field : markableFields()) {
        field->GotFocus.connect([this, field] { mark_GotFocus(*field); });
        field->FocusReturned.connect([this, field] { mark_GotFocus(*field); });
        ui::on(field->LostFocus, this, &frmChannelEdit::mark_LostFocus);
    }
    ui::on(txtTxFrequency.LostFocus, this, &frmChannelEdit::txtTxFrequency_LostFocus);
    ui::on(txtRxFrequency.LostFocus, this, &frmChannelEdit::txtRxFrequency_LostFocus);
    ui::on(cmbTxSubtone.LostFocus, this, &frmChannelEdit::cmbTxSubtone_LostFocus);
    ui::on(cmbRxSubtone.LostFocus, this, &frmChannelEdit::cmbRxSubtone_LostFocus);
    for (ui::TextBox* const box : {&txtTxSubtoneLevel, &txtTxSynthStepSize, &txtRxSynthStepSize, &txtTxAccelIntegral,
                                   &txtRxAccelIntegral, &txtTxBinaryMain, &txtRxBinaryMain}) {
        box->LostFocus.connect([this, box] { number_LostFocus(*box); });
    }
    for (ui::TextBox* const box : {&txtTransmitPower, &txtRefOscFreq, &txtNBRefOscFreq, &txtVcoDeviation,
                                   &txtNBVcoDeviation, &txtRefOscDev, &txtNBRefOscDev}) {
        box->LostFocus.connect([this, box] { level_LostFocus(*box); });
    }
}

// -- links -----------------------------------------------------------------------------------------------------------

void frmChannelEdit::setCentralDataStore(model::DataStorePointer store) noexcept {
    if (store != session_.presentStore()) {
        setLoaded(false);
        endContinuousUpdate();
        gridShowsStore_ = false;
    }
    session_.setStore(std::move(store));
}

void frmChannelEdit::setRadioComms(model::RadioLinkPointer link) noexcept {
    if (link != session_.presentLink()) {
        liveLevels_.begin();
    }
    session_.setLink(std::move(link));
}

void frmChannelEdit::setChannel(std::int16_t channel) noexcept {
    if (std::exchange(channel_, channel) != channel) {
        setLoaded(false);
    }
}

void frmChannelEdit::setSelectedChannels(std::int16_t first, std::int16_t last) {
    const bool selects =
        first >= 1 && first < last && last <= model::channelCount && channel_ >= first && channel_ <= last;
    firstSelected_ = selects ? first : std::int16_t{0};
    lastSelected_ = selects ? last : std::int16_t{0};
    showSelectedChannels();
}

std::vector<std::int16_t> frmChannelEdit::channelsToCopyTo() const {
    std::vector<std::int16_t> channels;
    for (auto channel = firstSelected_; channel >= 1 && channel <= lastSelected_; ++channel) {
        if (channel != channel_) {
            channels.push_back(channel);
        }
    }
    return channels;
}

void frmChannelEdit::showSelectedChannels() {
    lblSelectedChannels.setCaption("Also applies to channels " + std::to_string(firstSelected_) + " to " +
                                   std::to_string(lastSelected_));
    lblSelectedChannels.setVisible(firstSelected_ != 0);
    fit();
}

// -- access ----------------------------------------------------------------------------------------------------------

void frmChannelEdit::UpdateAccess(std::int16_t intAccessLvl) {
    accessLevel_ = intAccessLvl;
    showAccess();
}

void frmChannelEdit::showAccess() {
    const bool full = accessLevel_ >= fullAccess;
    bool p25Modes = false;
    p25Board_ = false;
    base::skip([&] {
        if (const auto store = session_.presentStore()) {
            p25Board_ = base::isTrue(store->get(StoreMember::P25BoardFitted));
            p25Modes =
                p25Board_ || base::toInt32(store->get(StoreMember::RadioConfigurationCode)) == configurationWithP25;
        }
    });
    frSynthesizer.setVisible(full);
    frDigitalPotentiometer.setVisible(full);
    frP25ChannelSettings.setVisible(full || (p25Board_ && accessLevel_ >= p25Access));
    for (const auto mode : {RfMode::P25Repeater, RfMode::MixedRepeater}) {
        optRFMode[static_cast<std::size_t>(mode)].setEnabled(p25Modes);
    }
    chkP25RepeaterEnable.setEnabled(p25Modes);
    ckContinuousUpdateEnabled.setEnabled(full);
    if (!full) {
        endContinuousUpdate();
    }
    showHint(Speak::No);
    fit();
}

// The lowest level at which the frame of a field is shown.
int frmChannelEdit::levelShowing(const ui::Widget& field) const {
    return field.frame() == &frP25ChannelSettings && p25Board_ ? p25Access : fullAccess;
}

void frmChannelEdit::setLockDataMode(std::int32_t mode) {
    lockDataMode_ = mode;
    showLocks();
}

void frmChannelEdit::showLocks() {
    const bool levels = lockDataMode_ == levelsLocked;
    const bool settings = lockDataMode_ == settingsLocked;
    frDigitalPotentiometer.setEnabled(!levels);
    frSynthesizer.setEnabled(!levels && !settings);
    for (ui::Frame* const frame :
         {&frChannelSpacing, &frFreqencySettings, &frTxSubtone, &frRxSubtone, &frRfMode, &frP25ChannelSettings}) {
        frame->setEnabled(!settings);
    }
    if (levels) {
        endContinuousUpdate();
    }
}

// -- showing a channel -----------------------------------------------------------------------------------------------

void frmChannelEdit::refresh() {
    if (!session_.activities().mayBegin(Activity::Reloading)) {
        refreshAsked_ = true;
        return;
    }
    const FitHeld held(*this);
    // A failure's box lets the timer tick on, over values of two channels.
    tmrUpdate.setEnabled(false);
    refresh_.happen();
    const session::Ticket newest(refresh_);
    refreshAsked_ = false;
    closing_ = false;
    cancelled_ = false;
    setLoaded(false);
    UpdateAccess(accessLevel_);
    txtEditChannel.loadText(std::to_string(channel_));
    const bool loaded = SetUpLists() && LoadControlsFromMemory();
    if (loaded) {
        ShowChannelSpacing();
    }
    if (!newest.valid()) {
        // Another one ran inside a failure's box, and has the last word.
        return;
    }
    endContinuousUpdate();
    ckContinuousUpdateEnabled.setEnabled(accessLevel_ >= fullAccess);
    setLoaded(loaded);
    fit();
}

// What could not be read of a store that was taken away or exchanged meanwhile is not told.
template <class Body>
bool frmChannelEdit::reads(std::string_view routine, Body&& body) {
    return session_.trap(routine, body, session::Ticket(session_.presentStore()));
}

// Once; the tones wait for the first store.
bool frmChannelEdit::SetUpLists() {
    if (listsFilled_) {
        return true;
    }
    return reads("SetUpLists", [&] {
        const auto channel = edited();
        fillToneLists(*this, channel.dataStore(), session_.format());
        listsFilled_ = true;
    });
}

bool frmChannelEdit::LoadControlsFromMemory() {
    return reads("LoadControlsFromMemory", [&] {
        clearMarks();
        notes_.clear();
        showHint(Speak::No);
        loadControls(*this, levels_, rules_, edited());
    });
}

void frmChannelEdit::ShowChannelSpacing() {
    reads("ShowChannelSpacing", [&] {
        const auto channel = edited();
        auto& store = channel.dataStore();
        frChannelSpacing.setCaption(channelSpacingCaption(
            {.spacing = base::toInt32(store.get(StoreMember::ChannelSpacing)),
             .bandwidthSwitchable = base::isTrue(store.get(StoreMember::BandwidthSwitchable)),
             .narrowBandOnly = base::isTrue(store.get(StoreMember::FCCNarrowBandRadio)),
             .channelIsNarrow =
                 (base::toBits(channel.record().get(model::ChannelKey::ModeBits)) & model::mode::narrowBand) != 0},
            session_.format()));
    });
}

// A channel that is not shown as the store has it must not be stored: the controls may hold another one's values.
void frmChannelEdit::setLoaded(bool loaded) noexcept {
    loaded_ = loaded;
    loadedEntries_ = loaded ? entries() : std::vector<std::string>();
    cmdApply.setEnabled(loaded);
    cmdOk.setEnabled(loaded);
}

bool frmChannelEdit::mayLeaveChannel(const std::string& news) {
    if (!session_.activities().mayBegin(Activity::AskingToLeave)) {
        return false;
    }
    if (!hasUnappliedEdits()) {
        return true;
    }
    const bool leaves = asksToLeave(news);
    if (!loaded_ && session_.presentStore() && session_.desktop().isOpen(*this)) {
        refresh();
    }
    return leaves;
}

bool frmChannelEdit::asksToLeave(const std::string& news) {
    const session::UnderWay asking(session_.activities(), Activity::AskingToLeave);
    const session::Ticket sameTable(session_.presentStore(), channel_, reading_);
    if (session_.confirmed(news + applyQuestion(channel_))) {
        return sameTable.valid() && apply();
    }
    return sameTable.valid() &&
           session_.confirmed("Discard the changes to channel " + std::to_string(channel_) + "?") && sameTable.valid();
}

void frmChannelEdit::offerToApply() {
    auto& activities = session_.activities();
    if (!activities.mayBegin(Activity::AskingToLeave) || !hasUnappliedEdits()) {
        return;
    }
    const session::UnderWay asking(activities, Activity::AskingToLeave);
    const ChannelTicket sameChannel(session_.presentStore(), channel_);
    if (session_.confirmed(applyQuestion(channel_)) && sameChannel.valid()) {
        static_cast<void>(apply());
    }
}

void frmChannelEdit::rules_NarrowBandChosen() { showAccess(); }

void frmChannelEdit::rules_LayoutChanged() { fit(); }

}  // namespace telvar::editform
