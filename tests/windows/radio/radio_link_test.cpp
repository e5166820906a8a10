#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "VexloDataStore.h"
#include "VexloRadioLink.h"
#include "base/conversion.h"
#include "base/text.h"
#include "com/kit/object.h"
#include "com/kit/object_safety.h"
#include "com/kit/waiting.h"
#include "radio/faults.h"
#include "radio/table_image.h"
#include "support/served_radio.h"
#include "support/temporary_folder.h"
#include "support/windows/automation_calls.h"
#include "support/windows/loaded_server.h"

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
        store.reset();
        EXPECT_TRUE(stores.canUnload());
    }

    [[nodiscard]] ComPointer<IRadioLink> newLink() {
        auto made = server.create<IRadioLink>(__uuidof(RadioLink));
        put(*made, "DataStore", Variant(store.get()));
        put(*made, "BackupFolder", Variant(std::string_view(folder.name())));
        return made;
    }
    // Element of the store's channel table, 0 to 254.
    [[nodiscard]] ComPointer<IDispatch> record(std::int16_t index) {
        return objectIn<IDispatch>(get(*store, "ChannelTable", {Variant(index)}));
    }
    [[nodiscard]] bool waited() { return textOf(get(*link, "Wait", {Variant(std::int32_t{60'000})})) == "True"; }
    // Of the exchange under way.
    [[nodiscard]] std::string outcome() {
        EXPECT_TRUE(waited());
        return textOf(get(*link, "Succeeded")) + " " + textOf(get(*link, "Message"));
    }
    [[nodiscard]] std::string loaded() {
        Bstr text;
        VARIANT_BOOL flag = VARIANT_TRUE;
        EXPECT_EQ(link->LoadChannelTable(text.address(), &flag), S_OK);
        return outcome();
    }

    void advise() {
        const auto container = ComPointer<IConnectionPointContainer>::from(link);
        com::check(container->FindConnectionPoint(__uuidof(_RadioLinkEvents), point.put()));
        com::check(point->Advise(sink.get(), &cookie));
    }

    Apartment apartment;
    TemporaryFolder folder;
    LoadedServer server{"VexloRadioLink.dll"};
    LoadedServer stores{"VexloDataStore.dll"};
    ComPointer<IDataStore> store = stores.create<IDataStore>(__uuidof(DataStore));
    ComPointer<IRadioLink> link = newLink();
    ComPointer<Sink> sink = com::make<Sink>();
    ComPointer<IConnectionPoint> point;
    DWORD cookie = 0;
};

TEST_F(Link, ATableGoesToTheRadioAndComesBack) {
    put(*record(7), "TxFreq", Variant(std::int32_t{156'400'000}));
    EXPECT_EQ(link->SendChannelTable(), S_OK);
    const auto said = outcome();
    EXPECT_EQ(said,
              "True The radio holds the table; its former one is kept in " + textOf(get(*link, "LastBackup")) + ".");
    EXPECT_NE(said.find(folder.name() + "\\radio 20"), std::string::npos) << said;
    EXPECT_EQ(textOf(get(*link, "Connected")), "True");
    put(*record(7), "TxFreq", Variant(std::int32_t{1}));
    EXPECT_EQ(loaded(), "True The table was loaded from the radio.");
    EXPECT_EQ(textOf(get(*record(7), "TxFreq")), "156400000");
    EXPECT_EQ(textOf(get(*store, "DataModified")), "True");
}

TEST_F(Link, WhatTheRadioHeldCanBeRestored) {
    put(*record(7), "TxFreq", Variant(std::int32_t{156'400'000}));
    ASSERT_EQ(link->SendChannelTable(), S_OK);
    ASSERT_EQ(outcome().substr(0, 4), "True");
    put(*record(7), "TxFreq", Variant(std::int32_t{1}));
    ASSERT_EQ(link->SendChannelTable(), S_OK);
    ASSERT_EQ(outcome().substr(0, 4), "True");
    ASSERT_EQ(link->RestoreBackup(Bstr(textOf(get(*link, "LastBackup"))).get()), S_OK);
    ASSERT_EQ(outcome().substr(0, 4), "True");
    ASSERT_EQ(loaded().substr(0, 4), "True");
    EXPECT_EQ(textOf(get(*record(7), "TxFreq")), "156400000");
}

TEST_F(Link, TellsProgressAndThenTheEnd) {
    advise();
    ASSERT_EQ(loaded().substr(0, 4), "True");
    ASSERT_GT(sink->fired.size(), 10U);
    EXPECT_EQ(sink->fired.front(), (Fired{1, {"0"}, {VT_I2}}));
    EXPECT_EQ(*(sink->fired.end() - 2), (Fired{1, {"100"}, {VT_I2}}));
    EXPECT_EQ(sink->fired.back(),
              (Fired{2, {"22", "True", "The table was loaded from the radio."}, {VT_I2, VT_BOOL, VT_BSTR}}));
    EXPECT_EQ(textOf(get(*store, "ProgressCount")), "100");
}

TEST_F(Link, IsBusyUntilTheEndIsTold) {
    advise();
    ASSERT_EQ(link->QueryStatus(), S_OK);
    EXPECT_EQ(textOf(get(*link, "Busy")), "True");
    EXPECT_EQ(textOf(get(*store, "CommsBusy")), "True");
    EXPECT_EQ(failureOf([&] { (void)get(*link, "SendChannelTable"); }), "The radio link is busy with another exchange");
    EXPECT_EQ(link->SelectChannel(Bstr("7").address()), E_FAIL);
    EXPECT_EQ(errorDescription(), "The radio link is busy with another exchange.");
    ASSERT_TRUE(waited());
    EXPECT_EQ(textOf(get(*link, "Busy")), "False");
    EXPECT_EQ(textOf(get(*store, "CommsBusy")), "False");
    EXPECT_EQ(sink->fired,
              (std::vector<Fired>{
                  {3, {"True", "Simulated radio, serial number 000001, on channel 1."}, {VT_BOOL, VT_BSTR}}}));
}

TEST_F(Link, EveryFaultOfTheSimulatedRadioEndsWithOneSentence) {
    for (const char* faults : {"silence@40+", "noise@40+", "cut@40+", "identity", "power@40"}) {
        put(*link, "Faults", Variant(faults));
        // With a radio that is silent the whole patience is needed; an abort is as good an end.
        advise();
        sink->inside = [this] {
            if (sink->fired.back().event == 1 && sink->fired.back().arguments.front() == "40") {
                (void)link->AbortTransfer();
            }
        };
        const auto said = loaded();
        EXPECT_TRUE(said.starts_with("False ") && said.ends_with("; the table here was not changed.")) << said;
        EXPECT_EQ(point->Unadvise(cookie), S_OK);
    }
    put(*link, "Faults", Variant("none"));
    EXPECT_EQ(loaded().substr(0, 4), "True");
}

TEST_F(Link, TalksToARadioOverTcp) {
    ServedRadio served;
    put(*link, "Connection", Variant(radio::textOf(served.address())));
    put(*record(7), "TxFreq", Variant(std::int32_t{156'400'000}));
    ASSERT_EQ(link->SendChannelTable(), S_OK);
    ASSERT_EQ(outcome().substr(0, 4), "True");
    served.stop();
    EXPECT_EQ(base::toText(radio::valueIn(served.radio.table()[7], model::ChannelKey::TxFreq)), "156400000");
}

TEST_F(Link, AnAbortEndsTheWaitForARadioThatIsSilent) {
    ServedRadio served("silence");
    put(*link, "Connection", Variant(radio::textOf(served.address())));
    ASSERT_EQ(link->SendChannelTable(), S_OK);
    ASSERT_EQ(link->AbortTransfer(), S_OK);
    EXPECT_EQ(outcome(), "False The exchange was aborted; nothing was written to the radio.");
}

TEST_F(Link, NamesEveryFaultThatItTakes) {
    const std::string names = textOf(get(*link, "KnownFaults"));
    for (const auto& info : radio::faultKinds) {
        EXPECT_NE(("," + names + ",").find("," + std::string(info.name) + ","), std::string::npos) << info.name;
    }
    EXPECT_EQ(std::ranges::count(names, ','), radio::faultKinds.size() - 1);
    for (const std::string_view name : base::splitAt(names, ',')) {
        EXPECT_NO_THROW(put(*link, "Faults", Variant(std::string(name)))) << name;
    }
    EXPECT_EQ(link->get_KnownFaults(nullptr), E_POINTER);
}

TEST_F(Link, TellsHowEachExchangeEndedByItsNumber) {
    EXPECT_EQ(textOf(get(*link, "ExchangeNumber")), "0");
    const auto outcomeOf = [this](std::int32_t number) { return textOf(get(*link, "OutcomeOf", {Variant(number)})); };
    ASSERT_EQ(loaded().substr(0, 4), "True");
    EXPECT_EQ(textOf(get(*link, "ExchangeNumber")), "1");
    ServedRadio served("silence");
    put(*link, "Connection", Variant(radio::textOf(served.address())));
    ASSERT_EQ(link->SendChannelTable(), S_OK);
    EXPECT_EQ(textOf(get(*link, "ExchangeNumber")), "2");
    EXPECT_EQ(outcomeOf(2), "1");
    ASSERT_EQ(link->AbortTransfer(), S_OK);
    ASSERT_TRUE(waited());
    ASSERT_EQ(link->QueryStatus(), S_OK);
    EXPECT_EQ(textOf(get(*store, "CommsTask")), "12");
    ASSERT_TRUE(waited());
    EXPECT_EQ(outcomeOf(0), "0");
    EXPECT_EQ(outcomeOf(1), "2");
    EXPECT_EQ(outcomeOf(2), "4");
    EXPECT_EQ(outcomeOf(3), "3");
    EXPECT_EQ(outcomeOf(4), "0");
    EXPECT_EQ(link->get_ExchangeNumber(nullptr), E_POINTER);
    EXPECT_EQ(link->OutcomeOf(1, nullptr), E_POINTER);
}

TEST_F(Link, MayBeLetGoInTheMiddle) {
    ServedRadio served("silence");
    put(*link, "Connection", Variant(radio::textOf(served.address())));
    ASSERT_EQ(link->SendChannelTable(), S_OK);
    link.reset();
    EXPECT_EQ(textOf(get(*store, "CommsBusy")), "False");
    EXPECT_TRUE(server.canUnload());
}

TEST_F(Link, MayBeLetGoByTheSinkOfAnyEvent) {
    for (const DISPID event : {1, 2, 3}) {
        link = newLink();
        advise();
        bool gone = false;
        sink->inside = [&] {
            if (sink->fired.back().event == event && !gone) {
                gone = true;
                (void)point->Unadvise(cookie);
                point.reset();
                link.reset();
            }
        };
        if (event == 3) {
            // An aborted question has two ends to tell, and only the first one finds the link.
            ASSERT_EQ(link->QueryStatus(), S_OK);
            ASSERT_EQ(link->AbortTransfer(), S_OK);
        } else {
            Bstr text;
            VARIANT_BOOL flag = VARIANT_TRUE;
            ASSERT_EQ(link->LoadChannelTable(text.address(), &flag), S_OK);
        }
        EXPECT_TRUE(com::waitPumping(30'000, [&] { return gone; }));
        EXPECT_EQ(sink->fired.back().event, event);
        EXPECT_TRUE(server.canUnload());
    }
}

TEST_F(Link, KeepsItsSettings) {
    for (const auto& [name, text] :
         std::vector<std::pair<std::string, std::string>>{{"Connection", "serial:COM3,9600"},
                                                          {"Faults", "drop@12, noise/5"},
                                                          {"StateFile", R"(C:\state.telvar-radio)"},
                                                          {"TraceFile", R"(C:\trace.txt)"},
                                                          {"BackupFolder", R"(C:\kept)"}}) {
        put(*link, name, Variant(std::string_view(text)));
        EXPECT_EQ(textOf(get(*link, name)), text);
    }
    EXPECT_EQ(link->put_Connection(Bstr("nowhere").get()), E_INVALIDARG);
    EXPECT_EQ(link->put_Faults(Bstr("fire").get()), E_INVALIDARG);
    EXPECT_EQ(textOf(get(*link, "Faults")), "drop@12, noise/5");
}

TEST_F(Link, TheSimulatedRadioKeepsItsTableInAFile) {
    const auto path = folder / "state.telvar-radio";
    put(*link, "StateFile", Variant(std::string_view(path)));
    put(*record(7), "TxFreq", Variant(std::int32_t{156'400'000}));
    ASSERT_EQ(link->SendChannelTable(), S_OK);
    ASSERT_EQ(outcome().substr(0, 4), "True");
    link = newLink();
    put(*link, "StateFile", Variant(std::string_view(path)));
    put(*record(7), "TxFreq", Variant(std::int32_t{1}));
    ASSERT_EQ(loaded().substr(0, 4), "True");
    EXPECT_EQ(textOf(get(*record(7), "TxFreq")), "156400000");
}

TEST_F(Link, OpensNothingForACallerThatIsNotTrusted) {
    const auto safety = ComPointer<IObjectSafety>::from(link);
    ASSERT_EQ(safety->SetInterfaceSafetyOptions(__uuidof(IDispatch), INTERFACESAFE_FOR_UNTRUSTED_CALLER,
                                                INTERFACESAFE_FOR_UNTRUSTED_CALLER),
              S_OK);
    const Bstr text("simulated");
    EXPECT_EQ(link->put_Connection(text.get()), E_ACCESSDENIED);
    EXPECT_EQ(link->put_StateFile(text.get()), E_ACCESSDENIED);
    EXPECT_EQ(link->put_TraceFile(text.get()), E_ACCESSDENIED);
    EXPECT_EQ(link->put_BackupFolder(text.get()), E_ACCESSDENIED);
    EXPECT_EQ(link->RestoreBackup(Bstr("x").get()), E_ACCESSDENIED);
}

TEST_F(Link, LeavesTheArgumentsOfAnOperationAsTheyWere) {
    Bstr text("as passed");
    VARIANT_BOOL flag = VARIANT_TRUE;
    EXPECT_EQ(link->LoadChannelTable(text.address(), &flag), S_OK);
    EXPECT_EQ(text.text(), "as passed");
    EXPECT_EQ(flag, VARIANT_TRUE);
    EXPECT_EQ(link->LoadChannelTable(nullptr, &flag), E_POINTER);
    EXPECT_EQ(link->LoadChannelTable(text.address(), nullptr), E_POINTER);
    EXPECT_EQ(link->SelectChannel(nullptr), E_POINTER);
    EXPECT_TRUE(waited());
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
    EXPECT_TRUE(com::sameObject(objectIn<IDispatch>(get(*link, "DataStore")).get(), store.get()));
    store.reset();
    EXPECT_EQ(textOf(get(*objectIn<IDispatch>(get(*link, "DataStore")), "MessageTitle")), "Telvar");
    EXPECT_FALSE(stores.canUnload());
    ASSERT_EQ(link->put_DataStore(nullptr), S_OK);
    EXPECT_FALSE(objectIn<IDispatch>(get(*link, "DataStore")));
    EXPECT_TRUE(stores.canUnload());
    EXPECT_EQ(loaded(), "False The radio link has no data store.");
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
