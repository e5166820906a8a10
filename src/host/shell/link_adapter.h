// The radio link's COM interface as the desk sees a link.
#pragma once

#include "VexloRadioLink.h"
#include "com/kit/pointer.h"
#include "desk/link.h"
#include "host/embed/link_events.h"

namespace telvar::host {

class LinkAdapter final : public desk::Link {
public:
    // `listener` outlives the attachment. Throws com::ComFailure where the link does not have the events of one; there
    // is then none.
    void attach(com::ComPointer<IRadioLink> link, LinkListener& listener);
    // No event comes any more; what runs is aborted.
    void close() noexcept;
    // Null without an installed link.
    [[nodiscard]] IRadioLink* object() const noexcept { return link_.get(); }

    [[nodiscard]] bool installed() const noexcept override { return static_cast<bool>(link_); }
    [[nodiscard]] bool busy() const noexcept override;
    [[nodiscard]] bool askStatus() noexcept override { return link_ && SUCCEEDED(link_->QueryStatus()); }
    void abort() override;
    void restore(const std::string& backup) override;
    [[nodiscard]] std::string connection() const override { return text(&IRadioLink::get_Connection); }
    void setConnection(const std::string& address) override { put(&IRadioLink::put_Connection, address); }
    [[nodiscard]] std::string faults() const override { return text(&IRadioLink::get_Faults); }
    void setFaults(const std::string& faults) override { put(&IRadioLink::put_Faults, faults); }
    [[nodiscard]] std::vector<std::string> knownFaults() const override;
    [[nodiscard]] std::string traceFile() const override { return text(&IRadioLink::get_TraceFile); }
    // A name alone means the present folder.
    void setTraceFile(const std::string& path) override;
    void setStateFile(const std::string& path) override { put(&IRadioLink::put_StateFile, path); }
    [[nodiscard]] std::string backupFolder() const override { return text(&IRadioLink::get_BackupFolder); }

private:
    using Get = HRESULT (STDMETHODCALLTYPE IRadioLink::*)(BSTR*);
    using Put = HRESULT (STDMETHODCALLTYPE IRadioLink::*)(BSTR);
    [[nodiscard]] std::string text(Get property) const;
    void put(Put property, const std::string& value);

    com::ComPointer<IRadioLink> link_;
    EventConnection events_;
};

}  // namespace telvar::host
