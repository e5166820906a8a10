// The array that answers ChannelTable: 255 variants, each holding a record. It is locked for its whole life, so that
// nobody who is given a reference to it can empty or resize it; scripts copy it.
#pragma once

#include "com/kit/variant.h"
#include "com/store/shared_table.h"

namespace telvar::com {

class RecordArray {
public:
    explicit RecordArray(SharedTable& table);
    RecordArray(const RecordArray&) = delete;
    RecordArray& operator=(const RecordArray&) = delete;
    RecordArray(RecordArray&&) = delete;
    RecordArray& operator=(RecordArray&&) = delete;
    ~RecordArray();

    // VT_BYREF | VT_ARRAY | VT_VARIANT, good for as long as this object lives.
    void answer(VARIANT& target) noexcept;
    // VT_ARRAY | VT_VARIANT, the caller's own.
    [[nodiscard]] Variant copy() const;

private:
    SAFEARRAY* array_;
};

}  // namespace telvar::com
