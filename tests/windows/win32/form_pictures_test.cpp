#include "form_pictures.h"

#include "form_world.h"

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

}  // namespace
}  // namespace telvar::win32
