// The tables that the radio held before: how their files are listed, and how one goes back into the radio.
#include "desk/backups.h"
#include "picture.h"
#include "radio_commands.h"

namespace telvar::tests {

namespace {

// One step above the sample's first channel.
constexpr long later = 462'575'000;

}  // namespace

struct RestoreBackup : RadioCommands {
    // A table of one band plan, and backups in the test's own folder.
    void startWith(const std::string& name) {
        RadioCommands::startWith(name);
        com::check(components.link->put_BackupFolder(com::Bstr(std::wstring_view(backups())).get()));
    }
    [[nodiscard]] std::wstring backups() { return path("backups"); }
    void finish() {
        EXPECT_TRUE(pumpUntil([this] { return idle(); }));
        pump();
        EXPECT_TRUE(pumpUntil([this] { return idle(); }));
    }
    void send() {
        command(desk::Command::RadioSend);
        finish();
    }
    // Chooses the newest, confirms, and waits for the end.
    void restore(bool load, const std::function<void(HWND)>& look = nullptr) {
        expectChoice(load, look);
        dialogs.expectBox(IDYES);
        command(desk::Command::RadioRestore);
        finish();
    }
    void expectChoice(bool load, const std::function<void(HWND)>& look = nullptr) {
        dialogs.expect([load, look](HWND dialog) {
            if (look) {
                look(dialog);
            }
            CheckDlgButton(dialog, BACKUP_LOAD, load ? BST_CHECKED : BST_UNCHECKED);
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
    }
    // The radio holds the open table, with 462.575 MHz in channel 1; the newest backup has 462.5625 MHz there.
    void sendTwoTables() {
        startWith("gmrs.telvar");
        send();
        com::check(record(1)->put_TxFreq(com::Variant(std::int32_t{later}).get()));
        send();
        command(desk::Command::Save);
    }
    [[nodiscard]] std::wstring inRadio() {
        dialogs.expectQuestion(IDNO);
        change(2);
        command(desk::Command::RadioLoad);
        finish();
        return cell(1, 1);
    }
};

TEST_F(RestoreBackup, TheRestoredTableIsInTheRadioAndShownAsModified) {
    sendTwoTables();
    EXPECT_EQ(frequency(), later);
    restore(true, [](HWND dialog) { takePicture(dialog, "restore_backup"); });
    EXPECT_EQ(frequency(), 462'562'500);
    EXPECT_EQ(cell(1, 1), L"462.562500");
    EXPECT_TRUE(modified());
    EXPECT_TRUE(title().starts_with(L"*"));
    EXPECT_EQ(inRadio(), L"462.562500");
    EXPECT_EQ(desk::backupsIn(host::HostSystem(), win::narrow(backups())).size(), 3U);
}

TEST_F(RestoreBackup, TheOpenTableStaysIfThatIsWanted) {
    sendTwoTables();
    restore(false);
    EXPECT_EQ(frequency(), later);
    EXPECT_FALSE(modified());
    EXPECT_TRUE(statusText(messagePart).starts_with(L"The radio holds the table; its former one is kept in "))
        << win::narrow(statusText(messagePart));
    EXPECT_EQ(inRadio(), L"462.562500");
}

TEST_F(RestoreBackup, NotSavingTakesTheShownTableBack) {
    sendTwoTables();
    restore(true);
    EXPECT_EQ(frequency(), 462'562'500);
    dialogs.expectQuestion(IDNO);
    dialogs.expectFile(path("a.telvar"));
    command(desk::Command::Open);
    EXPECT_EQ(frequency(), later);
    EXPECT_FALSE(modified());
}

TEST_F(RestoreBackup, UnsavedChangesAreAskedAboutBeforeAnythingIsSent) {
    sendTwoTables();
    change(3);
    expectChoice(true);
    dialogs.expectBox(IDYES);
    dialogs.expectQuestion(IDCANCEL);
    command(desk::Command::RadioRestore);
    EXPECT_TRUE(idle());
    EXPECT_EQ(frequency(3), 446'006'250);
    EXPECT_EQ(desk::backupsIn(host::HostSystem(), win::narrow(backups())).size(), 2U);
}

TEST_F(RestoreBackup, ALockedTableIsToldBeforeAnythingIsSent) {
    sendTwoTables();
    SendMessageW(lockDataBox(), BM_CLICK, 0, 0);
    expectChoice(true);
    dialogs.expectBox(IDOK);
    command(desk::Command::RadioRestore);
    ASSERT_EQ(dialogs.shown().size(), 2U);
    EXPECT_NE(dialogs.shown()[1].find(L"Data is locked"), std::wstring::npos) << win::narrow(dialogs.shown()[1]);
    EXPECT_TRUE(idle());
    EXPECT_EQ(desk::backupsIn(host::HostSystem(), win::narrow(backups())).size(), 2U);
    EXPECT_EQ(frequency(), later);
}

TEST_F(RestoreBackup, NothingIsSentWithoutAConfirmation) {
    sendTwoTables();
    expectChoice(true);
    dialogs.expectBox(IDNO);
    command(desk::Command::RadioRestore);
    EXPECT_TRUE(idle());
    EXPECT_EQ(desk::backupsIn(host::HostSystem(), win::narrow(backups())).size(), 2U);
    EXPECT_TRUE(
        dialogs.shown().back().starts_with(L"Telvar: The table in the radio will be overwritten by the one of "))
        << win::narrow(dialogs.shown().back());
}

TEST_F(RestoreBackup, AnEmptyListSaysSo) {
    startWith("gmrs.telvar");
    dialogs.expect([this](HWND dialog) {
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDOK)));
        EXPECT_EQ(SendDlgItemMessageW(dialog, BACKUP_LIST, LB_GETCOUNT, 0, 0), 0);
        std::wstring note(500, L'\0');
        note.resize(static_cast<std::size_t>(GetDlgItemTextW(dialog, DIALOG_NOTE, note.data(), 500)));
        EXPECT_EQ(note, L"No send has kept anything yet in " + backups() + L".");
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    command(desk::Command::RadioRestore);
    EXPECT_TRUE(idle());
}

TEST_F(RestoreBackup, ADamagedFileIsToldAndNothingIsSentOrLoaded) {
    startWith("gmrs.telvar");
    std::filesystem::create_directories(std::filesystem::path(backups()));
    TemporaryFolder::write(win::narrow(backups()) + "/radio 2024-03-01 14.05.09.telvar-radio",
                           "telvar-radio-table 1\n");
    expectChoice(true);
    dialogs.expectBox(IDYES);
    dialogs.expectBox(IDOK);
    command(desk::Command::RadioRestore);
    finish();
    const std::wstring& sentence = dialogs.shown().back();
    EXPECT_TRUE(sentence.starts_with(L"Telvar: ")) << win::narrow(sentence);
    EXPECT_NE(sentence.find(L"radio 2024-03-01 14.05.09.telvar-radio"), std::wstring::npos) << win::narrow(sentence);
    EXPECT_TRUE(sentence.ends_with(L".")) << win::narrow(sentence);
    EXPECT_EQ(cell(1, 1), L"462.562500");
    EXPECT_FALSE(modified());
    EXPECT_EQ(desk::backupsIn(host::HostSystem(), win::narrow(backups())).size(), 1U);
}

// The question how the radio is keeps the link busy for a moment.
TEST_F(RestoreBackup, WaitsForTheDiagnostics) {
    sendTwoTables();
    setFaults(L"delay:400");
    ASSERT_TRUE(pumpUntil([this] { return commsBusy(); }));
    expectChoice(false);
    dialogs.expectBox(IDYES);
    command(desk::Command::RadioRestore);
    EXPECT_FALSE(idle());
    EXPECT_TRUE(pumpUntil([this] { return statusText(messagePart).starts_with(L"Restoring the radio's table: "); }));
    dialogs.expectBox(IDOK);
    command(desk::Command::RadioCancel);
    finish();
    EXPECT_EQ(dialogs.shown().back(), L"Telvar: The exchange was aborted; nothing was written to the radio.");
}

TEST_F(RestoreBackup, CanBeCancelledWhileItWaitsForTheDiagnostics) {
    sendTwoTables();
    setFaults(L"delay:400");
    ASSERT_TRUE(pumpUntil([this] { return commsBusy(); }));
    expectChoice(true);
    dialogs.expectBox(IDYES);
    command(desk::Command::RadioRestore);
    ASSERT_FALSE(idle());
    EXPECT_TRUE(offered(radioMenu, desk::Command::RadioCancel));
    command(desk::Command::RadioCancel);
    EXPECT_TRUE(idle());
    EXPECT_EQ(statusText(messagePart), L"The exchange with the radio was cancelled.");
    ASSERT_TRUE(pumpUntil([this] { return !commsBusy(); }));
    pump();
    EXPECT_TRUE(idle());
    EXPECT_EQ(desk::backupsIn(host::HostSystem(), win::narrow(backups())).size(), 2U);
    EXPECT_EQ(frequency(), later);
}

// The commands are grey meanwhile, but the table can be typed into.
TEST_F(RestoreBackup, EditsMadeMeanwhileAreAskedAboutBeforeTheTableIsReplaced) {
    sendTwoTables();
    setFaults(L"delay:5");
    expectChoice(true);
    dialogs.expectBox(IDYES);
    command(desk::Command::RadioRestore);
    ASSERT_FALSE(idle());
    change(3);
    dialogs.expectQuestion(IDCANCEL);
    finish();
    EXPECT_EQ(frequency(3), 446'006'250);
    EXPECT_EQ(frequency(), later);
    EXPECT_TRUE(modified());
    setFaults(L"none");
    EXPECT_EQ(inRadio(), L"462.562500");
}

}  // namespace telvar::tests
