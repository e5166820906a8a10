#include "editing/frmMsgBox.h"

#include <initializer_list>

namespace telvar::editing {

namespace {

// In digits of the font.
constexpr int questionWidth = 60;

}  // namespace

frmMsgBox::frmMsgBox(ui::Desktop& desktop) : Form("frmMsgBox"), desktop_(desktop) {
    setCaption("Form1");
    lblMsg.setCaption("Would you?");
    lblMsg.setWrapWidth(questionWidth);
    chkDoNotAskAgain.setCaption("&Do not show this message again until program is restarted");
    cmdYes.setCaption("&Yes");
    cmdNo.setCaption("&No");
    cmdYes.setDefault(true);
    for (ui::Widget* child : std::initializer_list<ui::Widget*>{&lblMsg, &cmdYes, &cmdNo, &chkDoNotAskAgain}) {
        add(*child);
    }
    setLayout(desktop_, ui::withMargin(ui::column(
                            {ui::widget(lblMsg), ui::buttonRow({&cmdYes, &cmdNo}), ui::widget(chkDoNotAskAgain)},
                            ui::Distance::Usual)));
    ui::on(Load, this, &frmMsgBox::Form_Load);
    ui::on(cmdYes.Click, this, &frmMsgBox::cmdYes_Click);
    ui::on(cmdNo.Click, this, &frmMsgBox::cmdNo_Click);
}

void frmMsgBox::InitControls(const std::string& strMsg) { lblMsg.setCaption(strMsg); }

// In the middle of the screen, not of the owner's window.
void frmMsgBox::Form_Load() {
    const ui::Size screen = desktop_.screenSize();
    const int left = (screen.width - bounds().width()) / 2;
    const int top = (screen.height - bounds().height()) / 2;
    setBounds({left, top, left + bounds().width(), top + bounds().height()});
}

void frmMsgBox::cmdYes_Click() { unload(true); }

void frmMsgBox::cmdNo_Click() { unload(false); }

void frmMsgBox::unload(bool yesClicked) {
    Unloaded(yesClicked, chkDoNotAskAgain.checked());
    desktop_.hide(*this);
}

}  // namespace telvar::editing
