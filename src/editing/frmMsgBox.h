// A yes/no question that the user may switch off for the rest of the run. Made for one question; it reports the answer
// by its event and remembers nothing.
#pragma once

#include <string>

#include "base/event.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/desktop.h"
#include "ui/form.h"
#include "ui/label.h"

namespace telvar::editing {

class frmMsgBox : public ui::Form {
public:
    // The desktop must outlive the form. Who asks gives it the title of its boxes before it is shown.
    explicit frmMsgBox(ui::Desktop& desktop);

    // The question; before the form is shown.
    void InitControls(const std::string& strMsg);

    // Raised just before the form closes by one of its buttons, and not by its close box: whether that was Yes, and
    // whether the user asked not to be asked again.
    base::Event<bool, bool> Unloaded;

    ui::Label lblMsg{"lblMsg"};
    ui::CheckBox chkDoNotAskAgain{"chkDoNotAskAgain"};
    ui::Button cmdYes{"cmdYes"};
    ui::Button cmdNo{"cmdNo"};

private:
    void Form_Load();
    void cmdYes_Click();
    void cmdNo_Click();

    void unload(bool yesClicked);

    ui::Desktop& desktop_;
};

}  // namespace telvar::editing
