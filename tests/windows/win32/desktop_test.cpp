#include "world.h"

#include <chrono>
#include <thread>

#include "base/failure.h"
#include "ui/menu.h"
#include "win32/clipboard.h"

namespace telvar::win32 {
namespace {

using namespace std::chrono_literals;

class Desktops : public World {};

TEST_F(Desktops, CarryTextThroughTheClipboard) {
    for (const std::string& text : {std::string("A\tBé€\rC\tD\r\nE"), std::string("1"), std::string()}) {
        desktop.setClipboardText(text);
        EXPECT_EQ(desktop.clipboardText(), text);
    }
}

TEST_F(Desktops, CarryTenMegabytesThroughTheClipboard) {
    std::string text;
    while (text.size() < 10'000'000) {
        text += "145.500000\t145.500000\t88.5 Hz\r\n";
    }
    desktop.setClipboardText(text);
    EXPECT_TRUE(desktop.clipboardText() == text);
}

TEST_F(Desktops, FindNoTextOnAClipboardWithoutText) {
    ASSERT_TRUE(OpenClipboard(top.handle()));
    EmptyClipboard();
    CloseClipboard();
    EXPECT_EQ(desktop.clipboardText(), std::nullopt);
}

TEST_F(Desktops, ReadClipboardTextWithoutItsFinalZero) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 3 * sizeof(wchar_t));
    std::copy_n(L"abc", 3, static_cast<wchar_t*>(GlobalLock(memory)));
    GlobalUnlock(memory);
    EXPECT_EQ(textOfClipboardBlock(memory), "abc");
    GlobalFree(memory);
}

TEST_F(Desktops, FailWhileAnotherThreadHoldsTheClipboard) {
    desktop.setClipboardText("before");
    const HANDLE opened = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const HANDLE release = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread other([&] {
        const HWND window = CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        OpenClipboard(window);
        SetEvent(opened);
        WaitForSingleObject(release, INFINITE);
        CloseClipboard();
        DestroyWindow(window);
    });
    WaitForSingleObject(opened, INFINITE);
    EXPECT_THROW(static_cast<void>(desktop.clipboardText()), base::Failure);
    EXPECT_THROW(desktop.setClipboardText("after"), base::Failure);
    SetEvent(release);
    other.join();
    EXPECT_EQ(desktop.clipboardText(), "before");
    CloseHandle(opened);
    CloseHandle(release);
}

TEST_F(Desktops, WaitForAClipboardThatIsFreeSoon) {
    desktop.setClipboardText("before");
    const HANDLE opened = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread other([&] {
        const HWND window = CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        OpenClipboard(window);
        SetEvent(opened);
        // A plain pause: the system tells nobody that a reader was refused, so there is no event to wait for. Long
        // enough to be met, short against what the reader allows; too short only makes the test easier.
        Sleep(30);
        CloseClipboard();
        DestroyWindow(window);
    });
    WaitForSingleObject(opened, INFINITE);
    EXPECT_EQ(desktop.clipboardText(), "before");
    other.join();
    CloseHandle(opened);
}

TEST_F(Desktops, ShowMessageBoxesOverTheSitesWindow) {
    std::vector<bool> modeless;
    desktop.setSite(
        {.owner = [&] { return top.handle(); }, .enableModeless = [&](bool enable) { modeless.push_back(enable); }});
    SetFocus(windowOf(widgets.text));
    const BoxAnswers answers(desktop, IDYES);
    const ui::Answer answer = desktop.show({.text = "Overwrite?\r\nReally?",
                                            .title = "Channels",
                                            .icon = ui::Icon::Exclamation,
                                            .buttons = ui::Buttons::YesNo});
    EXPECT_EQ(answer, ui::Answer::Yes);
    EXPECT_EQ(answers.texts(), std::vector<std::string>{"Overwrite?\r\nReally?"});
    EXPECT_EQ(answers.titles(), std::vector<std::string>{"Channels"});
    EXPECT_EQ(answers.owner(), top.handle());
    EXPECT_EQ(modeless, (std::vector<bool>{false, true}));
    EXPECT_EQ(GetFocus(), windowOf(widgets.text));
}

TEST_F(Desktops, ShowMessageBoxesWithoutASite) {
    const BoxAnswers answers(desktop, IDCANCEL);
    EXPECT_EQ(desktop.show({.text = "Go on?", .buttons = ui::Buttons::OkCancel}), ui::Answer::Cancel);
    EXPECT_EQ(answers.titles(), std::vector<std::string>{"Tesslin"});
}

