// What outlives a run with the simulated radio: its table, and a trace of what was said.
#include "radio_commands.h"
#include "win/user_folder.h"

namespace telvar::tests {

struct RadioMemory : RadioCommands {
    void restart() {
        dialogs.expectQuestion(IDNO);
        close();
        end();
        pump();
    }
    void trace(const std::wstring& file) {
        dialogs.expect([file](HWND dialog) {
            SetDlgItemTextW(dialog, CONNECTION_TRACE, file.c_str());
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        command(desk::Command::RadioConnection);
    }
};

TEST_F(RadioMemory, TheNextRunFindsWhatWasSent) {
    TestSettings::keepRadioIn(path("radio.telvar-radio"));
    startWith("gmrs.telvar");
    send();
    change();
    restart();
    start();
    load();
    EXPECT_EQ(frequency(), 462'562'500);
}

TEST_F(RadioMemory, IsInTheUsersOwnFolderUnlessToldOtherwise) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, TestSettings::key, L"SimulatedRadioFile");
    start();
    com::Bstr file;
    com::check(components.link->get_StateFile(file.put()));
    EXPECT_EQ(std::wstring(file.view()), win::userFolder() + L"\\simulated-radio.telvar-radio");
    EXPECT_NE(GetFileAttributesW(win::userFolder().c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(RadioMemory, ATraceHasEveryFrameOfTheRunAndIsOffInTheNext) {
    startWith("gmrs.telvar");
    trace(path("trace.txt"));
    load();
    const std::string lines = TemporaryFolder::read(folder / "trace.txt");
    EXPECT_NE(lines.find(" > read records "), std::string::npos) << lines.substr(0, 500);
    EXPECT_NE(lines.find(" < read records answered "), std::string::npos) << lines.substr(0, 500);
    trace(L"");
    dialogs.expectQuestion(IDNO);
    load();
    EXPECT_EQ(TemporaryFolder::read(folder / "trace.txt"), lines);
    trace(path("trace.txt"));
    restart();
    start();
    com::Bstr file;
    com::check(components.link->get_TraceFile(file.put()));
    EXPECT_EQ(file.view(), L"");
}

TEST_F(RadioMemory, ATraceThatCannotBeWrittenIsToldByTheNextExchange) {
    startWith("gmrs.telvar");
    trace(path("nowhere\\trace.txt"));
    dialogs.expectBox(IDOK);
    load();
    EXPECT_TRUE(lastDialog().starts_with(L"Telvar: The trace cannot be written ("));
    EXPECT_TRUE(ends(lastDialog(), L"; the table here was not changed."));
}

}  // namespace telvar::tests
