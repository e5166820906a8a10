// Events on their way to the host, and what sinks may do in the middle of them.
#include "world.h"

namespace telvar::tests {
namespace {

struct Events : ControlWorld {
    void SetUp() override {
        setUp();
        put(*store, "DatabaseTitle", Variant("Band plan"));
    }
    void refresh() { call(*control, "UpdateControlsFromMemory"); }
};

TEST_F(Events, AFullRefreshCountsItsRowsAndNamesTheTable) {
    const auto sink = com::make<RecordingSink>();
    advise(*control, *sink);
    refresh();
    EXPECT_EQ(sink->count("12"), 255);
    EXPECT_EQ(sink->count("9 Channel Information - Band plan"), 1);
    EXPECT_EQ(sink->events().size(), 256U);
}

// A host calls these in the middle of its own work on the line.
TEST_F(Events, DisablingAndEnablingTheControlsCommandsRaisesNone) {
    const auto sink = com::make<RecordingSink>();
    advise(*control, *sink);
    for (const char* commands : {"RS232", "rs232", "All", ""}) {
        call(*control, "DisableMyCommands", {Variant(commands)});
        call(*control, "EnableMyCommands", {Variant(commands)});
    }
    pump();
    EXPECT_EQ(sink->events(), Texts{});
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(Events, EverySinkGetsEveryEvent) {
    const auto first = com::make<RecordingSink>();
    const auto second = com::make<RecordingSink>();
    advise(*control, *first);
    advise(*control, *second);
    refresh();
    EXPECT_EQ(first->count("12"), 255);
    EXPECT_EQ(first->events(), second->events());
}

TEST_F(Events, ATextIsPassedByReferenceAndTheNextSinkSeesTheChange) {
    const auto first = com::make<RecordingSink>([](DISPID event, DISPPARAMS& arguments) {
        if (event == 9) {
            EXPECT_EQ(V_VT(&arguments.rgvarg[0]), VT_BYREF | VT_BSTR);
            com::assign(*V_BSTRREF(&arguments.rgvarg[0]), "changed");
        }
        return S_OK;
    });
    const auto second = com::make<RecordingSink>();
    advise(*control, *first);
    advise(*control, *second);
    refresh();
    EXPECT_EQ(second->count("9 changed"), 1);
}

TEST_F(Events, AFailingSinkIsItsOwnAffair) {
    const auto failing = com::make<RecordingSink>([](DISPID, DISPPARAMS&) { return E_FAIL; });
    const auto other = com::make<RecordingSink>();
    advise(*control, *failing);
    advise(*control, *other);
    refresh();
    EXPECT_EQ(failing->count("12"), 255);
    EXPECT_EQ(other->count("12"), 255);
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(Events, ASinkWhoseProcessHasGoneIsDropped) {
    const auto dead = com::make<RecordingSink>([](DISPID, DISPPARAMS&) { return RPC_E_DISCONNECTED; });
    advise(*control, *dead);
    refresh();
    EXPECT_EQ(dead->events().size(), 1U);
}

TEST_F(Events, ASinkMayUnadviseInTheMiddle) {
    DWORD cookie = 0;
    auto point = eventsOf(*control);
    const auto leaving = com::make<RecordingSink>([&](DISPID, DISPPARAMS&) {
        EXPECT_EQ(point->Unadvise(cookie), S_OK);
        return S_OK;
    });
    const auto staying = com::make<RecordingSink>();
    cookie = advise(*control, *leaving);
    advise(*control, *staying);
    refresh();
    EXPECT_EQ(leaving->events().size(), 1U);
    EXPECT_EQ(staying->count("12"), 255);
    EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
    point.reset();
}

TEST_F(Events, ASinkMayUnadviseTheNextOne) {
    DWORD next = 0;
    auto point = eventsOf(*control);
    const auto first = com::make<RecordingSink>([&](DISPID, DISPPARAMS&) {
        point->Unadvise(next);
        return S_OK;
    });
    const auto second = com::make<RecordingSink>();
    advise(*control, *first);
    next = advise(*control, *second);
    refresh();
    EXPECT_EQ(first->count("12"), 255);
    EXPECT_EQ(second->events(), Texts{});
    point.reset();
}

TEST_F(Events, ASinkAdvisedInTheMiddleHearsOfTheNextEvent) {
    const auto late = com::make<RecordingSink>();
    bool advised = false;
    const auto first = com::make<RecordingSink>([&](DISPID, DISPPARAMS&) {
        if (!advised) {
            advised = true;
            advise(*control, *late);
        }
        return S_OK;
    });
    advise(*control, *first);
    refresh();
    EXPECT_EQ(late->events().size(), first->events().size() - 1);
}

TEST_F(Events, TheHostMayExchangeTheStoreInTheMiddle) {
    fill(1, 145'000'000);
    fill(200, 145'000'000);
    const auto empty = storeServer.create<IDataStore>(__uuidof(DataStore));
    const auto sink = com::make<RecordingSink>();
    const auto exchanging = com::make<RecordingSink>([&](DISPID event, DISPPARAMS&) {
        if (event == 12) {
            put(*control, "pCentralDataStore", Variant(empty.get()));
        }
        return S_OK;
    });
    advise(*control, *exchanging);
    advise(*control, *sink);
    refresh();
    EXPECT_EQ(cell(1, 1), "145.000000");
    EXPECT_NE(cell(200, 1), "145.000000") << "the table is asked afresh for every value";
    EXPECT_EQ(sink->count("12"), 255);
    put(*control, "pCentralDataStore", Variant());
    call(*control, "DistributeDataStoreLink");
}

TEST_F(Events, TheHostMayReleaseTheControlInTheMiddle) {
    int rows = 0;
    const auto releasing = com::make<RecordingSink>([&](DISPID event, DISPPARAMS&) {
        rows += event == 12 ? 1 : 0;
        grid.reset();
        control.reset();
        return S_OK;
    });
    advise(*control, *releasing);
    // As a caller who owns a single reference: it is gone when the call returns.
    _ChannelInformation* const borrowed = control.get();
    EXPECT_EQ(borrowed->UpdateControlsFromMemory(), S_OK);
    EXPECT_LE(rows, 1) << "the routine ends when nobody is left who wants its result";
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(Events, AreSilentWhileTheyAreFrozen) {
    const auto sink = com::make<RecordingSink>();
    advise(*control, *sink);
    const auto frozen = ComPointer<IOleControl>::from(control);
    EXPECT_EQ(frozen->FreezeEvents(TRUE), S_OK);
    refresh();
    EXPECT_EQ(sink->events(), Texts{});
    EXPECT_EQ(frozen->FreezeEvents(FALSE), S_OK);
    refresh();
    EXPECT_EQ(sink->count("12"), 255);
}

// ---- the connection point itself

TEST_F(Events, OnlyTheEventInterfaceHasAConnectionPoint) {
    const auto container = ComPointer<IConnectionPointContainer>::from(control);
    ComPointer<IConnectionPoint> point;
    EXPECT_EQ(container->FindConnectionPoint(IID_IPropertyNotifySink, point.put()), CONNECT_E_NOCONNECTION);

    ComPointer<IEnumConnectionPoints> points;
    ASSERT_EQ(container->EnumConnectionPoints(points.put()), S_OK);
    ASSERT_EQ(points->Next(1, point.put(), nullptr), S_OK);
    IID iid{};
    EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
    EXPECT_TRUE(IsEqualIID(iid, __uuidof(__ChannelInformation)));
    ComPointer<IConnectionPointContainer> owner;
    EXPECT_EQ(point->GetConnectionPointContainer(owner.put()), S_OK);
    EXPECT_TRUE(com::sameObject(owner.get(), control.get()));
    ComPointer<IConnectionPoint> another;
    EXPECT_EQ(points->Next(1, another.put(), nullptr), S_FALSE);
}

TEST_F(Events, ConnectionsAreEnumeratedWithTheirSinks) {
    const auto sink = com::make<RecordingSink>();
    const DWORD cookie = advise(*control, *sink);
    ComPointer<IEnumConnections> connections;
    ASSERT_EQ(eventsOf(*control)->EnumConnections(connections.put()), S_OK);
    CONNECTDATA found[2]{};
    ULONG count = 0;
    EXPECT_EQ(connections->Next(2, found, &count), S_FALSE);
    ASSERT_EQ(count, 1U);
    const auto owned = ComPointer<IUnknown>::adopt(found[0].pUnk);
    EXPECT_EQ(found[0].dwCookie, cookie);
    EXPECT_TRUE(com::sameObject(owned.get(), sink.get()));
}

TEST_F(Events, WhatTakesNoEventsCannotBeConnected) {
    DWORD cookie = 1;
    const auto noSink = server.factory(__uuidof(ChannelInformation));
    EXPECT_EQ(eventsOf(*control)->Advise(noSink.get(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0U);
    EXPECT_EQ(eventsOf(*control)->Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(eventsOf(*control)->Unadvise(12345), CONNECT_E_NOCONNECTION);
}

TEST_F(Events, TheClassSaysWhichEventsItHas) {
    const auto classInfo = ComPointer<IProvideClassInfo2>::from(control);
    GUID events{};
    EXPECT_EQ(classInfo->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_TRUE(IsEqualGUID(events, __uuidof(__ChannelInformation)));
    EXPECT_EQ(classInfo->GetGUID(77, &events), E_INVALIDARG);
    ComPointer<ITypeInfo> info;
    ASSERT_EQ(classInfo->GetClassInfo(info.put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, __uuidof(ChannelInformation)));
    info->ReleaseTypeAttr(attributes);
}

}  // namespace
}  // namespace telvar::tests
