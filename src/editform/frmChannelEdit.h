// The edit form of one channel: opening, loading and storing in their order, access, focus, the live update, and the
// pop-up menu of the grid's editing commands. It holds the links that the control gives it and tells the control by six
// events; no channel data stays here.
//
// In every event and every message box anything may happen: the control may be closed, which takes the store away, or
// another store or channel may be given. What is under way then ends quietly.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/event.h"
#include "base/number_text.h"
#include "editform/channel_edit_controls.h"
#include "editform/edited_channel.h"
#include "editform/field_notes.h"
#include "editform/levels.h"
#include "editform/mode_rules.h"
#include "model/data_store.h"
#include "model/radio_link.h"
#include "session/session.h"
#include "transfer/live_levels.h"
#include "ui/desktop.h"
#include "ui/grid.h"
#include "ui/menu.h"
#include "ui/timer.h"

namespace telvar::editform {

class frmChannelEdit : public ChannelEditControls {
public:
    // The form of a control. The control's desktop must outlive it.
    explicit frmChannelEdit(const session::Session& owner);
    // One of its own.
    frmChannelEdit(ui::Desktop& desktop, base::NumberFormat format);

    // Links, each given by the control. Null means that there is none. A new store or channel has to be shown by
    // refresh(); until then nothing can be stored.
    void setCentralDataStore(model::DataStorePointer store) noexcept;
    [[nodiscard]] const model::DataStorePointer& centralDataStore() const noexcept { return session_.presentStore(); }
    void setRadioComms(model::RadioLinkPointer link) noexcept;
    [[nodiscard]] const model::RadioLinkPointer& radioComms() const noexcept { return session_.presentLink(); }
    void setGrid(ui::Grid* grid) noexcept { grid_ = grid; }
    [[nodiscard]] ui::Grid* grid() const noexcept { return grid_; }
    // The channel that is edited, 1 to 255.
    void setChannel(std::int16_t channel) noexcept;
    [[nodiscard]] std::int16_t channel() const noexcept { return channel_; }
    // The channels whose shared settings are stored too: rows of the grid's selection, when they are two or more and
    // the edited channel is among them. Any other range selects none.
    void setSelectedChannels(std::int16_t first, std::int16_t last);
    // What the last storing copied settings to; their rows have to be rendered again.
    [[nodiscard]] const std::vector<std::int16_t>& copiedChannels() const noexcept { return copiedChannels_; }

    // Whether changes are refused now; whoever answers also tells the user. Asked at the entry of Apply and OK.
    void setChangesRefused(std::function<bool()> refused) { changesRefused_ = std::move(refused); }
    // While it is set, only the levels are meant to be changed. Null for none; must outlive the form's use.
    void setPotentiometersOnly(const ui::OptionButton* indication) noexcept { potentiometersOnly_ = indication; }

    // Where the focus is to be when the form opens: leaving it changes nothing.
    [[nodiscard]] ui::Widget& firstField() noexcept { return txtEditChannel; }

    // The user's access level; 0 before the first call. Never fails: a store that does not answer has no P25 board.
    void UpdateAccess(std::int16_t intAccessLvl);
    [[nodiscard]] std::int16_t accessLevel() const noexcept { return accessLevel_; }

    // 0 nothing, 1 the levels and the synthesizer, 2 everything but the levels.
    [[nodiscard]] std::int32_t LockDataMode() const noexcept { return lockDataMode_; }
    void setLockDataMode(std::int32_t mode);

    // Shows the channel as the store has it now: access, number, values, channel spacing; ends the live update. Traps
    // its failures and tells them; a channel that could not be loaded cannot be stored. While the form stores it waits
    // until that has ended.
    void refresh();
    // The store's table may be another one by now; a question that is open finds out. The grid shows the present store.
    void noteTableReadAnew() noexcept {
        reading_.happen();
        gridShowsStore_ = true;
    }
    // Asks about edits that were not applied, if there are any, and applies or discards them. Answers False where the
    // user, or a refused field, wants the channel to stay. `news` comes before the question.
    [[nodiscard]] bool mayLeaveChannel(const std::string& news = {});
    // Before the present store is exchanged: the user may apply edits to it.
    void offerToApply();
    [[nodiscard]] bool hasUnappliedEdits() const { return loaded_ && entries() != loadedEntries_; }

    // Hides the form for its owner: nothing is stored, nothing is raised.
    void close();
    // By OK, Cancel or the close box since the last refresh; by Cancel.
    [[nodiscard]] bool closing() const noexcept { return closing_; }
    [[nodiscard]] bool cancelled() const noexcept { return cancelled_; }

    ui::Timer tmrUpdate;

