#include "control/confirmation.h"

#include "base/pinned.h"

namespace telvar::control {

namespace {

// Codes of the platform's message boxes.
constexpr auto answeredYes = static_cast<std::int16_t>(ui::Answer::Yes);
constexpr auto answeredNo = static_cast<std::int16_t>(ui::Answer::No);

// Notes where the form is for as long as it is shown.
class Shown : base::Pinned {
public:
    Shown(editing::frmMsgBox*& place, editing::frmMsgBox& form) noexcept : place_(place) { place_ = &form; }
    ~Shown() { place_ = nullptr; }

private:
    editing::frmMsgBox*& place_;
};

}  // namespace

bool Confirmation::ask(const std::string& question, const std::string& title) {
    if (ignoreWarning_) {
        return answer_ == answeredYes;
    }
    if (form_ != nullptr) {
        return false;
    }
    editing::frmMsgBox form(desktop_);
    form.setCaption(title);
    form.InitControls(question);
    ui::on(form.Unloaded, this, &Confirmation::frmMsgBox_Unloaded);
    agreed_ = false;
    const Shown shown(form_, form);
    desktop_.showModal(form);
    return agreed_;
}

void Confirmation::close() {
    if (form_ != nullptr) {
        desktop_.hide(*form_);
    }
}

void Confirmation::frmMsgBox_Unloaded(bool blnYesClicked, bool blnIgnoreWarning) {
    agreed_ = blnYesClicked;
    answer_ = blnYesClicked ? answeredYes : answeredNo;
    ignoreWarning_ = blnIgnoreWarning;
}

}  // namespace telvar::control
