// What a host keeps of a control in its own document: the size and the flag `bHidden`. Reading answers all or nothing;
// what cannot be read is a ComFailure.
#pragma once

#include "com/kit/automation.h"

namespace telvar::com {

struct SavedState {
    SIZEL extent{};  // hundredths of a millimetre
    bool hidden = false;
};

[[nodiscard]] SavedState readState(IStream& stream);
void writeState(IStream& stream, const SavedState& state);
[[nodiscard]] ULONGLONG savedSize() noexcept;

// Values that the bag does not have keep those of `otherwise`.
[[nodiscard]] SavedState readState(IPropertyBag& bag, IErrorLog* log, const SavedState& otherwise);
void writeState(IPropertyBag& bag, const SavedState& state);

}  // namespace telvar::com
