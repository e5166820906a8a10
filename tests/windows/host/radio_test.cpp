// Exchanges with the simulated radio from the menu: what is sent, loaded, refused and cancelled, and what the program
// shows and offers meanwhile and afterwards.
#include "radio_commands.h"

namespace telvar::tests {

namespace {

const Texts nothing;

}  // namespace

TEST_F(RadioCommands, ASentTableComesBack) {
    startWith("gmrs.telvar");
    const long first = frequency();
    send();
    EXPECT_TRUE(statusText(messagePart).starts_with(L"The radio holds the table; its former one is kept in "))
        << win::narrow(statusText(messagePart));
    expectEverythingBack();
    EXPECT_FALSE(modified());

    change();
    dialogs.expectQuestion(IDNO);
    load();
    EXPECT_EQ(frequency(), first);
    EXPECT_EQ(cell(1, 1), L"462.562500");
    EXPECT_EQ(statusText(messagePart), L"The table was loaded from the radio.");
    EXPECT_TRUE(modified());
    EXPECT_TRUE(title().starts_with(L"*"));
    expectEverythingBack();
}

TEST_F(RadioCommands, TwoExchangesCanFollowEachOther) {
    startWith("gmrs.telvar");
    send();
    send();
    EXPECT_TRUE(statusText(messagePart).starts_with(L"The radio holds the table;"));
    expectEverythingBack();
}

TEST_F(RadioCommands, DuringAnExchangeOnlyCancellingIsOffered) {
    startWith("gmrs.telvar");
    setFaults(L"delay:100");
    command(desk::Command::RadioSend);
    EXPECT_FALSE(offered(radioMenu, desk::Command::RadioSend));
    EXPECT_FALSE(offered(radioMenu, desk::Command::RadioLoad));
    EXPECT_FALSE(offered(radioMenu, desk::Command::RadioConnection));
    EXPECT_FALSE(offered(radioMenu, desk::Command::RadioFaults));
    EXPECT_TRUE(offered(radioMenu, desk::Command::RadioCancel));
    EXPECT_TRUE(hourglassShows());
    EXPECT_FALSE(selectButtonEnabled());
    EXPECT_TRUE(pumpUntil([this] { return progressShows(); }));
    EXPECT_TRUE(statusText(messagePart).starts_with(L"Sending to the radio: "));
    dialogs.expectBox(IDOK);
    finish(desk::Command::RadioCancel);
    EXPECT_EQ(lastDialog(), L"Telvar: The exchange was aborted; nothing was written to the radio.");
    expectEverythingBack();
}

TEST_F(RadioCommands, ACancelledLoadLeavesTheTable) {
    startWith("gmrs.telvar");
    setFaults(L"delay:100");
    dialogs.expectBox(IDOK);
    cancelDuringExchange(desk::Command::RadioLoad);
    EXPECT_EQ(lastDialog(), L"Telvar: The exchange was aborted; the table here was not changed.");
    EXPECT_FALSE(modified());
    EXPECT_EQ(cell(1, 1), L"462.562500");
    expectEverythingBack();
}

TEST_F(RadioCommands, ASendThatIsNotConfirmedBeginsNothing) {
    start(sample("gmrs.telvar", "a.telvar"));
    com::check(components.store->put_ShowSendWarning(VARIANT_TRUE));
    dialogs.expectBox(IDCANCEL);
    send();
    EXPECT_EQ(dialogs.shown().size(), 1U);
    expectEverythingBack();
}

TEST_F(RadioCommands, ASendThatIsNotPermittedGivesEverythingBack) {
    startWith("gmrs.telvar");
    com::check(components.store->put_SendPermitted(VARIANT_FALSE));
    send();
    EXPECT_EQ(dialogs.shown(), nothing);
    expectEverythingBack();
}

TEST_F(RadioCommands, ATableThatFailsTheChecksIsNotSent) {
    startWith("gmrs.telvar");
    com::check(record(1)->put_SynthStep(com::Variant(std::int32_t{7}).get()));
    dialogs.expectBox(IDOK);
    send();
    EXPECT_EQ(dialogs.shown().size(), 1U);
    expectEverythingBack();
}

TEST_F(RadioCommands, ASilentRadioIsToldAndEverythingComesBack) {
    startWith("gmrs.telvar");
    setFaults(L"silence");
    dialogs.expectBox(IDOK);
    load();
    EXPECT_TRUE(ends(lastDialog(), L"; the table here was not changed."));
    EXPECT_FALSE(modified());
    expectEverythingBack();
}

TEST_F(RadioCommands, AFailedExchangeDoesNotSpoilTheNext) {
    startWith("gmrs.telvar");
    setFaults(L"cut@20+");
    dialogs.expectBox(IDOK);
    send();
    EXPECT_TRUE(ends(lastDialog(), L"; nothing was written to the radio."));
    setFaults(L"none");
    send();
    EXPECT_TRUE(statusText(messagePart).starts_with(L"The radio holds the table;"));
    expectEverythingBack();
}

TEST_F(RadioCommands, TheFaultsThatAreOfferedAreThoseOfTheLink) {
    start();
    dialogs.expect([](HWND dialog) {
        const HWND list = GetDlgItem(dialog, FAULTS_PLAN);
        std::string offered;
        const auto count = static_cast<WPARAM>(SendMessageW(list, CB_GETCOUNT, 0, 0));
        for (WPARAM index = 0; index < count; ++index) {
            std::array<wchar_t, 50> text{};
            SendMessageW(list, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
            offered += (index == 0 ? "" : ",") + win::narrow(text.data());
        }
        EXPECT_EQ(offered, "none,silence,delay,noise,drop,repeat,cut,reorder,identity,echo,power");
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    command(desk::Command::RadioFaults);
}

TEST_F(RadioCommands, AFaultThatDoesNotExistIsRefusedInTheDialog) {
    start();
    dialogs.expect([](HWND dialog) {
        SetDlgItemTextW(dialog, FAULTS_PLAN, L"laziness");
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        std::wstring note(200, L'\0');
        note.resize(static_cast<std::size_t>(GetDlgItemTextW(dialog, DIALOG_NOTE, note.data(), 200)));
        EXPECT_EQ(note, L"\"laziness\" is not a fault of the simulated radio.");
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    command(desk::Command::RadioFaults);
}

TEST_F(RadioCommands, TheConnectionIsRememberedAndTakesTheFaultAway) {
    start();
    EXPECT_TRUE(offered(radioMenu, desk::Command::RadioFaults));
    dialogs.expect([](HWND dialog) {
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, CONNECTION_PLACE)));
        SendDlgItemMessageW(dialog, CONNECTION_WAY, CB_SETCURSEL, 1, 0);
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(CONNECTION_WAY, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, CONNECTION_WAY)));
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog, CONNECTION_PLACE)));
        SetDlgItemTextW(dialog, CONNECTION_PLACE, L"127.0.0.1:99999");
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
        EXPECT_TRUE(IsWindow(dialog));
        SetDlgItemTextW(dialog, CONNECTION_PLACE, L"127.0.0.1:9");
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    command(desk::Command::RadioConnection);
    EXPECT_FALSE(offered(radioMenu, desk::Command::RadioFaults));
    EXPECT_EQ(statusText(messagePart), L"The radio is now at tcp:127.0.0.1:9.");
    close();
    end();
    start();
    EXPECT_FALSE(offered(radioMenu, desk::Command::RadioFaults));
    dialogs.expectBox(IDOK);
    load();
    EXPECT_TRUE(ends(lastDialog(), L"; the table here was not changed."));
    expectEverythingBack();
}

