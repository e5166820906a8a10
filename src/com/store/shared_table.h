// The table and the 255 record objects through which the outside reaches its channels. One count of references serves
// them all: the store object holds one, and so does everybody who holds a record, so that a record stays good after
// the store object is gone.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>

#include "base/pinned.h"
#include "com/store/channel_record.h"
#include "store/reference_data_store.h"
#include "win/module.h"

namespace telvar::com {

class SharedTable : private base::Pinned {
public:
    // With one reference, the caller's.
    SharedTable();
    ULONG AddRef() noexcept { return ++references_; }
    ULONG Release() noexcept;

    [[nodiscard]] store::ReferenceDataStore& store() noexcept { return store_; }
    // Index 0 to 254.
    [[nodiscard]] ChannelRecord& record(std::int16_t index) { return records_[static_cast<std::size_t>(index)]; }

private:
    ~SharedTable() = default;

    win::Use use_;
    store::ReferenceDataStore store_;
    std::deque<ChannelRecord> records_;
    std::atomic<ULONG> references_ = 1;
};

}  // namespace telvar::com
