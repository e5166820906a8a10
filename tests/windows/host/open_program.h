// The main window with the real control, store and link, inside the test.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "com/kit/variant.h"
#include "dialog_answers.h"
#include "host/shell/main_window.h"
#include "host/shell/resource.h"
#include "installed_servers.h"
#include "support/build_paths.h"
#include "support/temporary_folder.h"
#include "test_settings.h"
#include "walk/keyboard.h"
#include "win/text.h"

namespace telvar::tests {

using host::MainWindow;
// Places in the menu bar.
inline constexpr int editMenu = 1;
inline constexpr int radioMenu = 3;
inline constexpr int accessMenu = 4;

using Texts = std::vector<std::wstring>;

class Program : public testing::Test {
protected:
    static void SetUpTestSuite() { servers = new InstalledServers; }
    static void TearDownTestSuite() {
        delete servers;
        servers = nullptr;
    }

    Program() { com::check(OleInitialize(nullptr)); }
    ~Program() override {
        end();
        pump();
        OleUninitialize();
    }

    void start(const std::wstring& file = {}) {
        program.emplace(TestSettings::key);
        components = host::installedComponents();
        program->open(win::narrow(file), components);
        program->show(SW_SHOWNORMAL);
        pump();
    }
    // Nothing of it is left.
    void end() {
        components = {};
        program.reset();
    }
    // As the program's own loop, until nothing is queued. The message that ends the loop is dropped.
    void pump() {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (!program || !program->translate(message)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
        }
        if (program) {
            program->refreshState();
        }
    }
    // The same until `condition` holds; False when it does not in so many milliseconds.
    bool pumpUntil(const std::function<bool()>& condition, ULONGLONG patience = 10'000) {
        const ULONGLONG end = GetTickCount64() + patience;
        for (pump(); !condition(); pump()) {
            if (GetTickCount64() > end) {
                return false;
            }
            MsgWaitForMultipleObjectsEx(0, nullptr, 50, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        }
        return true;
    }
    // Keys as from the keyboard: they go to the foreground window.
    void press(std::initializer_list<WORD> chord) {
        SetForegroundWindow(program->window());
        ASSERT_TRUE(pumpUntil([this] { return GetForegroundWindow() == program->window(); }));
        walk::press(chord);
        pump();
    }
    void command(desk::Command command) {
        SendMessageW(program->window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
        pump();
    }
    void close() {
        SendMessageW(program->window(), WM_CLOSE, 0, 0);
        pump();
    }
    void key(WPARAM code) {
        PostMessageW(GetFocus(), WM_KEYDOWN, code, 1);
        pump();
    }

    // A sample in the test's own folder.
    [[nodiscard]] std::wstring sample(const std::string& name, const std::string& as) {
        const std::string path = folder / as;
        std::filesystem::copy_file(TELVAR_SOURCE_DIR "/samples/" + name, TemporaryFolder::pathOf(path));
        return win::wide(path);
    }
    [[nodiscard]] std::wstring path(const std::string& name) { return win::wide(folder / name); }

    void change(int channel = 1) {
        com::check(record(channel)->put_TxFreq(com::Variant(std::int32_t{446'006'250}).get()));
        program->refreshState();
    }
    [[nodiscard]] com::ComPointer<IChannelRecord> record(int channel) {
        return host::recordOf(*components.store, channel);
    }
    [[nodiscard]] bool modified() { return host::StoreAdapter(components.store).modified(); }
    [[nodiscard]] std::wstring openPath() { return win::wide(host::StoreAdapter(components.store).path()); }
    [[nodiscard]] int configuredChannels() { return host::StoreAdapter(components.store).configuredChannels(); }
    // As the line at the window's foot names it.
    [[nodiscard]] desk::AccessLevel accessLevel() {
        for (const desk::AccessLevel level : desk::accessLevels) {
            if (win::narrow(statusText(2)) == desk::nameOf(level)) {
                return level;
            }
        }
        throw std::runtime_error("the status line names no level");
    }
    [[nodiscard]] long frequency(int channel = 1) {
        com::Variant value;
        com::check(record(channel)->get_TxFreq(value.put()));
        value.convertTo(VT_I4);
        return V_I4(&value.get());
    }
    [[nodiscard]] std::wstring cell(long row, long column) {
        com::Bstr text;
        com::check(com::ComPointer<IChannelGrid>::from(components.control)->get_Cell(row, column, text.put()));
        return std::wstring(text.view());
    }
    void select(long row, long column, long endRow, long endColumn) {
        com::check(com::ComPointer<IChannelGrid>::from(components.control)->Select(row, column, endRow, endColumn));
    }
    [[nodiscard]] long gridNumber(HRESULT (STDMETHODCALLTYPE IChannelGrid::*property)(LONG*)) {
        long number = 0;
        com::check((com::ComPointer<IChannelGrid>::from(components.control).get()->*property)(&number));
        return number;
    }
    [[nodiscard]] long row() { return gridNumber(&IChannelGrid::get_CurrentRow); }
    [[nodiscard]] long column() { return gridNumber(&IChannelGrid::get_CurrentColumn); }
    [[nodiscard]] long endRow() { return gridNumber(&IChannelGrid::get_SelectionEndRow); }
    [[nodiscard]] long endColumn() { return gridNumber(&IChannelGrid::get_SelectionEndColumn); }
    // Whether the menu at that place of the menu bar offers the command now.
    [[nodiscard]] bool offered(int menuIndex, desk::Command identifier) {
        const HMENU menu = GetSubMenu(GetMenu(program->window()), menuIndex);
        SendMessageW(program->window(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu),
                     static_cast<LPARAM>(menuIndex));
        const UINT state = GetMenuState(menu, static_cast<UINT>(identifier), MF_BYCOMMAND);
        return state != static_cast<UINT>(-1) && (state & MF_GRAYED) == 0;
    }
    [[nodiscard]] std::wstring statusText(int part) {
        std::wstring text(300, L'\0');
        const HWND bar = GetDlgItem(program->window(), CHILD_STATUS_BAR);
        text.resize(
            LOWORD(SendMessageW(bar, SB_GETTEXTW, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(text.data()))));
        return text;
    }
    [[nodiscard]] std::wstring title() {
        std::wstring text(256, L'\0');
        text.resize(static_cast<std::size_t>(GetWindowTextW(program->window(), text.data(), 256)));
        return text;
    }
    [[nodiscard]] bool isOpen() { return program->window() != nullptr; }
    [[nodiscard]] std::vector<std::wstring> recentFiles() {
        std::vector<std::wstring> paths;
        for (const std::string& path : desk::setting::recentFiles.in(host::RegistrySettings(TestSettings::key))) {
            paths.push_back(win::wide(path));
        }
        return paths;
    }

    static inline InstalledServers* servers = nullptr;
    const TestSettings settings;
    TemporaryFolder folder;
    DialogAnswers dialogs;
    host::Components components;
    std::optional<MainWindow> program;
};

}  // namespace telvar::tests
