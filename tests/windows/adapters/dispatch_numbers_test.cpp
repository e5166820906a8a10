// Which dispatch numbers are remembered, and for whom.
#include <gtest/gtest.h>

#include <utility>

#include "base/failure.h"
#include "fake_store.h"

namespace telvar::com::test {
namespace {

constexpr GUID oneKind{0x6B1DF2A4, 0x77C1, 0x4A0E, {0x9B, 0x10, 0x2D, 0x5A, 0x31, 0xC4, 0x88, 0x01}};
constexpr GUID otherKind{0x6B1DF2A4, 0x77C1, 0x4A0E, {0x9B, 0x10, 0x2D, 0x5A, 0x31, 0xC4, 0x88, 0x02}};

// Two records, each with its own numbers, in a store that answers by reference.
class DispatchNumbers : public testing::Test {
protected:
    DispatchNumbers() {
        store.table = [this](const Call& call) { return call.answer(referenceToArray(array.get(), VT_DISPATCH)); };
        first().firstNumber = 10;
        second().firstNumber = 20;
    }
    [[nodiscard]] FakeObject& first() { return *store.records[0]; }
    [[nodiscard]] FakeObject& second() { return *store.records[1]; }

    static void giveKind(FakeObject& object, const GUID& kind) {
        const auto info = makeTypeInfo(kind);
        info->knows(L"TxFreq", object.firstNumber);
        object.typeInfo = ComPointer<ITypeInfo>(info.get());
    }
    void readBoth() {
        for (int round = 0; round < 3; ++round) {
            EXPECT_EQ(store.read(0), FakeStore::frequencyOf(0));
            EXPECT_EQ(store.read(1), FakeStore::frequencyOf(1));
        }
    }
    [[nodiscard]] std::pair<int, int> asked() { return {first().namesAsked, second().namesAsked}; }

