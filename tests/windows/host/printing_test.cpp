// Printing from the menu: what goes through the control, what reaches the printer, the HTML file, and the page set-up.
#include <windows.h>

#include <commdlg.h>

#include <algorithm>
#include <cstdint>

#include "desk/html.h"
#include "host/shell/print_page_dialogs.h"
#include "host/shell/print_system.h"
#include "picture.h"
#include "print_program.h"
#include "win/text.h"

namespace telvar::tests {

namespace {

constexpr int messagePart = 0;

bool contains(const Texts& texts, const std::wstring& text) { return std::ranges::find(texts, text) != texts.end(); }

bool anyPrinter() {
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.Flags = PD_RETURNDEFAULT | PD_NOWARNING;
    const BOOL found = PrintDlgW(&dialog);
    GlobalFree(dialog.hDevMode);
    GlobalFree(dialog.hDevNames);
    return found != FALSE;
}

}  // namespace

struct PrintCommands : PrintProgram {
    [[nodiscard]] std::string savedHtml(const std::string& name) {
        dialogs.expectFile(path(name));
        command(desk::Command::SaveHtml);
        return TemporaryFolder::read(folder / name);
    }
};

TEST_F(PrintCommands, AreOfferedInTheFileMenu) {
    startWith("pmr446.telvar");
    for (const desk::Command identifier :
         {desk::Command::Print, desk::Command::PrintPreview, desk::Command::PageSetup, desk::Command::SaveHtml}) {
        EXPECT_TRUE(offered(fileMenu, identifier)) << static_cast<int>(identifier);
    }
}

TEST_F(PrintCommands, WithoutAnOpenTableTheControlSaysSo) {
    startWith("pmr446.telvar");
    components.store->Close();
    for (const desk::Command identifier :
         {desk::Command::Print, desk::Command::PrintPreview, desk::Command::SaveHtml}) {
        dialogs.expectBox(IDOK);
        command(identifier);
        EXPECT_EQ(dialogs.shown().back(),
                  L"Telvar: No channel information open to print. Please open a channel database.");
    }
    EXPECT_EQ(record.calls, Texts{});
}

TEST_F(PrintCommands, EveryChannelIsPrintedAsTheControlShowsIt) {
    startWith("maritime.telvar");
    command(desk::Command::Print);
    Texts printed;
    for (const Texts& page : record.pages) {
        std::ranges::copy(page, std::back_inserter(printed));
        EXPECT_EQ(page.front(), L"International maritime VHF, coast station");
    }
    for (long channel = 1; channel <= 255; ++channel) {
        ASSERT_TRUE(contains(printed, std::to_wstring(channel))) << channel;
        for (long shown = 1; shown <= 26; ++shown) {
            if (columnVisible(shown)) {
                ASSERT_TRUE(contains(printed, cell(channel, shown))) << channel << " " << shown;
            }
        }
    }
    EXPECT_EQ(record.name, L"International maritime VHF, coast station");
    EXPECT_EQ(record.calls.back(), L"end");
    EXPECT_EQ(statusText(messagePart), L"The table was printed.");
}

TEST_F(PrintCommands, ColumnsThatTheLevelHidesAreNotPrinted) {
    startWith("pmr446.telvar");
    command(desk::Command::LogOut);
    command(desk::Command::Print);
    Texts printed;
    for (const Texts& page : record.pages) {
        std::ranges::copy(page, std::back_inserter(printed));
    }
    EXPECT_TRUE(contains(printed, L"Scan"));
    EXPECT_FALSE(contains(printed, L"Pwr"));
    EXPECT_FALSE(contains(printed, L"TX Pwr"));
}

TEST_F(PrintCommands, OnlyChannelsInUseArePrintedIfWanted) {
    startWith("pmr446.telvar");
    useOnlyChannelsInUse();
    const std::string html = savedHtml("used.html");
    const int used = configuredChannels();
    ASSERT_GT(used, 0);
    ASSERT_LT(used, 255);
    std::size_t rows = 0;
    for (std::size_t at = html.find("<tr>"); at != std::string::npos; at = html.find("<tr>", at + 1)) {
        ++rows;
    }
    EXPECT_EQ(rows, static_cast<std::size_t>(used) + 1);
    EXPECT_EQ(html.find("<td>X</td><td>X</td>"), std::string::npos);
}

TEST_F(PrintCommands, CtrlPPrints) {
    startWith("pmr446.telvar");
    press({VK_CONTROL, 'P'});
    EXPECT_TRUE(pumpUntil([this] { return !record.calls.empty() && record.calls.back() == L"end"; }));
}

TEST_F(PrintCommands, ACancelledChoiceOfPrinterIsSilent) {
    startWith("pmr446.telvar");
    printers->order = [](host::PrintOrder&, int) { return false; };
    command(desk::Command::Print);
    EXPECT_EQ(record.calls, Texts{});
    EXPECT_TRUE(offered(fileMenu, desk::Command::Print));
    EXPECT_TRUE(IsChild(program->window(), GetFocus()));
}

TEST_F(PrintCommands, AComputerWithoutAPrinterIsToldInOneSentence) {
    startWith("pmr446.telvar");
    printers->order = [](host::PrintOrder&, int) -> bool { throw base::Failure(host::SystemPrinters::noPrinter); };
    dialogs.expectBox(IDOK);
    command(desk::Command::Print);
    EXPECT_EQ(dialogs.shown().back(), L"Telvar: There is no printer on this computer; File > Save as HTML writes the "
                                      L"same table for a browser.");
    EXPECT_TRUE(offered(fileMenu, desk::Command::Print));
}

// Whatever this computer has.
TEST_F(PrintCommands, TheSystemsPrintersAreAskedOrMissed) {
    start(sample("pmr446.telvar", "a.telvar"));
    if (anyPrinter()) {
        dialogs.expectBox(IDCANCEL);
        command(desk::Command::Print);
        EXPECT_EQ(statusText(messagePart), openPath());
    } else {
        dialogs.expectBox(IDOK);
        command(desk::Command::Print);
        EXPECT_TRUE(dialogs.shown().back().starts_with(L"Telvar: There is no printer on this computer;"));
    }
    EXPECT_TRUE(offered(fileMenu, desk::Command::Print));
}

TEST_F(PrintCommands, AFailureOfThePrinterIsToldAndEverythingComesBack) {
    startWith("pmr446.telvar");
    record.startPage = host::DeviceAnswer::Refused;
    dialogs.expectBox(IDOK);
    command(desk::Command::Print);
    EXPECT_EQ(dialogs.shown().back(),
              L"Telvar: Page 1 could not be printed, and the rest of the document was given up.");
    EXPECT_TRUE(offered(fileMenu, desk::Command::Print));
    EXPECT_TRUE(IsWindowEnabled(program->window()));
    record.startPage = host::DeviceAnswer::Done;
    command(desk::Command::Print);
    EXPECT_EQ(record.calls.back(), L"end");
}

TEST_F(PrintCommands, AScriptThatAsksGetsThePreview) {
    startWith("pmr446.telvar");
    dialogs.expect([](HWND window) {
        EXPECT_EQ(textOf(window), L"Print Preview");
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    });
    com::check(com::ComPointer<_ChannelInformation>::from(components.control)->PrintInfo());
    pump();
    EXPECT_EQ(dialogs.shown().size(), 1U);
    EXPECT_EQ(record.calls, Texts{});
}

TEST_F(PrintCommands, WhatTheUserAskedForIsForgottenAfterwards) {
    startWith("pmr446.telvar");
    command(desk::Command::Print);
    const std::size_t calls = record.calls.size();
    dialogs.expect([](HWND window) { PostMessageW(window, WM_COMMAND, IDCANCEL, 0); });
    com::check(com::ComPointer<_ChannelInformation>::from(components.control)->PrintInfo());
    pump();
    EXPECT_EQ(record.calls.size(), calls);
}

TEST_F(PrintCommands, TheHtmlFileHoldsTheCellsThatTheControlShows) {
    startWith("maritime.telvar");
    const std::string html = savedHtml("table.html");
    desk::PrintedTable expected{.title = "International maritime VHF, coast station"};
    std::string::size_type at = html.find("<tbody>");
    ASSERT_NE(at, std::string::npos);
    EXPECT_NE(html.find("<h1>International maritime VHF, coast station</h1>"), std::string::npos);
    for (long channel = 1; channel <= 255; ++channel) {
        std::string row = "<tr><th scope=\"row\">" + std::to_string(channel) + "</th>";
        for (long shown = 1; shown <= 26; ++shown) {
            if (columnVisible(shown)) {
                row += std::string(shown >= TXPowerCol ? "<td class=\"centred\">" : "<td>") +
                       win::narrow(cell(channel, shown)) + "</td>";
            }
        }
        at = html.find(row + "</tr>\n", at);
        ASSERT_NE(at, std::string::npos) << row;
    }
    EXPECT_EQ(statusText(messagePart), L"The table was saved as " + path("table.html") + L".");
    EXPECT_EQ(folder.entries(), (std::vector<std::string>{"a.telvar", "table.html"}));
}

TEST_F(PrintCommands, AnHtmlFileThatCannotBeWrittenIsToldInOneSentence) {
    startWith("pmr446.telvar");
    const std::string place = folder / "taken.html";
    std::filesystem::create_directories(TemporaryFolder::pathOf(place) / "inside");
    const host::HostSystem system;
    EXPECT_THROW(system.replaceFile(place, "x"), base::Failure);
    try {
        system.replaceFile(folder / "nowhere\\table.html", "x");
        ADD_FAILURE();
    } catch (const base::Failure& failure) {
        EXPECT_TRUE(failure.description().find("table.html could not be written: ") != std::string::npos)
            << failure.description();
    }
    EXPECT_EQ(folder.entries(), (std::vector<std::string>{"a.telvar", "taken.html"}));
}

TEST_F(PrintCommands, AnHtmlFileThatMayNotBeReplacedStaysAndIsTold) {
    startWith("pmr446.telvar");
    const std::wstring file = path("kept.html");
    TemporaryFolder::write(folder / "kept.html", "before");
    ASSERT_TRUE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY));
    dialogs.expectFile(file);
    dialogs.expectBox(IDYES);
    dialogs.expectBox(IDOK);
    command(desk::Command::SaveHtml);
    const std::wstring& sentence = dialogs.shown().back();
    EXPECT_TRUE(sentence.starts_with(L"Telvar: " + file + L" could not be written: ")) << win::narrow(sentence);
    EXPECT_TRUE(sentence.ends_with(L".")) << win::narrow(sentence);
    EXPECT_EQ(TemporaryFolder::read(folder / "kept.html"), "before");
    EXPECT_EQ(folder.entries(), (std::vector<std::string>{"a.telvar", "kept.html"}));
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    dialogs.expectFile(file);
    dialogs.expectBox(IDYES);
    command(desk::Command::SaveHtml);
    EXPECT_TRUE(TemporaryFolder::read(folder / "kept.html").starts_with("<!DOCTYPE html>"));
}

