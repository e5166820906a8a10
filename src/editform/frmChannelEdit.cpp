#include "editform/frmChannelEdit.h"

namespace telvar::editform {

frmChannelEdit::frmChannelEdit() : Form("frmChannelEdit") {
    setCaption("Channel Edit");
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

void frmChannelEdit::UpdateAccess(std::int16_t intAccessLvl) { accessLevel_ = intAccessLvl; }

void frmChannelEdit::mnuPopUpMenuCopy_Click() { raisePopUpMenuClick(0); }
void frmChannelEdit::mnuPopUpMenuPaste_Click() { raisePopUpMenuClick(1); }
void frmChannelEdit::mnuPopUpMenuDelete_Click() { raisePopUpMenuClick(2); }
void frmChannelEdit::mnuPopUpMenuUndo_Click() { raisePopUpMenuClick(3); }
void frmChannelEdit::mnuPopUpMenuRedo_Click() { raisePopUpMenuClick(4); }

// By value: a listener that writes the argument must not change the code of the next click.
void frmChannelEdit::raisePopUpMenuClick(std::int16_t code) { PopUpMenuClick(code); }

}  // namespace telvar::editform
