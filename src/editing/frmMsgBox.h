// The yes/no question that can be switched off for the rest of the run. It reports the answer by its event; its window
// is not built, and nothing shows it.
#pragma once

#include "base/event.h"
#include "ui/form.h"

namespace telvar::editing {

class frmMsgBox : public ui::Form {
public:
    frmMsgBox() : Form("frmMsgBox") { setCaption("Form1"); }

    // Raised just before the form closes by one of its buttons: whether that was Yes, and whether the user asked not to
    // be asked again.
    base::Event<bool, bool> Unloaded;
};

}  // namespace telvar::editing
