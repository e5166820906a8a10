#include "host/shell/desk_events.h"

#include "win/text.h"

namespace telvar::host {

void DeskEvents::NewWindowCaption(const std::wstring& caption) { desk_.captionChanged(win::narrow(caption)); }

void DeskEvents::exchangeEnded(long task, bool succeeded, const std::wstring& message) {
    desk_.exchangeEnded(static_cast<desk::Task>(task), succeeded, win::narrow(message));
}

void DeskEvents::statusReported(bool answered, const std::wstring& message) {
    desk_.statusReported(answered, win::narrow(message));
}

}  // namespace telvar::host
