#include "host/shell/document.h"

#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "com/kit/variant.h"

namespace telvar::host {

namespace {

constexpr int channels = 255;
// Of the member ChannelTable, which answers one record when it is called with an index.
constexpr DISPID channelTable = 1;

bool isZero(com::Variant value) {
    value.convertTo(VT_R8);
    return V_R8(&value.get()) == 0.0;
}

}  // namespace

void Document::create() { com::checkCall(store_->NewTable()); }

void Document::open(const std::wstring& path) {
    com::checkCall(store_->Open(com::Bstr(std::wstring_view(path)).get()));
}

void Document::save() { com::checkCall(store_->Save()); }

void Document::saveAs(const std::wstring& path) {
    com::checkCall(store_->SaveAs(com::Bstr(std::wstring_view(path)).get()));
}

std::wstring Document::path() const {
    com::Bstr path;
    com::checkCall(store_->get_FilePath(path.put()));
    return std::wstring(path.view());
}

std::wstring Document::name() const {
    const std::wstring whole = path();
    return whole.empty() ? L"the new channel table" : whole.substr(whole.find_last_of(L"\\/") + 1);
}

long Document::revision() const {
    long revision = 0;
    com::checkCall(store_->get_Revision(&revision));
    return revision;
}

bool Document::modified() const {
    VARIANT_BOOL modified = VARIANT_FALSE;
    com::checkCall(store_->get_Modified(&modified));
    return modified != VARIANT_FALSE;
}

bool Document::commsBusy() const noexcept {
    VARIANT_BOOL busy = VARIANT_FALSE;
    return FAILED(store_->get_CommsBusy(&busy)) || busy != VARIANT_FALSE;
}

com::ComPointer<IChannelRecord> Document::record(int channel) const {
    com::Variant index(static_cast<std::int32_t>(channel - 1));
    DISPPARAMS arguments{&index.get(), nullptr, 1, 0};
    com::Variant answer;
    com::checkCall(store_->Invoke(channelTable, IID_NULL, LOCALE_INVARIANT, DISPATCH_PROPERTYGET, &arguments,
                                  answer.put(), nullptr, nullptr));
    answer.convertTo(VT_DISPATCH);
    auto record = com::ComPointer<IChannelRecord>::from(V_DISPATCH(&answer.get()));
    if (!record) {
        throw com::ComFailure(E_NOINTERFACE);
    }
    return record;
}

int Document::configuredChannels() const {
    int configured = 0;
    for (int channel = 1; channel <= channels; ++channel) {
        const auto each = record(channel);
        com::Variant transmit;
        com::Variant receive;
        com::checkCall(each->get_TxFreq(transmit.put()));
        com::checkCall(each->get_RxFreq(receive.put()));
        configured += isZero(std::move(transmit)) && isZero(std::move(receive)) ? 0 : 1;
    }
    return configured;
}

}  // namespace telvar::host