TEST_F(PrintCommands, ACancelledHtmlFileIsNone) {
    startWith("pmr446.telvar");
    dialogs.expectBox(IDCANCEL);
    command(desk::Command::SaveHtml);
    EXPECT_EQ(folder.entries(), (std::vector<std::string>{"a.telvar"}));
}

// ---- page set-up

TEST_F(PrintCommands, ThePageSetupIsRememberedForTheNextStart) {
    startWith("pmr446.telvar");
    useOnlyChannelsInUse();
    close();
    end();
    start();
    EXPECT_TRUE(desk::setting::printOnlyInUse.in(host::RegistrySettings(TestSettings::key)));
}

struct OwnPageSetup : PrintProgram {
    void answer(std::function<void(HWND)> fill) {
        dialogs.expect([fill = std::move(fill)](HWND dialog) {
            fill(dialog);
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
    }
};

TEST_F(OwnPageSetup, TakesPaperOrientationMarginsAndChannels) {
    desk::PageSetup setup;
    answer([](HWND dialog) {
        SendDlgItemMessageW(dialog, PAGE_SHEET, CB_SETCURSEL, 2, 0);
        CheckRadioButton(dialog, PAGE_PORTRAIT, PAGE_LANDSCAPE, PAGE_LANDSCAPE);
        SetDlgItemTextW(dialog, PAGE_LEFT, L"12.5");
        SetDlgItemTextW(dialog, PAGE_BOTTOM, L"20");
        CheckDlgButton(dialog, PAGE_ONLY_IN_USE, BST_CHECKED);
        takePicture(dialog, "page_setup");
    });
    EXPECT_TRUE(host::askPageSetup(nullptr, setup));
    EXPECT_EQ(setup, (desk::PageSetup{.sheet = {14'800, 21'000},
                                      .sheetCode = 11,
                                      .landscape = true,
                                      .margins = {1'250, 1'500, 1'500, 2'000},
                                      .onlyInUse = true}));
}

TEST_F(OwnPageSetup, RefusesWhatIsNoMarginAndMarginsThatLeaveNoRoom) {
    desk::PageSetup setup;
    const desk::PageSetup before = setup;
    dialogs.expect([](HWND dialog) {
        SetDlgItemTextW(dialog, PAGE_TOP, L"wide");
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(textOf(GetDlgItem(dialog, DIALOG_NOTE)), L"Enter a margin in millimetres.");
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, PAGE_TOP));
        SetDlgItemTextW(dialog, PAGE_TOP, L"290");
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(textOf(GetDlgItem(dialog, DIALOG_NOTE)), L"These margins leave no room to print on.");
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_FALSE(host::askPageSetup(nullptr, setup));
    EXPECT_EQ(setup, before);
}

}  // namespace telvar::tests
