// Keys in a container that is not ours, the system's own for controls: with the loop of a good host, which offers keys
// to the control first, with a dialog's loop, and with the plainest one.
#ifdef _WIN64
#include <gtest/gtest.h>

#include <windows.h>

#include <ole2.h>

#include <algorithm>
#include <array>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "Tesslin.h"
#include "VexloDataStore.h"
#include "VexloRadioLink.h"
#include "com/kit/bstr.h"
#include "com/kit/failure.h"
#include "com/kit/pointer.h"
#include "installed_servers.h"
#include "support/windows/edit_form_driver.h"
#include "walk/keyboard.h"

// No header of the compiler declares them.
extern "C" {
BOOL WINAPI AtlAxWinInit();
HRESULT WINAPI AtlAxGetControl(HWND window, IUnknown** control);
}

namespace telvar::tests {

using com::ComPointer;

namespace {

enum class Loop { Good, Dialog, Plain };

constexpr int refreshCommand = 7;
constexpr int altCommand = 8;

std::vector<int> commands;

LRESULT CALLBACK hostProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) noexcept {
    if (message == WM_COMMAND && lparam == 0) {
        commands.push_back(LOWORD(wparam));
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

HWND createHost() {
    WNDCLASSW description{};
    description.lpfnWndProc = hostProcedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"TelvarForeignHost";
    RegisterClassW(&description);
    return CreateWindowExW(0, L"TelvarForeignHost", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 640, nullptr,
                           nullptr, description.hInstance, nullptr);
}

std::string nameOfLoop(const testing::TestParamInfo<Loop>& tested) {
    constexpr std::array<const char*, 3> names{"Good", "Dialog", "Plain"};
    return names[static_cast<std::size_t>(tested.param)];
}

HACCEL createAccelerators() {
    std::array<ACCEL, 2> table{{{.fVirt = FVIRTKEY, .key = VK_F5, .cmd = refreshCommand},
                                {.fVirt = FVIRTKEY | FALT, .key = 'Q', .cmd = altCommand}}};
    return CreateAcceleratorTableW(table.data(), static_cast<int>(table.size()));
}

}  // namespace

struct ForeignKeys : testing::TestWithParam<Loop> {
    static void SetUpTestSuite() {
        servers = new InstalledServers;
        // The window class is made once.
        static const BOOL made = AtlAxWinInit();
        ASSERT_NE(made, FALSE);
    }
    static void TearDownTestSuite() {
        delete servers;
        servers = nullptr;
    }

    ForeignKeys() {
        com::check(OleInitialize(nullptr));
        commands.clear();
        host = createHost();
        accelerators = createAccelerators();
        before = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10, 5, 200, 20, host, nullptr,
                                 nullptr, nullptr);
        place = CreateWindowExW(0, L"AtlAxWin", L"Tesslin.ChannelInformation", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10,
                                30, 860, 540, host, nullptr, nullptr, nullptr);
        after = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10, 580, 200, 20, host, nullptr,
                                nullptr, nullptr);
        ComPointer<IUnknown> object;
        com::check(AtlAxGetControl(place, object.put()));
        control = ComPointer<_ChannelInformation>::from(object);
        grid = ComPointer<IChannelGrid>::from(object);
        com::check(CoCreateInstance(__uuidof(DataStore), nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDataStore),
                                    store.putVoid()));
        com::check(control->putref_pCentralDataStore(store.get()));
        com::check(control->DistributeDataStoreLink());
        com::check(control->Prepare());
        com::check(control->UpdateControlsFromMemory());
        clickIntoTheGrid();
    }
    ~ForeignKeys() override {
        grid.reset();
        control.reset();
        DestroyWindow(host);
        DestroyAcceleratorTable(accelerators);
        store.reset();
        pump();
        OleUninitialize();
    }

    // One message as the loop under test treats it.
    void treat(MSG& message) {
        const bool key = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
        if (GetParam() == Loop::Good && key && IsChild(place, message.hwnd) &&
            ComPointer<IOleInPlaceActiveObject>::from(control)->TranslateAccelerator(&message) == S_OK) {
            return;
        }
        if (GetParam() != Loop::Plain &&
            (TranslateAcceleratorW(host, accelerators, &message) != 0 || IsDialogMessageW(host, &message))) {
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    void pump() {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            treat(message);
        }
    }
    bool pumpUntil(const std::function<bool()>& condition) {
        const ULONGLONG end = GetTickCount64() + 10'000;
        for (pump(); !condition(); pump()) {
            if (GetTickCount64() > end) {
                return false;
            }
            MsgWaitForMultipleObjectsEx(0, nullptr, 50, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        }
        return true;
    }
    void press(std::initializer_list<WORD> chord) {
        SetForegroundWindow(host);
        ASSERT_TRUE(pumpUntil([this] { return GetForegroundWindow() == host; }));
        walk::press(chord);
        pump();
    }
    // The first cell, by the mouse, as a user enters the grid.
    void clickIntoTheGrid() {
        UpdateWindow(host);
        SetForegroundWindow(host);
        POINT point{120, 90};
        const HWND window = ChildWindowFromPointEx(place, point, CWP_SKIPINVISIBLE);
        MapWindowPoints(place, window, &point, 1);
        HWND inner = ChildWindowFromPointEx(window, point, CWP_SKIPINVISIBLE);
        MapWindowPoints(window, inner, &point, 1);
        SendMessageW(inner, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
        SendMessageW(inner, WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
        com::check(grid->Select(1, 1, 1, 1));
        gridWindow = GetFocus();
    }
    [[nodiscard]] long number(HRESULT (STDMETHODCALLTYPE IChannelGrid::*property)(LONG*)) {
        LONG value = 0;
        com::check((grid.get()->*property)(&value));
        return value;
    }
    [[nodiscard]] long row() { return number(&IChannelGrid::get_CurrentRow); }
    [[nodiscard]] long column() { return number(&IChannelGrid::get_CurrentColumn); }
    [[nodiscard]] long endRow() { return number(&IChannelGrid::get_SelectionEndRow); }
    [[nodiscard]] long endColumn() { return number(&IChannelGrid::get_SelectionEndColumn); }
    [[nodiscard]] std::wstring cell(long atRow, long atColumn) {
        com::Bstr text;
        com::check(grid->get_Cell(atRow, atColumn, text.put()));
        return std::wstring(text.view());
    }

    static inline InstalledServers* servers = nullptr;
    HWND host = nullptr;
    HWND before = nullptr;
    HWND place = nullptr;
    HWND after = nullptr;
    HWND gridWindow = nullptr;
    HACCEL accelerators = nullptr;
    ComPointer<IDataStore> store;
    ComPointer<_ChannelInformation> control;
    ComPointer<IChannelGrid> grid;
};

TEST_P(ForeignKeys, MoveTheCurrentCell) {
    EXPECT_TRUE(IsChild(place, gridWindow));
    press({VK_DOWN});
    press({VK_DOWN});
    press({VK_RIGHT});
    EXPECT_TRUE(pumpUntil([this] { return row() == 3 && column() == 2; })) << row() << ',' << column();
    press({VK_UP});
    press({VK_LEFT});
    EXPECT_TRUE(pumpUntil([this] { return row() == 2 && column() == 1; })) << row() << ',' << column();
    press({VK_NEXT});
    EXPECT_TRUE(pumpUntil([this] { return row() > 10; })) << row();
    press({VK_PRIOR});
    EXPECT_TRUE(pumpUntil([this] { return row() == 2; })) << row();
    press({VK_END});
    EXPECT_TRUE(pumpUntil([this] { return column() > 7; })) << column();
    press({VK_HOME});
    EXPECT_TRUE(pumpUntil([this] { return column() == 1; })) << column();
    press({VK_CONTROL, VK_END});
    EXPECT_TRUE(pumpUntil([this] { return row() == 255; })) << row();
    press({VK_CONTROL, VK_HOME});
    EXPECT_TRUE(pumpUntil([this] { return row() == 1; })) << row();
}

TEST_P(ForeignKeys, ExtendTheSelectionWithShift) {
    press({VK_SHIFT, VK_DOWN});
    press({VK_SHIFT, VK_RIGHT});
    EXPECT_TRUE(pumpUntil([this] { return endRow() == 2 && endColumn() == 2; })) << endRow() << ',' << endColumn();
    EXPECT_EQ(row(), 1);
    press({VK_SHIFT, VK_NEXT});
    EXPECT_TRUE(pumpUntil([this] { return endRow() > 10; })) << endRow();
    press({VK_CONTROL, VK_SHIFT, VK_END});
    EXPECT_TRUE(pumpUntil([this] { return endRow() == 255; })) << endRow();
    EXPECT_EQ(row(), 1);
}

TEST_P(ForeignKeys, CopyAndPaste) {
    ASSERT_TRUE(OpenClipboard(host));
    EmptyClipboard();
    const std::wstring text = L"446.00625";
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, (text.size() + 1) * sizeof(wchar_t));
    std::copy(text.begin(), text.end(), static_cast<wchar_t*>(GlobalLock(memory)));
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
    press({VK_CONTROL, 'V'});
    EXPECT_TRUE(pumpUntil([this] { return cell(1, 1) == L"446.006250"; })) << testing::PrintToString(cell(1, 1));
    press({VK_CONTROL, 'C'});
    press({VK_DOWN});
    press({VK_CONTROL, 'V'});
    EXPECT_TRUE(pumpUntil([this] { return cell(2, 1) == L"446.006250"; })) << testing::PrintToString(cell(2, 1));
}

TEST_P(ForeignKeys, EnterInTheChannelBoxPressesSelectAndNoButtonOfTheHost) {
    ComPointer<IRadioLink> link;
    com::check(
        CoCreateInstance(__uuidof(RadioLink), nullptr, CLSCTX_INPROC_SERVER, __uuidof(IRadioLink), link.putVoid()));
    com::check(link->putref_DataStore(store.get()));
    com::check(control->putref_plibRadioComms(link.get()));
    const HWND box = FindWindowExW(GetParent(gridWindow), nullptr, L"Edit", nullptr);
    ASSERT_NE(box, nullptr);
    SetFocus(box);
    SetWindowTextW(box, L"12");
    press({VK_RETURN});
    const auto selected = [this] {
        short channel = 0;
        com::check(store->get_SelectedChannel(&channel));
        return channel;
    };
    EXPECT_TRUE(pumpUntil([&] { return selected() == 12; })) << selected();
    EXPECT_EQ(GetFocus(), gridWindow);
    EXPECT_EQ(commands, std::vector<int>{});
    com::check(control->putref_plibRadioComms(nullptr));
    com::check(link->putref_DataStore(nullptr));
}

// The host's site has no answer to a key, so each goes on to the field.
TEST_P(ForeignKeys, OfTheEditFormStayThere) {
    com::check(grid->EditChannel());
    pump();
    ASSERT_NE(EditFormDriver::form(), nullptr);
    const HWND field = EditFormDriver::frequencyField();
    SetForegroundWindow(EditFormDriver::form());
    SetFocus(field);
    pump();
    walk::press({VK_F5});
    walk::press({VK_CONTROL, 'S'});
    walk::press({VK_CONTROL, 'A'});
    walk::press({'1'});
    walk::press({'4'});
    EXPECT_TRUE(pumpUntil([&] { return EditFormDriver::textOf(field) == "14"; })) << EditFormDriver::textOf(field);
    EXPECT_EQ(GetFocus(), field);
    EXPECT_EQ(commands, std::vector<int>{});
    walk::press({VK_ESCAPE});
    EXPECT_TRUE(pumpUntil([] { return EditFormDriver::form() == nullptr; }));
    EXPECT_TRUE(pumpUntil([this] { return GetFocus() == gridWindow; }));
}

INSTANTIATE_TEST_SUITE_P(Loops, ForeignKeys, testing::Values(Loop::Good, Loop::Dialog, Loop::Plain), nameOfLoop);

// The plainest loop moves no focus and knows no accelerators.
struct ForeignHostKeys : ForeignKeys {};

TEST_P(ForeignHostKeys, TabLeavesTheControlAndComesBack) {
    int tabs = 0;
    while (IsChild(place, GetFocus()) && tabs < 20) {
        press({VK_TAB});
        ++tabs;
    }
    EXPECT_EQ(GetFocus(), after) << tabs;
    press({VK_SHIFT, VK_TAB});
    EXPECT_TRUE(GetFocus() == place || IsChild(place, GetFocus()));
}

TEST_P(ForeignHostKeys, UnusedKeysComeBackToTheHost) {
    press({VK_F5});
    EXPECT_TRUE(pumpUntil([] { return commands == std::vector<int>{refreshCommand}; }));
    press({VK_MENU, 'Q'});
    EXPECT_TRUE(pumpUntil([] { return commands == (std::vector<int>{refreshCommand, altCommand}); }));
    press({VK_RETURN});
    EXPECT_TRUE(pumpUntil([] { return commands.size() == 3 && commands.back() == IDOK; }));
    press({VK_ESCAPE});
    EXPECT_TRUE(pumpUntil([] { return commands.size() == 4 && commands.back() == IDCANCEL; }));
    EXPECT_EQ(row(), 1);
}

INSTANTIATE_TEST_SUITE_P(Loops, ForeignHostKeys, testing::Values(Loop::Good, Loop::Dialog), nameOfLoop);

}  // namespace telvar::tests
#endif
