// The question that the user may switch off for the rest of the run: shows frmMsgBox, remembers the answer and the wish
// not to be asked again, for as long as the control lives.
#pragma once

#include <cstdint>
#include <string>

#include "editing/frmMsgBox.h"
#include "ui/desktop.h"

namespace telvar::control {

class Confirmation {
public:
    explicit Confirmation(ui::Desktop& desktop) noexcept : desktop_(desktop) {}

    // Whether the user agrees. Not asked once the user has switched the question off: the remembered answer counts
    // then. The close box means No for this time and changes nothing that is remembered, and so does a question inside
    // a question. Anything may happen while it is shown. Fails (base::Failure) where it cannot be shown.
    [[nodiscard]] bool ask(const std::string& question, const std::string& title);

    // Takes the question away unanswered.
    void close();

    // Of the last answered question: 0 none yet, 6 yes, 7 no.
    [[nodiscard]] std::int16_t answer() const noexcept { return answer_; }
    [[nodiscard]] bool ignoreWarning() const noexcept { return ignoreWarning_; }

private:
    void frmMsgBox_Unloaded(bool blnYesClicked, bool blnIgnoreWarning);

    ui::Desktop& desktop_;
    editing::frmMsgBox* form_ = nullptr;  // while it is shown
    std::int16_t answer_ = 0;
    bool ignoreWarning_ = false;
    bool agreed_ = false;  // to the question that is shown
};

}  // namespace telvar::control
