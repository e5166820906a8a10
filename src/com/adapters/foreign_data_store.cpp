#include "com/adapters/foreign_data_store.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "VexloDataStore.h"
#include "base/conversion.h"
#include "base/failure.h"
#include "com/adapters/foreign_element.h"
#include "com/adapters/foreign_reference.h"
#include "com/kit/failure.h"
#include "com/kit/late_bound.h"
#include "com/kit/value.h"
#include "win/text.h"

namespace telvar::com {

namespace {

// What a store has besides its radio-wide members, counted on from those.
enum Further : std::size_t {
    ChannelTable = model::storeMemberCount,
    ConfigRecords,
    SetPotValue,
    EnterChannelSelect,
    AutomaticSelect,
    CheckKey,
    CtcssTone,
    SendPermitted,
    PotValue,
};

// The one member of a configuration record, counted on from the keys of a channel record.
constexpr std::size_t scalingKey = model::channelKeyCount;

// The names of a table of the model, then the others.
[[nodiscard]] std::vector<std::wstring> namesOf(const auto& table, std::initializer_list<const wchar_t*> others) {
    std::vector<std::wstring> names(table.size());
    std::ranges::transform(table, names.begin(), [](const auto& info) { return win::wide(info.name); });
    names.insert(names.end(), others.begin(), others.end());
    return names;
}

// How a call without arguments is refused by a property that needs one. A script engine has numbers of its own for
// that, or says nothing but that it failed.
[[nodiscard]] bool saysArgumentNeeded(HRESULT code, bool isScript) noexcept {
    constexpr HRESULT argumentNotOptional = static_cast<HRESULT>(0x800A01C1);
    constexpr HRESULT wrongNumberOfArguments = static_cast<HRESULT>(0x800A01C2);
    return code == DISP_E_BADPARAMCOUNT || code == DISP_E_PARAMNOTOPTIONAL || code == DISP_E_PARAMNOTFOUND ||
           code == argumentNotOptional || code == wrongNumberOfArguments || (isScript && code == E_FAIL);
}

// Any call may let the host run, which may call back, change the table or drop the store: every operation keeps the
// adapter itself alive to its end, and each record is counted while it is asked.
class ForeignDataStore final : public model::DataStore, public std::enable_shared_from_this<ForeignDataStore> {
public:
    explicit ForeignDataStore(IDispatch& store)
        : store_(&store), ownRecords_(ComPointer<IChannelRecords>::from(&store)) {}

    [[nodiscard]] base::Value readChannel(std::int16_t index, model::ChannelKey key) override {
        const auto alive = shared_from_this();
        const auto record = channelRecord(index);
        return valueOf(invoke(*record, requireKey(*record, key), getFlags));
    }

    void writeChannel(std::int16_t index, model::ChannelKey key, const base::Value& value) override {
        const auto alive = shared_from_this();
        const auto record = channelRecord(index);
        putProperty(*record, requireKey(*record, key), variantOf(value));
    }

    [[nodiscard]] base::Value get(model::StoreMember member) override {
        const auto alive = shared_from_this();
        return valueOf(invoke(*store_, require(static_cast<std::size_t>(member)), getFlags));
    }

    void put(model::StoreMember member, const base::Value& value) override {
        const auto alive = shared_from_this();
        putProperty(*store_, require(static_cast<std::size_t>(member)), variantOf(value));
    }

    [[nodiscard]] base::Value referenceDividerScaling() override {
        const auto alive = shared_from_this();
        const auto record = element(Further::ConfigRecords, 0);
        return valueOf(invoke(*record, recordMembers_.require(*record, scalingKey), getFlags));
    }

    void SetPotValue(std::int16_t index, std::uint8_t level) override {
        const auto alive = shared_from_this();
        std::array references{ReferenceArgument(base::Value{index})};
        const std::array values{Variant(level)};
        (void)invokeWithReferences(*store_, require(Further::SetPotValue), DISPATCH_METHOD, references, values);
    }

