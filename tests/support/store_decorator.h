// A data store that hands every call on to another one and tells its heir first: the ground for stores that fail,
// record or answer otherwise.
#pragma once

#include <cstdint>
#include <string>

#include "model/data_store.h"

namespace telvar::tests {

// One call to a data store. `index` is the element, pot, tone, query or key code; `key` and `member` only where they
// apply.
struct StoreCall {
    enum class Kind : std::uint8_t {
        ReadChannel,
        WriteChannel,
        Get,
        Put,
        ReferenceDividerScaling,
        SetPotValue,
        PotValue,
        EnterChannelSelect,
        AutomaticSelect,
        CheckKey,
        CtcssTone,
        SendPermitted,
    };
    Kind kind{};
    std::int16_t index = 0;
    model::ChannelKey key{};
    model::StoreMember member{};
};

// "ChannelTable(0).TxFreq", "ChannelTable(0).TxFreq=" for a write, "CommsBusy", "CommsBusy=", "SetPotValue(2)".
[[nodiscard]] std::string describe(const StoreCall& call);

class StoreDecorator : public model::DataStore {
public:
    explicit StoreDecorator(model::DataStore& inner) noexcept : inner_(inner) {}

    [[nodiscard]] base::Value readChannel(std::int16_t index, model::ChannelKey key) override;
    void writeChannel(std::int16_t index, model::ChannelKey key, const base::Value& value) override;
    [[nodiscard]] base::Value get(model::StoreMember member) override;
    void put(model::StoreMember member, const base::Value& value) override;
    [[nodiscard]] base::Value referenceDividerScaling() override;
    void SetPotValue(std::int16_t index, std::uint8_t level) override;
    [[nodiscard]] std::uint8_t PotValue(std::int16_t index) override;
    void EnterChannelSelect() override;
    [[nodiscard]] bool AutomaticSelect(std::int16_t query) override;
    [[nodiscard]] bool CheckKey(std::int16_t code) override;
    [[nodiscard]] float CtcssTone(std::int16_t index) override;
    [[nodiscard]] bool SendPermitted() override;

protected:
    // Before a call is handed on; what it throws reaches the caller, and the inner store is not asked.
    virtual void onCall(const StoreCall& call) = 0;

private:
    model::DataStore& inner_;
};

}  // namespace telvar::tests
