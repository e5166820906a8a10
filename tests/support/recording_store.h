// A data store that writes down every call, in order, as the texts of describe(StoreCall).
#pragma once

#include <string>
#include <vector>

#include "support/store_decorator.h"

namespace telvar::tests {

class RecordingStore : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;

    [[nodiscard]] const std::vector<std::string>& calls() const noexcept { return calls_; }
    void forget() noexcept { calls_.clear(); }

protected:
    void onCall(const StoreCall& call) override { calls_.push_back(describe(call)); }

private:
    std::vector<std::string> calls_;
};

}  // namespace telvar::tests
