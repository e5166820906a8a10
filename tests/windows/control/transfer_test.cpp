// Checks, sends and loads as a host calls them: the events and the calls of the link in one order, what the user is
// told, and what a host may do to the control while it waits for a link that is busy.
#include <functional>
#include <utility>

#include "VexloRadioLink.h"
#include "clipboard_keys.h"
#include "container.h"
#include "recording_link.h"
#include "support/served_radio.h"
#include "support/temporary_folder.h"

namespace telvar::tests {
namespace {

// Of the events.
constexpr const char* restoreButtons = "1";
constexpr const char* disableCommands = "2";
constexpr const char* enableAll = "3 All";
constexpr const char* pauseDiagnostics = "4";
constexpr const char* hourglass = "8";

constexpr std::int32_t good = 450'000'000;
constexpr const char* anotherWaits = "Another transfer is waiting for the Telvar. Please wait until it has ended.";

[[nodiscard]] std::string textOf(Variant value) {
    value.convertTo(VT_BSTR);
    return com::textOf(V_BSTR(&value.get()));
}

// Runs something once from the message loop, wherever that turns next.
class Soon {
public:
    explicit Soon(std::function<void()> action) {
        action_ = std::move(action);
        timer_ = SetTimer(nullptr, 0, 1, &run);
    }
    Soon(const Soon&) = delete;
    Soon& operator=(const Soon&) = delete;
    Soon(Soon&&) = delete;
    Soon& operator=(Soon&&) = delete;
    ~Soon() {
        KillTimer(nullptr, timer_);
        EXPECT_FALSE(action_) << "the message loop never turned";
        action_ = nullptr;
    }

private:
    static void CALLBACK run(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
        KillTimer(nullptr, timer);
        std::exchange(action_, nullptr)();
    }

    static inline std::function<void()> action_;
    UINT_PTR timer_ = 0;
};

struct Transfer : ControlWorld {
    void SetUp() override {
        put(*control, "plibRadioComms", Variant(link.get()));
        setUp();
        put(*store, "TableOpen", Variant(true));
        put(*store, "ShowSendWarning", Variant(false));
        fill(1, good);
        cookie = advise(*control, *sink);
        boxes.forget();
    }
    void setBusy(bool busy) { put(*store, "CommsBusy", Variant(busy)); }
    // The program's own loop needs it.
    static void expectQuitMessage() {
        MSG message{};
        ASSERT_NE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), FALSE);
        EXPECT_EQ(message.wParam, 7U);
    }
    [[nodiscard]] bool checked() {
        const Variant answer = call(*control, "check_Frequencies");
        EXPECT_EQ(answer.type(), VT_BOOL);
        return V_BOOL(&answer.get()) != VARIANT_FALSE;
    }
    [[nodiscard]] std::string scanned() {
        const Variant answer = call(*control, "CheckTotalNoOfChannelScan");
        EXPECT_EQ(answer.type(), VT_BSTR);
        return com::textOf(V_BSTR(&answer.get()));
    }
    void scan(std::int16_t channels) {
        for (std::int16_t channel = 1; channel <= channels; ++channel) {
            fill(channel, good);
            const Variant record = call(*store, "ChannelTable", {Variant(static_cast<std::int16_t>(channel - 1))});
            put(*V_DISPATCH(&record.get()), "scan", Variant(true));
        }
    }

    Texts journal;
    ComPointer<RecordingLink> link = com::make<RecordingLink>(journal);
    ComPointer<RecordingSink> sink = com::make<RecordingSink>([this](DISPID /*event*/, DISPPARAMS& /*arguments*/) {
        journal.push_back(sink->events().back());
        return S_OK;
    });
    DWORD cookie = 0;
};

