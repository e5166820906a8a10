// The world of one control whose edit form is opened and used: twelve channels in service, and what the user does.
#pragma once

#include <algorithm>
#include <string>

#include "control_world.h"
#include "ui/option_button.h"

namespace telvar::tests {

inline const std::string copyQuestion =
    "Changes will also be copied to the other selected channels. Would you like to proceed?";

[[nodiscard]] inline ui::MessageBox question(const std::string& text) {
    return {.text = text, .title = "Bench 3", .icon = ui::Icon::Exclamation, .buttons = ui::Buttons::YesNo};
}
[[nodiscard]] inline ui::MessageBox applyQuestion(int channel) {
    return question("Channel " + std::to_string(channel) + " has changes that have not been applied. Apply them now?");
}
[[nodiscard]] inline ui::MessageBox discardQuestion(int channel) {
    return question("Discard the changes to channel " + std::to_string(channel) + "?");
}

class ControlEditForm : public ControlWorld {
protected:
    ControlEditForm() {
        for (std::int16_t channel = 1; channel <= 12; ++channel) {
            fill(*store, channel,
                 {{ChannelKey::TxFreq, 150'000'000 + channel * 25'000}, {ChannelKey::RxFreq, 151'000'000}});
        }
        store->put(StoreMember::MessageTitle, base::textValue("Bench 3"));
        control->DistributeDataStoreLink();
        control->DistributeRadioCommsLink();
        control->Prepare();
        control->UpdateControlsFromMemory();
        control->UpdateAccess(5);
        events.clear();
    }

    [[nodiscard]] editform::frmChannelEdit& form() const { return control->frmCE; }
    [[nodiscard]] bool open() const { return desktop.isOpen(form()); }
    [[nodiscard]] std::string shown() const { return form().txtEditChannel.text(); }

    void doubleClick(int row) {
        grid().setCurrent({row, 1});
        doubleClickCurrent();
    }
    // What mouse and keys do: the grid's own rule, then the move, then whatever was queued.
    void userMovesTo(int row) {
        ui::KeyEvent key{.code = ui::key::down};
        grid().KeyDown(key);
        grid().setCurrent({row, 2});
        desktop.doEvents();
    }
    void userPresses(int row) {
        grid().setCurrent({row, 2});
        grid().MouseDown(ui::MouseEvent{});
        desktop.doEvents();
    }
    void edit(const std::string& megahertz = "160.5") { form().txtTxFrequency.userTyped(megahertz); }
    [[nodiscard]] double stored(std::int16_t channel, ChannelKey key = ChannelKey::TxFreq) {
        return base::toDouble(store->channel(channel).get(key));
    }
    // The user's answer in the question that can be switched off.
    void answerCopying(bool yes, bool never = false) {
        desktop.duringModal = [this, yes, never](ui::Form& box) {
            auto& asked = dynamic_cast<editing::frmMsgBox&>(box);
            ++copyQuestions;
            askedText = asked.lblMsg.caption();
            askedTitle = asked.caption();
            if (never) {
                asked.chkDoNotAskAgain.userClick();
            }
            (yes ? asked.cmdYes : asked.cmdNo).userPress();
        };
    }

    int copyQuestions = 0;
    std::string askedText;
    std::string askedTitle;
};

}  // namespace telvar::tests
