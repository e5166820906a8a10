// The DLL goes when nothing of it is used any more, and not before: with a window shown and closed, and with hosts that
// let go in the wrong order. And the foreign container that the system brings along.
#include "container.h"
#include "registered_servers.h"

// No header of the compiler declares them.
extern "C" {
BOOL WINAPI AtlAxWinInit();
HRESULT WINAPI AtlAxGetControl(HWND window, IUnknown** control);
}

namespace telvar::tests {
namespace {

constexpr const wchar_t* controlClass = L"Tesslin.ChannelInformation";
constexpr const wchar_t* controlFile = L"Tesslin.ocx";

struct Unloading : testing::Test {
    [[nodiscard]] static bool isLoaded() { return GetModuleHandleW(controlFile) != nullptr; }
    static void freeUnused() {
        pump();
        CoFreeUnusedLibrariesEx(0, 0);
    }
    void TearDown() override {
        freeUnused();
        EXPECT_FALSE(isLoaded());
    }

    Apartment apartment;
    MessageBoxes boxes;
    RegisteredServers servers;
};

TEST_F(Unloading, WaitsForTheLastObject) {
    auto control = createObject(controlClass);
    freeUnused();
    EXPECT_TRUE(isLoaded());
    control.reset();
    freeUnused();
    EXPECT_FALSE(isLoaded());
}

TEST_F(Unloading, FollowsAWindowThatWasShownAndClosed) {
    auto control = createObject(controlClass);
    auto site = com::make<Container>(*control);
    ASSERT_EQ(site->activate(OLEIVERB_UIACTIVATE), S_OK);
    UpdateWindow(site->window());
    pump();
    call(*control, "Prepare");
    site->close();
    control.reset();
    site.reset();
}

TEST_F(Unloading, MayLoadAndShowAgainAtOnce) {
    for (int round = 0; round < 3; ++round) {
        auto control = createObject(controlClass);
        auto site = com::make<Container>(*control);
        ASSERT_EQ(site->activate(), S_OK) << round;
        ASSERT_NE(site->controlWindow(), nullptr) << round;
        site->close();
        site.reset();
        control.reset();
        freeUnused();
        ASSERT_FALSE(isLoaded()) << round;
    }
}

TEST_F(Unloading, WaitsForAClassFactoryThatIsLocked) {
    ComPointer<IClassFactory> factory;
    CLSID classId{};
    com::check(CLSIDFromProgID(controlClass, &classId));
    com::check(CoGetClassObject(classId, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.putVoid()));
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory.reset();
}

TEST_F(Unloading, WaitsForAConnectionPointThatIsHeld) {
    auto control = createObject(controlClass);
    auto point = eventsOf(*control);
    control.reset();
    freeUnused();
    EXPECT_TRUE(isLoaded());
    point.reset();
}

TEST_F(Unloading, TheRegisteredStoreServesUndo) {
    auto control = createObject(controlClass);
    EXPECT_NE(GetModuleHandleW(L"VexloDataStore.dll"), nullptr) << "the backup tables are of the store's own class";
    control.reset();
    freeUnused();
    EXPECT_EQ(GetModuleHandleW(L"VexloDataStore.dll"), nullptr);
}

#ifdef _WIN64
// ---- the system's own container for controls

struct ForeignContainer : Unloading {
    // The window class is made once.
    static void SetUpTestSuite() { ASSERT_NE(AtlAxWinInit(), FALSE); }
    void SetUp() override {
        host = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 800, 500, nullptr,
                               nullptr, nullptr, nullptr);
        place = CreateWindowExW(0, L"AtlAxWin", controlClass, WS_CHILD | WS_VISIBLE, 10, 10, 600, 300, host, nullptr,
                                nullptr, nullptr);
        ASSERT_NE(place, nullptr);
        com::check(AtlAxGetControl(place, object.put()));
        control = ComPointer<_ChannelInformation>::from(object);
        ASSERT_TRUE(control);
    }
    void TearDown() override {
        control.reset();
        object.reset();
        if (host != nullptr) {
            DestroyWindow(host);
        }
        Unloading::TearDown();
    }
    [[nodiscard]] RECT controlRect() const {
        HWND window = nullptr;
        com::check(ComPointer<IOleInPlaceObject>::from(control)->GetWindow(&window));
        RECT rect{};
        GetWindowRect(window, &rect);
        return rect;
    }

    HWND host = nullptr;
    HWND place = nullptr;
    ComPointer<IUnknown> object;
    ComPointer<_ChannelInformation> control;
};

TEST_F(ForeignContainer, ShowsTheControlInItsSize) {
    const RECT rect = controlRect();
    EXPECT_EQ(rect.right - rect.left, 600);
    EXPECT_EQ(rect.bottom - rect.top, 300);
}

TEST_F(ForeignContainer, ResizesItDespiteItsOwnUnits) {
    MoveWindow(place, 0, 0, 400, 250, TRUE);
    const RECT rect = controlRect();
    EXPECT_EQ(rect.right - rect.left, 400);
    EXPECT_EQ(rect.bottom - rect.top, 250);
}

TEST_F(ForeignContainer, TheControlWorksInIt) {
    const auto store = createObject(L"VexloDataStore.DataStore");
    const auto sink = com::make<RecordingSink>();
    const DWORD cookie = advise(*control, *sink);
    put(*control, "pCentralDataStore", Variant(store.get()));
    call(*control, "DistributeDataStoreLink");
    call(*control, "Prepare");
    call(*control, "UpdateControlsFromMemory");
    EXPECT_EQ(sink->count("12"), 255);
    EXPECT_EQ(boxes.texts(), Texts{});
    com::check(eventsOf(*control)->Unadvise(cookie));
    put(*control, "pCentralDataStore", Variant());
    call(*control, "DistributeDataStoreLink");
}

TEST_F(ForeignContainer, MayBeDestroyedWhileSomebodyHoldsTheControl) {
    DestroyWindow(host);
    host = nullptr;
    HWND window = nullptr;
    EXPECT_EQ(ComPointer<IOleInPlaceObject>::from(control)->GetWindow(&window), E_FAIL);
    EXPECT_EQ(control->put_intPrevChannel(3), S_OK);
}
#endif

}  // namespace
}  // namespace telvar::tests
