// Who keeps whom alive, and when the library may leave the process.
#include <cstdint>

#include "VexloRadioLink.h"
#include "support/windows/command.h"
#include "world.h"

namespace telvar::tests {
namespace {

using Lifetime = StoreWorld;

TEST_F(Lifetime, ARecordOutlivesTheStore) {
    const auto kept = record(7);
    put(*kept, "TxFreq", Variant(std::int32_t{145'000'000}));
    store.reset();
    EXPECT_FALSE(server.canUnload());
    EXPECT_EQ(textOf(get(*kept, "TxFreq")), "145000000");
    put(*kept, "scan", Variant(true));
    EXPECT_EQ(textOf(get(*kept, "scan")), "True");
}

TEST_F(Lifetime, AConfigurationRecordOutlivesTheStore) {
    const auto kept = objectIn<IConfigRecord>(get(*store, "ConfigRecords", {Variant(std::int16_t{0})}));
    store.reset();
    EXPECT_FALSE(server.canUnload());
    EXPECT_EQ(kept->put_sm(5), S_OK);
    EXPECT_EQ(textOf(get(*kept, "sm")), "5");
}

TEST_F(Lifetime, ARecordIsTheSameObjectWheneverAskedFor) {
    const auto once = record(7);
    const auto again = record(7);
    EXPECT_TRUE(com::sameObject(once.get(), again.get()));
    EXPECT_FALSE(com::sameObject(once.get(), record(8).get()));
    EXPECT_FALSE(com::sameObject(once.get(), store.get()));
    const auto unknown = ComPointer<IUnknown>::from(ComPointer<ISupportErrorInfo>::from(once));
    EXPECT_TRUE(com::sameObject(unknown.get(), once.get()));
    EXPECT_FALSE(ComPointer<IDataStore>::from(once));
}

TEST_F(Lifetime, StoresHaveTablesOfTheirOwn) {
    const auto other = server.create<IDataStore>(__uuidof(DataStore));
    put(*record(0), "TxFreq", Variant(std::int32_t{145'000'000}));
    const auto first = objectIn<IDispatch>(get(*other, "ChannelTable", {Variant(std::int16_t{0})}));
    EXPECT_EQ(textOf(get(*first, "TxFreq")), "0");
}

TEST_F(Lifetime, TheLibraryStaysWhileAnObjectOrALockNeedsIt) {
    EXPECT_FALSE(server.canUnload());
    store.reset();
    EXPECT_TRUE(server.canUnload());
    {
        const auto factory = server.factory(__uuidof(DataStore));
        ASSERT_EQ(factory->LockServer(TRUE), S_OK);
    }
    EXPECT_FALSE(server.canUnload());
    ASSERT_EQ(server.factory(__uuidof(DataStore))->LockServer(FALSE), S_OK);
    EXPECT_TRUE(server.canUnload());
}

TEST_F(Lifetime, TheFactoryMakesNothingElse) {
    ComPointer<IUnknown> made;
    EXPECT_EQ(server.factory(__uuidof(DataStore))->CreateInstance(store.get(), __uuidof(IUnknown), made.putVoid()),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(server.factory(__uuidof(DataStore))->CreateInstance(nullptr, __uuidof(IOleObject), made.putVoid()),
              E_NOINTERFACE);
    EXPECT_EQ(server.getClassObject(__uuidof(RadioLink), __uuidof(IClassFactory), made.putVoid()),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_FALSE(made);
}

// Through the registry, as a client has it, with no handle of our own that would keep the library loaded.
TEST(Activation, LoadsTheLibraryByItsProgIdAndLetsItGo) {
    ASSERT_EQ(registerServer("VexloDataStore.dll"), CommandOutcome{});
    const Apartment apartment;
    CLSID classId{};
    ASSERT_EQ(CLSIDFromProgID(L"VexloDataStore.DataStore", &classId), S_OK);
    EXPECT_TRUE(IsEqualCLSID(classId, __uuidof(DataStore)));
    ComPointer<IDataStore> store;
    ASSERT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDataStore), store.putVoid()), S_OK);
    EXPECT_NE(GetModuleHandleW(L"VexloDataStore.dll"), nullptr);
    EXPECT_EQ(textOf(get(*store, "MessageTitle")), "Telvar");
    store.reset();
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(GetModuleHandleW(L"VexloDataStore.dll"), nullptr);
}

}  // namespace
}  // namespace telvar::tests
