#include "form_pictures.h"

#include "editing/frmFill.h"
#include "editing/frmMsgBox.h"
#include "form_world.h"
#include "ui/menu.h"

namespace telvar::win32 {
namespace {

class FormPictures : public FormWorld {};

TEST_F(FormPictures, EveryKindOfWidgetIsReadable) {
    widgets.name.loadText("Selected text");
    widgets.locked.loadValue(2);
    widgets.list.loadListIndex(0);
    widgets.tones.loadText("67.0");
    widgets.level.loadValue(-64);
    widgets.narrow.setEnabled(false);
    expectReadable(desktop, widgets.form, "frmEverything");
}

TEST_F(FormPictures, TheFillDialogIsReadable) {
    ui::Grid grid("fgdDatabase", 256, 27);
    session::Session session(desktop, {});
    editing::GridRows rows(session, grid);
    ui::MenuItem undo{"mnuUndo", "&Undo"};
    ui::MenuItem redo{"mnuRedo", "&Redo"};
    editing::UndoHistory history(rows, undo, redo);
    editing::frmFill fill(rows, history);
    fill.offerSeries();
    expectReadable(desktop, fill, "frmFill-series");
    fill.offerFillDown();
    expectReadable(desktop, fill, "frmFill-down");
}

TEST_F(FormPictures, TheMessageBoxIsReadable) {
    editing::frmMsgBox box(desktop);
    box.setCaption("Channels");
    box.InitControls("Changes will also be copied to the other selected channels. Would you like to proceed?");
    expectReadable(desktop, box, "frmMsgBox");
}

}  // namespace
}  // namespace telvar::win32
