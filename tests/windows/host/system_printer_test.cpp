// The system's printers: its dialogs for them, and a document on a real one.
#include <algorithm>

#include "host/shell/print_job.h"
#include "host/shell/print_page_dialogs.h"
#include "host/shell/print_system.h"
#include "installed_printer.h"
#include "picture.h"
#include "print_program.h"

namespace telvar::tests {

namespace {

std::size_t countOf(const std::string& text, const std::string& what) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
        ++count;
    }
    return count;
}

}  // namespace

struct SystemPrinter : Program {
    SystemPrinter() {
        if (!printer.refusal().empty()) {
            ADD_FAILURE() << printer.refusal();
        }
    }
    static void accept(HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDOK, 0); }

    const InstalledPrinter printer;
};

TEST_F(SystemPrinter, TakesTheWholeTable) {
    start(sample("maritime.telvar", "a.telvar"));
    command(desk::Command::LogOut);
    dialogs.ignore(L"Printing");
    dialogs.expect(accept);
    command(desk::Command::Print);
    EXPECT_EQ(statusText(0), L"The table was printed.");
    const std::string pages = printer.output();
    EXPECT_TRUE(pages.starts_with("%!PS"));
    EXPECT_EQ(countOf(pages, "%%Page:"), 5U);
}

// The box gets its messages from the system's abort procedure as well as between pages.
TEST_F(SystemPrinter, ACancelledDocumentIsGivenUpInSilence) {
    start(sample("maritime.telvar", "a.telvar"));
    dialogs.expect(accept);
    dialogs.expect([](HWND box) { PostMessageW(box, WM_COMMAND, IDCANCEL, 0); });
    const std::wstring before = statusText(0);
    command(desk::Command::Print);
    EXPECT_TRUE(dialogs.shown().back().starts_with(L"Printing"));
    EXPECT_EQ(dialogs.shown().size(), 2U);
    EXPECT_EQ(statusText(0), before);
    EXPECT_EQ(printer.output(), "");
    EXPECT_TRUE(IsWindowEnabled(program->window()));
    EXPECT_TRUE(offered(0, desk::Command::Print));
}

TEST_F(SystemPrinter, TellsItsSheetAndWhatItCannotReach) {
    host::SystemPrinters printers;
    desk::PageSetup setup;
    setup.landscape = true;
    dialogs.expect(accept);
    const auto order = printers.choose(nullptr, setup, 1);
    ASSERT_TRUE(order);
    const desk::Paper sheet = order->device->sheet();
    EXPECT_NEAR(sheet.size.width, 842 * 20, 30);
    EXPECT_NEAR(sheet.size.height, 595 * 20, 30);
    EXPECT_NEAR(sheet.margins.left, 18 * 20, 10);
    EXPECT_TRUE(setup.landscape);
    EXPECT_EQ(setup.sheet, (desk::Size{21'000, 29'700}));
}

TEST_F(SystemPrinter, ACancelledDialogIsNoOrder) {
    host::SystemPrinters printers;
    desk::PageSetup setup;
    dialogs.expectBox(IDCANCEL);
    EXPECT_FALSE(printers.choose(nullptr, setup, 1));
}

TEST_F(SystemPrinter, TheSystemsPageSetupHasTheChoiceOfChannels) {
    host::SystemPrinters printers;
    desk::PageSetup setup;
    dialogs.expect([](HWND dialog) {
        const HWND box = GetDlgItem(dialog, PAGE_ONLY_IN_USE);
        ASSERT_NE(box, nullptr);
        EXPECT_TRUE(IsWindowVisible(box));
        RECT own{};
        RECT button{};
        RECT whole{};
        GetWindowRect(box, &own);
        GetWindowRect(GetDlgItem(dialog, IDOK), &button);
        GetWindowRect(dialog, &whole);
        EXPECT_LE(own.bottom, button.top);
        EXPECT_LE(button.bottom, whole.bottom);
        takePicture(dialog, "system_page_setup");
        CheckDlgButton(dialog, PAGE_ONLY_IN_USE, BST_CHECKED);
        accept(dialog);
    });
    EXPECT_TRUE(printers.setUpPage(nullptr, setup));
    EXPECT_TRUE(setup.onlyInUse);
    EXPECT_EQ(setup.margins, desk::PageSetup{}.margins);
    EXPECT_EQ(setup.sheet, desk::PageSetup{}.sheet);
}

TEST_F(SystemPrinter, ACancelledPageSetupChangesNothing) {
    host::SystemPrinters printers;
    desk::PageSetup setup;
    dialogs.expect([](HWND dialog) {
        CheckDlgButton(dialog, PAGE_ONLY_IN_USE, BST_CHECKED);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_FALSE(printers.setUpPage(nullptr, setup));
    EXPECT_EQ(setup, desk::PageSetup{});
}

}  // namespace telvar::tests
