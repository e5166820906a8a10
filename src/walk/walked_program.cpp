#include "walk/walked_program.h"

#include <commctrl.h>

#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "host/shell/resource.h"
#include "host/shell/store_adapter.h"

namespace telvar::walk {

std::wstring WalkedProgram::path() const {
    com::Bstr path;
    com::checkCall(components_.store->get_FilePath(path.put()));
    return std::wstring(path.view());
}

bool WalkedProgram::modified() const {
    VARIANT_BOOL modified = VARIANT_FALSE;
    com::checkCall(components_.store->get_Modified(&modified));
    return modified != VARIANT_FALSE;
}

com::ComPointer<IChannelRecord> WalkedProgram::record(int channel) const {
    return host::recordOf(*components_.store, channel);
}

std::wstring WalkedProgram::statusText(int part) const {
    const HWND bar = GetDlgItem(window(), CHILD_STATUS_BAR);
    const auto place = static_cast<WPARAM>(part);
    std::wstring text(static_cast<std::size_t>(LOWORD(SendMessageW(bar, SB_GETTEXTLENGTHW, place, 0))) + 1, L'\0');
    text.resize(LOWORD(SendMessageW(bar, SB_GETTEXTW, place, reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

}  // namespace telvar::walk
