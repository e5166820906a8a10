#include "host/shell/radio.h"

#include <utility>

#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "host/shell/backups.h"

namespace telvar::host {

namespace {

using Text = HRESULT (STDMETHODCALLTYPE IRadioLink::*)(BSTR*);

std::wstring read(IRadioLink* link, Text property) {
    com::Bstr text;
    if (link != nullptr) {
        com::checkCall((link->*property)(text.put()));
    }
    return std::wstring(text.view());
}

}  // namespace

void Radio::attach(com::ComPointer<IRadioLink> link) {
    events_ = connectLink(link.get(), *this);
    link_ = std::move(link);
}

void Radio::close() noexcept {
    events_.end();
    if (link_) {
        // Link and store would keep each other alive.
        link_->putref_DataStore(nullptr);
        link_.reset();
    }
}

bool Radio::exchanging() const {
    VARIANT_BOOL busy = VARIANT_FALSE;
    return link_ && !asking_ && SUCCEEDED(link_->get_Busy(&busy)) && busy != VARIANT_FALSE;
}

void Radio::poll(bool storeBusy) {
    if (!link_ || asking_ || exchanging()) {
        return;
    }
    if (pausedPolls_ > 0) {
        --pausedPolls_;
        return;
    }
    if (storeBusy) {
        return;
    }
    // A link that refuses is asked again a second later.
    asking_ = SUCCEEDED(link_->QueryStatus());
}

void Radio::cancel() {
    if (link_) {
        com::checkCall(link_->AbortTransfer());
    }
}

void Radio::restore(const std::wstring& backup) {
    com::checkCall(link_->RestoreBackup(com::Bstr(std::wstring_view(backup)).get()));
}

std::wstring Radio::backupFolder() const {
    const std::wstring told = read(link_.get(), &IRadioLink::get_BackupFolder);
    return told.empty() ? usualBackupFolder() : told;
}

std::wstring Radio::connection() const { return read(link_.get(), &IRadioLink::get_Connection); }

void Radio::setConnection(const std::wstring& address) {
    com::checkCall(link_->put_Connection(com::Bstr(std::wstring_view(address)).get()));
}

std::wstring Radio::faults() const { return read(link_.get(), &IRadioLink::get_Faults); }

void Radio::setFaults(const std::wstring& faults) {
    com::checkCall(link_->put_Faults(com::Bstr(std::wstring_view(faults)).get()));
}

std::wstring Radio::traceFile() const { return read(link_.get(), &IRadioLink::get_TraceFile); }

void Radio::setTraceFile(const std::wstring& path) {
    std::wstring whole(path.empty() ? 0 : GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    whole.resize(
        path.empty() ? 0 : GetFullPathNameW(path.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr));
    com::checkCall(link_->put_TraceFile(com::Bstr(std::wstring_view(whole)).get()));
}

void Radio::setStateFile(const std::wstring& path) {
    com::checkCall(link_->put_StateFile(com::Bstr(std::wstring_view(path)).get()));
}

void Radio::exchangeEnded(long task, bool succeeded, const std::wstring& message) {
    resumePolling();
    listener_.exchangeEnded(task, succeeded, message);
}

void Radio::statusReported(bool answered, const std::wstring& message) {
    asking_ = false;
    listener_.statusReported(answered, message);
}

}  // namespace telvar::host
