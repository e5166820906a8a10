// The edit form in a host: opened by a real double-click, owned by the host's window, driven by keys in a message loop
// that knows nothing of it, and no danger whenever the host lets go of the control.
#include "edit_form_world.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <vector>

namespace telvar::tests {
namespace {

constexpr DISPID pauseDiagnosticsEvent = 4;
constexpr DISPID loginEvent = 6;
constexpr DISPID editClosedEvent = 11;

class EditFormInAHost : public EditFormWorld {
protected:
    [[nodiscard]] static int shownSliders() {
        int shown = 0;
        for (const HWND slider : children(L"msctls_trackbar32")) {
            shown += IsWindowVisible(slider) != FALSE ? 1 : 0;
        }
        return shown;
    }

    // From the message loop, soon.
    void letGoFromTheLoop() {
        self = this;
        SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &letGoAtTick);
    }

    // Runs the message loop until it is so; a test fails when that takes longer than five seconds.
    template <class Condition>
    static void loopUntil(Condition&& condition) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        const UINT_PTR wake = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, nullptr);
        while (!condition()) {
            ASSERT_LT(std::chrono::steady_clock::now(), end);
            MSG message;
            ASSERT_TRUE(GetMessageW(&message, nullptr, 0, 0));
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        KillTimer(nullptr, wake);
    }
    // Keys as from a keyboard, which wait behind all posted messages.
    static void pressDown(std::size_t times) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = VK_DOWN;
        input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(VK_DOWN, MAPVK_VK_TO_VSC));
        input.ki.dwFlags = KEYEVENTF_EXTENDEDKEY;
        std::vector<INPUT> inputs(times, input);
        ASSERT_EQ(SendInput(static_cast<UINT>(times), inputs.data(), sizeof(INPUT)), times);
    }
    // A host's window that leaves room on the screen, at its upper left corner.
    void showSmall() {
        show();
        SetWindowPos(host(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        pump();
    }
    [[nodiscard]] static RECT rectOf(HWND window) {
        RECT rect{};
        GetWindowRect(window, &rect);
        return rect;
    }
    // Of the row that a double-click of these tests hits.
    [[nodiscard]] RECT clickedRow() const {
        RECT client{};
        GetClientRect(gridWindow(), &client);
        RECT row{0, 110, client.right, 111};
        MapWindowPoints(gridWindow(), nullptr, reinterpret_cast<POINT*>(&row), 2);
        return row;
    }
    // The next question with that button is read and answered.
    void answerSoon() {
        self = this;
        questions.clear();
        SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &answerAtTick);
    }
    Texts questions;

private:
    static void CALLBACK answerAtTick(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
        const HWND yes = button("Yes");
        if (yes == nullptr) {
            return;
        }
        KillTimer(nullptr, timer);
        for (const HWND text : children(L"Static")) {
            self->questions.push_back(textOf(text));
        }
        PostMessageW(yes, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
        PostMessageW(yes, WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
    }
    static void CALLBACK letGoAtTick(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
        KillTimer(nullptr, timer);
        self->letGo();
    }

    static inline EditFormInAHost* self = nullptr;
};

TEST_F(EditFormInAHost, ADoubleClickOpensItModelessOverTheHostsWindow) {
    show();
    EXPECT_EQ(form(), nullptr);
    doubleClick();
    ASSERT_NE(form(), nullptr);
    EXPECT_EQ(textOf(form()), "Channel Edit");
    EXPECT_EQ(GetWindow(form(), GW_OWNER), host());
    EXPECT_TRUE(IsWindowEnabled(host()));
    EXPECT_EQ(textOf(channelField()), std::to_string(currentRow()));
    EXPECT_EQ(textOf(frequencyField()), frequencyShownFor(currentRow()));
    EXPECT_EQ(base::toInt32(com::valueOf(get(*store, "SelectedChannel"))), currentRow());
    EXPECT_EQ(sink->events(), Texts{});
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(EditFormInAHost, BeginsAtTheChannelsNumberWhoseLeavingChangesNothing) {
    show();
    doubleClick();
    EXPECT_EQ(GetFocus(), channelField());
    DWORD first = 9;
    DWORD last = 9;
    SendMessageW(channelField(), EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    EXPECT_EQ(first, 0U);
    EXPECT_EQ(last, textOf(channelField()).size());
    press("Cancel");
    control->UpdateAccess(&level);
    doubleClick();
    EXPECT_EQ(GetFocus(), channelField());
}

TEST_F(EditFormInAHost, FollowsKeysAndClicksOnTheGrid) {
    show();
    doubleClick();
    const LONG opened = currentRow();
    key(gridWindow(), VK_DOWN);
    EXPECT_EQ(currentRow(), opened + 1);
    EXPECT_EQ(textOf(channelField()), std::to_string(opened + 1));
    EXPECT_EQ(textOf(frequencyField()), frequencyShownFor(opened + 1));
    PostMessageW(gridWindow(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(120, 60));
    PostMessageW(gridWindow(), WM_LBUTTONUP, 0, MAKELPARAM(120, 60));
    pump();
    EXPECT_LT(currentRow(), opened);
    EXPECT_EQ(textOf(channelField()), std::to_string(currentRow()));
}

TEST_F(EditFormInAHost, ADoubleClickInsideSeveralSelectedRowsOpensTheClickedChannelAndNamesTheOthers) {
    show();
    PostMessageW(gridWindow(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(120, 60));
    PostMessageW(gridWindow(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(120, 160));
    PostMessageW(gridWindow(), WM_LBUTTONUP, 0, MAKELPARAM(120, 160));
    pump();
    const LONG first = currentRow();
    answerSoon();
    doubleClick();
    loopUntil([this] { return !questions.empty(); });
    loopUntil([] { return form() != nullptr && textOf(form()) == "Channel Edit"; });
    const LONG clicked = currentRow();
    EXPECT_GT(clicked, first);
    EXPECT_EQ(textOf(channelField()), std::to_string(clicked));
    EXPECT_EQ(base::toInt32(com::valueOf(get(*store, "SelectedChannel"))), clicked);
    const std::string text = "Changes will also be copied to the other selected channels. Would you like to proceed?\n"
                             "The other channels are " +
                             std::to_string(first) + " to " + std::to_string(clicked - 1) + " and ";
    EXPECT_EQ(questions.front().substr(0, text.size()), text);
}

TEST_F(EditFormInAHost, ADoubleClickOnAColumnsHeaderOpensNothing) {
    show();
    for (const UINT message : std::array<UINT, 4>{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}) {
        PostMessageW(gridWindow(), message, MK_LBUTTON, MAKELPARAM(120, 5));
    }
    pump();
    EXPECT_EQ(form(), nullptr);
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(EditFormInAHost, AHeldKeyReloadsItOnceWhenNoKeyWaitsAnyMore) {
    auto hooked = com::make<HookedStore>(store.get());
    show(hooked.get());
    doubleClick();
    const LONG opened = currentRow();
    SetForegroundWindow(host());
    SetFocus(gridWindow());
    pump();
    const DISPID selected = numberOf(*store, "SelectedChannel");
    int reloads = 0;
    hooked->beforePut = [&](DISPID member) { reloads += member == selected ? 1 : 0; };
    constexpr int times = 20;
    pressDown(times);
    loopUntil([&] { return textOf(channelField()) == std::to_string(opened + times); });
    EXPECT_EQ(currentRow(), opened + times);
    EXPECT_EQ(reloads, 1);
    hooked->beforePut = nullptr;
}

TEST_F(EditFormInAHost, OpensBesideTheRowOrBelowItAndLeavesItInSight) {
    showSmall();
    doubleClick();
    const RECT row = clickedRow();
    const RECT window = rectOf(form());
    RECT common{};
    EXPECT_FALSE(IntersectRect(&common, &row, &window)) << window.left << ',' << window.top;
    EXPECT_GE(window.left, 0);
    EXPECT_GE(window.top, 0);
    EXPECT_LE(window.right, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_LE(window.bottom, GetSystemMetrics(SM_CYSCREEN));
}

TEST_F(EditFormInAHost, OpensWhereTheUserMovedIt) {
    showSmall();
    doubleClick();
    SetWindowPos(form(), nullptr, 40, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    pump();
    press("Cancel");
    doubleClick();
    EXPECT_EQ(rectOf(form()).left, 40);
    EXPECT_EQ(rectOf(form()).top, 30);
}

TEST_F(EditFormInAHost, EnterMovesFromAFrequencyToOkWhichStoresAndCloses) {
    show();
    doubleClick();
    const auto channel = static_cast<std::int16_t>(currentRow());
    type(frequencyField(), "160.5");
    key(frequencyField(), VK_RETURN);
    EXPECT_EQ(GetFocus(), button("OK"));
    EXPECT_EQ(textOf(frequencyField()), "160.500000");
    key(GetFocus(), VK_RETURN);
    EXPECT_EQ(form(), nullptr);
    EXPECT_EQ(storedHertz(channel), 160'500'000);
    EXPECT_EQ(cell(channel, 1), "160.500000");
    EXPECT_EQ(sink->count(std::to_string(editClosedEvent)), 1);
    EXPECT_TRUE(base::isTrue(com::valueOf(get(*store, "DataModified"))));
    EXPECT_EQ(boxes.texts(), Texts{});
}

TEST_F(EditFormInAHost, EscLeavesWithoutStoring) {
    show();
    doubleClick();
    const auto channel = static_cast<std::int16_t>(currentRow());
    const auto before = storedHertz(channel);
    type(frequencyField(), "160.5");
    key(frequencyField(), VK_ESCAPE);
    EXPECT_EQ(form(), nullptr);
    EXPECT_EQ(storedHertz(channel), before);
    EXPECT_EQ(sink->count(std::to_string(editClosedEvent)), 1);
}

TEST_F(EditFormInAHost, AnEditThatIsRefusedKeepsItOpenAndSaysWhy) {
    show();
    doubleClick();
    type(frequencyField(), "5");
    press("OK");
    ASSERT_NE(form(), nullptr);
    ASSERT_FALSE(boxes.texts().empty());
    EXPECT_EQ(sink->count(std::to_string(editClosedEvent)), 0);
}

TEST_F(EditFormInAHost, AsksBeforeAMoveTakesEditsAndStaysOnRequest) {
    show();
    doubleClick();
    const LONG opened = currentRow();
    type(frequencyField(), "160.5");
    boxes.answerWith(IDNO);
    key(gridWindow(), VK_DOWN);
    const auto channel = std::to_string(opened);
    EXPECT_EQ(boxes.texts(), (Texts{"Channel " + channel + " has changes that have not been applied. Apply them now?",
                                    "Discard the changes to channel " + channel + "?"}));
    EXPECT_EQ(currentRow(), opened);
    EXPECT_EQ(textOf(channelField()), channel);
}

TEST_F(EditFormInAHost, TheLoginThatItAsksForOpensItsFramesAtOnce) {
    level = 0;
    show();
    doubleClick();
    EXPECT_EQ(shownSliders(), 0);
    duringEvent = [this](DISPID event) {
        if (event == loginEvent) {
            level = 5;
            com::check(control->UpdateAccess(&level));
        }
    };
    press("Access");
    EXPECT_EQ(sink->count(std::to_string(loginEvent)), 1);
    EXPECT_GT(shownSliders(), 0);
}

TEST_F(EditFormInAHost, RefreshEditFormShowsWhatTheStoreHasNow) {
    show();
    EXPECT_EQ(control->RefreshEditForm(), S_OK);
    EXPECT_EQ(form(), nullptr);
    doubleClick();
    fill(static_cast<std::int16_t>(currentRow()), 171'000'000);
    EXPECT_EQ(control->RefreshEditForm(), S_OK);
    EXPECT_EQ(textOf(frequencyField()), "171.000000");
}

TEST_F(EditFormInAHost, AnotherStoreIsShownOnceItIsDistributed) {
    show();
    doubleClick();
    auto other = storeServer.create<IDataStore>(__uuidof(DataStore));
    put(*control, "pCentralDataStore", Variant(other.get()));
    call(*control, "DistributeDataStoreLink");
    EXPECT_EQ(textOf(frequencyField()), "0.000000");
    put(*control, "pCentralDataStore", Variant(store.get()));
    call(*control, "DistributeDataStoreLink");
    EXPECT_EQ(textOf(frequencyField()), frequencyShownFor(currentRow()));
}

TEST_F(EditFormInAHost, AHostAsksItToLeaveEditsBeforeTheTableGoes) {
    show();
    VARIANT_BOOL left = VARIANT_FALSE;
    EXPECT_EQ(grid->LeaveEdits(&left), S_OK);
    EXPECT_EQ(left, VARIANT_TRUE);
    EXPECT_EQ(grid->LeaveEdits(nullptr), E_POINTER);
    doubleClick();
    const auto channel = static_cast<std::int16_t>(currentRow());
    type(frequencyField(), "160.5");
    boxes.answerWith(IDNO);
    EXPECT_EQ(grid->LeaveEdits(&left), S_OK);
    EXPECT_EQ(left, VARIANT_FALSE);
    boxes.answerWith(IDYES);
    EXPECT_EQ(grid->LeaveEdits(&left), S_OK);
    EXPECT_EQ(left, VARIANT_TRUE);
    EXPECT_EQ(storedHertz(channel), 160'500'000);
}

// -- the host lets go ------------------------------------------------------------------------------------------------

TEST_F(EditFormInAHost, EndsWhenTheHostLetsGoOfTheControl) {
    show();
    doubleClick();
    letGo();
    pump();
    EXPECT_EQ(form(), nullptr);
}

TEST_F(EditFormInAHost, EndsWhenTheHostsWindowGoes) {
    show();
    doubleClick();
    DestroyWindow(host());
    pump();
    EXPECT_EQ(form(), nullptr);
}

TEST_F(EditFormInAHost, EndsWithTheEmbeddedObject) {
    show();
    doubleClick();
    type(frequencyField(), "160.5");
    EXPECT_EQ(ComPointer<IOleObject>::from(control)->Close(OLECLOSE_NOSAVE), S_OK);
    pump();
    EXPECT_EQ(form(), nullptr);
    EXPECT_EQ(boxes.texts(), Texts{});
    EXPECT_EQ(sink->count(std::to_string(editClosedEvent)), 0);
}

TEST_F(EditFormInAHost, TheControlMayBeReleasedInsideTheEndOfEditing) {
    show();
    doubleClick();
    duringEvent = [this](DISPID event) {
        if (event == editClosedEvent) {
            letGo();
        }
    };
    press("OK");
    pump();
    EXPECT_EQ(form(), nullptr);
    EXPECT_EQ(sink->count(std::to_string(editClosedEvent)), 1);
}

TEST_F(EditFormInAHost, TheControlMayBeReleasedInsideCancel) {
    show();
    doubleClick();
    duringEvent = [this](DISPID) { letGo(); };
    press("Cancel");
    pump();
    EXPECT_EQ(form(), nullptr);
}

TEST_F(EditFormInAHost, TheControlMayBeReleasedInsideTheLogin) {
    show();
    doubleClick();
    duringEvent = [this](DISPID) { letGo(); };
    press("Access");
    pump();
    EXPECT_EQ(form(), nullptr);
    EXPECT_EQ(sink->count(std::to_string(loginEvent)), 1);
}

// DataChanged reaches the store as two flags, NeedToUpdateFlexGrid as the reading of the row: the host stands behind
// both.
TEST_F(EditFormInAHost, TheControlMayBeReleasedInsideEveryWriteOfApply) {
    int puts = 0;
    {
        auto hooked = com::make<HookedStore>(store.get());
        show(hooked.get());
        doubleClick();
        hooked->beforePut = [&](DISPID) { ++puts; };
        press("Apply");
        hooked->beforePut = nullptr;
        ASSERT_GE(puts, 2);
        letGo();
        pump();
    }
    for (int last = 1; last <= puts; ++last) {
        SCOPED_TRACE(last);
        site.reset();
        control = server.create<_ChannelInformation>(__uuidof(ChannelInformation));
        grid = ComPointer<IChannelGrid>::from(control);
        auto hooked = com::make<HookedStore>(store.get());
        show(hooked.get());
        doubleClick();
        int count = 0;
        hooked->beforePut = [&](DISPID) {
            if (++count == last) {
                letGo();
            }
        };
        press("Apply");
        pump();
        EXPECT_EQ(form(), nullptr);
        hooked->beforePut = nullptr;
    }
}

TEST_F(EditFormInAHost, TheControlMayBeReleasedInTheWaitOfTheLiveUpdate) {
    show();
    doubleClick();
    put(*store, "CommsBusy", Variant(true));
    bool paused = false;
    duringEvent = [&](DISPID event) {
        if (event == pauseDiagnosticsEvent) {
            paused = true;
            letGoFromTheLoop();
        }
    };
    press("Continuous Update");
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!paused && std::chrono::steady_clock::now() < end) {
        MSG message;
        ASSERT_TRUE(GetMessageW(&message, nullptr, 0, 0));
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    EXPECT_TRUE(paused);
    pump();
    EXPECT_EQ(form(), nullptr);
}

// -- how long --------------------------------------------------------------------------------------------------------

TEST_F(EditFormInAHost, OpensWithinTheBlinkOfAnEye) {
    show();
    const auto timed = [this] {
        const auto began = std::chrono::steady_clock::now();
        doubleClick();
        RedrawWindow(form(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        pump();
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - began).count();
    };
    const double first = timed();
    press("Cancel");
    double later = 0;
    constexpr int times = 5;
    for (int time = 0; time < times; ++time) {
        later += timed();
        press("Cancel");
    }
    std::printf("double-click to painted form: first %.1f ms, later %.1f ms\n", first, later / times);
    // Far above what is usual, for machines that build something at the same time.
    EXPECT_LT(first, 2000);
    EXPECT_LT(later / times, 1000);
}

}  // namespace
}  // namespace telvar::tests
