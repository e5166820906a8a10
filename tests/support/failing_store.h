// A data store whose n-th call fails, counted from 1 over every kind of call, so that a test can walk through every
// place where a routine may be cut off.
#pragma once

#include <cstdint>

#include "support/store_decorator.h"

namespace telvar::tests {

enum class FailureSpan : std::uint8_t { OneCall, FromThereOn };

class FailingStore : public StoreDecorator {
public:
    // What the failing call says, a base::Failure.
    static constexpr const char* description = "the data store does not answer";

    using StoreDecorator::StoreDecorator;

    // Counts anew: the n-th call from now fails, and with FromThereOn every later one too. 0 lets every call through.
    void failAt(int call, FailureSpan span = FailureSpan::OneCall) noexcept {
        count_ = 0;
        failingCall_ = call;
        span_ = span;
    }

    // Calls since construction or the last failAt, the failing ones included.
    [[nodiscard]] int calls() const noexcept { return count_; }

protected:
    void onCall(const StoreCall& call) override;

private:
    int count_ = 0;
    int failingCall_ = 0;
    FailureSpan span_ = FailureSpan::OneCall;
};

}  // namespace telvar::tests
