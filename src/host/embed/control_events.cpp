#include "host/embed/control_events.h"

#include "Tesslin.h"

namespace telvar::host {

namespace {

bool raise(ControlListener& listener, DISPID event, const DISPPARAMS& arguments) {
    switch (event) {
    case 1:
        listener.RestoreButtons();
        return true;
    case 2:
        listener.DisableCommands();
        return true;
    case 3:
        listener.EnableCommands(textArgument(arguments, 0));
        return true;
    case 4:
        listener.PauseDiagnostics();
        return true;
    case 5:
        listener.OpenLoginWithChannelFill();
        return true;
    case 6:
        listener.OpenLoginWithChannelEdit();
        return true;
    case 7:
        listener.DefaultOverWindow();
        return true;
    case 8:
        listener.HourglassOverWindow();
        return true;
    case 9:
        listener.NewWindowCaption(textArgument(arguments, 0));
        return true;
    case 10:
        listener.PrintChannelData();
        return true;
    case 11:
        listener.EditWindowClosed();
        return true;
    case 12:
        listener.IncrementProgressBar();
        return true;
    default:
        return false;
    }
}

}  // namespace

EventConnection connectControl(IUnknown* control, ControlListener& listener) {
    return {control, __uuidof(__ChannelInformation),
            [&listener](DISPID event, const DISPPARAMS& arguments) { return raise(listener, event, arguments); }};
}

}  // namespace telvar::host
