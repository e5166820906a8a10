// A data store of somebody else's making: answers what a test wants under some keys and members, of whatever type, and
// is otherwise like the store behind it.
#pragma once

#include <map>
#include <utility>

#include "support/store_decorator.h"

namespace telvar::tests {

class AnsweringStore : public StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;

    // In every channel.
    void answer(model::ChannelKey key, base::Value value) { keys_[key] = std::move(value); }
    void answer(model::StoreMember member, base::Value value) { members_[member] = std::move(value); }

    [[nodiscard]] base::Value readChannel(std::int16_t index, model::ChannelKey key) override {
        const auto found = keys_.find(key);
        return found != keys_.end() ? found->second : StoreDecorator::readChannel(index, key);
    }

    [[nodiscard]] base::Value get(model::StoreMember member) override {
        const auto found = members_.find(member);
        return found != members_.end() ? found->second : StoreDecorator::get(member);
    }

protected:
    void onCall(const StoreCall& /*call*/) override {}

private:
    std::map<model::ChannelKey, base::Value> keys_;
    std::map<model::StoreMember, base::Value> members_;
};

}  // namespace telvar::tests
