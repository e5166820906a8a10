#include "support/failing_store.h"

#include "base/failure.h"

namespace telvar::tests {

void FailingStore::onCall(const StoreCall& /*call*/) {
    ++count_;
    if (failingCall_ == 0) {
        return;
    }
    if (count_ == failingCall_ || (count_ > failingCall_ && span_ == FailureSpan::FromThereOn)) {
        throw base::Failure(description);
    }
}

}  // namespace telvar::tests
