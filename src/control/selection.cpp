// Which channel the grid shows as selected, its blinking frame, and the switching of the radio to the typed channel.
#include "base/checked.h"
#include "base/conversion.h"
#include "base/failure.h"
#include "base/rounding.h"
#include "base/skip.h"
#include "control/channel_information.h"
#include "transfer/quiet_link.h"

namespace telvar::control {

using model::isChannel;
using model::StoreMember;

namespace {

// The rule for scrolling to a channel counts with this many rows, whatever the grid's height.
constexpr int pageRows = 25;
constexpr int scrollStep = 5;

// 0 where a value is no channel, whatever else it is.
[[nodiscard]] std::int16_t channelOf(const base::Value& value) {
    std::int16_t channel = 0;
    base::skip([&] { channel = base::toInt16(value); });
    return isChannel(channel) ? channel : std::int16_t{0};
}

}  // namespace

void ChannelInformation::checkChannel(std::int16_t channel) {
    if (!isChannel(channel)) {
        throw base::SubscriptFailure();
    }
}

void ChannelInformation::HighLightChannel(std::int16_t nChannelNum) {
    session_.trap("HighLightChannel", [&] {
        checkChannel(nChannelNum);
        highlight(nChannelNum);
    });
}

void ChannelInformation::highlight(std::int16_t channel) {
    fgdDatabase.select({channel, 1}, {channel, fgdDatabase.columns() - 1});
    for (int column = 1; column < fgdDatabase.columns(); ++column) {
        fgdDatabase.setCellBackColor(channel, column, 0);
    }
    setBlinking(true);
}

void ChannelInformation::UpdateChannelSelection() {
    session_.trap("UpdateChannelSelection", [&] { followSelectedChannel(); });
}

void ChannelInformation::followSelectedChannel() {
    fgdDatabase.setDisplay({});
    const auto selected = channelOf(session_.store()->get(StoreMember::SelectedChannel));
    if (selected != 0) {
        highlight(selected);
        txtChannelSelect.loadText(std::to_string(selected));
    } else {
        txtChannelSelect.loadText("");
        setBlinking(false);
    }
}

// As the store has it; empty where that has no text.
std::string ChannelInformation::selectedChannelText() const {
    const auto selected = session_.store()->get(StoreMember::SelectedChannel);
    std::string text;
    base::skip([&] { text = base::toText(selected, session_.format()); });
    return text;
}

void ChannelInformation::setBlinking(bool blinking) {
    blinking_ = blinking;
    if (!blinking) {
        fgdDatabase.setHighlightShown(false);
    }
}

void ChannelInformation::Timer1_Timer() {
    session_.trap("Timer1_Timer", [&] {
        if (blinking_) {
            blinkPhase_ = !blinkPhase_;
            fgdDatabase.setHighlightShown(blinkPhase_);
        }
    });
}

// The number that the text begins with, rounded half to even; possibly far outside 16 bits.
double ChannelInformation::typedNumber() const {
    return base::roundHalfEven(base::readLeadingNumber(txtChannelSelect.text(), session_.format()));
}

void ChannelInformation::ChannelKeyUp() {
    session_.trap("ChannelKeyUp", [&] { stepChannel(1, model::channelCount, -1); });
}

void ChannelInformation::ChannelKeyDown() {
    session_.trap("ChannelKeyDown", [&] { stepChannel(model::channelCount, 1, 1); });
}

void ChannelInformation::stepChannel(std::int16_t wrapAt, std::int16_t wrapTo, std::int16_t step) {
    const auto present = base::toInt16(base::Value{typedNumber()});
    const auto next = present == wrapAt ? wrapTo : base::checkedAdd(present, step);
    txtChannelSelect.setText(std::to_string(next));
    txtChannelSelect.selectAll();
    if (session_.store()->AutomaticSelect(2)) {
        cmdChannelSelect_Click();
    }
}

void ChannelInformation::txtChannelSelect_GotFocus() { txtChannelSelect.selectAll(); }

void ChannelInformation::txtChannelSelect_KeyPress(ui::KeyPressEvent& event) {
    if (event.code == ui::key::enter) {
        event.code = 0;
        cmdChannelSelect.userPress();
    }
}

// The user's press. It disables the button, which could not keep the focus, and what follows it in tab order is an
// option that the next arrow key would change: the user goes on in the grid.
void ChannelInformation::cmdChannelSelect_Press() {
    focusGrid();
    cmdChannelSelect_Click();
}

void ChannelInformation::focusGrid() {
    if (!session_.closed() && fgdDatabase.isUsable() && fgdDatabase.isShown()) {
        fgdDatabase.setFocus();
    }
}

void ChannelInformation::cmdChannelSelect_Click() {
    if (!session_.activities().mayBegin(session::Activity::Selecting)) {
        leaveChannelForLast();
        return;
    }
    const bool ran = session_.trap("cmdChannelSelect_Click", [&] {
        cmdChannelSelect.setEnabled(false);
        raise(HourglassOverWindow);
        const auto busy = session_.store()->get(StoreMember::CommsBusy);
        const double number = typedNumber();
        if (isChannel(number)) {
            selectOnRadio(static_cast<std::int16_t>(number));
        } else {
            session_.store()->put(StoreMember::CommsBusy, busy);
            refuseTypedChannel();
        }
    });
    if (!ran && !session_.closed()) {
        // No exchange was begun, so no end of one will enable the button.
        endChannelSelect();
    }
}

// Steps that arrive during the wait: the radio is switched once, to the last of them.
void ChannelInformation::leaveChannelForLast() {
    const double number = typedNumber();
    if (isChannel(number)) {
        channelToSend_ = static_cast<std::int16_t>(number);
    }
}

void ChannelInformation::selectOnRadio(std::int16_t channel) {
    scrollToChannel(channel);
    channelToSend_ = channel;
    if (!waitForQuietLink()) {
        return;
    }
    if (!base::isTrue(session_.store()->get(StoreMember::ChannelChangeAllowed))) {
        return;
    }
    session_.store()->EnterChannelSelect();
    std::string text = std::to_string(channelToSend_);
    session_.link()->SelectChannel(text);
}

// False when the message loop is quitting.
bool ChannelInformation::waitForQuietLink() {
    const session::UnderWay selecting(session_.activities(), session::Activity::Selecting);
    raise(PauseDiagnostics);
    return transfer::waitForQuietLink(session_);
}

void ChannelInformation::scrollToChannel(std::int16_t channel) {
    const int top = fgdDatabase.topRow();
    if (channel >= top + pageRows) {
        fgdDatabase.setTopRow(channel - scrollStep);
    } else if (channel < top) {
        // One step only, even where the channel stays out of view.
        fgdDatabase.setTopRow(top < scrollStep + 1 ? 1 : top - scrollStep);
    }
}

void ChannelInformation::refuseTypedChannel() {
    const auto title = session_.storesTitle();
    session_.show({.text =
                       "Channel Not configured correctly or Invalid channel selection.\r\nPlease configure the channel "
                       "(1-255) by clicking on its respective row on the grid.",
                   .title = title + ": Invalid Channel Selection"});
    txtChannelSelect.setFocus();
    txtChannelSelect.selectAll();
    endChannelSelect();
}

void ChannelInformation::endChannelSelect() {
    cmdChannelSelect.setEnabled(true);
    base::skip([this] { DefaultOverWindow(); });
}

}  // namespace telvar::control
