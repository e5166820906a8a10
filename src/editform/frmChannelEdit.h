// The edit form of one channel. It owns the pop-up menu of the grid's editing commands, holds the links that the
// control gives it, and tells the control by six events. It stores nothing itself yet and has no fields; nothing shows
// it.
#pragma once

#include <cstdint>

#include "base/event.h"
#include "model/data_store.h"
#include "model/radio_link.h"
#include "ui/form.h"
#include "ui/grid.h"
#include "ui/menu.h"

namespace telvar::editform {

class frmChannelEdit : public ui::Form {
public:
    frmChannelEdit();

    // Links, each given by the control. Null means that there is none.
    void setCentralDataStore(model::DataStorePointer store) noexcept { store_ = std::move(store); }
    [[nodiscard]] const model::DataStorePointer& centralDataStore() const noexcept { return store_; }
    void setRadioComms(model::RadioLinkPointer link) noexcept { link_ = std::move(link); }
    [[nodiscard]] const model::RadioLinkPointer& radioComms() const noexcept { return link_; }
    void setGrid(ui::Grid* grid) noexcept { grid_ = grid; }
    [[nodiscard]] ui::Grid* grid() const noexcept { return grid_; }
    // The channel that is edited, 1 to 255.
    void setChannel(std::int16_t channel) noexcept { channel_ = channel; }
    [[nodiscard]] std::int16_t channel() const noexcept { return channel_; }

    // The user's access level; 0 before the first call.
    void UpdateAccess(std::int16_t intAccessLvl);
    [[nodiscard]] std::int16_t accessLevel() const noexcept { return accessLevel_; }

    // 0 nothing, 1 the levels and the synthesizer, 2 everything but the levels.
    [[nodiscard]] std::int32_t LockDataMode() const noexcept { return lockDataMode_; }
    void setLockDataMode(std::int32_t mode) noexcept { lockDataMode_ = mode; }

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

    model::DataStorePointer store_;
    model::RadioLinkPointer link_;
    ui::Grid* grid_ = nullptr;
    std::int16_t channel_ = 1;
    std::int16_t accessLevel_ = 0;
    std::int32_t lockDataMode_ = 0;
};

}  // namespace telvar::editform
