#include "host/shell/store_adapter.h"

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

com::ComPointer<IChannelRecord> recordOf(IDataStore& store, int channel) {
    com::Variant index(static_cast<std::int32_t>(channel - 1));
    DISPPARAMS arguments{&index.get(), nullptr, 1, 0};
    com::Variant answer;
    com::checkCall(store.Invoke(channelTable, IID_NULL, LOCALE_INVARIANT, DISPATCH_PROPERTYGET, &arguments,
                                answer.put(), nullptr, nullptr));
    answer.convertTo(VT_DISPATCH);
    auto record = com::ComPointer<IChannelRecord>::from(V_DISPATCH(&answer.get()));
    if (!record) {
        throw com::ComFailure(E_NOINTERFACE);
    }
    return record;
}

void StoreAdapter::newTable() { com::checkCall(store_->NewTable()); }

void StoreAdapter::open(const std::string& path) { com::checkCall(store_->Open(com::Bstr(path).get())); }

void StoreAdapter::save() { com::checkCall(store_->Save()); }

void StoreAdapter::saveAs(const std::string& path) { com::checkCall(store_->SaveAs(com::Bstr(path).get())); }

std::string StoreAdapter::path() const {
    com::Bstr path;
    com::checkCall(store_->get_FilePath(path.put()));
    return path.text();
}

std::string StoreAdapter::title() const {
    com::Bstr title;
    com::checkCall(store_->get_DatabaseTitle(title.put()));
    return title.text();
}

long StoreAdapter::revision() const {
    long revision = 0;
    com::checkCall(store_->get_Revision(&revision));
    return revision;
}

bool StoreAdapter::modified() const {
    VARIANT_BOOL modified = VARIANT_FALSE;
    com::checkCall(store_->get_Modified(&modified));
    return modified != VARIANT_FALSE;
}

int StoreAdapter::configuredChannels() const {
    int configured = 0;
    for (int channel = 1; channel <= channels; ++channel) {
        const auto each = recordOf(*store_, channel);
        com::Variant transmit;
        com::Variant receive;
        com::checkCall(each->get_TxFreq(transmit.put()));
        com::checkCall(each->get_RxFreq(receive.put()));
        configured += isZero(std::move(transmit)) && isZero(std::move(receive)) ? 0 : 1;
    }
    return configured;
}

bool StoreAdapter::commsBusy() const noexcept {
    VARIANT_BOOL busy = VARIANT_FALSE;
    return FAILED(store_->get_CommsBusy(&busy)) || busy != VARIANT_FALSE;
}

void StoreAdapter::clearCommsBusy() { com::checkCall(store_->put_CommsBusy(VARIANT_FALSE)); }

}  // namespace telvar::host
