// Exchanges over TCP with a radio that is another program, and a cable that is pulled in the middle.
#include "radio_commands.h"
#include "support/windows/radio_program.h"

namespace telvar::tests {

namespace {

// A line on which an exchange takes seconds, so that there is a middle.
constexpr char slowLine[] = "--quiet --faults delay:20";

constexpr int reading = 10;  // percent of a send: the radio's own table is read
constexpr int writing = 40;  // and here ours is written

}  // namespace

struct RadioOverTcp : RadioCommands {
    void connectTo(const RadioProgram& radio) {
        constexpr int overTcp = 1;
        const std::wstring place = win::wide(radio.address().substr(std::string("tcp:").size()));
        dialogs.expect([place](HWND dialog) {
            SendDlgItemMessageW(dialog, CONNECTION_WAY, CB_SETCURSEL, overTcp, 0);
            SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(CONNECTION_WAY, CBN_SELCHANGE),
                         reinterpret_cast<LPARAM>(GetDlgItem(dialog, CONNECTION_WAY)));
            SetDlgItemTextW(dialog, CONNECTION_PLACE, place.c_str());
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        command(desk::Command::RadioConnection);
        ASSERT_EQ(statusText(messagePart), L"The radio is now at " + win::wide(radio.address()) + L".");
    }
    // The radio goes when the exchange has come that far; what the program says then.
    [[nodiscard]] std::wstring pulledDuring(desk::Command identifier, int percent) {
        RadioProgram radio(slowLine);
        connectTo(radio);
        dialogs.expectBox(IDOK);
        command(identifier);
        EXPECT_TRUE(pumpUntil([&] { return shownPercent() >= percent; }));
        radio.pullTheCable();
        EXPECT_TRUE(pumpUntil([this] { return idle(); }));
        pump();
        EXPECT_EQ(dialogs.shown().size(), 2U) << "the connection's dialog, and one sentence";
        EXPECT_TRUE(lastDialog().starts_with(L"Telvar: The connection to the radio broke ("))
            << win::narrow(lastDialog());
        return lastDialog();
    }
    void expectTableAsItWas() {
        EXPECT_FALSE(modified());
        EXPECT_EQ(frequency(), 462'562'500);
        EXPECT_EQ(cell(1, 1), L"462.562500");
    }
};

TEST_F(RadioOverTcp, ASentTableComesBack) {
    startWith("gmrs.telvar");
    const RadioProgram radio("--quiet");
    connectTo(radio);
    send();
    EXPECT_TRUE(statusText(messagePart).starts_with(L"The radio holds the table;"))
        << win::narrow(statusText(messagePart));
    expectEverythingBack();
    change();
    dialogs.expectQuestion(IDNO);
    load();
    EXPECT_EQ(statusText(messagePart), L"The table was loaded from the radio.");
    EXPECT_EQ(frequency(), 462'562'500);
    EXPECT_EQ(cell(1, 1), L"462.562500");
    expectEverythingBack();
}

TEST_F(RadioOverTcp, ACablePulledDuringALoadLeavesTheTable) {
    startWith("gmrs.telvar");
    EXPECT_TRUE(ends(pulledDuring(desk::Command::RadioLoad, writing), L"; the table here was not changed."));
    expectTableAsItWas();
    expectEverythingBack();
}

TEST_F(RadioOverTcp, ACablePulledBeforeASendWritesHasWrittenNothing) {
    startWith("gmrs.telvar");
    EXPECT_TRUE(ends(pulledDuring(desk::Command::RadioSend, reading), L"; nothing was written to the radio."));
    expectTableAsItWas();
    expectEverythingBack();
}

TEST_F(RadioOverTcp, ACablePulledWhileASendWritesLeavesTheFormerTable) {
    startWith("gmrs.telvar");
    EXPECT_TRUE(ends(pulledDuring(desk::Command::RadioSend, writing), L"; the radio keeps its former table."));
    expectTableAsItWas();
    expectEverythingBack();
}

TEST_F(RadioOverTcp, AfterAPulledCableAnotherRadioIsSentTo) {
    startWith("gmrs.telvar");
    (void)pulledDuring(desk::Command::RadioSend, writing);
    EXPECT_TRUE(pumpUntil([this] { return statusText(radioPart) == L"No radio answers"; }));
    const RadioProgram radio("--quiet");
    connectTo(radio);
    send();
    EXPECT_TRUE(statusText(messagePart).starts_with(L"The radio holds the table;"))
        << win::narrow(statusText(messagePart));
    EXPECT_TRUE(pumpUntil([this] { return statusText(radioPart) == L"Radio ready"; }));
    expectEverythingBack();
}

}  // namespace telvar::tests