TEST_F(RadioCommands, ClosingDuringAnExchangeAsksAndCancelsIt) {
    startWith("gmrs.telvar");
    setFaults(L"delay:100");
    command(desk::Command::RadioSend);
    dialogs.expectBox(IDNO);
    close();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(lastDialog(), L"Telvar: The exchange with the radio is still going on. Cancel it and close the program?");
    dialogs.expectBox(IDYES);
    dialogs.expectBox(IDOK);
    close();
    EXPECT_TRUE(pumpUntil([this] { return !isOpen(); }));
    EXPECT_EQ(lastDialog(), L"Telvar: The exchange was aborted; nothing was written to the radio.");
}

TEST_F(RadioCommands, TheEndOfTheSessionEndsAnExchange) {
    startWith("gmrs.telvar");
    setFaults(L"delay:100");
    command(desk::Command::RadioSend);
    SendMessageW(program->window(), WM_ENDSESSION, TRUE, 0);
    EXPECT_FALSE(isOpen());
    end();
    pump();
    EXPECT_TRUE(LoadedServer("VexloRadioLink.dll").canUnload());
}

TEST_F(RadioCommands, TheStatusBarShowsWhetherARadioAnswers) {
    start();
    EXPECT_TRUE(pumpUntil([this] { return statusText(radioPart) == L"Radio ready"; }));
    setFaults(L"silence");
    EXPECT_TRUE(pumpUntil([this] { return statusText(radioPart) == L"No radio answers"; }));
    setFaults(L"none");
    EXPECT_TRUE(pumpUntil([this] { return statusText(radioPart) == L"Radio ready"; }));
}

