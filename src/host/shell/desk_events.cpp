#include "host/shell/desk_events.h"

#include "com/kit/text.h"

namespace telvar::host {

void DeskEvents::NewWindowCaption(const std::wstring& caption) { desk_.captionChanged(com::narrow(caption)); }

void DeskEvents::exchangeEnded(long task, bool succeeded, const std::wstring& message) {
    desk_.exchangeEnded(static_cast<desk::Task>(task), succeeded, com::narrow(message));
}

void DeskEvents::statusReported(bool answered, const std::wstring& message) {
    desk_.statusReported(answered, com::narrow(message));
}

}  // namespace telvar::host
