// A store that lives in another apartment: every call goes through the system's proxies, which own and free what they
// carry.
#include <thread>

#include "base/conversion.h"
#include "com/adapters/foreign_data_store.h"
#include "world.h"

namespace telvar::tests {
namespace {

// A thread of its own, which serves a store until the object ends.
class DistantStore {
public:
    explicit DistantStore(const LoadedServer& server)
        : ready_(CreateEventW(nullptr, TRUE, FALSE, nullptr)), thread_([this, &server] { serve(server); }) {
        WaitForSingleObject(ready_, INFINITE);
    }
    DistantStore(const DistantStore&) = delete;
    DistantStore& operator=(const DistantStore&) = delete;
    DistantStore(DistantStore&&) = delete;
    DistantStore& operator=(DistantStore&&) = delete;
    ~DistantStore() {
        PostThreadMessageW(id_, WM_QUIT, 0, 0);
        thread_.join();
        CloseHandle(ready_);
    }

    // Once.
    [[nodiscard]] ComPointer<IDispatch> proxy() {
        ComPointer<IDispatch> proxy;
        com::check(CoGetInterfaceAndReleaseStream(stream_.detach(), IID_IDispatch, proxy.putVoid()));
        return proxy;
    }

private:
    void serve(const LoadedServer& server) {
        const Apartment own;
        id_ = GetCurrentThreadId();
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        {
            const auto store = server.create<IDispatch>(__uuidof(DataStore));
            com::check(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, store.get(), stream_.put()));
        }
        SetEvent(ready_);
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
    }

    HANDLE ready_;
    DWORD id_ = 0;
    ComPointer<IStream> stream_;
    std::thread thread_;
};

// The proxies are made from the registered type library.
struct Registration {
    explicit Registration(const LoadedServer& which) : server(which) { com::check(server.registerMachine()); }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    Registration(Registration&&) = delete;
    Registration& operator=(Registration&&) = delete;
    ~Registration() { EXPECT_EQ(server.unregisterMachine(), S_OK); }
    const LoadedServer& server;
};

TEST(OtherApartment, AStoreThereIsReadRecordByRecord) {
    const Apartment apartment;
    const LoadedServer server("VexloDataStore.dll");
    const Registration registered(server);
    DistantStore distant(server);
    const auto proxy = distant.proxy();
    EXPECT_TRUE(ComPointer<IChannelRecords>::from(proxy));
    const auto store = com::adaptDataStore(proxy.get());
    store->writeChannel(254, model::ChannelKey::TxFreq, std::int32_t{446'000'000});
    EXPECT_EQ(base::toInt32(store->readChannel(254, model::ChannelKey::TxFreq)), 446'000'000);
}

TEST(OtherApartment, TheTableThatComesFromThereIsTheCallers) {
    const Apartment apartment;
    const LoadedServer server("VexloDataStore.dll");
    const Registration registered(server);
    DistantStore distant(server);
    const auto proxy = distant.proxy();
    for (int round = 0; round < 2; ++round) {
        Variant table = get(*proxy, "ChannelTable");
        ASSERT_EQ(table.type(), VT_ARRAY | VT_VARIANT);
        LONG index = 254;
        Variant record;
        ASSERT_EQ(SafeArrayGetElement(V_ARRAY(&table.get()), &index, record.put()), S_OK);
        EXPECT_EQ(textOf(get(*objectIn<IDispatch>(record), "TxFreq")), "0");
    }
}

}  // namespace
}  // namespace telvar::tests