// The question how the radio is keeps the link busy, and the control waits for its end before it loads.
TEST_F(RadioCommands, AnExchangeWaitsForTheDiagnostics) {
    startWith("gmrs.telvar");
    setFaults(L"delay:400");
    ASSERT_TRUE(pumpUntil([this] { return commsBusy(); }));
    dialogs.expectBox(IDOK);
    cancelDuringExchange(desk::Command::RadioLoad);
    EXPECT_EQ(lastDialog(), L"Telvar: The exchange was aborted; the table here was not changed.");
    expectEverythingBack();
}

// The control's wait finds the cancellation in the queue.
TEST_F(RadioCommands, CancellingDuringTheWaitCancelsWhatComesAfter) {
    startWith("gmrs.telvar");
    setFaults(L"silence");
    ASSERT_TRUE(pumpUntil([this] { return commsBusy(); }));
    PostMessageW(program->window(), WM_COMMAND, static_cast<WPARAM>(desk::Command::RadioCancel), 0);
    dialogs.expectBox(IDOK);
    SendMessageW(program->window(), WM_COMMAND, static_cast<WPARAM>(desk::Command::RadioLoad), 0);
    EXPECT_TRUE(pumpUntil([this] { return idle(); }));
    EXPECT_EQ(lastDialog(), L"Telvar: The exchange was aborted; the table here was not changed.");
    expectEverythingBack();
}

TEST_F(RadioCommands, ALinkThatSeemsBusyForEverCanBeCancelled) {
    startWith("gmrs.telvar");
    com::check(components.store->put_CommsBusy(VARIANT_TRUE));
    PostMessageW(program->window(), WM_COMMAND, static_cast<WPARAM>(desk::Command::RadioCancel), 0);
    dialogs.expectBox(IDOK);
    SendMessageW(program->window(), WM_COMMAND, static_cast<WPARAM>(desk::Command::RadioLoad), 0);
    EXPECT_TRUE(pumpUntil([this] { return idle(); }));
    EXPECT_FALSE(modified());
    expectEverythingBack();
}

TEST_F(RadioCommands, ClosingDuringTheWaitClosesAfterwards) {
    startWith("gmrs.telvar");
    com::check(components.store->put_CommsBusy(VARIANT_TRUE));
    PostMessageW(program->window(), WM_CLOSE, 0, 0);
    dialogs.expectBox(IDOK);
    SendMessageW(program->window(), WM_COMMAND, static_cast<WPARAM>(desk::Command::RadioLoad), 0);
    EXPECT_TRUE(pumpUntil([this] { return !isOpen(); }));
}

TEST_F(RadioCommands, ClosingDuringTheWaitOfASendClosesAfterwards) {
    startWith("gmrs.telvar");
    com::check(components.store->put_CommsBusy(VARIANT_TRUE));
    PostMessageW(program->window(), WM_CLOSE, 0, 0);
    dialogs.expectBox(IDOK);
    SendMessageW(program->window(), WM_COMMAND, static_cast<WPARAM>(desk::Command::RadioSend), 0);
    EXPECT_TRUE(pumpUntil([this] { return !isOpen(); }));
    EXPECT_EQ(lastDialog(), L"Telvar: The exchange was aborted; nothing was written to the radio.");
}

// Nobody asks, and nothing frees the link: the wait ends with the window that it was begun from.
TEST_F(RadioCommands, TheEndOfTheSessionEndsAWaitThatWouldLastForEver) {
    for (const desk::Command identifier : {desk::Command::RadioSend, desk::Command::RadioLoad}) {
        start();
        const auto store = com::ComPointer<IDataStore>(components.store);
        com::check(store->put_TableOpen(VARIANT_TRUE));
        com::check(store->put_ShowSendWarning(VARIANT_FALSE));
        com::check(store->put_CommsBusy(VARIANT_TRUE));
        PostMessageW(program->window(), WM_ENDSESSION, TRUE, 0);
        SendMessageW(program->window(), WM_COMMAND, static_cast<WPARAM>(identifier), 0);
        EXPECT_FALSE(isOpen());
        end();
        pump();
        EXPECT_TRUE(LoadedServer("Tesslin.ocx").canUnload());
        EXPECT_TRUE(LoadedServer("VexloRadioLink.dll").canUnload());
    }
}

}  // namespace telvar::tests
