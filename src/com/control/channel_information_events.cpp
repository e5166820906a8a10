// The control's events on their way to the host.
#include "com/control/channel_information_object.h"

namespace telvar::com {

namespace {

// Numbers of the events, as the type library has them.
enum : DISPID {
    restoreButtons = 1,
    disableCommands,
    enableCommands,
    pauseDiagnostics,
    openLoginWithChannelFill,
    openLoginWithChannelEdit,
    defaultOverWindow,
    hourglassOverWindow,
    newWindowCaption,
    printChannelData,
    editWindowClosed,
    incrementProgressBar,
};

}  // namespace

void ChannelInformationObject::wireEvents() {
    const auto plain = [this](base::Event<>& event, DISPID number) { event.connect([this, number] { fire(number); }); };
    const auto text = [this](base::Event<std::string&>& event, DISPID number) {
        event.connect([this, number](std::string& argument) { fireText(number, argument); });
    };
    plain(control_.RestoreButtons, restoreButtons);
    plain(control_.DisableCommands, disableCommands);
    text(control_.EnableCommands, enableCommands);
    plain(control_.PauseDiagnostics, pauseDiagnostics);
    plain(control_.OpenLoginWithChannelFill, openLoginWithChannelFill);
    plain(control_.OpenLoginWithChannelEdit, openLoginWithChannelEdit);
    plain(control_.DefaultOverWindow, defaultOverWindow);
    plain(control_.HourglassOverWindow, hourglassOverWindow);
    text(control_.NewWindowCaption, newWindowCaption);
    plain(control_.PrintChannelData, printChannelData);
    plain(control_.EditWindowClosed, editWindowClosed);
    plain(control_.IncrementProgressBar, incrementProgressBar);
}

// An event may come from a form or a timer, with no call of the host's around it. The control's own code is below us on
// the stack then, so a control that the host has let go of ends from the message loop.
void ChannelInformationObject::fire(DISPID event, std::span<const Variant> arguments) noexcept {
    if (frozen_ > 0) {
        return;
    }
    const bool outermost = held_ == 0;
    auto alive = keepAlive(this);
    ++held_;
    point().fire(event, arguments);
    --held_;
    if (outermost && control_.closed()) {
        (void)guarded([&] { desktop_.dispatcher().post([kept = std::move(alive)] {}); });
    }
}

void ChannelInformationObject::fireText(DISPID event, std::string& text) {
    Bstr argument(text);
    const Variant reference = Variant::reference(VT_BSTR, argument.address());
    fire(event, {&reference, 1});
    text = argument.text();
}

}  // namespace telvar::com
