// This system's own store and link, read like anybody else's.
#include <gtest/gtest.h>

#include <string>

#include "VexloDataStore.h"
#include "VexloRadioLink.h"
#include "base/conversion.h"
#include "base/failure.h"
#include "com/adapters/foreign_data_store.h"
#include "com/adapters/foreign_radio_link.h"
#include "com/kit/object.h"
#include "support/windows/loaded_server.h"

namespace telvar::com::test {
namespace {

using model::ChannelKey;
using model::StoreMember;

class OwnStore : public testing::Test {
protected:
    void SetUp() override {
        check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
        store = adaptDataStore(server.create<IDispatch>(__uuidof(::DataStore)).get());
    }
    void TearDown() override {
        store.reset();
        EXPECT_TRUE(server.canUnload());
        CoUninitialize();
    }
    tests::LoadedServer server{"VexloDataStore.dll"};
    model::DataStorePointer store;
};

// A value of the kind that the key takes, different for every channel and key.
[[nodiscard]] base::Value valueFor(const model::ChannelKeyInfo& info, std::int16_t index) {
    const int number = index + static_cast<int>(info.key);
    switch (info.kind) {
    case model::KeyKind::Frequency:
    case model::KeyKind::Step:
        return std::int32_t{145'000'000 + number};
    case model::KeyKind::Tone:
        return 60.0F + static_cast<float>(number) / 2;
    case model::KeyKind::Integer:
        return static_cast<std::int16_t>(number);
    case model::KeyKind::Boolean:
        return number % 2 == 0;
    case model::KeyKind::Code:
        return base::textValue(std::to_string(1000 + number));
    }
    return base::Empty{};
}

TEST_F(OwnStore, GivesBackEveryKeyOfEveryChannel) {
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        for (const auto& info : model::channelKeys) {
            store->writeChannel(index, info.key, valueFor(info, index));
        }
    }
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        for (const auto& info : model::channelKeys) {
            ASSERT_EQ(base::toText(store->readChannel(index, info.key)), base::toText(valueFor(info, index)))
                << index << " " << info.name;
        }
    }
}

// Says how often it was asked for the whole table.
class CountingStore final : public Object<IDispatch> {
public:
    explicit CountingStore(IDispatch* behind) : behind_(behind) {}
    int tables = 0;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override {
        return IsEqualIID(iid, __uuidof(IChannelRecords)) ? behind_->QueryInterface(iid, object)
                                                          : Object::QueryInterface(iid, object);
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override { return behind_->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override {
        return behind_->GetTypeInfo(index, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) noexcept override {
        return behind_->GetIDsOfNames(reserved, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrongArgument) noexcept override {
        constexpr DISPID channelTable = 1;
        tables += member == channelTable ? 1 : 0;
        return behind_->Invoke(member, reserved, locale, flags, arguments, result, exception, wrongArgument);
    }

private:
    ComPointer<IDispatch> behind_;
};

TEST_F(OwnStore, IsAskedForOneRecordAndNotForTheTable) {
    const auto object = server.create<IDispatch>(__uuidof(::DataStore));
    const auto counting = make<CountingStore>(object.get());
    const auto adapter = adaptDataStore(counting.get());
    adapter->writeChannel(254, ChannelKey::TxFreq, std::int32_t{446'000'000});
    EXPECT_EQ(adapter->readChannel(254, ChannelKey::TxFreq), base::Value{std::int32_t{446'000'000}});
    EXPECT_EQ(adapter->readChannel(0, ChannelKey::TxFreq), base::Value{std::int32_t{0}});
    EXPECT_EQ(counting->tables, 0);
}

TEST_F(OwnStore, HasEveryMember) {
    for (const auto& info : model::storeMembers) {
        base::Value value;
        ASSERT_NO_THROW(value = store->get(info.member)) << info.name;
        EXPECT_NO_THROW(store->put(info.member, value)) << info.name;
    }
    store->put(StoreMember::SelectedChannel, std::int16_t{17});
    EXPECT_EQ(store->get(StoreMember::SelectedChannel), base::Value{std::int16_t{17}});
    store->put(StoreMember::MessageTitle, base::textValue("Telvar \xC3\xA9"));
    EXPECT_EQ(store->get(StoreMember::MessageTitle), base::textValue("Telvar \xC3\xA9"));
}

TEST_F(OwnStore, PerformsEveryOperation) {
    EXPECT_EQ(base::toInt32(store->referenceDividerScaling()), 0);
    EXPECT_NO_THROW(store->SetPotValue(3, 255));
    EXPECT_THROW(store->SetPotValue(4, 255), base::Failure);
    EXPECT_NO_THROW(store->EnterChannelSelect());
    EXPECT_NO_THROW((void)store->AutomaticSelect(2));
    EXPECT_TRUE(store->CheckKey('7'));
    EXPECT_EQ(base::toFixedText(store->CtcssTone(0), 1), "250.3");
    EXPECT_THROW((void)store->CtcssTone(39), base::Failure);
    EXPECT_TRUE(store->SendPermitted());
}

TEST_F(OwnStore, RefusesChannelsThatItDoesNotHave) {
    EXPECT_THROW((void)store->readChannel(-1, ChannelKey::TxFreq), base::SubscriptFailure);
    EXPECT_THROW((void)store->readChannel(255, ChannelKey::TxFreq), base::SubscriptFailure);
}

TEST(OwnLink, HasEveryOperation) {
    check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    {
        const tests::LoadedServer server("VexloRadioLink.dll");
        const auto link = adaptRadioLink(server.create<IDispatch>(__uuidof(::RadioLink)).get());
        std::string text;
        bool flag = true;
        const auto refusal = [](const auto& operation) {
            try {
                operation();
            } catch (const base::Failure& failure) {
                return failure.description();
            }
            return std::string();
        };
        // The first exchange starts, the others meet it; so none is missing.
        EXPECT_EQ(refusal([&] { link->LoadChannelTable(text, flag); }), "");
        const std::string busy = "The radio link is busy with another exchange";
        EXPECT_EQ(refusal([&] { link->LoadChannelTable(text, flag); }), busy);
        EXPECT_EQ(refusal([&] { link->SendChannelTable(); }), busy);
        EXPECT_EQ(refusal([&] { link->SendPotValues(text); }), busy);
        EXPECT_EQ(refusal([&] { link->SelectChannel(text); }), busy);
        EXPECT_EQ(refusal([&] { link->AbortTransfer(); }), "");
    }
    CoUninitialize();
}

}  // namespace
}  // namespace telvar::com::test
