// The data store's COM interface as the desk sees a store.
#pragma once

#include <utility>

#include "VexloDataStore.h"
#include "com/kit/pointer.h"
#include "desk/store.h"

namespace telvar::host {

// The record of channel 1 to 255; throws com::ComFailure for any other.
[[nodiscard]] com::ComPointer<IChannelRecord> recordOf(IDataStore& store, int channel);

class StoreAdapter final : public desk::Store {
public:
    explicit StoreAdapter(com::ComPointer<IDataStore> store) noexcept : store_(std::move(store)) {}

    [[nodiscard]] IDataStore* object() const noexcept { return store_.get(); }
    // Lets the table go, whatever its state.
    void close() noexcept { store_->Close(); }

    void newTable() override;
    void open(const std::string& path) override;
    void save() override;
    void saveAs(const std::string& path) override;
    [[nodiscard]] std::string path() const override;
    [[nodiscard]] std::string title() const override;
    [[nodiscard]] long revision() const override;
    [[nodiscard]] bool modified() const override;
    [[nodiscard]] int configuredChannels() const override;
    [[nodiscard]] bool commsBusy() const noexcept override;
    void clearCommsBusy() override;

private:
    com::ComPointer<IDataStore> store_;
};

}  // namespace telvar::host