    [[nodiscard]] std::uint8_t PotValue(std::int16_t index) override {
        const auto level = base::toInt16(ask(Further::PotValue, index));
        if (level < 0 || level > std::numeric_limits<std::uint8_t>::max()) {
            throw base::ConversionFailure::overflow();
        }
        return static_cast<std::uint8_t>(level);
    }

    void EnterChannelSelect() override {
        const auto alive = shared_from_this();
        (void)invoke(*store_, require(Further::EnterChannelSelect), DISPATCH_METHOD);
    }

    [[nodiscard]] bool AutomaticSelect(std::int16_t query) override {
        const auto alive = shared_from_this();
        std::array references{ReferenceArgument(base::Value{query})};
        return base::isTrue(
            valueOf(invokeWithReferences(*store_, require(Further::AutomaticSelect), getOrCallFlags, references)));
    }

    [[nodiscard]] bool CheckKey(std::int16_t code) override { return base::isTrue(ask(Further::CheckKey, code)); }
    [[nodiscard]] float CtcssTone(std::int16_t index) override {
        return base::toSingle(ask(Further::CtcssTone, index));
    }

    [[nodiscard]] bool SendPermitted() override {
        const auto alive = shared_from_this();
        const MemberId member = storeMembers_.find(*store_, Further::SendPermitted);
        return !member.known() || base::isTrue(valueOf(invoke(*store_, member, getFlags)));
    }

private:
    [[nodiscard]] MemberId require(std::size_t name) { return storeMembers_.require(*store_, name); }

    // What takes an argument is a method in most languages, a property in some.
    [[nodiscard]] base::Value ask(Further question, std::int16_t argument) {
        const auto alive = shared_from_this();
        const std::array arguments{Variant(argument)};
        return valueOf(invoke(*store_, require(question), getOrCallFlags, arguments));
    }

    [[nodiscard]] ComPointer<IDispatch> channelRecord(std::int16_t index) {
        if (index < 0 || index >= model::channelCount) {
            throw base::SubscriptFailure();
        }
        if (!ownRecords_) {
            return element(Further::ChannelTable, index);
        }
        ComPointer<IChannelRecord> record;
        checkCall(ownRecords_->Record(index, record.put()));
        return ComPointer<IDispatch>::adopt(record.detach());
    }

    [[nodiscard]] MemberId requireKey(IDispatch& record, model::ChannelKey key) {
        const auto name = static_cast<std::size_t>(key);
        return ownRecords_ ? ownRecordMembers_.require(record, name) : recordMembers_.require(record, name);
    }

    [[nodiscard]] ComPointer<IDispatch> element(Further table, std::int16_t index) {
        const MemberId member = require(table);
        try {
            return elementOf(invoke(*store_, member, getFlags).get(), index);
        } catch (const ComFailure& failure) {
            if (!saysArgumentNeeded(failure.code(), member.extended)) {
                throw;
            }
        }
        const std::array arguments{Variant(index)};
        return objectIn(invoke(*store_, member, getFlags, arguments).get());
    }

    ComPointer<IDispatch> store_;
    // The same object, where it is a store of this system's own: asked for a record, it answers that alone.
    ComPointer<IChannelRecords> ownRecords_;
    MembersOfKind storeMembers_{
        namesOf(model::storeMembers, {L"ChannelTable", L"ConfigRecords", L"SetPotValue", L"EnterChannelSelect",
                                      L"AutomaticSelect", L"CheckKey", L"CtcssTone", L"SendPermitted", L"PotValue"})};
    MembersOfKind ownRecordMembers_{namesOf(model::channelKeys, {})};
    KnownMembers recordMembers_{namesOf(model::channelKeys, {L"sm"})};
};

}  // namespace

model::DataStorePointer adaptDataStore(IDispatch* store) {
    return store == nullptr ? nullptr : std::make_shared<ForeignDataStore>(*store);
}

}  // namespace telvar::com
