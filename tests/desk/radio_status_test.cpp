// The question once a second how the radio is.
#include "exchange_world.h"

namespace telvar::tests {

using namespace desk;

struct RadioPolls : ExchangeWorld {
    [[nodiscard]] long questions() { return journal.count("link ask status"); }
};

TEST_F(RadioPolls, AskOnceAndNotAgainUntilTheAnswer) {
    poll(4);
    EXPECT_EQ(questions(), 1);
    answerStatus();
    poll();
    EXPECT_EQ(questions(), 2);
}

TEST_F(RadioPolls, ShowTheAnswer) {
    poll();
    answerStatus(true, "Radio 3.0 answers.");
    EXPECT_EQ(line.radio, "Radio ready");
    EXPECT_EQ(line.radioSentence, "Radio 3.0 answers.");
    poll();
    answerStatus(false, "Nobody answers at COM1.");
    EXPECT_EQ(line.radio, "No radio answers");
    EXPECT_EQ(line.radioSentence, "Nobody answers at COM1.");
    EXPECT_EQ(line.messages, Notes());
}

TEST_F(RadioPolls, AskAgainALinkThatRefuses) {
    link.takesStatus = false;
    poll(3);
    EXPECT_EQ(questions(), 3);
    EXPECT_TRUE(idle());
}

TEST_F(RadioPolls, ALinkThatRefusesIsNotTakenForOneThatIsAsked) {
    link.takesStatus = false;
    poll();
    link.running = true;
    EXPECT_TRUE(cancelOffered());
}

TEST_F(RadioPolls, AskNothingDuringAnExchange) {
    begin(Command::RadioSend);
    poll(10);
    EXPECT_EQ(questions(), 0);
    end(Task::Send, true);
    poll();
    EXPECT_EQ(questions(), 1);
}

TEST_F(RadioPolls, AskNothingDuringAnExchangeOfSomebodyElse) {
    link.running = true;
    poll(10);
    EXPECT_EQ(questions(), 0);
}

// The question's end would take the mark away.
TEST_F(RadioPolls, AskNothingWhileSomebodyHasMarkedTheStore) {
    store.busy = true;
    poll(10);
    EXPECT_EQ(questions(), 0);
    store.busy = false;
    poll();
    EXPECT_EQ(questions(), 1);
}

TEST_F(RadioPolls, APauseEndsByItselfAfterFive) {
    program->diagnosticsPaused();
    poll(5);
    EXPECT_EQ(questions(), 0);
    poll();
    EXPECT_EQ(questions(), 1);
}

TEST_F(RadioPolls, APauseBeginsAfresh) {
    program->diagnosticsPaused();
    poll(4);
    program->diagnosticsPaused();
    poll(5);
    EXPECT_EQ(questions(), 0);
    poll();
    EXPECT_EQ(questions(), 1);
}

TEST_F(RadioPolls, APauseEndsWithTheNextExchange) {
    program->diagnosticsPaused();
    poll(2);
    end(Task::Levels, false, "It is silent.");
    poll();
    EXPECT_EQ(questions(), 1);
}

TEST_F(RadioPolls, APauseDoesNotRunOutDuringAnExchange) {
    program->diagnosticsPaused();
    link.running = true;
    poll(10);
    link.running = false;
    poll(5);
    EXPECT_EQ(questions(), 0);
}

TEST_F(RadioPolls, APauseEndsWithAnExchangeThatTheControlGaveUp) {
    control.during("send", [this] { program->diagnosticsPaused(); });
    run(Command::RadioSend);
    poll();
    EXPECT_EQ(questions(), 1);
}

TEST_F(RadioPolls, ARestoreThatWaitsPausesThem) {
    restoreBehindStatus(false);
    answerStatus();
    forget();
    poll(5);
    EXPECT_EQ(questions(), 0);
}

// A question would take the link that the restore waits for.
TEST_F(RadioPolls, TheEndOfAnotherExchangeLeavesThePauseOfARestoreThatWaits) {
    restoreBehindStatus(false);
    program->exchangeEnded(Task::ChannelSelection, true, "");
    answerStatus();
    forget();
    poll();
    EXPECT_EQ(questions(), 0);
    runLater();
    EXPECT_EQ(journal.count(std::string("link restore: ") + newest), 1);
}

TEST_F(RadioPolls, TheEndOfAnotherExchangeLeavesThePauseOfOneThatIsPrepared) {
    control.during("send", [this] {
        program->diagnosticsPaused();
        end(Task::ChannelSelection, true);
        poll();
        EXPECT_EQ(questions(), 0);
    });
    run(Command::RadioSend);
    poll();
    EXPECT_EQ(questions(), 1);
}

TEST_F(RadioPolls, ARestoreThatWasRefusedEndsThePause) {
    link.fails("restore", "The file is damaged");
    restore(false);
    poll();
    EXPECT_EQ(questions(), 1);
}

}  // namespace telvar::tests
