// The open channel table as the data store holds it: where it lies, what it is called, whether it changed. All of it is
// asked of the store each time, so that nothing is missed that somebody else did.
#pragma once

#include <string>
#include <utility>

#include "VexloDataStore.h"
#include "com/kit/pointer.h"

namespace telvar::host {

class Document {
public:
    explicit Document(com::ComPointer<IDataStore> store) noexcept : store_(std::move(store)) {}

    // Each throws com::ComFailure with the store's own sentence; the open table then stays as it was.
    void create();
    void open(const std::wstring& path);
    void save();
    void saveAs(const std::wstring& path);
    // Lets the table go, whatever its state.
    void close() noexcept { store_->Close(); }

    // Full path, empty for a table that was never saved.
    [[nodiscard]] std::wstring path() const;
    // As questions name it: the file's name, or "the new channel table".
    [[nodiscard]] std::wstring name() const;
    // Another number after every change.
    [[nodiscard]] long revision() const;
    [[nodiscard]] bool modified() const;
    // Somebody uses the radio, or has said so.
    [[nodiscard]] bool commsBusy() const noexcept;
    // Channels with a transmit or a receive frequency.
    [[nodiscard]] int configuredChannels() const;

    [[nodiscard]] IDataStore* store() const noexcept { return store_.get(); }
    // The record of channel 1 to 255; throws com::ComFailure for any other.
    [[nodiscard]] com::ComPointer<IChannelRecord> record(int channel) const;

private:
    com::ComPointer<IDataStore> store_;
};

}  // namespace telvar::host