TEST_F(Desktops, TimersTickUntilTheyAreStopped) {
    int ticks = 0;
    ui::Timer timer(desktop);
    timer.Tick.connect([&] {
        if (++ticks == 3) {
            timer.setEnabled(false);
        }
    });
    timer.setInterval(15ms);
    until([&] { return ticks >= 3; });
    const auto end = std::chrono::steady_clock::now() + 100ms;
    desktop.pumpUntil([&] { return std::chrono::steady_clock::now() > end; });
    EXPECT_EQ(ticks, 3);
}

TEST_F(Desktops, ATimerMayEndInItsOwnTick) {
    auto timer = std::make_unique<ui::Timer>(desktop);
    bool ticked = false;
    timer->Tick.connect([&] {
        ticked = true;
        timer.reset();
    });
    timer->setInterval(15ms);
    until([&] { return ticked; });
    pump();
    EXPECT_EQ(timer, nullptr);
}

TEST_F(Desktops, RunWorkFromOtherThreadsInOrder) {
    std::vector<int> done;
    const auto uiThread = std::this_thread::get_id();
    bool elsewhere = false;
    std::thread worker([&] {
        for (int number = 0; number < 200; ++number) {
            desktop.dispatcher().post([&, number] {
                done.push_back(number);
                elsewhere = elsewhere || std::this_thread::get_id() != uiThread;
            });
        }
    });
    until([&] { return done.size() == 200; });
    worker.join();
    EXPECT_FALSE(elsewhere);
    EXPECT_TRUE(std::ranges::is_sorted(done));
}

TEST_F(Desktops, WorkThatPumpsLetsTheNextWorkRun) {
    std::vector<int> done;
    desktop.dispatcher().post([&] {
        desktop.doEvents();
        done.push_back(1);
    });
    desktop.dispatcher().post([&] { done.push_back(2); });
    pump();
    EXPECT_EQ(done, (std::vector<int>{2, 1}));
}

TEST_F(Desktops, DropWorkThatIsStillQueuedAtTheirEnd) {
    bool ran = false;
    {
        WindowsDesktop other;
        other.dispatcher().post([&] { ran = true; });
    }
    pump();
    EXPECT_FALSE(ran);
}

TEST_F(Desktops, MayEndInTheirOwnWork) {
    auto other = std::make_unique<WindowsDesktop>();
    other->dispatcher().post([&] { other.reset(); });
    other->dispatcher().post([] { ADD_FAILURE() << "ran after the end"; });
    until([&] { return other == nullptr; });
    pump();
}

// As from a keyboard: posted messages come before these, a timer after them.
void pressKeys(WORD key, std::size_t times) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    std::vector<INPUT> inputs(times, input);
    ASSERT_EQ(SendInput(static_cast<UINT>(times), inputs.data(), sizeof(INPUT)), times);
}

TEST_F(Desktops, RunIdleWorkWhenNoKeyWaitsAnyMore) {
    SetForegroundWindow(top.handle());
    SetFocus(windowOf(widgets.grid));
    pump();
    int keys = 0;
    std::vector<int> keysBefore;
    widgets.grid.KeyDown.connect([&](ui::KeyEvent&) {
        if (++keys == 1) {
            desktop.whenIdle([&] { keysBefore.push_back(keys); });
        }
    });
    constexpr int times = 10;
    pressKeys('A', times);
    until([&] { return !keysBefore.empty(); });
    EXPECT_EQ(keysBefore, std::vector<int>{times});
}

TEST_F(Desktops, RunIdleWorkInOrderAfterPostedWork) {
    std::vector<int> done;
    desktop.whenIdle([&] {
        desktop.whenIdle([&] { done.push_back(5); });
        done.push_back(3);
    });
    desktop.whenIdle([&] { done.push_back(4); });
    desktop.dispatcher().post([&] { done.push_back(1); });
    desktop.dispatcher().post([&] { done.push_back(2); });
    until([&] { return done.size() == 5; });
    EXPECT_EQ(done, (std::vector<int>{1, 2, 3, 4, 5}));
}

