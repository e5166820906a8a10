#include <chrono>
#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "com/kit/object.h"
#include "com/kit/object_safety.h"
#include "world.h"

namespace telvar::tests {
namespace {

using Clock = std::chrono::steady_clock;

struct Fired {
    DISPID event = 0;
    std::vector<std::string> arguments;
    std::vector<VARTYPE> types;
    bool operator==(const Fired&) const = default;
};

class Sink final : public com::Object<IDispatch> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** /*info*/) noexcept override {
        return E_NOTIMPL;
    }
    STDMETHODIMP GetIDsOfNames(REFIID /*iid*/, LPOLESTR* /*names*/, UINT /*count*/, LCID /*locale*/,
                               DISPID* /*ids*/) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID event, REFIID /*iid*/, LCID /*locale*/, WORD /*flags*/, DISPPARAMS* parameters,
                        VARIANT* /*result*/, EXCEPINFO* /*exception*/, UINT* /*argument*/) noexcept override {
        Fired one{event, {}, {}};
        for (UINT at = parameters->cArgs; at > 0; --at) {
            const VARIANT& argument = parameters->rgvarg[at - 1];
            one.arguments.push_back(textOf(Variant::copyOf(argument)));
            one.types.push_back(argument.vt);
        }
        fired.push_back(one);
        if (inside) {
            inside();
        }
        return answer;
    }

    std::vector<Fired> fired;
    std::function<void()> inside;
    HRESULT answer = S_OK;
};

class Link : public testing::Test {
protected:
    void TearDown() override {
        point.reset();
        link.reset();
        EXPECT_TRUE(server.canUnload());
    }

    void advise() {
        const auto container = ComPointer<IConnectionPointContainer>::from(link);
        com::check(container->FindConnectionPoint(__uuidof(_RadioLinkEvents), point.put()));
        com::check(point->Advise(sink.get(), &cookie));
    }

    Apartment apartment;
    LoadedServer server{"VexloRadioLink.dll"};
    ComPointer<IRadioLink> link = server.create<IRadioLink>(__uuidof(RadioLink));
    ComPointer<Sink> sink = com::make<Sink>();
    ComPointer<IConnectionPoint> point;
    DWORD cookie = 0;
};

TEST_F(Link, SaysOfWhateverNeedsTheRadioThatItIsNotConnected) {
    EXPECT_EQ(textOf(get(*link, "Connected")), "False");
    const std::string expected = "The radio is not connected";
    const auto said = [&](const std::string& method, const Arguments& arguments) {
        return failureOf([&] { (void)get(*link, method, arguments); });
    };
    EXPECT_EQ(said("SendChannelTable", {}), expected);
    EXPECT_EQ(said("LoadChannelTable", {Variant(""), Variant(true)}), expected);
    EXPECT_EQ(said("SendPotValues", {Variant("")}), expected);
    EXPECT_EQ(said("SelectChannel", {Variant("12")}), expected);
    EXPECT_EQ(link->SendChannelTable(), E_FAIL);
    EXPECT_EQ(errorDescription(), "The radio is not connected.");
}

TEST_F(Link, LeavesTheArgumentsOfAFailedOperationAsTheyWere) {
    Bstr text("as passed");
    VARIANT_BOOL flag = VARIANT_TRUE;
    EXPECT_EQ(link->LoadChannelTable(text.address(), &flag), E_FAIL);
    EXPECT_EQ(text.text(), "as passed");
    EXPECT_EQ(flag, VARIANT_TRUE);
    EXPECT_EQ(link->LoadChannelTable(nullptr, &flag), E_POINTER);
    EXPECT_EQ(link->LoadChannelTable(text.address(), nullptr), E_POINTER);
    EXPECT_EQ(link->SelectChannel(nullptr), E_POINTER);
}

TEST_F(Link, ReportsTheEndOncePerAbort) {
    advise();
    ASSERT_EQ(link->AbortTransfer(), S_OK);
    EXPECT_EQ(sink->fired, (std::vector<Fired>{{2, {"0", "False", ""}, {VT_I2, VT_BOOL, VT_BSTR}}}));
    ASSERT_EQ(point->Unadvise(cookie), S_OK);
    ASSERT_EQ(link->AbortTransfer(), S_OK);
    EXPECT_EQ(sink->fired.size(), 1U);
    EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

TEST_F(Link, SurvivesASinkThatFailsOrUnadvisesOrLetsItGo) {
    advise();
    sink->answer = E_FAIL;
    EXPECT_EQ(link->AbortTransfer(), S_OK);
    sink->answer = S_OK;
    sink->inside = [this] {
        EXPECT_EQ(point->Unadvise(cookie), S_OK);
        point.reset();
        link.reset();
    };
    IRadioLink* const borrowed = link.get();
    EXPECT_EQ(borrowed->AbortTransfer(), S_OK);
    EXPECT_EQ(sink->fired.size(), 2U);
    EXPECT_TRUE(server.canUnload());
}

TEST_F(Link, WaitsForNothingWhenNothingRuns) {
    const auto before = Clock::now();
    EXPECT_EQ(textOf(get(*link, "Wait", {Variant(std::int32_t{60'000})})), "True");
    EXPECT_LT(Clock::now() - before, std::chrono::seconds(30));
    EXPECT_EQ(link->Wait(0, nullptr), E_POINTER);
}

TEST_F(Link, KeepsTheDataStoreThatItIsGiven) {
    LoadedServer stores("VexloDataStore.dll");
    auto store = stores.create<IDataStore>(__uuidof(DataStore));
    EXPECT_FALSE(objectIn<IDispatch>(get(*link, "DataStore")));
    put(*link, "DataStore", Variant(store.get()));
    EXPECT_TRUE(com::sameObject(objectIn<IDispatch>(get(*link, "DataStore")).get(), store.get()));
    ASSERT_EQ(link->put_DataStore(nullptr), S_OK);
    EXPECT_FALSE(objectIn<IDispatch>(get(*link, "DataStore")));
    ASSERT_EQ(putCode(*link, "DataStore", Variant(store.get())), S_OK);
    store.reset();
    EXPECT_EQ(textOf(get(*objectIn<IDispatch>(get(*link, "DataStore")), "MessageTitle")), "Telvar");
    EXPECT_FALSE(stores.canUnload());
    ASSERT_EQ(link->putref_DataStore(nullptr), S_OK);
    EXPECT_TRUE(stores.canUnload());
}

TEST_F(Link, TellsItsEventsAndItsSafety) {
    const auto provider = ComPointer<IProvideClassInfo2>::from(link);
    ASSERT_TRUE(provider);
    GUID events{};
    ASSERT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_TRUE(IsEqualGUID(events, __uuidof(_RadioLinkEvents)));
    const auto told = ComPointer<ISupportErrorInfo>::from(link);
    ASSERT_TRUE(told);
    EXPECT_EQ(told->InterfaceSupportsErrorInfo(__uuidof(IRadioLink)), S_OK);
    EXPECT_TRUE(ComPointer<IObjectSafety>::from(link));
}

}  // namespace
}  // namespace telvar::tests