    // The grid's editing commands; their position is the code that PopUpMenuClick carries. Undo and Redo start
    // disabled.
    ui::Menu mnuPopUpMenu{"mnuPopUpMenu"};
    ui::MenuItem mnuPopUpMenuCopy{"mnuPopUpMenuCopy", "Copy"};
    ui::MenuItem mnuPopUpMenuPaste{"mnuPopUpMenuPaste", "Paste"};
    ui::MenuItem mnuPopUpMenuDelete{"mnuPopUpMenuDelete", "Delete"};
    ui::MenuItem mnuPopUpMenuUndo{"mnuPopUpMenuUndo", "Undo"};
    ui::MenuItem mnuPopUpMenuRedo{"mnuPopUpMenuRedo", "Redo"};

    base::Event<> DataChanged;
    base::Event<> EditClosed;
    base::Event<> OpenLoginWithChannelEdit;
    base::Event<> PauseDiagnosticsIfRunning;
    base::Event<std::int16_t&> PopUpMenuClick;
    base::Event<std::int16_t&> NeedToUpdateFlexGrid;

private:
    void mnuPopUpMenuCopy_Click();
    void mnuPopUpMenuPaste_Click();
    void mnuPopUpMenuDelete_Click();
    void mnuPopUpMenuUndo_Click();
    void mnuPopUpMenuRedo_Click();
    void raisePopUpMenuClick(std::int16_t code);

    void cmdApply_Click();
    void cmdOk_Click();
    void cmdCancel_Click();
    void cmdAdvanced_Click();
    void Form_CloseBox();
    void txtTxFrequency_KeyPress(ui::KeyPressEvent& event);
    void txtRxFrequency_KeyPress(ui::KeyPressEvent& event);
    void txtTxFrequency_LostFocus();
    void txtRxFrequency_LostFocus();
    void cmbTxSubtone_LostFocus();
    void cmbRxSubtone_LostFocus();
    void number_LostFocus(ui::TextBox& box);
    void field_GotFocus(ui::TextBox& box);
    void mark_GotFocus(ui::Widget& field);
    void mark_LostFocus();
    void level_LostFocus(ui::TextBox& box);
    void ckContinuousUpdateEnabled_Click();
    void tmrUpdate_Timer();
    void rules_NarrowBandChosen();
    void rules_LayoutChanged();

    void wire();
    void wireFocus();
    void wireMenu();

    [[nodiscard]] bool SetUpLists();
    [[nodiscard]] bool LoadControlsFromMemory();
    void ShowChannelSpacing();
    template <class Body>
    bool reads(std::string_view routine, Body&& body);
    void endContinuousUpdate() noexcept;
    void showAccess();
    void showLocks();
    void setLoaded(bool loaded) noexcept;

    [[nodiscard]] bool apply();
    [[nodiscard]] bool storeEdits(const std::function<void()>& whenStored);
    [[nodiscard]] bool storeChannel();
    void showStored(bool stored);
    [[nodiscard]] bool asksToLeave(const std::string& news);
    void refreshIfAsked(bool mayDiscard);
    void enterMovesToOk(ui::KeyPressEvent& event);
    void leaveFrequency(ui::TextBox& box, bool transmit);
    void propose(bool transmit, double hertz);
    void markUnlessTone(ui::ComboBox& list, bool multipleAllowed);
    void note(ui::Widget& field, NoteKind kind);
    void accept(const ui::Widget& field);
    enum class Speak : std::uint8_t { No, Yes };
    void showHint(Speak speak);
    [[nodiscard]] int levelShowing(const ui::Widget& field) const;
    void showSelectedChannels();

    [[nodiscard]] EditedChannel edited() const {
        return {channel_, session_.presentStore(), grid_, session_.format(), gridShowsStore_};
    }
    [[nodiscard]] std::vector<std::int16_t> channelsToCopyTo() const;

    session::Session session_;
    Levels levels_;
    ModeRules rules_;
    transfer::LiveLevels liveLevels_;
    ui::Grid* grid_ = nullptr;
    const ui::OptionButton* potentiometersOnly_ = nullptr;
    std::function<bool()> changesRefused_;
    std::vector<std::int16_t> copiedChannels_;
    std::vector<std::string> loadedEntries_;  // as last loaded or stored
    FieldNotes notes_;
    const ui::Widget* focusedField_ = nullptr;  // of those that can turn red
    std::int32_t lockDataMode_ = 0;
    std::int16_t channel_ = 1;
    session::Occurrence reading_;  // of the table
    session::Occurrence refresh_;
    std::int16_t firstSelected_ = 0;
    std::int16_t lastSelected_ = 0;
    std::int16_t accessLevel_ = 0;
    bool p25Board_ = false;
    bool gridShowsStore_ = false;  // its cells are not those of a former store
    bool listsFilled_ = false;
    bool loaded_ = false;        // the controls show the channel, so that they can be stored
    bool refreshAsked_ = false;  // while storing
    bool closing_ = false;
    bool cancelled_ = false;
};

}  // namespace telvar::editform
