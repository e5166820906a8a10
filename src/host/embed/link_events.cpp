#include "host/embed/link_events.h"

#include "VexloRadioLink.h"

namespace telvar::host {

EventConnection connectLink(IUnknown* link, LinkListener& listener) {
    return {link, __uuidof(_RadioLinkEvents), [&listener](DISPID event, const DISPPARAMS& arguments) {
                switch (event) {
                case 1:
                    listener.linkProgressed(longArgument(arguments, 0));
                    return true;
                case 2:
                    listener.exchangeEnded(longArgument(arguments, 0), longArgument(arguments, 1) != 0,
                                           textArgument(arguments, 2));
                    return true;
                case 3:
                    listener.statusReported(longArgument(arguments, 0) != 0, textArgument(arguments, 1));
                    return true;
                default:
                    return false;
                }
            }};
}

}  // namespace telvar::host