TEST_F(Transfer, ASendAndALoadPrepareTheHostAndThenCallTheLink) {
    for (const char* name : {"SendToTelvar", "SendChannelInfoToTelvar"}) {
        journal.clear();
        call(*control, name);
        EXPECT_EQ(journal, (Texts{disableCommands, hourglass, pauseDiagnostics, "SendChannelTable"})) << name;
    }
    for (const char* name : {"LoadFromTelvar", "LoadChannelInfoFromTelvar"}) {
        journal.clear();
        call(*control, name);
        EXPECT_EQ(journal, (Texts{disableCommands, hourglass, pauseDiagnostics, "LoadChannelTable [] [True]"})) << name;
    }
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(Transfer, TheTaskIsToldToTheStore) {
    put(*store, "ProgressCount", Variant(std::int16_t{50}));
    call(*control, "SendToTelvar");
    EXPECT_EQ(textOf(get(*store, "CommsTask")), "30");
    EXPECT_EQ(textOf(get(*store, "ProgressCount")), "0");
    call(*control, "LoadFromTelvar");
    EXPECT_EQ(textOf(get(*store, "CommsTask")), "22");
}

TEST_F(Transfer, AConfirmedSendGoesOnAndACancelledOneGivesTheCommandsBack) {
    put(*store, "ShowSendWarning", Variant(true));
    call(*control, "SendToTelvar");
    EXPECT_EQ(journal.back(), "SendChannelTable");
    ASSERT_EQ(boxes.shown().size(), 1U);
    EXPECT_EQ(boxes.shown().front().title, "Telvar: Communicating with Telvar");
    journal.clear();
    boxes.answerWith(IDCANCEL);
    call(*control, "SendToTelvar");
    EXPECT_EQ(journal, (Texts{restoreButtons, enableAll}));
}

TEST_F(Transfer, WithoutAnOpenTableNothingIsSent) {
    put(*store, "TableOpen", Variant(false));
    call(*control, "SendToTelvar");
    EXPECT_EQ(journal, Texts{});
    EXPECT_EQ(boxes.texts(), Texts{"No channel information open to send. Please open a channel database."});
}

TEST_F(Transfer, TheChecksAnswerTheCallerAndTellTheUser) {
    EXPECT_TRUE(checked());
    EXPECT_EQ(boxes.texts(), Texts{});
    fill(3, good + 1);
    EXPECT_FALSE(checked());
    ASSERT_EQ(boxes.shown().size(), 1U);
    EXPECT_TRUE(boxes.texts().front().starts_with(
        "Reference frequency divide error or main frequency divide error in channels 3."))
        << boxes.texts().front();
    EXPECT_EQ(boxes.shown().front().title, "Telvar");
    scan(40);
    EXPECT_EQ(scanned(), "");
    scan(41);
    EXPECT_EQ(scanned(), "Total number of channel scan must not exceed 40.");
}

TEST_F(Transfer, WhatIsRefusedAbortsTheLinkOnceForEachStageThatIsPassedOver) {
    put(*store, "SendPermitted", Variant(false));
    call(*control, "SendToTelvar");
    EXPECT_EQ(journal, (Texts{disableCommands, hourglass, "AbortTransfer", "AbortTransfer", "AbortTransfer"}));
    EXPECT_EQ(boxes.texts(), Texts{});

    journal.clear();
    put(*store, "SendPermitted", Variant(true));
    fill(3, good + 1);
    call(*control, "SendToTelvar");
    EXPECT_EQ(journal, (Texts{disableCommands, hourglass, "AbortTransfer", "AbortTransfer"}));

    journal.clear();
    boxes.forget();
    scan(41);
    call(*control, "SendToTelvar");
    EXPECT_EQ(journal, (Texts{disableCommands, hourglass, pauseDiagnostics, "AbortTransfer"}));
    EXPECT_EQ(boxes.texts(), Texts{"Total number of channel scan must not exceed 40."});
}

// ---- while the control waits for a link that is busy

TEST_F(Transfer, TheWaitGoesOnUntilTheLinkIsQuiet) {
    setBusy(true);
    const Soon quiet([this] {
        EXPECT_EQ(journal, (Texts{disableCommands, hourglass, pauseDiagnostics}));
        setBusy(false);
    });
    call(*control, "SendToTelvar");
    EXPECT_EQ(journal.back(), "SendChannelTable");
}

TEST_F(Transfer, ASecondSendInTheWaitIsRefusedInOneSentence) {
    setBusy(true);
    const Soon second([this] {
        call(*control, "SendToTelvar");
        setBusy(false);
    });
    call(*control, "SendToTelvar");
    EXPECT_EQ(journal, (Texts{disableCommands, hourglass, pauseDiagnostics, "SendChannelTable"}));
    EXPECT_EQ(boxes.shown(), (std::vector<ShownBox>{
                                 {.text = anotherWaits, .title = "Telvar", .icon = "exclamation", .buttons = {IDOK}}}));
}

TEST_F(Transfer, TheHostMayReleaseTheControlInTheWait) {
    setBusy(true);
    const Soon release([this] {
        grid.reset();
        control.reset();
    });
    // As a caller who owns a single reference: it is gone when the call returns.
    _ChannelInformation* const borrowed = control.get();
    EXPECT_EQ(borrowed->SendToTelvar(), S_OK);
    EXPECT_EQ(journal.back(), pauseDiagnostics);
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(Transfer, AContainerMayCloseAndReleaseTheControlInTheWait) {
    for (const auto method : {&_ChannelInformation::SendToTelvar, &_ChannelInformation::LoadFromTelvar}) {
        auto embedded = server.create<_ChannelInformation>(__uuidof(ChannelInformation));
        put(*embedded, "pCentralDataStore", Variant(store.get()));
        put(*embedded, "plibRadioComms", Variant(link.get()));
        call(*embedded, "Prepare");
        auto site = com::make<Container>(*embedded);
        ASSERT_EQ(site->activate(OLEIVERB_UIACTIVATE), S_OK);
        setBusy(true);
        const Soon close([&] {
            site->close();
            site.reset();
            embedded.reset();
        });
        _ChannelInformation* const borrowed = embedded.get();
        EXPECT_EQ((borrowed->*method)(), S_OK);
        EXPECT_FALSE(embedded);
        EXPECT_EQ(journal, Texts{});
        EXPECT_EQ(boxes.texts(), Texts{});
    }
}

// The host keeps the control, but has taken the window away under it.
TEST_F(Transfer, AWindowThatGoesInTheWaitDoesNotDisturbIt) {
    auto site = com::make<Container>(*control);
    ASSERT_EQ(site->activate(OLEIVERB_UIACTIVATE), S_OK);
    setBusy(true);
    const Soon close([&] {
        site->close();
        DestroyWindow(site->window());
        setBusy(false);
    });
    EXPECT_EQ(control->SendToTelvar(), S_OK);
    EXPECT_EQ(boxes.texts(), Texts{});
}

// A link that stays busy for ever holds no program back.
TEST_F(Transfer, AProgramThatEndsEndsTheWait) {
    setBusy(true);
    const Soon quit([] { PostQuitMessage(7); });
    EXPECT_EQ(control->SendToTelvar(), S_OK);
    EXPECT_EQ(journal, (Texts{disableCommands, hourglass, pauseDiagnostics}));
    expectQuitMessage();
}

TEST_F(Transfer, AProgramThatEndsBeginsNoExchangeOnAQuietLinkEither) {
    put(*store, "ChannelChangeAllowed", Variant(true));
    for (const char* name : {"SendToTelvar", "LoadFromTelvar"}) {
        journal.clear();
        PostQuitMessage(7);
        call(*control, name);
        EXPECT_EQ(journal, (Texts{disableCommands, hourglass, pauseDiagnostics})) << name;
        expectQuitMessage();
    }
    // Steps whose number the radio follows at once.
    journal.clear();
    put(*store, "FollowSteps", Variant(true));
    PostQuitMessage(7);
    call(*control, "ChannelKeyDown");
    EXPECT_EQ(journal, (Texts{hourglass, pauseDiagnostics}));
    EXPECT_EQ(boxes.texts(), Texts{});
    expectQuitMessage();
}

// ---- with the link of this build

struct TransferWithLink : ControlWorld {
    void SetUp() override {
        put(*link, "DataStore", Variant(store.get()));
        put(*link, "BackupFolder", Variant(std::string_view(folder.name())));
        put(*control, "plibRadioComms", Variant(link.get()));
        setUp();
        put(*store, "TableOpen", Variant(true));
        put(*store, "ShowSendWarning", Variant(false));
        fill(1, good);
    }
    void TearDown() override {
        com::check(link->putref_DataStore(nullptr));
        link.reset();
        ControlWorld::TearDown();
        EXPECT_TRUE(linkServer.canUnload());
    }
    [[nodiscard]] bool ended() {
        constexpr std::int32_t longest = 30'000;  // milliseconds
        VARIANT_BOOL answer = VARIANT_FALSE;
        com::check(link->Wait(longest, &answer));
        return answer != VARIANT_FALSE;
    }
    [[nodiscard]] bool busy() {
        VARIANT_BOOL answer = VARIANT_FALSE;
        com::check(link->get_Busy(&answer));
        return answer != VARIANT_FALSE;
    }
    [[nodiscard]] std::string message() { return textOf(get(*link, "Message")); }

    TemporaryFolder folder;
    LoadedServer linkServer{"VexloRadioLink.dll"};
    ComPointer<IRadioLink> link = linkServer.create<IRadioLink>(__uuidof(RadioLink));
};

TEST_F(TransferWithLink, WhatIsSentIsLoadedBackAndShownAfterARefresh) {
    call(*control, "SendToTelvar");
    ASSERT_TRUE(ended());
    EXPECT_TRUE(message().starts_with("The radio holds the table;")) << message();
    fill(1, good + 25'000);
    call(*control, "LoadFromTelvar");
    ASSERT_TRUE(ended());
    EXPECT_EQ(message(), "The table was loaded from the radio.");
    call(*control, "UpdateControlsFromMemory");
    EXPECT_EQ(cell(1, 1), "450.000000");
}

// Keys that the user has pressed before, and while, the table is on its way from the radio.
struct EditsDuringALoad : TransferWithLink {
    void SetUp() override {
        TransferWithLink::SetUp();
        call(*control, "SendToTelvar");
        ASSERT_TRUE(ended());
        call(*control, "UpdateControlsFromMemory");
        site = com::make<Container>(*control);
        com::check(site->activate(OLEIVERB_UIACTIVATE));
        pump();
        gridWindow = GetFocus();
        com::check(grid->Select(1, 1, 1, 1));
        putOnClipboard(L"451.5");
    }
    void TearDown() override {
        site->close();
        site.reset();
        TransferWithLink::TearDown();
    }
    void load() { call(*control, "LoadFromTelvar"); }
    void pressPaste() const {
        const HeldControl held;
        SendMessageW(gridWindow, WM_KEYDOWN, 'V', 0);
    }
    [[nodiscard]] std::string frequency() {
        const Variant record = call(*store, "ChannelTable", {Variant(std::int16_t{0})});
        return textOf(get(*V_DISPATCH(&record.get()), "TxFreq"));
    }

    ComPointer<Container> site;
    HWND gridWindow = nullptr;
    const std::string sent = std::to_string(good);
};

constexpr const char* loadRuns = "The channel table is being loaded from the radio. Please wait until it has ended.";

TEST_F(EditsDuringALoad, APasteThatIsPendingAtItsBeginningAndAnotherWhileItRunsAreOneSentenceEachAndChangeNothing) {
    {
        const HeldControl held;
        PostMessageW(gridWindow, WM_KEYDOWN, 'V', 0);
        load();
    }
    EXPECT_EQ(boxes.texts(), Texts{loadRuns});
    ASSERT_TRUE(busy());
    pressPaste();
    EXPECT_EQ(boxes.texts(), (Texts{loadRuns, loadRuns}));
    EXPECT_EQ(frequency(), sent);
    EXPECT_EQ(cell(1, 1), "450.000000");
    ASSERT_TRUE(ended());
    EXPECT_EQ(message(), "The table was loaded from the radio.");
    EXPECT_EQ(frequency(), sent);
    // It has ended, and nobody has to refresh anything before editing goes on.
    pressPaste();
    EXPECT_EQ(boxes.texts().size(), 2U);
    EXPECT_EQ(frequency(), "451500000");
}

TEST_F(EditsDuringALoad, AfterALoadThatFailedADeadRadioThatIsPolledHindersNobody) {
    ServedRadio served("silence");
    put(*link, "Connection", Variant(radio::textOf(served.address())));
    load();
    com::check(link->AbortTransfer());
    ASSERT_TRUE(ended());
    EXPECT_EQ(textOf(get(*store, "CommsTask")), "22");
    com::check(link->QueryStatus());
    ASSERT_TRUE(busy());
    EXPECT_NE(textOf(get(*store, "CommsBusy")), "0");
    pressPaste();
    EXPECT_TRUE(busy());
    EXPECT_EQ(boxes.texts(), Texts{});
    EXPECT_EQ(frequency(), "451500000");
    com::check(link->AbortTransfer());
    ASSERT_TRUE(ended());
}

TEST_F(EditsDuringALoad, ALoadThatIsRefusedInsideASendsWaitGuardsNothing) {
    // Somebody else's exchange, which ends when this test has done with the wait.
    put(*store, "CommsBusy", Variant(true));
    {
        const Soon inside([this] {
            load();
            pressPaste();
            put(*store, "CommsBusy", Variant(false));
        });
        call(*control, "SendToTelvar");
    }
    EXPECT_EQ(boxes.texts(), Texts{anotherWaits});
    EXPECT_EQ(frequency(), "451500000");
    ASSERT_TRUE(ended());
}

TEST_F(TransferWithLink, ASecondSendWaitsForTheFirst) {
    call(*control, "SendToTelvar");
    const std::string first = textOf(get(*link, "LastBackup"));
    EXPECT_TRUE(busy());
    fill(1, good + 25'000);
    call(*control, "SendToTelvar");
    EXPECT_NE(textOf(get(*link, "LastBackup")), first) << "the first has ended when the second begins";
    ASSERT_TRUE(ended());
    EXPECT_TRUE(message().starts_with("The radio holds the table;")) << message();
    EXPECT_EQ(boxes.texts(), Texts{});
    fill(1, good);
    call(*control, "LoadFromTelvar");
    ASSERT_TRUE(ended());
    call(*control, "UpdateControlsFromMemory");
    EXPECT_EQ(cell(1, 1), "450.025000");
}

}  // namespace
}  // namespace telvar::tests
