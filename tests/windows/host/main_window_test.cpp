// The main window with the real control, store and link: what its commands do to the open table, and which questions
// they ask.
#include <windows.h>

#include <shlobj.h>

#include <cstring>

#include "open_program.h"

namespace telvar::tests {

TEST_F(Program, StartsWithAnEmptyTable) {
    start();
    EXPECT_EQ(openPath(), L"");
    EXPECT_EQ(configuredChannels(), 0);
    EXPECT_FALSE(modified());
    EXPECT_EQ(cell(0, 1), L"Tx Frequency (MHz)");
    EXPECT_EQ(cell(255, 1), L"X");
}

TEST_F(Program, OpensTheFileItIsGivenAndTakesTheControlsCaption) {
    const std::wstring file = sample("maritime.telvar", "Küste & Hafen 1.telvar");
    start(file);
    EXPECT_EQ(openPath(), file);
    EXPECT_EQ(title(), L"Channel Information - International maritime VHF, coast station");
    EXPECT_EQ(cell(1, 1), L"160.650000");
    EXPECT_EQ(recentFiles(), Texts{file});
}

TEST_F(Program, TheControlHasTheFocusFromTheStart) {
    start();
    EXPECT_NE(GetFocus(), program->window());
    EXPECT_TRUE(IsChild(program->window(), GetFocus()));
}

TEST_F(Program, TabGoesThroughTheControlAndComesBack) {
    start();
    const HWND first = GetFocus();
    std::vector<HWND> visited;
    do {
        key(VK_TAB);
        visited.push_back(GetFocus());
    } while (visited.back() != first && visited.size() < 20);
    EXPECT_EQ(visited.back(), first);
    EXPECT_GE(visited.size(), 4U);
    for (const HWND window : visited) {
        EXPECT_TRUE(IsChild(program->window(), window));
    }
}

TEST_F(Program, AMissingFileIsToldAndANewTableStaysOpen) {
    dialogs.expectBox(IDOK);
    start(path("nowhere.telvar"));
    ASSERT_EQ(dialogs.shown().size(), 1U);
    EXPECT_NE(dialogs.shown().front().find(L"nowhere.telvar"), std::wstring::npos);
    EXPECT_EQ(openPath(), L"");
    EXPECT_EQ(recentFiles(), Texts{});
}

TEST_F(Program, ADamagedFileIsToldAsTheStoreDoesAndTheOpenTableStays) {
    const std::wstring good = sample("pmr446.telvar", "good.telvar");
    start(good);
    const std::wstring before = cell(1, 1);
    const std::string bad = folder / "bad.telvar";
    TemporaryFolder::write(
        bad, R"({"format": "telvar-channel-table", "version": 1, "channels": [{"channel": 3, "TxFreq": "x"}]})");
    dialogs.expectFile(win::wide(bad));
    dialogs.expectBox(IDOK);
    command(desk::Command::Open);
    ASSERT_EQ(dialogs.shown().size(), 2U);
    const std::wstring& sentence = dialogs.shown().back();
    EXPECT_TRUE(sentence.starts_with(L"Telvar: ")) << win::narrow(sentence);
    EXPECT_NE(sentence.find(L"bad.telvar"), std::wstring::npos) << win::narrow(sentence);
    EXPECT_NE(sentence.find(L"3"), std::wstring::npos) << win::narrow(sentence);
    EXPECT_NE(sentence.find(L"TxFreq"), std::wstring::npos) << win::narrow(sentence);
    EXPECT_TRUE(sentence.ends_with(L".")) << win::narrow(sentence);
    EXPECT_EQ(openPath(), good);
    EXPECT_EQ(cell(1, 1), before);
    EXPECT_FALSE(modified());
    EXPECT_EQ(recentFiles(), Texts{good});
}

TEST_F(Program, AChangeThatNoFlagAnnouncedIsMarkedAndSaved) {
    const std::wstring file = sample("pmr446.telvar", "a.telvar");
    start(file);
    EXPECT_FALSE(title().starts_with(L"*"));
    change(200);
    EXPECT_TRUE(title().starts_with(L"*"));
    command(desk::Command::Save);
    EXPECT_FALSE(title().starts_with(L"*"));
    EXPECT_NE(TemporaryFolder::read(folder / "a.telvar").find("\"channel\": 200"), std::string::npos);
    EXPECT_NE(TemporaryFolder::read(folder / "a.telvar.bak").find("\"channels\""), std::string::npos);
}

TEST_F(Program, RefreshShowsWhatTheStoreHolds) {
    start();
    change(7);
    EXPECT_EQ(cell(7, 1), L"X");
    command(desk::Command::Refresh);
    EXPECT_EQ(cell(7, 1), L"446.006250");
}

TEST_F(Program, AnotherTableIsShownFromItsTopAndARefreshStaysWhereItIs) {
    start(sample("gmrs.telvar", "a.telvar"));
    const auto grid = com::ComPointer<IChannelGrid>::from(components.control);
    com::check(grid->put_TopRow(100));
    long top = 0;
    command(desk::Command::Refresh);
    com::check(grid->get_TopRow(&top));
    EXPECT_EQ(top, 100);
    command(desk::Command::New);
    com::check(grid->get_TopRow(&top));
    EXPECT_EQ(top, 1);
}

TEST_F(Program, ARefreshMovesTheProgressBarFromEndToEnd) {
    start(sample("gmrs.telvar", "a.telvar"));
    const HWND bar = GetDlgItem(GetDlgItem(program->window(), CHILD_STATUS_BAR), CHILD_PROGRESS);
    int steps = 0;
    std::vector<LRESULT> positions;
    const host::EventConnection events(components.control.get(), __uuidof(__ChannelInformation),
                                       [&](DISPID event, const DISPPARAMS&) {
                                           if (event == 12 && ++steps % 64 == 0) {
                                               EXPECT_TRUE(IsWindowVisible(bar));
                                               positions.push_back(SendMessageW(bar, PBM_GETPOS, 0, 0));
                                           }
                                           return true;
                                       });
    EXPECT_FALSE(IsWindowVisible(bar));
    command(desk::Command::Refresh);
    EXPECT_EQ(steps, 255);
    EXPECT_EQ(positions, (std::vector<LRESULT>{64, 128, 192}));
    EXPECT_EQ(SendMessageW(bar, PBM_GETRANGE, FALSE, 0), 255);
    EXPECT_FALSE(IsWindowVisible(bar));
}

TEST_F(Program, ANewTableIsSavedUnderTheNameThatTheUserGives) {
    start();
    change();
    dialogs.expectFile(path("fresh"));
    command(desk::Command::Save);
    EXPECT_EQ(openPath(), path("fresh.telvar"));
    EXPECT_FALSE(modified());
    EXPECT_EQ(recentFiles(), Texts{path("fresh.telvar")});
}

TEST_F(Program, SavingUnderANameCanBeCancelled) {
    start();
    change();
    dialogs.expectBox(IDCANCEL);
    command(desk::Command::SaveAs);
    EXPECT_TRUE(modified());
    EXPECT_EQ(openPath(), L"");
}

TEST_F(Program, AFileThatCannotBeWrittenIsToldAndTheChangesStay) {
    const std::wstring guarded = sample("gmrs.telvar", "guarded.telvar");
    const std::string before = TemporaryFolder::read(folder / "guarded.telvar");
    SetFileAttributesW(guarded.c_str(), FILE_ATTRIBUTE_READONLY);
    start();
    change();
    dialogs.expectFile(guarded);
    dialogs.expectBox(IDYES);  // the system asks whether to replace the file
    dialogs.expectBox(IDOK);
    command(desk::Command::SaveAs);
    ASSERT_EQ(dialogs.shown().size(), 3U);
    EXPECT_NE(dialogs.shown().back().find(L"guarded.telvar"), std::wstring::npos)
        << win::narrow(dialogs.shown().back());
    EXPECT_TRUE(modified());
    EXPECT_EQ(openPath(), L"");
    SetFileAttributesW(guarded.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(TemporaryFolder::read(folder / "guarded.telvar"), before);
}

TEST_F(Program, NewAsksAboutChangesByTheFilesName) {
    const std::wstring file = sample("pmr446.telvar", "tables.telvar");
    start(file);
    change();
    dialogs.expectQuestion(IDCANCEL);
    command(desk::Command::New);
    EXPECT_EQ(dialogs.shown(), Texts{L"Telvar: Do you want to save the changes to tables.telvar?"});
    EXPECT_EQ(openPath(), file);
    EXPECT_EQ(frequency(), 446'006'250);

    dialogs.expectQuestion(IDNO);
    command(desk::Command::New);
    EXPECT_EQ(openPath(), L"");
    EXPECT_EQ(frequency(), 0);
    EXPECT_EQ(cell(1, 1), L"X");
}

TEST_F(Program, TheQuestionNamesATableThatHasNoFile) {
    start();
    change();
    dialogs.expectQuestion(IDCANCEL);
    close();
    EXPECT_EQ(dialogs.shown(), Texts{L"Telvar: Do you want to save the changes to the new channel table?"});
    EXPECT_TRUE(isOpen());
}

TEST_F(Program, ClosingSavesWhenTheUserSaysSo) {
    const std::wstring file = sample("pmr446.telvar", "a.telvar");
    start(file);
    change(200);
    dialogs.expectQuestion(IDYES);
    close();
    EXPECT_FALSE(isOpen());
    EXPECT_NE(TemporaryFolder::read(folder / "a.telvar").find("\"channel\": 200"), std::string::npos);
}

TEST_F(Program, ClosingDropsChangesWhenTheUserSaysSo) {
    const std::wstring file = sample("pmr446.telvar", "a.telvar");
    const std::string before = TemporaryFolder::read(folder / "a.telvar");
    start(file);
    change(200);
    dialogs.expectQuestion(IDNO);
    close();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(TemporaryFolder::read(folder / "a.telvar"), before);
}

TEST_F(Program, ClosingStaysWhenTheTableCouldNotBeSaved) {
    start();
    change();
    dialogs.expectQuestion(IDYES);
    dialogs.expectBox(IDCANCEL);
    close();
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(modified());
}

TEST_F(Program, ClosingAsksNothingWhenNothingChanged) {
    start(sample("gmrs.telvar", "a.telvar"));
    close();
    EXPECT_FALSE(isOpen());
}

TEST_F(Program, TheEndOfTheSessionAsksAsClosingDoes) {
    start();
    change();
    dialogs.expectQuestion(IDCANCEL);
    EXPECT_EQ(SendMessageW(program->window(), WM_QUERYENDSESSION, 0, 0), FALSE);
    dialogs.expectQuestion(IDNO);
    EXPECT_EQ(SendMessageW(program->window(), WM_QUERYENDSESSION, 0, 0), TRUE);
    SendMessageW(program->window(), WM_ENDSESSION, TRUE, 0);
    EXPECT_FALSE(isOpen());
}

TEST_F(Program, AWindowThatShowsAQuestionDoesNotClose) {
    start();
    change();
    dialogs.expect([this](HWND dialog) {
        SendMessageW(program->window(), WM_CLOSE, 0, 0);
        SendMessageW(program->window(), WM_COMMAND, static_cast<WPARAM>(desk::Command::New), 0);
        EXPECT_TRUE(isOpen());
        EXPECT_EQ(frequency(), 446'006'250);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    command(desk::Command::New);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(frequency(), 446'006'250);
}

TEST_F(Program, AfterAMessageTheFocusIsWhereItWas) {
    start();
    key(VK_TAB);
    const HWND before = GetFocus();
    dialogs.expectBox(IDOK);
    command(desk::Command::About);
    EXPECT_EQ(GetFocus(), before);
    EXPECT_TRUE(IsChild(program->window(), before));
}

TEST_F(Program, RecentFilesAreOpenedByTheirNumber) {
    const std::wstring first = sample("pmr446.telvar", "first.telvar");
    const std::wstring second = sample("gmrs.telvar", "second.telvar");
    start(first);
    dialogs.expectFile(second);
    command(desk::Command::Open);
    EXPECT_EQ(recentFiles(), (Texts{second, first}));
    command(static_cast<desk::Command>(static_cast<int>(desk::Command::RecentFirst) + 1));
    EXPECT_EQ(openPath(), first);
    EXPECT_EQ(recentFiles(), (Texts{first, second}));
}

TEST_F(Program, ARecentFileThatIsGoneIsToldAndForgotten) {
    const std::wstring file = sample("pmr446.telvar", "a.telvar");
    start(file);
    command(desk::Command::New);
    std::filesystem::remove(TemporaryFolder::pathOf(folder / "a.telvar"));
    dialogs.expectBox(IDOK);
    command(desk::Command::RecentFirst);
    EXPECT_EQ(recentFiles(), Texts{});
    EXPECT_EQ(openPath(), L"");
}

TEST_F(Program, AFileThatIsDroppedOnTheWindowOpens) {
    start();
    const std::wstring file = sample("gmrs.telvar", "a.telvar");
    const std::size_t bytes = sizeof(DROPFILES) + (file.size() + 2) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes);
    auto* const drop = static_cast<DROPFILES*>(GlobalLock(memory));
    drop->pFiles = sizeof(DROPFILES);
    drop->fWide = TRUE;
    std::memcpy(drop + 1, file.data(), file.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    SendMessageW(program->window(), WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    EXPECT_EQ(openPath(), file);
    EXPECT_EQ(recentFiles(), Texts{file});
}

TEST_F(Program, TheFileMenuListsTheRecentFiles) {
    const std::wstring file = sample("pmr446.telvar", "R&D.telvar");
    start(file);
    const HMENU menu = GetSubMenu(GetMenu(program->window()), 0);
    const auto text = [menu](desk::Command command) {
        const auto identifier = static_cast<UINT>(command);
        std::wstring result(260, L'\0');
        result.resize(static_cast<std::size_t>(GetMenuStringW(menu, identifier, result.data(), 260, MF_BYCOMMAND)));
        return result;
    };
    const int before = GetMenuItemCount(menu);
    SendMessageW(program->window(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
    EXPECT_EQ(text(desk::Command::RecentFirst), win::wide(desk::RecentFiles::menuText(0, win::narrow(file))));
    EXPECT_EQ(GetMenuItemCount(menu), before);
    command(desk::Command::New);
    host::RegistrySettings others(TestSettings::key);
    const host::HostSystem system;
    desk::RecentFiles(others, system).remove(win::narrow(file));
    SendMessageW(program->window(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
    EXPECT_EQ(text(desk::Command::RecentFirst), L"No recent files");
}

TEST_F(Program, RemembersItsPlaceAndItsStatusBar) {
    start();
    SetWindowPos(program->window(), nullptr, 40, 30, 600, 500, SWP_NOZORDER);
    command(desk::Command::StatusBar);
    close();
    end();
    start();
    RECT place{};
    GetWindowRect(program->window(), &place);
    EXPECT_EQ(place.left, 40);
    EXPECT_EQ(place.top, 30);
    EXPECT_EQ(place.right - place.left, 600);
    EXPECT_EQ(place.bottom - place.top, 500);
    EXPECT_EQ(SendMessageW(program->window(), WM_GETOBJECT, 0, 0), 0);
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(program->window(), CHILD_STATUS_BAR)));
    command(desk::Command::StatusBar);
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(program->window(), CHILD_STATUS_BAR)));
}

TEST_F(Program, TheControlFillsTheWindowAboveTheStatusBar) {
    start();
    SetWindowPos(program->window(), nullptr, 0, 0, 800, 600, SWP_NOZORDER | SWP_NOMOVE);
    pump();
    RECT client{};
    GetClientRect(program->window(), &client);
    RECT bar{};
    GetWindowRect(GetDlgItem(program->window(), CHILD_STATUS_BAR), &bar);
    HWND control = GetFocus();
    while (GetParent(control) != program->window()) {
        control = GetParent(control);
    }
    RECT place{};
    GetClientRect(control, &place);
    EXPECT_EQ(place.right, client.right);
    EXPECT_EQ(place.bottom, client.bottom - (bar.bottom - bar.top));
}

TEST_F(Program, TheEditMenuCopiesPastesAndUndoesInTheGrid) {
    start(sample("gmrs.telvar", "a.telvar"));
    select(1, 1, 1, 8);
    command(desk::Command::Copy);
    select(200, 1, 200, 1);
    command(desk::Command::Paste);
    EXPECT_EQ(cell(200, 1), cell(1, 1));
    EXPECT_EQ(cell(200, 5), cell(1, 5));
    EXPECT_TRUE(title().starts_with(L"*"));
    command(desk::Command::Undo);
    EXPECT_EQ(cell(200, 1), L"X");
    command(desk::Command::Redo);
    EXPECT_EQ(cell(200, 1), cell(1, 1));
    dialogs.expectQuestion(IDNO);
    close();
}

TEST_F(Program, TheEditMenuOffersWhatTheControlOffers) {
    start();
    EXPECT_FALSE(offered(editMenu, desk::Command::Undo));
    EXPECT_FALSE(offered(editMenu, desk::Command::Redo));
    EXPECT_TRUE(offered(editMenu, desk::Command::Copy));
    EXPECT_TRUE(offered(editMenu, desk::Command::SelectAll));
    command(desk::Command::SelectAll);
    EXPECT_EQ(endRow(), 255);
    EXPECT_EQ(endColumn(), 26);
}

TEST_F(Program, InATextBoxTheEditMenuIsTheTextBoxs) {
    start();
    const auto inTextBox = [] {
        std::array<wchar_t, 16> name{};
        GetClassNameW(GetFocus(), name.data(), static_cast<int>(name.size()));
        return std::wstring_view(name.data()) == L"Edit" || std::wstring_view(name.data()) == L"EDIT";
    };
    while (!inTextBox()) {
        key(VK_TAB);
    }
    const HWND box = GetFocus();
    SetWindowTextW(box, L"12");
    command(desk::Command::SelectAll);
    command(desk::Command::Copy);
    SetWindowTextW(box, L"");
    command(desk::Command::Paste);
    command(desk::Command::Paste);
    std::wstring text(8, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(box, text.data(), 8)));
    EXPECT_EQ(text, L"1212");
    EXPECT_FALSE(modified());
}

TEST_F(Program, AfterSelectingAChannelOnTheRadioEverythingWorksAgain) {
    start();
    HWND button = nullptr;
    EnumChildWindows(
        program->window(),
        [](HWND child, LPARAM found) -> BOOL {
            std::wstring text(32, L'\0');
            text.resize(static_cast<std::size_t>(GetWindowTextW(child, text.data(), 32)));
            const bool wanted = text == L"Select" || text == L"&Select";
            if (wanted) {
                *reinterpret_cast<HWND*>(found) = child;
            }
            return !wanted;
        },
        reinterpret_cast<LPARAM>(&button));
    ASSERT_NE(button, nullptr);
    SendMessageW(button, BM_CLICK, 0, 0);
    // The link reports the end of the exchange from its own thread.
    EXPECT_TRUE(pumpUntil([button] { return IsWindowEnabled(button) != FALSE; }));
    EXPECT_EQ(dialogs.shown(), Texts{});
    EXPECT_NE(SendMessageW(program->window(), WM_SETCURSOR, 0, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)), TRUE);
    command(desk::Command::New);
    EXPECT_EQ(openPath(), L"");
}

TEST_F(Program, TwoWindowsKeepTheirTablesApart) {
    start(sample("pmr446.telvar", "a.telvar"));
    MainWindow other(TestSettings::key);
    const std::wstring second = sample("gmrs.telvar", "b.telvar");
    const host::Components others = host::installedComponents();
    other.open(win::narrow(second), others);
    change(200);
    EXPECT_TRUE(modified());
    EXPECT_FALSE(host::StoreAdapter(others.store).modified());
    EXPECT_EQ(win::wide(host::StoreAdapter(others.store).path()), second);
    EXPECT_EQ(recentFiles().size(), 2U);
    SendMessageW(other.window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(other.window(), nullptr);
    EXPECT_EQ(frequency(200), 446'006'250);
}

TEST_F(Program, TheServersCanBeUnloadedAfterItsEnd) {
    start(sample("pmr446.telvar", "a.telvar"));
    close();
    end();
    pump();
    for (const char* file : {"Tesslin.ocx", "VexloRadioLink.dll", "VexloDataStore.dll"}) {
        EXPECT_TRUE(LoadedServer(file).canUnload()) << file;
    }
}

}  // namespace telvar::tests
