// Exchanges of the menu that meet something else: a selection that ends while they wait, a mark that another program
// has left, a cancellation that is over.
#include "radio_commands.h"

namespace telvar::tests {

struct RadioMeetings : RadioCommands {
    [[nodiscard]] bool linkBusy() {
        VARIANT_BOOL busy = VARIANT_FALSE;
        com::check(components.link->get_Busy(&busy));
        return busy != VARIANT_FALSE;
    }
    // Begins as soon as nobody else uses the link.
    void select(const wchar_t* channel) {
        ASSERT_TRUE(pumpUntil([this] { return !linkBusy(); }));
        com::Bstr text{std::wstring_view(channel)};
        com::check(components.link->SelectChannel(text.address()));
    }
    // As that many seconds would.
    void poll(int times) {
        constexpr WPARAM pollTimer = 2;
        for (int time = 0; time < times; ++time) {
            SendMessageW(program->window(), WM_TIMER, pollTimer, 0);
            ASSERT_TRUE(pumpUntil([this] { return !linkBusy(); }));
        }
    }
};

TEST_F(RadioMeetings, ACancellationIsForgottenWithItsExchange) {
    startWith("gmrs.telvar");
    setFaults(L"delay:100");
    dialogs.expectBox(IDOK);
    cancelDuringExchange(desk::Command::RadioLoad);
    setFaults(L"none");
    select(L"7");
    ASSERT_TRUE(pumpUntil([this] { return !linkBusy(); }));
    EXPECT_EQ(statusText(messagePart), L"Fault of the simulated radio: none");
}

// The control waits for the selection; its end is not that of the load.
TEST_F(RadioMeetings, ASelectionThatEndsDuringTheWaitReleasesNothing) {
    startWith("gmrs.telvar");
    setFaults(L"delay:300");
    select(L"7");
    ASSERT_TRUE(linkBusy());
    command(desk::Command::RadioLoad);
    EXPECT_FALSE(selectButtonEnabled());
    EXPECT_TRUE(hourglassShows());
    EXPECT_TRUE(pumpUntil([this] { return shownPercent() > 0; }));
    EXPECT_FALSE(selectButtonEnabled());
    dialogs.expectBox(IDOK);
    finish(desk::Command::RadioCancel);
    expectEverythingBack();
}

TEST_F(RadioMeetings, NoQuestionIsAskedWhileSomebodyElseKeepsTheLinkBusy) {
    startWith("gmrs.telvar");
    ASSERT_TRUE(pumpUntil([this] { return statusText(radioPart) == L"Radio ready"; }));
    ASSERT_TRUE(pumpUntil([this] { return !linkBusy(); }));
    com::check(components.store->put_CommsBusy(VARIANT_TRUE));
    poll(8);
    EXPECT_TRUE(commsBusy());
    com::check(components.store->put_CommsBusy(VARIANT_FALSE));
    setFaults(L"silence");
    poll(1);
    EXPECT_EQ(statusText(radioPart), L"No radio answers");
}

}  // namespace telvar::tests
