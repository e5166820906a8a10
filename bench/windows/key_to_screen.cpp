// From the key that pastes one cell to the repainted screen: the control over a full table of its own process, in a
// real window, beside a bare repainting of that cell and the trip of its text through the clipboard. Prints medians in
// microseconds.
#include <windows.h>

#include <ole2.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "control/channel_information.h"
#include "model/memory_data_store.h"
#include "win32/panel_window.h"
#include "win32/windows_desktop.h"

namespace {

using namespace telvar;

[[nodiscard]] double median(const std::function<void(int)>& run) {
    constexpr int rounds = 101;
    std::vector<double> spent;
    for (int round = 0; round < rounds; ++round) {
        const auto begin = std::chrono::steady_clock::now();
        run(round);
        const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - begin;
        spent.push_back(time.count());
    }
    std::ranges::nth_element(spent, spent.begin() + rounds / 2);
    return spent[rounds / 2];
}

void report(const char* what, double microseconds) { std::printf("%-56s %10.1f us\n", what, microseconds); }

[[nodiscard]] std::shared_ptr<model::MemoryDataStore> fullTable() {
    auto store = std::make_shared<model::MemoryDataStore>();
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        store->channel(channel).put(model::ChannelKey::TxFreq, 450'000'000 + 12'500 * channel);
        store->channel(channel).put(model::ChannelKey::RxFreq, 455'000'000 + 12'500 * channel);
    }
    return store;
}

[[nodiscard]] std::string frequency(int round) { return std::to_string(450 + round % 2) + ".5"; }

// The window of the grid: it takes the focus when the grid does.
void measure(win32::WindowsDesktop& desktop, control::ChannelInformation& control) {
    auto& grid = control.fgdDatabase;
    grid.setFocus();
    desktop.doEvents();
    const HWND window = GetFocus();
    grid.setCurrent({3, 1});
    report("repainting the cell", median([&](int round) {
               grid.setText(3, 1, frequency(round));
               UpdateWindow(window);
               GdiFlush();
           }));
    BYTE keys[256]{};
    GetKeyboardState(keys);
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    report("putting a text on the clipboard and reading it", median([&](int round) {
               desktop.setClipboardText(frequency(round));
               static_cast<void>(desktop.clipboardText());
           }));
    report("the same, then from the key to the repainted screen", median([&](int round) {
               desktop.setClipboardText(frequency(round));
               SendMessageW(window, WM_KEYDOWN, 'V', 0);
               UpdateWindow(window);
               GdiFlush();
           }));
    if (grid.text(3, 1) != "450.500000") {
        std::puts("the paste did not arrive");
    }
}

}  // namespace

int main() {
    OleInitialize(nullptr);
    const HWND top = CreateWindowW(L"STATIC", L"Top", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10, 900, 700, nullptr,
                                   nullptr, GetModuleHandleW(nullptr), nullptr);
    SetForegroundWindow(top);
    {
        win32::WindowsDesktop desktop;
        control::ChannelInformation control({.desktop = desktop,
                                             .makeTable = [] { return std::make_shared<model::MemoryDataStore>(); },
                                             .numberFormat = {},
                                             .logPath = {}});
        control.setCentralDataStore(fullTable());
        control.DistributeDataStoreLink();
        control.Prepare();
        control.UpdateControlsFromMemory();
        RECT client{};
        GetClientRect(top, &client);
        const auto panel = std::make_unique<win32::PanelWindow>(desktop, control.panel(), top, client);
        desktop.doEvents();
        measure(desktop, control);
    }
    DestroyWindow(top);
    OleUninitialize();
    return 0;
}