TEST_F(Desktops, DropIdleWorkThatStillWaitsAtTheirEnd) {
    auto other = std::make_unique<WindowsDesktop>();
    bool ran = false;
    other->whenIdle([&] {
        ran = true;
        other.reset();
    });
    other->whenIdle([] { ADD_FAILURE() << "ran after the end"; });
    until([&] { return ran; });
    pump();
}

TEST_F(Desktops, AQuitMessageEndsAWaitAndIsPostedAgain) {
    PostQuitMessage(42);
    EXPECT_FALSE(desktop.pumpUntil([] { return false; }));
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 42U);
}

TEST_F(Desktops, AQuitMessageIsNotSwallowedByDoEvents) {
    PostQuitMessage(7);
    desktop.doEvents();
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7U);
}

TEST_F(Desktops, SleepWhileTheyWait) {
    int looks = 0;
    const auto end = std::chrono::steady_clock::now() + 300ms;
    desktop.pumpUntil([&] {
        ++looks;
        return std::chrono::steady_clock::now() > end;
    });
    EXPECT_LT(looks, 40);
}

TEST_F(Desktops, MeasureTextInTheFontOfForms) {
    const ui::Size small = desktop.measure("Tx Frequency (MHz)", 96);
    const ui::Size large = desktop.measure("Tx Frequency (MHz)", 192);
    EXPECT_GT(small.width, 50);
    EXPECT_GT(small.height, 8);
    EXPECT_NEAR(large.width, 2 * small.width, small.width / 4);
    EXPECT_NEAR(large.height, 2 * small.height, 3);
    EXPECT_EQ(desktop.measure("&Lock", 96).width, desktop.measure("Lock", 96).width);
    EXPECT_EQ(desktop.screenSize(), (ui::Size{GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}));
}

TEST_F(Desktops, ShowTheHourglassOverTheControlsWindows) {
    desktop.setPointer(ui::Pointer::Hourglass);
    SetCursor(nullptr);
    SendMessageW(windowOf(widgets.text), WM_SETCURSOR, reinterpret_cast<WPARAM>(windowOf(widgets.text)),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    desktop.setPointer(ui::Pointer::Default);
    SendMessageW(windowOf(widgets.button), WM_SETCURSOR, reinterpret_cast<WPARAM>(windowOf(widgets.button)),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

class Menus : public World {
protected:
    Menus() {
        for (ui::MenuItem* const item : {&copy, &line, &paste, &undo}) {
            menu.add(*item);
        }
        paste.setEnabled(false);
        for (ui::MenuItem* const item : {&copy, &line, &paste, &undo}) {
            item->Click.connect([this, item] { chosen.push_back(item->name()); });
        }
        keys.Tick.connect([this] {
            const HWND popup = FindWindowW(MAKEINTRESOURCEW(32768), nullptr);
            if (popup != nullptr && !pending.empty()) {
                PostMessageW(popup, WM_KEYDOWN, pending.front(), 0);
                pending.erase(pending.begin());
            }
        });
        keys.setInterval(15ms);
    }

    void popUp(std::vector<WPARAM> pressed) {
        pending = std::move(pressed);
        desktop.popUp(menu, widgets.grid, {20, 20});
    }

    ui::Menu menu{"mnuPopUpMenu"};
    ui::MenuItem copy{"mnuCopy", "&Copy"};
    ui::MenuItem line{"mnuLine", "-"};
    ui::MenuItem paste{"mnuPaste", "&Paste"};
    ui::MenuItem undo{"mnuUndo", "&Undo"};
    std::vector<std::string> chosen;
    std::vector<WPARAM> pending;
    ui::Timer keys{desktop};
};

TEST_F(Menus, TheChosenItemRaisesItsClick) {
    popUp({VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_EQ(chosen, std::vector<std::string>{"mnuUndo"});
    popUp({VK_DOWN, VK_RETURN});
    EXPECT_EQ(chosen, (std::vector<std::string>{"mnuUndo", "mnuCopy"}));
}

TEST_F(Menus, AMenuMayBeLeftWithoutAChoice) {
    popUp({VK_ESCAPE});
    EXPECT_TRUE(chosen.empty());
}

TEST_F(Menus, AWidgetWithoutAWindowShowsNone) {
    ui::Grid other("other", 2, 2);
    desktop.popUp(menu, other, {0, 0});
    EXPECT_TRUE(chosen.empty());
}

}  // namespace
}  // namespace telvar::win32