    FakeStore store;
    Array array = arrayOf(VT_DISPATCH, 0, store.records);
};

TEST_F(DispatchNumbers, AnObjectWithoutTypeInformationIsAskedEachTime) {
    readBoth();
    EXPECT_EQ(asked(), std::pair(3, 3));
}

TEST_F(DispatchNumbers, AnObjectWhoseTypeInformationCannotBeHadIsAskedEachTime) {
    first().typeInfoAnswer = E_FAIL;
    second().typeInfoAnswer = E_FAIL;
    readBoth();
    EXPECT_EQ(asked(), std::pair(3, 3));
}

TEST_F(DispatchNumbers, TypeInformationWithoutAnIdentityIsNone) {
    giveKind(first(), GUID{});
    giveKind(second(), GUID{});
    readBoth();
    EXPECT_EQ(asked(), std::pair(3, 3));
}

TEST_F(DispatchNumbers, ObjectsOfOneKindShareThem) {
    second().firstNumber = 10;
    giveKind(first(), oneKind);
    giveKind(second(), oneKind);
    readBoth();
    EXPECT_EQ(asked(), std::pair(1, 0));
}

TEST_F(DispatchNumbers, ObjectsOfOneClassButOfTwoKindsDoNot) {
    giveKind(first(), oneKind);
    giveKind(second(), otherKind);
    readBoth();
    EXPECT_EQ(asked(), std::pair(1, 1));
}

TEST_F(DispatchNumbers, AKindIsNotMistakenForOneThatLayAtItsAddress) {
    giveKind(first(), oneKind);
    EXPECT_EQ(store.read(0), FakeStore::frequencyOf(0));
    // The first type information goes; whatever takes its place in memory is another kind.
    first().typeInfo.reset();
    giveKind(second(), otherKind);
    EXPECT_EQ(store.read(1), FakeStore::frequencyOf(1));
}

TEST_F(DispatchNumbers, AnObjectIsNotMistakenForOneThatLayAtItsAddress) {
    for (int at = 0; at < 50; ++at) {
        GUID kind = oneKind;
        kind.Data1 += static_cast<unsigned long>(at % 4);
        const auto record = makeObject();
        record->firstNumber = 100 + at % 4;
        record->with(L"TxFreq", constant(Variant(static_cast<std::int16_t>(at))));
        giveKind(*record, kind);
        Array one = arrayOf(VT_DISPATCH, 0, {record});
        store.table = [&one](const Call& call) { return call.answer(referenceToArray(one.get(), VT_DISPATCH)); };
        // Nobody but the adapter may keep the record after this.
        ASSERT_EQ(store.read(0), base::Value{static_cast<std::int16_t>(at)});
    }
}

TEST_F(DispatchNumbers, NoRecordIsHeldBetweenTwoCalls) {
    giveKind(first(), oneKind);
    giveKind(second(), otherKind);
    second().isScript = true;
    const ULONG before = first().references();
    (void)store.read(0);
    EXPECT_EQ(first().references(), before);
    store.write(0, std::int32_t{1});
    EXPECT_EQ(first().references(), before);
    (void)store.read(1);
    store.write(1, std::int32_t{1});
    EXPECT_EQ(second().references(), before);
}

TEST_F(DispatchNumbers, NumbersThatTheTypeInformationDoesNotKnowBelongToTheObject) {
    const auto info = makeTypeInfo(oneKind);
    first().typeInfo = ComPointer<ITypeInfo>(info.get());
    second().typeInfo = ComPointer<ITypeInfo>(info.get());
    readBoth();
    EXPECT_EQ(asked(), std::pair(3, 3));
}

TEST_F(DispatchNumbers, AScriptsNumbersAreNeverRemembered) {
    first().isScript = true;
    second().isScript = true;
    giveKind(first(), oneKind);
    giveKind(second(), oneKind);
    readBoth();
    EXPECT_EQ(asked(), std::pair(3, 3));
}

TEST_F(DispatchNumbers, AScriptIsNeverAskedForTypeInformation) {
    first().isScript = true;
    store.object->isScript = true;
    giveKind(first(), oneKind);
    giveKind(*store.object, otherKind);
    EXPECT_EQ(store.read(0), FakeStore::frequencyOf(0));
    store.write(0, std::int32_t{1});
    EXPECT_EQ(first().typeInfoAsked, 0);
    EXPECT_EQ(store.object->typeInfoAsked, 0);
}

TEST_F(DispatchNumbers, AMissingMemberIsAskedForAgain) {
    giveKind(first(), oneKind);
    EXPECT_THROW((void)store.adapter->readChannel(0, model::ChannelKey::RxFreq), base::Failure);
    Variant late(std::int16_t{7});
    first().with(L"RxFreq", property(late));
    EXPECT_EQ(store.adapter->readChannel(0, model::ChannelKey::RxFreq), base::Value{std::int16_t{7}});
}

TEST_F(DispatchNumbers, OfTheStoreItselfAreRememberedToo) {
    const auto info = makeTypeInfo(otherKind);
    info->knows(L"ChannelTable", store.object->firstNumber);
    store.object->typeInfo = ComPointer<ITypeInfo>(info.get());
    readBoth();
    EXPECT_EQ(store.object->namesAsked, 1);
}

TEST_F(DispatchNumbers, ManyKindsAreReadRightly) {
    for (int at = 0; at < 40; ++at) {
        GUID kind = oneKind;
        kind.Data1 += static_cast<unsigned long>(at);
        FakeObject& record = *store.records[static_cast<std::size_t>(at)];
        record.firstNumber = 100 + at;
        giveKind(record, kind);
    }
    for (int round = 0; round < 2; ++round) {
        for (int at = 0; at < 40; ++at) {
            EXPECT_EQ(store.read(at), FakeStore::frequencyOf(at)) << at;
        }
    }
}

TEST_F(DispatchNumbers, AnObjectMayReadTheStoreWhileItIsAskedForANumber) {
    for (int at = 0; at < 12; ++at) {
        GUID kind = oneKind;
        kind.Data1 += static_cast<unsigned long>(at);
        FakeObject& record = *store.records[static_cast<std::size_t>(at)];
        giveKind(record, kind);
        if (at + 1 < 12) {
            record.uponName = [this, at] { EXPECT_EQ(store.read(at + 1), FakeStore::frequencyOf(at + 1)); };
        }
    }
    EXPECT_EQ(store.read(0), FakeStore::frequencyOf(0));
}

}  // namespace
}  // namespace telvar::com::test
