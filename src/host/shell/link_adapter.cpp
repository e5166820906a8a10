#include "host/shell/link_adapter.h"

#include <utility>

#include "base/text.h"
#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "host/shell/command_line.h"
#include "win/text.h"

namespace telvar::host {

void LinkAdapter::attach(com::ComPointer<IRadioLink> link, LinkListener& listener) {
    events_ = connectLink(link.get(), listener);
    link_ = std::move(link);
}

void LinkAdapter::close() noexcept {
    events_.end();
    if (link_) {
        // Link and store would keep each other alive.
        link_->putref_DataStore(nullptr);
        link_.reset();
    }
}

bool LinkAdapter::busy() const noexcept {
    VARIANT_BOOL busy = VARIANT_FALSE;
    return link_ && SUCCEEDED(link_->get_Busy(&busy)) && busy != VARIANT_FALSE;
}

void LinkAdapter::abort() {
    if (link_) {
        com::checkCall(link_->AbortTransfer());
    }
}

void LinkAdapter::restore(const std::string& backup) { put(&IRadioLink::RestoreBackup, backup); }

std::vector<std::string> LinkAdapter::knownFaults() const {
    std::vector<std::string> names;
    const std::string all = text(&IRadioLink::get_KnownFaults);
    for (const std::string_view name : base::splitAt(all, ',')) {
        names.emplace_back(name);
    }
    return names;
}

void LinkAdapter::setTraceFile(const std::string& path) {
    put(&IRadioLink::put_TraceFile, path.empty() ? path : win::narrow(absolutePath(win::wide(path))));
}

std::string LinkAdapter::text(Get property) const {
    com::Bstr text;
    if (link_) {
        com::checkCall((link_.get()->*property)(text.put()));
    }
    return text.text();
}

void LinkAdapter::put(Put property, const std::string& value) {
    if (link_) {
        com::checkCall((link_.get()->*property)(com::Bstr(value).get()));
    }
}

}  // namespace telvar::host
