// A data store in memory: 255 channels and the radio-wide values, with the defaults of a new table. It knows no files
// and no radio. The reference store, the undo and redo tables, the command line and the tests are built upon it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/data_store.h"

namespace telvar::model {

inline constexpr std::size_t potCount = 4;

// What an empty channel holds under a key: False for Boolean keys, "0000" for codes, else a 32-bit integer.
[[nodiscard]] base::Value emptyChannelValue(ChannelKey key);

// A radio-wide value of a new table, in the type of its kind.
[[nodiscard]] base::Value defaultValue(StoreMember member);

class MemoryDataStore : public DataStore {
public:
    MemoryDataStore();

    // The values as they are kept, without a copy. An index outside 0 to 254 is a base::SubscriptFailure.
    [[nodiscard]] const base::Value& channelValue(std::int16_t index, ChannelKey key) const;
    [[nodiscard]] const base::Value& memberValue(StoreMember member) const noexcept;

    [[nodiscard]] base::Value readChannel(std::int16_t index, ChannelKey key) override;
    // Boolean keys become True or False, codes become text; every other value is kept in the type that the writer used,
    // so it must be a finite number, a text that reads as one, or Empty. What cannot be kept is a
    // base::ConversionFailure and changes nothing.
    void writeChannel(std::int16_t index, ChannelKey key, const base::Value& value) override;

    [[nodiscard]] base::Value get(StoreMember member) override;
    // Converted to the type of the member's kind; what cannot be converted is a base::ConversionFailure and changes
    // nothing.
    void put(StoreMember member, const base::Value& value) override;

    [[nodiscard]] base::Value referenceDividerScaling() override;
    [[nodiscard]] std::int32_t scaling() const noexcept { return referenceDividerScaling_; }
    // Any 32-bit integer.
    void setReferenceDividerScaling(const base::Value& value);

    // The staged levels, 0 until the first staging; an index outside 0 to 3 is a base::SubscriptFailure.
    void SetPotValue(std::int16_t index, std::uint8_t level) override;
    [[nodiscard]] std::uint8_t PotValue(std::int16_t index) override { return potValue(index); }
    [[nodiscard]] std::uint8_t potValue(std::int16_t index) const;

    // There is no radio to prepare here; heirs that have one override it.
    void EnterChannelSelect() override;

    // The same answer to every query; False at start.
    [[nodiscard]] bool AutomaticSelect(std::int16_t query) override;
    void setAutomaticSelect(bool automatic) noexcept { automaticSelect_ = automatic; }

    // The decimal digits and nothing else: channel numbers and levels have neither signs nor separators.
    [[nodiscard]] bool CheckKey(std::int16_t code) override;

    // An index outside 0 to 38 is a base::SubscriptFailure.
    [[nodiscard]] float CtcssTone(std::int16_t index) override;

    // True at start.
    [[nodiscard]] bool SendPermitted() override;
    void setSendPermitted(bool permitted) noexcept { sendPermitted_ = permitted; }

    // Back to the defaults: every channel empty, every member and answer as after construction.
    void clear();

    // Grows with every put, whoever made it and whether or not the value differs, and with every clear; never goes
    // back.
    [[nodiscard]] std::uint64_t revision() const noexcept { return revision_; }
    // Like revision(), but only for what belongs to a table: channels, the values that describe the radio, and the
    // scaling of the reference dividers. A put of shared state (the selected channel, a busy flag) leaves it alone.
    [[nodiscard]] std::uint64_t tableRevision() const noexcept { return tableRevision_; }

private:
    using ChannelValues = std::array<base::Value, channelKeyCount>;

    void setDefaults();
    void noteTableChange() noexcept;

    std::vector<ChannelValues> channels_;
    std::array<base::Value, storeMemberCount> members_;
    std::int32_t referenceDividerScaling_ = 0;
    std::array<std::uint8_t, potCount> potValues_{};
    bool automaticSelect_ = false;
    bool sendPermitted_ = true;
    std::uint64_t revision_ = 0;
    std::uint64_t tableRevision_ = 0;
};

}  // namespace telvar::model
